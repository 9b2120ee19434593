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
/// Tells that the item's text, or whether it is checked, is different now. The toolkit does so for
/// its enabled state.
void announceName(QtPieItem &item);
void announceCheck(QtPieItem &item);

} // namespace pie
