// SPDX-License-Identifier: GPL-2.0-or-later
// What tests ask of Windows, where much of it is unknown.
#include "tests/support/System.h"

#include <windows.h>

#include <psapi.h> // wants windows.h before it

namespace testsystem {

bool isUnix()
{
    return false;
}

ResourceLimit::ResourceLimit(Kind kind, unsigned int) : m_kind(kind) {}

ResourceLimit::~ResourceLimit() = default;

FileMask::FileMask(unsigned int withheld) : m_old(withheld) {}

FileMask::~FileMask() = default;

bool makePipe(const QString &)
{
    return false;
}

bool makeFullDevice(const QString &)
{
    return false;
}

Nobody::Nobody() = default;

Nobody::~Nobody() = default;

QByteArray threadName()
{
    return {}; // only debuggers know it
}

qint64 memoryBytes()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<qint64>(counters.PagefileUsage);
}

QString sleepCommand()
{
    return QStringLiteral("ping -n 60 127.0.0.1");
}

quint32 startSleeper(const QString &)
{
    return 0;
}

void end(quint32 process)
{
    const HANDLE handle = OpenProcess(PROCESS_TERMINATE, FALSE, process);
    if (!handle)
        return;
    TerminateProcess(handle, 1);
    CloseHandle(handle);
}

bool takeNoteOf(quint32)
{
    return false;
}

} // namespace testsystem
