// SPDX-License-Identifier: GPL-2.0-or-later
// Dark colours, and those of high contrast, of the pictures of dialogs.
#pragma once

#include <QPalette>

inline QPalette darkPalette()
{
    QPalette palette(QColor(66, 66, 70), QColor(53, 53, 57));
    palette.setColor(QPalette::Base, QColor(34, 34, 36));
    palette.setColor(QPalette::AlternateBase, QColor(42, 42, 45));
    palette.setColor(QPalette::Highlight, QColor(61, 126, 204));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

inline QPalette contrastPalette()
{
    QPalette palette(Qt::black, Qt::black);
    palette.setColor(QPalette::All, QPalette::Base, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(63, 242, 63));
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}
