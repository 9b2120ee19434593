// SPDX-License-Identifier: GPL-2.0-or-later
// The sheets of a plan as a table for spreadsheet programs.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/spreadsheet/TableWriter.h>

class PlanSession;

/// Writes the chosen sheets that are marked: number as text, block, every attribute that one of
/// them has, and the corners as numbers, clockwise from top left. A second sheet has the findings,
/// if there are any. Titles are translated.
KELO_BASE_EXPORT spreadsheet::Result ExportSheetTable(const PlanSession &session,
                                                      spreadsheet::Target target);
