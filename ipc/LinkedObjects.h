// SPDX-License-Identifier: GPL-2.0-or-later
// Which of the partner's objects is shown in which document, kept in the application's database.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/core/ObjectId.h>

#include <QPointF>
#include <QString>
#include <optional>
#include <span>
#include <vector>

class Database;

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

/// The tables IPC_OBJECTS (at most one link for an object and a document) and IPC_SETTINGS.
///
/// Whatever the database refuses gives false or nothing, and no trace in the tables. What is stored
/// inside of the application's own transaction is a part of it. Tables of a later form are neither
/// read nor written.
class KELO_BASE_EXPORT LinkedObjects
{
public:
    /// @param database  the application's; shared, not owned, and outlives this
    explicit LinkedObjects(Database &database) : m_database(database) {}

    /// Opens the database if necessary and brings the tables to the present form, from none or from
    /// any earlier one. False as well for tables of a later form.
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

    /// Settings of the channel, by name of at most 64 characters.
    [[nodiscard]] bool WriteSetting(const QString &name, const QString &value);
    /// Nothing when it is not stored or the database fails.
    [[nodiscard]] std::optional<QString> ReadSetting(const QString &name);

private:
    Database &m_database;
};
