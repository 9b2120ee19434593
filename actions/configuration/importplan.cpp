// SPDX-License-Identifier: GPL-2.0-or-later
// Compares a configuration with one from elsewhere.
#include "actions/configuration/importplan_p.h"

#include <QCoreApplication>
#include <algorithm>
#include <unordered_set>

namespace menuconfig {

namespace {

struct ImportTexts
{
    Q_DECLARE_TR_FUNCTIONS(MenuConfigImport)
};

void examine(ImportRow &row, const KeyOwners &owners, const Surroundings &given)
{
    const QKeySequence sequence = row.change.after.value_or(QKeySequence());
    if (!given.catalogue.find(row.change.id)) {
        row.note = ImportTexts::tr("This program does not know the function; it is kept.");
        return;
    }
    const auto rivals = owners.rivalsOf(sequence, given.claimantOf(row.change.id));
    row.note = sentenceAbout(rivals, sequence, given.catalogue);
    row.canTake = std::ranges::all_of(
        rivals, [](const Rival &rival) { return rival.kind == OwnerKind::Action; });
    row.isTaken = row.canTake;
}

} // namespace

ImportPlan planImport(const MenuConfiguration &current, const MenuConfiguration &imported,
                      const Surroundings &given)
{
    MenuConfiguration all = current;
    for (const int id : idsOf(imported.shortcuts))
        all.shortcuts.AssignKeySequence(id, imported.shortcuts.GetSequenceById(id));
    all.layout = imported.layout;
    Difference difference = differenceOf(current, all);
    const KeyOwners owners = given.ownersIn(all.shortcuts);
    ImportPlan plan;
    plan.rows.reserve(difference.shortcuts.size());
    for (ShortcutChange &change : difference.shortcuts) {
        plan.rows.push_back({std::move(change), {}});
        examine(plan.rows.back(), owners, given);
    }
    plan.layout = std::move(difference.layout);
    return plan;
}

MenuConfiguration withImport(MenuConfiguration current, const ImportPlan &plan,
                             const Surroundings &given)
{
    ActionShortCutList &list = current.shortcuts;
    std::unordered_set<int> taken;
    for (const ImportRow &row : plan.rows) {
        if (!row.isTaken || !row.canTake)
            continue;
        list.AssignKeySequence(row.change.id, row.change.after.value_or(QKeySequence()));
        taken.insert(row.change.id);
    }
    for (bool isFree = false; !isFree;) { // again, because only so many rivals are told at once
        isFree = true;
        const KeyOwners owners = given.ownersIn(list);
        for (const int id : taken) {
            if (!given.catalogue.find(id))
                continue;
            for (const Rival &rival :
                 owners.rivalsOf(list.GetSequenceById(id), given.claimantOf(id))) {
                if (rival.kind != OwnerKind::Action || rival.canCoexist ||
                    taken.count(rival.id) != 0 || !list.HasSequenceAssigned(rival.id))
                    continue;
                list.ClearKeySequence(rival.id);
                isFree = false;
            }
        }
    }
    if (plan.layout && plan.takesLayout)
        current.layout = plan.layout->after;
    return current;
}

} // namespace menuconfig
