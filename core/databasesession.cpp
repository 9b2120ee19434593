// SPDX-License-Identifier: GPL-2.0-or-later
// The connection of a Database: statements prepared on it, transactions, and what failed.
#include "core/databasesession_p.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSqlError>
#include <QSqlRecord>
#include <algorithm>
#include <atomic>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kRepairWait = 2'000;         // milliseconds that others may take to set a file aside
constexpr int kMostTries = 20;             // of what meets others' changes
constexpr qint64 kRestPerTry = 10;         // times what a vain attempt to open took
constexpr std::size_t kMostPrepared = 200; // statements kept for the next time

QString newConnectionName()
{
    static std::atomic<quint64> last = 0; // each thread may have databases of its own
    return u"kelo-database-"_s + QString::number(++last);
}

QString savepoint(std::size_t depth)
{
    return u"KELO_"_s + QString::number(depth);
}

} // namespace

/// Rows that are being read. The server's connection carries one result at a time: before anything
/// else runs on it, what is left is taken into memory.
class DatabaseSession::Stream
{
public:
    Stream(DatabaseSession &session, QSqlQuery &&query)
        : m_session(session), m_query(std::move(query)), m_generation(session.m_generation)
    {
        m_session.m_streams.push_back(this);
    }
    ~Stream()
    {
        std::erase(m_session.m_streams, this);
        if (m_query)
            m_query->finish(); // an unfinished one keeps tables locked
    }
    Q_DISABLE_COPY_MOVE(Stream)

    bool next()
    {
        if (m_isDrained) {
            m_rows.pop_front();
            return !m_rows.empty();
        }
        return m_query && m_query->next();
    }
    [[nodiscard]] DatabaseRow row() const
    {
        return m_isDrained ? DatabaseRow(&m_rows.front()) : DatabaseRow(&*m_query);
    }
    /// Takes the row that is being looked at and all that follow.
    void drain()
    {
        if (m_isDrained || !m_query)
            return;
        const int columns = m_query->record().count();
        do {
            auto &row = m_rows.emplace_back();
            for (int column = 0; column < columns; ++column)
                row.push_back(m_query->value(column));
        } while (m_query->next());
        m_isDrained = true;
    }
    /// Before the connection goes.
    void abandon() { m_query.reset(); }

    [[nodiscard]] bool isOfThisConnection() const { return m_generation == m_session.m_generation; }
    [[nodiscard]] QSqlError error() const { return m_query ? m_query->lastError() : QSqlError(); }
    std::optional<QSqlQuery> takeQuery() { return std::exchange(m_query, std::nullopt); }

private:
    DatabaseSession &m_session;
    std::optional<QSqlQuery> m_query;
    std::deque<std::vector<QVariant>> m_rows; ///< the first is being looked at
    quint64 m_generation;
    bool m_isDrained = false;
};

DatabaseSession::Patience::Patience(DatabaseSession &session)
    : m_session(session), m_lastError(session.m_lastError)
{
    ++m_session.m_patience;
}

DatabaseSession::Patience::~Patience()
{
    if (--m_session.m_patience > 0 || m_session.m_untold.isEmpty())
        return;
    qDebug().noquote() << std::exchange(m_session.m_untold, {});
}

bool DatabaseSession::Patience::endWell()
{
    if (!m_session.m_untold.isEmpty()) {
        m_session.m_untold.clear();
        m_session.m_lastError = m_lastError;
    }
    return true;
}

DatabaseSession::DatabaseSession(DatabasePlace place)
    : m_place(std::move(place)), m_connection(newConnectionName())
{
}

DatabaseSession::~DatabaseSession()
{
    QObject::disconnect(m_atEndOfApplication);
    forgetConnection();
}

bool DatabaseSession::open()
{
    m_isWanted = true;
    if (!m_levels.empty() || isOpen())
        return isOpen();
    m_lastError.clear();
    return connectToPlace();
}

void DatabaseSession::close()
{
    m_isWanted = false;
    m_levels.clear();
    forgetConnection();
}

/// The driver goes first: statements that outlive it need not be told to the server one by one.
void DatabaseSession::forgetConnection()
{
    for (Stream *const stream : m_streams)
        stream->abandon();
    ++m_generation;
    m_preparedModules.clear();
    if (m_database.isValid()) {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
    }
    m_prepared.clear();
    m_isOutdated = false;
}

bool DatabaseSession::connectToPlace()
{
    constexpr auto function = "Database::Open";
    QElapsedTimer timer;
    timer.start();
    QString reason;
    bool isOpened = connect(reason);
    if (isOpened && !m_place.IsServer() && !isWhole(m_isSuspect))
        isOpened = setDamagedFileAside(reason);
    if (isOpened) {
        m_rest = 0;
        m_isLost = false;
        m_isSuspect = false;
        return true;
    }
    m_isLost = true;
    m_rest = kRestPerTry * timer.elapsed();
    m_sinceFailure.start();
    return fail(function, Fault::Lost,
                tr("The database %1 cannot be opened: %2").arg(m_place.Text(), reason), reason);
}

bool DatabaseSession::connect(QString &reason)
{
    forgetConnection();
    QCoreApplication *const application = QCoreApplication::instance();
    if (!application) { // drivers come and go with it
        reason = u"there is no application"_s;
        return false;
    }
    QObject::disconnect(m_atEndOfApplication);
    m_atEndOfApplication = QObject::connect(application, &QObject::destroyed, [this] { close(); });
    if (m_place.IsServer()) {
        m_database = QSqlDatabase::addDatabase(u"QPSQL"_s, m_connection);
        m_database.setHostName(m_place.host);
        m_database.setPort(m_place.port);
        m_database.setDatabaseName(m_place.name);
        m_database.setUserName(m_place.user);
        m_database.setPassword(m_place.password);
        m_database.setConnectOptions(
            u"connect_timeout=5;tcp_user_timeout=10000;"
            "options='-c client_min_messages=warning -c lock_timeout=%1'"_s.arg(
                std::max(m_place.lockWait, 1))); // 0 would be for ever
    } else {
        QDir().mkpath(QFileInfo(m_place.file).absolutePath());
        m_database = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connection);
        m_database.setDatabaseName(m_place.file);
        m_database.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(m_place.lockWait));
    }
    const bool isOpened = m_database.open();
    reason = withoutSecret(m_database.lastError().text());
    if (isOpened && !m_place.IsServer())
        QSqlQuery(m_database).exec(u"PRAGMA foreign_keys = ON"_s); // as in the server
    return isOpened;
}

/// Whether the file is a database; what cannot be read at the moment counts as one.
/// @param isThorough  looks at every page instead of the first ones
bool DatabaseSession::isWhole(bool isThorough)
{
    QSqlQuery query(m_database);
    const QString check =
        isThorough ? u"PRAGMA quick_check(1)"_s : u"SELECT 'ok', COUNT(*) FROM sqlite_master"_s;
    if (query.exec(check) && query.next())
        return query.value(0).toString() == "ok"_L1;
    return faultOf(query.lastError()) != Fault::Damaged;
}

/// Keeps the file under another name and begins a new one, unless somebody else did so meanwhile.
bool DatabaseSession::setDamagedFileAside(QString &reason)
{
    QLockFile lock(m_place.file + u".lock"_s);
    if (!lock.tryLock(kRepairWait)) {
        reason = tr("the file is damaged, and another program is setting it aside");
        return false;
    }
    if (!connect(reason) || isWhole(m_isSuspect))
        return m_database.isOpen();
    forgetConnection();
    const QString stamp = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    const QString kept = m_place.file + u".damaged-"_s + stamp;
    // The journal first: beside a new file it would be taken for that one's.
    const QString journal = u"-journal"_s;
    const bool isAlone = !QFile::exists(m_place.file + journal) ||
                         QFile::rename(m_place.file + journal, kept + journal);
    if (!isAlone || !QFile::rename(m_place.file, kept)) {
        reason = tr("the file is damaged and cannot be renamed");
        return false;
    }
    if (!connect(reason))
        return false;
    m_lastError = tr("The database %1 was damaged. It is kept as %2, and a new one was begun.")
                      .arg(m_place.Text(), QDir::toNativeSeparators(kept));
    qDebug().noquote() << "Database::Open : damaged file kept as" << kept;
    return true;
}

/// Quiet when the transaction around is spoiled: what spoiled it was told.
bool DatabaseSession::isUsable(const char *function)
{
    if (!m_isWanted)
        return fail(function, Fault::Other, tr("The database %1 is closed.").arg(m_place.Text()),
                    u"closed"_s);
    if (!m_levels.empty())
        return !m_levels.back();
    if (!m_isLost && m_database.isOpen()) {
        if (std::exchange(m_isOutdated, false))
            m_prepared.clear();
        return true;
    }
    if (m_isLost && m_rest > 0 && m_sinceFailure.elapsed() < m_rest)
        return fail(function, Fault::Lost, m_lastError, u"cannot be opened at the moment"_s);
    return connectToPlace();
}

/// Runs what is not worth preparing.
bool DatabaseSession::command(const QString &text, QSqlError &error)
{
    drainStreams();
    QSqlQuery query(m_database);
    const bool isDone = query.exec(text);
    error = query.lastError();
    return isDone;
}

bool DatabaseSession::begin(const char *function)
{
    if (!isUsable(function))
        return false;
    QSqlError error;
    if (!m_levels.empty()) {
        if (!command(u"SAVEPOINT "_s + savepoint(m_levels.size()), error))
            return fail(function, error);
        m_levels.push_back(false);
        return true;
    }
    // The embedded database: for writing from the start, since two that read first and write then
    // would block each other. The server: nothing that was read changes under the transaction.
    const QString text =
        m_place.IsServer() ? u"BEGIN ISOLATION LEVEL REPEATABLE READ"_s : u"BEGIN IMMEDIATE"_s;
    bool isDone = command(text, error);
    if (!isDone && faultOf(error) == Fault::Lost && connectToPlace())
        isDone = command(text, error);
    else if (!isDone && faultOf(error) == Fault::ReadOnly)
        isDone = command(u"BEGIN"_s, error);
    if (!isDone)
        return m_isLost ? false : fail(function, error);
    m_levels.push_back(false);
    return true;
}

bool DatabaseSession::end(const char *function, bool isGood)
{
    const bool isOutermost = m_levels.size() == 1;
    const QString name = savepoint(m_levels.size() - 1);
    QSqlError error;
    if (isGood && !m_levels.back()) {
        if (command(isOutermost ? u"COMMIT"_s : u"RELEASE SAVEPOINT "_s + name, error)) {
            m_levels.pop_back();
            return true;
        }
        fail(function, error);
    }
    // Where this fails, too, the database may have undone it by itself, and all around it.
    const bool isUndone =
        !m_isLost && (isOutermost ? command(u"ROLLBACK"_s, error)
                                  : command(u"ROLLBACK TO SAVEPOINT "_s + name, error) &&
                                        command(u"RELEASE SAVEPOINT "_s + name, error));
    m_levels.pop_back();
    if (isUndone)
        return false;
    if (isOutermost)
        m_isLost = true; // and begun anew
    else
        m_levels.back() = true;
    return false;
}

bool DatabaseSession::runTransaction(const std::function<bool()> &work)
{
    constexpr auto function = "Database::RunTransaction";
    if (!begin(function))
        return false;
    const quint64 generation = m_generation;
    const auto isStillOurs = [&] { return m_generation == generation && !m_levels.empty(); };
    bool isGood = false;
    try {
        isGood = work();
    } catch (...) {
        if (isStillOurs())
            end(function, false);
        throw;
    }
    if (isStillOurs())
        return end(function, isGood);
    return fail(function, Fault::Other,
                tr("The database %1 was closed while it was being changed; nothing was changed.")
                    .arg(m_place.Text()),
                u"closed inside"_s);
}

bool DatabaseSession::runRepeatable(const std::function<bool()> &work)
{
    if (!m_levels.empty())
        return runTransaction(work); // what is around it is repeated, or nothing
    Patience patience(*this);
    for (int tries = kMostTries; tries > 0; --tries) {
        m_lastFault = Fault::None;
        if (runTransaction(work))
            return patience.endWell();
        if (m_lastFault != Fault::Conflict)
            return false;
    }
    return false;
}

/// The statement, from the shelf or new; nothing when it cannot be prepared.
std::optional<QSqlQuery> DatabaseSession::prepared(const QString &statement, QSqlError &error)
{
    const auto kept = m_prepared.find(statement);
    if (kept != m_prepared.end()) {
        QSqlQuery query = std::move(kept->second);
        m_prepared.erase(kept);
        return query;
    }
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (query.prepare(statement))
        return query;
    error = query.lastError();
    return std::nullopt;
}

void DatabaseSession::keep(const QString &statement, QSqlQuery &&query)
{
    query.finish();
    if (m_prepared.size() >= kMostPrepared)
        m_isOutdated = true; // forgotten when no transaction is open any more
    m_prepared.emplace(statement, std::move(query));
}

bool DatabaseSession::run(const QString &statement,
                          const std::function<QString(DatabaseBinder &)> &bind)
{
    constexpr auto function = "Database::Run";
    if (!isUsable(function))
        return false;
    QSqlError error;
    if (!bind) // the server prepares no statements that change tables
        return command(statement, error) || fail(function, error);
    drainStreams();
    auto query = prepared(statement, error);
    if (!query)
        return fail(function, error);
    DatabaseBinder binder(*query);
    const QString refusal = bind(binder);
    const bool isDone = refusal.isEmpty() && query->exec();
    error = query->lastError();
    keep(statement, *std::move(query));
    if (isDone)
        return true;
    return refusal.isEmpty() ? fail(function, error)
                             : fail(function, Fault::Other, refusal, refusal);
}

bool DatabaseSession::select(const QString &statement, const QVariantList &values,
                             const std::function<bool(const DatabaseRow &)> &visit)
{
    constexpr auto function = "Database::Select";
    if (!isUsable(function))
        return false;
    QSqlError error;
    auto query = executed(statement, values, error);
    if (!query && m_levels.empty() && faultOf(error) == Fault::Lost) {
        if (!connectToPlace())
            return false;
        query = executed(statement, values, error);
    }
    if (!query)
        return fail(function, error);
    Stream stream(*this, *std::move(query));
    while (stream.isOfThisConnection() && stream.next() && visit(stream.row())) {
    }
    if (!stream.isOfThisConnection())
        return fail(function, Fault::Other,
                    tr("The database %1 was closed while it was being read.").arg(m_place.Text()),
                    u"closed inside"_s);
    error = stream.error();
    if (auto used = stream.takeQuery())
        keep(statement, *std::move(used));
    return !error.isValid() || fail(function, error);
}

/// A query whose rows can be read; nothing when it failed.
std::optional<QSqlQuery> DatabaseSession::executed(const QString &statement,
                                                   const QVariantList &values, QSqlError &error)
{
    drainStreams();
    auto query = prepared(statement, error);
    if (!query)
        return std::nullopt;
    for (qsizetype i = 0; i < values.size(); ++i)
        query->bindValue(static_cast<int>(i), values[i]);
    if (query->exec())
        return query;
    error = query->lastError();
    keep(statement, *std::move(query));
    return std::nullopt;
}

void DatabaseSession::drainStreams()
{
    if (!m_place.IsServer())
        return;
    for (Stream *const stream : m_streams)
        stream->drain();
}

std::optional<qint64> DatabaseSession::formOf(const QString &module)
{
    const QString hasRegister =
        m_place.IsServer()
            ? u"SELECT CASE WHEN to_regclass('kelo_modules') IS NULL THEN 0 ELSE 1 END"_s
            : u"SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = "
              "'KELO_MODULES'"_s;
    qint64 found = 0;
    const auto take = [&found](const DatabaseRow &row) {
        found = row.Value(0).toLongLong();
        return false;
    };
    if (!select(hasRegister, {}, take))
        return std::nullopt;
    if (found == 0)
        return 0;
    found = 0;
    if (!select(u"SELECT FORM FROM KELO_MODULES WHERE NAME = ?"_s, {module}, take))
        return std::nullopt;
    return found;
}

/// What is done inside of a transaction may be undone yet, and is looked at anew.
bool DatabaseSession::isPrepared(const QString &module) const
{
    return isOpen() && m_preparedModules.contains(module);
}

void DatabaseSession::setPrepared(const QString &module)
{
    if (m_levels.empty())
        m_preparedModules.insert(module);
}

bool DatabaseSession::tell(const char *function, Fault fault, const QString &sentence,
                           const QString &detail)
{
    m_lastFault = fault;
    m_lastError = sentence;
    const QString line = QLatin1StringView(function) + u" : "_s + detail;
    if (m_patience > 0 && (fault == Fault::Locked || fault == Fault::Conflict))
        m_untold = line;
    else
        qDebug().noquote() << line;
    return false;
}

bool DatabaseSession::fail(const char *function, Fault fault, const QString &sentence,
                           const QString &detail)
{
    m_isLost = m_isLost || fault == Fault::Lost || fault == Fault::Damaged;
    m_isSuspect = m_isSuspect || fault == Fault::Damaged;
    m_isOutdated = true; // what is prepared may belong to a table that is no more
    if (!m_levels.empty())
        m_levels.back() = true;
    return tell(function, fault, sentence, detail);
}

bool DatabaseSession::fail(const char *function, const QSqlError &error)
{
    const Fault fault = faultOf(error);
    const QString detail = withoutSecret(error.text()).simplified();
    return fail(function, fault, sentenceFor(fault, detail), detail);
}

DatabaseSession::Fault DatabaseSession::faultOf(const QSqlError &error) const
{
    return databaseFaultOf(error, m_place.IsServer(), m_database.isOpen());
}

QString DatabaseSession::sentenceFor(Fault fault, const QString &detail) const
{
    const QString place = m_place.Text();
    switch (fault) {
    case Fault::Locked:
    case Fault::Conflict:
        return tr("The database %1 is in use by others at the moment.").arg(place);
    case Fault::Lost:
        return tr("The connection to the database %1 was lost.").arg(place);
    case Fault::Damaged:
        return tr("The database %1 is damaged.").arg(place);
    case Fault::Full:
        return tr("There is no room left for the database %1.").arg(place);
    case Fault::ReadOnly:
        return tr("The database %1 cannot be written.").arg(place);
    case Fault::None:
    case Fault::Other:
        break;
    }
    return tr("The database %1 refused: %2").arg(place, detail);
}

/// Errors of the driver for logs and people.
QString DatabaseSession::withoutSecret(QString text) const
{
    return m_place.password.isEmpty() ? text : text.replace(m_place.password, u"***"_s);
}
