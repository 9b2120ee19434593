// SPDX-License-Identifier: GPL-2.0-or-later
// A cursor over the whole application for as long as something takes.
#pragma once

#include <kelo_base/core/Export.h>

class QCursor;

namespace qor {

/// Pushes an override cursor, and pops one when it goes out of scope.
class KELO_BASE_EXPORT QtScopedOverrideCursor
{
public:
    explicit QtScopedOverrideCursor(const QCursor &cursor);
    /// Pops once more after RestoreCursor(), on purpose: callers restore only what they pushed
    /// themselves.
    ~QtScopedOverrideCursor() { RestoreCursor(); }
    QtScopedOverrideCursor(const QtScopedOverrideCursor &) = delete;
    /// Copies nothing: each object answers for its own push.
    QtScopedOverrideCursor &operator=(const QtScopedOverrideCursor &) { return *this; }

    /// Pops one override cursor, whoever pushed it.
    void RestoreCursor();
};

} // namespace qor
