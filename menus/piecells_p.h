// SPDX-License-Identifier: GPL-2.0-or-later
// What the sectors of a pie menu show, fitted into them.
#pragma once

#include "menus/pielayout_p.h"
#include <QIcon>
#include <QRect>
#include <QString>
#include <vector>

class QFontMetricsF;
class QtPieItem;

namespace pie {

/// What one sector shows.
struct Cell
{
    QStringList texts; ///< with "&": in one line, and perhaps broken into two
    QIcon icon;
    bool isEnabled = true;
    bool isCheckable = false;
    bool isChecked = false;
    int digit = 0; ///< that picks the item; 0: none is shown
    Wish wish;

    Label label = {}; ///< these four: see fitCells()
    QString shown = {};
    bool isElided = false;
    QPainterPath outline = {};
};

/// @param digit  that picks the item; 0 when it is not to be shown
[[nodiscard]] Cell makeCell(const QtPieItem &item, int digit, const QFontMetricsF &metrics);

/// Places the labels on one circle, with one size of icons for all: the largest, unless smaller
/// ones let more texts be seen. Texts are broken into two lines where one has no room, then elided.
void fitCells(std::vector<Cell> &cells, const Layout &layout, const QFontMetricsF &metrics,
              double largestIcon);
/// The smallest outer radius from that of @p layout to @p most at which nothing is elided and icons
/// are as large as they may be.
[[nodiscard]] double radiusForCells(const std::vector<Cell> &cells, const Layout &layout,
                                    double most, const QFontMetricsF &metrics, double largestIcon);

/// Edge of the square in which a tick is painted.
[[nodiscard]] double tickEdge(const QFontMetricsF &metrics);
/// Size of the digits at the rim, as part of the font's.
inline constexpr double kDigitSize = 0.8;

/// What changes with the highlight of a sector, in whole pixels.
[[nodiscard]] QRect sectorArea(const Cell &cell);

} // namespace pie
