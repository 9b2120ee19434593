// SPDX-License-Identifier: GPL-2.0-or-later
// The labelled corners of a sheet, in the one order in which everybody names them.
#include <algorithm>
#include <kelo_base/dxf/SheetCorners.h>

namespace {

void takeCorners(SheetCorners &corners, const DxfDrawing &drawing, const DxfPolyline &polyline)
{
    const auto vertices = drawing.Vertices(polyline);
    for (quint32 i = 0; i < vertices.size(); ++i) {
        const auto *place = std::ranges::find(kClockwiseCorners, drawing.Corner(polyline, i));
        if (place != kClockwiseCorners.end())
            corners[static_cast<std::size_t>(place - kClockwiseCorners.begin())] = vertices[i];
    }
}

} // namespace

SheetCorners CornersOf(const DxfDrawing &drawing, const DxfPolyline &polyline)
{
    SheetCorners corners;
    takeCorners(corners, drawing, polyline);
    return corners;
}

SheetCorners CornersOf(const DxfDrawing &drawing, const DxfBlock &block)
{
    SheetCorners corners;
    for (const DxfPolyline &polyline : drawing.Polylines(block))
        takeCorners(corners, drawing, polyline);
    return corners;
}

bool HasCorners(const SheetCorners &corners)
{
    return std::ranges::any_of(corners, [](const auto &corner) { return corner.has_value(); });
}
