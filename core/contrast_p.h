// SPDX-License-Identifier: GPL-2.0-or-later
// How well colours are told apart.
#pragma once

#include <QColor>

namespace colors {

/// Contrast of text that everybody can read.
inline constexpr double kReadableContrast = 4.5;

/// Relative luminance of WCAG 2, from 0 to 1.
[[nodiscard]] double luminance(const QColor &color);
/// From 1, the same, to 21, black on white: the ratio of WCAG 2.
[[nodiscard]] double contrast(const QColor &a, const QColor &b);
/// From @p a, part 0, to @p b, part 1.
[[nodiscard]] QColor mixed(const QColor &a, const QColor &b, double part);

} // namespace colors
