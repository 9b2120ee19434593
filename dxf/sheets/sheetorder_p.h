// SPDX-License-Identifier: GPL-2.0-or-later
// All that can be sheets of a drawing, in the orders in which people look for one.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <vector>

/// Each gives the indices into DxfDrawing::Inserts() of those whose block has a polyline. What is
/// equal stands as in the export.

namespace dxftools {

/// By the text of the sheet number in natural order; those without one first.
[[nodiscard]] std::vector<quint32> sheetsByValue(const DxfDrawing &drawing);
/// By block name in natural order.
[[nodiscard]] std::vector<quint32> sheetsByBlock(const DxfDrawing &drawing);
/// From left to right by the top left corner, then upwards; those without corners first, because
/// they are the ones to look at.
[[nodiscard]] std::vector<quint32> sheetsByCorners(const DxfDrawing &drawing);

} // namespace dxftools
