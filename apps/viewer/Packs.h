// SPDX-License-Identifier: GPL-2.0-or-later
// A spatial index: things that lie near each other, in packs with their bounds.
#pragma once

#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

/// A rectangle that begins empty and grows. QRectF takes one without width for none.
struct MapBounds
{
    double left = HUGE_VAL;
    double bottom = HUGE_VAL;
    double right = -HUGE_VAL;
    double top = -HUGE_VAL;

    [[nodiscard]] bool isEmpty() const { return !(left <= right && bottom <= top); }
    void add(QPointF point)
    {
        left = std::min(left, point.x());
        right = std::max(right, point.x());
        bottom = std::min(bottom, point.y());
        top = std::max(top, point.y());
    }
    void add(const MapBounds &other)
    {
        left = std::min(left, other.left);
        right = std::max(right, other.right);
        bottom = std::min(bottom, other.bottom);
        top = std::max(top, other.top);
    }
    [[nodiscard]] bool meets(const MapBounds &other) const
    {
        return left <= other.right && other.left <= right && bottom <= other.top &&
               other.bottom <= top;
    }
    [[nodiscard]] QPointF centre() const { return {(left + right) / 2, (bottom + top) / 2}; }
    [[nodiscard]] QRectF rect() const
    {
        return isEmpty() ? QRectF() : QRectF(left, bottom, right - left, top - bottom);
    }
    [[nodiscard]] static MapBounds of(const QRectF &rect)
    {
        return {rect.left(), rect.top(), rect.right(), rect.bottom()};
    }
};

/// The place of a point on a curve that keeps neighbours together (Morton's): the bits of both
/// coordinates, 16 each, in turn.
[[nodiscard]] inline std::uint32_t curvePlace(QPointF point, const MapBounds &all)
{
    const auto cell = [](double value, double low, double high) {
        const double part = high > low ? (value - low) / (high - low) : 0;
        return static_cast<std::uint32_t>(std::clamp(part, 0.0, 1.0) * 65535);
    };
    const auto spread = [](std::uint32_t bits) {
        bits = (bits | (bits << 8)) & 0x00FF00FFU;
        bits = (bits | (bits << 4)) & 0x0F0F0F0FU;
        bits = (bits | (bits << 2)) & 0x33333333U;
        return (bits | (bits << 1)) & 0x55555555U;
    };
    return spread(cell(point.x(), all.left, all.right)) |
           (spread(cell(point.y(), all.bottom, all.top)) << 1);
}
