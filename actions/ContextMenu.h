// SPDX-License-Identifier: GPL-2.0-or-later
// The context menu that a layout describes.
#pragma once

#include <functional>
#include <kelo_base/core/Export.h>
#include <vector>

class ActionManager;
class ContextMenuLayout;
class FunctionFilter;
class QMenu;

/// Stands for a separator among the entries of a context menu.
inline constexpr int kContextMenuSeparator = -1;

/// Ids of the functions that @p isOffered accepts, in the order of their slots, each once. Where
/// empty slots stand between two of them there is one separator.
[[nodiscard]] KELO_BASE_EXPORT std::vector<int>
ContextMenuEntries(const ContextMenuLayout &layout, const std::function<bool(int id)> &isOffered);

/// Replaces what is in @p menu by the functions of the layout that are offered, see IsOffered().
/// The actions themselves are its entries, so it keeps in step with them and triggers them.
KELO_BASE_EXPORT void FillContextMenu(QMenu &menu, const ActionManager &manager,
                                      const ContextMenuLayout &layout,
                                      const FunctionFilter &filter);
