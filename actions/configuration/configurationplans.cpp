// SPDX-License-Identifier: GPL-2.0-or-later
// Plans edits that concern more than one shortcut.
#include "actions/configuration/configurationplans_p.h"

#include <QCoreApplication>

namespace menuconfig {

namespace {

struct RivalTexts
{
    Q_DECLARE_TR_FUNCTIONS(MenuConfigRivals)
};

QString keysOf(const QKeySequence &sequence)
{
    return sequence.toString(QKeySequence::NativeText);
}

QString aboutOne(const Rival &rival, const QKeySequence &sequence, const QString &owner)
{
    switch (rival.overlap) {
    case Overlap::Same:
        return RivalTexts::tr("%1 is taken: %2.").arg(keysOf(sequence), owner);
    case Overlap::IsBeginning:
        return RivalTexts::tr("%1 begins with %2, which is taken: %3.")
            .arg(keysOf(sequence), keysOf(rival.sequence), owner);
    case Overlap::Continues:
        return RivalTexts::tr("%1 is the beginning of %2, which is taken: %3.")
            .arg(keysOf(sequence), keysOf(rival.sequence), owner);
    }
    return QString();
}

QString ownerOf(const Rival &rival, const ActionCatalogue &catalogue)
{
    switch (rival.kind) {
    case OwnerKind::Action:
        return catalogue.nameOf(rival.id);
    case OwnerKind::Reserved:
        return RivalTexts::tr("reserved by the program");
    case OwnerKind::Bookmark:
        return RivalTexts::tr("a bookmark");
    }
    return QString();
}

} // namespace

KeyOwners Surroundings::ownersIn(const ActionShortCutList &list) const
{
    return {catalogue, list, defaults, reserved, bookmarks};
}

Claimant Surroundings::claimantOf(int id) const
{
    const ActionInfo *info = catalogue.find(id);
    return {id, info ? info->contexts : Contexts(), defaults.GetSequenceById(id)};
}

ActionShortCutList reassigned(ActionShortCutList list, const Surroundings &given, int id,
                              const QKeySequence &sequence)
{
    const Claimant claimant = given.claimantOf(id);
    for (bool isFree = false; !isFree;) { // again, because only so many rivals are told at once
        isFree = true;
        for (const Rival &rival : given.ownersIn(list).rivalsOf(sequence, claimant)) {
            if (rival.kind != OwnerKind::Action)
                continue;
            list.ClearKeySequence(rival.id);
            isFree = false;
        }
    }
    list.AssignKeySequence(id, sequence);
    return list;
}

ActionShortCutList withDefaults(ActionShortCutList list, const Surroundings &given,
                                const std::vector<int> &ids, OwnKeys ownKeys)
{
    for (const int id : ids) {
        if (given.defaults.HasSequenceAssigned(id))
            list.AssignKeySequence(id, given.defaults.GetSequenceById(id));
        else if (ownKeys == OwnKeys::Drop)
            list.ClearKeySequence(id);
    }
    for (bool isFree = false; !isFree;) {
        isFree = true;
        const KeyOwners owners = given.ownersIn(list);
        for (const int id : ids) {
            const QKeySequence sequence = given.defaults.GetSequenceById(id);
            for (const Rival &rival : owners.rivalsOf(sequence, given.claimantOf(id))) {
                const bool isChosen = rival.kind == OwnerKind::Action && !rival.canCoexist &&
                                      rival.sequence != given.defaults.GetSequenceById(rival.id);
                if (!isChosen || !list.HasSequenceAssigned(rival.id))
                    continue;
                list.ClearKeySequence(rival.id);
                isFree = false;
            }
        }
    }
    return list;
}

QString sentenceAbout(const std::vector<Rival> &rivals, const QKeySequence &sequence,
                      const ActionCatalogue &catalogue)
{
    if (rivals.empty())
        return QString();
    const Rival &first = rivals.front();
    const QString sentence = aboutOne(first, sequence, ownerOf(first, catalogue));
    const int others = static_cast<int>(rivals.size()) - 1;
    if (others == 0)
        return sentence;
    return others == 1
               ? RivalTexts::tr("%1 One more is in the way.").arg(sentence)
               : RivalTexts::tr("%1 %n more are in the way.", nullptr, others).arg(sentence);
}

} // namespace menuconfig
