// SPDX-License-Identifier: GPL-2.0-or-later
// What the program needs of the operating system beside files, on Unix.
#include "system.h"
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <kelo_base/core/FileName.h>
#include <unistd.h>

namespace systemcalls {
namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
volatile std::sig_atomic_t s_caught = 0;

void noteSignal(int signal)
{
    s_caught = signal;
}

} // namespace

QStringList arguments(int argc, char **argv)
{
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts << FileNameFromBytes(argv[i]);
    return texts;
}

QStringList expand(const QStringList &words)
{
    return words; // the shell has done it
}

void prepareStreams()
{
    // Opened the wrong way round, so that reading or writing fails.
    for (int descriptor = 0; descriptor <= 2; ++descriptor)
        if (fcntl(descriptor, F_GETFD) == -1)
            open("/dev/null", descriptor == 0 ? O_WRONLY : O_RDONLY);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool isTerminal(int descriptor)
{
    return isatty(descriptor) == 1;
}

void speakEnglish()
{
    std::setlocale(LC_MESSAGES, "C");
}

InterruptWatch::InterruptWatch()
{
    for (const int signal : kEndingSignals)
        if (std::signal(signal, noteSignal) == SIG_IGN)
            std::signal(signal, SIG_IGN); // the caller wants it so: nohup does
}

InterruptWatch::~InterruptWatch()
{
    for (const int signal : kEndingSignals)
        if (std::signal(signal, SIG_DFL) == SIG_IGN)
            std::signal(signal, SIG_IGN);
    if (s_caught != 0)
        std::raise(s_caught);
}

bool InterruptWatch::isInterrupted()
{
    return s_caught != 0;
}

} // namespace systemcalls
