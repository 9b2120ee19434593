// SPDX-License-Identifier: GPL-2.0-or-later
// Which sheets join another, at which of its sides.
#pragma once

#include "SheetLayer.h"
#include <kelo_base/navigation/DocWindowXIfc.h>

/// The side or corner of @p page at which @p other lies, by the other's centre on the page: beyond
/// the left edge it is one of the left, and so on. Nothing when the centre is on the page.
[[nodiscard]] std::optional<DocWindowXIfc::PageSide> sideOf(const SheetFrame &page,
                                                            const SheetFrame &other);

/// The sheets that touch or overlap @p sheet, or nearly so (a twentieth of its size), at one side;
/// the nearest by its centre first.
[[nodiscard]] std::vector<quint32> neighboursAt(const SheetLayer &layer, quint32 sheet,
                                                DocWindowXIfc::PageSide side);
