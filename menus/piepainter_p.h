// SPDX-License-Identifier: GPL-2.0-or-later
// Paints a laid-out pie menu.
#pragma once

#include "menus/piecells_p.h"
#include <QPalette>
#include <QRect>
#include <vector>

class QPainter;

namespace pie {

/// The menu as it is to be seen.
struct Picture
{
    const Layout &layout;
    const std::vector<Cell> &cells; ///< one for each sector
    QPalette palette;
    int highlighted = -1;
    bool isSubMenu = false; ///< the middle leads back, instead of out
    bool isShaded = false;  ///< faint, since it is behind its sub-menu
    QRectF front = {};      ///< the disc of that sub-menu, which throws a shadow; null: none
    bool underlinesLetters = true;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// Paints what lies in @p area. The painter has the font for which cells were fitted.
void paint(QPainter &painter, const Picture &picture, const QRect &area);

} // namespace pie
