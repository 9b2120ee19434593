// SPDX-License-Identifier: GPL-2.0-or-later
// Predicates over registered functions: what is offered in a context, what is valid at all.
#pragma once

#include <kelo_base/core/Export.h>

struct ActionData;

/// Decides whether a registered function is wanted where it is asked for.
class KELO_BASE_EXPORT FunctionFilter
{
public:
    virtual ~FunctionFilter();
    [[nodiscard]] virtual bool accept(const ActionData &data) const = 0;
};

/// The one definition of what is offered, to menus and everywhere: the action is alive, the record
/// is valid, and the filter accepts it.
[[nodiscard]] KELO_BASE_EXPORT bool IsOffered(const ActionData &data, const FunctionFilter &filter);

/// Accepts what belongs to the program's current context, that is, when all of these hold:
/// - the record names no context group (bits 16..31 of its context id), or one in the group mask;
/// - it names no sub-context (bits 0..15), or one in the sub mask;
/// - its context mask and the filter's have a bit in common.
/// The group mask has the groups in bits 16..31 too; its other half, and the upper half of the sub
/// mask, do not matter.
class KELO_BASE_EXPORT FilterByContextId final : public FunctionFilter
{
public:
    FilterByContextId(int groupMask, int subMask, int contextMask);
    [[nodiscard]] bool accept(const ActionData &data) const override;

private:
    int m_groupMask;
    int m_subMask;
    int m_contextMask;
};

/// A new FilterByContextId, owned by the caller.
[[nodiscard]] KELO_BASE_EXPORT FunctionFilter *MakeContextFunctionFilter(int groupMask, int subMask,
                                                                         int contextMask);

/// Decides whether a registered function is valid, see ActionManager::ValidateRegisteredActions().
/// Never deleted through this class.
class ActionValidator
{
public:
    [[nodiscard]] virtual bool operator()(ActionData *data) const = 0;

protected:
    ~ActionValidator() = default;
};
