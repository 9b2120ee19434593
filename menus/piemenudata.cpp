// SPDX-License-Identifier: GPL-2.0-or-later
// Lays a pie menu out when it is asked for, and keeps the layout until something changes.
#include "menus/piemenudata_p.h"

#include "menus/piegeometry_p.h"
#include <QFontMetricsF>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int kDigits = 9;

QFontMetricsF metricsOf(const QWidget &widget)
{
    return QFontMetricsF(widget.font(), &widget);
}

int largestIcon(const QWidget &widget)
{
    return widget.style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, &widget);
}

} // namespace

const pie::Layout &QtPieMenu::Data::layoutOf(const QtPieMenu &menu)
{
    const QPoint middle = menu.rect().center();
    if (!layout || layout->middle != middle) {
        outdateLayout();
        layout =
            pie::Layout{middle, static_cast<double>(std::min(innerRadius, outerRadius)),
                        static_cast<double>(outerRadius), pie::centredBorders(items.weights())};
    }
    return *layout;
}

const std::vector<pie::Cell> &QtPieMenu::Data::fittedCells(const QtPieMenu &menu)
{
    const pie::Layout &ring = layoutOf(menu); // may outdate the cells
    makeCells(menu);
    if (!areCellsFitted)
        pie::fitCells(cells, ring, metricsOf(menu), largestIcon(menu));
    areCellsFitted = true;
    return cells;
}

int QtPieMenu::Data::grownRadius(const QtPieMenu &menu, QSize screen)
{
    makeCells(menu);
    pie::Layout ring = layoutOf(menu);
    ring.outerRadius = leastOuterRadius;
    ring.innerRadius = std::min(innerRadius, leastOuterRadius);
    const int most =
        std::max((std::min(screen.width(), screen.height()) - 1) / 2, leastOuterRadius);
    return static_cast<int>(
        std::ceil(pie::radiusForCells(cells, ring, most, metricsOf(menu), largestIcon(menu))));
}

void QtPieMenu::Data::makeCells(const QtPieMenu &menu)
{
    if (std::ssize(cells) == items.count())
        return;
    areCellsFitted = false;
    cells.clear();
    for (const QtPieItem *item : items) {
        const int place = static_cast<int>(cells.size()) + 1;
        const bool isPickable = item->isEnabled() && item->weight() > 0;
        const int digit = showsDigits && isPickable && place <= kDigits ? place : 0;
        cells.push_back(pie::makeCell(*item, digit, metricsOf(menu)));
    }
}

void QtPieMenu::Data::outdate()
{
    outdateLayout();
    cells.clear();
}

void QtPieMenu::Data::outdateLayout()
{
    layout.reset();
    areCellsFitted = false;
}
