// SPDX-License-Identifier: GPL-2.0-or-later
// The menu configuration as a part of the application that starts and stops with it.
#pragma once

#include <kelo_base/core/CoreFacade.h>
#include <kelo_base/core/Export.h>

class ActionManager;
class MenuConfigManager;

/// A service "menus" that needs "settings". Its start takes the user's settings file as the store
/// and calls MenuConfigManager::SetUpActions(), so actions are registered before. A program that
/// has given its configuration no name gets the one that the user had last. The stop, and each save
/// of the settings, stores the configuration. Both managers outlive the service.
[[nodiscard]] KELO_BASE_EXPORT CoreService MenuConfigService(MenuConfigManager &configuration,
                                                             ActionManager &actions);
