// SPDX-License-Identifier: GPL-2.0-or-later
// The state of a pie menu, shared by the sources of its class.
#pragma once

#include "menus/piecells_p.h"
#include "menus/pieitems_p.h"
#include "menus/piekeys_p.h"
#include "menus/pielayout_p.h"
#include "menus/piestroke_p.h"
#include <QBitmap>
#include <QElapsedTimer>
#include <QPoint>
#include <QTimer>
#include <kelo_base/menus/QtPieMenu.h>
#include <optional>
#include <vector>

struct QtPieMenu::Data
{
    static constexpr int kNone = -1;
    static constexpr int kJustOpened = -2; ///< nothing highlighted yet
    static constexpr int kRest = 150;      ///< milliseconds after which a pointer has rested
    static constexpr int kRepetition = 15; ///< in which a release is followed by a repetition

    pie::Items items; ///< children of the menu, which owns them
    QTimer hover;
    bool autoActivates = false;
    int innerRadius = 0;
    int outerRadius = 0;      ///< as it is now
    int leastOuterRadius = 0; ///< as it was set; the menu may grow beyond
    int highlighted = kJustOpened;
    int shownSubMenu = kNone;
    int pointerOver = kNone; ///< what the pointer is on, disabled items included
    bool isShaded = false;
    bool isCanceled = false;
    QPoint position; ///< as given to popup()
    QBitmap mask;
    bool isMaskOutdated = true;

    int tapThreshold = 200;
    int cancelDistance = 0; ///< 0: none
    SubMenuPlacement placement = SubMenuPlacement::AtParent;
    bool isFading = false;
    bool isGrowing = false;
    bool showsDigits = true;

    pie::Stroke stroke;
    QTimer rest; ///< runs while the pointer has not rested since the menu opened
    pie::HeldKeys keys;
    QTimer releaseWait;   ///< runs while a key that was let go may be repeating
    bool isTap = false;   ///< it was let go soon after the menu opened
    unsigned opening = 0; ///< counts the times the menu popped up
    QElapsedTimer sinceOpening;
    QPoint pointer; ///< on the screen, where it was last seen
    bool isRightDown = false;

    std::optional<pie::Layout> layout; ///< none while outdated, see layoutOf()
    std::vector<pie::Cell> cells;      ///< empty while outdated, see fittedCells()
    bool areCellsFitted = false;

    [[nodiscard]] const pie::Layout &layoutOf(const QtPieMenu &menu);
    [[nodiscard]] const std::vector<pie::Cell> &fittedCells(const QtPieMenu &menu);
    /// The outer radius with which all labels are shown, as far as the screen has room for it.
    [[nodiscard]] int grownRadius(const QtPieMenu &menu, QSize screen);
    /// Items, or what they show, are different now.
    void outdate();
    /// The size is different now.
    void outdateLayout();

private:
    void makeCells(const QtPieMenu &menu);
};
