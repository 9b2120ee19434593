// SPDX-License-Identifier: GPL-2.0-or-later
// The attribute that carries a sheet's number.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <optional>
#include <string_view>

inline constexpr std::string_view kSheetNumberTag{"BL_NR"};
inline constexpr std::string_view kOldSheetNumberTag{"Bl_Nr"};

/// Whether a sheet's number is looked for under this tag.
[[nodiscard]] inline bool isSheetNumberTag(const DxfDrawing &drawing, std::string_view tag)
{
    if (const std::string_view other = drawing.NumberTag(); !other.empty())
        return tag == other;
    return tag == kSheetNumberTag || tag == kOldSheetNumberTag;
}

namespace dxftools {

/// The value under "BL_NR", else the one under "Bl_Nr"; no other tag is tried unless the drawing
/// has one of its own, which then is the only one.
inline std::optional<std::string_view> sheetNumberAttribute(const DxfDrawing &drawing,
                                                            const DxfInsert &insert)
{
    if (const std::string_view other = drawing.NumberTag(); !other.empty())
        return drawing.FindAttribute(insert, other);
    const auto value = drawing.FindAttribute(insert, kSheetNumberTag);
    return value ? value : drawing.FindAttribute(insert, kOldSheetNumberTag);
}

} // namespace dxftools
