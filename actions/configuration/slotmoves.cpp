// SPDX-License-Identifier: GPL-2.0-or-later
// Moves, fills and empties slots.
#include "actions/configuration/slotmoves_p.h"

#include <QHash>
#include <QKeySequence>
#include <algorithm>

namespace menuconfig {

namespace {

struct Slot
{
    int id = kEmptySlot;
    bool isTouched = false;
};
using Slots = std::vector<Slot>;

Slots slotsOf(const ContextMenuLayout &layout, const std::vector<unsigned int> &touched = {})
{
    Slots all;
    all.reserve(layout.NumberOfSlots());
    for (unsigned int slot = 0; slot < layout.NumberOfSlots(); ++slot)
        all.push_back({layout.GetAssignedActionId(slot), false});
    for (const unsigned int slot : touched) {
        if (slot < all.size())
            all[slot].isTouched = true;
    }
    return all;
}

SlotEdit editOf(const Slots &all)
{
    SlotEdit edit;
    edit.layout.SetNumberOfSlots(static_cast<unsigned int>(all.size()));
    for (unsigned int slot = 0; slot < all.size(); ++slot) {
        edit.layout.AssignActionIdToSlot(slot, all[slot].id);
        if (all[slot].isTouched)
            edit.touched.push_back(slot);
    }
    return edit;
}

bool isTouched(const Slot &slot)
{
    return slot.isTouched;
}

void leaveOldSlots(Slots &all, const std::vector<int> &ids)
{
    for (Slot &slot : all) {
        if (std::find(ids.begin(), ids.end(), slot.id) != ids.end())
            slot.id = kEmptySlot;
    }
}

} // namespace

SlotEdit slotsMoved(const ContextMenuLayout &layout, const std::vector<unsigned int> &places,
                    unsigned int before)
{
    Slots all = slotsOf(layout, places);
    const auto target = all.begin() + std::min<std::ptrdiff_t>(before, std::ssize(all));
    std::stable_partition(all.begin(), target, [](const Slot &slot) { return !slot.isTouched; });
    std::stable_partition(target, all.end(), isTouched);
    return editOf(all);
}

SlotEdit slotsShifted(const ContextMenuLayout &layout, const std::vector<unsigned int> &places,
                      bool isUp)
{
    Slots all = slotsOf(layout, places);
    const auto shift = [](auto begin, auto end) {
        for (auto slot = begin; slot != end; ++slot) {
            if (slot != begin && slot->isTouched && !std::prev(slot)->isTouched)
                std::iter_swap(slot, std::prev(slot));
        }
    };
    if (isUp)
        shift(all.begin(), all.end());
    else
        shift(all.rbegin(), all.rend());
    return editOf(all);
}

SlotEdit slotsInserted(const ContextMenuLayout &layout, const std::vector<int> &ids,
                       unsigned int before)
{
    Slots all = slotsOf(layout);
    const std::ptrdiff_t room = std::max<std::ptrdiff_t>(kMostSlots - std::ssize(all), 0);
    const std::ptrdiff_t count = std::min(room, std::ssize(ids));
    std::vector<int> added(ids.begin(), ids.begin() + count);
    leaveOldSlots(all, added);
    Slots fresh;
    fresh.reserve(added.size());
    for (const int id : added)
        fresh.push_back({id, true});
    all.insert(all.begin() + std::min<std::ptrdiff_t>(before, std::ssize(all)), fresh.begin(),
               fresh.end());
    return editOf(all);
}

SlotEdit slotsFilled(const ContextMenuLayout &layout, const std::vector<int> &ids,
                     unsigned int slot)
{
    Slots all = slotsOf(layout);
    slot = std::min(slot, layout.NumberOfSlots());
    const std::size_t most = std::max<std::size_t>(kMostSlots, all.size());
    const std::size_t count = std::min(ids.size(), most - slot);
    leaveOldSlots(all, {ids.begin(), ids.begin() + static_cast<std::ptrdiff_t>(count)});
    all.resize(std::max(all.size(), slot + count));
    for (std::size_t i = 0; i < count; ++i)
        all[slot + i] = {ids[i], true};
    return editOf(all);
}

SlotEdit slotsDeleted(const ContextMenuLayout &layout, const std::vector<unsigned int> &places)
{
    Slots all = slotsOf(layout, places);
    const auto isFull = [](const Slot &slot) { return slot.isTouched && slot.id != kEmptySlot; };
    if (std::any_of(all.begin(), all.end(), isFull)) {
        for (Slot &slot : all)
            slot.id = slot.isTouched ? kEmptySlot : slot.id;
        return editOf(all);
    }
    const auto first = std::find_if(all.begin(), all.end(), isTouched);
    const auto place = static_cast<std::size_t>(first - all.begin());
    all.erase(std::remove_if(all.begin(), all.end(), isTouched), all.end());
    if (!all.empty()) // the one that moved up is next
        all[std::min(place, all.size() - 1)].isTouched = true;
    return editOf(all);
}

int slotOf(const ContextMenuLayout &layout, int id)
{
    for (unsigned int slot = 0; slot < layout.NumberOfSlots(); ++slot) {
        if (layout.HasAssignedAction(slot) && layout.GetAssignedActionId(slot) == id)
            return static_cast<int>(slot);
    }
    return -1;
}

std::vector<bool> clashingMnemonics(const QStringList &texts)
{
    QHash<QKeySequence, int> uses;
    for (const QString &text : texts)
        ++uses[QKeySequence::mnemonic(text)];
    uses.remove(QKeySequence());
    std::vector<bool> isClashing;
    isClashing.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString &text : texts)
        isClashing.push_back(uses.value(QKeySequence::mnemonic(text)) > 1);
    return isClashing;
}

} // namespace menuconfig
