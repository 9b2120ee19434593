// SPDX-License-Identifier: GPL-2.0-or-later
// Which of the partner's objects is shown in which document, kept in the application's database.
#include <kelo_base/ipc/LinkedObjects.h>

#include "ipc/linkschema_p.h"

#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

enum class Statement {
    StoreLink,
    RemoveDocument,
    DocumentsForObject,
    ObjectsInDocument,
    WriteSetting,
    ReadSetting,
};

constexpr std::array kTexts{
    "INSERT INTO IPC_OBJECTS (OBJECT_ID, DOCUMENT_ID, POSITION_X, POSITION_Y, VIEWING_HEIGHT, "
    "NORTH_DEVIATION) VALUES (?, ?, ?, ?, ?, ?) ON CONFLICT (OBJECT_ID, DOCUMENT_ID) DO UPDATE SET "
    "POSITION_X = excluded.POSITION_X, POSITION_Y = excluded.POSITION_Y, "
    "VIEWING_HEIGHT = excluded.VIEWING_HEIGHT, NORTH_DEVIATION = excluded.NORTH_DEVIATION",
    "DELETE FROM IPC_OBJECTS WHERE DOCUMENT_ID = ?",
    "SELECT OBJECT_ID, DOCUMENT_ID, POSITION_X, POSITION_Y, VIEWING_HEIGHT, NORTH_DEVIATION "
    "FROM IPC_OBJECTS WHERE OBJECT_ID = ? ORDER BY DOCUMENT_ID",
    "SELECT OBJECT_ID, DOCUMENT_ID, POSITION_X, POSITION_Y, VIEWING_HEIGHT, NORTH_DEVIATION "
    "FROM IPC_OBJECTS WHERE DOCUMENT_ID = ? ORDER BY OBJECT_ID",
    "INSERT INTO IPC_SETTINGS (NAME, VALUE) VALUES (?, ?) "
    "ON CONFLICT (NAME) DO UPDATE SET VALUE = excluded.VALUE",
    "SELECT VALUE FROM IPC_SETTINGS WHERE NAME = ?",
};

QVariant textOf(const Tz::ObjectId &id)
{
    return QString::fromLatin1(id.c_str());
}

QVariantList valuesOf(const KeloLinkedObject &link)
{
    return {textOf(link.objectId), link.documentId,    link.position.x(),
            link.position.y(),     link.viewingHeight, link.northDeviation};
}

bool isStorable(const KeloLinkedObject &link)
{
    return !link.objectId.IsEmpty() && std::isfinite(link.position.x()) &&
           std::isfinite(link.position.y()) && std::isfinite(link.viewingHeight) &&
           std::isfinite(link.northDeviation);
}

KeloLinkedObject linkOf(const QSqlQuery &row)
{
    return {.objectId = row.value(0).toString().toLatin1().constData(),
            .documentId = row.value(1).toString(),
            .position = {row.value(2).toDouble(), row.value(3).toDouble()},
            .viewingHeight = row.value(4).toDouble(),
            .northDeviation = row.value(5).toDouble()};
}

/// Takes the rows of a query; nothing when there is no query, or it breaks off.
std::optional<std::vector<KeloLinkedObject>> linksOf(QSqlQuery *query)
{
    if (!query)
        return std::nullopt;
    std::vector<KeloLinkedObject> links;
    while (query->next())
        links.push_back(linkOf(*query));
    const bool isWhole = !query->lastError().isValid();
    query->finish(); // an unfinished one keeps the tables locked
    return isWhole ? std::optional(std::move(links)) : std::nullopt;
}

} // namespace

/// The connection and what is prepared on it.
class LinkedObjects::Statements
{
public:
    explicit Statements(const QSqlDatabase &database) : m_database(database) {}

    bool isOpen(const char *function)
    {
        if (m_database.isOpen())
            return true;
        m_prepared = {}; // it belonged to the connection that is no more
        return m_database.open() || refuse(function, m_database.lastError().text());
    }

    /// The statement after it ran; null, and one debug line, when it failed.
    QSqlQuery *run(const char *function, Statement statement, const QVariantList &values)
    {
        if (!isOpen(function))
            return nullptr;
        const auto index = static_cast<std::size_t>(statement);
        auto &query = m_prepared[index];
        if (!query) {
            query.emplace(m_database);
            query->setForwardOnly(true);
            if (!query->prepare(QLatin1StringView(kTexts[index])))
                return fail(function, *query);
        }
        for (qsizetype i = 0; i < values.size(); ++i)
            query->bindValue(static_cast<int>(i), values[i]);
        return query->exec() ? &*query : fail(function, *query);
    }

    /// Runs @p steps as a whole: when it returns false, or the database fails, nothing is left.
    template <class Steps>
    bool inTransaction(const char *function, Steps steps)
    {
        if (!isOpen(function))
            return false;
        m_isInTransaction = m_database.transaction();
        if (!m_isInTransaction)
            refuse(function, m_database.lastError().text());
        const bool isDone = m_isInTransaction && steps() && commit(function);
        if (!isDone && m_isInTransaction)
            m_database.rollback();
        m_isInTransaction = false;
        if (!isDone)
            closeWhenLost();
        return isDone;
    }

    /// Runs what is not worth preparing.
    bool runOnce(const char *function, const char *text)
    {
        QSqlQuery query(m_database);
        return query.exec(QLatin1StringView(text)) || refuse(function, query.lastError().text());
    }

    [[nodiscard]] bool hasTable(QLatin1StringView name) const
    {
        return m_database.tables().contains(name, Qt::CaseInsensitive);
    }

    static bool refuse(const char *function, const QString &reason)
    {
        qDebug() << function << ": " << reason;
        return false;
    }

private:
    bool commit(const char *function)
    {
        return m_database.commit() || refuse(function, m_database.lastError().text());
    }

    QSqlQuery *fail(const char *function, const QSqlQuery &query)
    {
        refuse(function, query.lastError().text());
        if (!m_isInTransaction)
            closeWhenLost();
        return nullptr;
    }

    /// Forgets what was prepared, which may belong to a table or a connection that is no more, and
    /// closes a connection that is lost, which no driver tells.
    void closeWhenLost()
    {
        m_prepared = {};
        if (m_database.isOpen() && !QSqlQuery(m_database).exec(u"SELECT 1"_s))
            m_database.close();
    }

    QSqlDatabase m_database;
    std::array<std::optional<QSqlQuery>, kTexts.size()> m_prepared;
    bool m_isInTransaction = false;
};

QSqlDatabase LinkedObjects::MakeDatabase(const QString &filename, const QString &connection)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
    database.setDatabaseName(filename);
    database.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=200"_s);
    return database;
}

LinkedObjects::LinkedObjects(const QSqlDatabase &database)
    : m_statements(std::make_unique<Statements>(database))
{
}

LinkedObjects::~LinkedObjects() = default;

bool LinkedObjects::Open()
{
    constexpr auto function = "LinkedObjects::Open";
    return m_statements->inTransaction(function, [&] {
        const auto version = storedVersion();
        if (!version)
            return false;
        if (*version > linkschema::kSteps.size())
            return Statements::refuse(function, u"The tables are those of a later version"_s);
        for (const linkschema::Step step : std::span(linkschema::kSteps).subspan(*version))
            for (const char *const text : step)
                if (!m_statements->runOnce(function, text))
                    return false;
        const QVariant present = QString::number(linkschema::kSteps.size());
        return m_statements->run(function, Statement::WriteSetting,
                                 {QString(linkschema::kVersionName), present}) != nullptr;
    });
}

/// 0 for no tables yet; nothing when the database fails.
std::optional<std::size_t> LinkedObjects::storedVersion()
{
    if (!m_statements->hasTable("IPC_SETTINGS"_L1))
        return 0;
    QSqlQuery *const query = m_statements->run("LinkedObjects::Open", Statement::ReadSetting,
                                               {QString(linkschema::kVersionName)});
    if (!query)
        return std::nullopt;
    const qulonglong version = query->next() ? query->value(0).toULongLong() : 0;
    query->finish();
    return version;
}

bool LinkedObjects::Store(std::span<const KeloLinkedObject> links)
{
    constexpr auto function = "LinkedObjects::Store";
    if (!std::ranges::all_of(links, isStorable))
        return Statements::refuse(function, u"A link without object or finite numbers"_s);
    return m_statements->inTransaction(function, [&] {
        return std::ranges::all_of(links, [&](const KeloLinkedObject &link) {
            return m_statements->run(function, Statement::StoreLink, valuesOf(link)) != nullptr;
        });
    });
}

bool LinkedObjects::RemoveDocument(const QString &documentId)
{
    return m_statements->run("LinkedObjects::RemoveDocument", Statement::RemoveDocument,
                             {documentId}) != nullptr;
}

std::optional<std::vector<KeloLinkedObject>>
LinkedObjects::DocumentsForObject(const Tz::ObjectId &objectId)
{
    return linksOf(m_statements->run("LinkedObjects::DocumentsForObject",
                                     Statement::DocumentsForObject, {textOf(objectId)}));
}

std::optional<std::vector<KeloLinkedObject>>
LinkedObjects::ObjectsInDocument(const QString &documentId)
{
    return linksOf(m_statements->run("LinkedObjects::ObjectsInDocument",
                                     Statement::ObjectsInDocument, {documentId}));
}

bool LinkedObjects::WriteSetting(const QString &name, const QString &value)
{
    constexpr auto function = "LinkedObjects::WriteSetting";
    if (name.startsWith("Schema"_L1))
        return Statements::refuse(function, name + u" is the tables' own"_s);
    const QString stored = value.isNull() ? u""_s : value; // a null text would be no value at all
    return m_statements->run(function, Statement::WriteSetting, {name, stored}) != nullptr;
}

std::optional<QString> LinkedObjects::ReadSetting(const QString &name)
{
    QSqlQuery *const query =
        m_statements->run("LinkedObjects::ReadSetting", Statement::ReadSetting, {name});
    if (!query)
        return std::nullopt;
    const auto value = query->next() ? std::optional(query->value(0).toString()) : std::nullopt;
    query->finish();
    return value;
}
