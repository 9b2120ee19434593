// SPDX-License-Identifier: GPL-2.0-or-later
// How well colours are told apart.
#include "core/contrast_p.h"

#include <algorithm>
#include <cmath>

namespace colors {

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

QColor mixed(const QColor &a, const QColor &b, double part)
{
    const auto mix = [part](float x, float y) { return std::lerp(x, y, static_cast<float>(part)); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                            mix(a.blueF(), b.blueF()));
}

} // namespace colors
