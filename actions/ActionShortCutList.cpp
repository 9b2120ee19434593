// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps key sequences by action id.
#include <kelo_base/actions/ActionShortCutList.h>

#include <algorithm>

void ActionShortCutList::AssignKeySequence(int id, const QKeySequence &sequence)
{
    // The hint is right, and saves the search, when ids arrive in ascending order, as from a file.
    m_sequences.insert_or_assign(m_sequences.end(), id, sequence);
}

bool ActionShortCutList::HasSequenceAssigned(int id) const
{
    const auto entry = m_sequences.find(id);
    return entry != m_sequences.end() && !entry->second.isEmpty();
}

QKeySequence ActionShortCutList::GetSequenceById(int id) const
{
    const auto entry = m_sequences.find(id);
    return entry == m_sequences.end() ? QKeySequence() : entry->second;
}

int ActionShortCutList::FindActionIdForSequence(const QKeySequence &sequence) const
{
    const auto entry = std::find_if(m_sequences.begin(), m_sequences.end(),
                                    [&](const auto &item) { return item.second == sequence; });
    return entry == m_sequences.end() ? -1 : entry->first;
}

void ActionShortCutList::GetActionIds(std::vector<int> &ids) const
{
    for (const auto &[id, sequence] : m_sequences) {
        if (!sequence.isEmpty())
            ids.push_back(id);
    }
}

void ActionShortCutList::GetClearedActionIds(std::vector<int> &ids) const
{
    for (const auto &[id, sequence] : m_sequences) {
        if (sequence.isEmpty())
            ids.push_back(id);
    }
}
