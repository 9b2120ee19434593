// SPDX-License-Identifier: GPL-2.0-or-later
// The application's database: opened, opened again after a loss, with transactions and migrations.
#include <kelo_base/core/Database.h>

#include "core/databasesession_p.h"

#include <QDeadlineTimer>
#include <QSqlQuery>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Fault = DatabaseSession::Fault;

namespace {

constexpr std::chrono::seconds kLongestPreparation{10};
constexpr auto kPrepare = "Database::Prepare";
constexpr qint64 kPreparationLock = 0x6B656C6F; // any number that all our programs agree on

QString createRegister()
{
    return u"CREATE TABLE IF NOT EXISTS KELO_MODULES ("
           "NAME VARCHAR(64) PRIMARY KEY, FORM BIGINT NOT NULL)"_s;
}

QString storeForm()
{
    return u"INSERT INTO KELO_MODULES (NAME, FORM) VALUES (?, ?) "
           "ON CONFLICT (NAME) DO UPDATE SET FORM = excluded.FORM"_s;
}

/// Keeps others from preparing while it lives. The embedded database needs none: a transaction
/// locks it as a whole from its beginning.
class PreparationLock
{
public:
    explicit PreparationLock(DatabaseSession &session)
        : m_session(session),
          m_isNeeded(session.place().IsServer() && !session.isInTransaction()),
          m_isHeld(!m_isNeeded || run(u"SELECT pg_advisory_lock(?)"_s))
    {
    }
    ~PreparationLock()
    {
        if (m_isNeeded && m_isHeld && m_session.isOpen())
            run(u"SELECT pg_advisory_unlock(?)"_s);
    }
    Q_DISABLE_COPY_MOVE(PreparationLock)

    [[nodiscard]] bool isHeld() const { return m_isHeld; }

private:
    bool run(const QString &statement)
    {
        return m_session.select(statement, {kPreparationLock},
                                [](const DatabaseRow &) { return true; });
    }

    DatabaseSession &m_session;
    bool m_isNeeded;
    bool m_isHeld;
};

/// Runs the step that leads from @p form on, unless somebody else was faster.
bool takeStep(Database &database, DatabaseSession &session, const DatabaseModule &module,
              qint64 form)
{
    const PreparationLock lock(session);
    return lock.isHeld() && session.runTransaction([&] {
        if (!database.Run(createRegister()))
            return false;
        const auto present = session.formOf(module.name);
        if (!present || *present != form)
            return present.has_value();
        const bool isTaken = module.steps[static_cast<std::size_t>(form)](database);
        return isTaken && session.isOpen() && // the step may have deleted the database
               database.Run(storeForm(), {module.name, form + 1});
    });
}

bool refuseLaterForm(DatabaseSession &session, const DatabaseModule &module)
{
    const QString sentence =
        DatabaseSession::tr("The tables of \"%1\" in the database %2 are those of a later "
                            "version. They were left alone.")
            .arg(module.name, session.place().Text());
    return session.tell(kPrepare, Fault::Other, sentence,
                        module.name + u": tables of later form"_s);
}

/// A step that gave up by itself leaves nothing else to tell.
bool reportStep(DatabaseSession &session, const DatabaseModule &module)
{
    const QString sentence =
        DatabaseSession::tr("The tables of \"%1\" in the database %2 cannot be brought to "
                            "their present form.")
            .arg(module.name, session.place().Text());
    return session.tell(kPrepare, Fault::Other, sentence, module.name + u": a step failed"_s);
}

} // namespace

QVariant DatabaseRow::Value(int column) const
{
    return m_query ? m_query->value(column) : m_values->at(static_cast<std::size_t>(column));
}

void DatabaseBinder::Bind(const QVariant &value)
{
    m_query.bindValue(m_position++, value);
}

Database::Database(DatabasePlace place)
    : m_session(std::make_shared<DatabaseSession>(std::move(place)))
{
}

Database::~Database()
{
    m_session->close();
}

bool Database::Open()
{
    return m_session->open();
}

void Database::Close()
{
    m_session->close();
}

bool Database::IsOpen() const
{
    return m_session->isOpen();
}

QString Database::Text() const
{
    return m_session->place().Text();
}

bool Database::IsServer() const
{
    return m_session->place().IsServer();
}

QString Database::File() const
{
    return IsServer() ? QString() : m_session->place().file;
}

QString Database::LastError() const
{
    return m_session->lastError();
}

bool Database::Prepare(const DatabaseModule &module)
{
    const auto session = m_session; // a step may delete the database
    if (session->isPrepared(module.name))
        return true;
    const auto present = static_cast<qint64>(module.steps.size());
    DatabaseSession::Patience patience(*session);
    for (const QDeadlineTimer deadline(kLongestPreparation);;) {
        session->forgetFault();
        const auto form = session->formOf(module.name);
        if (form && *form > present)
            return refuseLaterForm(*session, module);
        if (form && *form == present) {
            session->setPrepared(module.name);
            return patience.endWell();
        }
        if (form && takeStep(*this, *session, module, *form))
            continue;
        const Fault fault = session->lastFault();
        if (fault == Fault::None)
            return reportStep(*session, module);
        const bool isWorthWaiting = (fault == Fault::Locked || fault == Fault::Conflict) &&
                                    !session->isInTransaction() && !deadline.hasExpired();
        if (!isWorthWaiting)
            return false;
    }
}

bool Database::RunTransaction(const std::function<bool()> &work)
{
    const auto session = m_session;
    return session->runTransaction(work);
}

bool Database::RunRepeatable(const std::function<bool()> &work)
{
    const auto session = m_session;
    return session->runRepeatable(work);
}

bool Database::IsInTransaction() const
{
    return m_session->isInTransaction();
}

bool Database::Run(const QString &statement, const QVariantList &values)
{
    if (values.isEmpty())
        return Run(statement, std::function<QString(DatabaseBinder &)>());
    return Run(statement, [&values](DatabaseBinder &binder) {
        for (const QVariant &value : values)
            binder.Bind(value);
        return QString();
    });
}

bool Database::Run(const QString &statement, const std::function<QString(DatabaseBinder &)> &bind)
{
    const auto session = m_session;
    if (session->isInTransaction())
        return session->run(statement, bind);
    // Of its own transaction: a connection that was lost shows when it begins, so that nothing is
    // ever done twice.
    return session->runRepeatable([&] { return session->run(statement, bind); });
}

bool Database::Select(const QString &statement, const QVariantList &values,
                      const std::function<bool(const DatabaseRow &)> &visit)
{
    const auto session = m_session;
    return session->select(statement, values, visit);
}

bool Database::Refuse(const char *function, const QString &reason)
{
    return m_session->tell(function, Fault::Other,
                           DatabaseSession::tr("The database %1 refused: %2").arg(Text(), reason),
                           reason);
}
