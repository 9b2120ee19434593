// SPDX-License-Identifier: GPL-2.0-or-later
// A plain list of key sequences, for those that are taken.
#pragma once

#include <QKeySequence>
#include <kelo_base/core/Export.h>
#include <vector>

/// Key sequences in the order in which they were added, none of them empty.
class KELO_BASE_EXPORT KeySequenceList
{
public:
    /// Appends @p sequence, again if it is there already; an empty one is ignored.
    void AddSequence(const QKeySequence &sequence);
    [[nodiscard]] bool HasSequence(const QKeySequence &sequence) const;
    [[nodiscard]] const std::vector<QKeySequence> &GetSequences() const { return m_sequences; }
    void ClearAll() { m_sequences.clear(); }

    friend bool operator==(const KeySequenceList &, const KeySequenceList &) = default;

private:
    std::vector<QKeySequence> m_sequences;
};
