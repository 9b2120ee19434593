// SPDX-License-Identifier: GPL-2.0-or-later
// Lists of most recently used entries, kept in a settings file.
#include <kelo_base/core/History.h>

#include "core/settings_p.h"

namespace {

constexpr QLatin1StringView kHistoryArray{"MRU.Array"};
constexpr QLatin1StringView kTextKey{"Text"};

/// The highest index stored in the array that is being read, counted from 1; 0 for none.
unsigned int lastStoredIndex(const QSettings &settings)
{
    unsigned int last = 0;
    for (const QString &index : settings.childGroups())
        last = std::max(last, index.toUInt());
    return std::min(last, static_cast<unsigned int>(SettingsReadArray::kMaxElements));
}

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
    const bool isDamaged = array.size() == SettingsReadArray::kMaxElements;
    const unsigned int size = isDamaged ? lastStoredIndex(settings) : array.size();
    for (unsigned int i = 0; i < size; ++i)
        entries << array.value(i, kTextKey).toString();
}
