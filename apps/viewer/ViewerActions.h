// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer's functions, as they are registered.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

class ActionManager;
class ContextMenuLayout;
class QAction;
class QMenuBar;
class QMenu;

/// Numbers in users' files: never changed, and never used again for something else.
enum class ViewerAction : int {
    Open = 101,
    CloseTab = 102,
    Reload = 103,
    ExportGk2 = 104,
    ExportTable = 105,
    SavePicture = 106,
    Quit = 107,
    ZoomIn = 201,
    ZoomOut = 202,
    WholePlan = 203,
    WholeSheet = 204,
    TurnLeft = 205,
    TurnRight = 206,
    NorthUp = 207,
    PreviousView = 208,
    NextView = 209,
    ShowBackdrop = 210,
    PlaceSheets = 211,
    FullScreen = 212,
    ShowControls = 213,
    GoToSheet = 301,
    GoToCoordinates = 302,
    StoreView = 303,
    ShowInPartner = 401,
    LinkObject = 402,
    ShowObjectInPartner = 403,
    StartPartner = 404,
    ChannelActive = 405,
    Workbench = 501,
    StoredViews = 502,
    Links = 503,
    Configure = 504,
    SectorMenu = 505,
    About = 506,
};

/// When a function is offered: context groups and sub-contexts of ActionData.
enum ViewerContext : unsigned int {
    kPlanIsOpen = 0x10000,
    kOnSheet = 0x1,
};

/// Owns the actions, and enables those that the context offers.
class ViewerActions : public QObject
{
    Q_OBJECT

public:
    /// Registers all of them. @param manager  not owned; outlives this
    explicit ViewerActions(ActionManager &manager, QObject *parent = nullptr);
    ~ViewerActions() override;

    [[nodiscard]] QAction &action(ViewerAction id) const;
    [[nodiscard]] ActionManager &manager() const { return m_manager; }
    /// Does @p work when the action is triggered, as long as @p context lives.
    void on(ViewerAction id, QObject *context, std::function<void()> work) const;

    void setContext(unsigned int groups, unsigned int subs);
    [[nodiscard]] unsigned int groups() const { return m_groups; }
    [[nodiscard]] unsigned int subs() const { return m_subs; }

    /// Adds the menus of all functions. @param recent  becomes a part of the first one
    void fill(QMenuBar &bar, QMenu &recent) const;
    /// The context menu as the program ships it.
    [[nodiscard]] static ContextMenuLayout shippedLayout();

private:
    ActionManager &m_manager;
    std::vector<std::unique_ptr<QAction>> m_actions;
    unsigned int m_groups = 0;
    unsigned int m_subs = 0;
};
