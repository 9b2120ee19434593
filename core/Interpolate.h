// SPDX-License-Identifier: GPL-2.0-or-later
// Linear interpolation between two points.
#pragma once

namespace qor {

/// The y at @p x on the straight line through (x0, y0) and (x1, y1): y0 + (y1 - y0) / (x1 - x0) *
/// (x - x0), evaluated in this order. Outside x0 ... x1 the line goes on; x0 equal to x1 gives a
/// value that is no number or infinite.
[[nodiscard]] constexpr double InterpolateValueLinear(double x0, double y0, double x1, double y1,
                                                      double x)
{
    return y0 + (y1 - y0) / (x1 - x0) * (x - x0);
}

} // namespace qor
