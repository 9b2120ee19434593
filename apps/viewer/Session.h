// SPDX-License-Identifier: GPL-2.0-or-later
// Remembers windows and views from run to run.
#pragma once

#include <QObject>
#include <QTimer>

class MainWindow;
class PlanTabs;
class PlanView;
class QSettings;

/// The window's layout belongs to the user, what a plan shows to its project, which is the plan's
/// folder. Both are written whenever the settings are saved; views also soon after they were moved.
class Session : public QObject
{
    Q_OBJECT

public:
    /// Restores the window. Lives no longer than it, and only while the user's settings are open.
    explicit Session(MainWindow &window);
    ~Session() override;

private:
    void enter(PlanView *view);
    void leave(PlanView *view);
    void openProject(const QString &plan);
    void saveWindow() const;
    void savePlans(QSettings &project) const;

    MainWindow &m_window;
    PlanTabs &m_tabs;
    QString m_folder; ///< of the open project; empty: none
    QTimer m_soon;
};
