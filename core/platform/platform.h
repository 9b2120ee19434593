// SPDX-License-Identifier: GPL-2.0-or-later
// What every operating system does in its own way; one source per system, none of which needs Qt.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// The names of the programs that run, in UTF-8, without their directories; empty when the system
/// does not tell. One process may appear under two names.
std::vector<std::string> processNames();

/// When the process was started, in units and from an origin of the system's own: two processes
/// with the same number differ in it. Nothing when no such process runs, or the system does not
/// tell.
std::optional<std::uint64_t> processStartTime(std::int64_t pid);

/// Names the calling thread for debuggers; no effect where nobody listens.
/// @param name  UTF-8, not null
void setThreadName(const char *name);

} // namespace platform
