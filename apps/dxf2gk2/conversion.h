// SPDX-License-Identifier: GPL-2.0-or-later
// The way of one plan: read, analyse, write, draw.
#pragma once

#include "options.h"
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <optional>

class ProgressBar;

struct Failure
{
    qint64 line = 0; ///< 0: none
    QString message;
};

/// What became of one plan.
struct Conversion
{
    QString plan;
    DxfDrawing drawing;
    SheetAnalysis analysis; ///< its diagnostics begin with those of reading
    QString output;         ///< where the sheets were written; empty when they were not
    qint64 written = 0;
    std::optional<Failure> failure;
};

/// Converts one plan as the options say; lists are left to the caller.
Conversion convert(const Options &options, const QString &plan, ProgressBar &bar);
