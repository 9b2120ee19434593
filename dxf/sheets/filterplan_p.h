// SPDX-License-Identifier: GPL-2.0-or-later
// From the fields of a filter to the filter, and to the reason why it leaves nothing.
#pragma once

#include <QString>
#include <kelo_base/dxf/SheetSelection.h>

/// What stands in the fields that ask for a filter.
struct FilterFields
{
    bool includes = false; ///< "Only include blocks WITH" is checked
    QString includeTag;
    QString includeValue;
    bool excludes = false; ///< "Do not include blocks WITH" is checked
    QString excludeTag;
    friend bool operator==(const FilterFields &, const FilterFields &) = default;
};

namespace dxftools {

/// Texts are taken as typed, blanks included. A checked box counts even beside empty fields.
[[nodiscard]] SheetFilter filterOf(const FilterFields &fields);

/// Why SelectSheets() chooses nothing, in one plain sentence without a full stop; empty when it
/// does choose some. Names the step at which the last ones were lost, and where a text only differs
/// by case or blanks around it from one in the plan, that one.
[[nodiscard]] QString whyNoSheets(const DxfDrawing &drawing, const SheetFilter &filter);

} // namespace dxftools
