// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps the names of recent configurations as a history.
#include "actions/recentconfigs_p.h"

#include <QLatin1StringView>
#include <algorithm>
#include <kelo_base/core/History.h>

namespace menuconfig {

namespace {

constexpr QLatin1StringView kRecentGroup{"MenuConfigDialog"}; ///< a format
constexpr qsizetype kMostRecent = 5;

} // namespace

QStringList readRecentNames(QSettings &store, const QStringList &known)
{
    QStringList names;
    ReadHistoryFromFile(store, kRecentGroup, names);
    names.removeIf([&](const QString &name) { return !known.contains(name); });
    names.removeDuplicates();
    return names.first(std::min(names.size(), kMostRecent));
}

void writeRecentNames(QSettings &store, const QStringList &names)
{
    WriteHistoryToFile(store, kRecentGroup, names.first(std::min(names.size(), kMostRecent)));
}

} // namespace menuconfig
