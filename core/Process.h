// SPDX-License-Identifier: GPL-2.0-or-later
// Whether a program is running.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>

/// Whether any process has @p name somewhere in the name of its program, in whatever case: "dapex"
/// finds "dapex.exe" and "mydapex.exe". False as well when the system does not tell.
[[nodiscard]] KELO_BASE_EXPORT bool IsProcessRunning(const QString &name);
