// SPDX-License-Identifier: GPL-2.0-or-later
// Paints the part of a picture that a window shows, and a legend that stays below it.
#pragma once

#include "dxf/sheets/sheetpainter_p.h"
#include "dxf/workbench/pictureviewport_p.h"
#include <QFontMetricsF>
#include <vector>

/// What is seen of a picture.
struct SheetScene
{
    std::span<const SheetFigure> figures;
    const PictureViewport &viewport;
    const SheetLook &look;
    QColor highlight;
    const std::vector<bool> &isSelected; ///< one for each figure
};

/// Paints the page and what of the figures lies in @p area of the window. The smaller they are, the
/// less of them is painted: from numbers and corners down to a spot, so that thousands take no
/// longer than a few. Selected ones have a thick outline and a tint, and lie above the others.
void PaintScene(QPainter &painter, const SheetScene &scene, const QRectF &area);

/// Places the entries of a legend in lines, from the right in right-to-left layouts.
/// @param unit  pixels of the window for a unit of the drawing: the scale bar follows it
/// @return the height that they take
double LayOutLegend(std::vector<LegendEntry> &legend, const QFontMetricsF &metrics, double width,
                    double unit, Qt::LayoutDirection direction);
/// Paints what LayOutLegend() placed. The painter's origin is the upper left corner, and its font
/// is that of the metrics.
void PaintLegend(QPainter &painter, const std::vector<LegendEntry> &legend, const SheetLook &look,
                 Qt::LayoutDirection direction);
