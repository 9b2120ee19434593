// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: the toolkit's functions cannot be replaced.
#include "tests/support/ScreenReader.h"

QStringList &toldScreenReaders()
{
    static QStringList told;
    return told;
}

QStringList &readByScreenReaders()
{
    static QStringList read;
    return read;
}
