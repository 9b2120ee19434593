// SPDX-License-Identifier: GPL-2.0-or-later
// Paints a laid-out pie menu.
#pragma once

#include "menus/pielayout_p.h"
#include <QIcon>
#include <QPalette>
#include <QRect>
#include <QString>
#include <vector>

class QFontMetricsF;
class QPainter;

namespace pie {

/// What one sector shows.
struct Cell
{
    QString text; ///< with its "&"; elided to the width of the label once that is placed
    QIcon icon;
    bool isEnabled = true;
    bool isSubMenu = false;
    bool isCheckable = false;
    bool isChecked = false;
    bool isElided = false;
    Label label = {}; ///< see fitCells(), like the outline
    QPainterPath outline = {};
};

/// The menu as it is to be seen.
struct Picture
{
    const Layout &layout;
    const std::vector<Cell> &cells; ///< one for each sector
    QPalette palette;
    int highlighted = -1;
    bool isSubMenu = false; ///< the middle leads back, instead of out
    bool isShaded = false;  ///< faint, since it is behind its sub-menu
    bool underlinesLetters = true;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// Places the labels, with one size of icons for all: the largest, or a medium one where that cuts
/// fewer texts. An icon that is alone for lack of room is smaller yet. Texts are broken into two
/// lines where that shows more of them, then elided.
void fitCells(std::vector<Cell> &cells, const Layout &layout, const QFontMetricsF &metrics,
              double largestIcon);

/// What changes with the highlight of a sector, in whole pixels.
[[nodiscard]] QRect sectorArea(const Cell &cell);

/// Paints what lies in @p area. The painter has the font for which cells were fitted.
void paint(QPainter &painter, const Picture &picture, const QRect &area);

} // namespace pie
