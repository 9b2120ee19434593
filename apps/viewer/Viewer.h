// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer as a whole: what it is made of, in the order in which that starts.
#pragma once

#include "CommandLine.h"
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <memory>

class MainWindow;
class PartnerChannel;
class Session;
class ViewerActions;

class Viewer
{
public:
    explicit Viewer(CommandLine line);
    ~Viewer();
    Q_DISABLE_COPY_MOVE(Viewer)

    /// Runs until the window is closed. @return the program's status
    int run();
    [[nodiscard]] MenuConfigManager &configuration() { return m_configuration; }

private:
    int runWithServices();
    int runForPicture();
    void tell(const QString &sentence);
    bool openWindow();
    void closeWindow();
    void openPlans();

    CommandLine m_line;
    ActionManager m_manager;
    MenuConfigManager m_configuration;
    std::unique_ptr<ViewerActions> m_actions;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<PartnerChannel> m_channel;
};
