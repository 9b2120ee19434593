// SPDX-License-Identifier: GPL-2.0-or-later
// Ink with a rim of the opposite brightness, so that it is read over any map without a box.
#include "navigation/controls/halo_p.h"

#include "core/contrast_p.h"
#include <QFontMetrics>
#include <QPainter>

using colors::contrast;
using colors::kReadableContrast;
using colors::luminance;
using colors::mixed;

namespace navcontrols {

namespace {

constexpr QColor kGrey(128, 128, 128);             // the map that is nearest to both
constexpr double kApart = kReadableContrast + 0.4; // some is lost at soft edges

/// Towards @p end, as far as it takes to be told apart from @p first and @p second.
QColor drawnApart(const QColor &color, const QColor &end, const QColor &first, const QColor &second)
{
    QColor result = color;
    for (int percent = 4; percent <= 100; percent += 4) {
        if (contrast(result, first) >= kApart && contrast(result, second) >= kApart)
            break;
        result = mixed(color, end, percent / 100.0);
    }
    return result;
}

} // namespace

Halo::Halo(const QPalette &palette, bool isEnabled)
    : focus(palette.color(QPalette::Active, QPalette::Highlight))
{
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const bool isDark = luminance(text) <= luminance(window);
    const QColor dark = drawnApart(isDark ? text : window, Qt::black, kGrey, Qt::white);
    const QColor light = drawnApart(isDark ? window : text, Qt::white, dark, Qt::black);
    ink = isDark ? dark : light;
    rim = isDark ? light : dark;
    if (!isEnabled)
        ink = mixed(ink, rim, 0.5);
}

void strokeWithHalo(QPainter &painter, const QPainterPath &path, const Halo &halo, double width)
{
    const auto pen = [](const QColor &color, double thickness) {
        return QPen(color, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    };
    painter.strokePath(path, pen(halo.rim, width + 2 * kHaloWidth));
    painter.strokePath(path, pen(halo.ink, width));
}

void fillWithHalo(QPainter &painter, const QPainterPath &path, const Halo &halo)
{
    painter.strokePath(path,
                       QPen(halo.rim, 2 * kHaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, halo.ink);
}

void outlineFocus(QPainter &painter, const QRectF &rect, const Halo &halo)
{
    QPainterPath outline;
    outline.addRoundedRect(rect.adjusted(2.5, 2.5, -2.5, -2.5), 4, 4);
    painter.strokePath(outline, QPen(halo.rim, 5));
    painter.strokePath(outline, QPen(halo.ink, 3));
    painter.strokePath(outline, QPen(halo.focus, 1.5));
}

void HaloText::set(const QString &text, const QFont &font, int room)
{
    if (text == m_given && font == m_font && room == m_room)
        return;
    m_given = text;
    m_font = font;
    m_room = room;
    m_text.setTextFormat(Qt::PlainText);
    m_text.setText(room > 0 ? QFontMetrics(font).elidedText(text, Qt::ElideMiddle, room) : text);
    m_text.prepare({}, font);
}

void HaloText::paint(QPainter &painter, QPointF topLeft, const Halo &halo) const
{
    constexpr double kDiagonal = kHaloWidth * 0.7071;
    painter.setFont(m_font);
    painter.setPen(halo.rim);
    for (const QPointF offset :
         {QPointF(kHaloWidth, 0), QPointF(-kHaloWidth, 0), QPointF(0, kHaloWidth),
          QPointF(0, -kHaloWidth), QPointF(kDiagonal, kDiagonal), QPointF(-kDiagonal, kDiagonal),
          QPointF(kDiagonal, -kDiagonal), QPointF(-kDiagonal, -kDiagonal)})
        painter.drawStaticText(topLeft + offset, m_text);
    painter.setPen(halo.ink);
    painter.drawStaticText(topLeft, m_text);
}

} // namespace navcontrols
