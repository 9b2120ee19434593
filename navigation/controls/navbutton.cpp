// SPDX-License-Identifier: GPL-2.0-or-later
// A button that is a sign with a halo.
#include "navigation/controls/navbutton_p.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace navcontrols {

namespace {

constexpr double kGrid = 24; ///< extent of the glyphs' units

/// Strokes apart by ";", each a line through points, or "o x,y r", a circle.
QStringView strokesOf(Glyph glyph)
{
    switch (glyph) {
    case Glyph::ZoomIn:
        return u"o 10,10 6; 14.5,14.5 20,20; 7,10 13,10; 10,7 10,13";
    case Glyph::ZoomOut:
        return u"o 10,10 6; 14.5,14.5 20,20; 7,10 13,10";
    case Glyph::WholePage:
        return u"4,8 4,4 8,4; 16,4 20,4 20,8; 20,16 20,20 16,20; 8,20 4,20 4,16; "
               u"8,8 16,8 16,16 8,16 8,8";
    case Glyph::Fold:
        return u"5,7 19,7; 6,12 12,18 18,12";
    case Glyph::Unfold:
        return u"5,17 19,17; 6,12 12,6 18,12";
    case Glyph::Previous:
        return u"15,5 8,12 15,19";
    case Glyph::Next:
        return u"9,5 16,12 9,19";
    case Glyph::Play:
        return u"8,5 19,12 8,19 8,5";
    case Glyph::Pause:
        return u"9,6 9,18; 15,6 15,18";
    case Glyph::FullScreen:
        return u"4,9 4,4 9,4; 15,4 20,4 20,9; 20,15 20,20 15,20; 9,20 4,20 4,15";
    case Glyph::Blank:
        return u"3,5 21,5 21,17 3,17 3,5; 8,21 16,21; 7,13 17,9";
    case Glyph::None:
        break;
    }
    return {};
}

QPointF pointOf(QStringView text)
{
    const qsizetype comma = text.indexOf(u',');
    return {text.left(comma).toDouble(), text.mid(comma + 1).toDouble()};
}

QPainterPath pathOf(Glyph glyph)
{
    QPainterPath path;
    for (const QStringView stroke : strokesOf(glyph).split(u';')) {
        const auto words = stroke.split(u' ', Qt::SkipEmptyParts);
        if (words.value(0) == "o"_L1) {
            const double radius = words.value(2).toDouble();
            path.addEllipse(pointOf(words.value(1)), radius, radius);
            continue;
        }
        for (qsizetype i = 0; i < words.size(); ++i) {
            if (i == 0)
                path.moveTo(pointOf(words[i]));
            else
                path.lineTo(pointOf(words[i]));
        }
    }
    return path;
}

} // namespace

NavButton::NavButton(Glyph glyph, const QString &name, QWidget *parent)
    : QToolButton(parent), m_glyph(glyph)
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard to the document
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_Hover);
}

void NavButton::setGlyph(Glyph glyph)
{
    m_glyph = glyph;
    m_look = -1;
    update();
}

QSize NavButton::sizeHint() const
{
    if (m_glyph != Glyph::None)
        return {kExtent, kExtent};
    constexpr int kSides = 14;
    return {fontMetrics().horizontalAdvance(text()) + kSides, kExtent};
}

void NavButton::changeEvent(QEvent *event)
{
    m_look = -1; // palette, font, style, direction
    QToolButton::changeEvent(event);
}

/// Glyphs are kept as pictures, so that a moving document costs a copy a button.
void NavButton::paintEvent(QPaintEvent *)
{
    const bool isPointedAt = underMouse() && QGuiApplication::mouseButtons() == Qt::NoButton;
    const int look = (isEnabled() ? 1 : 0) + (isDown() || isChecked() ? 2 : 0) +
                     (isPointedAt ? 4 : 0) + (hasFocus() ? 8 : 0);
    QPainter painter(this);
    if (m_glyph == Glyph::None) {
        paintFace(painter);
        return;
    }
    const double ratio = devicePixelRatioF();
    if (look != m_look || m_face.devicePixelRatio() != ratio || m_face.size() != size() * ratio) {
        m_face = QPixmap(size() * ratio);
        m_face.setDevicePixelRatio(ratio);
        m_face.fill(Qt::transparent);
        QPainter facePainter(&m_face);
        paintFace(facePainter);
        m_look = look;
    }
    painter.drawPixmap(0, 0, m_face);
}

void NavButton::paintFace(QPainter &painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    Halo halo(palette(), isEnabled());
    const bool isPointedAt = underMouse() && QGuiApplication::mouseButtons() == Qt::NoButton;
    QPainterPath plate;
    plate.addRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
    if (isDown() || isChecked()) { // ink and rim change sides
        painter.fillPath(plate, halo.ink);
        painter.strokePath(plate, QPen(halo.rim, 1.5));
        std::swap(halo.ink, halo.rim);
    } else if (isPointedAt && isEnabled()) {
        strokeWithHalo(painter, plate, halo, 1);
    }
    if (m_glyph == Glyph::None) {
        m_label.set(text(), font(), width() - 6);
        const QSizeF size = m_label.size();
        m_label.paint(painter, {(width() - size.width()) / 2, (height() - size.height()) / 2},
                      halo);
    } else {
        painter.save();
        const bool isSided = m_glyph == Glyph::Previous || m_glyph == Glyph::Next;
        const bool isTurned = isSided && layoutDirection() == Qt::RightToLeft;
        painter.translate(width() / 2.0, height() / 2.0);
        constexpr double kScale = 20 / kGrid;
        painter.scale(isTurned ? -kScale : kScale, kScale);
        painter.translate(-kGrid / 2, -kGrid / 2);
        strokeWithHalo(painter, pathOf(m_glyph), halo, 2);
        painter.restore();
    }
    if (hasFocus())
        outlineFocus(painter, rect(), Halo(palette()));
}

} // namespace navcontrols
