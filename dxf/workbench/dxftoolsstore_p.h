// SPDX-License-Identifier: GPL-2.0-or-later
// Where the dialog keeps what it remembers.
#pragma once

#include <QPointer>
#include <QSettings>
#include <kelo_base/core/UserDataManager.h>

/// Either the store that the dialog was given, or the user's files.
class DxfToolsStore
{
public:
    /// @param given  may be null, and may be gone before this object
    explicit DxfToolsStore(QSettings *given);

    /// Null when there is none to be had; so are the others.
    [[nodiscard]] QSettings *layout() const;
    [[nodiscard]] QSettings *settings() const;
    /// Announces when the user's files are saved; null with a store of the dialog's own.
    [[nodiscard]] UserDataManagerI *manager() const { return m_manager; }

private:
    using FileOfScope = QSettings &(UserDataManagerI::*)(DataScopeId, bool) const;
    [[nodiscard]] QSettings *userFile(FileOfScope file) const;

    const bool m_isGiven;
    QPointer<QSettings> m_given;
    QPointer<UserDataManagerI> m_manager; ///< not asked for anew: it may have been destroyed
};
