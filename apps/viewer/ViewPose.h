// SPDX-License-Identifier: GPL-2.0-or-later
// How a view lies over the map: pure numbers, no widget.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>
#include <optional>

/// What the middle of a view shows, how large and how turned. Map coordinates are metres, x east, y
/// north; pixels are the widget's, y downwards, relative to its size where that is asked for.
class ViewPose
{
public:
    /// A view cannot zoom beyond these, in metres a pixel.
    static constexpr double kFinest = 1e-4;
    static constexpr double kCoarsest = 1e5;

    ViewPose() = default;
    /// @param metresPerPixel  brought between the two limits; no number counts as 1
    /// @param angle           degrees, counter-clockwise from the map's east to the screen's right
    ViewPose(QPointF middle, double metresPerPixel, double angle);

    [[nodiscard]] QPointF middle() const { return m_middle; }
    [[nodiscard]] double metresPerPixel() const { return m_metresPerPixel; }
    [[nodiscard]] double angle() const { return m_angle; } ///< -180 ... 180

    [[nodiscard]] QPointF toMap(QPointF pixel, QSizeF view) const;
    [[nodiscard]] QPointF toPixel(QPointF map, QSizeF view) const;
    /// Map to pixels, as toPixel().
    [[nodiscard]] QTransform transform(QSizeF view) const;
    /// The upright rectangle of the map around what a view shows.
    [[nodiscard]] QRectF shownBounds(QSizeF view) const;
    /// Whether both differ by a shift alone, so that a picture of one is a piece of the other's.
    [[nodiscard]] bool hasScaleAndAngleOf(const ViewPose &other) const;

    /// The picture follows the pointer by so many pixels.
    [[nodiscard]] ViewPose moved(QPointF pixels) const;
    [[nodiscard]] ViewPose movedTo(QPointF middle) const;
    /// @param ratio  above 1 shows more; what lies under @p fixed stays there
    [[nodiscard]] ViewPose zoomed(double ratio, QPointF fixed, QSizeF view) const;
    /// The angle grows: what is shown turns clockwise, around @p fixed.
    [[nodiscard]] ViewPose turned(double degrees, QPointF fixed, QSizeF view) const;
    /// The smallest view at @p angle that shows all points, with a margin around them.
    [[nodiscard]] static ViewPose showing(const QList<QPointF> &map, double angle, QSizeF view);

    friend bool operator==(const ViewPose &, const ViewPose &) = default;

private:
    [[nodiscard]] QPointF right() const; ///< of the screen, as a unit vector on the map
    /// The pose that shows @p map at @p pixel.
    [[nodiscard]] ViewPose with(QPointF map, QPointF pixel, QSizeF view) const;

    QPointF m_middle;
    double m_metresPerPixel = 1;
    double m_angle = 0;
};

/// "X,Y,HEIGHT" or "X,Y,HEIGHT,ANGLE" as on the command line.
struct WantedView
{
    QPointF middle;
    double height = 0; ///< metres from which one looks down, above 0
    double angle = 0;  ///< degrees, as of a pose

    /// Nothing when the text is anything else.
    [[nodiscard]] static std::optional<WantedView> fromText(const QString &text);
    friend bool operator==(const WantedView &, const WantedView &) = default;
};
