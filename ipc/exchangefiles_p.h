// SPDX-License-Identifier: GPL-2.0-or-later
// The few things that the channel does with files, none of which waits or throws, whatever the
// path.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace channel {

/// What a look into a file shows.
struct FileContent
{
    enum class State {
        Absent, ///< the directory is there, and nothing in it has the name
        Read,
        TooLarge,
        NoFile,     ///< a directory, a pipe
        Unreadable, ///< also when there is no directory
    };

    State state = State::Unreadable;
    QByteArray bytes; ///< empty unless read
};

/// Whether a text can be a path: no half surrogate pair, which no system takes, and no NUL, at
/// which some end.
[[nodiscard]] bool isPath(const QString &text);

/// Milliseconds, from an origin of its own, by a clock that does not jump.
[[nodiscard]] qint64 steadyNow();

/// @param limit  in bytes
[[nodiscard]] FileContent lookInto(const QString &path, qint64 limit);

/// All bytes of a file; nothing when it cannot be read or has more than @p limit.
[[nodiscard]] std::optional<QByteArray> readFile(const QString &path, qint64 limit);

/// One call of the system, as is the next.
[[nodiscard]] bool fileExists(const QString &path);

/// In milliseconds since 1970, by the clock and as exact as the file system has it; nothing when
/// nothing is there.
[[nodiscard]] std::optional<qint64> modifiedTime(const QString &path);
void setModifiedTime(const QString &path, qint64 time);

/// The time that the file system gives to what is written in @p directory now; that of the system's
/// clock when nothing can be written.
[[nodiscard]] qint64 fileSystemNow(const QString &directory);

/// Writes a file that must not be there yet: never through a link, never into a pipe.
[[nodiscard]] bool writeNewFile(const QString &path, const QByteArray &bytes);

/// Puts a file there whole or not at all, by way of "path.new" and a rename; replaces what was
/// there, under both names, unless it is a directory.
[[nodiscard]] bool writeFile(const QString &path, const QByteArray &bytes);

/// Renames within a directory; replaces a file that has the new name.
[[nodiscard]] bool renameFile(const QString &from, const QString &to);

/// Whether this call removed the file: false when another was faster.
bool removeFile(const QString &path);

} // namespace channel
