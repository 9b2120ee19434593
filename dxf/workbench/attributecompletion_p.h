// SPDX-License-Identifier: GPL-2.0-or-later
// What a plan offers for the fields of its filter.
#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <kelo_base/dxf/SheetSelection.h>
#include <vector>

/// An attribute tag to choose.
struct TagOffer
{
    QString tag;
    qint64 inserts = 0; ///< how many carry it
    friend bool operator==(const TagOffer &, const TagOffer &) = default;
};

/// The tags of a drawing, the most used first. Only texts that can be entered and then filter
/// exactly: not those that are longer than anyone types, nor broken UTF-8.
[[nodiscard]] std::vector<TagOffer> OfferTags(const DxfDrawing &drawing);

/// The different values that inserts which can be sheets have under a tag, in natural order; none
/// for a tag that no such insert has. Of very many values the first 10,000 in the file, because a
/// completer looks through all of them at each key.
[[nodiscard]] QStringList OfferValues(const DxfDrawing &drawing, const QString &tag);

/// Tags for a completer: what is chosen is the tag (edit role), what is shown beside it (display
/// role) is how many inserts carry it.
class TagModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit TagModel(QObject *parent = nullptr) : QAbstractListModel(parent) {}

    /// Replaces all rows (a model reset).
    void setTags(std::vector<TagOffer> tags);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    [[nodiscard]] static QString textOf(const TagOffer &offer);

    std::vector<TagOffer> m_tags;
};
