// SPDX-License-Identifier: GPL-2.0-or-later
// The functions that concern the program itself.
#pragma once

#include <QObject>

class MainWindow;
class MenuConfigManager;

class ToolCommands : public QObject
{
    Q_OBJECT

public:
    ToolCommands(MainWindow &window, MenuConfigManager &configuration);

private:
    void showFullScreen();
    void showAbout();

    MainWindow &m_window;
};
