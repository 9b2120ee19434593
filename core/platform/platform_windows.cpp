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

LONG CALLBACK swallowThreadName(EXCEPTION_POINTERS *exception)
{
    const bool isThreadName = exception->ExceptionRecord->ExceptionCode == kThreadNameException;
    return isThreadName ? EXCEPTION_CONTINUE_EXECUTION : EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

std::vector<std::string> processNames()
{
    const HANDLE handle = CreateToolhelp32Snapshot(TH32CS_SNAPALL, 0);
    if (handle == INVALID_HANDLE_VALUE)
        return {};
    const std::unique_ptr<void, decltype(&CloseHandle)> snapshot(handle, &CloseHandle);
    std::vector<std::string> names;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry; // the system refuses any other size
    for (BOOL found = Process32FirstW(handle, &entry); found;
         found = Process32NextW(handle, &entry))
        names.push_back(utf8(entry.szExeFile));
    return names;
}

std::optional<std::uint64_t> processStartTime(std::int64_t pid)
{
    const DWORD rights = PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE;
    const std::unique_ptr<void, decltype(&CloseHandle)> process(
        OpenProcess(rights, FALSE, static_cast<DWORD>(pid)), &CloseHandle);
    // One that has ended stays known for as long as anybody holds it.
    if (!process || WaitForSingleObject(process.get(), 0) != WAIT_TIMEOUT)
        return std::nullopt;
    FILETIME created{}, ended{}, inKernel{}, inProgram{};
    if (!GetProcessTimes(process.get(), &created, &ended, &inKernel, &inProgram))
        return std::nullopt;
    return (std::uint64_t{created.dwHighDateTime} << 32) | created.dwLowDateTime;
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
