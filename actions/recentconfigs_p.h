// SPDX-License-Identifier: GPL-2.0-or-later
// The names of the configurations that the user had last.
#pragma once

#include <QStringList>

class QSettings;

namespace menuconfig {

/// The most recent one first, at most five. Those that are not among @p known are left out.
[[nodiscard]] QStringList readRecentNames(QSettings &store, const QStringList &known);
void writeRecentNames(QSettings &store, const QStringList &names);

} // namespace menuconfig
