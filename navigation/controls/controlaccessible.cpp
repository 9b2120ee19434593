// SPDX-License-Identifier: GPL-2.0-or-later
// The controls that are no buttons and no fields, for screen readers.
#include "navigation/controls/controlaccessible_p.h"

#include "navigation/controls/angles_p.h"
#include "navigation/controls/northarrow_p.h"
#include "navigation/controls/scalebarwidget_p.h"
#include <QAccessibleWidget>

namespace navcontrols {

namespace {

class ArrowAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit ArrowAccessible(NorthArrow *arrow) : QAccessibleWidget(arrow, QAccessible::Dial) {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? arrow()->angleText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QVariant currentValue() const override { return arrow()->angle(); }
    void setCurrentValue(const QVariant &value) override { arrow()->turnTo(value.toDouble()); }
    [[nodiscard]] QVariant maximumValue() const override { return 180.0; }
    [[nodiscard]] QVariant minimumValue() const override { return -180.0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return kFineTurnStep; }

private:
    [[nodiscard]] NorthArrow *arrow() const { return static_cast<NorthArrow *>(object()); }
};

class BarAccessible : public QAccessibleWidget
{
public:
    explicit BarAccessible(ScaleBarWidget *bar) : QAccessibleWidget(bar, QAccessible::StaticText) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? static_cast<ScaleBarWidget *>(object())->lengthText()
                                          : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *interfaceOf(const QString &, QObject *object)
{
    if (auto *arrow = qobject_cast<NorthArrow *>(object))
        return new ArrowAccessible(arrow);
    if (auto *bar = qobject_cast<ScaleBarWidget *>(object))
        return new BarAccessible(bar);
    return nullptr;
}

} // namespace

void installAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(interfaceOf);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

} // namespace navcontrols
