// SPDX-License-Identifier: GPL-2.0-or-later
// Chooses the inserts of a drawing that count as sheets, and puts them in order.
#include <kelo_base/dxf/SheetSelection.h>

#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/insertfilter_p.h"
#include "dxf/sheets/stepcounter_p.h"
#include <algorithm>
#include <charconv>
#include <limits>
#include <unordered_map>

namespace {

struct NumberedSheet
{
    qint64 number;
    quint32 insert;
    friend auto operator<=>(const NumberedSheet &, const NumberedSheet &) = default;
};

/// Most plans are in order already: only others need the memory for all numbers at once.
void sortByNumber(std::vector<quint32> &sheets, const DxfDrawing &drawing)
{
    std::vector<NumberedSheet> numbered(sheets.size());
    std::ranges::transform(sheets, numbered.begin(), [&](quint32 sheet) {
        return NumberedSheet{SheetNumber(drawing, drawing.Inserts()[sheet]), sheet};
    });
    std::ranges::sort(numbered);
    std::ranges::transform(numbered, sheets.begin(), &NumberedSheet::insert);
}

void noteValue(TagUse &use, std::string_view value)
{
    constexpr std::size_t kExamples = 3;
    ++use.inserts;
    if (use.examples.size() < kExamples &&
        std::ranges::find(use.examples, value) == use.examples.end())
        use.examples.push_back(value);
}

} // namespace

std::optional<std::vector<quint32>>
SelectSheets(const DxfDrawing &drawing, const SheetFilter &filter, const PlanProgress &progress)
{
    const InsertFilter wanted(filter, drawing);
    const auto inserts = drawing.Inserts();
    std::vector<quint32> sheets;
    bool isInOrder = true;
    qint64 last = -1;
    StepCounter steps(progress, inserts.size());
    for (quint32 index = 0; index < inserts.size(); ++index) {
        const DxfInsert &insert = inserts[index];
        if (dxftools::hasPolylines(drawing, insert) && wanted.passes(insert)) {
            sheets.push_back(index);
            const qint64 number = SheetNumber(drawing, insert);
            isInOrder = isInOrder && number >= last;
            last = number;
        }
        if (!steps.step())
            return std::nullopt;
    }
    if (!isInOrder)
        sortByNumber(sheets, drawing);
    return sheets;
}

std::optional<std::string_view> SheetNumberText(const DxfDrawing &drawing, const DxfInsert &insert)
{
    return dxftools::sheetNumberAttribute(drawing, insert);
}

qint64 SheetNumber(std::string_view text)
{
    const std::size_t begin = text.find_first_of("0123456789");
    if (begin == std::string_view::npos)
        return -1;
    qint64 number = 0;
    const auto [stop, error] =
        std::from_chars(text.data() + begin, text.data() + text.size(), number);
    return error == std::errc() ? number : std::numeric_limits<qint64>::max();
}

qint64 SheetNumber(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const auto text = dxftools::sheetNumberAttribute(drawing, insert);
    return text ? SheetNumber(*text) : -1;
}

std::vector<TagUse> CollectTags(const DxfDrawing &drawing)
{
    std::vector<TagUse> tags;
    std::unordered_map<quint32, std::size_t> indexOfTag;
    for (const DxfInsert &insert : drawing.Inserts()) {
        for (const DxfAttribute &attribute : drawing.Attributes(insert)) {
            const auto [entry, isNew] = indexOfTag.try_emplace(attribute.tag, tags.size());
            if (isNew)
                tags.push_back({.tag = drawing.Tag(attribute), .inserts = 0, .examples = {}});
            noteValue(tags[entry->second], drawing.Value(attribute));
        }
    }
    return tags;
}
