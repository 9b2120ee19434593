// SPDX-License-Identifier: GPL-2.0-or-later
// Joins the parts to the facade as services.
#include "Viewer.h"

#include "Fonts.h"
#include "LinkDock.h"
#include "MainWindow.h"
#include "PartnerChannel.h"
#include "RecentPlans.h"
#include "Screenshot.h"
#include "Session.h"
#include "ViewNavigation.h"
#include "ViewerActions.h"
#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/MenuConfigService.h>
#include <kelo_base/actions/StyleSheet.h>
#include <kelo_base/core/CoreFacade.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWrongUsage = 2;
constexpr int kSoon = 100; ///< milliseconds in which the window has been painted

/// The plan for those who have none: the installed one, else that of the tree it was built in.
QString samplePlan()
{
    const QString installed =
        QCoreApplication::applicationDirPath() + "/../share/kelo_base/samples/village.dxf"_L1;
    return QFileInfo::exists(installed) ? QFileInfo(installed).canonicalFilePath()
                                        : QStringLiteral(VIEWER_SAMPLE);
}

} // namespace

Viewer::Viewer(CommandLine line) : m_line(std::move(line))
{
    if (m_line.plans.isEmpty())
        m_line.plans << samplePlan();
}

Viewer::~Viewer() = default;

int Viewer::run()
{
    if (!m_line.text.isEmpty())
        return std::fputs(qUtf8Printable(m_line.text), stdout) < 0 ? 1 : 0;
    if (!m_line.fault.isEmpty()) {
        std::fprintf(stderr, "kelo-viewer: %s\n", qUtf8Printable(m_line.fault));
        return kWrongUsage;
    }
    LookUpFonts(); // while the services start
    m_actions = std::make_unique<ViewerActions>(m_manager);
    m_configuration.AssignDefaultContextMenuLayout(ViewerActions::shippedLayout());
    return m_line.screenshot.isEmpty() ? runWithServices() : runForPicture();
}

int Viewer::runWithServices()
{
    CoreFacadeI &core = CoreFacadeI::Instance();
    core.Join(MenuConfigService(m_configuration, m_manager));
    core.Join({u"window"_s,
               [this](QString &) { return openWindow(); },
               [this] { closeWindow(); },
               {u"settings"_s, u"menus"_s}});
    core.Join({u"channel"_s,
               [this](QString &) {
                   // The plan is seen first: looking for the partner takes a while.
                   QTimer::singleShot(kSoon, m_window.get(), [this] {
                       m_channel =
                           std::make_unique<PartnerChannel>(*m_window, m_line.exchangeFolder);
                   });
                   return true;
               },
               [this] { m_channel.reset(); },
               {u"window"_s}});
    QObject::connect(&core, &CoreFacadeI::serviceFailed, QCoreApplication::instance(),
                     [this](const QString &, const QString &sentence) { tell(sentence); });
    core.Start();
    const bool hasWindow = m_window != nullptr;
    const int status = hasWindow ? QApplication::exec() : 1;
    CoreFacadeI::Destroy();
    return status;
}

/// In the window, as long as people see it.
void Viewer::tell(const QString &sentence)
{
    if (m_window && m_window->isVisible())
        m_window->tell(sentence);
    else
        std::fprintf(stderr, "kelo-viewer: %s\n", qUtf8Printable(sentence));
}

bool Viewer::openWindow()
{
    m_window = std::make_unique<MainWindow>(*m_actions, m_configuration);
    m_window->links().setDatabase(CoreFacadeI::Instance().GetDatabase());
    m_window->recentPlans().setKept(true);
    m_session = std::make_unique<Session>(*m_window);
    QObject::connect(&UserDataManager(), &UserDataManagerI::saveFailed,
                     QCoreApplication::instance(),
                     [this](const QString &sentence) { tell(sentence); });
    m_window->tell(CoreFacadeI::Instance().GetFailures().join(u' ')); // of what started before
    if (const QString fault = UseStyleSheet(StoredStyleSheet(*m_configuration.GetSettings()));
        !fault.isEmpty())
        m_window->tell(fault);
    m_window->show();
    QTimer::singleShot(0, m_window.get(), [this] { openPlans(); });
    return true;
}

/// While all settings are still open: what shall be kept is in them.
void Viewer::closeWindow()
{
    m_session.reset();
    m_window.reset();
}

void Viewer::openPlans()
{
    for (const QString &plan : m_line.plans) {
        PlanView *view = m_window->openPlan(plan);
        if (view && m_line.view)
            goTo(*view, *m_line.view);
    }
}

/// Without the user's settings: the same everywhere.
int Viewer::runForPicture()
{
    m_configuration.SetUpActions(m_manager);
    m_window = std::make_unique<MainWindow>(*m_actions, m_configuration);
    const int status = takeScreenshot(*m_window, m_line);
    m_window.reset();
    return status;
}
