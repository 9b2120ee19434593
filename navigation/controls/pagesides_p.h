// SPDX-License-Identifier: GPL-2.0-or-later
// Which side of the page points where on screen.
#pragma once

#include <QPointF>
#include <array>
#include <kelo_base/navigation/DocWindowXIfc.h>

namespace navcontrols {

inline constexpr int kPlaces = 8; ///< edges and corners of a view, clockwise from the top

/// How a page lies on screen: its directions in pixels. The default lies unturned.
struct PageOnScreen
{
    QPointF right{1, 0}; ///< along its top edge
    QPointF down{0, 1};  ///< along its left edge
};

/// The sides of the page, by the place of the view where each points. A turn is taken as the
/// nearest multiple of 45 degrees, so that every side has a place of its own; a page seen from
/// behind goes the other way round.
[[nodiscard]] std::array<DocWindowXIfc::PageSide, kPlaces> sidesAtPlaces(const PageOnScreen &page);

/// Asks the document window: by three points of the page, else by three of the view, else by where
/// north is, which then is taken for the top of the page.
[[nodiscard]] PageOnScreen pageOnScreen(QWidget *view);

} // namespace navcontrols
