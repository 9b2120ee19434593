// SPDX-License-Identifier: GPL-2.0-or-later
// Lists of most recently used entries, kept in a settings file.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>
#include <QStringList>

class QSettings;

/// Stores the entries under the group, in their order, in place of those stored before.
KELO_BASE_EXPORT void WriteHistoryToFile(QSettings &settings, const QString &group,
                                         const QStringList &entries);

/// Appends the stored entries to the list, which is not cleared. A missing entry in between is an
/// empty text, a missing group appends nothing. Of a history that claims more than 10,000 entries,
/// as a damaged file may, only those up to the last that is there count.
KELO_BASE_EXPORT void ReadHistoryFromFile(QSettings &settings, const QString &group,
                                          QStringList &entries);
