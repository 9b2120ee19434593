// SPDX-License-Identifier: GPL-2.0-or-later
// Paints the plan, and opens its menu.
#include "PlanView.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <kelo_base/menus/QtPieMenu.h>

namespace {

constexpr int kParcel = 90; ///< pixels from one parcel to the next

} // namespace

PlanView::PlanView(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu); // the press opens the menu already
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void PlanView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && m_menu)
        m_menu->popup(QCursor::pos());
}

void PlanView::mousePressEvent(QMouseEvent *event)
{
    if (m_menu)
        m_menu->popup(event->globalPosition().toPoint());
}

void PlanView::paintEvent(QPaintEvent *)
{
    QRandomGenerator random(5); // the same plan each time
    const auto shift = [&random](double most) { return (random.generateDouble() - 0.5) * most; };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = palette().color(QPalette::Text);
    ink.setAlphaF(0.18F);
    painter.setPen(QPen(ink, 1));
    for (int y = 0; y < height() + kParcel; y += kParcel) {
        QPolygonF street;
        for (int x = -kParcel; x < width() + kParcel; x += kParcel) {
            const QPointF corner(x + shift(45), y + shift(15));
            street << corner;
            painter.drawLine(corner, corner + QPointF(shift(22), kParcel * 0.85));
            const QRectF house(corner + QPointF(25, 25), QSizeF(30 + shift(15), 22));
            painter.drawRect(house);
        }
        painter.drawPolyline(street);
    }
}
