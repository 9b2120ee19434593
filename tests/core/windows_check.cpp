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

/// A program of the system that runs until it is told to end.
PROCESS_INFORMATION startProgram()
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION program{};
    wchar_t command[] = L"ping -n 60 127.0.0.1";
    CreateProcessW(nullptr, command, nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                   &startup, &program);
    return program;
}

void tellsProcessesApart()
{
    using namespace platform;
    const std::uint64_t own = processStartTime(currentProcess());
    check(own > kUnknownStart && own == processStartTime(currentProcess()), "knows its own start");
    const PROCESS_INFORMATION program = startProgram();
    const std::uint64_t start = processStartTime(program.dwProcessId);
    check(start >= own && isStillRunning(program.dwProcessId, start), "knows another's start");
    check(!isStillRunning(program.dwProcessId, start - 1), "the number alone is not enough");
    TerminateProcess(program.hProcess, 0);
    WaitForSingleObject(program.hProcess, 5000);
    check(processStartTime(program.dwProcessId) == 0, "one that has ended has no start");
    CloseHandle(program.hProcess);
    CloseHandle(program.hThread);
    check(processStartTime(0x7FFFFFF0) == 0, "nor has one that never was");
}

} // namespace

int main()
{
    tellsProcessesApart();
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
