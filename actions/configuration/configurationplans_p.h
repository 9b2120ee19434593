// SPDX-License-Identifier: GPL-2.0-or-later
// What larger edits would make of the shortcuts, before anybody agrees to them.
#pragma once

#include "actions/configuration/actioncatalogue_p.h"
#include "actions/configuration/keyowners_p.h"
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/KeySequenceList.h>

namespace menuconfig {

/// What is given while a configuration is worked on.
struct Surroundings
{
    ActionCatalogue catalogue;
    ActionShortCutList defaults;
    KeySequenceList reserved;
    KeySequenceList bookmarks;

    [[nodiscard]] KeyOwners ownersIn(const ActionShortCutList &list) const;
    [[nodiscard]] Claimant claimantOf(int id) const;
};

/// The function has the keys, and no other that could be live with it has any in their way.
[[nodiscard]] ActionShortCutList reassigned(ActionShortCutList list, const Surroundings &given,
                                            int id, const QKeySequence &sequence);

enum class OwnKeys { Keep, Drop };

/// The functions have their defaults. Keys that the user chose and that are in the way of one of
/// these are taken away, whoever has them.
/// @param ownKeys  what becomes of the keys of those that have no default
[[nodiscard]] ActionShortCutList withDefaults(ActionShortCutList list, const Surroundings &given,
                                              const std::vector<int> &ids, OwnKeys ownKeys);

/// One sentence about those in the way; empty when there are none.
[[nodiscard]] QString sentenceAbout(const std::vector<Rival> &rivals, const QKeySequence &sequence,
                                    const ActionCatalogue &catalogue);

} // namespace menuconfig
