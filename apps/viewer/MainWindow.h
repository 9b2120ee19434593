// SPDX-License-Identifier: GPL-2.0-or-later
// The window: plans in tabs, docks beside them, a status line below.
#pragma once

#include <QMainWindow>
#include <QStringList>
#include <memory>

class DocWindow;
class LinkDock;
class MenuConfigManager;
class NoticeBar;
class PlanOpener;
class PlanTabs;
class PlanView;
class RecentPlans;
class StatusLine;
class StoredViewDock;
class ViewControls;
class ViewerActions;

/// Puts the parts together; what a function does stands in the classes named "...Commands".
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param actions        not owned, as the next; both outlive this
    /// @param configuration  shortcuts and context menu
    MainWindow(ViewerActions &actions, MenuConfigManager &configuration);
    ~MainWindow() override;

    [[nodiscard]] PlanTabs &tabs() const { return *m_tabs; }
    [[nodiscard]] PlanView *currentView() const;
    [[nodiscard]] ViewerActions &actions() const { return m_actions; }
    [[nodiscard]] RecentPlans &recentPlans() const { return *m_recent; }
    [[nodiscard]] LinkDock &links() const { return *m_links; }
    [[nodiscard]] StoredViewDock &storedViews() const { return *m_storedViews; }
    [[nodiscard]] StatusLine &status() const { return *m_status; }

    /// Opens a plan in a tab, or brings its tab to the front. While another one is read it waits.
    /// @return null when it could not be read, or not yet, which the notice bar says; or when a
    /// listener has closed it again
    PlanView *openPlan(const QString &path);
    /// Reads the file of a plan again; the view stays as it is, also when that fails, which the
    /// notice bar says. Nothing happens while a plan is being read.
    void readAgain(PlanView &view);
    /// What the user shall read, until it is taken away; empty: nothing.
    void tell(const QString &sentence);
    [[nodiscard]] QString notice() const;
    void bringToFront();

signals:
    /// @param view  shows the plan; its backdrop will be read
    void planOpened(PlanView *view);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void layOut();
    void addDocks();
    void addCommands(MenuConfigManager &configuration);
    void finishReading(const QString &why);
    void tellNotRead(const QString &why);
    void watch(PlanView *view);
    void showCurrent(PlanView *view);
    void updateContext();

    ViewerActions &m_actions;
    PlanTabs *m_tabs;
    NoticeBar *m_notice;
    PlanOpener *m_opener;
    RecentPlans *m_recent;
    StatusLine *m_status;
    StoredViewDock *m_storedViews = nullptr;
    LinkDock *m_links = nullptr;
    std::unique_ptr<DocWindow> m_document;
    std::unique_ptr<ViewControls> m_controls;
    QStringList m_notRead; ///< what the notice bar says of plans, the latest last
    QStringList m_waiting; ///< plans to be opened when the one at hand is read
    bool m_closesAfterwards = false;
};
