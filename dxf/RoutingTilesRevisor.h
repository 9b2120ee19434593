// SPDX-License-Identifier: GPL-2.0-or-later
// Finds the rectangle that frames a sheet, and labels its corners.
#pragma once

#include <array>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <optional>
#include <span>

/// How the corners of a frame get their labels.
enum class CornerOrder {
    Upright, ///< by where they lie, whatever vertex the frame begins with and whichever way round
    AsDrawn  ///< in drawing order: top left, top right, bottom right, bottom left
};

/// The labels of a frame's first four vertices, in drawing order.
using CornerLabels = std::array<VtxPosition, 4>;

/// Labels the corners of a polyline; nothing when it is no rectangle.
/// A rectangle is closed, by its flag or by a last vertex equal to the first, and has four distinct
/// vertices beside that repeated one, with right angles to within half a degree.
/// Upright, a sheet is read from the side that turns it by at most 45 degrees; one that stands at
/// 45 degrees exactly counts as turned counter-clockwise.
[[nodiscard]] KELO_BASE_EXPORT std::optional<CornerLabels>
LabelCorners(std::span<const DxfVertex> vertices, bool closed, CornerOrder order);

/// How many of the block's polylines are rectangles.
[[nodiscard]] KELO_BASE_EXPORT std::size_t CountRectangles(const DxfDrawing &drawing,
                                                           const DxfBlock &block);

/// Whether the block has a frame with labelled corners.
[[nodiscard]] KELO_BASE_EXPORT bool HasLabelledFrame(const DxfDrawing &drawing,
                                                     const DxfBlock &block);

namespace GK {

/// Labels the sheet corners of a drawing block by block, so that its caller can show progress and
/// stop between blocks.
class KELO_BASE_EXPORT CRoutingTilesRevisor
{
public:
    /// Begins anew: takes all labels of the drawing away. @p drawing must outlive the revisor.
    explicit CRoutingTilesRevisor(DxfDrawing &drawing, CornerOrder order = CornerOrder::Upright);

    /// Labels the frame of one block, counted as in DxfDrawing::Blocks(). False, and no label set,
    /// when its polylines are not exactly one rectangle.
    bool ReviseBlock(std::size_t block);

private:
    DxfDrawing &m_drawing;
    CornerOrder m_order;
};

} // namespace GK
