// SPDX-License-Identifier: GPL-2.0-or-later
// Makes the records of registered functions.
#include <kelo_base/actions/ActionData.h>

#include <new>

ActionData *MakeActionData(int id, int category, int contextId, int contextMask, QAction *action,
                           bool flag, int extra)
{
    return new (std::nothrow)
        ActionData{id, category, contextId, contextMask, true, action, flag, extra};
}

ActionData *MakeActionData(int id, int category, int contextId, QAction *action, bool flag,
                           int extra)
{
    return MakeActionData(id, category, contextId, -1, action, flag, extra);
}

ActionData *MakeActionData(const ActionData *other)
{
    auto *copy = other ? new (std::nothrow) ActionData(*other) : nullptr;
    if (copy)
        copy->valid = true;
    return copy;
}
