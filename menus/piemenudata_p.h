// SPDX-License-Identifier: GPL-2.0-or-later
// The state of a pie menu, shared by the sources of its class.
#pragma once

#include "menus/pieitems_p.h"
#include "menus/pielayout_p.h"
#include "menus/piepainter_p.h"
#include "menus/piestroke_p.h"
#include <QBitmap>
#include <QElapsedTimer>
#include <QPoint>
#include <QSet>
#include <QTimer>
#include <kelo_base/menus/QtPieMenu.h>
#include <optional>
#include <vector>

struct QtPieMenu::Data
{
    static constexpr int kNone = -1;
    static constexpr int kJustOpened = -2; ///< nothing highlighted yet

    pie::Items items; ///< children of the menu, which owns them
    QTimer hover;
    bool autoActivates = false;
    int innerRadius = 0;
    int outerRadius = 0;
    int highlighted = kJustOpened;
    int shownSubMenu = kNone;
    int pointerOver = kNone; ///< what the pointer is on, disabled items included
    bool isShaded = false;
    bool isCanceled = false;
    QPoint position; ///< as given to popup()
    QBitmap mask;
    bool isMaskOutdated = true;

    int tapThreshold = 200;
    SubMenuPlacement placement = SubMenuPlacement::AroundPointer;
    bool isFading = false;

    pie::Stroke stroke;
    QElapsedTimer sinceOpening;
    QPoint pointer;     ///< on the screen, where it was last seen
    QSet<int> keysDown; ///< those pressed on the open menu
    bool isRightDown = false;

    std::optional<pie::Layout> layout; ///< none while outdated, see layoutOf()
    std::vector<pie::Cell> cells;      ///< empty while outdated, see fittedCells()

    [[nodiscard]] const pie::Layout &layoutOf(const QtPieMenu &menu);
    [[nodiscard]] const std::vector<pie::Cell> &fittedCells(const QtPieMenu &menu);
    void outdate();
};
