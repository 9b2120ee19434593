// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: processes from a snapshot of the system, thread names by an exception for debuggers.
#include "core/platform/platform.h"

#include <memory>
#include <windows.h>

#include <tlhelp32.h> // wants windows.h before it

namespace platform {
namespace {

constexpr DWORD kThreadNameException = 0x406D1388;

std::string utf8(const wchar_t *text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1) // the NUL alone, or unreadable
        return {};
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.pop_back(); // the NUL
    return result;
}

using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

LONG CALLBACK swallowThreadName(EXCEPTION_POINTERS *exception)
{
    const bool isThreadName = exception->ExceptionRecord->ExceptionCode == kThreadNameException;
    return isThreadName ? EXCEPTION_CONTINUE_EXECUTION : EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

std::uint32_t currentProcess()
{
    return GetCurrentProcessId();
}

std::uint64_t processStartTime(std::uint32_t process)
{
    constexpr DWORD kWanted = PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE;
    const Handle handle(OpenProcess(kWanted, FALSE, process), &CloseHandle);
    if (!handle)
        return GetLastError() == ERROR_ACCESS_DENIED ? kUnknownStart : 0;
    // One that has ended stays known while somebody holds a handle of it.
    if (WaitForSingleObject(handle.get(), 0) != WAIT_TIMEOUT)
        return 0;
    FILETIME created{};
    FILETIME exited{};
    FILETIME inKernel{};
    FILETIME inUser{};
    if (!GetProcessTimes(handle.get(), &created, &exited, &inKernel, &inUser))
        return kUnknownStart;
    return std::uint64_t{created.dwHighDateTime} << 32 | created.dwLowDateTime;
}

std::vector<std::string> processNames()
{
    const HANDLE handle = CreateToolhelp32Snapshot(TH32CS_SNAPALL, 0);
    if (handle == INVALID_HANDLE_VALUE)
        return {};
    const Handle snapshot(handle, &CloseHandle);
    std::vector<std::string> names;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry; // the system refuses any other size
    for (BOOL found = Process32FirstW(handle, &entry); found;
         found = Process32NextW(handle, &entry))
        names.push_back(utf8(entry.szExeFile));
    return names;
}

bool settingsIgnoreCase()
{
    return true;
}

void setThreadName(const char *name)
{
    // A debugger sees the exception first. The handler sends it back when there is none: vectored,
    // since this compiler has no __try.
    void *const handler = AddVectoredExceptionHandler(1, swallowThreadName);
    if (!handler)
        return;                                      // raising it now would end the program
    constexpr ULONG_PTR kCallingThread = 0xFFFFFFFF; // -1 in the 32 bits that debuggers read
    const ULONG_PTR words[] = {0x1000, reinterpret_cast<ULONG_PTR>(name), kCallingThread, 0};
    RaiseException(kThreadNameException, 0, static_cast<DWORD>(std::size(words)), words);
    RemoveVectoredExceptionHandler(handler);
}

} // namespace platform
