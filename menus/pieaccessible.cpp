// SPDX-License-Identifier: GPL-2.0-or-later
// Roles, names, states and places of pie menus and items in the terms of QAccessible.
#include "menus/pieaccessible_p.h"

#include "menus/piegeometry_p.h"
#include "menus/pietext_p.h"
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <cmath>
#include <kelo_base/menus/QtPieMenu.h>

namespace {

/// Eight directions in words, counter-clockwise from the right.
QString directionInWords(double angle)
{
    static constexpr const char *kWords[] = {
        QT_TRANSLATE_NOOP("QtPieMenu", "right"),  QT_TRANSLATE_NOOP("QtPieMenu", "top right"),
        QT_TRANSLATE_NOOP("QtPieMenu", "top"),    QT_TRANSLATE_NOOP("QtPieMenu", "top left"),
        QT_TRANSLATE_NOOP("QtPieMenu", "left"),   QT_TRANSLATE_NOOP("QtPieMenu", "bottom left"),
        QT_TRANSLATE_NOOP("QtPieMenu", "bottom"), QT_TRANSLATE_NOOP("QtPieMenu", "bottom right"),
    };
    const long eighth = std::lround(angle / (pie::kTurn / 8));
    return QtPieMenu::tr(kWords[eighth % 8]);
}

/// A menu, an item, or both.
class PieAccessible : public QAccessibleWidget
{
public:
    explicit PieAccessible(QtPieItem *item) : QAccessibleWidget(item) {}

    [[nodiscard]] QAccessible::Role role() const override
    {
        return menu() ? QAccessible::PopupMenu : QAccessible::MenuItem;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name) {
            const QString given = item()->accessibleName();
            return given.isEmpty() ? pie::withoutMnemonic(item()->text()) : given;
        }
        const QtPieMenu *ring = parentMenu();
        if (kind == QAccessible::Accelerator && ring)
            return keyName();
        if (kind != QAccessible::Description || !ring)
            return QAccessibleWidget::text(kind);
        return QtPieMenu::tr("%1, %2 of %3")
            .arg(directionInWords(middle()))
            .arg(index() + 1)
            .arg(ring->count());
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        const QtPieMenu *ring = parentMenu();
        const bool isOpen = menu() && menu()->isVisible();
        state.disabled = !item()->isEnabled();
        state.invisible = !isOpen && (!ring || !ring->isVisible());
        state.checkable = item()->isCheckable();
        state.checked = item()->isChecked();
        state.hasPopup = menu() && ring;
        state.expandable = state.hasPopup;
        state.expanded = state.hasPopup && isOpen;
        state.focusable = state.selectable = !state.disabled;
        state.focused = state.selected = ring && ring->highlightedItem() == index();
        return state;
    }

    /// An item is a spot in its sector, an open menu the whole disc.
    [[nodiscard]] QRect rect() const override
    {
        const QtPieMenu *ring = parentMenu();
        if (!ring || (menu() && menu()->isVisible()))
            return QAccessibleWidget::rect();
        const double radius = (ring->innerRadius() + ring->outerRadius()) / 2.0;
        const QPointF offset(radius * std::cos(middle()), -radius * std::sin(middle()));
        QRect spot(0, 0, kSpot, kSpot);
        spot.moveCenter(ring->mapToGlobal(ring->rect().center() + offset.toPoint()));
        return spot;
    }

    [[nodiscard]] int childCount() const override { return menu() ? menu()->count() : 0; }
    [[nodiscard]] QAccessibleInterface *child(int i) const override
    {
        return menu() ? QAccessible::queryAccessibleInterface(menu()->itemAt(i)) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override
    {
        return menu() ? menu()->indexOf(qobject_cast<QtPieItem *>(child->object())) : -1;
    }
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override
    {
        return menu() ? child(menu()->indexAt(menu()->mapFromGlobal(QPoint(x, y)))) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface *focusChild() const override
    {
        return menu() ? child(menu()->highlightedItem()) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface *parent() const override
    {
        return parentMenu() ? QAccessible::queryAccessibleInterface(parentMenu())
                            : QAccessibleWidget::parent();
    }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction() && parentMenu())
            parentMenu()->activateItem(index());
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString &name) const override
    {
        const bool hasKey = name == pressAction() && parentMenu() && !keyName().isEmpty();
        return hasKey ? QStringList(keyName()) : QStringList();
    }

private:
    /// Of the key that picks the item: its letter, or else its digit; empty when it has neither.
    [[nodiscard]] QString keyName() const
    {
        const QChar letter = pie::mnemonicOf(item()->text());
        if (!letter.isNull())
            return letter.toUpper();
        return index() < 10 ? QString::number((index() + 1) % 10) : QString();
    }

    static constexpr int kSpot = 16; ///< pixels
    [[nodiscard]] QtPieItem *item() const { return static_cast<QtPieItem *>(object()); }
    [[nodiscard]] QtPieMenu *menu() const { return qobject_cast<QtPieMenu *>(object()); }
    [[nodiscard]] QtPieMenu *parentMenu() const
    {
        auto *ring = qobject_cast<QtPieMenu *>(object()->parent());
        return ring && ring->indexOf(item()) >= 0 ? ring : nullptr;
    }
    [[nodiscard]] int index() const { return parentMenu()->indexOf(item()); }
    [[nodiscard]] double middle() const
    {
        const QtPieMenu *ring = parentMenu();
        const double start = ring->indexToAngle(index(), ring->count(), true);
        const double end = ring->indexToAngle(index() + 1, ring->count(), true);
        return (start + (end > start ? end : end + pie::kTurn)) / 2;
    }
};

} // namespace

namespace pie {

void installAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory([](const QString &name, QObject *object) {
            auto *item = name == QLatin1StringView("QtPieItem") ? qobject_cast<QtPieItem *>(object)
                                                                : nullptr;
            return item ? static_cast<QAccessibleInterface *>(new PieAccessible(item)) : nullptr;
        });
        return true;
    }();
    Q_UNUSED(isInstalled)
}

void announceFocus(QtPieMenu &menu, QtPieItem *item)
{
    QAccessibleEvent event(item ? item : static_cast<QObject *>(&menu), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void announceOpen(QtPieMenu &menu, bool isOpen)
{
    QAccessibleEvent event(&menu, isOpen ? QAccessible::PopupMenuStart : QAccessible::PopupMenuEnd);
    QAccessible::updateAccessibility(&event);
}

void announceName(QtPieItem &item)
{
    QAccessibleEvent event(&item, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void announceCheck(QtPieItem &item)
{
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&item, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace pie
