// SPDX-License-Identifier: GPL-2.0-or-later
// What a plan offers for the fields of its filter.
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <kelo_base/dxf/SheetSelection.h>
#include <vector>

/// A tag or a value to choose.
struct AttributeOffer
{
    QString text;
    qint64 inserts = 0; ///< how many carry it
    friend bool operator==(const AttributeOffer &, const AttributeOffer &) = default;
};

namespace dxftools {

/// The tags of a drawing, the most used first. Only texts that can be entered and then filter
/// exactly: not those that are longer than anyone types, nor broken UTF-8.
[[nodiscard]] std::vector<AttributeOffer> offerTags(const DxfDrawing &drawing);

/// The different values that inserts which can be sheets have under a tag, in natural order; none
/// for a tag that no such insert has. Of very many values the first 10,000 in the file, because a
/// completer looks through all of them at each key.
[[nodiscard]] std::vector<AttributeOffer> offerValues(const DxfDrawing &drawing,
                                                      const QString &tag);

} // namespace dxftools

/// Offers for a completer: what is chosen is the text (edit role), what is shown beside it (display
/// role) is how many inserts carry it.
class OfferModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit OfferModel(QObject *parent = nullptr) : QAbstractListModel(parent) {}

    /// Replaces all rows (a model reset).
    void setOffers(std::vector<AttributeOffer> offers);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    [[nodiscard]] static QString textOf(const AttributeOffer &offer);

    std::vector<AttributeOffer> m_offers;
};
