// SPDX-License-Identifier: GPL-2.0-or-later
// Copies of data files placed where the partner finds them.
#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>

namespace channel {

/// Larger files are not placed.
inline constexpr qint64 kDataFileLimit = 256LL << 20;

/// "kelo-data-", 25 upper-case letters and digits that follow from the bytes, and the ending of
/// @p filename where that is up to eight ASCII letters and digits. So equal contents share a copy,
/// and no name holds a separator, whatever the path was.
[[nodiscard]] QString dataFileName(const QByteArray &bytes, const QString &filename);

/// Places a copy of @p filename in @p directory, or renews the time of the one that is there.
/// @return its bare name; empty, with one debug line, when it cannot be read or written
[[nodiscard]] QString placeDataFile(const QString &filename, const QString &directory);

/// Removes the copies placed longer ago than @p age.
void removeDataFiles(const QString &directory, std::chrono::milliseconds age);

} // namespace channel
