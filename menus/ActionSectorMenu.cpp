// SPDX-License-Identifier: GPL-2.0-or-later
// Fills pie menus from the action registry, and triggers what is chosen.
#include <kelo_base/menus/ActionSectorMenu.h>

#include <QAction>
#include <QFile>
#include <iterator>
#include <kelo_base/actions/ActionData.h>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <map>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kNoAction = -1;

/// The icon that the application has for large menus; null when it has none.
QIcon largeIcon(const ActionManager &manager, int id)
{
    const QString path = manager.GetLargeIconResource(id);
    return path.isEmpty() || !QFile::exists(path) ? QIcon() : QIcon(path);
}

/// Makes the item show the action as it is now; an invisible one leaves an empty place.
void display(const QAction &action, const QIcon &large, QtPieItem &item)
{
    const bool isVisible = action.isVisible();
    item.setText(isVisible ? action.text() : QString());
    item.setIcon(!isVisible ? QIcon() : large.isNull() ? action.icon() : large);
    item.setEnabled(isVisible && action.isEnabled());
    item.setCheckable(isVisible && action.isCheckable());
    item.setChecked(isVisible && action.isChecked());
}

void empty(QtPieItem &item)
{
    item.setText(QString());
    item.setIcon(QIcon());
    item.setEnabled(false);
    item.setCheckable(false);
    item.setChecked(false);
}

std::unique_ptr<QtPieItem> newEmptyPlace()
{
    auto item = std::make_unique<QtPieItem>();
    empty(*item);
    return item;
}

bool isEmptyPlace(const QtPieItem &item)
{
    return item.text().isEmpty() && item.icon().isNull();
}

/// Announces and triggers. Listeners may delete whatever they like.
void trigger(ActionManager &manager, int id)
{
    const ActionData *record = manager.FindActionDataById(id);
    const QPointer<QAction> action(record ? record->action : nullptr);
    const bool isOn = action && action->isCheckable() && action->isChecked();
    if (!action || isOn)
        return;
    manager.SignalBeforeActionTrigger(*action);
    if (action)
        action->trigger();
}

} // namespace

ActionSectorMenu::ActionSectorMenu(ActionManager &manager, int innerRadius, int outerRadius,
                                   QWidget *parent, const QString &name)
    : QtPieMenu(innerRadius, outerRadius, parent, name), m_manager(&manager)
{
    setGrowing(true);
}

void ActionSectorMenu::fillByLayout(const ContextMenuLayout &layout, const FunctionFilter &filter)
{
    Entries entries;
    for (unsigned int slot = 0; slot < layout.NumberOfSlots(); ++slot) {
        const int id = layout.GetAssignedActionId(slot); // -1 in an empty one
        const ActionData *record =
            m_manager && id != kNoAction ? m_manager->FindActionDataById(id) : nullptr;
        // A filter may do what it likes, even destroy the registry.
        const bool isOffered = record && IsOffered(*record, filter) && m_manager;
        entries.push_back(isOffered ? newItem(id, *record) : newEmptyPlace());
    }
    clear();
    insertEntries(*this, std::move(entries));
}

void ActionSectorMenu::fillByCategory(const FunctionFilter &filter)
{
    clear();
    if (!m_manager)
        return;
    std::map<int, Entries> categories;
    for (const ActionData *record : m_manager->FindActionDataByFilter(filter)) {
        const int id = m_manager->FindIdOfActionData(record);
        if (record->action && record->action->isVisible())
            categories[record->category].push_back(newItem(id, *record));
    }
    if (!m_manager)
        return;
    Entries entries;
    for (auto &[category, items] : categories) {
        QString text = m_manager->GetCategoryDescription(category);
        text.replace('&'_L1, "&&"_L1); // a description marks no letter
        entries.push_back(newSubMenu(text, std::move(items)));
    }
    insertEntries(*this, std::move(entries));
}

/// @param id  under which the record is filed, whatever it says itself
std::unique_ptr<QtPieItem> ActionSectorMenu::newItem(int id, const ActionData &record) const
{
    auto item = newEmptyPlace();
    QtPieItem *shown = item.get();
    const QAction *action = record.action;
    const auto follow = [shown, action, large = largeIcon(*m_manager, id)] {
        display(*action, large, *shown);
    };
    follow();
    connect(action, &QAction::changed, shown, follow);
    connect(action, &QObject::destroyed, shown, [shown] { empty(*shown); });
    connect(shown, &QtPieItem::activated, m_manager,
            [manager = m_manager.data(), id] { trigger(*manager, id); });
    return item;
}

std::unique_ptr<QtPieMenu> ActionSectorMenu::newSubMenu(const QString &text, Entries entries) const
{
    auto menu = std::make_unique<QtPieMenu>(text, innerRadius(), leastOuterRadius());
    menu->setAutoActivateSubMenus(autoActivateSubMenus());
    menu->setHoverInterval(hoverInterval());
    menu->setTapThreshold(tapThreshold());
    menu->setSubMenuPlacement(subMenuPlacement());
    menu->setFading(isFading());
    menu->setGrowing(isGrowing());
    menu->setDigitsShown(areDigitsShown());
    menu->setCancelDistance(cancelDistance());
    insertEntries(*menu, std::move(entries));
    return menu;
}

void ActionSectorMenu::insertEntries(QtPieMenu &menu, Entries entries) const
{
    if (entries.size() > kMostEntries) {
        const auto first = entries.begin() + (kMostEntries - 1);
        Entries rest(std::make_move_iterator(first), std::make_move_iterator(entries.end()));
        entries.erase(first, entries.end());
        std::erase_if(rest, [](const auto &entry) { return isEmptyPlace(*entry); });
        if (rest.size() > 1)
            entries.push_back(newSubMenu(tr("More"), std::move(rest)));
        else // the first ones keep their directions
            entries.push_back(rest.empty() ? newEmptyPlace() : std::move(rest.front()));
    }
    for (std::unique_ptr<QtPieItem> &entry : entries)
        menu.insertItem(entry.release());
}
