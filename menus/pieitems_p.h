// SPDX-License-Identifier: GPL-2.0-or-later
// The items of a pie menu, in ring order.
#pragma once

#include <vector>

class QObject;
class QtPieItem;

namespace pie {

/// A list of items that belong to someone else. Indexes count from 0; -1 is none.
class Items
{
public:
    [[nodiscard]] int count() const { return static_cast<int>(m_items.size()); }
    /// Null when there is no such item.
    [[nodiscard]] QtPieItem *at(int index) const;
    [[nodiscard]] int indexOf(const QtPieItem *item) const;
    /// Puts the item before the one at @p index, at the end when there is none; returns its place.
    int insert(QtPieItem *item, int index);
    /// Takes the item out, which may be dying already; returns where it was, -1 when it was not.
    int remove(const QObject *item);

    [[nodiscard]] std::vector<int> weights() const;
    [[nodiscard]] auto begin() const { return m_items.begin(); }
    [[nodiscard]] auto end() const { return m_items.end(); }

private:
    std::vector<QtPieItem *> m_items;
};

/// Where the item at @p index is after another one was put at @p place.
[[nodiscard]] constexpr int afterInsertion(int index, int place)
{
    return index >= place ? index + 1 : index;
}
/// Where it is after the one at @p place was taken out; -1 when it was that one.
[[nodiscard]] constexpr int afterRemoval(int index, int place)
{
    return index == place ? -1 : index > place ? index - 1 : index;
}

} // namespace pie
