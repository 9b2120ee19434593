// SPDX-License-Identifier: GPL-2.0-or-later
// Tells which registered functions a context offers.
#include <kelo_base/actions/FunctionFilter.h>

#include <kelo_base/actions/ActionData.h>

FunctionFilter::~FunctionFilter() = default;

bool IsOffered(const ActionData &data, const FunctionFilter &filter)
{
    return data.action && data.valid && filter.accept(data);
}

FilterByContextId::FilterByContextId(int groupMask, int subMask, int contextMask)
    : m_groupMask(groupMask), m_subMask(subMask), m_contextMask(contextMask)
{
}

bool FilterByContextId::accept(const ActionData &data) const
{
    const int subs = data.contextId & 0xFFFF;
    const int groups = data.contextId & ~0xFFFF; // not shifted: the mask has the same bits
    const bool isGroupOffered = groups == 0 || (m_groupMask & groups) != 0;
    const bool isSubOffered = subs == 0 || (m_subMask & subs) != 0;
    return isGroupOffered && isSubOffered && (m_contextMask & data.contextMask) != 0;
}

FunctionFilter *MakeContextFunctionFilter(int groupMask, int subMask, int contextMask)
{
    return new FilterByContextId(groupMask, subMask, contextMask);
}
