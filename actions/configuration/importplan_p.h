// SPDX-License-Identifier: GPL-2.0-or-later
// What taking over another configuration would change, row by row.
#pragma once

#include "actions/configuration/configurationplans_p.h"
#include "actions/configuration/menuconfiguration_p.h"

namespace menuconfig {

struct ImportRow
{
    ShortcutChange change;
    QString note;        ///< who is in the way, or that nobody knows the function; or empty
    bool canTake = true; ///< false for keys that are not for users to assign
    bool isTaken = true;
};

struct ImportPlan
{
    std::vector<ImportRow> rows; ///< ascending by id; only what is different
    std::optional<LayoutChange> layout;
    bool takesLayout = true;
};

/// Functions that @p imported has no entry for stay as they are; those that the program does not
/// know are taken along.
[[nodiscard]] ImportPlan planImport(const MenuConfiguration &current,
                                    const MenuConfiguration &imported, const Surroundings &given);

/// Who has keys in the way of a row that is taken loses them, unless both can be kept or its own
/// row is taken too.
[[nodiscard]] MenuConfiguration withImport(MenuConfiguration current, const ImportPlan &plan,
                                           const Surroundings &given);

} // namespace menuconfig
