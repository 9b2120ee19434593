// SPDX-License-Identifier: GPL-2.0-or-later
// Reads DXF plans, ASCII and binary, from R10 to today.
#pragma once

#include <QString>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/PlanFinding.h>
#include <kelo_base/dxf/PlanProgress.h>
#include <optional>
#include <vector>

class QIODevice;

struct DxfReadError
{
    QString file;
    qint64 line = 0; ///< counted from 1; 0 when the fault concerns the file as a whole
    QString message; ///< what was wrong, for the user, without file and line
};

struct [[nodiscard]] DxfReadResult
{
    DxfDrawing drawing;                   ///< complete, or empty when there is an error
    std::vector<PlanFinding> diagnostics; ///< faults that did not hinder reading, in file order
    std::optional<DxfReadError> error;
    bool cancelled = false; ///< the caller's progress function said so; error is set too
    explicit operator bool() const { return !error; }
};

/// What the user knows better than the plan.
struct DxfReadOptions
{
    QString encoding =
        {}; ///< of the plan's texts, see DxfDrawing::SetEncoding(); empty: as it says
    QString numberTag = {}; ///< see DxfDrawing::NumberTag(); empty: the usual ones
};

/// Reads the plan in @p path. A file that does not exist gives "File '%1' does not exist"; so does
/// an encoding that is not known give an error.
KELO_BASE_EXPORT DxfReadResult ReadDxfFile(const QString &path, const PlanProgress &progress = {},
                                           const DxfReadOptions &options = {});

/// Reads a plan from an open device to its end. @p name stands for it in messages.
KELO_BASE_EXPORT DxfReadResult ReadDxf(QIODevice &device, const QString &name,
                                       const PlanProgress &progress = {},
                                       const DxfReadOptions &options = {});
