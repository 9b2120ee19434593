// SPDX-License-Identifier: GPL-2.0-or-later
// macOS: the processes of a group.
#include "core/platform/childprocess.h"

#include <cerrno>
#include <csignal>
#include <libproc.h>
#include <unistd.h>

namespace platform {

std::string processProgram(std::uint32_t process)
{
    char path[PROC_PIDPATHINFO_MAXSIZE] = "";
    const int length = proc_pidpath(static_cast<int>(process), path, sizeof path);
    return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

void becomeTreeHead()
{
    setpgid(0, 0); // that we died, this system tells nobody
}

struct ProcessTree::System
{
    pid_t group;
};

ProcessTree::ProcessTree(std::uint32_t head, std::string)
    : m_system(new System{static_cast<pid_t>(head)})
{
}

ProcessTree::~ProcessTree() = default;

bool ProcessTree::isRunning() const
{
    return m_system->group > 0 && (killpg(m_system->group, 0) == 0 || errno == EPERM);
}

void ProcessTree::askToEnd() const
{
    if (m_system->group > 0) // 0 would be our own
        killpg(m_system->group, SIGTERM);
}

void ProcessTree::kill() const
{
    if (m_system->group > 0)
        killpg(m_system->group, SIGKILL);
}

} // namespace platform
