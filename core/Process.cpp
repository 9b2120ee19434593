// SPDX-License-Identifier: GPL-2.0-or-later
// Whether a program is running.
#include <kelo_base/core/Process.h>

#include "core/platform/platform.h"

#include <algorithm>

bool IsProcessRunning(const QString &name)
{
    return std::ranges::any_of(platform::processNames(), [&name](const std::string &running) {
        return QString::fromStdString(running).contains(name, Qt::CaseInsensitive);
    });
}
