// SPDX-License-Identifier: GPL-2.0-or-later
// How the program looks: style sheets of the toolkit, as files among which the user chooses.
#pragma once

#include <QString>
#include <QStringList>
#include <kelo_base/core/Export.h>

class QSettings;

/// The files "*.stylesheet" in "plugins/styles" of the application's directory, by name and in
/// natural order. Empty also when there is no such folder.
[[nodiscard]] KELO_BASE_EXPORT QStringList StyleSheetFiles();
/// Gives the application the style sheet in that file of the folder; an empty name takes the
/// present one away.
/// @return one sentence about a file that is missing or cannot be read, and the style stays; empty
///         when all went well
[[nodiscard]] KELO_BASE_EXPORT QString UseStyleSheet(const QString &file);

/// The name that was stored; empty when there is none.
[[nodiscard]] KELO_BASE_EXPORT QString StoredStyleSheet(const QSettings &settings);
/// An empty name takes the stored one away.
KELO_BASE_EXPORT void StoreStyleSheet(QSettings &settings, const QString &file);
