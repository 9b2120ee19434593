// SPDX-License-Identifier: GPL-2.0-or-later
// Who has which keys, and who gets into whose way.
#pragma once

#include "actions/configuration/contexts_p.h"
#include <QKeySequence>
#include <array>
#include <span>
#include <vector>

class ActionShortCutList;
class KeySequenceList;

namespace menuconfig {

class ActionCatalogue;

enum class OwnerKind : quint8 { Action, Reserved, Bookmark };

/// Where the keys of a rival stand to those asked about.
enum class Overlap { Same, IsBeginning, Continues };

struct Rival
{
    OwnerKind kind = OwnerKind::Action;
    int id = -1; ///< of an action
    QKeySequence sequence;
    Overlap overlap = Overlap::Same;
    /// Whether each of the two is also offered where the other is not, so that both can be kept.
    bool canCoexist = false;
};

/// What is known of whoever wants keys.
struct Claimant
{
    int id = -1;
    Contexts contexts;
    QKeySequence defaultSequence; ///< which is its own, reserved or not
};

/// All keys that are taken. Two owners are rivals when both can be live and the keys of one are
/// those of the other, or begin them. A reserved sequence is no rival of the action whose default
/// it is: that is what it is reserved for.
class KeyOwners
{
public:
    KeyOwners() = default;
    /// Of entries whose action is not in the catalogue nobody is in the way.
    KeyOwners(const ActionCatalogue &catalogue, const ActionShortCutList &shortcuts,
              const ActionShortCutList &defaults, const KeySequenceList &reserved,
              const KeySequenceList &bookmarks);

    /// At most this many are told: nobody reads more.
    static constexpr std::size_t kMostRivals = 50;
    /// Reserved ones first, then shorter keys before longer ones.
    [[nodiscard]] std::vector<Rival> rivalsOf(const QKeySequence &sequence,
                                              const Claimant &claimant) const;
    /// The ids of all actions that have a rival, ascending.
    [[nodiscard]] std::vector<int> actionsInConflict() const;

private:
    using Strokes = std::array<quint32, 4>; ///< 0 behind the last one
    struct Owner
    {
        Strokes strokes{};
        OwnerKind kind = OwnerKind::Action;
        bool isDefault = false; ///< the keys are the action's default
        Contexts contexts;
        int id = -1;
    };
    /// Owners that differ in their ids alone.
    struct Class
    {
        std::span<const Owner> owners;
        bool isInConflict = false;
    };
    using Run = std::vector<Class>; ///< all with the same strokes; actions first

    [[nodiscard]] static Strokes strokesOf(const QKeySequence &sequence);
    [[nodiscard]] static QKeySequence sequenceOf(const Strokes &strokes);
    [[nodiscard]] static std::size_t lengthOf(const Strokes &strokes);
    [[nodiscard]] static bool areRivals(const Owner &one, const Owner &other);
    static void markPairs(std::span<Class> one, std::span<Class> other);
    static void markActions(std::span<Class> one, std::span<Class> other);
    static void markRivals(Run &one, Run &other);
    void add(OwnerKind kind, const KeySequenceList &list);
    void addRivals(std::span<const Owner> owners, const Owner &claimant, Overlap overlap,
                   std::vector<Rival> &rivals) const;
    [[nodiscard]] std::span<const Owner> ownersOf(const Strokes &strokes) const;
    [[nodiscard]] std::span<const Owner> ownersBehind(const Strokes &strokes) const;
    [[nodiscard]] std::vector<Run> runs() const;

    std::vector<Owner> m_owners; ///< ordered: what continues some keys follows right behind them
};

} // namespace menuconfig
