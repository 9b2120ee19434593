// SPDX-License-Identifier: GPL-2.0-or-later
// Lays out a ring of sectors and the labels within them.
#include "menus/pielayout_p.h"

#include "menus/piegeometry_p.h"
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>

namespace pie {

namespace {

constexpr double kPadding = 4;     ///< between a label and the edges of its sector
constexpr double kGap = 2;         ///< between icon and text
constexpr double kMarkPadding = 6; ///< between a digit or an arrow and the outer rim
constexpr double kGrowth = 6;      ///< pixels from one radius that is tried to the next
/// Where along the radius labels are tried, the middle first, as parts of the ring's width.
constexpr double kPlaces[] = {0.55, 0.5, 0.62, 0.44, 0.69, 0.37, 0.76, 0.82};

/// The part of a sector that something may cover, with the centre of the ring as origin.
class Room
{
public:
    Room(const Layout &layout, int sector, double padding)
        : m_inner(layout.innerRadius + padding),
          m_outer(layout.outerRadius - padding),
          m_padding(padding),
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
        return !m_isWedge || (fromFirst >= m_padding && fromLast >= m_padding);
    }

    double m_inner;
    double m_outer;
    double m_padding;
    bool m_isWedge; ///< a sector of more than half a turn borders on nothing that a label reaches
    QPointF m_first;
    QPointF m_last;
};

QRectF squareAround(QPointF middle, double edge)
{
    return {middle - QPointF(edge, edge) / 2, QSizeF(edge, edge)};
}

/// Digit and arrow side by side at the outer rim. A sector too narrow has no digit.
Label placeMarks(const Layout &layout, int sector, const Wish &wish, double edge)
{
    const double angle = middleOf(layout.borders, sector);
    const QPointF out(std::cos(angle), -std::sin(angle));
    const QPointF along(out.y(), -out.x()); // counter-clockwise
    const QPointF middle = out * (layout.outerRadius - kMarkPadding - edge / 2);
    const bool hasBoth = wish.hasDigit && wish.hasArrow;
    const double apart = edge / std::max(std::abs(along.x()), std::abs(along.y())) + 0.1;
    const double aside = hasBoth ? apart / 2 : 0; // as squares, not as circles
    Label marks;
    if (wish.hasArrow)
        marks.arrow = squareAround(middle - aside * along, edge);
    if (wish.hasDigit) {
        const QRectF digit = squareAround(middle + aside * along, edge);
        if (Room(layout, sector, kMarkPadding / 2).holds(digit.adjusted(1, 1, -1, -1)))
            marks.digit = digit;
        else if (wish.hasArrow)
            marks.arrow = squareAround(middle, edge);
    }
    return marks;
}

/// Places one label on a circle.
class Placer
{
public:
    Placer(const Layout &layout, int sector, const Wish &wish, const Label &marks, double icon,
           double radius)
        : m_wish(wish),
          m_marks(marks),
          m_icon(wish.hasIcon ? icon : 0),
          m_middle(layout.pointIn(sector, radius) - layout.centre()),
          m_room(layout, sector, kPadding)
    {
    }

    [[nodiscard]] std::optional<Label> whole() const
    {
        for (std::size_t way = 0; way < m_wish.texts.size(); ++way) {
            const Label label = around(m_wish.texts[way], static_cast<int>(way));
            if (holds(label))
                return label;
        }
        const bool isWhole = m_wish.texts.empty() && holds(around({}, 0));
        return isWhole ? std::optional(around({}, 0)) : std::nullopt;
    }

    /// The label with most of the text; without text, when that would be next to nothing.
    [[nodiscard]] Label cut() const
    {
        Label best;
        double bestPart = 0;
        for (std::size_t way = 0; way < m_wish.texts.size(); ++way) {
            const QSizeF text = m_wish.texts[way];
            const double width = widest(text);
            if (width >= m_wish.readable && width / text.width() > bestPart) {
                bestPart = width / text.width();
                best = around({width, text.height()}, static_cast<int>(way));
            }
        }
        for (const QSizeF &rest : {m_wish.least, QSizeF()}) {
            const Label label = around(rest, -1);
            if (bestPart == 0 && best.both().isNull() && holds(label))
                best = label;
        }
        return best;
    }

private:
    [[nodiscard]] Label around(QSizeF text, int way) const
    {
        if (text.isEmpty())
            text = QSizeF(0, 0); // none is of size -1
        const double gap = m_icon > 0 && !text.isEmpty() ? kGap : 0;
        const double top = m_middle.y() - (m_icon + gap + text.height()) / 2;
        Label label;
        label.way = way;
        if (m_icon > 0)
            label.icon = QRectF(m_middle.x() - m_icon / 2, top, m_icon, m_icon);
        if (!text.isEmpty())
            label.text = QRectF(QPointF(m_middle.x() - text.width() / 2, top + m_icon + gap), text);
        return label;
    }

    [[nodiscard]] bool holds(const Label &label) const
    {
        for (const QRectF &part : {label.icon, label.text}) {
            if (!part.isNull() && (!m_room.holds(part) || part.intersects(m_marks.arrow) ||
                                   part.intersects(m_marks.digit)))
                return false;
        }
        return true;
    }

    /// How much of a text fits, to the pixel.
    [[nodiscard]] double widest(QSizeF text) const
    {
        double fitting = 0;
        for (double tooWide = text.width(); tooWide - fitting > 1;) {
            const double width = (fitting + tooWide) / 2;
            (holds(around({width, text.height()}, 0)) ? fitting : tooWide) = width;
        }
        return fitting;
    }

    const Wish &m_wish;
    const Label &m_marks;
    double m_icon;
    QPointF m_middle;
    Room m_room;
};

double radiusAt(const Layout &layout, double place)
{
    return std::lerp(layout.innerRadius, layout.outerRadius, place);
}

std::vector<Label> marksOf(const Layout &layout, std::span<const Wish> wishes, double mark)
{
    std::vector<Label> marks;
    marks.reserve(static_cast<std::size_t>(layout.count()));
    for (int i = 0; i < layout.count(); ++i)
        marks.push_back(placeMarks(layout, i, wishes[static_cast<std::size_t>(i)], mark));
    return marks;
}

Labels placeOnCircle(const Layout &layout, std::span<const Wish> wishes,
                     const std::vector<Label> &marks, double icon, double radius)
{
    Labels all;
    for (int i = 0; i < layout.count(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        Label label;
        if (layout.sweep(i) > 0) {
            const Placer placer(layout, i, wishes[at], marks[at], icon, radius);
            const std::optional<Label> whole = placer.whole();
            label = whole ? *whole : placer.cut();
            all.cut += whole ? 0 : 1;
            all.missing += !whole && label.both().isNull() ? 1 : 0;
            label.digit = marks[at].digit;
            label.arrow = marks[at].arrow;
        }
        all.labels.push_back(label);
    }
    return all;
}

bool areAllWhole(const Layout &layout, std::span<const Wish> wishes,
                 const std::vector<Label> &marks, double icon, double radius)
{
    for (int i = 0; i < layout.count(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (layout.sweep(i) > 0 && !Placer(layout, i, wishes[at], marks[at], icon, radius).whole())
            return false;
    }
    return true;
}

/// What all texts together show.
double shownText(const Labels &all)
{
    return std::accumulate(all.labels.begin(), all.labels.end(), 0.0,
                           [](double sum, const Label &label) { return sum + label.text.width(); });
}

bool isBetter(const Labels &one, const Labels &other)
{
    if (std::pair(one.missing, one.cut) != std::pair(other.missing, other.cut))
        return std::pair(one.missing, one.cut) < std::pair(other.missing, other.cut);
    return shownText(one) > shownText(other) + 1;
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
    if (layout.innerRadius > 0)
        path.arcTo(circle(layout, layout.innerRadius), start + sweep, -sweep);
    else
        path.lineTo(layout.centre()); // a circle without width adds nothing to a path
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

Labels placeLabels(const Layout &layout, std::span<const Wish> wishes, double mark,
                   std::span<const double> icons)
{
    const std::vector<Label> marks = marksOf(layout, wishes, mark);
    std::optional<Labels> best;
    for (const double icon : icons) {
        for (const double place : kPlaces) {
            Labels labels = placeOnCircle(layout, wishes, marks, icon, radiusAt(layout, place));
            if (!best || isBetter(labels, *best))
                best = std::move(labels);
            if (best->cut == 0)
                break;
        }
        if (best->cut == 0)
            break;
    }
    for (Label &label : best->labels) {
        for (QRectF *part : {&label.icon, &label.text, &label.digit, &label.arrow})
            part->translate(layout.centre());
    }
    return *best;
}

double radiusForLabels(Layout layout, double most, std::span<const Wish> wishes, double mark,
                       double icon)
{
    for (; layout.outerRadius < most; layout.outerRadius += kGrowth) {
        const std::vector<Label> marks = marksOf(layout, wishes, mark);
        for (const double place : kPlaces) {
            if (areAllWhole(layout, wishes, marks, icon, radiusAt(layout, place)))
                return layout.outerRadius;
        }
    }
    return std::max(most, 0.0);
}

} // namespace pie
