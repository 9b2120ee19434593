// SPDX-License-Identifier: GPL-2.0-or-later
// The one layout of a pie menu, which painting and hit testing both read.
#pragma once

#include <QPainterPath>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <span>
#include <vector>

namespace pie {

/// The ring in logical pixels of the widget. Pixel (x, y) is the square from x to x + 1, so what is
/// painted has its centre half a pixel off the middle pixel's corner.
struct Layout
{
    QPoint middle;          ///< the pixel in the middle
    double innerRadius = 0; ///< from 0 to the outer radius
    double outerRadius = 0;
    std::vector<double> borders; ///< see centredBorders()

    [[nodiscard]] QPointF centre() const { return QPointF(middle) + QPointF(0.5, 0.5); }
    [[nodiscard]] int count() const
    {
        return borders.empty() ? 0 : static_cast<int>(borders.size()) - 1;
    }
    [[nodiscard]] double sweep(int sector) const;
    /// The point of the ring in the middle of a sector, @p radius away from the centre.
    [[nodiscard]] QPointF pointIn(int sector, double radius) const;
};

/// The item in whose direction the offset from the centre lies, near or far; -1: none.
[[nodiscard]] int directionAt(const Layout &layout, QPoint offset);
/// The same, but -1 within the inner radius, where nothing is chosen.
[[nodiscard]] int targetAt(const Layout &layout, QPoint offset);

/// The outline of a sector; empty for one without width.
[[nodiscard]] QPainterPath sectorPath(const Layout &layout, int sector);
/// The whole ring.
[[nodiscard]] QPainterPath ringPath(const Layout &layout);

/// What an item wants to show, in pixels.
struct Wish
{
    std::vector<QSizeF> texts; ///< of the whole text, in one line and perhaps broken into two
    double readable = 0;       ///< width below which cut text says nothing
    QSizeF least;              ///< shown instead of such text; empty: nothing
    bool hasIcon = false;
    bool hasDigit = false; ///< at the outer rim
    bool hasArrow = false; ///< there as well
};

/// Where it is shown: the icon above the text. What found no place is null.
struct Label
{
    QRectF icon;
    QRectF text;
    QRectF digit;
    QRectF arrow;
    int way = 0; ///< which of the texts; -1: what is shown instead

    /// Icon and text together.
    [[nodiscard]] QRectF both() const { return icon | text; }
};

struct Labels
{
    std::vector<Label> labels; ///< one for each sector, all with their middles on one circle
    int missing = 0;           ///< items that show nothing of what they have to say
    int cut = 0;               ///< items that do not show all of it
};

/// Finds the circle, and the largest of the icons' sizes, with which most items show most.
/// @param mark  edge of digits and arrows
/// @param icons sizes from the largest on
[[nodiscard]] Labels placeLabels(const Layout &layout, std::span<const Wish> wishes, double mark,
                                 std::span<const double> icons);

/// The smallest outer radius from that of @p layout to @p most at which all labels are shown in
/// full with icons of the size given; @p most when there is none.
[[nodiscard]] double radiusForLabels(Layout layout, double most, std::span<const Wish> wishes,
                                     double mark, double icon);

} // namespace pie
