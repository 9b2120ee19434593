// SPDX-License-Identifier: GPL-2.0-or-later
// What a plan offers for the fields of its filter.
#include "dxf/read/readertext_p.h"
#include "dxf/sheets/insertfilter_p.h"
#include "dxf/workbench/attributecompletion_p.h"
#include <algorithm>
#include <functional>
#include <kelo_base/core/NaturalOrder.h>
#include <optional>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::size_t kMostValues = 10'000;

/// The text to enter so that a filter finds these bytes; nothing when there is no such text.
std::optional<QString> enterable(const DxfDrawing &drawing, std::string_view bytes)
{
    constexpr std::size_t kLongest = 200;
    if (bytes.size() > kLongest)
        return std::nullopt;
    const QString text = drawing.DisplayText(bytes);
    return WantedText(drawing, text).matches(bytes) ? std::optional(text) : std::nullopt;
}

} // namespace

std::vector<AttributeOffer> dxftools::offerTags(const DxfDrawing &drawing)
{
    std::vector<AttributeOffer> offers;
    for (const TagUse &use : CollectTags(drawing))
        if (const auto tag = enterable(drawing, use.tag))
            offers.push_back({.text = *tag, .inserts = use.inserts});
    std::ranges::stable_sort(offers, std::ranges::greater(), &AttributeOffer::inserts);
    return offers;
}

std::vector<AttributeOffer> dxftools::offerValues(const DxfDrawing &drawing, const QString &tag)
{
    const WantedText wanted(drawing, tag);
    std::unordered_map<std::string_view, qint64> uses;
    for (const DxfInsert &insert : drawing.Inserts()) {
        const auto value = wanted.valueIn(insert);
        if (!value || !dxftools::hasPolylines(drawing, insert))
            continue;
        if (uses.size() < kMostValues)
            ++uses[*value];
        else if (const auto known = uses.find(*value); known != uses.end())
            ++known->second;
    }
    std::vector<AttributeOffer> offers;
    for (const auto &[bytes, inserts] : uses)
        if (const auto value = enterable(drawing, bytes))
            offers.push_back({.text = *value, .inserts = inserts});
    std::ranges::sort(offers, caseSensitiveNaturalOrderLessThen, &AttributeOffer::text);
    return offers;
}

QString OfferModel::textOf(const AttributeOffer &offer)
{
    //: %1 is a tag or a value of attributes
    const QString text = offer.inserts == 1
                             ? tr("%1 (1 insert)")
                             : tr("%1 (%n inserts)", nullptr, textAmount(offer.inserts));
    return text.arg(offer.text.isEmpty() ? tr("(empty)") : offer.text);
}

void OfferModel::setOffers(std::vector<AttributeOffer> offers)
{
    if (offers == m_offers) // a list that pops up would lose its place
        return;
    beginResetModel();
    m_offers = std::move(offers);
    endResetModel();
}

int OfferModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_offers.size());
}

QVariant OfferModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const AttributeOffer &offer = m_offers[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return textOf(offer);
    case Qt::EditRole:
        return offer.text;
    default:
        return {};
    }
}
