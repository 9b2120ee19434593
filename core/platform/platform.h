// SPDX-License-Identifier: GPL-2.0-or-later
// What every operating system does in its own way; one source per system, none of which needs Qt.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace platform {

/// The names of the programs that run, in UTF-8, without their directories; empty when the system
/// does not tell. One process may appear under two names.
std::vector<std::string> processNames();

/// The number of the calling process.
std::uint32_t currentProcess();

/// What processStartTime() says of a process that runs but does not tell when it began.
inline constexpr std::uint64_t kUnknownStart = 1;

/// When a process began, in a unit and from an origin of the system's own: number and start
/// together tell a process from a later one that was given the same number, after a restart of the
/// computer too. Good for comparing only.
/// @return kUnknownStart when the system does not tell; 0 when no process of that number runs
std::uint64_t processStartTime(std::uint32_t process);

/// Whether the process that had this number and start still runs. True in doubt.
inline bool isStillRunning(std::uint32_t process, std::uint64_t start)
{
    const std::uint64_t present = processStartTime(process);
    const bool isUnknown = present == kUnknownStart || start == kUnknownStart;
    return present != 0 && (isUnknown || present == start);
}

/// Names the calling thread for debuggers; no effect where nobody listens.
/// @param name  UTF-8, not null
void setThreadName(const char *name);

/// Opens a file for reading; -1, and errno, when that cannot be done.
int openFile(const std::filesystem::path &path);

/// Opens a new file for writing, with the permissions that the user wants for new files; -1, and
/// errno, when that cannot be done or there is one of that name.
int createFile(const std::filesystem::path &path);

/// The same without a name, until nameFile() gives it one: it is gone with whoever dies before. -1
/// where the system or the folder's file system knows no such files.
int createNamelessFile(const std::filesystem::path &folder);
bool nameFile(int descriptor, const std::filesystem::path &name);

/// Whether the caller may write to the file that is there, and anybody may: a file that nobody may
/// write to is protected from the administrator as well.
bool isWritable(const std::filesystem::path &path);

/// How long another program that holds a file open is waited for, on Windows; elsewhere that
/// stands in nobody's way.
inline constexpr std::chrono::milliseconds kPatience{2000};

/// Renames a file, over an older one if there is one.
std::error_code renameOver(const std::filesystem::path &from, const std::filesystem::path &to,
                           std::chrono::milliseconds patience = kPatience);

} // namespace platform
