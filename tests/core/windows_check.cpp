// SPDX-License-Identifier: GPL-2.0-or-later
// Exercises the Windows source on its own; scripts/windows-check builds and runs it. Says what
// failed, and returns how much did.
#include "core/platform/platform.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <io.h>
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

/// Holds a file as careless programs do: nobody else may delete or replace it meanwhile.
HANDLE hold(const std::filesystem::path &path)
{
    return CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

std::string textOf(const std::filesystem::path &path)
{
    std::string text;
    std::getline(std::ifstream(path), text, '\0');
    return text;
}

void replacesFiles()
{
    const std::filesystem::path fresh(L"windows_check_\u00FC.new");
    const std::filesystem::path target(L"windows_check_\u00FC.txt");
    std::filesystem::remove(fresh);
    std::ofstream(target) << "old";
    const int descriptor = platform::createFile(fresh);
    check(descriptor >= 0 && _write(descriptor, "new\n", 4) == 4, "writes a new file");
    _close(descriptor);
    check(platform::createFile(fresh) < 0, "takes no file that is there");
    check(platform::isWritable(target), "may write to a file");

    HANDLE held = hold(target);
    std::thread releasing([&held] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        CloseHandle(held);
    });
    check(!platform::renameOver(fresh, target), "waits for whoever holds the file");
    releasing.join();
    check(textOf(target) == "new\n", "puts the new one there, line ends as they were");

    std::ofstream(fresh) << "newer";
    held = hold(target);
    const ULONGLONG begin = GetTickCount64();
    check(bool(platform::renameOver(fresh, target)), "gives up when nobody lets go");
    const ULONGLONG taken = GetTickCount64() - begin;
    check(taken >= 1900 && taken < 4000, "after two seconds");
    CloseHandle(held);
    check(textOf(target) == "new\n", "and leaves the file as it was");

    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
    check(!platform::isWritable(target), "knows a protected file");
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
    check(bool(platform::renameOver(L"no such file 4711", target)), "has nothing to put there");
    std::filesystem::remove(fresh);
    std::filesystem::remove(target);
}

} // namespace

int main()
{
    replacesFiles();
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
