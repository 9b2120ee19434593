// SPDX-License-Identifier: GPL-2.0-or-later
// The few things that the channel does with files, none of which waits or throws.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace channel {

/// What one look at a path shows.
struct FileStamp
{
    enum class Kind { Absent, File, Other };

    Kind kind = Kind::Absent; ///< Other: a directory, a pipe
    qint64 size = 0;          ///< in bytes
    qint64 modified = 0;      ///< in milliseconds since 1970

    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

/// One call of the system where nothing is, three for a file.
[[nodiscard]] FileStamp stampOf(const QString &path);

/// One call of the system.
[[nodiscard]] bool fileExists(const QString &path);

/// All bytes of a file; nothing when it cannot be read or has more than @p limit.
[[nodiscard]] std::optional<QByteArray> readFile(const QString &path, qint64 limit);

/// The last bytes of a file, at most @p count; empty when it cannot be read.
[[nodiscard]] QByteArray readTail(const QString &path, qint64 count);

/// Puts a file there whole or not at all, by way of "path.new" and a rename; replaces what was
/// there.
[[nodiscard]] bool writeFile(const QString &path, const QByteArray &bytes);

/// Renames within a directory; replaces a file that has the new name.
[[nodiscard]] bool renameFile(const QString &from, const QString &to);

/// Whether this call removed the file: false when another was faster.
bool removeFile(const QString &path);

/// Gives the file the time of now.
void touchFile(const QString &path);

} // namespace channel
