// SPDX-License-Identifier: GPL-2.0-or-later
// Exercises the Windows sources on their own; scripts/windows-check builds and runs it. Says what
// failed, and returns how much did.
#include "core/platform/childprocess.h"
#include "core/platform/filelock.h"
#include "core/platform/platform.h"
#include "core/platform/windowsquoting.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <io.h>
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

void checkProcessTree()
{
    check(platform::processProgram(platform::currentProcess()).find("windows_check\xC3\xBC") !=
              std::string::npos,
          "tells the file of this program");
    const PROCESS_INFORMATION child = startProgram();
    const platform::ProcessTree tree(child.dwProcessId, "marker");
    check(tree.isRunning(), "the tree holds the child");
    tree.kill();
    check(WaitForSingleObject(child.hProcess, 5000) == WAIT_OBJECT_0 && !tree.isRunning(),
          "the tree ends the child");
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
}

void checkFileLock()
{
    platform::FileLock first, second;
    const std::string path = "windows_check_\xC3\xBC.lock";
    check(first.tryLock(path) && first.tryLock(path), "holds a file");
    check(!second.tryLock(path), "nobody else can hold it");
    first.unlock();
    check(second.tryLock(path), "until it is let go");
    second.unlock();
    std::filesystem::remove(std::filesystem::path(L"windows_check_\u00FC.lock"));
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
    tellsProcessesApart();
    checkProcessTree();
    checkQuoting();
    checkFileLock();
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
