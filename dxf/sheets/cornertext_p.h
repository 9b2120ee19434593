// SPDX-License-Identifier: GPL-2.0-or-later
// The corners of a sheet for people to read.
#pragma once

#include <QStringList>
#include <kelo_base/dxf/SheetCorners.h>

namespace dxftools {

/// Two opposite corners, "0,00 2,00 – 3,00 0,00": where the sheet lies and how large it is. All
/// that there are when one of these two is missing; says so when there is none.
[[nodiscard]] QString cornersText(const SheetCorners &corners);

/// One line for each labelled corner: "Top left: 0,00 2,00".
[[nodiscard]] QStringList cornerLines(const SheetCorners &corners);

} // namespace dxftools
