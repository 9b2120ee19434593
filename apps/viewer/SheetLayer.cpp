// SPDX-License-Identifier: GPL-2.0-or-later
// Fetches the sheets from the session, and packs them by place.
#include "SheetLayer.h"

#include <cmath>
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetCorners.h>
#include <kelo_base/dxf/SheetSelection.h>
#include <numbers>
#include <utility>

namespace {

constexpr std::size_t kPack = 64;

/// Where an export puts it, too.
QPointF pointOf(DxfVertex vertex)
{
    return {vertex.x, vertex.y};
}

bool isLabelled(const DxfDrawing &drawing, const DxfPolyline &line)
{
    return HasCorners(CornersOf(drawing, line));
}

double cross(QPointF a, QPointF b)
{
    return a.x() * b.y() - a.y() * b.x();
}

} // namespace

QPointF SheetFrame::centre() const
{
    return (m_corners[0] + m_corners[1] + m_corners[2] + m_corners[3]) / 4;
}

QSizeF SheetFrame::pageSize() const
{
    const QPointF top = m_corners[1] - m_corners[0];
    const QPointF left = m_corners[3] - m_corners[0];
    return {std::hypot(top.x(), top.y()), std::hypot(left.x(), left.y())};
}

double SheetFrame::angle() const
{
    const QPointF top = m_corners[1] - m_corners[0];
    return std::atan2(top.y(), top.x()) * 180 / std::numbers::pi;
}

QPointF SheetFrame::toPage(QPointF map) const
{
    const QPointF top = m_corners[1] - m_corners[0];
    const QPointF left = m_corners[3] - m_corners[0];
    const double area = cross(top, left);
    if (area == 0 || !std::isfinite(area))
        return {};
    const QPointF offset = map - m_corners[0];
    const QSizeF size = pageSize();
    return {cross(offset, left) / area * size.width(), cross(top, offset) / area * size.height()};
}

QPointF SheetFrame::toMap(QPointF page) const
{
    const QSizeF size = pageSize();
    if (size.width() <= 0 || size.height() <= 0)
        return m_corners[0];
    return m_corners[0] + (m_corners[1] - m_corners[0]) * (page.x() / size.width()) +
           (m_corners[3] - m_corners[0]) * (page.y() / size.height());
}

bool SheetFrame::contains(QPointF map) const
{
    return QPolygonF(QList<QPointF>(m_corners.begin(), m_corners.end()))
        .containsPoint(map, Qt::OddEvenFill);
}

void SheetLayer::build(const PlanSession &session)
{
    m_session = &session;
    const auto count = static_cast<quint32>(m_session->Sheets().size());
    m_count = count;
    m_bounds = {};
    std::vector<SheetPlaceOnMap> places;
    places.reserve(count);
    for (quint32 sheet = 0; sheet < count; ++sheet) {
        places.push_back({boundsOf(sheet), sheet});
        m_bounds.add(places.back().bounds);
    }
    std::vector<std::pair<quint32, quint32>> order; // place on the curve, index
    order.reserve(count);
    for (quint32 sheet = 0; sheet < count; ++sheet)
        order.emplace_back(curvePlace(places[sheet].bounds.centre(), m_bounds), sheet);
    std::ranges::sort(order);
    m_places.clear();
    m_places.reserve(count);
    m_packs.clear();
    for (const auto &[curve, sheet] : order) {
        if (m_places.size() % kPack == 0)
            m_packs.push_back({{}, static_cast<quint32>(m_places.size()), 0});
        m_places.push_back(places[sheet]);
        m_packs.back().bounds.add(places[sheet].bounds);
        m_packs.back().end = static_cast<quint32>(m_places.size());
    }
}

MapBounds SheetLayer::boundsOf(quint32 sheet) const
{
    const DxfDrawing &drawing = m_session->Drawing();
    MapBounds bounds;
    const DxfBlock *block = drawing.BlockOf(drawing.Inserts()[m_session->Sheets()[sheet]]);
    if (!block)
        return bounds;
    for (const DxfPolyline &line : drawing.Polylines(*block))
        for (const DxfVertex &vertex : drawing.Vertices(line))
            bounds.add(pointOf(vertex));
    return bounds;
}

void SheetLayer::collect(const MapBounds &area, std::vector<quint32> &sheets) const
{
    for (const Pack &pack : m_packs) {
        if (!pack.bounds.meets(area))
            continue;
        for (quint32 i = pack.first; i < pack.end; ++i)
            if (m_places[i].bounds.meets(area))
                sheets.push_back(m_places[i].sheet);
    }
}

QList<QPolygonF> SheetLayer::outlines(quint32 sheet) const
{
    const DxfDrawing &drawing = m_session->Drawing();
    QList<QPolygonF> lines;
    const DxfBlock *block = drawing.BlockOf(drawing.Inserts()[m_session->Sheets()[sheet]]);
    if (!block)
        return lines;
    const bool hasFrame = HasCorners(CornersOf(drawing, *block));
    for (const DxfPolyline &line : drawing.Polylines(*block)) {
        if (hasFrame && !isLabelled(drawing, line))
            continue;
        QPolygonF polygon;
        for (const DxfVertex &vertex : drawing.Vertices(line))
            polygon << pointOf(vertex);
        if (line.closed && !polygon.isEmpty())
            polygon << polygon.first();
        lines << polygon;
    }
    return lines;
}

std::optional<SheetFrame> SheetLayer::labelledFrame(quint32 sheet) const
{
    const DxfDrawing &drawing = m_session->Drawing();
    const DxfBlock *block = drawing.BlockOf(drawing.Inserts()[m_session->Sheets()[sheet]]);
    if (!block)
        return std::nullopt;
    const SheetCorners corners = CornersOf(drawing, *block);
    std::array<QPointF, 4> points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!corners[i])
            return std::nullopt;
        points[i] = {corners[i]->x, corners[i]->y};
    }
    return SheetFrame(points);
}

SheetFrame SheetLayer::frame(quint32 sheet) const
{
    if (const auto labelled = labelledFrame(sheet))
        return *labelled;
    const MapBounds bounds = boundsOf(sheet);
    return SheetFrame({QPointF(bounds.left, bounds.top),
                       {bounds.right, bounds.top},
                       {bounds.right, bounds.bottom},
                       {bounds.left, bounds.bottom}});
}

QString SheetLayer::number(quint32 sheet) const
{
    const DxfDrawing &drawing = m_session->Drawing();
    const auto text = SheetNumberText(drawing, drawing.Inserts()[m_session->Sheets()[sheet]]);
    return text ? drawing.DisplayText(*text).trimmed() : QString();
}

QString SheetLayer::title(quint32 sheet) const
{
    const QString text = number(sheet);
    if (!text.isEmpty())
        return text;
    const DxfDrawing &drawing = m_session->Drawing();
    return drawing.DisplayText(
        drawing.ShownBlockName(drawing.Inserts()[m_session->Sheets()[sheet]]));
}

std::optional<quint32> SheetLayer::sheetAt(QPointF map) const
{
    MapBounds point;
    point.add(map);
    std::vector<quint32> candidates;
    collect(point, candidates);
    std::optional<quint32> found;
    double smallest = HUGE_VAL;
    for (const quint32 sheet : candidates) {
        const SheetFrame page = frame(sheet);
        const double area = page.pageSize().width() * page.pageSize().height();
        const bool isSmaller = area < smallest || (area == smallest && sheet < *found);
        if (isSmaller && page.contains(map)) {
            smallest = area;
            found = sheet;
        }
    }
    return found;
}

std::optional<quint32> SheetLayer::sheetWithNumber(const QString &wanted) const
{
    for (quint32 sheet = 0; sheet < m_count; ++sheet)
        if (title(sheet) == wanted)
            return sheet;
    return std::nullopt;
}
