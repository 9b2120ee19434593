// SPDX-License-Identifier: GPL-2.0-or-later
// Puts sheets where their inserts stand, instead of where their blocks are drawn.
#include <kelo_base/dxf/SheetPlacing.h>

#include "dxf/sheets/stepcounter_p.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

using Plane = DxfPlacement::Plane;

constexpr quint32 kMostPoints = 100; ///< of one sheet
constexpr qint64 kMostVertices = qint64{1} << 27;
constexpr qint64 kMostGridSheets = qint64{1} << 18;

struct Turn
{
    double cosine = 1;
    double sine = 0;
};

Turn turnBy(double degrees)
{
    constexpr std::array<Turn, 4> kQuarters{Turn{1, 0}, Turn{0, 1}, Turn{-1, 0}, Turn{0, -1}};
    const double angle = std::remainder(degrees, 360); // -180 ... 180
    const double quarters = angle / 90;
    if (quarters == std::floor(quarters))
        return kQuarters[static_cast<std::size_t>(static_cast<int>(quarters) + 4) % 4];
    const double radians = angle * std::numbers::pi / 180;
    return {std::cos(radians), std::sin(radians)};
}

bool isFlat(const DxfPlacement &placement)
{
    return placement.plane == Plane::Upwards || placement.plane == Plane::Downwards;
}

/// Whether a polyline has as many vertices as a frame; whether it is one depends on its place.
bool mayBeFrame(const DxfPolyline &polyline)
{
    return polyline.vertexCount == 5 || (polyline.vertexCount == 4 && polyline.closed);
}

} // namespace

/// Makes the placed drawing out of the one read, with which it shares all texts and attributes.
class InsertPlacer
{
public:
    explicit InsertPlacer(const DxfDrawing &drawing)
        : m_from(drawing), m_newIndex(drawing.Blocks().size(), DxfInsert::kNoBlock)
    {
        m_to.m_bytes = drawing.m_bytes;
        m_to.m_texts = drawing.m_texts;
        m_to.m_attributes = drawing.m_attributes;
        m_to.m_nestedInserts = drawing.m_nestedInserts;
        m_to.m_shownNames = drawing.m_shownNames;
        m_to.m_version = drawing.m_version;
        m_to.m_codePage = drawing.m_codePage;
        m_to.m_encoding = drawing.m_encoding;
        m_to.m_numberTag = drawing.m_numberTag;
        m_to.m_isBinary = drawing.m_isBinary;
        m_to.m_isPlaced = true;
        m_to.learnEncoding();
        m_to.m_inserts.reserve(drawing.m_inserts.size());
        m_to.m_blocks.reserve(drawing.m_inserts.size());
        m_to.m_polylines.reserve(drawing.m_inserts.size());
        m_to.m_vertices.reserve(4 * drawing.m_inserts.size());
    }

    /// False when the drawing becomes too large.
    bool place(std::size_t index);
    [[nodiscard]] DxfDrawing take() { return std::move(m_to); }

private:
    bool append(DxfInsert insert, const DxfBlock &block, const PlaneMap *map);
    bool appendPolyline(const DxfPolyline &polyline, quint32 room, const PlaneMap *map);
    void keep(DxfInsert insert, DxfPlacement::Plane plane);

    const DxfDrawing &m_from;
    DxfDrawing m_to;
    qint64 m_gridSheets = 0;         ///< beside the first of each grid
    std::vector<quint32> m_newIndex; ///< of blocks that are not placed, once they are needed
};

bool InsertPlacer::place(std::size_t index)
{
    const DxfInsert &insert = m_from.Inserts()[index];
    const DxfBlock *block = m_from.BlockOf(insert);
    const DxfPlacement placement = m_from.Placement(index);
    if (!block || block->polylineCount == 0 || !isFlat(placement)) {
        keep(insert, placement.plane);
        return true;
    }
    const DxfVertex basePoint = m_from.BasePoint(*block);
    for (int row = 0; row < placement.rows; ++row) {
        for (int column = 0; column < placement.columns; ++column) {
            const PlaneMap map = MapOf(placement, basePoint, column, row);
            if (!append(insert, *block, &map))
                keep(insert, Plane::Unreadable);
            m_gridSheets += row + column > 0 ? 1 : 0;
            if (m_to.m_vertices.size() > kMostVertices || m_gridSheets > kMostGridSheets)
                return false;
        }
    }
    return true;
}

/// An insert that stays where its block is drawn; all such inserts of a block share it.
void InsertPlacer::keep(DxfInsert insert, DxfPlacement::Plane plane)
{
    if (plane != Plane::Upwards) {
        m_to.m_shapes.push_back({});
        m_to.m_shapes.back().plane = plane;
        m_to.m_shapeOfInsert.resize(m_to.m_inserts.size());
        m_to.m_shapeOfInsert.push_back(static_cast<quint32>(m_to.m_shapes.size() - 1));
    }
    if (insert.block == DxfInsert::kNoBlock) {
        m_to.m_inserts.push_back(insert);
        return;
    }
    quint32 &known = m_newIndex[insert.block];
    if (known == DxfInsert::kNoBlock) {
        known = static_cast<quint32>(m_to.m_blocks.size());
        append(insert, m_from.m_blocks[insert.block], nullptr);
        return;
    }
    insert.block = known;
    m_to.m_inserts.push_back(insert);
}

/// False, and nothing appended, when a vertex would lie beyond all numbers.
/// @param map  null: as the block is drawn
bool InsertPlacer::append(DxfInsert insert, const DxfBlock &block, const PlaneMap *map)
{
    const qsizetype firstVertex = m_to.m_vertices.size();
    const qsizetype firstPolyline = m_to.m_polylines.size();
    const auto polylines = m_from.Polylines(block);
    const bool hasFrame = std::ranges::any_of(polylines, mayBeFrame);
    const qsizetype most = firstVertex + kMostPoints;
    bool isFinite = true;
    for (const DxfPolyline &polyline : polylines)
        if ((!hasFrame || mayBeFrame(polyline)) && m_to.m_vertices.size() < most)
            isFinite = appendPolyline(polyline, static_cast<quint32>(most - m_to.m_vertices.size()),
                                      map) &&
                       isFinite;
    if (!isFinite) {
        m_to.m_vertices.resize(firstVertex);
        m_to.m_polylines.resize(firstPolyline);
        return false;
    }
    insert.block = static_cast<quint32>(m_to.m_blocks.size());
    m_to.m_inserts.push_back(insert);
    m_to.m_blocks.push_back(
        {.name = block.name,
         .firstPolyline = static_cast<quint32>(firstPolyline),
         .polylineCount = static_cast<quint32>(m_to.m_polylines.size() - firstPolyline),
         .line = block.line});
    return true;
}

/// False when a vertex lies beyond all numbers.
bool InsertPlacer::appendPolyline(const DxfPolyline &polyline, quint32 room, const PlaneMap *map)
{
    const quint32 count = std::min(polyline.vertexCount, room);
    const bool isMirrored = map && polyline.mirrored;
    m_to.m_polylines.push_back({.firstVertex = static_cast<quint32>(m_to.m_vertices.size()),
                                .vertexCount = count,
                                .closed = polyline.closed && count == polyline.vertexCount,
                                .mirrored = !map && polyline.mirrored});
    bool isFinite = true;
    for (DxfVertex vertex : m_from.Vertices(polyline).first(count)) {
        if (isMirrored)
            vertex.x = -vertex.x;
        if (map)
            vertex = (*map)(vertex);
        isFinite = isFinite && std::isfinite(vertex.x) && std::isfinite(vertex.y);
        m_to.m_vertices.push_back(vertex);
    }
    return isFinite;
}

PlaneMap MapOf(const DxfPlacement &placement, DxfVertex basePoint, int column, int row)
{
    const auto [cosine, sine] = turnBy(placement.angle);
    const double side = placement.plane == Plane::Downwards ? -1 : 1;
    const double x = column * placement.columnSpacing;
    const double y = row * placement.rowSpacing;
    return {.basePoint = basePoint,
            .xx = side * cosine * placement.scaleX,
            .yx = sine * placement.scaleX,
            .xy = -side * sine * placement.scaleY,
            .yy = cosine * placement.scaleY,
            .origin = {side * (placement.position.x + cosine * x - sine * y),
                       placement.position.y + sine * x + cosine * y}};
}

bool IsMoved(const DxfDrawing &drawing, std::size_t insert)
{
    const DxfBlock *block = drawing.BlockOf(drawing.Inserts()[insert]);
    if (!block || drawing.IsPlaced())
        return false;
    const DxfPlacement placement = drawing.Placement(insert);
    const bool isGrid = placement.rows > 1 || placement.columns > 1;
    const PlaneMap map = MapOf(placement, drawing.BasePoint(*block));
    return isGrid || map.origin != map.basePoint || map.xx != 1 || map.yx != 0 || map.xy != 0 ||
           map.yy != 1 || !isFlat(placement);
}

PlacingResult PlaceInserts(const DxfDrawing &drawing, const PlanProgress &progress)
{
    const std::size_t inserts = drawing.Inserts().size();
    PlacingResult result;
    InsertPlacer placer(drawing);
    StepCounter steps(progress, inserts);
    for (std::size_t insert = 0; insert < inserts && result; ++insert) {
        result.tooLarge = !placer.place(insert);
        result.cancelled = !steps.step();
    }
    if (result)
        result.drawing = placer.take();
    return result;
}
