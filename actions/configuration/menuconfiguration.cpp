// SPDX-License-Identifier: GPL-2.0-or-later
// Tells what is different between two configurations.
#include "actions/configuration/menuconfiguration_p.h"

#include <algorithm>
#include <iterator>
#include <kelo_base/actions/MenuConfigManager.h>

namespace menuconfig {

namespace {

void setEntry(ActionShortCutList &list, int id, const std::optional<QKeySequence> &entry)
{
    if (entry)
        list.AssignKeySequence(id, *entry);
    else
        list.RemoveKeySequence(id);
}

} // namespace

std::optional<QKeySequence> entryOf(const ActionShortCutList &list, int id)
{
    return list.HasEntry(id) ? std::optional(list.GetSequenceById(id)) : std::nullopt;
}

std::vector<int> idsOf(const ActionShortCutList &list)
{
    std::vector<int> ids;
    ids.reserve(static_cast<std::size_t>(list.NumberOfAssignments()));
    list.GetActionIds(ids);
    const auto middle = static_cast<std::ptrdiff_t>(ids.size());
    list.GetClearedActionIds(ids);
    std::inplace_merge(ids.begin(), ids.begin() + middle, ids.end());
    return ids;
}

ActionShortCutList withOthersOf(const ActionManager &actions, ActionShortCutList list,
                                const ActionShortCutList &known)
{
    ActionShortCutList present;
    SetupKeyboardShortcutListFromActionManager(actions, present);
    for (const int id : idsOf(present)) {
        if (!list.HasEntry(id) && !known.HasEntry(id))
            list.AssignKeySequence(id, present.GetSequenceById(id));
    }
    return list;
}

Difference differenceOf(const MenuConfiguration &before, const MenuConfiguration &after)
{
    const std::vector<int> old = idsOf(before.shortcuts);
    const std::vector<int> recent = idsOf(after.shortcuts);
    std::vector<int> ids;
    ids.reserve(old.size() + recent.size());
    std::set_union(old.begin(), old.end(), recent.begin(), recent.end(), std::back_inserter(ids));
    Difference difference;
    for (const int id : ids) {
        ShortcutChange change{id, entryOf(before.shortcuts, id), entryOf(after.shortcuts, id)};
        if (change.before != change.after)
            difference.shortcuts.push_back(std::move(change));
    }
    if (!(before.layout == after.layout))
        difference.layout = LayoutChange{before.layout, after.layout};
    return difference;
}

void Difference::applyTo(MenuConfiguration &configuration) const
{
    for (const ShortcutChange &change : shortcuts)
        setEntry(configuration.shortcuts, change.id, change.after);
    if (layout)
        configuration.layout = layout->after;
}

void Difference::revertIn(MenuConfiguration &configuration) const
{
    for (const ShortcutChange &change : shortcuts)
        setEntry(configuration.shortcuts, change.id, change.before);
    if (layout)
        configuration.layout = layout->before;
}

} // namespace menuconfig
