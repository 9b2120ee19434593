// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps the items of a pie menu in order.
#include "menus/pieitems_p.h"

#include <algorithm>
#include <kelo_base/menus/QtPieItem.h>

namespace pie {

QtPieItem *Items::at(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)] : nullptr;
}

int Items::indexOf(const QtPieItem *item) const
{
    const auto found = std::find(m_items.begin(), m_items.end(), item);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

int Items::insert(QtPieItem *item, int index)
{
    const int place = index >= 0 && index < count() ? index : count();
    m_items.insert(m_items.begin() + place, item);
    return place;
}

int Items::remove(const QObject *item)
{
    const auto found = std::find(m_items.begin(), m_items.end(), item);
    if (found == m_items.end())
        return -1;
    const int place = static_cast<int>(found - m_items.begin());
    m_items.erase(found);
    return place;
}

std::vector<int> Items::weights() const
{
    std::vector<int> weights;
    weights.reserve(m_items.size());
    for (const QtPieItem *item : m_items)
        weights.push_back(item->weight());
    return weights;
}

} // namespace pie
