// SPDX-License-Identifier: GPL-2.0-or-later
// The number that identifies the content of a document list.
#include <bit>
#include <kelo_base/navigation/UDocItem.h>

namespace docwindow {

namespace {

/// FNV-1a over bytes, 64 bits wide, numbers low byte first: the same on every system.
class ContentHash
{
public:
    void addNumber(quint64 number, int bytes)
    {
        for (; bytes > 0; --bytes, number >>= 8U)
            m_hash = (m_hash ^ (number & 0xFFU)) * 0x100000001B3U;
    }
    void addReal(double real)
    {
        addNumber(std::bit_cast<quint64>(real + 0.0), 8); // + 0.0: -0 is the same place as 0
    }
    /// The length goes first, lest "ab", "c" be "a", "bc".
    void addText(const QString &text)
    {
        addNumber(static_cast<quint64>(text.size()), 8);
        for (const QChar unit : text)
            addNumber(unit.unicode(), 2);
    }
    void addCoord(const UCoord &coord)
    {
        addNumber(static_cast<quint32>(coord.devicePoint.x()), 4);
        addNumber(static_cast<quint32>(coord.devicePoint.y()), 4);
        for (const QPointF &point : {coord.docPoint, coord.geoPoint}) {
            addReal(point.x());
            addReal(point.y());
        }
    }
    /// Both halves laid over each other; the upper ones of 32 bits become negative numbers.
    [[nodiscard]] int folded() const { return static_cast<int>(m_hash ^ (m_hash >> 32U)); }

private:
    quint64 m_hash = 0xCBF29CE484222325U;
};

} // namespace

bool UDocItem::IsValid() const
{
    return documentNumber >= 1 && documentNumber <= kMaxDocumentNumber && !fileName.isEmpty();
}

const UDocItem &UDocItemList::operator[](int index) const
{
    static const UDocItem none;
    return index >= 0 && index < m_items.size() ? m_items.at(index) : none;
}

UDocItemList &UDocItemList::operator<<(UDocItem item)
{
    m_items.push_back(std::move(item));
    return *this;
}

bool UDocItemList::Insert(int index, UDocItem item)
{
    if (index < 0 || index > Size())
        return false;
    m_items.insert(index, std::move(item));
    if (currentIndex >= index)
        ++currentIndex;
    return true;
}

bool UDocItemList::Replace(int index, UDocItem item)
{
    if (index < 0 || index >= Size())
        return false;
    m_items[index] = std::move(item);
    return true;
}

bool UDocItemList::Remove(int index)
{
    if (index < 0 || index >= Size())
        return false;
    m_items.removeAt(index);
    if (currentIndex == index)
        currentIndex = -1;
    else if (currentIndex > index)
        --currentIndex;
    return true;
}

int UDocItemList::BuildHashID() const
{
    ContentHash hash;
    for (const UDocItem &item : m_items) {
        for (const QString &text : {item.fileName, item.title, item.description})
            hash.addText(text);
        for (const qint32 number :
             {item.documentNumber, item.pageNumber, item.rotation, item.scale})
            hash.addNumber(static_cast<quint32>(number), 4);
        hash.addCoord(item.position);
    }
    return hash.folded();
}

} // namespace docwindow
