// SPDX-License-Identifier: GPL-2.0-or-later
// A document known to the viewer, and a list of such documents.
#pragma once

#include <QList>
#include <QString>
#include <kelo_base/core/Export.h>
#include <kelo_base/navigation/UCoord.h>

namespace docwindow {

/// A document and, where that matters, the view of it to be shown: a neighbour of the current
/// sheet, a linked plan, a stored view of a presentation.
/// Programs know it as DocWindowXIfc::UDocItem.
class KELO_BASE_EXPORT UDocItem
{
public:
    static constexpr qint32 kMaxDocumentNumber = 16'777'215;

    QString fileName;           ///< what the viewer opens; an item without it is not valid
    QString title;              ///< what people read; empty: show the file name
    QString description;        ///< more for people to read, for example as a tool tip
    qint32 documentNumber = -1; ///< the viewer's number, 1 ... kMaxDocumentNumber; -1: none yet
    qint32 pageNumber = -1;     ///< counted from 0; -1: no particular page, the first is shown
    qint32 rotation = 0;        ///< NorthAngle() of the stored view, in whole degrees
    qint32 scale = 1; ///< denominator of its map scale, 25000 for 1 : 25000; 1: none stored
    UCoord position;  ///< middle of the stored view; all null: the whole page

    /// Whether the viewer can show it: it has a file name and a number in the range above.
    [[nodiscard]] bool IsValid() const;
};

/// Documents in the order in which people shall see them. Holds the items by value.
/// Programs know it as DocWindowXIfc::UDocItemList.
class KELO_BASE_EXPORT UDocItemList
{
public:
    [[nodiscard]] int Size() const { return static_cast<int>(m_items.size()); }
    /// The item at @p index, counted from 0; one that is not valid when there is none.
    [[nodiscard]] const UDocItem &operator[](int index) const;
    UDocItemList &operator<<(UDocItem item);
    // The next three fail, and change nothing, when there is no such index. The current item stays
    // the current one, at whatever index it is then.

    /// Puts @p item before the one at @p index; Size() appends.
    bool Insert(int index, UDocItem item);
    bool Replace(int index, UDocItem item);
    /// Without the current item there is no current index.
    bool Remove(int index);
    /// Back to a list as just constructed.
    void Clear() { *this = UDocItemList(); }

    /// A number made of all fields of all items in their order: a control that remembers it sees
    /// whether it has to be filled anew. Equal items give the same number in every process and on
    /// every system. Neither the owner nor the current item is part of it.
    [[nodiscard]] int BuildHashID() const;

    [[nodiscard]] auto begin() const { return m_items.cbegin(); }
    [[nodiscard]] auto end() const { return m_items.cend(); }

    qint32 ownerNumber = -1;  ///< number of the document whose neighbours, links or views these are
    qint32 currentIndex = -1; ///< the item shown at present; -1: none of them

private:
    QList<UDocItem> m_items;
};

} // namespace docwindow
