// SPDX-License-Identifier: GPL-2.0-or-later
// What an export changes against the file that was there before, as the dialog tells it.
#pragma once

#include <kelo_base/dxf/Gk2Reader.h>
#include <kelo_base/dxf/PlanFinding.h>
#include <kelo_base/dxf/SheetPreview.h>
#include <vector>

struct PlanChanges
{
    std::vector<PlanFinding> findings; ///< a note for each; those of sheets lead to them
    std::vector<ChangedSheet> sheets;
    qint64 gone = 0;
    QString summary; ///< "2 new, 1 gone", or that nothing changed
};

namespace dxftools {

/// @param older  the records that were there before
[[nodiscard]] PlanChanges changesAgainst(std::span<const Gk2Record> older,
                                         const DxfDrawing &drawing, std::span<const quint32> sheets,
                                         double tolerance);

} // namespace dxftools
