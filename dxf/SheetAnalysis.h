// SPDX-License-Identifier: GPL-2.0-or-later
// Analyses a drawing: labels the sheet corners, chooses the sheets, notes what a user should know.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/PlanFinding.h>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetSelection.h>
#include <optional>
#include <vector>

/// What an export will make of a drawing.
struct SheetAnalysis
{
    std::vector<quint32> sheets; ///< as SelectSheets() gives them
    /// One for each block that is not exactly one rectangle and is used by a chosen insert, each
    /// block with inserts that the export skips for want of a sheet number, each sheet without a
    /// polyline, each sheet number used twice, each sheet inside a block, each sheet of a placed
    /// drawing that could not be placed. Of a kind that has more than a thousand, the last tells
    /// how many there are beside them. In a drawing that is not placed, one note each for sheets
    /// with the same corners and for those that their inserts move.
    std::vector<PlanFinding> diagnostics;
    qint64 warnings = 0; ///< the warnings, all counted
    qint64 skipped = 0;  ///< inserts the filter lets pass that lack a sheet number or a polyline
};

/// Labels the corners of all blocks. False when @p progress gave up.
KELO_BASE_EXPORT bool LabelSheets(DxfDrawing &drawing, CornerOrder order,
                                  const PlanProgress &progress = {});

/// Chooses the sheets of a drawing that is labelled already: when the user changes the filter.
/// @param file  the drawing's name in the diagnostics
/// @return nothing when @p progress gave up
[[nodiscard]] KELO_BASE_EXPORT std::optional<SheetAnalysis>
ReviewSheets(const DxfDrawing &drawing, const SheetFilter &filter, const QString &file,
             const PlanProgress &progress = {});

/// LabelSheets() and ReviewSheets() as one work.
[[nodiscard]] KELO_BASE_EXPORT std::optional<SheetAnalysis>
AnalyzeSheets(DxfDrawing &drawing, const SheetFilter &filter, CornerOrder order,
              const QString &file, const PlanProgress &progress = {});
