// SPDX-License-Identifier: GPL-2.0-or-later
// Names of files: texts made safe as such, and where symbolic links lead.
#include <kelo_base/core/FileName.h>

#include <QFileInfo>
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

QString FollowLinks(const QString &path)
{
    constexpr int kMost = 40; // as many as Linux follows; then it is a circle
    QFileInfo info(path);
    for (int links = 0; info.isSymLink() && links < kMost; ++links)
        info.setFile(info.symLinkTarget());
    return info.filePath();
}
