// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: processes in a job object.
#include "core/platform/childprocess.h"

#include <cstddef>
#include <vector>
#include <windows.h>

namespace platform {
namespace {

constexpr DWORD kMostMembers = 1024;

struct CloseHandleOf
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandleOf>;

Handle opened(std::uint32_t process, DWORD rights)
{
    return Handle(OpenProcess(rights, FALSE, process));
}

/// The processes that are in the job now.
std::vector<DWORD> membersOf(HANDLE job)
{
    const std::size_t bytes =
        sizeof(JOBOBJECT_BASIC_PROCESS_ID_LIST) + kMostMembers * sizeof(ULONG_PTR);
    std::vector<std::max_align_t> room(bytes / sizeof(std::max_align_t) + 1);
    auto *const list = reinterpret_cast<JOBOBJECT_BASIC_PROCESS_ID_LIST *>(room.data());
    // It says that there is more when the room is too small, and fills it all the same.
    if (!QueryInformationJobObject(job, JobObjectBasicProcessIdList, list,
                                   static_cast<DWORD>(bytes), nullptr) &&
        GetLastError() != ERROR_MORE_DATA)
        return {};
    std::vector<DWORD> members;
    for (DWORD i = 0; i < list->NumberOfProcessIdsInList; ++i)
        members.push_back(static_cast<DWORD>(list->ProcessIdList[i]));
    return members;
}

BOOL CALLBACK closeWindowOf(HWND window, LPARAM process)
{
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == static_cast<DWORD>(process))
        PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE; // go on
}

} // namespace

std::string processProgram(std::uint32_t process)
{
    const Handle handle = opened(process, PROCESS_QUERY_LIMITED_INFORMATION);
    wchar_t path[32768];
    DWORD length = static_cast<DWORD>(std::size(path));
    if (!handle || !QueryFullProcessImageNameW(handle.get(), 0, path, &length))
        return {};
    const int wideLength = static_cast<int>(length);
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, path, wideLength, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, path, wideLength, result.data(), size, nullptr, nullptr);
    return result;
}

void becomeTreeHead() {} // the job object does it all

struct ProcessTree::System
{
    Handle job;
};

ProcessTree::ProcessTree(std::uint32_t head, std::string)
    : m_system(new System{Handle(CreateJobObjectW(nullptr, nullptr))})
{
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(m_system->job.get(), JobObjectExtendedLimitInformation, &limits,
                            sizeof limits);
    const Handle process = opened(head, PROCESS_SET_QUOTA | PROCESS_TERMINATE);
    if (process)
        AssignProcessToJobObject(m_system->job.get(), process.get());
}

ProcessTree::~ProcessTree()
{
    // Closing the job is not to end anybody: the system does that only when we die.
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    SetInformationJobObject(m_system->job.get(), JobObjectExtendedLimitInformation, &limits,
                            sizeof limits);
}

bool ProcessTree::isRunning() const
{
    return !membersOf(m_system->job.get()).empty();
}

void ProcessTree::askToEnd() const
{
    for (const DWORD member : membersOf(m_system->job.get())) {
        EnumWindows(closeWindowOf, static_cast<LPARAM>(member));
        GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, member); // heard by heads of console groups
    }
}

void ProcessTree::kill() const
{
    TerminateJobObject(m_system->job.get(), 1);
}

} // namespace platform
