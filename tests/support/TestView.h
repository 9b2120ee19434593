// SPDX-License-Identifier: GPL-2.0-or-later
// A document window whose one view shows the map through a known transformation.
#pragma once

#include <climits>
#include <cmath>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <kelo_base/navigation/KView.h>
#include <numbers>

/// The map turned, scaled and shifted under a screen whose y grows downwards. Set what you need.
struct TestView : KView
{
    QRect device{0, 0, 800, 600};
    double metresPerPixel = 1;
    double eastToRight = 0;    ///< degrees counter-clockwise from east to the right of the screen
    QPointF origin;            ///< on the map, of pixel (0, 0)
    QSize dpi{96, 96};         ///< physical; QSize(): the screen's own
    int unknownFrom = INT_MAX; ///< pixels from this column on cannot be converted

    [[nodiscard]] QPointF geoAt(QPointF pixel) const
    {
        const double angle = eastToRight * std::numbers::pi / 180;
        const QPointF right(std::cos(angle), std::sin(angle));
        const QPointF down(right.y(), -right.x());
        return origin + metresPerPixel * (pixel.x() * right + pixel.y() * down);
    }

protected:
    int metric(PaintDeviceMetric which) const override
    {
        if (dpi.isValid() && (which == PdmPhysicalDpiX || which == PdmPhysicalDpiY))
            return which == PdmPhysicalDpiX ? dpi.width() : dpi.height();
        return KView::metric(which);
    }
};

/// Registered while it lives.
struct TestWindow : DocWindowXIfc
{
    TestWindow() { SetHInstance(this); }

    mutable TestView view;
    bool hasRects = true;

    KView *PrimaryView() const override { return &view; }
    bool DeviceRect(QWidget *, QRect &rect) const override
    {
        rect = view.device;
        return hasRects;
    }
    bool DocPageRect(QWidget *, QRectF &) const override { return hasRects; } // an empty page
    bool DeviceToGeo(QWidget *, UCoord &coord) const override
    {
        coord.geoPoint = view.geoAt(coord.devicePoint);
        return coord.devicePoint.x() < view.unknownFrom;
    }
};
