// SPDX-License-Identifier: GPL-2.0-or-later
// The record under which a function of the program is registered.
#pragma once

#include <kelo_base/core/Export.h>

class QAction;

/// A function that can sit on a keyboard shortcut, in a context menu or in a sector menu. Records
/// live on the heap and come from MakeActionData() only; ActionManager owns those registered.
struct ActionData
{
    int id = -1;
    int category = 0; ///< key of ActionManager's category texts
    /// The contexts in which the function is offered: context groups in bits 16..31, sub-contexts
    /// in bits 0..15; a half without any bit means "any".
    int contextId = 0;
    int contextMask = -1; ///< a second mask of contexts; -1 (all bits): whatever the context
    bool valid = true;    ///< the verdict of ActionManager::ValidateRegisteredActions()
    /// Not owned. Reads null in a registered record once the action has died.
    QAction *action = nullptr;
    bool flag = false; ///< the application's own; kept and copied as given
    int extra = 0;     ///< the application's own; kept and copied as given
};

/// A new, valid record. It is the caller's until it is registered; null when memory is short.
[[nodiscard]] KELO_BASE_EXPORT ActionData *MakeActionData(int id, int category, int contextId,
                                                          int contextMask, QAction *action,
                                                          bool flag, int extra);
/// The same with all bits set in the context mask.
[[nodiscard]] KELO_BASE_EXPORT ActionData *MakeActionData(int id, int category, int contextId,
                                                          QAction *action, bool flag, int extra);
/// A copy of @p other that is valid, whatever @p other is; null for null. Nobody tells a copy that
/// is not registered of its action's death.
[[nodiscard]] KELO_BASE_EXPORT ActionData *MakeActionData(const ActionData *other);
