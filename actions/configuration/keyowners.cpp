// SPDX-License-Identifier: GPL-2.0-or-later
// Finds those who get into each other's way in a sorted list of all keys.
#include "actions/configuration/keyowners_p.h"

#include "actions/configuration/actioncatalogue_p.h"
#include <algorithm>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/KeySequenceList.h>
#include <tuple>

namespace menuconfig {

namespace {

/// In which contexts there is somebody, and in which more than one.
class ContextCells
{
public:
    void add(const Contexts &contexts, bool isMany)
    {
        anyCell(contexts, [&](std::size_t cell) {
            m_many[cell] |= isMany ? contexts.modes : m_some[cell] & contexts.modes;
            m_some[cell] |= contexts.modes;
            return false;
        });
    }
    [[nodiscard]] bool hasSome(const Contexts &contexts) const { return meets(contexts, m_some); }
    [[nodiscard]] bool hasMany(const Contexts &contexts) const { return meets(contexts, m_many); }

private:
    static constexpr std::size_t kPlaces = 17;            ///< the bits of Contexts::kAny
    using Cells = std::array<quint32, kPlaces * kPlaces>; ///< modes by group and sub-context

    template <typename Visit>
    static bool anyCell(const Contexts &contexts, Visit visit)
    {
        for (std::size_t group = 0; group < kPlaces; ++group) {
            if (((contexts.groups >> group) & 1U) == 0)
                continue;
            for (std::size_t sub = 0; sub < kPlaces; ++sub) {
                if (((contexts.subs >> sub) & 1U) != 0 && visit(group * kPlaces + sub))
                    return true;
            }
        }
        return false;
    }
    [[nodiscard]] static bool meets(const Contexts &contexts, const Cells &cells)
    {
        return anyCell(contexts,
                       [&](std::size_t cell) { return (cells[cell] & contexts.modes) != 0; });
    }

    Cells m_some{};
    Cells m_many{};
};

} // namespace

KeyOwners::KeyOwners(const ActionCatalogue &catalogue, const ActionShortCutList &shortcuts,
                     const ActionShortCutList &defaults, const KeySequenceList &reserved,
                     const KeySequenceList &bookmarks)
{
    m_owners.reserve(catalogue.actions().size() + reserved.GetSequences().size() +
                     bookmarks.GetSequences().size());
    for (const ActionInfo &info : catalogue.actions()) {
        const QKeySequence sequence = shortcuts.GetSequenceById(info.id);
        if (!sequence.isEmpty())
            m_owners.push_back({strokesOf(sequence), OwnerKind::Action,
                                sequence == defaults.GetSequenceById(info.id), info.contexts,
                                info.id});
    }
    add(OwnerKind::Reserved, reserved);
    add(OwnerKind::Bookmark, bookmarks);
    std::sort(m_owners.begin(), m_owners.end(), [](const Owner &one, const Owner &other) {
        return std::tie(one.strokes, one.kind, one.isDefault, one.contexts, one.id) <
               std::tie(other.strokes, other.kind, other.isDefault, other.contexts, other.id);
    });
}

void KeyOwners::add(OwnerKind kind, const KeySequenceList &list)
{
    for (const QKeySequence &sequence : list.GetSequences())
        m_owners.push_back({strokesOf(sequence), kind, false, Contexts(), -1});
}

KeyOwners::Strokes KeyOwners::strokesOf(const QKeySequence &sequence)
{
    Strokes strokes{};
    for (int i = 0; i < sequence.count(); ++i)
        strokes[static_cast<std::size_t>(i)] =
            static_cast<quint32>(sequence[static_cast<uint>(i)].toCombined());
    return strokes;
}

QKeySequence KeyOwners::sequenceOf(const Strokes &strokes)
{
    const auto key = [&](std::size_t i) { return static_cast<int>(strokes[i]); };
    return {key(0), key(1), key(2), key(3)};
}

std::size_t KeyOwners::lengthOf(const Strokes &strokes)
{
    return static_cast<std::size_t>(std::find(strokes.begin(), strokes.end(), 0U) -
                                    strokes.begin());
}

/// What stands to each other's keys in some way is given.
bool KeyOwners::areRivals(const Owner &one, const Owner &other)
{
    if (one.kind != OwnerKind::Action && other.kind != OwnerKind::Action)
        return false; // the program's own affair
    const auto isItsOwn = [](const Owner &reserved, const Owner &action) {
        return reserved.kind == OwnerKind::Reserved && action.isDefault &&
               reserved.strokes == action.strokes;
    };
    return one.contexts.meets(other.contexts) && !isItsOwn(one, other) && !isItsOwn(other, one);
}

std::span<const KeyOwners::Owner> KeyOwners::ownersOf(const Strokes &strokes) const
{
    const auto begin = std::ranges::lower_bound(m_owners, strokes, {}, &Owner::strokes);
    const auto end = std::ranges::upper_bound(m_owners, strokes, {}, &Owner::strokes);
    return {begin, end};
}

std::span<const KeyOwners::Owner> KeyOwners::ownersBehind(const Strokes &strokes) const
{
    Strokes last = strokes;
    std::fill(last.begin() + static_cast<std::ptrdiff_t>(lengthOf(strokes)), last.end(),
              0xFFFFFFFFU);
    const auto begin = std::ranges::upper_bound(m_owners, strokes, {}, &Owner::strokes);
    const auto end = std::ranges::upper_bound(m_owners, last, {}, &Owner::strokes);
    return {begin, end};
}

void KeyOwners::addRivals(std::span<const Owner> owners, const Owner &claimant, Overlap overlap,
                          std::vector<Rival> &rivals) const
{
    for (const Owner &owner : owners) {
        const bool isItself = owner.kind == OwnerKind::Action && owner.id == claimant.id;
        if (isItself || !areRivals(owner, claimant))
            continue;
        const bool canCoexist = owner.kind == OwnerKind::Action &&
                                !owner.contexts.isWithin(claimant.contexts) &&
                                !claimant.contexts.isWithin(owner.contexts);
        const auto isSame = [&](const Rival &rival) { // twice in a list of the program's
            return rival.kind == owner.kind && rival.id == owner.id && rival.overlap == overlap &&
                   owner.kind != OwnerKind::Action && rival.sequence == sequenceOf(owner.strokes);
        };
        if (rivals.size() < kMostRivals && std::none_of(rivals.begin(), rivals.end(), isSame))
            rivals.push_back(
                {owner.kind, owner.id, sequenceOf(owner.strokes), overlap, canCoexist});
    }
}

std::vector<Rival> KeyOwners::rivalsOf(const QKeySequence &sequence, const Claimant &claimant) const
{
    std::vector<Rival> rivals;
    const Strokes strokes = strokesOf(sequence);
    const Owner own{strokes, OwnerKind::Action, sequence == claimant.defaultSequence,
                    claimant.contexts, claimant.id};
    Strokes beginning{};
    for (std::size_t i = 0; i + 1 < lengthOf(strokes); ++i) {
        beginning[i] = strokes[i];
        addRivals(ownersOf(beginning), own, Overlap::IsBeginning, rivals);
    }
    if (!sequence.isEmpty()) {
        addRivals(ownersOf(strokes), own, Overlap::Same, rivals);
        addRivals(ownersBehind(strokes), own, Overlap::Continues, rivals);
    }
    std::stable_partition(rivals.begin(), rivals.end(),
                          [](const Rival &rival) { return rival.kind != OwnerKind::Action; });
    return rivals;
}

std::vector<KeyOwners::Run> KeyOwners::runs() const
{
    std::vector<Run> runs;
    const auto isSameClass = [](const Owner &one, const Owner &other) {
        return one.kind == other.kind && one.isDefault == other.isDefault &&
               one.contexts == other.contexts;
    };
    for (auto begin = m_owners.begin(); begin != m_owners.end();) {
        const auto end = std::find_if(begin, m_owners.end(), [&](const Owner &owner) {
            return owner.strokes != begin->strokes || !isSameClass(owner, *begin);
        });
        const bool isNewRun =
            runs.empty() || runs.back().front().owners.front().strokes != begin->strokes;
        if (isNewRun)
            runs.emplace_back();
        runs.back().push_back({std::span<const Owner>(begin, end)});
        begin = end;
    }
    return runs;
}

void KeyOwners::markPairs(std::span<Class> one, std::span<Class> other)
{
    for (Class &first : one) {
        for (Class &second : other) {
            const bool isSettled = first.isInConflict && second.isInConflict;
            const bool isAlone = &first == &second && first.owners.size() == 1;
            if (isSettled || isAlone || !areRivals(first.owners.front(), second.owners.front()))
                continue;
            first.isInConflict = true;
            second.isInConflict = true;
        }
    }
}

/// In one step for each class: of actions the contexts alone matter.
void KeyOwners::markActions(std::span<Class> one, std::span<Class> other)
{
    const auto cellsOf = [](std::span<const Class> classes) {
        ContextCells cells;
        for (const Class &each : classes)
            cells.add(each.owners.front().contexts, each.owners.size() > 1);
        return cells;
    };
    const ContextCells cells = cellsOf(one);
    if (one.data() == other.data()) {
        for (Class &each : one)
            each.isInConflict |= cells.hasMany(each.owners.front().contexts);
        return;
    }
    const ContextCells otherCells = cellsOf(other);
    for (Class &each : one)
        each.isInConflict |= otherCells.hasSome(each.owners.front().contexts);
    for (Class &each : other)
        each.isInConflict |= cells.hasSome(each.owners.front().contexts);
}

/// Thousands may want the same keys, each in contexts of its own.
void KeyOwners::markRivals(Run &one, Run &other)
{
    constexpr std::size_t kFewPairs = 1'000; // for which the cells would take longer
    if (one.size() * other.size() <= kFewPairs)
        return markPairs(one, other);
    const auto actionsOf = [](Run &run) {
        const auto end = std::ranges::find_if(
            run, [](const Class &each) { return each.owners.front().kind != OwnerKind::Action; });
        return std::span<Class>(run.begin(), end);
    };
    const std::span<Class> actions = actionsOf(one);
    const std::span<Class> otherActions = actionsOf(other);
    markActions(actions, otherActions);
    markPairs(actions, std::span<Class>(other).subspan(otherActions.size()));
    markPairs(std::span<Class>(one).subspan(actions.size()), otherActions);
}

std::vector<int> KeyOwners::actionsInConflict() const
{
    std::vector<Run> all = runs();
    std::vector<Run *> beginnings; // of the run looked at, it included
    for (Run &run : all) {
        const Strokes &strokes = run.front().owners.front().strokes;
        const auto isNoBeginning = [&](Run *other) {
            const Strokes &begin = other->front().owners.front().strokes;
            return !std::equal(begin.begin(),
                               begin.begin() + static_cast<std::ptrdiff_t>(lengthOf(begin)),
                               strokes.begin());
        };
        std::erase_if(beginnings, isNoBeginning);
        beginnings.push_back(&run);
        for (Run *beginning : beginnings)
            markRivals(*beginning, run);
    }
    std::vector<int> ids;
    for (const Run &run : all) {
        for (const Class &one : run) {
            for (const Owner &owner : one.owners) {
                if (one.isInConflict && owner.kind == OwnerKind::Action)
                    ids.push_back(owner.id);
            }
        }
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

} // namespace menuconfig
