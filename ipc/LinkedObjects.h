// SPDX-License-Identifier: GPL-2.0-or-later
// Which of the partner's objects is shown in which document, kept in the application's database.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/core/ObjectId.h>

#include <QPointF>
#include <QSqlDatabase>
#include <QString>
#include <memory>
#include <optional>
#include <span>
#include <vector>

/// One object in one document.
struct KeloLinkedObject
{
    Tz::ObjectId objectId;
    QString documentId; ///< 1 ... 255 characters
    QPointF position;   ///< geo coordinates
    double viewingHeight = 0.0;
    double northDeviation = 0.0; ///< degrees

    friend bool operator==(const KeloLinkedObject &, const KeloLinkedObject &) = default;
};

/// The tables IPC_OBJECTS (at most one link for an object and a document) and IPC_SETTINGS, in
/// SQLite or PostgreSQL.
///
/// Whatever the database refuses (connection lost, database locked, table missing) gives false or
/// nothing, one debug line, and no trace in the tables: what takes several steps happens in one
/// transaction. The next call tries anew, and opens the connection again if it was lost. How long a
/// lock is waited for, is set at the connection.
class KELO_BASE_EXPORT LinkedObjects
{
public:
    /// Makes a connection to an SQLite file, created on demand, whose lock is waited for 200 ms at
    /// most. The caller removes the connection when nobody uses it any more.
    /// @param connection  a name for QSqlDatabase that is not in use
    [[nodiscard]] static QSqlDatabase MakeDatabase(const QString &filename,
                                                   const QString &connection);

    /// @param database  connection to the application's database; shared, not owned
    explicit LinkedObjects(const QSqlDatabase &database);
    ~LinkedObjects();
    LinkedObjects(const LinkedObjects &) = delete;
    LinkedObjects &operator=(const LinkedObjects &) = delete;

    /// Opens the connection if necessary and brings the tables to the present form, from none or
    /// from any earlier one. False as well for tables of a later form.
    [[nodiscard]] bool Open();

    /// Stores all links or none; a link replaces the one of the same object and document. False
    /// as well when an object has no identifier or a number is not finite.
    [[nodiscard]] bool Store(std::span<const KeloLinkedObject> links);
    /// Removes all links of a document, if there are any.
    [[nodiscard]] bool RemoveDocument(const QString &documentId);

    /// All links of an object, ordered by document; nothing when the database fails.
    [[nodiscard]] std::optional<std::vector<KeloLinkedObject>>
    DocumentsForObject(const Tz::ObjectId &objectId);
    /// All links of a document, ordered by object; nothing when the database fails.
    [[nodiscard]] std::optional<std::vector<KeloLinkedObject>>
    ObjectsInDocument(const QString &documentId);

    /// Settings of the channel, by name. Names with "Schema" in front are the tables' own.
    [[nodiscard]] bool WriteSetting(const QString &name, const QString &value);
    /// Nothing when it is not stored or the database fails.
    [[nodiscard]] std::optional<QString> ReadSetting(const QString &name);

private:
    class Statements;

    [[nodiscard]] std::optional<std::size_t> storedVersion();

    std::unique_ptr<Statements> m_statements;
};
