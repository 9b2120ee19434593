// SPDX-License-Identifier: GPL-2.0-or-later
// How the simulator behaves.
#pragma once

#include <QString>

/// How a careless partner writes.
enum class Manner {
    Careful,
    Plain, ///< the three keys alone, straight into the file
    Bytes, ///< as a whole command, but straight into the file, a byte at a time
    Half,  ///< dies in the middle of the file
};

struct Options
{
    QString directory;
    QString sender;
    QString journal; ///< empty: none
    Manner manner = Manner::Careful;
    int silence = 10'000; ///< milliseconds
    bool repeats = false;
    bool refuses = false;
    bool isJson = false;
};
