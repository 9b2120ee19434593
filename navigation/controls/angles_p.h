// SPDX-License-Identifier: GPL-2.0-or-later
// Angles on screen, in degrees: clockwise, 0 upwards.
#pragma once

#include <QPointF>
#include <cmath>
#include <numbers>

namespace navcontrols {

inline constexpr double kTurnStep = 15;    ///< of the wheel and the arrow keys
inline constexpr double kFineTurnStep = 1; ///< with Shift

/// The same direction above -180, up to 180; what is no number stays so.
[[nodiscard]] inline double normalizedAngle(double degrees)
{
    const double rest = std::remainder(degrees, 360);
    return rest == -180 ? 180 : rest;
}

/// Direction of an offset in pixels, y growing downwards; 0 for the null one.
[[nodiscard]] inline double directionOf(QPointF offset)
{
    if (offset.isNull())
        return 0;
    return normalizedAngle(std::atan2(offset.x(), -offset.y()) * 180 / std::numbers::pi);
}

/// By how much a pointer has gone around @p centre, the shorter way.
[[nodiscard]] inline double dragAngle(QPointF centre, QPointF from, QPointF to)
{
    return normalizedAngle(directionOf(to - centre) - directionOf(from - centre));
}

/// The multiple of @p step that is next to @p degrees in that sense; a step on from a multiple, and
/// from what is next to one but for rounding.
/// @param sense  above 0 clockwise
[[nodiscard]] inline double steppedAngle(double degrees, double step, int sense)
{
    constexpr double kRounding = 1e-3; // steps
    const double steps = degrees / step;
    const double next =
        sense > 0 ? std::floor(steps + kRounding) + 1 : std::ceil(steps - kRounding) - 1;
    return normalizedAngle(next * step);
}

/// Where north is on screen, when one pixel to the right and one down go so far on the map; no
/// number when they go along one line. In a view that is not mirrored it is its north angle.
/// @param right, down  metres, x to the east, y to the north
[[nodiscard]] inline double northDirection(QPointF right, QPointF down)
{
    const double area = right.x() * down.y() - right.y() * down.x();
    if (area == 0 || !std::isfinite(area))
        return std::nan("");
    // The pixels that lead (0, 1) metres on the map, by Cramer's rule.
    return directionOf({-down.x() / area, right.x() / area});
}

} // namespace navcontrols
