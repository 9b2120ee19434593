// SPDX-License-Identifier: GPL-2.0-or-later
// The functions that concern the program itself.
#pragma once

#include <QObject>

class MainWindow;

class ToolCommands : public QObject
{
    Q_OBJECT

public:
    explicit ToolCommands(MainWindow &window);

private:
    void showFullScreen();
    void showAbout();

    MainWindow &m_window;
};
