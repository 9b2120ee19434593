// SPDX-License-Identifier: GPL-2.0-or-later
// The legend that stays below a picture, whatever part of it a window shows.
#pragma once

#include "dxf/sheets/sheetpainter_p.h"
#include <QFontMetricsF>
#include <vector>

namespace dxftools {

/// Places the entries of a legend in lines, from the right in right-to-left layouts.
/// @param unit  pixels of the window for a unit of the drawing: the scale bar follows it
/// @return the height that they take
double layOutLegend(std::vector<LegendEntry> &legend, const QFontMetricsF &metrics, double width,
                    double unit, Qt::LayoutDirection direction);
/// Paints what layOutLegend() placed. The painter's origin is the upper left corner, and its font
/// is that of the metrics.
void paintLegend(QPainter &painter, const std::vector<LegendEntry> &legend, const SheetLook &look,
                 Qt::LayoutDirection direction);

} // namespace dxftools
