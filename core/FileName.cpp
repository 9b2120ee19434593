// SPDX-License-Identifier: GPL-2.0-or-later
// Names of files: texts made safe as such, as the system has them, and where links lead.
#include <kelo_base/core/FileName.h>

#include "core/platform/platform.h"

#include <QFile>
#include <algorithm>

namespace {

constexpr QStringView kUnsafe = u"\\/:*?\"<>|\r\n&";
constexpr char16_t kForeignBytes = 0xDC00;                              ///< of byte 0
constexpr bool kIsWide = sizeof(std::filesystem::path::value_type) > 1; ///< names are no bytes

/// How many bytes the character takes with which a text in UTF-8 begins; 0 when it is none.
qsizetype characterSize(QByteArrayView text)
{
    constexpr qsizetype kLongest = 4;
    for (qsizetype size = 1; size <= std::min(kLongest, text.size()); ++size)
        if (text.first(size).isValidUtf8())
            return size;
    return 0;
}

bool isForeignByte(QStringView name, qsizetype at)
{
    const char16_t unit = name[at].unicode();
    const bool isPaired = at > 0 && name[at - 1].isHighSurrogate();
    return unit >= kForeignBytes + 0x80 && unit <= kForeignBytes + 0xFF && !isPaired;
}

QString nameOf(const std::filesystem::path &path)
{
    return kIsWide ? QString::fromStdWString(path.wstring()) : FileNameFromBytes(path.string());
}

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
    std::filesystem::path place = SystemPath(path);
    std::error_code error;
    for (int links = 0; std::filesystem::is_symlink(place, error) && links < kMost; ++links) {
        const std::filesystem::path end = std::filesystem::read_symlink(place, error);
        if (error)
            break;
        place = place.parent_path() / end; // an absolute end replaces all before it
    }
    return nameOf(place);
}

QString FileNameFromBytes(QByteArrayView name)
{
    QString text;
    while (!name.isEmpty()) {
        const qsizetype size = characterSize(name);
        if (size > 0)
            text += QString::fromUtf8(name.first(size));
        else
            text += QChar(char16_t(kForeignBytes + static_cast<uchar>(name.front())));
        name = name.sliced(std::max<qsizetype>(size, 1));
    }
    return text;
}

std::filesystem::path SystemPath(const QString &name)
{
    if constexpr (kIsWide)
        return name.toStdWString();
    QByteArray bytes;
    qsizetype done = 0;
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (!isForeignByte(name, at))
            continue;
        bytes += QStringView(name).sliced(done, at - done).toUtf8();
        bytes += static_cast<char>(name[at].unicode() - kForeignBytes);
        done = at + 1;
    }
    bytes += QStringView(name).sliced(done).toUtf8();
    return bytes.toStdString();
}

bool HasForeignBytes(QStringView name)
{
    for (qsizetype at = 0; at < name.size(); ++at)
        if (isForeignByte(name, at))
            return true;
    return false;
}

QString ReadableFileName(QString name)
{
    for (qsizetype at = 0; at < name.size(); ++at)
        if (isForeignByte(name, at))
            name[at] = QChar::ReplacementCharacter;
    return name;
}

bool OpenForReading(QFile &file, const QString &name)
{
    constexpr auto mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    const int descriptor = HasForeignBytes(name) ? platform::openFile(SystemPath(name)) : -1;
    if (descriptor >= 0)
        return file.open(descriptor, mode, QFileDevice::AutoCloseHandle);
    file.setFileName(name);
    return file.open(mode);
}

bool AreSameFile(const QString &one, const QString &other)
{
    std::error_code error;
    return std::filesystem::equivalent(SystemPath(one), SystemPath(other), error);
}
