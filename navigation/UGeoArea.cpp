// SPDX-License-Identifier: GPL-2.0-or-later
// An area on the map: what a piece of a view shows, or what a path encloses.
#include "navigation/viewaccess_p.h"
#include "navigation/viewgeometry_p.h"
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <kelo_base/navigation/UGeoArea.h>

namespace docwindow {

namespace {

constexpr double kAngleTolerance = 0.001; ///< radians

/// What counts as nothing across a line, as part of the coordinates: some thousand times the
/// precision of their numbers, since points on a line are computed, and rounded.
constexpr double kFlatness = 1e-12;

/// Area of the parallelogram of two vectors.
double crossProduct(const QPointF &left, const QPointF &right)
{
    return left.x() * right.y() - left.y() * right.x();
}

} // namespace

UGeoArea::UGeoArea(QWidget *view, const QRect &device)
{
    if (device.isEmpty())
        return;
    const ViewAccess access(view);
    QPolygonF corners;
    for (UCoord corner :
         {device.topLeft(), device.topRight(), device.bottomRight(), device.bottomLeft()}) {
        if (!access.toGeo(corner))
            return;
        corners << corner.geoPoint;
    }
    setPolygon(std::move(corners));
}

UGeoArea::UGeoArea(const QPainterPath &path)
{
    QPolygonF outline = path.toFillPolygon();
    if (outline.isClosed())
        outline.removeLast();
    setPolygon(std::move(outline));
}

bool UGeoArea::IsGeoValid() const
{
    QPointF longest; // from the first corner
    double coordinate = 0;
    for (const QPointF &corner : m_polygon) {
        const QPointF vector = corner - m_polygon[0];
        if (magnitude(vector) > magnitude(longest))
            longest = vector;
        coordinate = std::max({coordinate, std::abs(corner.x()), std::abs(corner.y())});
    }
    const double flatArea = magnitude(longest) * coordinate * kFlatness;
    return std::any_of(m_polygon.cbegin(), m_polygon.cend(), [&](const QPointF &corner) {
        return std::abs(crossProduct(corner - m_polygon[0], longest)) > flatArea;
    });
}

/// Points that are not finite leave the area empty.
void UGeoArea::setPolygon(QPolygonF polygon)
{
    if (polygon.isEmpty() || !std::all_of(polygon.cbegin(), polygon.cend(), viewgeometry::isFinite))
        return;
    m_polygon = std::move(polygon);
    m_bounds = m_polygon.boundingRect();
    m_isRect = checkForRect();
    m_size = m_isRect ? QSizeF(magnitude(m_polygon[1] - m_polygon[0]),
                               magnitude(m_polygon[2] - m_polygon[1]))
                      : m_bounds.size();
}

bool UGeoArea::checkForRect() const
{
    if (m_polygon.size() != 4)
        return false;
    const QPointF &start = m_polygon[0];
    const QPointF sides[] = {m_polygon[1] - start, m_polygon[2] - m_polygon[1],
                             m_polygon[3] - m_polygon[2], start - m_polygon[3]};
    return isParallel(sides[0], sides[2]) && isParallel(sides[1], sides[3]) &&
           isOrthogonal(sides[0], sides[1]);
}

double UGeoArea::magnitude(const QPointF &vector)
{
    return std::hypot(vector.x(), vector.y());
}

double UGeoArea::normalizedScalarProduct(const QPointF &left, const QPointF &right)
{
    return QPointF::dotProduct(left, right) / (magnitude(left) * magnitude(right));
}

bool UGeoArea::isParallel(const QPointF &left, const QPointF &right)
{
    // 1 - cos(angle) is angle^2 / 2 for small angles
    constexpr double kCosine = 1 - kAngleTolerance * kAngleTolerance / 2;
    return std::abs(normalizedScalarProduct(left, right)) >= kCosine;
}

bool UGeoArea::isOrthogonal(const QPointF &left, const QPointF &right)
{
    return std::abs(normalizedScalarProduct(left, right)) <= kAngleTolerance;
}

} // namespace docwindow
