// SPDX-License-Identifier: GPL-2.0-or-later
// Names of files: texts made safe as such, and where symbolic links lead.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>

/// The name with "_" for each of \ / : * ? " < > | & and for each carriage return and line feed.
/// Nothing else changes: no trimming, no shortening. The ampersand is a mnemonic in menus, which
/// show these names.
[[nodiscard]] KELO_BASE_EXPORT QString NormalizeFileName(const QString &name);

/// Where a chain of symbolic links ends, whether or not there is a file; the path itself when it is
/// no link. Whoever replaces a file by renaming asks for it, lest the link be replaced. Of a circle
/// any one of its links.
[[nodiscard]] KELO_BASE_EXPORT QString FollowLinks(const QString &path);
