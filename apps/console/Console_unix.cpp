// SPDX-License-Identifier: GPL-2.0-or-later
// Unix: streams are bytes, and terminals read what the locale says.
#include "Console.h"

#include <cstdlib>

void PrepareConsole() {}

void NeedNoScreen()
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
}
