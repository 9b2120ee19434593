// SPDX-License-Identifier: GPL-2.0-or-later
// Shows where north is, and turns the view.
#include "navigation/controls/northarrow_p.h"

#include "navigation/controls/angles_p.h"
#include "navigation/controls/readout_p.h"
#include "navigation/controls/viewmoves_p.h"
#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

namespace navcontrols {

NorthArrow::NorthArrow(Readout &readout, KView *view)
    : QWidget(view), m_readout(readout), m_view(view)
{
    setAccessibleName(tr("North arrow"));
    setAccessibleDescription(tr("Space turns north to the top, the arrow keys turn the view, Enter "
                                "takes a typed angle."));
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard to the document
    resize(kExtent, kExtent);
    setMask(QRegion(rect(), QRegion::Ellipse)); // beside it, the pointer is the document's
    setCursor(Qt::PointingHandCursor);
    connect(&readout, &Readout::moved, this, qOverload<>(&QWidget::update));
    connect(&readout, &Readout::settled, this, [this] {
        if (isVisible()) {
            QAccessibleValueChangeEvent event(this, angle());
            QAccessible::updateAccessibility(&event);
        }
    });
}

double NorthArrow::angle() const
{
    return m_readout.north().value_or(0);
}

QString NorthArrow::angleText() const
{
    const double rounded = std::round(angle() * 10) / 10 + 0.0; // + 0.0: no "-0"
    return locale().toString(rounded, 'g', 4) + QChar(u'°');
}

void NorthArrow::turnTo(double degrees)
{
    const auto now = m_readout.north();
    const QPointer<NorthArrow> alive(this);
    if (now && m_view && turnView(m_view, normalizedAngle(degrees - *now)) && alive)
        m_readout.forget(); // whether or not the viewer has told
}

void NorthArrow::paintEvent(QPaintEvent *)
{
    const auto north = m_readout.north();
    const Halo halo(palette(), north.has_value());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(middle());
    const double angle = north.value_or(0);

    painter.save();
    painter.rotate(angle); // clockwise on screen
    QPainterPath northHalf(QPointF(0, -20));
    for (const QPointF point : {QPointF(9, 18), QPointF(0, 12)})
        northHalf.lineTo(point);
    northHalf.closeSubpath();
    QPainterPath southHalf(QPointF(0, -20));
    for (const QPointF point : {QPointF(-9, 18), QPointF(0, 12)})
        southHalf.lineTo(point);
    southHalf.closeSubpath();
    strokeWithHalo(painter, southHalf, halo, 1.5);
    fillWithHalo(painter, northHalf, halo);
    painter.strokePath(southHalf, QPen(halo.ink, 1.5));
    painter.restore();

    QFont letterFont = font(); // stays upright
    letterFont.setBold(true);
    letterFont.setPixelSize(11);
    //: The letter on a north arrow.
    m_letter.set(tr("N"), letterFont);
    const double radians = angle * std::numbers::pi / 180;
    const QPointF tip(26 * std::sin(radians), -26 * std::cos(radians));
    m_letter.paint(painter, tip - QPointF(m_letter.size().width(), m_letter.size().height()) / 2,
                   halo);
    if (hasFocus()) {
        QPainterPath ring;
        ring.addEllipse(QPointF(), kExtent / 2.0 - 3, kExtent / 2.0 - 3);
        painter.strokePath(ring, QPen(halo.rim, 5));
        painter.strokePath(ring, QPen(halo.ink, 3));
        painter.strokePath(ring, QPen(halo.focus, 1.5));
    }
}

bool NorthArrow::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const QString text = m_readout.hasGeoReference()
                             ? tr("North is at %1. Click to turn it to the top, drag to turn the "
                                  "view, double-click to type an angle.")
                                   .arg(angleText())
                             : tr("This document has no place on the map.");
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text, this);
    return true;
}

void NorthArrow::changeEvent(QEvent *event)
{
    update();
    QWidget::changeEvent(event);
}

void NorthArrow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_readout.hasGeoReference()) {
        event->ignore();
        return;
    }
    m_drag = Drag{event->position(), angle()};
}

void NorthArrow::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_drag) {
        event->ignore();
        return;
    }
    const QPointF way = event->position() - m_drag->start;
    m_drag->isMoving |= way.manhattanLength() >= QApplication::startDragDistance();
    if (m_drag->isMoving) // from the start, so that nothing adds up
        turnTo(m_drag->startAngle + dragAngle(middle(), m_drag->start, event->position()));
}

void NorthArrow::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_drag || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const bool isClick = !m_drag->isMoving;
    m_angleBeforeClick = m_drag->startAngle;
    m_drag.reset();
    if (isClick)
        turnTo(0);
}

/// Its first click has turned the view already.
void NorthArrow::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_readout.hasGeoReference()) {
        event->ignore();
        return;
    }
    const QPointer<NorthArrow> alive(this);
    turnTo(m_angleBeforeClick);
    if (alive)
        emit angleWanted();
}

void NorthArrow::step(int steps, Qt::KeyboardModifiers modifiers)
{
    const double size = modifiers & Qt::ShiftModifier ? kFineTurnStep : kTurnStep;
    const int sense = steps > 0 ? 1 : -1;
    const double first = steppedAngle(angle(), size, sense);
    turnTo(first + (steps - sense) * size);
}

/// A whole step of the wheel is a step of the angle; finer wheels add theirs up.
void NorthArrow::wheelEvent(QWheelEvent *event)
{
    const QPoint turned = event->angleDelta();
    const int angle = turned.y() != 0 ? turned.y() : turned.x(); // Shift swaps them on some systems
    if (angle == 0 || !m_readout.hasGeoReference()) {
        event->ignore();
        return;
    }
    m_wheelAngle += angle;
    const int steps = m_wheelAngle / QWheelEvent::DefaultDeltasPerStep;
    m_wheelAngle -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0)
        step(steps, event->modifiers());
}

void NorthArrow::keyPressEvent(QKeyEvent *event)
{
    const auto unused = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (unused || !m_readout.hasGeoReference()) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        return step(1, event->modifiers());
    case Qt::Key_Left:
    case Qt::Key_Down:
        return step(-1, event->modifiers());
    case Qt::Key_Space:
    case Qt::Key_Home:
        return turnTo(0);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        emit angleWanted();
        return;
    case Qt::Key_Escape:
        if (m_drag) {
            const double before = m_drag->startAngle;
            m_drag.reset();
            return turnTo(before);
        }
        break;
    default:
        break;
    }
    event->ignore();
}

} // namespace navcontrols
