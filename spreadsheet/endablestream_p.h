// SPDX-License-Identifier: GPL-2.0-or-later
// Streams that can be ended from outside while others read them; one source per system.
#pragma once

#include <cstdio>
#include <functional>

namespace spreadsheet {

/// A stream in place of @p inner, which it owns and hands everything to. Before each block that is
/// read it asks @p goesOn, and ends where that says no: whoever copies it has soon done.
/// @return @p inner itself where the system has no such streams, or no memory for one
[[nodiscard]] std::FILE *endableStream(std::FILE *inner, std::function<bool()> goesOn);

} // namespace spreadsheet
