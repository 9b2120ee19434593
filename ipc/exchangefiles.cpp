// SPDX-License-Identifier: GPL-2.0-or-later
// The few things that the channel does with files, none of which waits or throws.
#include "ipc/exchangefiles_p.h"

#include "ipc/channel_p.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <filesystem>

namespace channel {
namespace {

std::filesystem::path nativePath(const QString &path)
{
    return QFileInfo(path).filesystemFilePath();
}

} // namespace

FileStamp stampOf(const QString &path)
{
    // Not QFileInfo: it asks for the time zone with each time it tells.
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path file = nativePath(path);
    const fs::file_time_type modified = fs::last_write_time(file, error);
    if (error)
        return {};
    const auto sinceEpoch = fs::file_time_type::clock::to_sys(modified).time_since_epoch();
    FileStamp stamp{.kind = FileStamp::Kind::Other,
                    .modified = std::chrono::floor<std::chrono::milliseconds>(sinceEpoch).count()};
    if (fs::is_regular_file(file, error)) {
        stamp.kind = FileStamp::Kind::File;
        stamp.size = static_cast<qint64>(fs::file_size(file, error)); // -1: gone in the meantime
    }
    return stamp;
}

std::optional<QByteArray> readFile(const QString &path, qint64 limit)
{
    QFile file(path);
    if (stampOf(path).kind != FileStamp::Kind::File || !file.open(QIODevice::ReadOnly))
        return std::nullopt; // a pipe would be opened only when someone writes into it
    QByteArray bytes = file.read(limit + 1);
    const bool isRead = file.error() == QFileDevice::NoError && bytes.size() <= limit;
    return isRead ? std::optional(bytes) : std::nullopt;
}

QByteArray readTail(const QString &path, qint64 count)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    file.seek(std::max<qint64>(0, file.size() - count));
    return file.read(count);
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    const QString temporary = path + kTemporaryEnding;
    QFile file(temporary);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                           file.flush(); // what stays in the buffer may still fail
    file.close();
    return isWritten && renameFile(temporary, path);
}

bool renameFile(const QString &from, const QString &to)
{
    std::error_code error; // QFile::rename() refuses to replace, and copies where it cannot rename
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    return !error;
}

bool fileExists(const QString &path)
{
    return QFile::exists(path);
}

bool removeFile(const QString &path)
{
    return QFile::remove(path);
}

void touchFile(const QString &path)
{
    std::error_code error;
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(nativePath(path), now, error);
}

} // namespace channel
