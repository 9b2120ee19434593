// SPDX-License-Identifier: GPL-2.0-or-later
// macOS: processes from libproc, thread names from pthread.
#include "core/platform/platform.h"

#include <algorithm>
#include <libproc.h>
#include <pthread.h>

namespace platform {

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

std::optional<std::uint64_t> processStartTime(std::int64_t pid)
{
    proc_bsdinfo info{};
    constexpr int kSize = sizeof info;
    if (proc_pidinfo(static_cast<int>(pid), PROC_PIDTBSDINFO, 0, &info, kSize) != kSize)
        return std::nullopt;
    return info.pbi_start_tvsec * 1'000'000 + info.pbi_start_tvusec;
}

void setThreadName(const char *name)
{
    pthread_setname_np(name);
}

} // namespace platform
