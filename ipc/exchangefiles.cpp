// SPDX-License-Identifier: GPL-2.0-or-later
// The few things that the channel does with files, none of which waits or throws, whatever the
// path.
#include "ipc/exchangefiles_p.h"

#include "core/platform/platform.h"
#include "ipc/channel_p.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <chrono>
#include <filesystem>

namespace fs = std::filesystem;

namespace channel {
namespace {

/// Empty, which no call of the system takes, for what is no path: its conversion may throw.
fs::path nativePath(const QString &path)
{
    return isPath(path) ? QFileInfo(path).filesystemFilePath() : fs::path();
}

/// What is there, as one look shows it; links are followed.
FileContent::State stateOf(const QString &path)
{
    std::error_code error;
    const fs::path file = nativePath(path);
    const fs::file_type type = fs::status(file, error).type();
    if (type == fs::file_type::regular)
        return FileContent::State::Read;
    if (type == fs::file_type::not_found)
        return fs::is_directory(file.parent_path(), error) ? FileContent::State::Absent
                                                           : FileContent::State::Unreadable;
    return type == fs::file_type::none ? FileContent::State::Unreadable
                                       : FileContent::State::NoFile;
}

} // namespace

bool isPath(const QString &text)
{
    return !text.isEmpty() && text.isValidUtf16() && !text.contains(QChar::Null);
}

qint64 steadyNow()
{
    using namespace std::chrono;
    return floor<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

FileContent lookInto(const QString &path, qint64 limit)
{
    const FileContent::State state = stateOf(path);
    if (state != FileContent::State::Read)
        return {state, {}}; // a pipe would be opened only when someone writes into it
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {FileContent::State::Unreadable, {}};
    const qint64 size = file.size();
    if (size > limit)
        return {FileContent::State::TooLarge, {}};
    QByteArray bytes = file.read(size + 1); // not the limit, for which room would be made
    if (file.error() != QFileDevice::NoError)
        return {FileContent::State::Unreadable, {}};
    return {FileContent::State::Read, std::move(bytes)};
}

std::optional<QByteArray> readFile(const QString &path, qint64 limit)
{
    FileContent content = lookInto(path, limit);
    if (content.state != FileContent::State::Read)
        return std::nullopt;
    return std::move(content.bytes);
}

bool fileExists(const QString &path)
{
    return QFile::exists(path);
}

std::optional<qint64> modifiedTime(const QString &path)
{
    // Not QFileInfo: it asks for the time zone with each time it tells.
    std::error_code error;
    const fs::file_time_type modified = fs::last_write_time(nativePath(path), error);
    if (error)
        return std::nullopt;
    const auto sinceEpoch = fs::file_time_type::clock::to_sys(modified).time_since_epoch();
    return std::chrono::floor<std::chrono::milliseconds>(sinceEpoch).count();
}

void setModifiedTime(const QString &path, qint64 time)
{
    using namespace std::chrono;
    std::error_code error;
    const sys_time<milliseconds> moment{milliseconds(time)};
    fs::last_write_time(nativePath(path), fs::file_time_type::clock::from_sys(moment), error);
}

qint64 fileSystemNow(const QString &directory)
{
    // With the prefix of the data files, among which it is removed should the process die here.
    QTemporaryFile probe(directory + u'/' + kDataFilePrefix + QLatin1StringView("clock-XXXXXX"));
    const QDateTime time =
        probe.open() ? probe.fileTime(QFileDevice::FileModificationTime) : QDateTime();
    return time.isValid() ? time.toMSecsSinceEpoch() : QDateTime::currentMSecsSinceEpoch();
}

bool writeNewFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool isWritten = file.write(bytes) == bytes.size() &&
                           file.flush(); // what stays in the buffer may still fail
    file.close();
    if (!isWritten)
        removeFile(path);
    return isWritten;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    const QString temporary = path + kTemporaryEnding;
    removeFile(temporary); // half a file of a process that died, or what someone else put there
    if (!writeNewFile(temporary, bytes))
        return false;
    const bool isPlaced = renameFile(temporary, path);
    if (!isPlaced)
        removeFile(temporary);
    return isPlaced;
}

bool renameFile(const QString &from, const QString &to)
{
    // QFile::rename() refuses to replace, and copies where it cannot rename. Whoever reads the file
    // is waited for, but not long: the user waits, too, and the next look tries again.
    constexpr std::chrono::milliseconds kMoment{100};
    return !platform::renameOver(nativePath(from), nativePath(to), kMoment);
}

bool removeFile(const QString &path)
{
    return QFile::remove(path);
}

} // namespace channel
