// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: the toolkit's functions cannot be replaced.
#include "tests/menus/screenreader.h"

QStringList &toldScreenReaders()
{
    static QStringList told;
    return told;
}
