// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: streams that change line ends, consoles of another code page, programs without any.
#include "Console.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <io.h>
#include <windows.h>

namespace {

UINT s_codePageBefore = 0;

/// The console's next program expects it.
void giveCodePageBack()
{
    SetConsoleOutputCP(s_codePageBefore);
}

/// Programs for the desktop begin without streams, unless these are redirected.
void openMissing(FILE *stream)
{
    if (_fileno(stream) >= 0)
        return;
    AttachConsole(ATTACH_PARENT_PROCESS); // fails when it is attached, and when there is none
    static_cast<void>(std::freopen("CONOUT$", "w", stream));
}

} // namespace

void PrepareConsole()
{
    openMissing(stdout);
    openMissing(stderr);
    for (FILE *const stream : {stdin, stdout, stderr})
        if (_fileno(stream) >= 0)
            _setmode(_fileno(stream), _O_BINARY);
    s_codePageBefore = GetConsoleOutputCP();
    if (s_codePageBefore != 0 && SetConsoleOutputCP(CP_UTF8))
        std::atexit(giveCodePageBack);
}

void NeedNoScreen() {} // there is always one, and the offscreen platform would know no fonts
