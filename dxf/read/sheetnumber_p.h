// SPDX-License-Identifier: GPL-2.0-or-later
// The attribute that carries a sheet's number.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <optional>
#include <string_view>

inline constexpr std::string_view kSheetNumberTag{"BL_NR"};
inline constexpr std::string_view kOldSheetNumberTag{"Bl_Nr"};

[[nodiscard]] constexpr bool IsSheetNumberTag(std::string_view tag)
{
    return tag == kSheetNumberTag || tag == kOldSheetNumberTag;
}

/// The value under "BL_NR", else the one under "Bl_Nr"; no other tag is tried.
inline std::optional<std::string_view> SheetNumberAttribute(const DxfDrawing &drawing,
                                                            const DxfInsert &insert)
{
    const auto value = drawing.FindAttribute(insert, kSheetNumberTag);
    return value ? value : drawing.FindAttribute(insert, kOldSheetNumberTag);
}
