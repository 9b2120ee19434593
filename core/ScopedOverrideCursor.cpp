// SPDX-License-Identifier: GPL-2.0-or-later
// A cursor over the whole application for as long as something takes.
#include <kelo_base/core/ScopedOverrideCursor.h>

#include <QApplication>

namespace qor {

QtScopedOverrideCursor::QtScopedOverrideCursor(const QCursor &cursor)
{
    QApplication::setOverrideCursor(cursor);
}

void QtScopedOverrideCursor::RestoreCursor()
{
    QApplication::restoreOverrideCursor();
}

} // namespace qor
