// SPDX-License-Identifier: GPL-2.0-or-later
// Measures what items want to show, and fits it into their sectors.
#include "menus/piecells_p.h"

#include <QFontMetricsF>
#include <algorithm>
#include <kelo_base/menus/QtPieItem.h>

namespace pie {

namespace {

constexpr double kReadableText = 3; ///< narrower than so many lines are high says nothing
constexpr double kSmallerIcons[] = {24, 16};

/// The text broken at the blank that leaves the shorter lines; empty when it is one word.
QString inTwoLines(const QString &text, const QFontMetricsF &metrics)
{
    QString best;
    double bestWidth = 0;
    for (qsizetype at = 0; (at = text.indexOf(u' ', at)) >= 0; ++at) {
        QString broken = text;
        broken[at] = u'\n';
        const double width = metrics.size(Qt::TextShowMnemonic, broken).width();
        if (best.isEmpty() || width < bestWidth) {
            best = broken;
            bestWidth = width;
        }
    }
    return best;
}

QString elided(const QString &text, const QFontMetricsF &metrics, double width)
{
    QStringList lines = text.split(u'\n');
    for (QString &line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, width, Qt::TextShowMnemonic);
    return lines.join(u'\n');
}

double markEdge(const QFontMetricsF &metrics)
{
    return kDigitSize * metrics.height();
}

std::vector<Wish> wishesOf(const std::vector<Cell> &cells)
{
    std::vector<Wish> wishes;
    wishes.reserve(cells.size());
    for (const Cell &cell : cells)
        wishes.push_back(cell.wish);
    return wishes;
}

} // namespace

double tickEdge(const QFontMetricsF &metrics)
{
    return metrics.height();
}

Cell makeCell(const QtPieItem &item, int digit, const QFontMetricsF &metrics)
{
    Cell cell;
    cell.icon = item.icon();
    cell.isEnabled = item.isEnabled();
    cell.isCheckable = item.isCheckable();
    cell.isChecked = item.isChecked();
    cell.digit = digit;
    if (!item.text().isEmpty())
        cell.texts << item.text();
    if (const QString broken = inTwoLines(item.text(), metrics); !broken.isEmpty())
        cell.texts << broken;
    const double tick = cell.isCheckable ? tickEdge(metrics) : 0; // ticked or not
    for (const QString &text : cell.texts) {
        const QSizeF size = metrics.size(Qt::TextShowMnemonic, text);
        cell.wish.texts.emplace_back(size.width() + tick + 1, size.height());
    }
    cell.wish.readable = kReadableText * metrics.height() + tick;
    cell.wish.least = QSizeF(tick, tick);
    if (cell.texts.isEmpty() && cell.isCheckable)
        cell.wish.texts.push_back(cell.wish.least);
    cell.wish.hasIcon = !cell.icon.isNull();
    cell.wish.hasDigit = digit > 0;
    cell.wish.hasArrow = item.type() == QtPieItem::SubMenu;
    return cell;
}

void fitCells(std::vector<Cell> &cells, const Layout &layout, const QFontMetricsF &metrics,
              double largestIcon)
{
    std::vector<double> icons{largestIcon};
    std::copy_if(std::begin(kSmallerIcons), std::end(kSmallerIcons), std::back_inserter(icons),
                 [largestIcon](double icon) { return icon < largestIcon; });
    const std::vector<Wish> wishes = wishesOf(cells);
    const Labels fitted = placeLabels(layout, wishes, markEdge(metrics), icons);
    for (int i = 0; i < layout.count(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        Cell &cell = cells[at];
        cell.label = fitted.labels[at];
        cell.outline = sectorPath(layout, i);
        const bool hasText = !cell.label.text.isNull() && cell.label.way >= 0;
        const QString text = hasText ? cell.texts.value(cell.label.way) : QString();
        const double tick = cell.isCheckable ? tickEdge(metrics) : 0;
        const double width = cell.label.text.width() - tick;
        const bool isWhole =
            hasText &&
            width > cell.wish.texts[static_cast<std::size_t>(cell.label.way)].width() - tick - 0.5;
        cell.shown = isWhole ? text : elided(text, metrics, width);
        cell.isElided = !cell.texts.isEmpty() && (!hasText || !isWhole);
    }
}

double radiusForCells(const std::vector<Cell> &cells, const Layout &layout, double most,
                      const QFontMetricsF &metrics, double largestIcon)
{
    return radiusForLabels(layout, most, wishesOf(cells), markEdge(metrics), largestIcon);
}

QRect sectorArea(const Cell &cell)
{
    return cell.outline.boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
}

} // namespace pie
