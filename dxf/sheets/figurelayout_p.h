// SPDX-License-Identifier: GPL-2.0-or-later
// Pieces of laying out that a picture on paper and one to zoom in have in common.
#pragma once

#include <kelo_base/dxf/SheetPreview.h>

inline constexpr double kCharacterWidth = 0.62; ///< of a text's height, on average

namespace dxftools {

/// Moves all points of the figure, then scales them, then moves them to the origin. The number is
/// left behind.
void moveFigure(SheetFigure &figure, QPointF shift, double scale, QPointF origin);

/// Smaller numbers cannot be read in a picture, in pixels of the page.
[[nodiscard]] double leastTextHeight(const SheetPicture &picture);

/// Direction and size of the number: along the frame's lower edge, never upside down.
/// @param least, most  its height in pixels; one that has to be smaller is not written
/// @param beside  room for something beside it, in characters
void placeNumber(SheetFigure &figure, double least, double most, double beside = 0);

/// The longest of 1, 2, 5, 10, ... that is not longer than @p most, which is above 0.
[[nodiscard]] double roundLength(double most);

} // namespace dxftools
