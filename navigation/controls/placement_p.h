// SPDX-License-Identifier: GPL-2.0-or-later
// Where the controls of a view lie, and which of them give way in a small one.
#pragma once

#include <QRect>
#include <array>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>

namespace navcontrols {

using Control = NavCtrlMgrIfc::Control;
using Corner = NavCtrlMgrIfc::Corner;

inline constexpr int kHotDepth = 32; ///< pixels from the edge of a view to the end of a hot area
inline constexpr int kMargin = 8;    ///< between controls, and from the hot areas

/// The corner across, for layouts from right to left.
[[nodiscard]] Corner mirroredCorner(Corner corner);
/// The corner of @p area that @p point is nearest to.
[[nodiscard]] Corner nearestCorner(const QRect &area, QPoint point);

/// What wants a place.
struct PlacementRequest
{
    QSize arrow;      ///< empty, as the next ones: is not wanted
    QSize viewMenu;   ///< unfolded
    QSize viewHandle; ///< the view menu folded up
    QSize presentation;
    bool isViewMenuFolded = false; ///< wants no more than its handle
    bool hasHotAreas = false;
    Corner arrowCorner = Corner::TopRight;
    Corner viewMenuCorner = Corner::BottomRight;
    Corner presentationCorner = Corner::BottomLeft;
};

struct Placement
{
    QRect arrow; ///< null, as the next ones: finds no place
    QRect viewMenu;
    QRect presentation;
    bool isViewMenuFolded = false;
    std::array<QRect, 8> hotAreas; ///< clockwise from the top
};

/// Gives out the places within @p area. Controls of one corner stand above each other, the arrow
/// next to the corner. No two overlap. In an area less than 300 pixels wide or high the
/// presentation menu gives way; below 240 the view menu is folded up, below 180 the hot areas go,
/// below 120 the view menu, below 72 the arrow. What is larger than the room that is left goes as
/// well.
[[nodiscard]] Placement placeControls(const QRect &area, const PlacementRequest &request);

} // namespace navcontrols
