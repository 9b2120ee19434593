// SPDX-License-Identifier: GPL-2.0-or-later
// Programs that we start and end; one source per system, none of which needs Qt.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace platform {

/// The executable file of the process, in UTF-8, as the system tells it; empty when there is no
/// such process or it is another user's. A script's is that of its interpreter.
std::string processProgram(std::uint32_t process);

/// The environment variable by which ProcessTree recognises its members.
inline constexpr char kTreeVariable[] = "KELO_SERVER_RUN";

/// To be called in a new process before its program begins: makes it the head of a group of its own
/// and has it asked to end when we die. Only what may be called between fork and exec.
void becomeTreeHead();

/// A process and all that descend from it, to be ended together.
///
/// Linux finds them by kTreeVariable, which children inherit, so that neither a new session nor the
/// death of the head hides them. macOS knows those of the head's group. On Windows a job object
/// holds them, and ends them when we die; a child that the head starts in its first moments may
/// escape it.
class ProcessTree
{
public:
    /// @param head    a running process that called becomeTreeHead(); 0 when it has died, which
    ///                leaves the marker to find the others by
    /// @param marker  value of kTreeVariable in its environment, not empty and never used before
    ProcessTree(std::uint32_t head, std::string marker);
    ~ProcessTree(); ///< ends nobody
    ProcessTree(const ProcessTree &) = delete;
    ProcessTree &operator=(const ProcessTree &) = delete;

    /// Whether any of them is left.
    [[nodiscard]] bool isRunning() const;
    /// Asks each of them to end, as the system does at shutdown.
    void askToEnd() const;
    /// Ends them all.
    void kill() const;

private:
    struct System;
    std::unique_ptr<System> m_system;
};

} // namespace platform
