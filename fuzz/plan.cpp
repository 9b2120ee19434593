// SPDX-License-Identifier: GPL-2.0-or-later
// Any bytes as a plan, down to the GK2 file.
#include "fuzz/checkplan.h"
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    checkPlan({reinterpret_cast<const char *>(data), size});
    return 0;
}
