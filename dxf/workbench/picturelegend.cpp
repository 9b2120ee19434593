// SPDX-License-Identifier: GPL-2.0-or-later
// The legend that stays below a picture, whatever part of it a window shows.
#include "dxf/workbench/picturelegend_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/figurelayout_p.h"
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Mark = LegendEntry::Mark;

constexpr double kLongestBar = 110; ///< of the scale, in pixels

/// The mark and the text of an entry.
double widthOf(const LegendEntry &entry, const QFontMetricsF &metrics, double gap)
{
    const double mark = entry.mark == Mark::None ? 0 : entry.markWidth + gap;
    return mark + metrics.horizontalAdvance(entry.text);
}

/// A scale bar gets the same room at every zoom.
double roomOf(const LegendEntry &entry, const QFontMetricsF &metrics, double gap)
{
    return entry.mark == Mark::ScaleBar ? kLongestBar + gap + 5 * metrics.height()
                                        : widthOf(entry, metrics, gap);
}

void fitScaleBar(LegendEntry &entry, double unit)
{
    const double length = dxftools::roundLength(kLongestBar / unit);
    entry.markWidth = length * unit;
    entry.text = DxfToolTexts::UnitsInPreview(QLocale().toString(length, 'g', 6));
}

} // namespace

double dxftools::layOutLegend(std::vector<LegendEntry> &legend, const QFontMetricsF &metrics,
                              double width, double unit, Qt::LayoutDirection direction)
{
    const double gap = metrics.height() / 3;
    const double margin = metrics.height() / 2;
    QPointF next(margin, margin + metrics.ascent());
    bool isMarked = false;
    for (LegendEntry &entry : legend) {
        if (entry.mark == Mark::ScaleBar)
            fitScaleBar(entry, unit);
        else
            entry.markWidth = 1.1 * metrics.ascent();
        const double own = roomOf(entry, metrics, gap);
        const bool isFirstMark = !std::exchange(isMarked, isMarked || entry.mark != Mark::None) &&
                                 entry.mark != Mark::None;
        const bool isFull = next.x() > margin && next.x() + own > width - margin;
        if (isFirstMark || isFull)
            next = {margin, next.y() + 1.25 * metrics.height()};
        entry.position = next;
        if (direction == Qt::RightToLeft)
            entry.position.setX(width - next.x() - widthOf(entry, metrics, gap));
        next.rx() += own + metrics.height();
    }
    return legend.empty() ? 0 : next.y() + metrics.descent() + margin;
}

void dxftools::paintLegend(QPainter &painter, const std::vector<LegendEntry> &legend,
                           const SheetLook &look, Qt::LayoutDirection direction)
{
    const QFontMetricsF metrics(painter.font());
    const double gap = metrics.height() / 3;
    for (LegendEntry entry : legend) {
        QPointF text = entry.position;
        if (entry.mark != Mark::None && direction == Qt::RightToLeft)
            entry.position.rx() += metrics.horizontalAdvance(entry.text) + gap;
        else if (entry.mark != Mark::None)
            text.rx() += entry.markWidth + gap;
        dxftools::paintLegendMark(painter, entry, metrics.ascent(), look);
        painter.setPen(look.ink);
        painter.drawText(text, entry.text);
    }
}
