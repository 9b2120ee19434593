// SPDX-License-Identifier: GPL-2.0-or-later
// Names of files: texts made safe as such, as the system has them, and where links lead.
#pragma once

#include <kelo_base/core/Export.h>

#include <QByteArrayView>
#include <QString>
#include <filesystem>

class QFile;

/// The name with "_" for each of \ / : * ? " < > | & and for each carriage return and line feed.
/// Nothing else changes: no trimming, no shortening. The ampersand is a mnemonic in menus, which
/// show these names.
[[nodiscard]] KELO_BASE_EXPORT QString NormalizeFileName(const QString &name);

/// Where a chain of symbolic links ends, whether or not there is a file; the path itself when it is
/// no link. Whoever replaces a file by renaming asks for it, lest the link be replaced. Of a circle
/// any one of its links.
[[nodiscard]] KELO_BASE_EXPORT QString FollowLinks(const QString &path);

/// The name that the system gave as bytes, for instance on a command line. Bytes that are no UTF-8,
/// as old archives bring them along, become the lone surrogates U+DC80 ... U+DCFF, which
/// SystemPath() turns back; the toolkit's own file classes cannot.
[[nodiscard]] KELO_BASE_EXPORT QString FileNameFromBytes(QByteArrayView name);
/// The name as the system wants it.
[[nodiscard]] KELO_BASE_EXPORT std::filesystem::path SystemPath(const QString &name);
/// Whether FileNameFromBytes() found bytes that are no UTF-8 in it.
[[nodiscard]] KELO_BASE_EXPORT bool HasForeignBytes(QStringView name);
/// The name for people to read, each foreign byte as U+FFFD.
[[nodiscard]] KELO_BASE_EXPORT QString ReadableFileName(QString name);

/// Opens a file for reading, unbuffered, whatever bytes its name has. False when that failed: the
/// file's errorString() tells why.
KELO_BASE_EXPORT bool OpenForReading(QFile &file, const QString &name);

/// Whether both names lead to one existing file, by whatever links or spellings.
[[nodiscard]] KELO_BASE_EXPORT bool AreSameFile(const QString &one, const QString &other);
