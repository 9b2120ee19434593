// SPDX-License-Identifier: GPL-2.0-or-later
// What an edit makes of the slots of a context menu.
#pragma once

#include "actions/menuconfig_p.h"
#include <QStringList>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <vector>

namespace menuconfig {

inline constexpr int kEmptySlot = -1;

/// A layout after an edit, and which of its slots the edit was about, ascending.
struct SlotEdit
{
    ContextMenuLayout layout;
    std::vector<unsigned int> touched;
};

/// Slots that do not exist are left out everywhere. A layout never grows beyond kMostSlots: what
/// has no room is left out too.

/// Moves slots in front of the slot @p before, or to the end, in the order they have.
[[nodiscard]] SlotEdit slotsMoved(const ContextMenuLayout &layout,
                                  const std::vector<unsigned int> &places, unsigned int before);
/// Moves slots by one towards the beginning, or the end. At the edge they stay.
[[nodiscard]] SlotEdit slotsShifted(const ContextMenuLayout &layout,
                                    const std::vector<unsigned int> &places, bool isUp);
/// New slots in front of @p before, or at the end. A function has one slot: where it was before, an
/// empty one remains, so that the others keep their directions in the sector menu.
[[nodiscard]] SlotEdit slotsInserted(const ContextMenuLayout &layout, const std::vector<int> &ids,
                                     unsigned int before);
/// Puts the functions into @p slot and those behind it, whatever is there; as above one slot each.
[[nodiscard]] SlotEdit slotsFilled(const ContextMenuLayout &layout, const std::vector<int> &ids,
                                   unsigned int slot);
/// Empties the slots; those that are all empty already are taken out.
[[nodiscard]] SlotEdit slotsDeleted(const ContextMenuLayout &layout,
                                    const std::vector<unsigned int> &places);

/// The slot of a function; -1 when it has none.
[[nodiscard]] int slotOf(const ContextMenuLayout &layout, int id);

/// Which texts share their mnemonic with another one, by place.
[[nodiscard]] std::vector<bool> clashingMnemonics(const QStringList &texts);

} // namespace menuconfig
