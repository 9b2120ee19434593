// SPDX-License-Identifier: GPL-2.0-or-later
// What a plan offers for the fields of its filter.
#include "dxf/read/readertext_p.h"
#include "dxf/sheets/insertfilter_p.h"
#include "dxf/workbench/attributecompletion_p.h"
#include <algorithm>
#include <functional>
#include <kelo_base/core/NaturalOrder.h>
#include <optional>
#include <unordered_set>

namespace {

constexpr std::size_t kMostValues = 10'000;

/// The text to enter so that a filter finds these bytes; nothing when there is no such text.
std::optional<QString> enterable(const DxfDrawing &drawing, std::string_view bytes)
{
    constexpr std::size_t kLongest = 200;
    if (bytes.size() > kLongest)
        return std::nullopt;
    const QString text = drawing.DisplayText(bytes);
    const auto found = BytesIn(drawing, text);
    return found && ViewOf(*found) == bytes ? std::optional(text) : std::nullopt;
}

} // namespace

std::vector<TagOffer> OfferTags(const DxfDrawing &drawing)
{
    std::vector<TagOffer> offers;
    for (const TagUse &use : CollectTags(drawing))
        if (const auto tag = enterable(drawing, use.tag))
            offers.push_back({.tag = *tag, .inserts = use.inserts});
    std::ranges::stable_sort(offers, std::ranges::greater(), &TagOffer::inserts);
    return offers;
}

QStringList OfferValues(const DxfDrawing &drawing, const QString &tag)
{
    const auto tagBytes = BytesIn(drawing, tag);
    if (!tagBytes)
        return {};
    QStringList values;
    std::unordered_set<std::string_view> known;
    for (const DxfInsert &insert : drawing.Inserts()) {
        if (known.size() == kMostValues)
            break;
        const auto bytes = drawing.FindAttribute(insert, ViewOf(*tagBytes));
        const bool isNew = bytes && HasPolylines(drawing, insert) && known.insert(*bytes).second;
        if (!isNew)
            continue;
        if (const auto value = enterable(drawing, *bytes))
            values << *value;
    }
    std::ranges::sort(values, caseSensitiveNaturalOrderLessThen);
    return values;
}

QString TagModel::textOf(const TagOffer &offer)
{
    //: %1 is an attribute tag
    const QString text = offer.inserts == 1
                             ? tr("%1 (1 insert)")
                             : tr("%1 (%n inserts)", nullptr, textAmount(offer.inserts));
    return text.arg(offer.tag);
}

void TagModel::setTags(std::vector<TagOffer> tags)
{
    beginResetModel();
    m_tags = std::move(tags);
    endResetModel();
}

int TagModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_tags.size());
}

QVariant TagModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TagOffer &offer = m_tags[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return textOf(offer);
    case Qt::EditRole:
        return offer.tag;
    default:
        return {};
    }
}
