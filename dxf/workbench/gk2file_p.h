// SPDX-License-Identifier: GPL-2.0-or-later
// Replaces a GK2 file as a whole, or not at all.
#pragma once

#include <QString>
#include <kelo_base/dxf/DxfDrawing.h>
#include <span>

struct [[nodiscard]] Gk2FileResult
{
    qint64 written = 0; ///< records formatted, whether or not they could be stored
    QString error;      ///< why the file is not there, for the user; empty when it is
    bool keptOlderFile = false;
    explicit operator bool() const { return error.isEmpty(); }
};

/// Writes the sheets to a file beside @p path and renames it to there, so that an older file is
/// replaced by a complete one or stays as it was. A link stays a link, and the new file has the
/// permissions of the older one; devices and pipes are written to directly.
Gk2FileResult ReplaceGk2File(const QString &path, const DxfDrawing &drawing,
                             std::span<const quint32> sheets);

/// Whether both names lead to one existing file, by whatever links or spellings.
bool AreSameFile(const QString &one, const QString &other);
