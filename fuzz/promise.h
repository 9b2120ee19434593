// SPDX-License-Identifier: GPL-2.0-or-later
// How a fuzz target tells that something does not hold.
#pragma once

#include <cstdio>
#include <cstdlib>

/// Names the promise and calls abort() when it is broken, in release builds too.
inline void promise(bool isKept, const char *what)
{
    if (isKept)
        return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}
