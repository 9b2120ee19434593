// SPDX-License-Identifier: GPL-2.0-or-later
// The formulas of the view geometry, over numbers alone.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace viewgeometry {

/// @p value cut toward zero; the nearest end of the range where it does not fit, 0 for no number.
template <typename Int>
[[nodiscard]] Int truncated(double value)
{
    static_assert(std::is_integral_v<Int> && sizeof(Int) <= 4, "the ends must be exact as double");
    using Range = std::numeric_limits<Int>;
    if (std::isnan(value))
        return 0;
    return static_cast<Int>(
        std::clamp(value, static_cast<double>(Range::min()), static_cast<double>(Range::max())));
}

/// How a default is stored: without what is behind the point; a negative value as the very large
/// one with the same 32 bits, which limited() then brings down to the upper limit.
[[nodiscard]] inline unsigned int storedDefault(double value)
{
    return value < 0 ? static_cast<unsigned int>(truncated<int>(value))
                     : truncated<unsigned int>(value);
}

/// @p value between the limits; the lower one for no number, which std::clamp would let through.
[[nodiscard]] constexpr double limited(double low, double value, double high)
{
    return std::min(std::max(low, value), high);
}

[[nodiscard]] inline bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

constexpr double kNeverZero = 0.001; ///< metres by which a diagonal on the map is longer

/// What a view shows between two opposite corners.
struct Diagonals
{
    double onMap;    ///< metres, kNeverZero longer than measured
    double onScreen; ///< metres
};

/// @param map     from corner to corner on the map, in metres
/// @param pixels  from corner to corner on the screen
/// @param dpi     physical dots per inch along x and y
[[nodiscard]] inline Diagonals diagonals(QPointF map, QPointF pixels, QSizeF dpi)
{
    constexpr double kInchesPerMetre = 39.37007874015748;
    const double dotsPerMetre = std::sqrt(dpi.width() * dpi.height()) * kInchesPerMetre;
    return {.onMap = std::hypot(map.x(), map.y()) + kNeverZero,
            .onScreen = std::hypot(pixels.x(), pixels.y()) / dotsPerMetre};
}

/// Denominator of the scale at which the map stands on the screen; -1 for a view without area or
/// screen.
[[nodiscard]] inline double mapScale(const Diagonals &view)
{
    const double scale = (view.onMap - kNeverZero) / view.onScreen;
    return scale > 0 && std::isfinite(scale) ? scale : -1;
}

/// The eye that looks at the map and at the screen.
struct Eye
{
    double tangent;  ///< of half the opening angle
    double distance; ///< from the screen, in metres
};

/// @param fieldOfView  full opening angle in degrees, used within 0.1 ... 179.9
/// @param centimetres  distance from the screen, used within 5 ... 800
[[nodiscard]] inline Eye limitedEye(double fieldOfView, double centimetres)
{
    constexpr double kHalfDegree = 0.008726646259971648; // radians
    return {.tangent = std::tan(limited(0.1, fieldOfView, 179.9) * kHalfDegree),
            .distance = limited(5, centimetres, 800) * 0.01};
}

/// A quantity estimated in two ways; -1 for what cannot be computed.
struct Estimate
{
    double byFieldOfView = -1;
    double byEyeDistance = -1;
    double combined = -1;
    double deviation = 0;
};

/// Geometric mean of both ways, and half the distance of the pair (x, y) from (mean, mean). What is
/// not above 0 and finite comes from a view without area or screen, and counts as not computed.
[[nodiscard]] inline Estimate combine(double byFieldOfView, double byEyeDistance)
{
    const auto isComputed = [](double value) { return value > 0 && std::isfinite(value); };
    Estimate result;
    if (isComputed(byFieldOfView))
        result.byFieldOfView = byFieldOfView;
    if (isComputed(byEyeDistance))
        result.byEyeDistance = byEyeDistance;
    const double mean = std::sqrt(byFieldOfView * byEyeDistance);
    if (isComputed(mean)) {
        result.combined = mean;
        result.deviation = std::hypot(mean - byFieldOfView, mean - byEyeDistance) * 0.5;
    }
    return result;
}

/// Height above ground in metres. Half the diagonal over the tangent of half the angle: the right
/// triangle eye, middle, corner. And the eye's distance enlarged as the map is from the screen.
[[nodiscard]] inline Estimate estimateHeight(const Diagonals &view, const Eye &eye)
{
    return combine(view.onMap * 0.5 / eye.tangent, view.onMap / view.onScreen * eye.distance);
}

/// The desired height over the estimated one, each of the two ways.
[[nodiscard]] inline Estimate estimateZoomRatio(const Diagonals &view, const Eye &eye,
                                                double desiredHeight)
{
    if (!(desiredHeight > 0))
        return {};
    return combine(2 * desiredHeight * eye.tangent / view.onMap,
                   desiredHeight / eye.distance * view.onScreen / view.onMap);
}

/// Angle in degrees between a vector to the right of the screen and its image on the map, negative
/// when the image points south; no number when the image is null or not finite.
///
/// This is the arccosine of the normalised scalar product. The arctangent gives the same to all
/// digits also where the cosine is flat, near 0 and 180, and never has an argument above 1.
[[nodiscard]] inline double northAngle(QPointF map)
{
    constexpr double kDegreesPerRadian = 57.29577951308232;
    if (map.isNull() || !isFinite(map))
        return std::numeric_limits<double>::quiet_NaN();
    const double angle = std::atan2(std::abs(map.y()), map.x()) * kDegreesPerRadian;
    return map.y() < 0 ? -angle : angle;
}

} // namespace viewgeometry
