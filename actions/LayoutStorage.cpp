// SPDX-License-Identifier: GPL-2.0-or-later
// Reads and writes shortcut lists and context-menu layouts.
#include <kelo_base/actions/LayoutStorage.h>

#include "actions/menuconfig_p.h"
#include "core/settings_p.h"
#include <QKeySequence>
#include <QStringList>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <vector>

using namespace Qt::Literals::StringLiterals;
using namespace menuconfig;

namespace {

constexpr int kNoAction = -1;

/// Whether the current group holds any key. Asks for the array's size first: listing all keys of a
/// long array takes as long as reading it.
bool holdsAnyKey(const QSettings &settings, QLatin1StringView array)
{
    return settings.contains(array + "/size"_L1) || !settings.allKeys().isEmpty();
}

/// By way of the text, so that a value just set reads as it will when it comes from the file.
int storedId(const QVariant &value)
{
    bool isNumber = false;
    const int id = value.toString().toInt(&isNumber);
    return isNumber ? id : kNoAction;
}

/// The store takes text with a comma for a list unless it is quoted, as other writers may not know.
QString storedText(const QVariant &value)
{
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',')
                                                    : value.toString();
}

/// Empty also when the text cannot be read, for which the toolkit gives the unknown key.
QKeySequence storedSequence(const QVariant &value)
{
    const auto sequence = QKeySequence::fromString(storedText(value), QKeySequence::PortableText);
    for (int i = 0; i < sequence.count(); ++i) {
        if (sequence[static_cast<uint>(i)].key() == Qt::Key_unknown)
            return QKeySequence();
    }
    return sequence;
}

void readShortcuts(QSettings &settings, ActionShortCutList &list)
{
    const SettingsReadArray shortcuts(settings, kShortcutsArray);
    for (unsigned int i = 0; i < shortcuts.size(); ++i) {
        const int id = storedId(shortcuts.value(i, kActionIdKey));
        if (id != kNoAction)
            list.AssignKeySequence(id, storedSequence(shortcuts.value(i, kKeySequenceKey)));
    }
}

/// What has a sequence was assigned one by a program that knows of no cleared entries.
void readClearedEntries(QSettings &settings, ActionShortCutList &list)
{
    const SettingsReadArray cleared(settings, kClearedArray);
    for (unsigned int i = 0; i < cleared.size(); ++i) {
        const int id = storedId(cleared.value(i, kActionIdKey));
        if (id != kNoAction && !list.HasEntry(id))
            list.ClearKeySequence(id);
    }
}

void writeShortcuts(QSettings &settings, const ActionShortCutList &list)
{
    SettingsWriteArray shortcuts(settings, kShortcutsArray);
    std::vector<int> ids;
    list.GetActionIds(ids);
    for (const int id : ids) {
        shortcuts.nextElement();
        shortcuts.setValue(kActionIdKey, id);
        shortcuts.setValue(kKeySequenceKey,
                           list.GetSequenceById(id).toString(QKeySequence::PortableText));
    }
}

/// Nothing is stored without cleared entries, so that the file is one that every program knows.
void writeClearedEntries(QSettings &settings, const ActionShortCutList &list)
{
    std::vector<int> ids;
    list.GetClearedActionIds(ids);
    if (ids.empty())
        return settings.remove(kClearedArray);
    SettingsWriteArray cleared(settings, kClearedArray);
    for (const int id : ids) {
        cleared.nextElement();
        cleared.setValue(kActionIdKey, id);
    }
}

} // namespace

bool ReadShortcutList(QSettings &settings, QAnyStringView prefix, ActionShortCutList &list)
{
    const SettingsGroup configuration(settings, prefix);
    const SettingsGroup group(settings, kShortcutsGroup);
    if (!holdsAnyKey(settings, kShortcutsArray))
        return false;
    list.ClearAll();
    readShortcuts(settings, list);
    readClearedEntries(settings, list);
    return true;
}

void WriteShortcutList(QSettings &settings, QAnyStringView prefix, const ActionShortCutList &list)
{
    const SettingsGroup configuration(settings, prefix);
    const SettingsGroup group(settings, kShortcutsGroup);
    writeShortcuts(settings, list);
    writeClearedEntries(settings, list);
}

bool ReadContextMenuLayout(QSettings &settings, QAnyStringView prefix, ContextMenuLayout &layout)
{
    const SettingsGroup configuration(settings, prefix);
    const SettingsGroup group(settings, kLayoutGroup);
    if (!holdsAnyKey(settings, kMenusArray))
        return false;
    const SettingsReadArray menus(settings, kMenusArray, kMostSlots);
    layout.SetNumberOfSlots(menus.size());
    for (unsigned int slot = 0; slot < menus.size(); ++slot)
        layout.AssignActionIdToSlot(slot, storedId(menus.value(slot, kActionIdKey)));
    return true;
}

void WriteContextMenuLayout(QSettings &settings, QAnyStringView prefix,
                            const ContextMenuLayout &layout)
{
    const SettingsGroup configuration(settings, prefix);
    const SettingsGroup group(settings, kLayoutGroup);
    SettingsWriteArray menus(settings, kMenusArray);
    for (unsigned int slot = 0; slot < layout.NumberOfSlots(); ++slot) {
        menus.nextElement();
        menus.setValue(kActionIdKey, layout.GetAssignedActionId(slot));
    }
}
