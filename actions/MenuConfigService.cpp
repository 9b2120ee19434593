// SPDX-License-Identifier: GPL-2.0-or-later
// The menu configuration as a part of the application that starts and stops with it.
#include <kelo_base/actions/MenuConfigService.h>

#include "actions/menuconfig_p.h"
#include "actions/recentconfigs_p.h"
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/core/UserDataManager.h>

namespace {

/// The configuration that the user had last, unless the program has named one or it has gone.
void reopenLast(MenuConfigManager &configuration, ActionManager &actions)
{
    QSettings &store = *configuration.GetSettings();
    const QString last =
        menuconfig::readRecentNames(store, configuration.GetConfigNames()).value(0);
    if (last.isEmpty() || configuration.GetPlainConfigName() != menuconfig::kDefaultConfigName)
        return;
    configuration.SetConfigName(last);
    configuration.SetUpActions(actions); // once more: the defaults are those of the first time
}

} // namespace

CoreService MenuConfigService(MenuConfigManager &configuration, ActionManager &actions)
{
    const auto start = [&configuration, &actions](QString &) {
        UserDataManagerI &data = UserDataManager();
        configuration.SetSettings(&data.GetSettingsConfigFile(DataScopeUser, true));
        configuration.SetUpActions(actions);
        reopenLast(configuration, actions);
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
