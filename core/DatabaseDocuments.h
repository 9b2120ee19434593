// SPDX-License-Identifier: GPL-2.0-or-later
// Documents and values under a name, for whoever needs no table of their own.
#pragma once

#include <kelo_base/core/Database.h>
#include <kelo_base/core/Export.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

/// Names are compared letter by letter; a "/" between parts keeps modules apart: "sheets/last".
/// Documents and values have names of their own. The table is made at first use.
class KELO_BASE_EXPORT DatabaseDocuments
{
public:
    /// @param database  outlives this
    explicit DatabaseDocuments(Database &database) : m_database(database) {}

    /// Replaces the document of that name.
    [[nodiscard]] bool SaveDocument(const QString &name, const QByteArray &content);
    /// Nothing when there is none or the database fails.
    [[nodiscard]] std::optional<QByteArray> LoadDocument(const QString &name);
    [[nodiscard]] bool RemoveDocument(const QString &name);
    /// Names that begin with @p start, in order; nothing when the database fails.
    [[nodiscard]] std::optional<QStringList> DocumentNames(const QString &start = {});

    /// Replaces the value of that name. Types of QtCore and QtGui that QVariant takes and writes;
    /// false for others.
    [[nodiscard]] bool SaveValue(const QString &name, const QVariant &value);
    /// Invalid when there is none or the database fails.
    [[nodiscard]] QVariant LoadValue(const QString &name);
    [[nodiscard]] bool RemoveValue(const QString &name);

private:
    Database &m_database;
};
