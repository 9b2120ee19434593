// SPDX-License-Identifier: GPL-2.0-or-later
// Texts made safe as file names.
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>

/// The name with "_" for each of \ / : * ? " < > | & and for each carriage return and line feed.
/// Nothing else changes: no trimming, no shortening. The ampersand is a mnemonic in menus, which
/// show these names.
[[nodiscard]] KELO_BASE_EXPORT QString NormalizeFileName(const QString &name);
