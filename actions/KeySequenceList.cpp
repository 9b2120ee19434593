// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps key sequences in the order of their arrival.
#include <kelo_base/actions/KeySequenceList.h>

#include <algorithm>

void KeySequenceList::AddSequence(const QKeySequence &sequence)
{
    if (!sequence.isEmpty())
        m_sequences.push_back(sequence);
}

bool KeySequenceList::HasSequence(const QKeySequence &sequence) const
{
    return std::find(m_sequences.begin(), m_sequences.end(), sequence) != m_sequences.end();
}
