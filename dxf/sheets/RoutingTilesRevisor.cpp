// SPDX-License-Identifier: GPL-2.0-or-later
// Finds the rectangle that frames a sheet, and labels its corners.
#include <algorithm>
#include <cmath>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetCorners.h>

namespace {

constexpr double kSineOfHalfDegree = 0.0087265354983739347;
/// Decimal coordinates rarely hit 45 degrees to the last bit; this much above it, in radians, still
/// counts as 45.
constexpr double kDiagonalSlack = 1e-9;

struct Direction ///< unit length; zero where two vertices coincide
{
    double x = 0;
    double y = 0;
};
using Edges = std::array<Direction, 4>;

constexpr CornerLabels kCounterClockwiseFromBottomLeft{vpBottomLeft, vpBottomRight, vpTopRight,
                                                       vpTopLeft};

/// The four corners of a closed polyline, without the vertex that repeats the first.
std::optional<std::span<const DxfVertex, 4>> fourCorners(std::span<const DxfVertex> vertices,
                                                         bool closed)
{
    const bool repeatsFirst = vertices.size() == 5 && vertices.front() == vertices.back();
    if (!repeatsFirst && !(closed && vertices.size() == 4))
        return std::nullopt;
    return vertices.first<4>();
}

Direction direction(DxfVertex from, DxfVertex to)
{
    // Quarters, so that the distance of even the largest coordinates stays finite.
    const double x = to.x / 4 - from.x / 4;
    const double y = to.y / 4 - from.y / 4;
    const double length = std::hypot(x, y);
    return length > 0 ? Direction{x / length, y / length} : Direction{};
}

double cosine(Direction a, Direction b)
{
    return a.x * b.x + a.y * b.y;
}

double sine(Direction a, Direction b)
{
    return a.x * b.y - a.y * b.x;
}

/// Right angles everywhere, all turning the same way. A doubled vertex makes no right angle.
bool isRectangle(const Edges &edges)
{
    const double sense = sine(edges[0], edges[1]);
    for (std::size_t i = 0; i < 4; ++i) {
        const Direction next = edges[(i + 1) % 4];
        const bool isRight = std::abs(cosine(edges[i], next)) <= kSineOfHalfDegree;
        const bool turnsOn = sine(edges[i], next) * sense > 0;
        if (!isRight || !turnsOn)
            return false;
    }
    return true;
}

Direction quarterTurn(Direction d, bool counterClockwise)
{
    return counterClockwise ? Direction{-d.y, d.x} : Direction{d.y, -d.x};
}

/// Whether a sheet whose lower edge runs this way is turned by more than -45 and at most 45
/// degrees. Of a direction and its three quarter turns exactly one is: both borders are one
/// product.
bool runsRight(Direction d)
{
    constexpr double slope = 1 + 2 * kDiagonalSlack; // the tangent of 45 degrees and the slack
    return d.y <= d.x * slope && d.x > -d.y * slope;
}

CornerLabels uprightLabels(const Edges &edges)
{
    const bool counterClockwise = sine(edges[0], edges[1]) > 0;
    // The first edge's direction as all four see it, so that a frame that is a little askew gets
    // the same labels whichever of its edges comes first.
    const Direction a{edges[0].x - edges[2].x, edges[0].y - edges[2].y};
    const Direction b =
        quarterTurn({edges[1].x - edges[3].x, edges[1].y - edges[3].y}, !counterClockwise);
    Direction run{a.x + b.x, a.y + b.y};
    std::size_t first = 0; // the vertex where the edge begins that runs to the right
    while (first < 3 && !runsRight(run)) {
        run = quarterTurn(run, counterClockwise);
        ++first;
    }
    CornerLabels labels = counterClockwise ? kCounterClockwiseFromBottomLeft : kClockwiseCorners;
    std::rotate(labels.rbegin(), labels.rbegin() + static_cast<std::ptrdiff_t>(first),
                labels.rend());
    return labels;
}

} // namespace

std::optional<CornerLabels> LabelCorners(std::span<const DxfVertex> vertices, bool closed,
                                         CornerOrder order)
{
    const auto corners = fourCorners(vertices, closed);
    if (!corners)
        return std::nullopt;
    Edges edges;
    for (std::size_t i = 0; i < 4; ++i)
        edges[i] = direction((*corners)[i], (*corners)[(i + 1) % 4]);
    if (!isRectangle(edges))
        return std::nullopt;
    return order == CornerOrder::AsDrawn ? kClockwiseCorners : uprightLabels(edges);
}

std::size_t CountRectangles(const DxfDrawing &drawing, const DxfBlock &block)
{
    const auto isFrame = [&](const DxfPolyline &polyline) {
        return LabelCorners(drawing.Vertices(polyline), polyline.closed, CornerOrder::AsDrawn)
            .has_value();
    };
    return static_cast<std::size_t>(std::ranges::count_if(drawing.Polylines(block), isFrame));
}

bool HasLabelledFrame(const DxfDrawing &drawing, const DxfBlock &block)
{
    return std::ranges::any_of(drawing.Polylines(block), [&](const DxfPolyline &polyline) {
        return polyline.vertexCount >= 4 && drawing.Corner(polyline, 0) != vpUnknown;
    });
}

namespace GK {

CRoutingTilesRevisor::CRoutingTilesRevisor(DxfDrawing &drawing, CornerOrder order)
    : m_drawing(drawing), m_order(order)
{
    m_drawing.ClearCorners();
}

bool CRoutingTilesRevisor::ReviseBlock(std::size_t block)
{
    const DxfPolyline *frame = nullptr;
    CornerLabels labels{};
    for (const DxfPolyline &polyline : m_drawing.Polylines(m_drawing.Blocks()[block])) {
        const auto found = LabelCorners(m_drawing.Vertices(polyline), polyline.closed, m_order);
        if (!found)
            continue;
        if (frame)
            return false;
        frame = &polyline;
        labels = *found;
    }
    if (!frame)
        return false;
    for (quint32 vertex = 0; vertex < labels.size(); ++vertex)
        m_drawing.SetCorner(*frame, vertex, labels[vertex]);
    return true;
}

} // namespace GK
