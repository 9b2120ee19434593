// SPDX-License-Identifier: GPL-2.0-or-later
// The menu configuration as a part of the application that starts and stops with it.
#include <kelo_base/actions/MenuConfigService.h>

#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/core/UserDataManager.h>

CoreService MenuConfigService(MenuConfigManager &configuration, ActionManager &actions)
{
    const auto start = [&configuration, &actions](QString &) {
        UserDataManagerI &data = UserDataManager();
        configuration.SetSettings(&data.GetSettingsConfigFile(DataScopeUser, true));
        configuration.SetUpActions(actions);
        QObject::connect(&data, &UserDataManagerI::onSavingUserConfigFiles, &configuration,
                         &MenuConfigManager::SaveToStorage);
        return true;
    };
    const auto stop = [&configuration] {
        configuration.SaveToStorage();
        QObject::disconnect(&UserDataManager(), nullptr, &configuration, nullptr);
        configuration.SetSettings(nullptr);
    };
    return {QStringLiteral("menus"), start, stop, {QStringLiteral("settings")}};
}
