// SPDX-License-Identifier: GPL-2.0-or-later
// The attribute that carries a sheet's number.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <optional>
#include <string_view>

/// The value under "BL_NR", else the one under "Bl_Nr"; no other tag is tried.
inline std::optional<std::string_view> SheetNumberAttribute(const DxfDrawing &drawing,
                                                            const DxfInsert &insert)
{
    const auto value = drawing.FindAttribute(insert, "BL_NR");
    return value ? value : drawing.FindAttribute(insert, "Bl_Nr");
}
