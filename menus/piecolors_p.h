// SPDX-License-Identifier: GPL-2.0-or-later
// Colours of a pie menu that can be told apart, whatever the palette.
#pragma once

#include <QColor>
#include <QPalette>
#include <QPixmap>

namespace pie {

/// @p fill, darkened where @p text is light and lightened where it is dark, but only as far as it
/// takes for the text to be readable.
[[nodiscard]] QColor readableFill(const QColor &fill, const QColor &text);

/// The colours of everything but labels.
struct Colors
{
    explicit Colors(const QPalette &palette);
    QColor ring;
    QColor separator;
    QColor rim;
    QColor sign;      ///< in the middle
    QColor digit;     ///< faint, or as strong as text in high contrast
    QColor highlight; ///< text on it is readable
    QColor highlightedText;
    QColor veil; ///< over a menu that is behind its sub-menu
    double lineWidth = 1;
};

/// The icon for a highlighted item: in @p color when it has but one colour itself, else drawn
/// towards it, so that neither kind drowns in the highlight.
[[nodiscard]] QPixmap tinted(const QPixmap &icon, const QColor &color);

} // namespace pie
