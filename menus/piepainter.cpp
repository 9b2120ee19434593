// SPDX-License-Identifier: GPL-2.0-or-later
// Paints ring, sectors, labels and marks of a pie menu in the colours of the palette.
#include "menus/piepainter_p.h"

#include "menus/piecolors_p.h"
#include "menus/piegeometry_p.h"
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace pie {

namespace {

constexpr double kRimWidth = 4;        ///< of the band that marks the highlighted sector
constexpr double kArrowEdge = 0.4;     ///< depth of a sub-menu's mark, as part of its square
constexpr double kSmallestCentre = 10; ///< a smaller middle has no room for its sign
constexpr double kShadow = 16;         ///< width of the shadow under a sub-menu
constexpr float kShadowDepth = 0.35F;

void paintRing(QPainter &painter, const Layout &layout, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(layout.centre(), layout.outerRadius, layout.outerRadius);
}

void paintHighlight(QPainter &painter, const Colors &colors, const Cell &cell)
{
    painter.fillPath(cell.outline, colors.highlight);
    // A band inside the outline: seen without colours, too.
    painter.save();
    painter.setClipPath(cell.outline);
    painter.strokePath(cell.outline, QPen(colors.highlightedText, 2 * kRimWidth));
    painter.strokePath(cell.outline, QPen(colors.highlight, kRimWidth));
    painter.restore();
}

void paintLines(QPainter &painter, const Layout &layout, const Colors &colors)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors.separator, colors.lineWidth));
    for (int i = 0; i < layout.count() && layout.count() > 1; ++i) {
        const double angle = layout.borders[static_cast<std::size_t>(i)];
        const QPointF out(std::cos(angle), -std::sin(angle));
        if (layout.sweep(i) > 0)
            painter.drawLine(layout.centre() + layout.innerRadius * out,
                             layout.centre() + (layout.outerRadius - 1) * out);
    }
    painter.setPen(QPen(colors.rim, colors.lineWidth));
    for (const double radius : {layout.innerRadius, layout.outerRadius - colors.lineWidth / 2}) {
        if (radius > 0)
            painter.drawEllipse(layout.centre(), radius, radius);
    }
}

/// The sign in the middle: a cross to leave, an arrow to go back.
void paintCentre(QPainter &painter, const Picture &picture, const QColor &color)
{
    const double inner = picture.layout.innerRadius;
    if (inner < kSmallestCentre)
        return;
    painter.save();
    painter.translate(picture.layout.centre());
    const double size = std::min(inner / 4, 8.0);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap));
    if (picture.isSubMenu) {
        if (picture.direction == Qt::RightToLeft)
            painter.scale(-1, 1);
        const QPointF shaft[] = {{-size, 0}, {size, 0}};
        const QPointF head[] = {{-size * 0.3, -size * 0.7}, {-size, 0}, {-size * 0.3, size * 0.7}};
        painter.drawPolyline(shaft, 2);
        painter.drawPolyline(head, 3);
    } else {
        painter.drawLine(QPointF(-size, -size) * 0.7, QPointF(size, size) * 0.7);
        painter.drawLine(QPointF(-size, size) * 0.7, QPointF(size, -size) * 0.7);
    }
    painter.restore();
}

/// The mark of a sub-menu, pointing outwards.
void paintArrow(QPainter &painter, const Layout &layout, const QRectF &place, const QColor &color)
{
    const QPointF out = place.center() - layout.centre();
    const QPointF along = out / radiusOf(out.x(), out.y()) * kArrowEdge * place.height();
    const QPointF across(-along.y(), along.x());
    const QPointF head[] = {place.center() - along / 2 + across, place.center() + along / 2,
                            place.center() - along / 2 - across};
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(head, 3);
}

void paintDigit(QPainter &painter, const Cell &cell, const QColor &color)
{
    const QFont font = painter.font();
    QFont small = font;
    if (font.pixelSize() > 0)
        small.setPixelSize(qRound(font.pixelSize() * kDigitSize));
    else
        small.setPointSizeF(font.pointSizeF() * kDigitSize);
    painter.setFont(small);
    painter.setPen(color);
    painter.drawText(cell.label.digit, Qt::AlignCenter | Qt::TextDontClip,
                     QString::number(cell.digit));
    painter.setFont(font);
}

void paintTick(QPainter &painter, const QRectF &box, const QColor &color)
{
    const auto at = [&box](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    const QPointF tick[] = {at(0.15, 0.55), at(0.4, 0.8), at(0.85, 0.22)};
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(tick, 3);
}

void paintText(QPainter &painter, const Picture &picture, const Cell &cell, const QColor &color)
{
    QRectF text = cell.label.text;
    if (cell.isCheckable) { // the place of the tick is kept, so that nothing moves
        const double edge = tickEdge(QFontMetricsF(painter.fontMetrics()));
        const bool isMirrored = picture.direction == Qt::RightToLeft;
        const double left = isMirrored ? text.right() - edge : text.left();
        const QRectF tick(left, text.center().y() - edge / 2, edge, edge);
        if (cell.isChecked)
            paintTick(painter, tick.adjusted(isMirrored ? 3 : 0, 1, isMirrored ? 0 : -3, -1),
                      color);
        text.adjust(isMirrored ? 0 : edge, 0, isMirrored ? -edge : 0, 0);
    }
    const int letters = picture.underlinesLetters ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.setPen(color);
    painter.drawText(text, Qt::AlignCenter | Qt::TextDontClip | letters, cell.shown);
}

void paintIcon(QPainter &painter, const Cell &cell, bool isHighlighted, const QColor &color)
{
    const QIcon::Mode mode = !cell.isEnabled ? QIcon::Disabled
                             : isHighlighted ? QIcon::Active
                                             : QIcon::Normal;
    const QSize size = cell.label.icon.size().toSize();
    QPixmap pixmap = cell.icon.pixmap(size, painter.device()->devicePixelRatioF(), mode,
                                      cell.isChecked ? QIcon::On : QIcon::Off);
    if (isHighlighted)
        pixmap = tinted(pixmap, color);
    // Whole pixels, so that icons stay sharp; a smaller picture than asked for is centred.
    const QSizeF given = pixmap.deviceIndependentSize();
    const QPointF slack((size.width() - given.width()) / 2, (size.height() - given.height()) / 2);
    painter.drawPixmap((cell.label.icon.topLeft() + slack).toPoint(), pixmap);
}

void paintCell(QPainter &painter, const Picture &picture, const Colors &colors, int sector)
{
    const Cell &cell = picture.cells[static_cast<std::size_t>(sector)];
    const bool isHighlighted = sector == picture.highlighted;
    const auto group = cell.isEnabled ? QPalette::Active : QPalette::Disabled;
    const QColor color =
        isHighlighted ? colors.highlightedText : picture.palette.color(group, QPalette::WindowText);
    if (!cell.label.icon.isNull())
        paintIcon(painter, cell, isHighlighted, color);
    if (!cell.label.text.isNull())
        paintText(painter, picture, cell, color);
    if (!cell.label.arrow.isNull())
        paintArrow(painter, picture.layout, cell.label.arrow, color);
    if (!cell.label.digit.isNull())
        paintDigit(painter, cell, isHighlighted ? color : colors.digit);
}

/// What a menu behind its sub-menu is covered with.
void paintShade(QPainter &painter, const Picture &picture, const Colors &colors)
{
    paintRing(painter, picture.layout, colors.veil);
    if (picture.front.isNull())
        return;
    const double radius = picture.front.width() / 2 + kShadow;
    QRadialGradient shadow(picture.front.center(), radius);
    shadow.setColorAt(1, Qt::transparent);
    shadow.setColorAt((radius - kShadow / 2) / radius, QColor::fromRgbF(0, 0, 0, kShadowDepth / 4));
    shadow.setColorAt((radius - kShadow) / radius, QColor::fromRgbF(0, 0, 0, kShadowDepth));
    painter.setBrush(shadow);
    painter.drawEllipse(picture.layout.centre(), picture.layout.outerRadius,
                        picture.layout.outerRadius);
}

} // namespace

void paint(QPainter &painter, const Picture &picture, const QRect &area)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const Colors colors(picture.palette);
    paintRing(painter, picture.layout, colors.ring);
    const auto highlighted = static_cast<std::size_t>(picture.highlighted);
    if (picture.highlighted >= 0 && highlighted < picture.cells.size())
        paintHighlight(painter, colors, picture.cells[highlighted]);
    paintLines(painter, picture.layout, colors);
    paintCentre(painter, picture, colors.sign);
    for (int i = 0; i < picture.layout.count(); ++i) {
        if (sectorArea(picture.cells[static_cast<std::size_t>(i)]).intersects(area))
            paintCell(painter, picture, colors, i);
    }
    if (picture.isShaded)
        paintShade(painter, picture, colors);
}

} // namespace pie
