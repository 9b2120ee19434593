// SPDX-License-Identifier: GPL-2.0-or-later
// An area on the map: what a piece of a view shows, or what a path encloses.
#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <kelo_base/core/Export.h>

class QPainterPath;
class QWidget;

namespace docwindow {

/// An area in metres of the map's coordinate system: its outline, whether that is a rectangle
/// (turned or not), and its size.
/// Programs know it as DocWindowXIfc::UGeoArea.
class KELO_BASE_EXPORT UGeoArea
{
public:
    UGeoArea() = default;
    /// What @p view (null: the primary one) shows between the corner pixels of @p device. Empty
    /// when @p device is, and when the view cannot convert one of them or knows no finite place.
    UGeoArea(QWidget *view, const QRect &device);
    /// What a path in metres of the map encloses, curves taken as short lines.
    explicit UGeoArea(const QPainterPath &path);

    void Reset() { *this = UGeoArea(); }
    /// Whether it has three corners or more that are not on one line, as far as numbers of that
    /// size can tell: a width of 0.01 mm counts at coordinates of 5,000 km, less of it nearer to 0.
    [[nodiscard]] bool IsGeoValid() const;
    /// Size in metres: the first two sides of a rectangle, however it is turned (of a view: along
    /// and across its screen); else the size of Bounds(). An empty area gives -1 x -1.
    [[nodiscard]] QSizeF QSzGeo() const { return m_size; }

    /// Four corners with right angles, within 0.001 (0.06 degrees).
    [[nodiscard]] bool IsRect() const { return m_isRect; }
    /// The corners, the first one not repeated; of a view: its top left, top right, bottom right,
    /// bottom left.
    [[nodiscard]] const QPolygonF &Polygon() const { return m_polygon; }
    /// The upright rectangle around the corners. With y growing to the north, its top() is south.
    [[nodiscard]] QRectF Bounds() const { return m_bounds; }

private:
    void setPolygon(QPolygonF polygon);
    [[nodiscard]] bool checkForRect() const;

    static double magnitude(const QPointF &vector);
    /// Cosine of the angle between two vectors; no number when one of them is null.
    static double normalizedScalarProduct(const QPointF &left, const QPointF &right);
    static bool isParallel(const QPointF &left, const QPointF &right);
    static bool isOrthogonal(const QPointF &left, const QPointF &right);

    QPolygonF m_polygon;
    QRectF m_bounds;
    QSizeF m_size;
    bool m_isRect = false;
};

} // namespace docwindow
