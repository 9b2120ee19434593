// SPDX-License-Identifier: GPL-2.0-or-later
// What the program needs of the operating system beside files, on Unix.
#include "system.h"
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace systemcalls {
namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
volatile std::sig_atomic_t s_caught = 0;

void noteSignal(int signal)
{
    s_caught = signal;
}

} // namespace

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

QFileDevice::Permissions newFilePermissions()
{
    const mode_t mask = umask(0);
    umask(mask);
    QFileDevice::Permissions permissions;
    for (const auto &[bit, permission] : {std::pair{S_IRUSR, QFileDevice::ReadOwner},
                                          {S_IWUSR, QFileDevice::WriteOwner},
                                          {S_IRGRP, QFileDevice::ReadGroup},
                                          {S_IWGRP, QFileDevice::WriteGroup},
                                          {S_IROTH, QFileDevice::ReadOther},
                                          {S_IWOTH, QFileDevice::WriteOther}})
        permissions.setFlag(permission, (mask & static_cast<mode_t>(bit)) == 0);
    return permissions;
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
