// SPDX-License-Identifier: GPL-2.0-or-later
// Which key sequence starts which action.
#pragma once

#include <QKeySequence>
#include <kelo_base/core/Export.h>
#include <map>
#include <vector>

/// Key sequences by action id. An entry may hold an empty sequence: it was cleared, and counts as
/// having none assigned; an id without an entry was never seen. Two ids may have the same sequence;
/// settling that is the user's business.
class KELO_BASE_EXPORT ActionShortCutList
{
public:
    /// Inserts or replaces the entry of @p id.
    void AssignKeySequence(int id, const QKeySequence &sequence);
    /// Leaves @p id with an entry, and that empty.
    void ClearKeySequence(int id) { AssignKeySequence(id, QKeySequence()); }
    /// Erases the entry of @p id, if there is one.
    void RemoveKeySequence(int id) { m_sequences.erase(id); }
    void ClearAll() { m_sequences.clear(); }

    /// Whether @p id has an entry, and be it a cleared one.
    [[nodiscard]] bool HasEntry(int id) const { return m_sequences.count(id) != 0; }
    /// Whether @p id has an entry that is not empty.
    [[nodiscard]] bool HasSequenceAssigned(int id) const;
    /// Empty when @p id has no entry.
    [[nodiscard]] QKeySequence GetSequenceById(int id) const;
    /// The smallest id whose entry equals @p sequence; -1 when there is none. An empty sequence
    /// equals cleared entries.
    [[nodiscard]] int FindActionIdForSequence(const QKeySequence &sequence) const;
    /// Appends the ids of all entries that are not empty, ascending.
    void GetActionIds(std::vector<int> &ids) const;
    /// Appends the ids of all cleared entries, ascending.
    void GetClearedActionIds(std::vector<int> &ids) const;
    /// The number of entries, cleared ones included.
    [[nodiscard]] int NumberOfAssignments() const { return static_cast<int>(m_sequences.size()); }

    friend bool operator==(const ActionShortCutList &, const ActionShortCutList &) = default;

private:
    std::map<int, QKeySequence> m_sequences;
};
