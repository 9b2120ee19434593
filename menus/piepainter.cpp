// SPDX-License-Identifier: GPL-2.0-or-later
// Paints ring, sectors, labels and marks of a pie menu in the colours of the palette.
#include "menus/piepainter_p.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace pie {

namespace {

constexpr double kRimWidth = 4;     ///< of the band that marks the highlighted sector
constexpr double kArrowDepth = 6;   ///< of the mark of a sub-menu
constexpr double kArrowFromRim = 7; ///< from its tip to the outer rim
constexpr double kRoomForArrow = kArrowFromRim + kArrowDepth + 2;
constexpr double kShade = 0.6;         ///< how much of a shaded menu is covered
constexpr double kReadableText = 3;    ///< narrower than so many lines are high says nothing
constexpr double kMediumIcon = 24;     ///< taken by all when larger ones would cut more texts
constexpr double kSmallestCentre = 10; ///< a smaller middle has no room for its sign

QColor mixed(const QColor &a, const QColor &b, double part)
{
    const auto mix = [part](float x, float y) { return std::lerp(x, y, static_cast<float>(part)); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                            mix(a.blueF(), b.blueF()));
}

/// Lines that stand out from the background without shouting.
QColor lineColor(const QPalette &palette, double strength)
{
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), strength);
}

/// The text broken at the blank that leaves the shorter lines; empty when it is one word.
QString inTwoLines(const QString &text, const QFontMetricsF &metrics)
{
    QString best;
    double bestWidth = 0;
    for (qsizetype at = 0; (at = text.indexOf(u' ', at)) >= 0; ++at) {
        QString broken = text;
        broken[at] = u'\n';
        const double width = metrics.size(Qt::TextShowMnemonic, broken).width();
        if (best.isEmpty() || width < bestWidth) {
            best = broken;
            bestWidth = width;
        }
    }
    return best;
}

QString elided(const QString &text, const QFontMetricsF &metrics, double width)
{
    QStringList lines = text.split(u'\n');
    for (QString &line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, width, Qt::TextShowMnemonic);
    return lines.join(u'\n');
}

void paintRing(QPainter &painter, const Picture &picture)
{
    const Layout &layout = picture.layout;
    painter.setPen(Qt::NoPen);
    painter.setBrush(picture.palette.color(QPalette::Window));
    painter.drawEllipse(layout.centre(), layout.outerRadius, layout.outerRadius);
}

void paintHighlight(QPainter &painter, const Picture &picture, const Cell &cell)
{
    const QColor fill = picture.palette.color(QPalette::Highlight);
    const QColor rim = picture.palette.color(QPalette::HighlightedText);
    painter.fillPath(cell.outline, fill);
    // A band inside the outline: seen without colours, too.
    painter.save();
    painter.setClipPath(cell.outline);
    painter.strokePath(cell.outline, QPen(rim, 2 * kRimWidth));
    painter.strokePath(cell.outline, QPen(fill, kRimWidth));
    painter.restore();
}

void paintLines(QPainter &painter, const Picture &picture)
{
    const Layout &layout = picture.layout;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(lineColor(picture.palette, 0.22), 1));
    for (int i = 0; i < layout.count() && layout.count() > 1; ++i) {
        const double angle = layout.borders[static_cast<std::size_t>(i)];
        const QPointF out(std::cos(angle), -std::sin(angle));
        if (layout.sweep(i) > 0)
            painter.drawLine(layout.centre() + layout.innerRadius * out,
                             layout.centre() + (layout.outerRadius - 1) * out);
    }
    painter.setPen(QPen(lineColor(picture.palette, 0.45), 1));
    for (const double radius : {layout.innerRadius, layout.outerRadius - 0.5}) {
        if (radius > 0)
            painter.drawEllipse(layout.centre(), radius, radius);
    }
}

/// The sign in the middle: a cross to leave, an arrow to go back.
void paintCentre(QPainter &painter, const Picture &picture)
{
    const double inner = picture.layout.innerRadius;
    if (inner < kSmallestCentre)
        return;
    painter.save();
    painter.translate(picture.layout.centre());
    const double size = std::min(inner / 4, 8.0);
    painter.setPen(QPen(lineColor(picture.palette, 0.6), 1.6, Qt::SolidLine, Qt::RoundCap));
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

void paintArrow(QPainter &painter, const Layout &layout, int sector, const QColor &color)
{
    const QPointF tip = layout.pointIn(sector, layout.outerRadius - kArrowFromRim);
    const QPointF back = layout.pointIn(sector, layout.outerRadius - kArrowFromRim - kArrowDepth);
    const QPointF along = tip - back;
    const QPointF across(-along.y(), along.x());
    const QPointF corners[] = {tip, back + across, back - across};
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawConvexPolygon(corners, 3);
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
    if (cell.isChecked) {
        const double edge = painter.fontMetrics().height();
        const bool isMirrored = picture.direction == Qt::RightToLeft;
        const double left = isMirrored ? text.right() - edge : text.left();
        const QRectF tick(left, text.center().y() - edge / 2, edge, edge);
        paintTick(painter, tick.adjusted(isMirrored ? 3 : 0, 1, isMirrored ? 0 : -3, -1), color);
        text.adjust(isMirrored ? 0 : edge, 0, isMirrored ? -edge : 0, 0);
    }
    const int letters = picture.underlinesLetters ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.setPen(color);
    painter.drawText(text, Qt::AlignCenter | Qt::TextDontClip | letters, cell.text);
}

void paintCell(QPainter &painter, const Picture &picture, int sector)
{
    const Cell &cell = picture.cells[static_cast<std::size_t>(sector)];
    const bool isHighlighted = sector == picture.highlighted;
    const auto group = cell.isEnabled ? QPalette::Active : QPalette::Disabled;
    const QColor color = picture.palette.color(group, isHighlighted ? QPalette::HighlightedText
                                                                    : QPalette::WindowText);
    if (!cell.label.icon.isNull()) {
        const QIcon::Mode mode = !cell.isEnabled ? QIcon::Disabled
                                 : isHighlighted ? QIcon::Active
                                                 : QIcon::Normal;
        const QSize size = cell.label.icon.size().toSize();
        const QPixmap pixmap = cell.icon.pixmap(size, painter.device()->devicePixelRatioF(), mode,
                                                cell.isChecked ? QIcon::On : QIcon::Off);
        // Whole pixels, so that icons stay sharp; a smaller picture than asked for is centred.
        const QSizeF given = pixmap.deviceIndependentSize();
        const QPointF slack((size.width() - given.width()) / 2,
                            (size.height() - given.height()) / 2);
        painter.drawPixmap((cell.label.icon.topLeft() + slack).toPoint(), pixmap);
    }
    if (!cell.label.text.isNull())
        paintText(painter, picture, cell, color);
    if (cell.isSubMenu)
        paintArrow(painter, picture.layout, sector, color);
}

/// A text as it could be shown.
struct Fit
{
    QString text;
    Label label;
    double shown = 0; ///< part of the text's width
};

Fit fit(const Cell &cell, const QString &text, const Layout &layout, int sector,
        const QFontMetricsF &metrics, double icon)
{
    const double tick = cell.isChecked ? metrics.height() : 0;
    const QSizeF size = metrics.size(Qt::TextShowMnemonic, text);
    Wish wish;
    if (!text.isEmpty())
        wish.text = QSizeF(size.width() + tick + 1, size.height());
    wish.readable = kReadableText * metrics.height();
    wish.icon = cell.icon.isNull() ? 0 : icon;
    wish.outerMark = cell.isSubMenu ? kRoomForArrow : 0;
    const Label label = placeLabel(layout, sector, wish);
    const double shown = text.isEmpty() ? 1 : label.text.width() / wish.text.width();
    return {text, label, shown};
}

void fitCell(Cell &cell, const Layout &layout, int sector, const QFontMetricsF &metrics,
             double icon)
{
    Fit best = fit(cell, cell.text, layout, sector, metrics, icon);
    if (const QString broken = inTwoLines(cell.text, metrics);
        best.shown < 1 && !broken.isEmpty()) {
        Fit other = fit(cell, broken, layout, sector, metrics, icon);
        if (other.shown > best.shown)
            best = std::move(other);
    }
    const double tick = cell.isChecked ? metrics.height() : 0;
    cell.outline = sectorPath(layout, sector);
    cell.label = best.label;
    cell.text = elided(best.text, metrics, best.label.text.width() - tick);
    cell.isElided = cell.text != best.text;
}

} // namespace

void fitCells(std::vector<Cell> &cells, const Layout &layout, const QFontMetricsF &metrics,
              double largestIcon)
{
    std::vector<Cell> best;
    std::ptrdiff_t fewest = std::ssize(cells) + 1;
    for (const double icon : {largestIcon, kMediumIcon}) {
        std::vector<Cell> fitted = cells;
        for (int i = 0; i < layout.count(); ++i)
            fitCell(fitted[static_cast<std::size_t>(i)], layout, i, metrics, icon);
        const auto cut = std::count_if(fitted.begin(), fitted.end(),
                                       [](const Cell &cell) { return cell.isElided; });
        if (icon <= largestIcon && cut < fewest) {
            fewest = cut;
            best = std::move(fitted);
        }
        if (fewest == 0)
            break;
    }
    cells = std::move(best);
}

QRect sectorArea(const Cell &cell)
{
    return cell.outline.boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
}

void paint(QPainter &painter, const Picture &picture, const QRect &area)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    paintRing(painter, picture);
    const auto highlighted = static_cast<std::size_t>(picture.highlighted);
    if (picture.highlighted >= 0 && highlighted < picture.cells.size())
        paintHighlight(painter, picture, picture.cells[highlighted]);
    paintLines(painter, picture);
    paintCentre(painter, picture);
    for (int i = 0; i < picture.layout.count(); ++i) {
        if (sectorArea(picture.cells[static_cast<std::size_t>(i)]).intersects(area))
            paintCell(painter, picture, i);
    }
    if (!picture.isShaded)
        return;
    QColor veil = picture.palette.color(QPalette::Window);
    veil.setAlphaF(static_cast<float>(kShade));
    painter.setPen(Qt::NoPen);
    painter.setBrush(veil);
    painter.drawEllipse(picture.layout.centre(), picture.layout.outerRadius,
                        picture.layout.outerRadius);
}

} // namespace pie
