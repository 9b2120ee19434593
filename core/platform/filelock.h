// SPDX-License-Identifier: GPL-2.0-or-later
// A lock among the runs of a program; one source per family of systems, none of which needs Qt.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// A file that one process at a time can hold. The system lets go of it when its holder dies, in
/// whatever way, so that it is never stale.
class FileLock
{
public:
    FileLock();
    ~FileLock(); ///< lets go
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// Whether we hold the file now, created when missing; false at once when another holds it, or
    /// when it cannot be created. True when it is held already.
    /// @param path  UTF-8; its directory exists
    [[nodiscard]] bool tryLock(const std::string &path);
    void unlock();

private:
    std::intptr_t m_file; ///< the system's handle; -1 when not held
};

} // namespace platform
