// SPDX-License-Identifier: GPL-2.0-or-later
// What the fake server does on Unix.
#include "servertricks.h"

#include <csignal>
#include <unistd.h>

namespace servertricks {

std::vector<std::string> arguments(int argc, char **argv)
{
    return {argv, argv + argc};
}

void ignoreRequests()
{
    std::signal(SIGTERM, SIG_IGN);
}

void waitForever()
{
    for (;;)
        ::pause();
}

void startChildren(const char *, const char *file, void (*add)(const char *file))
{
    for (int kind = 0; kind < 3; ++kind) {
        if (fork() != 0)
            continue;
        if (kind == 1)
            setsid();
        if (kind == 2 && fork() != 0)
            _exit(0);
        add(file);
        waitForever();
    }
}

} // namespace servertricks
