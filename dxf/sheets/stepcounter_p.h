// SPDX-License-Identifier: GPL-2.0-or-later
// Counts the items of long work and asks now and then whether to go on.
#pragma once

#include <QtGlobal>
#include <kelo_base/dxf/SheetSelection.h>

/// Asks every thousand items or so: often enough for a cancel within 100 ms, too seldom to cost.
class StepCounter
{
public:
    StepCounter(const PlanProgress &progress, std::size_t total)
        : m_progress(progress), m_total(static_cast<qint64>(total))
    {
    }

    /// Counts one item done. False when the caller wants to give up.
    bool step()
    {
        const bool isTimeToAsk = (++m_done & 0x3FF) == 0 || m_done == m_total;
        return !isTimeToAsk || !m_progress || m_progress(m_done, m_total);
    }

private:
    const PlanProgress &m_progress;
    qint64 m_done = 0;
    qint64 m_total = 0;
};
