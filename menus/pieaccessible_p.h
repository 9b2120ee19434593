// SPDX-License-Identifier: GPL-2.0-or-later
// Pie menus for screen readers.
#pragma once

class QtPieItem;
class QtPieMenu;

namespace pie {

/// Makes pie menus and their items known to QAccessible; harmless when repeated.
void installAccessibility();
/// Tells that @p item, or the menu itself when null, is where keys go.
void announceFocus(QtPieMenu &menu, QtPieItem *item);
void announceOpen(QtPieMenu &menu, bool isOpen);

} // namespace pie
