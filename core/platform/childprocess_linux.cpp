// SPDX-License-Identifier: GPL-2.0-or-later
// Linux: processes recognised by a variable in their environment, as /proc shows it.
#include "core/platform/childprocess.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

namespace platform {
namespace {

constexpr int kSweeps = 50; // far more generations than a dying tree can add

std::filesystem::path directoryOf(pid_t pid)
{
    return std::filesystem::path("/proc") / std::to_string(pid);
}

/// 0 for what is no process.
pid_t pidOf(const std::filesystem::path &directory)
{
    const std::string name = directory.filename().string();
    const bool isNumber = name.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? static_cast<pid_t>(std::atol(name.c_str())) : 0;
}

/// Whether the variables, each closed by NUL, hold @p wanted ("NAME=value").
bool holdsVariable(const std::string &environment, std::string_view wanted)
{
    for (std::size_t at = environment.find(wanted); at != std::string::npos;
         at = environment.find(wanted, at + 1)) {
        const std::size_t end = at + wanted.size();
        if ((at == 0 || environment[at - 1] == '\0') && end < environment.size() &&
            environment[end] == '\0')
            return true;
    }
    return false;
}

/// Those that live; who is dead and not yet collected has no environment any more.
std::vector<pid_t> processesWith(std::string_view variable)
{
    std::vector<pid_t> found;
    std::error_code error;
    std::filesystem::directory_iterator entry("/proc", error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const pid_t pid = pidOf(entry->path());
        if (pid <= 0 || pid == getpid())
            continue;
        std::ifstream file(entry->path() / "environ", std::ios::binary);
        const std::string environment{std::istreambuf_iterator<char>(file), {}};
        if (holdsVariable(environment, variable))
            found.push_back(pid);
    }
    return found;
}

void signalAll(const std::vector<pid_t> &pids, int signal)
{
    for (const pid_t pid : pids)
        ::kill(pid, signal);
}

} // namespace

std::string processProgram(std::uint32_t process)
{
    std::error_code error;
    const auto path =
        std::filesystem::read_symlink(directoryOf(static_cast<pid_t>(process)) / "exe", error);
    const std::string program = error ? std::string() : path.string();
    constexpr std::string_view kReplaced = " (deleted)"; // by a newer one, while it runs
    return program.ends_with(kReplaced) ? program.substr(0, program.size() - kReplaced.size())
                                        : program;
}

void becomeTreeHead()
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}

struct ProcessTree::System
{
    std::string variable;
};

ProcessTree::ProcessTree(std::uint32_t, std::string marker)
    : m_system(new System{std::string(kTreeVariable) + '=' + std::move(marker)})
{
}

ProcessTree::~ProcessTree() = default;

bool ProcessTree::isRunning() const
{
    return !processesWith(m_system->variable).empty();
}

void ProcessTree::askToEnd() const
{
    signalAll(processesWith(m_system->variable), SIGTERM);
}

void ProcessTree::kill() const
{
    for (int sweep = 0; sweep < kSweeps; ++sweep) { // who forks meanwhile is met by the next one
        const std::vector<pid_t> pids = processesWith(m_system->variable);
        if (pids.empty())
            return;
        signalAll(pids, SIGKILL);
    }
}

} // namespace platform
