// SPDX-License-Identifier: GPL-2.0-or-later
// Zooms and pans within limits, and finds figures.
#include "dxf/workbench/picturezoom_p.h"

#include "dxf/sheets/figurelayout_p.h"
#include "dxf/sheets/sheetpainter_p.h"
#include <QLineF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kMargin = 14;        ///< around the picture, in pixels of the window
constexpr double kFarthestZoom = 500; ///< beyond, positions in pixels would lose their exactness
constexpr double kSmallest = 24;      ///< of a part that counts as seen, in pixels of the window

/// How many of @p picture make up @p window; nothing when it has no extent in that direction.
double fitting(double window, double picture)
{
    return picture > 0 ? std::max(window - 2 * kMargin, 1.0) / picture
                       : std::numeric_limits<double>::infinity();
}

/// Where a stretch of the picture begins, so that it stays in touch with the window.
double touching(double begin, double length, double window)
{
    const double spare = window - length;
    if (spare >= 2 * kMargin)
        return spare / 2;
    return std::clamp(begin, spare - kMargin, kMargin);
}

/// How far to move a stretch, so that it comes into the window.
double wayInto(double begin, double end, double window)
{
    if (begin < kMargin)
        return kMargin - begin;
    return end > window - kMargin ? std::max(window - kMargin - end, kMargin - begin) : 0;
}

double distance(const QLineF &line, QPointF point)
{
    const QPointF way = line.p2() - line.p1();
    const QPointF own = point - line.p1();
    const double square = QPointF::dotProduct(way, way);
    const double along = square > 0 ? QPointF::dotProduct(own, way) / square : 0;
    const QPointF off = own - way * std::clamp(along, 0.0, 1.0);
    return std::hypot(off.x(), off.y());
}

template <typename Hit>
bool anyEdge(const QPolygonF &points, Hit hit)
{
    for (qsizetype i = 1; i < points.size(); ++i)
        if (hit(QLineF(points[i - 1], points[i])))
            return true;
    return points.size() == 1 && hit(QLineF(points[0], points[0]));
}

/// Cuts the line down to what lies within each side in turn; what is left touches the area.
bool crosses(const QLineF &line, const QRectF &area)
{
    double begin = 0;
    double end = 1;
    const auto cut = [&](double from, double way, double low, double high) {
        if (way == 0)
            return from >= low && from <= high;
        const double a = (low - from) / way;
        const double b = (high - from) / way;
        begin = std::max(begin, std::min(a, b));
        end = std::min(end, std::max(a, b));
        return begin <= end;
    };
    return cut(line.x1(), line.dx(), area.left(), area.right()) &&
           cut(line.y1(), line.dy(), area.top(), area.bottom());
}

} // namespace

void PictureZoom::setPicture(const QRectF &bounds, double detail)
{
    m_picture = bounds;
    m_detail = detail;
    showAll();
}

void PictureZoom::setWindow(QSizeF size)
{
    const bool showedAll = showsAll();
    const QPointF middle = toPicture(QRectF(QPointF(), m_window).center());
    m_window = size;
    if (showedAll)
        return showAll();
    m_scale = std::clamp(m_scale, fittingScale(), fittingScale() * mostZoom());
    m_origin = QRectF(QPointF(), m_window).center() - middle * m_scale;
    keepInTouch();
}

double PictureZoom::mostZoom() const
{
    const double detailed = std::min(m_window.width(), m_window.height()) / m_detail;
    return std::clamp(detailed / fittingScale(), 1.0, kFarthestZoom);
}

QRectF PictureZoom::toWindow(const QRectF &picture) const
{
    return {toWindow(picture.topLeft()), picture.size() * m_scale};
}

QRectF PictureZoom::toPicture(const QRectF &window) const
{
    return {toPicture(window.topLeft()), window.size() / m_scale};
}

void PictureZoom::showAll()
{
    m_scale = fittingScale();
    keepInTouch();
}

void PictureZoom::zoomBy(double factor, QPointF fixed)
{
    setScale(m_scale * factor, fixed);
}

void PictureZoom::panBy(QPointF way)
{
    m_origin += way;
    keepInTouch();
}

void PictureZoom::zoomTo(const QRectF &part)
{
    constexpr double kPart = 1.0 / 3;
    const double scale = std::min(fitting(m_window.width() * kPart, part.width()),
                                  fitting(m_window.height() * kPart, part.height()));
    const QPointF middle = part.center();
    setScale(scale, toWindow(middle));
    panBy(QRectF(QPointF(), m_window).center() - toWindow(middle));
}

void PictureZoom::bringInSight(const QRectF &part)
{
    const QRectF shown = toWindow(part);
    const bool isLost = std::max(shown.width(), shown.height()) < kSmallest;
    const bool isTooLarge = shown.width() > m_window.width() || shown.height() > m_window.height();
    if (isLost || isTooLarge)
        return zoomTo(part);
    panBy({wayInto(shown.left(), shown.right(), m_window.width()),
           wayInto(shown.top(), shown.bottom(), m_window.height())});
}

double PictureZoom::fittingScale() const
{
    const double scale = std::min(fitting(m_window.width(), m_picture.width()),
                                  fitting(m_window.height(), m_picture.height()));
    return std::isnormal(scale) ? scale : 1;
}

void PictureZoom::setScale(double scale, QPointF fixed)
{
    const QPointF at = toPicture(fixed);
    const double least = fittingScale();
    m_scale = std::clamp(scale, least, least * mostZoom());
    m_origin = fixed - at * m_scale;
    keepInTouch();
}

void PictureZoom::keepInTouch()
{
    const QRectF shown = toWindow(m_picture);
    const QPointF inTouch(touching(shown.left(), shown.width(), m_window.width()),
                          touching(shown.top(), shown.height(), m_window.height()));
    m_origin += inTouch - shown.topLeft();
}

bool dxftools::isAt(const SheetFigure &figure, QPointF point, double tolerance)
{
    return std::ranges::any_of(figure.outlines, [&](const QPolygonF &points) {
        const QRectF box = points.boundingRect();
        const bool hasInside = points.isClosed() && box.width() > 0 && box.height() > 0;
        if (hasInside)
            return points.containsPoint(point, Qt::OddEvenFill);
        return anyEdge(points,
                       [&](const QLineF &edge) { return distance(edge, point) <= tolerance; });
    });
}

bool dxftools::touches(const SheetFigure &figure, const QRectF &area)
{
    if (!dxftools::touch(figure.bounds, area))
        return false;
    if (area.contains(figure.bounds))
        return true;
    return std::ranges::any_of(figure.outlines, [&](const QPolygonF &points) {
        const bool holds =
            points.isClosed() && points.containsPoint(area.topLeft(), Qt::OddEvenFill);
        return holds || anyEdge(points, [&](const QLineF &edge) { return crosses(edge, area); });
    });
}

bool dxftools::isOnNumber(const SheetFigure &figure, QPointF point)
{
    if (figure.textHeight <= 0 || figure.number.isEmpty())
        return false;
    const QPointF own = QTransform().rotate(-figure.angle).map(point - figure.centre);
    const auto mark = dxftools::markBoxOf(figure);
    const double text =
        kCharacterWidth * figure.textHeight * static_cast<double>(figure.number.size());
    const double half = mark ? -mark->box.left() : text / 2;
    return std::abs(own.x()) <= half && std::abs(own.y()) <= 0.6 * figure.textHeight;
}

bool dxftools::touch(const QRectF &a, const QRectF &b)
{
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
           b.top() <= a.bottom();
}
