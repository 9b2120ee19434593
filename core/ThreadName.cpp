// SPDX-License-Identifier: GPL-2.0-or-later
// Names of threads, for debuggers.
#include <kelo_base/core/ThreadName.h>

#include "core/platform/platform.h"

void SetThreadName(const char *const name)
{
    if (name)
        platform::setThreadName(name);
}
