// SPDX-License-Identifier: GPL-2.0-or-later
// Puts sheets where their inserts stand, instead of where their blocks are drawn.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/SheetSelection.h>

/// A point of a block onto its place in the drawing: first to the base point, then turned and
/// scaled, then to the origin.
struct PlaneMap
{
    DxfVertex basePoint;
    double xx = 1; ///< the column that x is multiplied by, then the one for y
    double yx = 0;
    double xy = 0;
    double yy = 1;
    DxfVertex origin;

    [[nodiscard]] DxfVertex operator()(DxfVertex point) const
    {
        const double x = point.x - basePoint.x;
        const double y = point.y - basePoint.y;
        // The zero at the end makes a zero of each negative one.
        return {xx * x + xy * y + origin.x + 0.0, yx * x + yy * y + origin.y + 0.0};
    }
};

/// Where an insert of a grid of one or more puts the points of its block. Scaled along the block's
/// axes, then moved within the grid, then turned, then moved to the position; seen from below, at
/// last, x changes its sign: by the arbitrary axis algorithm the x axis of a plane that faces down
/// is the drawing's, reversed. Quarter turns are exact.
/// @param column, row  counted from 0
[[nodiscard]] KELO_BASE_EXPORT PlaneMap MapOf(const DxfPlacement &placement, DxfVertex basePoint,
                                              int column = 0, int row = 0);

/// Whether the insert, counted as in DxfDrawing::Inserts(), puts its block anywhere else than where
/// that is drawn. Never in a placed drawing.
[[nodiscard]] KELO_BASE_EXPORT bool IsMoved(const DxfDrawing &drawing, std::size_t insert);

struct [[nodiscard]] PlacingResult
{
    DxfDrawing drawing;
    bool cancelled = false; ///< the caller's progress function said so; there is no drawing
    /// Rows and columns make more than 2^18 sheets, or there are more than 2^27 vertices; there is
    /// no drawing.
    bool tooLarge = false;
    explicit operator bool() const { return !cancelled && !tooLarge; }
};

/// The drawing with a block for each insert, whose vertices lie where the insert puts them: so
/// labels belong to the insert. An insert with rows and columns is as many inserts with the same
/// attributes, row by row. Of a block only what may be its frame is kept; without that, as much as
/// shows what the block holds. Inserts whose plane is tilted, or whose numbers are none, are left
/// where they are, and DxfDrawing::Placement() still tells why.
KELO_BASE_EXPORT PlacingResult PlaceInserts(const DxfDrawing &drawing,
                                            const PlanProgress &progress = {});
