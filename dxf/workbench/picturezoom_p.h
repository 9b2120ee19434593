// SPDX-License-Identifier: GPL-2.0-or-later
// Which part of a picture a window shows, and what lies there: plain numbers.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <kelo_base/dxf/SheetPreview.h>

/// A window above a picture. Points of the window are logical pixels; those of the picture are its
/// own. Both have y growing downwards. There is always an answer, for empty ones too.
///
/// The picture stays in touch with the window: in a direction in which there is more of it than the
/// window can show, it covers the window up to a margin; in one in which there is less, it stands
/// in the middle.
class PictureZoom
{
public:
    /// Shows all of the picture.
    /// @param detail  size of what should fill the window at the largest zoom, above 0
    void setPicture(const QRectF &bounds, double detail);
    /// A view of all stays one; any other keeps its scale and its middle.
    void setWindow(QSizeF size);

    /// Pixels of the window for one of the picture, above 0.
    [[nodiscard]] double scale() const { return m_scale; }
    /// The scale, where 1 shows all of the picture: from 1 to mostZoom().
    [[nodiscard]] double zoom() const { return m_scale / fittingScale(); }
    [[nodiscard]] double mostZoom() const;
    [[nodiscard]] bool showsAll() const { return zoom() <= 1; }

    [[nodiscard]] QPointF toWindow(QPointF picture) const { return m_origin + picture * m_scale; }
    [[nodiscard]] QPointF toPicture(QPointF window) const { return (window - m_origin) / m_scale; }
    [[nodiscard]] QRectF toWindow(const QRectF &picture) const;
    [[nodiscard]] QRectF toPicture(const QRectF &window) const;
    /// Where the picture's (0, 0) is in the window.
    [[nodiscard]] QPointF origin() const { return m_origin; }

    void showAll();
    /// What is at @p fixed stays there, as far as the limits let it.
    void zoomBy(double factor, QPointF fixed);
    /// Moves the picture.
    void panBy(QPointF way);
    /// Brings it to the middle, as large as a third of the window.
    void zoomTo(const QRectF &part);
    /// Moves no more than it takes to see all of it. Zooms only when it would be too small to be
    /// seen or too large for the window.
    void bringInSight(const QRectF &part);

private:
    [[nodiscard]] double fittingScale() const;
    void setScale(double scale, QPointF fixed);
    void keepInTouch();

    QRectF m_picture{0, 0, 1, 1};
    QSizeF m_window{1, 1};
    double m_detail = 1;
    double m_scale = 1;
    QPointF m_origin;
};

namespace dxftools {

/// Whether a figure is at a point: inside of its outline or, where that is open, on the line.
/// @param tolerance  how far from a line counts as on it
[[nodiscard]] bool isAt(const SheetFigure &figure, QPointF point, double tolerance);
/// Whether an area touches the figure.
[[nodiscard]] bool touches(const SheetFigure &figure, const QRectF &area);
/// Whether a point lies on the number of a figure or the box beside it.
[[nodiscard]] bool isOnNumber(const SheetFigure &figure, QPointF point);
/// Whether rectangles have a point in common, also when they have no width or no height.
[[nodiscard]] bool touch(const QRectF &a, const QRectF &b);

} // namespace dxftools
