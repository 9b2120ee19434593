// SPDX-License-Identifier: GPL-2.0-or-later
// What the program needs of the operating system beside files.
#pragma once

#include <QStringList>

namespace systemcalls {

/// The command line, the program's name first. Of main()'s arguments.
QStringList arguments(int argc, char **argv);

/// The files that these words mean: patterns ("*.dxf") are for programs to expand on Windows. One
/// that matches nothing stays as it is.
QStringList expand(const QStringList &words);

/// Lets the standard streams carry bytes. Makes those that were closed by the caller fail when
/// used, instead of letting the next file opened take their place; a broken pipe or a size limit
/// fails a write instead of killing.
void prepareStreams();

bool isTerminal(int descriptor);

/// Lets the system's own messages be English from now on, whatever the locale.
void speakEnglish();

/// While it lives, the signals that end a program (interrupt, terminate, hang-up) are only noted,
/// so that an unfinished file can be taken away; its end lets the noted signal have its effect.
class InterruptWatch
{
public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch &) = delete;
    InterruptWatch &operator=(const InterruptWatch &) = delete;
    [[nodiscard]] static bool isInterrupted();
};

} // namespace systemcalls
