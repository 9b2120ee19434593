// SPDX-License-Identifier: GPL-2.0-or-later
// Lays out a ring of sectors and the labels within them.
#include "menus/pielayout_p.h"

#include "menus/piegeometry_p.h"
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace pie {

namespace {

constexpr double kPadding = 4;    ///< between a label and the edges of its sector
constexpr double kGap = 2;        ///< between icon and text
constexpr double kSmallIcon = 16; ///< shown alone where there is no room for text
/// Where along the radius a label is tried, the middle first, as parts of the ring's width.
constexpr double kPlaces[] = {0.5, 0.58, 0.42, 0.66, 0.34, 0.74, 0.82};

/// The part of a sector that labels may cover, with the centre of the ring as origin.
class Room
{
public:
    Room(const Layout &layout, int sector, double outerMark)
        : m_inner(layout.innerRadius + kPadding),
          m_outer(layout.outerRadius - std::max(kPadding, outerMark)),
          m_isWedge(layout.sweep(sector) <= std::numbers::pi)
    {
        const auto i = static_cast<std::size_t>(sector);
        m_first = {std::cos(layout.borders[i]), -std::sin(layout.borders[i])};
        m_last = {std::cos(layout.borders[i + 1]), -std::sin(layout.borders[i + 1])};
    }

    [[nodiscard]] bool holds(const QRectF &rect) const
    {
        const QPointF nearest(std::clamp(0.0, rect.left(), rect.right()),
                              std::clamp(0.0, rect.top(), rect.bottom()));
        return radiusOf(nearest.x(), nearest.y()) >= m_inner && holds(rect.topLeft()) &&
               holds(rect.topRight()) && holds(rect.bottomLeft()) && holds(rect.bottomRight());
    }

private:
    [[nodiscard]] bool holds(QPointF point) const
    {
        if (radiusOf(point.x(), point.y()) > m_outer)
            return false;
        // Distances from the two border lines: dy grows downwards, hence the order.
        const double fromFirst = m_first.y() * point.x() - m_first.x() * point.y();
        const double fromLast = m_last.x() * point.y() - m_last.y() * point.x();
        return !m_isWedge || (fromFirst >= kPadding && fromLast >= kPadding);
    }

    double m_inner;
    double m_outer;
    bool m_isWedge; ///< a sector of more than half a turn borders on nothing that a label reaches
    QPointF m_first;
    QPointF m_last;
};

Label labelAround(QPointF middle, double icon, QSizeF text)
{
    const double gap = icon > 0 && !text.isEmpty() ? kGap : 0;
    const double top = middle.y() - (icon + gap + text.height()) / 2;
    Label label;
    if (icon > 0)
        label.icon = QRectF(middle.x() - icon / 2, top, icon, icon);
    if (!text.isEmpty())
        label.text = QRectF(QPointF(middle.x() - text.width() / 2, top + icon + gap), text);
    return label;
}

bool holds(const Room &room, const Label &label)
{
    return (label.icon.isNull() || room.holds(label.icon)) &&
           (label.text.isNull() || room.holds(label.text));
}

/// The label with the widest text that fits around @p middle; an empty one when none does.
Label widestLabel(const Room &room, QPointF middle, double icon, QSizeF text)
{
    const Label whole = labelAround(middle, icon, text);
    if (holds(room, whole))
        return whole;
    Label best;
    double fitting = 0;
    for (double tooWide = text.width(); tooWide - fitting > 1;) {
        const double width = (fitting + tooWide) / 2;
        const Label label = labelAround(middle, icon, {width, text.height()});
        const bool fits = holds(room, label);
        (fits ? fitting : tooWide) = width;
        if (fits)
            best = label;
    }
    return best;
}

/// The label with the most text along the middle of the sector.
Label bestLabel(const Layout &layout, int sector, double outerMark, double icon, QSizeF text)
{
    const Room room(layout, sector, outerMark);
    Label best;
    for (const double place : kPlaces) {
        const double radius = std::lerp(layout.innerRadius, layout.outerRadius, place);
        const QPointF middle = layout.pointIn(sector, radius) - layout.centre();
        const Label label = widestLabel(room, middle, icon, text);
        const bool isFirst = best.icon.isNull() && best.text.isNull();
        if (isFirst || label.text.width() > best.text.width())
            best = label;
        const bool isWhole = best.text.width() >= text.width();
        if (isWhole && (icon <= 0 || !best.icon.isNull()))
            break;
    }
    return best;
}

} // namespace

double Layout::sweep(int sector) const
{
    const auto i = static_cast<std::size_t>(sector);
    return borders[i + 1] - borders[i];
}

QPointF Layout::pointIn(int sector, double radius) const
{
    const double angle = middleOf(borders, sector);
    return centre() + radius * QPointF(std::cos(angle), -std::sin(angle));
}

int directionAt(const Layout &layout, QPoint offset)
{
    return sectorAt(layout.borders, angleOf(offset.x(), offset.y()));
}

int targetAt(const Layout &layout, QPoint offset)
{
    const bool isInMiddle = radiusOf(offset.x(), offset.y()) < layout.innerRadius;
    return isInMiddle ? -1 : directionAt(layout, offset);
}

namespace {

QRectF circle(const Layout &layout, double radius)
{
    return {layout.centre() - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)};
}

} // namespace

QPainterPath sectorPath(const Layout &layout, int sector)
{
    const double start = qRadiansToDegrees(layout.borders[static_cast<std::size_t>(sector)]);
    const double sweep = qRadiansToDegrees(layout.sweep(sector));
    if (sweep <= 0)
        return {};
    if (sweep >= 360)
        return ringPath(layout);
    QPainterPath path;
    path.arcMoveTo(circle(layout, layout.outerRadius), start);
    path.arcTo(circle(layout, layout.outerRadius), start, sweep);
    path.arcTo(circle(layout, layout.innerRadius), start + sweep, -sweep);
    path.closeSubpath();
    return path;
}

QPainterPath ringPath(const Layout &layout)
{
    QPainterPath path; // odd-even by default: the inner circle is a hole
    path.addEllipse(circle(layout, layout.outerRadius));
    path.addEllipse(circle(layout, layout.innerRadius));
    return path;
}

Label placeLabel(const Layout &layout, int sector, const Wish &wish)
{
    if (layout.sweep(sector) <= 0)
        return {};
    Label label = bestLabel(layout, sector, wish.outerMark, wish.icon, wish.text);
    // An icon alone says more than two letters under it.
    if (wish.icon > 0 && label.text.width() < std::min(wish.text.width(), wish.readable))
        label = bestLabel(layout, sector, wish.outerMark, std::min(wish.icon, kSmallIcon), {});
    label.icon.translate(layout.centre());
    label.text.translate(layout.centre());
    return label;
}

} // namespace pie
