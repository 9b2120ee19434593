// SPDX-License-Identifier: GPL-2.0-or-later
// Paints sheets with as much detail as their size on screen deserves.
#include "dxf/workbench/sheetcanvas_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/sheetpicture_p.h"
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Mark = LegendEntry::Mark;

// Sides of sheets in pixels of the window.
constexpr double kOutlined = 12; ///< smaller ones are spots
constexpr double kCornered = 22; ///< smaller ones have no marks in their corners
// Heights of numbers. Smaller ones cannot be read, larger ones say no more.
constexpr double kLeastText = 7;
constexpr double kMostText = 60;

constexpr double kThin = 1;
constexpr double kThick = 3; ///< of selected sheets

double sideOf(const SheetFigure &figure, double scale)
{
    return std::max(figure.bounds.width(), figure.bounds.height()) * scale;
}

/// Whole pixels from edge to edge, so that neighbours have the line between them in common.
QRect spotOf(const QRectF &box)
{
    constexpr double kNudge = 0.02; // common edges differ in their last bits
    const auto pixel = [](double edge) { return static_cast<int>(std::floor(edge + kNudge)); };
    return {QPoint(pixel(box.left()), pixel(box.top())),
            QPoint(pixel(box.right()), pixel(box.bottom()))};
}

/// Boxes with a faint rim: a full one would turn many into a dark mass. Selected ones stand out.
void paintSpots(QPainter &painter, const SheetScene &scene, const std::vector<std::size_t> &spots)
{
    for (const std::size_t i : spots) {
        const SheetFigure &figure = scene.figures[i];
        const QRect spot = spotOf(scene.viewport.ToWindow(figure.bounds));
        const SheetLook::Style &style = scene.look.Of(figure.kind);
        painter.fillRect(spot, MixedColour(style.fill, style.line, 0.4F));
        if (spot.width() > 2 && spot.height() > 2)
            painter.fillRect(spot.adjusted(1, 1, -1, -1), style.fill);
    }
    for (const std::size_t i : spots)
        if (scene.isSelected[i])
            painter.fillRect(
                spotOf(scene.viewport.ToWindow(scene.figures[i].bounds)).adjusted(-1, -1, 1, 1),
                scene.highlight);
}

QColor tinted(const QColor &highlight)
{
    QColor tint = highlight;
    tint.setAlphaF(0.28F);
    return tint;
}

void paintHighlight(QPainter &painter, const SheetFigure &figure, const QColor &highlight)
{
    painter.setPen(QPen(highlight, kThick, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    for (const QPolygonF &points : figure.outlines) {
        painter.setBrush(points.isClosed() ? QBrush(tinted(highlight)) : QBrush(Qt::NoBrush));
        if (points.isClosed())
            painter.drawPolygon(points);
        else
            painter.drawPolyline(points);
    }
}

void paintLarge(QPainter &painter, const SheetScene &scene, const std::vector<std::size_t> &indices)
{
    std::vector<SheetFigure> shown;
    shown.reserve(indices.size());
    for (const std::size_t i : indices) {
        SheetFigure &figure = shown.emplace_back(scene.figures[i]);
        MoveFigure(figure, {}, scene.viewport.Scale(), scene.viewport.Origin());
        PlaceNumber(figure, kLeastText, kMostText);
        PaintSheetOutlines(painter, figure, scene.look, kThin);
    }
    for (const SheetFigure &figure : shown)
        if (sideOf(figure, 1) >= kCornered)
            PaintSheetCorners(painter, figure, scene.look);
    for (std::size_t i = 0; i < shown.size(); ++i)
        if (scene.isSelected[indices[i]])
            paintHighlight(painter, shown[i], scene.highlight);
    for (const SheetFigure &figure : shown)
        PaintSheetNumber(painter, figure, scene.look);
}

constexpr double kLongestBar = 110; ///< of the scale, in pixels

/// The mark and the text of an entry.
double widthOf(const LegendEntry &entry, const QFontMetricsF &metrics, double gap)
{
    const double mark = entry.mark == Mark::None ? 0 : entry.markWidth + gap;
    return mark + metrics.horizontalAdvance(entry.text);
}

/// A scale bar gets the same room at every zoom.
double roomOf(const LegendEntry &entry, const QFontMetricsF &metrics, double gap)
{
    return entry.mark == Mark::ScaleBar ? kLongestBar + gap + 5 * metrics.height()
                                        : widthOf(entry, metrics, gap);
}

void fitScaleBar(LegendEntry &entry, double unit)
{
    const double length = RoundLength(kLongestBar / unit);
    entry.markWidth = length * unit;
    entry.text = DxfToolTexts::UnitsInPreview(QLocale().toString(length, 'g', 6));
}

} // namespace

void PaintScene(QPainter &painter, const SheetScene &scene, const QRectF &area)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(area, scene.look.page);
    const double reach = kThick / scene.viewport.Scale(); // outlines go beyond bounds
    const QRectF part = scene.viewport.ToPicture(area).adjusted(-reach, -reach, reach, reach);
    std::vector<std::size_t> spots;
    std::vector<std::size_t> large;
    for (std::size_t i = 0; i < scene.figures.size(); ++i) {
        const SheetFigure &figure = scene.figures[i];
        if (!Touch(figure.bounds, part))
            continue;
        const bool isSpot = sideOf(figure, scene.viewport.Scale()) < kOutlined;
        (isSpot ? spots : large).push_back(i);
    }
    paintSpots(painter, scene, spots);
    paintLarge(painter, scene, large);
}

double LayOutLegend(std::vector<LegendEntry> &legend, const QFontMetricsF &metrics, double width,
                    double unit, Qt::LayoutDirection direction)
{
    const double gap = metrics.height() / 3;
    const double margin = metrics.height() / 2;
    QPointF next(margin, margin + metrics.ascent());
    bool isMarked = false;
    for (LegendEntry &entry : legend) {
        if (entry.mark == Mark::ScaleBar)
            fitScaleBar(entry, unit);
        else
            entry.markWidth = 1.1 * metrics.ascent();
        const double own = roomOf(entry, metrics, gap);
        const bool isFirstMark = !std::exchange(isMarked, isMarked || entry.mark != Mark::None) &&
                                 entry.mark != Mark::None;
        const bool isFull = next.x() > margin && next.x() + own > width - margin;
        if (isFirstMark || isFull)
            next = {margin, next.y() + 1.25 * metrics.height()};
        entry.position = next;
        if (direction == Qt::RightToLeft)
            entry.position.setX(width - next.x() - widthOf(entry, metrics, gap));
        next.rx() += own + metrics.height();
    }
    return legend.empty() ? 0 : next.y() + metrics.descent() + margin;
}

void PaintLegend(QPainter &painter, const std::vector<LegendEntry> &legend, const SheetLook &look,
                 Qt::LayoutDirection direction)
{
    const QFontMetricsF metrics(painter.font());
    const double gap = metrics.height() / 3;
    for (LegendEntry entry : legend) {
        QPointF text = entry.position;
        if (entry.mark != Mark::None && direction == Qt::RightToLeft)
            entry.position.rx() += metrics.horizontalAdvance(entry.text) + gap;
        else if (entry.mark != Mark::None)
            text.rx() += entry.markWidth + gap;
        PaintLegendMark(painter, entry, metrics.ascent(), look);
        painter.setPen(look.ink);
        painter.drawText(text, entry.text);
    }
}
