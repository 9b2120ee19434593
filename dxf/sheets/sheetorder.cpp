// SPDX-License-Identifier: GPL-2.0-or-later
// All that can be sheets of a drawing, in the orders in which people look for one.
#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/sheetorder_p.h"
#include <algorithm>
#include <kelo_base/core/NaturalOrder.h>
#include <kelo_base/dxf/SheetCorners.h>
#include <kelo_base/dxf/SheetSelection.h>
#include <numeric>
#include <tuple>

namespace {

std::vector<quint32> sheetsByNumber(const DxfDrawing &drawing)
{
    return SelectSheets(drawing, {}).value(); // nobody gives up
}

/// Sorts stably; most plans are in order already.
template <typename T, typename Less>
void sortStably(std::vector<T> &items, Less less)
{
    if (!std::ranges::is_sorted(items, less))
        std::ranges::stable_sort(items, less);
}

/// The positions of the texts in their natural order. All are put into one string first: sorting
/// asks for each some twenty times, and a million strings of their own would take much memory.
std::vector<quint32> naturalOrder(const DxfDrawing &drawing,
                                  const std::vector<std::string_view> &texts)
{
    struct Entry
    {
        qsizetype begin;
        quint32 size;
        quint32 position;
    };
    QString all;
    std::vector<Entry> entries;
    entries.reserve(texts.size());
    for (quint32 position = 0; position < texts.size(); ++position) {
        const qsizetype begin = all.size();
        all += drawing.DisplayText(texts[position]);
        entries.push_back({begin, static_cast<quint32>(all.size() - begin), position});
    }
    const auto textOf = [data = all.constData()](const Entry &entry) {
        return QString::fromRawData(data + entry.begin, entry.size);
    };
    sortStably(entries, [textOf](const Entry &a, const Entry &b) {
        return caseSensitiveNaturalOrderLessThen(textOf(a), textOf(b));
    });
    std::vector<quint32> positions(entries.size());
    std::ranges::transform(entries, positions.begin(), &Entry::position);
    return positions;
}

/// The sheets in the order of their blocks. @param blocks  all blocks of the drawing
std::vector<quint32> sheetsInOrderOf(const std::vector<quint32> &blocks, const DxfDrawing &drawing)
{
    std::vector<quint32> rankOf(blocks.size());
    for (quint32 rank = 0; rank < blocks.size(); ++rank)
        rankOf[blocks[rank]] = rank;
    const auto rankOfSheet = [&](quint32 sheet) { return rankOf[drawing.Inserts()[sheet].block]; };
    std::vector<quint32> sheets = sheetsByNumber(drawing);
    sortStably(sheets, [&](quint32 a, quint32 b) { return rankOfSheet(a) < rankOfSheet(b); });
    return sheets;
}

} // namespace

std::vector<quint32> dxftools::sheetsByValue(const DxfDrawing &drawing)
{
    const std::vector<quint32> sheets = sheetsByNumber(drawing);
    std::vector<std::string_view> values(sheets.size());
    std::ranges::transform(sheets, values.begin(), [&](quint32 sheet) {
        return dxftools::sheetNumberAttribute(drawing, drawing.Inserts()[sheet]).value_or("");
    });
    std::vector<quint32> order = naturalOrder(drawing, values);
    std::ranges::transform(order, order.begin(), [&](quint32 i) { return sheets[i]; });
    return order;
}

std::vector<quint32> dxftools::sheetsByBlock(const DxfDrawing &drawing)
{
    std::vector<std::string_view> names(drawing.Blocks().size());
    std::ranges::transform(drawing.Blocks(), names.begin(),
                           [&](const DxfBlock &block) { return drawing.ShownName(block); });
    return sheetsInOrderOf(naturalOrder(drawing, names), drawing);
}

std::vector<quint32> dxftools::sheetsByCorners(const DxfDrawing &drawing)
{
    struct Place
    {
        DxfVertex first;
        bool hasCorners;
    };
    std::vector<Place> places;
    places.reserve(drawing.Blocks().size());
    for (const DxfBlock &block : drawing.Blocks()) {
        const SheetCorners corners = CornersOf(drawing, block);
        const auto *const first =
            std::ranges::find_if(corners, [](const auto &c) { return c.has_value(); });
        const bool hasCorners = first != corners.end();
        places.push_back({hasCorners ? **first : DxfVertex{}, hasCorners});
    }
    std::vector<quint32> blocks(places.size());
    std::iota(blocks.begin(), blocks.end(), 0U);
    const auto keyOf = [&](quint32 block) {
        const Place &place = places[block];
        return std::tuple(place.hasCorners, place.first.x, place.first.y);
    };
    sortStably(blocks, [&](quint32 a, quint32 b) { return keyOf(a) < keyOf(b); });
    return sheetsInOrderOf(blocks, drawing);
}
