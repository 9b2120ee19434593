// SPDX-License-Identifier: GPL-2.0-or-later
// What holds for any bytes that are read as a plan and written as GK2.
#pragma once

#include <string_view>

/// Reads, analyses and writes; calls abort() when a promise is broken.
void checkPlan(std::string_view bytes);
