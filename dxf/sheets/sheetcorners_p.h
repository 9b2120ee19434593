// SPDX-License-Identifier: GPL-2.0-or-later
// The labelled corners of a sheet, for people to read.
#pragma once

#include <QStringList>
#include <array>
#include <kelo_base/dxf/DxfDrawing.h>

/// The corners in the order in which they are exported: top left, top right, bottom right, bottom
/// left. Null where none is labelled; of two with one label the later counts, as in the export.
using SheetCorners = std::array<const DxfVertex *, 4>;

/// The corners of all polylines of a block. The pointers are the drawing's.
[[nodiscard]] SheetCorners CornersOf(const DxfDrawing &drawing, const DxfBlock &block);

/// Two opposite corners, "0,00 2,00 – 3,00 0,00": where the sheet lies and how large it is. All
/// that there are when one of these two is missing; says so when there is none.
[[nodiscard]] QString CornersText(const SheetCorners &corners);

/// One line for each labelled corner: "Top left: 0,00 2,00".
[[nodiscard]] QStringList CornerLines(const SheetCorners &corners);
