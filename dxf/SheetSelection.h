// SPDX-License-Identifier: GPL-2.0-or-later
// Chooses the inserts of a drawing that count as sheets, and puts them in order.
#pragma once

#include <QString>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/PlanProgress.h>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// Which inserts the user wants. Texts match whole and case-sensitively, byte by byte: as UTF-8 in
/// a drawing whose texts are UTF-8, as Latin-1 in an older one, where a text that Latin-1 cannot
/// hold matches nothing.
struct SheetFilter
{
    struct Attribute
    {
        QString tag;
        QString value;
    };
    std::optional<Attribute> include; ///< "Only include blocks WITH" this value under this tag
    std::optional<QString>
        excludeTag; ///< "Do not include blocks WITH" this tag, whatever its value
};

/// The sheets: indices into DxfDrawing::Inserts(). Chosen are inserts whose block exists and has a
/// polyline, as far as the filter lets them pass; ascending by sheet number, equal numbers in file
/// order. Nothing when @p progress gave up.
[[nodiscard]] KELO_BASE_EXPORT std::optional<std::vector<quint32>>
SelectSheets(const DxfDrawing &drawing, const SheetFilter &filter,
             const PlanProgress &progress = {});

/// The sheet number as it stands in the drawing: the value under "BL_NR", else under "Bl_Nr".
[[nodiscard]] KELO_BASE_EXPORT std::optional<std::string_view>
SheetNumberText(const DxfDrawing &drawing, const DxfInsert &insert);

/// The number to sort by: the first run of ASCII digits, "A12b" gives 12; -1 when there is none. A
/// run too long for the integer gives the largest one, so that ascending stays ascending.
[[nodiscard]] KELO_BASE_EXPORT qint64 SheetNumber(std::string_view text);
[[nodiscard]] KELO_BASE_EXPORT qint64 SheetNumber(const DxfDrawing &drawing,
                                                  const DxfInsert &insert);

/// One attribute tag of a drawing. The views are the drawing's.
struct TagUse
{
    std::string_view tag;
    qint64 inserts = 0;                     ///< how many carry it
    std::vector<std::string_view> examples; ///< its first different values, at most three
};

/// The tags of all inserts in the order they first occur, for someone who has to choose a filter.
[[nodiscard]] KELO_BASE_EXPORT std::vector<TagUse> CollectTags(const DxfDrawing &drawing);
