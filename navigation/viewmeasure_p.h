// SPDX-License-Identifier: GPL-2.0-or-later
// What a view tells of itself: two conversions a measurement, and no more.
#pragma once

#include "navigation/viewgeometry_p.h"
#include <optional>

class QWidget;

namespace viewgeometry {

/// Between the top left and the bottom right pixel of a view's rectangle; x and y, and lengths.
struct MeasuredDiagonals : Diagonals
{
    QPointF map; ///< metres
    QPointF pixels;
};

/// Through the middle of the view, one pixel inside of its edges, from the left to the right.
struct Midline
{
    QPointF map; ///< metres
    double pixels;
};

// Nothing when the view (null: the primary one) does not tell.

[[nodiscard]] std::optional<MeasuredDiagonals> measuredDiagonals(QWidget *view);
/// Nothing for a view less than four pixels wide, too.
[[nodiscard]] std::optional<Midline> measuredMidline(QWidget *view);

} // namespace viewgeometry
