// SPDX-License-Identifier: GPL-2.0-or-later
// macOS: processes from libproc, thread names from pthread.
#include "core/platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <libproc.h>
#include <pthread.h>
#include <sys/proc.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr mode_t kNewFile = 0666; // less what the user's mask takes away
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

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
    proc_bsdinfo info{};
    const int size = static_cast<int>(sizeof info);
    if (proc_pidinfo(pid, PROC_PIDTBSDINFO, 0, &info, size) != size)
        return kill(pid, 0) == 0 || errno == EPERM ? kUnknownStart : 0;
    const bool hasEnded = info.pbi_status == SZOMB; // only its parent has not asked yet
    return hasEnded ? 0 : info.pbi_start_tvsec * 1'000'000 + info.pbi_start_tvusec;
}

std::vector<std::string> processNames()
{
    const int roughCount = proc_listallpids(nullptr, 0);
    if (roughCount <= 0)
        return {};
    std::vector<pid_t> pids(static_cast<std::size_t>(roughCount) + 64); // some may start meanwhile
    const int bytes = static_cast<int>(pids.size() * sizeof(pid_t));
    const int count = proc_listallpids(pids.data(), bytes);
    pids.resize(static_cast<std::size_t>(std::max(count, 0)));
    std::vector<std::string> names;
    for (const pid_t pid : pids) {
        char name[2 * MAXCOMLEN + 1] = "";
        if (proc_name(pid, name, sizeof name) > 0)
            names.emplace_back(name);
    }
    return names;
}

void setThreadName(const char *name)
{
    pthread_setname_np(name);
}

int openFile(const std::filesystem::path &path)
{
    return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

int createFile(const std::filesystem::path &path)
{
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile);
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
