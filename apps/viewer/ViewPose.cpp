// SPDX-License-Identifier: GPL-2.0-or-later
// The mapping between pixels and map, and the ways to another pose.
#include "ViewPose.h"

#include <QPolygonF>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kMargin = 1.06; ///< around what is shown as a whole

double limitedScale(double metresPerPixel)
{
    return std::isfinite(metresPerPixel)
               ? std::clamp(metresPerPixel, ViewPose::kFinest, ViewPose::kCoarsest)
               : 1;
}

QPointF middleOf(QSizeF view)
{
    return {view.width() / 2, view.height() / 2};
}

double along(QPointF vector, QPointF unit)
{
    return QPointF::dotProduct(vector, unit);
}

/// The vector turned left by a right angle.
QPointF leftOf(QPointF vector)
{
    return {-vector.y(), vector.x()};
}

} // namespace

ViewPose::ViewPose(QPointF middle, double metresPerPixel, double angle)
    : m_middle(middle),
      m_metresPerPixel(limitedScale(metresPerPixel)),
      m_angle(std::isfinite(angle) ? std::remainder(angle, 360) : 0)
{
}

/// Quarter turns are exact, so that an upright picture has upright lines.
QPointF ViewPose::right() const
{
    const double quarters = m_angle / 90;
    if (quarters == std::floor(quarters)) {
        constexpr QPointF kRights[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
        return kRights[(static_cast<int>(quarters) + 4) % 4];
    }
    const double radians = m_angle * std::numbers::pi / 180;
    return {std::cos(radians), std::sin(radians)};
}

QPointF ViewPose::toMap(QPointF pixel, QSizeF view) const
{
    const QPointF offset = (pixel - middleOf(view)) * m_metresPerPixel;
    return m_middle + right() * offset.x() - leftOf(right()) * offset.y();
}

QPointF ViewPose::toPixel(QPointF map, QSizeF view) const
{
    const QPointF offset = (map - m_middle) / m_metresPerPixel;
    return middleOf(view) + QPointF(along(offset, right()), -along(offset, leftOf(right())));
}

QTransform ViewPose::transform(QSizeF view) const
{
    const QPointF x = right() / m_metresPerPixel;
    const QPointF origin =
        middleOf(view) - QPointF(along(m_middle, x), -along(m_middle, leftOf(x)));
    return {x.x(), x.y(), x.y(), -x.x(), origin.x(), origin.y()};
}

QRectF ViewPose::shownBounds(QSizeF view) const
{
    const QRectF pixels(QPointF(), view);
    return QPolygonF({toMap(pixels.topLeft(), view), toMap(pixels.topRight(), view),
                      toMap(pixels.bottomRight(), view), toMap(pixels.bottomLeft(), view)})
        .boundingRect();
}

bool ViewPose::hasScaleAndAngleOf(const ViewPose &other) const
{
    return m_metresPerPixel == other.m_metresPerPixel && m_angle == other.m_angle;
}

ViewPose ViewPose::moved(QPointF pixels) const
{
    return movedTo(toMap(-pixels, QSizeF(0, 0)));
}

ViewPose ViewPose::movedTo(QPointF middle) const
{
    return {middle, m_metresPerPixel, m_angle};
}

ViewPose ViewPose::with(QPointF map, QPointF pixel, QSizeF view) const
{
    return movedTo(m_middle + map - toMap(pixel, view));
}

ViewPose ViewPose::zoomed(double ratio, QPointF fixed, QSizeF view) const
{
    return ViewPose(m_middle, m_metresPerPixel * ratio, m_angle)
        .with(toMap(fixed, view), fixed, view);
}

ViewPose ViewPose::turned(double degrees, QPointF fixed, QSizeF view) const
{
    return ViewPose(m_middle, m_metresPerPixel, m_angle + degrees)
        .with(toMap(fixed, view), fixed, view);
}

ViewPose ViewPose::showing(const QList<QPointF> &map, double angle, QSizeF view)
{
    ViewPose pose({}, 1, angle);
    if (map.isEmpty())
        return pose;
    QPolygonF turned; // at one pixel a metre
    for (const QPointF &point : map)
        turned << pose.toPixel(point, QSizeF(0, 0));
    const QRectF bounds = turned.boundingRect();
    pose = pose.movedTo(pose.toMap(bounds.center(), QSizeF(0, 0)));
    const double scale = std::max(bounds.width() / std::max(view.width(), 1.0),
                                  bounds.height() / std::max(view.height(), 1.0));
    return {pose.m_middle, scale > 0 ? scale * kMargin : 1, angle};
}

std::optional<WantedView> WantedView::fromText(const QString &text)
{
    const QStringList parts = text.split(u',');
    if (parts.size() < 3 || parts.size() > 4)
        return std::nullopt;
    double numbers[4] = {};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        bool isNumber = false;
        numbers[i] = parts[i].trimmed().toDouble(&isNumber);
        if (!isNumber || !std::isfinite(numbers[i]))
            return std::nullopt;
    }
    if (numbers[2] <= 0)
        return std::nullopt;
    return WantedView{{numbers[0], numbers[1]}, numbers[2], numbers[3]};
}
