// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: processes from a snapshot of the system, thread names by an exception for debuggers,
// files that other programs hold for a moment.
#include "core/platform/platform.h"

#include <fcntl.h>
#include <io.h>
#include <memory>
#include <sys/stat.h>
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

/// Virus scanners and sheet viewers hold a file for a moment. A file held without leave to be
/// deleted refuses its replacement with "access denied", like one that is protected.
bool isHeldByOthers(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_ACCESS_DENIED;
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

int openFile(const std::filesystem::path &path)
{
    return _wopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}

int createFile(const std::filesystem::path &path)
{
    constexpr int mode = _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT;
    return _wopen(path.c_str(), mode, _S_IREAD | _S_IWRITE);
}

int createNamelessFile(const std::filesystem::path &)
{
    return -1;
}

bool nameFile(int, const std::filesystem::path &)
{
    return false;
}

bool isWritable(const std::filesystem::path &path)
{
    constexpr int kMayWrite = 2;
    return _waccess(path.c_str(), kMayWrite) == 0;
}

std::error_code renameOver(const std::filesystem::path &from, const std::filesystem::path &to,
                           std::chrono::milliseconds patience)
{
    constexpr DWORD kPause = 5; // milliseconds
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(patience.count());
    for (;;) {
        if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING))
            return {};
        const DWORD error = GetLastError();
        if (!isHeldByOthers(error) || GetTickCount64() >= end)
            return {static_cast<int>(error), std::system_category()};
        Sleep(kPause);
    }
}

} // namespace platform
