// SPDX-License-Identifier: GPL-2.0-or-later
// The settings form of shortcut lists and context-menu layouts.
#pragma once

#include <QAnyStringView>
#include <kelo_base/core/Export.h>

class ActionShortCutList;
class ContextMenuLayout;
class QSettings;

// All functions work on a group under @p prefix, for example "MenuConfig/Default", and leave the
// store in the group in which they found it. Readers put up with whatever a damaged file holds;
// writers replace the array that was stored and leave foreign keys beside it alone.

/// Replaces the list by the stored one. False, and nothing touched, when the group holds no key.
/// An element without a number as id is skipped; of two with the same id the later holds. A missing
/// or unreadable key sequence makes a cleared entry, and so does an id that stands only among those
/// stored as cleared.
KELO_BASE_EXPORT bool ReadShortcutList(QSettings &settings, QAnyStringView prefix,
                                       ActionShortCutList &list);
/// Stores the entries that are not empty, ascending by id, and beside them, if there are any, the
/// ids of the cleared ones.
KELO_BASE_EXPORT void WriteShortcutList(QSettings &settings, QAnyStringView prefix,
                                        const ActionShortCutList &list);

/// Replaces the layout by the stored one. False, and nothing touched, when the group holds no key.
/// An element without a number as id makes an empty slot. Of a layout that claims more than 1000
/// slots those up to the last that is there are read, and 1000 at most.
KELO_BASE_EXPORT bool ReadContextMenuLayout(QSettings &settings, QAnyStringView prefix,
                                            ContextMenuLayout &layout);
/// Stores every slot, empty ones as -1.
KELO_BASE_EXPORT void WriteContextMenuLayout(QSettings &settings, QAnyStringView prefix,
                                             const ContextMenuLayout &layout);
