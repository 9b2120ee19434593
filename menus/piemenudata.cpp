// SPDX-License-Identifier: GPL-2.0-or-later
// Lays a pie menu out when it is asked for, and keeps the layout until something changes.
#include "menus/piemenudata_p.h"

#include "menus/piegeometry_p.h"
#include <QFontMetricsF>
#include <QStyle>
#include <algorithm>
#include <iterator>

const pie::Layout &QtPieMenu::Data::layoutOf(const QtPieMenu &menu)
{
    const QPoint middle = menu.rect().center();
    if (!layout || layout->middle != middle) {
        outdate();
        layout = pie::Layout{middle, static_cast<double>(std::min(innerRadius, outerRadius)),
                             static_cast<double>(outerRadius), pie::centredBorders(items.weights())};
    }
    return *layout;
}

const std::vector<pie::Cell> &QtPieMenu::Data::fittedCells(const QtPieMenu &menu)
{
    const pie::Layout &ring = layoutOf(menu); // may outdate the cells
    if (std::ssize(cells) == items.count())
        return cells;
    const QFontMetricsF metrics(menu.font(), &menu);
    const int iconEdge = menu.style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, &menu);
    cells.clear();
    for (const QtPieItem *item : items) {
        cells.push_back({.text = item->text(),
                         .icon = item->icon(),
                         .isEnabled = item->isEnabled(),
                         .isSubMenu = item->type() == SubMenu,
                         .isCheckable = item->isCheckable(),
                         .isChecked = item->isChecked()});
    }
    pie::fitCells(cells, ring, metrics, iconEdge);
    return cells;
}

void QtPieMenu::Data::outdate()
{
    layout.reset();
    cells.clear();
}
