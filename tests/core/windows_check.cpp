// SPDX-License-Identifier: GPL-2.0-or-later
// Exercises the Windows source on its own; scripts/windows-check builds and runs it. Says what
// failed, and returns how much did.
#include "core/platform/platform.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <thread>
#include <windows.h>

#include <tlhelp32.h>

// The entry that the walk hands over by sizeof.
static_assert(sizeof(PROCESSENTRY32W) == (sizeof(void *) == 4 ? 556 : 568));

namespace {

int s_failures = 0;
int s_heardExceptions = 0;

void check(bool isTrue, const char *what)
{
    if (isTrue)
        return;
    std::printf("failed: %s\n", what);
    ++s_failures;
}

bool isRunning(const std::string &wanted)
{
    return std::ranges::any_of(platform::processNames(), [&](std::string name) {
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
        return name.find(wanted) != std::string::npos;
    });
}

LONG CALLBACK hearException(EXCEPTION_POINTERS *)
{
    ++s_heardExceptions;
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

int main()
{
    check(isRunning("windows_check"), "finds this program");
    check(isRunning("dows_check\xC3\xBC"), "finds it by a part that is not ASCII");
    check(!isRunning("no such program 4711"), "finds no other program");

    platform::setThreadName("nobody listens");
    std::thread([] {
        void *const last = AddVectoredExceptionHandler(0, hearException);
        platform::setThreadName("worker");
        RemoveVectoredExceptionHandler(last);
    }).join();
    check(s_heardExceptions == 0, "nobody hears of the exception when there is no debugger");
    std::puts(s_failures == 0 ? "windows: all is well" : "windows: failures");
    return s_failures;
}
