// SPDX-License-Identifier: GPL-2.0-or-later
// Pieces that the panels of the workbench dialog are put together from.
#include "dxf/workbench/panelparts_p.h"

#include "core/contrast_p.h"
#include "dxf/workbench/inkicon_p.h"
#include <QColor>
#include <QLabel>
#include <QLayout>
#include <QPalette>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Long captions have as much air at their sides as short ones.
class RoomyButton : public QPushButton
{
public:
    using QPushButton::QPushButton;
    [[nodiscard]] QSize sizeHint() const override
    {
        return QPushButton::sizeHint() + QSize(fontMetrics().height(), 0);
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return QPushButton::sizeHint(); }
};

} // namespace

QPushButton *workbench::pushButton(const QString &text, const QString &name)
{
    auto *button = new RoomyButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QToolButton *workbench::iconButton(const QString &text, const QString &name, const QString &icon)
{
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setIcon(dxftools::inkIcon(u":/kelo_base/images/%1.svg"_s.arg(icon)));
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QLabel *workbench::buddyLabel(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QWidget *workbench::widgetFor(QLayout *layout)
{
    auto *widget = new QWidget;
    layout->setContentsMargins({});
    widget->setLayout(layout);
    return widget;
}

QString workbench::spoken(const QString &caption)
{
    QString text = caption;
    text.remove(u'&');
    return text.endsWith(u':') ? text.chopped(1) : text;
}

QColor workbench::quietInk(const QPalette &palette)
{
    constexpr double kReadable = 4.6; // 4.5 is asked for, and bytes round
    const QColor ink = palette.color(QPalette::Text);
    const QColor ground = palette.color(QPalette::Base);
    constexpr int kSteps = 16;
    for (int step = kSteps / 2; step < kSteps; ++step) {
        const QColor fainter = colors::mixed(ground, ink, static_cast<double>(step) / kSteps);
        if (colors::contrast(fainter, ground) >= kReadable)
            return fainter;
    }
    return ink;
}
