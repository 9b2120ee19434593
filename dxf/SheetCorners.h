// SPDX-License-Identifier: GPL-2.0-or-later
// The labelled corners of a sheet, in the one order in which everybody names them.
#pragma once

#include <array>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <optional>

/// Clockwise from top left, and not in the order of their numbers.
inline constexpr std::array kClockwiseCorners{vpTopLeft, vpTopRight, vpBottomRight, vpBottomLeft};

/// In the order of kClockwiseCorners; nothing where none is labelled.
using SheetCorners = std::array<std::optional<DxfVertex>, kClockwiseCorners.size()>;

/// The corners of one polyline; of two with one label the later counts.
[[nodiscard]] KELO_BASE_EXPORT SheetCorners CornersOf(const DxfDrawing &drawing,
                                                      const DxfPolyline &polyline);
/// The corners of all polylines of a block; of two with one label the later counts.
[[nodiscard]] KELO_BASE_EXPORT SheetCorners CornersOf(const DxfDrawing &drawing,
                                                      const DxfBlock &block);
[[nodiscard]] KELO_BASE_EXPORT bool HasCorners(const SheetCorners &corners);
