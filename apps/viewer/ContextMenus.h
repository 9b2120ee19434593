// SPDX-License-Identifier: GPL-2.0-or-later
// What the right button opens.
#pragma once

#include <QMenu>
#include <QObject>
#include <memory>

class ActionSectorMenu;
class MainWindow;
class MenuConfigManager;

/// The context menu as configured, or the sector menu that the same layout gives.
class ContextMenus : public QObject
{
    Q_OBJECT

public:
    static constexpr int kInnerRadius = 40; ///< of the sector menu, in pixels
    static constexpr int kOuterRadius = 140;

    ContextMenus(MainWindow &window, const MenuConfigManager &configuration);
    ~ContextMenus() override;
    void popup(const QPoint &globalPos);

private:
    MainWindow &m_window;
    const MenuConfigManager &m_configuration;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<ActionSectorMenu> m_sectors; ///< made when it is wanted first
};
