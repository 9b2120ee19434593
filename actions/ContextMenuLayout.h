// SPDX-License-Identifier: GPL-2.0-or-later
// Which action sits in which slot of the context menu.
#pragma once

#include <kelo_base/core/Export.h>
#include <vector>

/// Slots numbered from 0, each empty or with an action id. Every value but -1 is an id, 0 too.
class KELO_BASE_EXPORT ContextMenuLayout
{
public:
    /// Slots gained by growing hold action id 0; clear the ones that shall be empty. Shrinking
    /// drops the last ones.
    void SetNumberOfSlots(unsigned int count) { m_slots.resize(count); }
    [[nodiscard]] unsigned int NumberOfSlots() const;
    /// @param slot  below NumberOfSlots(); others are the caller's fault, and ignored
    void AssignActionIdToSlot(unsigned int slot, int id);
    /// Empties the slot, which must exist as well.
    void ClearSlot(unsigned int slot) { AssignActionIdToSlot(slot, kEmptySlot); }
    /// Leaves no slots at all.
    void ClearAll() { m_slots.clear(); }

    /// False for a slot that is empty or does not exist.
    [[nodiscard]] bool HasAssignedAction(unsigned int slot) const;
    /// The id in @p slot; -1 when it is empty or does not exist.
    [[nodiscard]] int GetAssignedActionId(unsigned int slot) const;

    friend bool operator==(const ContextMenuLayout &, const ContextMenuLayout &) = default;

private:
    static constexpr int kEmptySlot = -1;
    std::vector<int> m_slots;
};
