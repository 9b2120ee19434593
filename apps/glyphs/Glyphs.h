// SPDX-License-Identifier: GPL-2.0-or-later
// Line icons drawn in the colours of the palette, sharp at every size.
#pragma once

#include <QIcon>

/// @param glyph  strokes on a grid of 24 x 24, each "x,y x,y ..." for a line, or "o x,y r" for a
///               circle, separated by ";"
[[nodiscard]] QIcon glyphIcon(const char *glyph);
