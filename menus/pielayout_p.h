// SPDX-License-Identifier: GPL-2.0-or-later
// The one layout of a pie menu, which painting and hit testing both read.
#pragma once

#include <QPainterPath>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
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
    QSizeF text;          ///< of the whole text; empty: none
    double readable = 0;  ///< width below which cut text says less than an icon alone
    double icon = 0;      ///< edge of the icon; 0: none
    double outerMark = 0; ///< taken by a mark at the outer rim; 0: none
};

/// Where it is shown: the icon above the text. What found no place is null.
struct Label
{
    QRectF icon;
    QRectF text; ///< narrower than wanted when the sector is too narrow
};

/// Finds the place along the middle of the sector where most of the text fits.
[[nodiscard]] Label placeLabel(const Layout &layout, int sector, const Wish &wish);

} // namespace pie
