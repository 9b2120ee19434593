// SPDX-License-Identifier: GPL-2.0-or-later
// Asks the memory for sheets a little before they are needed.
#pragma once

#include <kelo_base/dxf/DxfDrawing.h>
#include <span>

/// Sheets sorted by number lie anywhere in memory, and fetching one takes several steps, each by
/// way of the one before. Asking for them a few sheets ahead hides most of the waiting.
class Lookahead
{
public:
    Lookahead(const DxfDrawing &drawing, std::span<const quint32> sheets)
        : m_drawing(drawing), m_sheets(sheets)
    {
    }

    /// To be called for each sheet, in order.
    void Fetch(std::size_t current) const
    {
        constexpr std::size_t kStep = 6;
        if (const DxfInsert *insert = at(current + 4 * kStep))
            fetch(insert);
        if (const DxfInsert *insert = at(current + 3 * kStep)) {
            fetch(m_drawing.BlockOf(*insert));
            fetch(m_drawing.Attributes(*insert).data());
        }
        if (const DxfInsert *insert = at(current + 2 * kStep)) {
            if (const DxfBlock *block = m_drawing.BlockOf(*insert))
                fetch(m_drawing.Polylines(*block).data());
            if (insert->attributeCount > 0)
                fetch(m_drawing.Value(m_drawing.Attributes(*insert).front()).data());
        }
        if (const DxfInsert *insert = at(current + kStep)) {
            const DxfBlock *block = m_drawing.BlockOf(*insert);
            if (block && block->polylineCount > 0)
                fetch(m_drawing.Vertices(m_drawing.Polylines(*block).front()).data());
        }
    }

private:
    [[nodiscard]] const DxfInsert *at(std::size_t position) const
    {
        return position < m_sheets.size() ? &m_drawing.Inserts()[m_sheets[position]] : nullptr;
    }
    static void fetch(const void *address) { __builtin_prefetch(address); }

    const DxfDrawing &m_drawing;
    std::span<const quint32> m_sheets;
};
