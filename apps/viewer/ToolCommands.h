// SPDX-License-Identifier: GPL-2.0-or-later
// The functions that concern the program itself.
#pragma once

#include <QObject>
#include <QPointer>

class MainWindow;
class MenuConfigDialog;
class MenuConfigManager;

class ToolCommands : public QObject
{
    Q_OBJECT

public:
    ToolCommands(MainWindow &window, MenuConfigManager &configuration);

private:
    void showFullScreen();
    MenuConfigDialog &configure();
    void showAbout();

    MainWindow &m_window;
    MenuConfigManager &m_configuration;
    QPointer<MenuConfigDialog> m_dialog;
};
