// SPDX-License-Identifier: GPL-2.0-or-later
// Makes a context menu of a layout.
#include <kelo_base/actions/ContextMenu.h>

#include <QAction>
#include <QMenu>
#include <kelo_base/actions/ActionData.h>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <unordered_set>

std::vector<int> ContextMenuEntries(const ContextMenuLayout &layout,
                                    const std::function<bool(int id)> &isOffered)
{
    std::vector<int> entries;
    std::unordered_set<int> seen;
    bool isBehindGap = false;
    for (unsigned int slot = 0; slot < layout.NumberOfSlots(); ++slot) {
        const int id = layout.GetAssignedActionId(slot);
        if (!layout.HasAssignedAction(slot)) {
            isBehindGap = true;
        } else if (isOffered(id) && seen.insert(id).second) {
            if (isBehindGap && !entries.empty())
                entries.push_back(kContextMenuSeparator);
            entries.push_back(id);
            isBehindGap = false;
        }
    }
    return entries;
}

void FillContextMenu(QMenu &menu, const ActionManager &manager, const ContextMenuLayout &layout,
                     const FunctionFilter &filter)
{
    const auto isOffered = [&](int id) {
        const ActionData *record = manager.FindActionDataById(id);
        return record && IsOffered(*record, filter);
    };
    const std::vector<int> entries = ContextMenuEntries(layout, isOffered);
    menu.clear();
    for (const int id : entries) {
        const ActionData *record = manager.FindActionDataById(id);
        if (id == kContextMenuSeparator)
            menu.addSeparator();
        else if (record && record->action) // a filter may have done anything
            menu.addAction(record->action);
    }
}
