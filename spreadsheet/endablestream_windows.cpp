// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: the C library has no streams with functions of their own.
#include "spreadsheet/endablestream_p.h"

namespace spreadsheet {

std::FILE *endableStream(std::FILE *inner, std::function<bool()>)
{
    return inner;
}

} // namespace spreadsheet
