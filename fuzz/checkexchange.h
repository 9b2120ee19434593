// SPDX-License-Identifier: GPL-2.0-or-later
// What holds for any bytes that are read as an exchange file.
#pragma once

#include <string_view>

/// Reads as a command and as answers; calls abort() when a promise is broken.
void checkExchange(std::string_view bytes);
