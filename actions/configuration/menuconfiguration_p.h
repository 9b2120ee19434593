// SPDX-License-Identifier: GPL-2.0-or-later
// One configuration as a value that is worked on, and what is different between two.
#pragma once

#include <QKeySequence>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <optional>
#include <vector>

class ActionManager;

namespace menuconfig {

struct MenuConfiguration
{
    ActionShortCutList shortcuts;
    ContextMenuLayout layout;

    friend bool operator==(const MenuConfiguration &, const MenuConfiguration &) = default;
};

/// The entry of an id before and after: none, a cleared one, or a sequence.
struct ShortcutChange
{
    int id = -1;
    std::optional<QKeySequence> before;
    std::optional<QKeySequence> after;

    friend bool operator==(const ShortcutChange &, const ShortcutChange &) = default;
};

struct LayoutChange
{
    ContextMenuLayout before;
    ContextMenuLayout after;

    friend bool operator==(const LayoutChange &, const LayoutChange &) = default;
};

/// What leads from one configuration to another, and back.
struct Difference
{
    std::vector<ShortcutChange> shortcuts; ///< ascending by id
    std::optional<LayoutChange> layout;

    [[nodiscard]] bool isEmpty() const { return shortcuts.empty() && !layout; }
    void applyTo(MenuConfiguration &configuration) const;
    void revertIn(MenuConfiguration &configuration) const;

    friend bool operator==(const Difference &, const Difference &) = default;
};

[[nodiscard]] Difference differenceOf(const MenuConfiguration &before,
                                      const MenuConfiguration &after);

/// The entry of @p id; nothing when it has none.
[[nodiscard]] std::optional<QKeySequence> entryOf(const ActionShortCutList &list, int id);
/// @p list, and the shortcuts of actions for which neither it nor @p known has an entry: who never
/// told the manager of them keeps them.
[[nodiscard]] ActionShortCutList withOthersOf(const ActionManager &actions, ActionShortCutList list,
                                              const ActionShortCutList &known);
/// All ids with an entry, cleared ones too, ascending.
[[nodiscard]] std::vector<int> idsOf(const ActionShortCutList &list);

} // namespace menuconfig
