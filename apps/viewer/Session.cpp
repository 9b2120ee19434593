// SPDX-License-Identifier: GPL-2.0-or-later
// Puts state into the settings files, and takes it out.
#include "Session.h"

#include "MainWindow.h"
#include "Plan.h"
#include "PlanState.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "ViewerActions.h"
#include <QAction>
#include <QFileInfo>
#include <QSettings>
#include <kelo_base/core/CoreFacade.h>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWindowVersion = 1; ///< of docks and tool bars
constexpr int kSoon = 3000;       ///< milliseconds after a movement
constexpr QLatin1StringView kGeometry{"viewer/geometry"};
constexpr QLatin1StringView kDocks{"viewer/docks"};
constexpr QLatin1StringView kSectorMenu{"viewer/sectorMenu"};

PlanState stateOf(const PlanView &view)
{
    return {view.pose(), view.plan().isBackdropShown(), view.plan().isPlaced()};
}

QString folderOf(const QString &plan)
{
    return QFileInfo(plan).absolutePath();
}

} // namespace

Session::Session(MainWindow &window) : m_window(window), m_tabs(window.tabs())
{
    UserDataManagerI &data = UserDataManager();
    QSettings &layout = data.GetLayoutConfigFile(DataScopeUser, true);
    window.restoreGeometry(layout.value(kGeometry).toByteArray());
    window.restoreState(layout.value(kDocks).toByteArray(), kWindowVersion);
    QSettings &settings = data.GetSettingsConfigFile(DataScopeUser, true);
    window.actions()
        .action(ViewerAction::SectorMenu)
        .setChecked(settings.value(kSectorMenu, false).toBool());

    connect(&data, &UserDataManagerI::onSavingUserConfigFiles, this, &Session::saveWindow);
    connect(&data, &UserDataManagerI::onSavingProjectConfigFiles, this, &Session::savePlans);
    connect(&m_window, &MainWindow::planOpened, this, &Session::enter);
    connect(&m_tabs, &PlanTabs::aboutToClose, this, &Session::leave);
    connect(&m_tabs, &PlanTabs::currentViewChanged, this, [this](PlanView *view) {
        if (view)
            openProject(view->plan().path());
    });
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoon);
    connect(&m_soon, &QTimer::timeout, this, [] {
        if (UserDataManager().HasOpenProject())
            UserDataManager().SaveProjectConfigFiles();
    });
}

/// The last state is put in by the save that comes before the window goes.
Session::~Session() = default;

void Session::saveWindow() const
{
    UserDataManagerI &data = UserDataManager();
    QSettings &layout = data.GetLayoutConfigFile(DataScopeUser, true);
    layout.setValue(kGeometry, m_window.saveGeometry());
    layout.setValue(kDocks, m_window.saveState(kWindowVersion));
    data.GetSettingsConfigFile(DataScopeUser, true)
        .setValue(kSectorMenu, m_window.actions().action(ViewerAction::SectorMenu).isChecked());
}

/// The project that was open is saved with the views of its own folder.
void Session::openProject(const QString &plan)
{
    const QString folder = folderOf(plan);
    if (plan.isEmpty() || folder == m_folder)
        return;
    const Tz::ObjectId id = projectOf(plan);
    UserDataManager().PrepareStorageDirectoryForProject(id);
    UserDataManager().OpenProjectConfigFiles(id);
    m_folder = folder;
    NavCtrlMgrIfc::Instance().SetDatabase(CoreFacadeI::Instance().GetDatabase(),
                                          QString::fromLatin1(id.c_str()));
}

void Session::savePlans(QSettings &project) const
{
    for (const PlanView *view : m_tabs.views())
        if (folderOf(view->plan().path()) == m_folder)
            writePlanState(project, view->plan().path(), stateOf(*view));
}

void Session::enter(PlanView *view)
{
    openProject(view->plan().path());
    QSettings &project = UserDataManager().GetSettingsConfigFile(DataScopeProject, true);
    if (const auto state = readPlanState(project, view->plan().path())) {
        view->plan().setBackdropShown(state->isBackdropShown);
        view->plan().setPlaced(state->isPlaced);
        view->place(state->pose);
    }
    connect(view, &PlanView::viewSettled, &m_soon, qOverload<>(&QTimer::start));
}

void Session::leave(PlanView *view)
{
    openProject(view->plan().path());
    if (UserDataManager().HasOpenProject())
        UserDataManager().SaveProjectConfigFiles();
}
