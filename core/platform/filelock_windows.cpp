// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: a file held by one process, opened for nobody else.
#include "core/platform/filelock.h"

#include <windows.h>

namespace platform {
namespace {

constexpr std::intptr_t kNoFile = -1; // INVALID_HANDLE_VALUE

std::wstring wide(const std::string &text)
{
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size > 0 ? size : 1), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, result.data(), size);
    return result;
}

} // namespace

FileLock::FileLock() : m_file(kNoFile) {}

FileLock::~FileLock()
{
    unlock();
}

bool FileLock::tryLock(const std::string &path)
{
    if (m_file != kNoFile)
        return true;
    const HANDLE file = CreateFileW(wide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    m_file = reinterpret_cast<std::intptr_t>(file); // -1 when it failed
    return m_file != kNoFile;
}

void FileLock::unlock()
{
    if (m_file == kNoFile)
        return;
    CloseHandle(reinterpret_cast<HANDLE>(m_file));
    m_file = kNoFile;
}

} // namespace platform
