// SPDX-License-Identifier: GPL-2.0-or-later
// Texts made safe as file names.
#include <kelo_base/core/FileName.h>

#include <algorithm>

namespace {

constexpr QStringView kUnsafe = u"\\/:*?\"<>|\r\n&";

} // namespace

QString NormalizeFileName(const QString &name)
{
    QString safe = name;
    std::ranges::replace_if(
        safe, [](QChar c) { return kUnsafe.contains(c); }, QChar(u'_'));
    return safe;
}
