// SPDX-License-Identifier: GPL-2.0-or-later
// Linux: processes from /proc, thread names from the kernel, files without a name.
#include "core/platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <pthread.h>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr mode_t kNewFile = 0666; // less what the user's mask takes away
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

/// The file up to @p end, or all of it; empty when the process has just gone or is another user's.
std::string readUntil(const std::filesystem::path &file, char end)
{
    std::string text;
    std::getline(std::ifstream(file), text, end);
    return text;
}

bool isProcessDirectory(const std::filesystem::path &directory)
{
    const std::string name = directory.filename().string();
    return std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
}

/// Programs of other systems, run through a compatibility layer, have backslashes in their paths.
std::string baseName(const std::string &path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

/// 32 bits that every start of the computer draws anew; 0 when it does not tell.
std::uint64_t bootMark()
{
    std::uint64_t mark = 0;
    std::istringstream(readUntil("/proc/sys/kernel/random/boot_id", '-')) >> std::hex >> mark;
    return mark & 0xFFFFFFFF;
}

/// Whether somebody has this number, for systems that hide the processes of others.
bool isTaken(pid_t process)
{
    return kill(process, 0) == 0 || errno == EPERM;
}

} // namespace

std::uint32_t currentProcess()
{
    return static_cast<std::uint32_t>(getpid());
}

std::uint64_t processStartTime(std::uint32_t process)
{
    const auto pid = static_cast<pid_t>(process);
    if (pid <= 0)
        return 0; // would stand for a group of processes
    const std::string line = readUntil("/proc/" + std::to_string(pid) + "/stat", '\0');
    if (line.empty())
        return isTaken(pid) ? kUnknownStart : 0;
    // Behind the name, which may hold anything: the state, 18 numbers, and the ticks since boot.
    std::istringstream fields(line.substr(line.rfind(')') + 1));
    char state = 0;
    std::string number;
    std::uint64_t ticks = 0;
    fields >> state;
    for (int skipped = 0; skipped < 18; ++skipped)
        fields >> number;
    fields >> ticks;
    const bool hasEnded = state == 'Z' || state == 'X'; // only its parent has not asked yet
    return hasEnded ? 0 : bootMark() << 32 | (ticks & 0xFFFFFFFF);
}

std::vector<std::string> processNames()
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry("/proc", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (!isProcessDirectory(entry->path()))
            continue;
        std::string command = readUntil(entry->path() / "comm", '\n');
        // The kernel cuts the command after 15 characters; the first argument is whole.
        std::string program = baseName(readUntil(entry->path() / "cmdline", '\0'));
        if (!program.empty() && program != command)
            names.push_back(std::move(program));
        if (!command.empty())
            names.push_back(std::move(command));
    }
    return names;
}

void setThreadName(const char *name)
{
    constexpr std::size_t kMaxBytes = 15; // longer names are refused, not cut
    std::string_view text(name);
    if (text.size() > kMaxBytes) {
        const auto isInsideCharacter = [&text](std::size_t at) {
            return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
        };
        std::size_t length = kMaxBytes;
        while (length > 0 && isInsideCharacter(length))
            --length;
        text = text.substr(0, length);
    }
    pthread_setname_np(pthread_self(), std::string(text).c_str());
}

int openFile(const std::filesystem::path &path)
{
    return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

int createFile(const std::filesystem::path &path)
{
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile);
}

int createNamelessFile(const std::filesystem::path &folder)
{
    return open(folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, kNewFile);
}

bool nameFile(int descriptor, const std::filesystem::path &name)
{
    const std::string open = "/proc/self/fd/" + std::to_string(descriptor);
    return linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool isWritable(const std::filesystem::path &path)
{
    struct stat status
    {
    };
    const bool isKnown = stat(path.c_str(), &status) == 0;
    return isKnown && (status.st_mode & kAnyWrite) != 0 && access(path.c_str(), W_OK) == 0;
}

std::error_code renameOver(const std::filesystem::path &from, const std::filesystem::path &to,
                           std::chrono::milliseconds)
{
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return error;
}

} // namespace platform
