// SPDX-License-Identifier: GPL-2.0-or-later
// Unix: a library reads its settings and lists the fonts of all folders.
#include "Fonts.h"

#include <QFontDatabase>
#include <QThreadPool>

void LookUpFonts()
{
    QThreadPool::globalInstance()->start([] { QFontDatabase::families(); });
}
