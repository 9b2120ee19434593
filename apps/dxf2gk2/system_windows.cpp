// SPDX-License-Identifier: GPL-2.0-or-later
// What the program needs of the operating system beside files, on Windows.
#include "system.h"

#include <Console.h>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <atomic>
#include <io.h>
#include <memory>
#include <windows.h>

#include <shellapi.h> // wants windows.h before it

using namespace Qt::Literals::StringLiterals;

namespace systemcalls {
namespace {

std::atomic<bool> s_isInterrupted = false;

/// Called in a thread of its own.
BOOL WINAPI noteEvent(DWORD event)
{
    s_isInterrupted = true;
    constexpr DWORD kAllTheTimeThereIs = 5000; // milliseconds until the system ends us
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(kAllTheTimeThereIs); // it ends us as soon as we return
    return TRUE;
}

/// In order, each with the folder that the pattern begins with. Patterns are in the last name
/// alone.
QStringList matching(const QString &pattern)
{
    const QString name = QFileInfo(pattern).fileName();
    if (!name.contains(u'*') && !name.contains(u'?'))
        return {};
    const QString folder = pattern.chopped(name.size());
    const QString literal = QString(name).replace(u'[', u"[[]"_s); // brackets are plain there
    QStringList files = QDir(folder).entryList({literal}, QDir::Files, QDir::Name);
    for (QString &file : files)
        file.prepend(folder);
    return files;
}

/// Consoles of Windows understand control sequences only when asked.
void wantControlSequences(DWORD stream)
{
    const HANDLE console = GetStdHandle(stream);
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode))
        SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

} // namespace

QStringList arguments(int, char **)
{
    // What main() is given has lost what the code page does not know.
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    QStringList texts;
    for (int i = 0; words && i < count; ++i)
        texts << QString::fromWCharArray(words.get()[i]);
    return texts;
}

QStringList expand(const QStringList &words)
{
    QStringList files;
    for (const QString &word : words) {
        const QStringList found = matching(word);
        files << (found.isEmpty() ? QStringList{word} : found);
    }
    return files;
}

void prepareStreams()
{
    PrepareConsole();
    wantControlSequences(STD_ERROR_HANDLE);
}

bool isTerminal(int descriptor)
{
    return _isatty(descriptor) != 0;
}

void speakEnglish()
{
    constexpr wchar_t kEnglish[] = L"en-US\0"; // a list, which ends with an empty text
    SetProcessPreferredUILanguages(MUI_LANGUAGE_NAME, kEnglish, nullptr);
}

InterruptWatch::InterruptWatch()
{
    SetConsoleCtrlHandler(noteEvent, TRUE);
}

InterruptWatch::~InterruptWatch()
{
    SetConsoleCtrlHandler(noteEvent, FALSE);
    if (s_isInterrupted)
        ExitProcess(static_cast<UINT>(STATUS_CONTROL_C_EXIT)); // as if nobody had watched
}

bool InterruptWatch::isInterrupted()
{
    return s_isInterrupted;
}

} // namespace systemcalls
