// SPDX-License-Identifier: GPL-2.0-or-later
// What controls ask of the document window; the view may be gone when one of them returns.
#pragma once

#include <QPoint>
#include <kelo_base/navigation/DocWindowXIfc.h>
#include <kelo_base/navigation/KView.h>

namespace navcontrols {

// All return false, as the document window does, when it cannot.

bool turnView(KView *view, double degrees);
bool zoomView(KView *view, double ratio);
/// Keeps the place at @p pointer, a pixel of the view, where it is.
bool zoomAround(KView *view, QPoint pointer, double ratio);
bool zoomToScale(KView *view, double scale);
bool zoomToHeight(KView *view, double metres);
bool showWholePage(KView *view, DocWindowXIfc::PageTurn turn);
/// Opens a neighbour at the same place of the map, in the same scale and rotation.
bool showNeighbour(KView *view, DocWindowXIfc::UDocItem item);
bool showItem(KView *view, const DocWindowXIfc::UDocItem &item);

/// By how much a wheel zooms for its angle in eighths of a degree, above 1 to show more: a step of
/// 15 degrees is a quarter, or with @p isFine a twentieth.
[[nodiscard]] double wheelRatio(int angle, bool isFine);

/// What the view shows, to be stored: as far as the document window tells, else as measured. Not
/// valid when no document is shown.
[[nodiscard]] DocWindowXIfc::UDocItem itemOf(KView *view);

} // namespace navcontrols
