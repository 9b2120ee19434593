// SPDX-License-Identifier: GPL-2.0-or-later
// Any bytes as an exchange file, down to the record of a command.
#include "fuzz/checkexchange.h"
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    checkExchange({reinterpret_cast<const char *>(data), size});
    return 0;
}
