// SPDX-License-Identifier: GPL-2.0-or-later
// Names of threads, for debuggers.
#pragma once

#include <kelo_base/core/Export.h>

/// Tells debuggers the name of the calling thread, as far as the system can (Linux keeps 15
/// bytes). UTF-8; null changes nothing. Meant for worker threads: on Linux the main thread's name
/// is also that of the process.
KELO_BASE_EXPORT void SetThreadName(const char *const name);
