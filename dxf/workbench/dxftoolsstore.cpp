// SPDX-License-Identifier: GPL-2.0-or-later
// Where the dialog keeps what it remembers.
#include "dxf/workbench/dxftoolsstore_p.h"
#include <stdexcept>

DxfToolsStore::DxfToolsStore(QSettings *given)
    : m_isGiven(given != nullptr), m_given(given), m_manager(given ? nullptr : &UserDataManager())
{
}

QSettings *DxfToolsStore::layout() const
{
    return m_isGiven ? m_given.data() : userFile(&UserDataManagerI::GetLayoutConfigFile);
}

QSettings *DxfToolsStore::settings() const
{
    return m_isGiven ? m_given.data() : userFile(&UserDataManagerI::GetSettingsConfigFile);
}

QSettings *DxfToolsStore::userFile(FileOfScope file) const
{
    if (!m_manager)
        return nullptr;
    try {
        return &(m_manager->*file)(DataScopeUser, true);
    } catch (const std::runtime_error &) { // the user's files are closed
        return nullptr;
    }
}
