// SPDX-License-Identifier: GPL-2.0-or-later
// Lists of most recently used entries, kept in a settings file.
#include <kelo_base/core/History.h>

#include "core/settings_p.h"

namespace {

constexpr QLatin1StringView kHistoryArray{"MRU.Array"};
constexpr QLatin1StringView kTextKey{"Text"};

} // namespace

void WriteHistoryToFile(QSettings &settings, const QString &group, const QStringList &entries)
{
    const SettingsGroup history(settings, group);
    SettingsWriteArray array(settings, kHistoryArray);
    for (const QString &entry : entries) {
        array.nextElement();
        array.setValue(kTextKey, entry);
    }
}

void ReadHistoryFromFile(QSettings &settings, const QString &group, QStringList &entries)
{
    const SettingsGroup history(settings, group);
    const SettingsReadArray array(settings, kHistoryArray);
    for (unsigned int i = 0; i < array.size(); ++i)
        entries << array.value(i, kTextKey).toString();
}
