// SPDX-License-Identifier: GPL-2.0-or-later
// Angles, sectors, places and directions of a pie menu, as functions over plain numbers.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <numbers>
#include <span>
#include <vector>

/// Angles are radians, counter-clockwise on screen, 0 to the right: the top is pi/2. Offsets are
/// pixels from the menu's centre, dy growing downwards as in widgets.
///
/// A weight is an item's share of the ring. Negative ones count as 0, which is no share at all;
/// when no item has a share, all have the same.
namespace pie {

inline constexpr double kTurn = 2 * std::numbers::pi;
inline constexpr double kTop = std::numbers::pi / 2;

[[nodiscard]] double radiusOf(double dx, double dy);
/// The direction of an offset, above 0 and up to 2 pi: exactly to the right is 2 pi, not 0. NaN at
/// the centre itself.
[[nodiscard]] double angleOf(double dx, double dy);

/// Where the sectors begin, and the last ends: one value more than items, ascending. Item 0 is
/// centred on the top and the others follow counter-clockwise. The first value is from 0 and below
/// 2 pi, the last exactly 2 pi more. Empty without items.
[[nodiscard]] std::vector<double> centredBorders(std::span<const int> weights);
/// The sector of @p borders that holds @p angle or the same one turn later; -1: none, or NaN. A
/// border belongs to the sector that begins there, and the end of the last one to the last that has
/// any width, so that a whole turn leaves no gap.
[[nodiscard]] int sectorAt(std::span<const double> borders, double angle);
[[nodiscard]] double middleOf(std::span<const double> borders, int sector);

/// Where item @p index of @p count begins, from 0 and below 2 pi.
/// @param index   taken modulo @p count, so that -1 is the last one
/// @param count   may exceed the number of weights: each item beyond has the share of weight 1.
///                Without weights it is the number of equal shares; below 1 it counts as 1.
/// @param middle  true: item 0 is centred on the top; false: it begins there
[[nodiscard]] double borderAngle(std::span<const int> weights, int index, int count, bool middle);

/// The top-left corner that puts the middle pixel of a widget at @p centre, then moves it onto
/// @p screen. What is larger than the screen ends at its right and bottom.
[[nodiscard]] QPoint placeOnScreen(QPoint centre, QSize size, const QRect &screen);

/// Where an arrow key pointing to @p direction leads: one step around the ring, and straight across
/// from the opposite side. @p current when nothing lies further in that direction.
/// @param current  -1 or below: none yet, so the item nearest to the direction is the answer
/// @param open     which items can be chosen; the others are stepped over
/// @return -1 when there is none to choose
[[nodiscard]] int stepTowards(std::span<const double> borders, const std::vector<bool> &open,
                              int current, double direction);
/// The next item in ring order that can be chosen, beginning anew behind the last.
/// @param step  1 for the next, -1 for the one before
[[nodiscard]] int stepAlong(const std::vector<bool> &open, int current, int step);

} // namespace pie
