// SPDX-License-Identifier: GPL-2.0-or-later
// A point of a document view in up to three coordinate systems at once.
#pragma once

#include <QPointF>
#include <QtGlobal>
#include <algorithm>
#include <limits>

namespace docwindow {

/// A point as pixel of the view, as place on the document page and as place on the map. Who fills
/// it says which of the three it knows; the others stay null (0, 0).
/// Programs know it as DocWindowXIfc::UCoord.
class UCoord
{
public:
    enum CoordType : int {
        ctDevice = 1, ///< pixels of the view widget, y growing downwards
        ctDocument,   ///< units of the document page
        ctGeo,        ///< metres of the map's coordinate system, x east, y north
        ctAll         ///< for IsValid() only
    };

    constexpr UCoord() = default;
    constexpr UCoord(const QPoint &device) : devicePoint(device) {}
    constexpr UCoord(int x, int y) : devicePoint(x, y) {}
    /// Sets the document or the geo point; with any other type the point stays null everywhere.
    constexpr UCoord(const QPointF &point, CoordType type)
    {
        if (type == ctDocument)
            docPoint = point;
        else if (type == ctGeo)
            geoPoint = point;
    }

    /// Whether the point is known in that system, that is, not null; ctAll asks for all three. The
    /// null point itself counts as unknown; a type that does not exist counts as known.
    [[nodiscard]] constexpr bool IsValid(CoordType type) const
    {
        switch (type) {
        case ctDevice:
            return !devicePoint.isNull();
        case ctDocument:
            return !docPoint.isNull();
        case ctGeo:
            return !geoPoint.isNull();
        case ctAll:
            return IsValid(ctDevice) && IsValid(ctDocument) && IsValid(ctGeo);
        }
        return true;
    }

    /// Subtracts in all three systems. Pixels that would leave the range of int stop at its ends.
    constexpr UCoord &operator-=(const UCoord &other)
    {
        devicePoint = {difference(devicePoint.x(), other.devicePoint.x()),
                       difference(devicePoint.y(), other.devicePoint.y())};
        docPoint -= other.docPoint;
        geoPoint -= other.geoPoint;
        return *this;
    }
    friend constexpr UCoord operator-(UCoord left, const UCoord &right) { return left -= right; }

    /// The same place on the document page, on purpose whatever the other two points are: the
    /// distances along x and y add up to less than 0.001. No number equals nothing.
    friend constexpr bool operator==(const UCoord &left, const UCoord &right)
    {
        return (left.docPoint - right.docPoint).manhattanLength() < 0.001;
    }

    QPoint devicePoint;
    QPointF docPoint;
    QPointF geoPoint;

private:
    static constexpr int difference(int left, int right)
    {
        using Int = std::numeric_limits<int>;
        return static_cast<int>(std::clamp<qint64>(qint64{left} - right, Int::min(), Int::max()));
    }
};

} // namespace docwindow
