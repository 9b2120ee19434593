// SPDX-License-Identifier: GPL-2.0-or-later
// Copies of data files placed where the partner finds them.
#include "ipc/datafile_p.h"

#include "ipc/channel_p.h"
#include "ipc/exchangefiles_p.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>
#include <algorithm>
#include <kelo_base/core/Uid.h>

using namespace Qt::Literals::StringLiterals;

namespace channel {
namespace {

constexpr qsizetype kLongestEnding = 8;

bool isPlain(QChar c)
{
    return c.unicode() < 0x80 && c.isLetterOrNumber();
}

/// With its dot; empty when the file has none or an unusual one.
QString plainEnding(const QString &filename)
{
    const QString ending = QFileInfo(filename).suffix();
    const bool isUsual = !ending.isEmpty() && ending.size() <= kLongestEnding &&
                         std::ranges::all_of(ending, isPlain);
    return isUsual ? u'.' + ending : QString();
}

} // namespace

QString dataFileName(const QByteArray &bytes, const QString &filename)
{
    char uid[26];
    Tz::CreateHashUid25(uid, bytes.constData(), static_cast<unsigned int>(bytes.size()));
    return kDataFilePrefix % QLatin1StringView(uid) % plainEnding(filename);
}

QString placeDataFile(const QString &filename, const QString &directory)
{
    const auto bytes = readFile(filename, kDataFileLimit);
    if (!bytes) {
        qDebug() << "KeloIPCFacadeI::MakeDataFileParameter"
                 << ": Cannot read " << filename;
        return {};
    }
    const QString name = dataFileName(*bytes, filename);
    const QString path = directory % u'/' % name;
    const bool isPlaced = !QFileInfo(path).isSymLink() && readFile(path, kDataFileLimit) == bytes;
    if (isPlaced) {
        setModifiedTime(path, fileSystemNow(directory));
        return name;
    }
    if (!writeFile(path, *bytes)) {
        qDebug() << "KeloIPCFacadeI::MakeDataFileParameter"
                 << ": Cannot write " << path;
        return {};
    }
    return name;
}

void removeDataFiles(const QString &directory, std::chrono::milliseconds age)
{
    const QDir dir(directory);
    const QStringList copies = dir.entryList({kDataFilePrefix % u'*'}, QDir::Files);
    if (copies.isEmpty())
        return;
    const qint64 limit = fileSystemNow(directory) - age.count();
    for (const QString &name : copies) {
        const QString path = dir.filePath(name);
        if (modifiedTime(path).value_or(limit) < limit)
            removeFile(path);
    }
}

} // namespace channel
