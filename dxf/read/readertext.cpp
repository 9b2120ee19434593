// SPDX-License-Identifier: GPL-2.0-or-later
// Texts of the plan reader for its users.
#include "dxf/read/readertext_p.h"

QString shownText(std::string_view bytes)
{
    constexpr qsizetype kLongest = 40;
    const auto size = std::min(static_cast<qsizetype>(bytes.size()), kLongest + 1);
    QString shown = QString::fromLatin1(bytes.data(), size);
    for (QChar &character : shown)
        if (!character.isPrint())
            character = u'?';
    if (shown.size() > kLongest)
        shown.replace(kLongest, 1, QChar(0x2026));
    return shown.trimmed();
}
