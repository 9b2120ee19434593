// SPDX-License-Identifier: GPL-2.0-or-later
// Which of the partner's objects is shown in which document, kept in the application's database.
#include <kelo_base/ipc/LinkedObjects.h>

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <kelo_base/core/DatabaseTable.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class Text
{
    Q_DECLARE_TR_FUNCTIONS(LinkedObjects)
};

struct Setting
{
    QString name;
    QString value;
};

using Links = DatabaseTable<KeloLinkedObject>;
using LinkQuery = DatabaseQuery<KeloLinkedObject>;

const Links &linkTable()
{
    using Link = KeloLinkedObject;
    static const auto table =
        Links("IPC_OBJECTS")
            .Key("OBJECT_ID", &Link::objectId)
            .Key("DOCUMENT_ID", &Link::documentId)
            .Column(
                "POSITION_X", [](const Link &link) { return link.position.x(); },
                [](Link &link, double x) { link.position.setX(x); })
            .Column(
                "POSITION_Y", [](const Link &link) { return link.position.y(); },
                [](Link &link, double y) { link.position.setY(y); })
            .Column("VIEWING_HEIGHT", &Link::viewingHeight)
            .Column("NORTH_DEVIATION", &Link::northDeviation);
    return table;
}

const DatabaseTable<Setting> &settingTable()
{
    static const auto table = DatabaseTable<Setting>("IPC_SETTINGS")
                                  .Key("NAME", &Setting::name)
                                  .Column("VALUE", &Setting::value);
    return table;
}

/// Both forms are there already in databases from before forms were kept, hence "if not exists".
bool createTables(Database &database)
{
    return database.Run(u"CREATE TABLE IF NOT EXISTS IPC_SETTINGS ("
                        "NAME VARCHAR(64) PRIMARY KEY, VALUE TEXT NOT NULL)"_s) &&
           database.Run(
               u"CREATE TABLE IF NOT EXISTS IPC_OBJECTS ("
               "OBJECT_ID VARCHAR(25) NOT NULL, DOCUMENT_ID VARCHAR(255) NOT NULL "
               "CHECK (LENGTH(DOCUMENT_ID) BETWEEN 1 AND 255), "
               "POSITION_X DOUBLE PRECISION NOT NULL, POSITION_Y DOUBLE PRECISION NOT NULL, "
               "VIEWING_HEIGHT DOUBLE PRECISION NOT NULL, "
               "NORTH_DEVIATION DOUBLE PRECISION NOT NULL, "
               "PRIMARY KEY (OBJECT_ID, DOCUMENT_ID))"_s); // in this order: the index for objects
}

bool createIndex(Database &database)
{
    return database.Run(
        u"CREATE INDEX IF NOT EXISTS IPC_OBJECTS_BY_DOCUMENT ON IPC_OBJECTS (DOCUMENT_ID)"_s);
}

bool prepare(Database &database)
{
    static const DatabaseModule module{u"ipc"_s, {createTables, createIndex}};
    return database.Prepare(module);
}

bool isStorable(const KeloLinkedObject &link)
{
    return !link.objectId.IsEmpty() && std::isfinite(link.position.x()) &&
           std::isfinite(link.position.y()) && std::isfinite(link.viewingHeight) &&
           std::isfinite(link.northDeviation);
}

} // namespace

bool LinkedObjects::Open()
{
    return m_database.Open() && prepare(m_database);
}

bool LinkedObjects::Store(std::span<const KeloLinkedObject> links)
{
    if (!std::ranges::all_of(links, isStorable))
        return m_database.Refuse("LinkedObjects::Store",
                                 Text::tr("A link lacks its object or a finite number."));
    return prepare(m_database) && linkTable().Replace(m_database, links);
}

bool LinkedObjects::RemoveDocument(const QString &documentId)
{
    return prepare(m_database) &&
           linkTable().Delete(m_database, LinkQuery().Where(&KeloLinkedObject::documentId,
                                                            DatabaseCompare::Equal, documentId));
}

std::optional<std::vector<KeloLinkedObject>>
LinkedObjects::DocumentsForObject(const Tz::ObjectId &objectId)
{
    if (!prepare(m_database))
        return std::nullopt;
    return linkTable().Load(
        m_database, LinkQuery()
                        .Where(&KeloLinkedObject::objectId, DatabaseCompare::Equal, objectId)
                        .OrderBy(&KeloLinkedObject::documentId));
}

std::optional<std::vector<KeloLinkedObject>>
LinkedObjects::ObjectsInDocument(const QString &documentId)
{
    if (!prepare(m_database))
        return std::nullopt;
    return linkTable().Load(
        m_database, LinkQuery()
                        .Where(&KeloLinkedObject::documentId, DatabaseCompare::Equal, documentId)
                        .OrderBy(&KeloLinkedObject::objectId));
}

bool LinkedObjects::WriteSetting(const QString &name, const QString &value)
{
    const Setting setting{name, value};
    return prepare(m_database) && settingTable().Replace(m_database, {&setting, 1});
}

std::optional<QString> LinkedObjects::ReadSetting(const QString &name)
{
    if (!prepare(m_database))
        return std::nullopt;
    auto setting = settingTable().LoadByKey(m_database, name);
    return setting ? std::optional(std::move(setting->value)) : std::nullopt;
}
