// SPDX-License-Identifier: GPL-2.0-or-later
// Linux and macOS: a file held by one process, through the advisory locks of whole files.
#include "core/platform/filelock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::intptr_t kNoFile = -1;

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
    // Programs that we start must not keep it.
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    if (flock(file, LOCK_EX | LOCK_NB) != 0) {
        close(file);
        return false;
    }
    m_file = file;
    return true;
}

void FileLock::unlock()
{
    if (m_file == kNoFile)
        return;
    close(static_cast<int>(m_file)); // the file stays: removing it would let two hold the name
    m_file = kNoFile;
}

} // namespace platform
