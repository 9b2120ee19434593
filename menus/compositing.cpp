// SPDX-License-Identifier: GPL-2.0-or-later
// Asks the X server, where there is one, for a compositing manager.
#include "menus/compositing_p.h"

#include <QGuiApplication>
#include <QLibrary>

namespace pie {

bool compositesWindows()
{
#if QT_CONFIG(xcb) // the toolkit declares the interface only then
    const auto *x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    Display *display =
        x11 ? x11->display() : nullptr; // null also where windows are not shown at all
    if (!display)
        return true;
    // The manager owns a selection named after the screen. Two functions of a library that the
    // platform plugin has loaded anyway are not worth a dependency.
    using InternAtom = unsigned long (*)(Display *, const char *, int);
    using GetSelectionOwner = unsigned long (*)(Display *, unsigned long);
    QLibrary library(QStringLiteral("X11"), 6);
    const auto intern = reinterpret_cast<InternAtom>(library.resolve("XInternAtom"));
    const auto owner = reinterpret_cast<GetSelectionOwner>(library.resolve("XGetSelectionOwner"));
    return intern && owner && owner(display, intern(display, "_NET_WM_CM_S0", 0)) != 0;
#else
    return true;
#endif
}

} // namespace pie
