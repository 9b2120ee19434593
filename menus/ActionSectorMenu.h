// SPDX-License-Identifier: GPL-2.0-or-later
// A pie menu of registered actions.
#pragma once

#include <QPointer>
#include <kelo_base/core/Export.h>
#include <kelo_base/menus/QtPieMenu.h>
#include <memory>
#include <vector>

class ActionManager;
class ContextMenuLayout;
class FunctionFilter;
struct ActionData;

/// Shows functions from the action registry, with their large icons where the application has
/// them, and keeps in step with the actions while it is open. It grows as its texts need it.
///
/// An item that is chosen looks its action up in the registry again, announces it by
/// ActionManager::SignalBeforeActionTrigger(), and triggers it. An action that is checkable and
/// checked already is neither announced nor triggered. Registry and actions may die first: what
/// remains is an empty place that cannot be chosen.
class KELO_BASE_EXPORT ActionSectorMenu : public QtPieMenu
{
    Q_OBJECT

public:
    /// More entries than that do not tell directions apart: the last becomes "More", a sub-menu
    /// with the rest, in which empty places are left out.
    static constexpr int kMostEntries = 12;

    /// @param manager  not owned; may die first
    ActionSectorMenu(ActionManager &manager, int innerRadius, int outerRadius,
                     QWidget *parent = nullptr, const QString &name = QString());

    // Both replace all items. The filter stands for the current context, see IsOffered(). Sub-menus
    // get this menu's radii and behaviour as they are then.

    /// Slot i becomes sector i. A slot that is empty, or whose action is not offered, stays an
    /// empty place, so that every action keeps its direction.
    void fillByLayout(const ContextMenuLayout &layout, const FunctionFilter &filter);
    /// A sub-menu for each category of which an action is offered and visible, both in ascending
    /// order of their ids.
    void fillByCategory(const FunctionFilter &filter);

private:
    using Entries = std::vector<std::unique_ptr<QtPieItem>>;
    [[nodiscard]] std::unique_ptr<QtPieItem> newItem(int id, const ActionData &record) const;
    [[nodiscard]] std::unique_ptr<QtPieMenu> newSubMenu(const QString &text, Entries entries) const;
    void insertEntries(QtPieMenu &menu, Entries entries) const;

    QPointer<ActionManager> m_manager;
};
