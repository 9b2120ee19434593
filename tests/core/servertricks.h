// SPDX-License-Identifier: GPL-2.0-or-later
// What the fake server does in each system's own way.
#pragma once

#include <string>
#include <vector>

namespace servertricks {

/// The command line in UTF-8.
std::vector<std::string> arguments(int argc, char **argv);
/// Every request to end is heard and not followed.
void ignoreRequests();
[[noreturn]] void waitForever();
/// Starts three that add themselves to the file and wait, each of another kind: one stays in the
/// session, one leaves it, and one's parent dies; or one each in the head's group of consoles, in
/// one of its own, and in none.
/// @param own  the program, which is started where a process cannot be copied
/// @param add  called in the copies
void startChildren(const char *own, const char *file, void (*add)(const char *file));

} // namespace servertricks
