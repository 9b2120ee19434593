// SPDX-License-Identifier: GPL-2.0-or-later
// What the fake server does on Windows, where there are no copies of a process.
#include "servertricks.h"

#include <windows.h>

#include <shellapi.h> // wants windows.h before it

namespace servertricks {
namespace {

BOOL WINAPI ignoreEvent(DWORD)
{
    return TRUE;
}

} // namespace

std::vector<std::string> arguments(int, char **)
{
    int count = 0;
    LPWSTR *const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
        char text[1024] = "";
        WideCharToMultiByte(CP_UTF8, 0, words[i], -1, text, sizeof text, nullptr, nullptr);
        texts.emplace_back(text);
    }
    LocalFree(words);
    return texts;
}

void ignoreRequests()
{
    SetConsoleCtrlHandler(ignoreEvent, TRUE);
}

void waitForever()
{
    for (;;)
        Sleep(INFINITE);
}

void startChildren(const char *own, const char *file, void (*)(const char *file))
{
    for (const DWORD flags : {DWORD{0}, DWORD{CREATE_NEW_PROCESS_GROUP}, DWORD{DETACHED_PROCESS}}) {
        std::string line = std::string("\"") + own + "\" serve \"" + file + '"';
        STARTUPINFOA start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION child{};
        if (!CreateProcessA(own, line.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                            &start, &child))
            continue;
        CloseHandle(child.hThread);
        CloseHandle(child.hProcess);
    }
}

} // namespace servertricks
