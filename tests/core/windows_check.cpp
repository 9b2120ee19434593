// SPDX-License-Identifier: GPL-2.0-or-later
// Exercises the Windows sources on their own; scripts/windows-check builds and runs it. Says what
// failed, and returns how much did.
#include "core/platform/childprocess.h"
#include "core/platform/filelock.h"
#include "core/platform/platform.h"
#include "core/platform/windowsquoting.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <thread>
#include <vector>
#include <windows.h>

#include <shellapi.h>
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

/// The system itself takes the line apart that we put together.
void checkQuoting()
{
    const std::vector<std::u16string> arguments{
        u"",         u"plain",         u"a b",       u"say \"hi\"", u"C:\\a b\\", u"\\\"\\",
        u"\\\\h\\x", u"\u00c4 \u20ac", u"tab\there", u"a\\\\\"b",   u"\""};
    std::u16string line = u"program";
    for (const std::u16string &argument : arguments)
        line += u' ' + platform::windowsQuoted(argument);
    int count = 0;
    wchar_t **const parts =
        CommandLineToArgvW(reinterpret_cast<const wchar_t *>(line.c_str()), &count);
    check(count == static_cast<int>(arguments.size()) + 1, "as many arguments as were quoted");
    for (std::size_t i = 0; i < arguments.size() && static_cast<int>(i) + 1 < count; ++i)
        check(arguments[i] == reinterpret_cast<const char16_t *>(parts[i + 1]),
              "an argument arrives as written");
    LocalFree(parts);
}

std::int64_t started(const char *commandLine)
{
    std::string line = commandLine; // the system may write into it
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NEW_PROCESS_GROUP,
                        nullptr, nullptr, &startup, &process))
        return 0;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return process.dwProcessId;
}

void checkProcesses()
{
    const std::int64_t own = GetCurrentProcessId();
    check(platform::processStartTime(own).has_value(), "tells when this program was started");
    check(platform::processStartTime(own) == platform::processStartTime(own), "and again the same");
    check(!platform::processStartTime(0x7ffffff0), "tells nothing of a process that is not there");
    check(platform::processProgram(own).find("windows_check\xC3\xBC") != std::string::npos,
          "tells the file of this program");

    const std::int64_t child = started("cmd.exe /c pause");
    check(child != 0, "starts a child");
    const platform::ProcessTree tree(child, "marker");
    check(tree.isRunning(), "the tree holds the child");
    check(platform::processStartTime(child) != platform::processStartTime(own),
          "two processes differ in their start");
    tree.kill();
    for (int i = 0; i < 100 && tree.isRunning(); ++i)
        Sleep(50);
    check(!tree.isRunning() && !platform::processStartTime(child), "the tree ends the child");
}

void checkFileLock()
{
    platform::FileLock first, second;
    const std::string path = "windows_check_\xC3\xBC.lock";
    check(first.tryLock(path) && first.tryLock(path), "holds a file");
    check(!second.tryLock(path), "nobody else can hold it");
    first.unlock();
    check(second.tryLock(path), "until it is let go");
}

} // namespace

int main()
{
    checkQuoting();
    checkProcesses();
    checkFileLock();
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
