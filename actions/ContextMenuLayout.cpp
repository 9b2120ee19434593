// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps action ids by slot.
#include <kelo_base/actions/ContextMenuLayout.h>

unsigned int ContextMenuLayout::NumberOfSlots() const
{
    return static_cast<unsigned int>(m_slots.size()); // never more: see SetNumberOfSlots()
}

void ContextMenuLayout::AssignActionIdToSlot(unsigned int slot, int id)
{
    if (slot < m_slots.size())
        m_slots[slot] = id;
}

bool ContextMenuLayout::HasAssignedAction(unsigned int slot) const
{
    return GetAssignedActionId(slot) != kEmptySlot;
}

int ContextMenuLayout::GetAssignedActionId(unsigned int slot) const
{
    return slot < m_slots.size() ? m_slots[slot] : kEmptySlot;
}
