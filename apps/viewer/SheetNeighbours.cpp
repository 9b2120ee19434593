// SPDX-License-Identifier: GPL-2.0-or-later
// Neighbours by the place of their centres on the page.
#include "SheetNeighbours.h"

#include <QPolygonF>
#include <cmath>
#include <utility>

namespace {

using Side = DocWindowXIfc::PageSide;

constexpr double kGap = 0.05; ///< of the page's size, up to which sheets count as joined

/// -1 before the page, 0 on it, 1 behind it.
int beyond(double place, double size)
{
    return place < 0 ? -1 : place > size ? 1 : 0;
}

QPolygonF polygonOf(const SheetFrame &frame)
{
    return {QList<QPointF>(frame.corners().begin(), frame.corners().end())};
}

/// The page with the gap around it.
QPolygonF widened(const SheetFrame &page)
{
    const double gap = kGap * std::min(page.pageSize().width(), page.pageSize().height());
    const QRectF around = QRectF(QPointF(), page.pageSize()).adjusted(-gap, -gap, gap, gap);
    return {{page.toMap(around.topLeft()), page.toMap(around.topRight()),
             page.toMap(around.bottomRight()), page.toMap(around.bottomLeft())}};
}

} // namespace

std::optional<Side> sideOf(const SheetFrame &page, const SheetFrame &other)
{
    constexpr std::optional<Side> kSides[3][3] = {
        {Side::TopLeft, Side::Top, Side::TopRight},
        {Side::Left, std::nullopt, Side::Right},
        {Side::BottomLeft, Side::Bottom, Side::BottomRight}};
    const QPointF centre = page.toPage(other.centre());
    return kSides[beyond(centre.y(), page.pageSize().height()) + 1]
                 [beyond(centre.x(), page.pageSize().width()) + 1];
}

std::vector<quint32> neighboursAt(const SheetLayer &layer, quint32 sheet, Side side)
{
    const SheetFrame page = layer.frame(sheet);
    const QPolygonF around = widened(page);
    std::vector<quint32> candidates;
    layer.collect(MapBounds::of(around.boundingRect()), candidates);
    std::vector<std::pair<double, quint32>> found; // distance, sheet
    for (const quint32 candidate : candidates) {
        const SheetFrame other = layer.frame(candidate);
        if (candidate == sheet || sideOf(page, other) != side ||
            !around.intersects(polygonOf(other)))
            continue;
        const QPointF way = other.centre() - page.centre();
        found.emplace_back(std::hypot(way.x(), way.y()), candidate);
    }
    std::ranges::sort(found);
    std::vector<quint32> sheets;
    sheets.reserve(found.size());
    for (const auto &[distance, candidate] : found)
        sheets.push_back(candidate);
    return sheets;
}
