// SPDX-License-Identifier: GPL-2.0-or-later
// The dark colours of the pictures of dialogs.
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
