// SPDX-License-Identifier: GPL-2.0-or-later
// Connects the manager of the controls with the window.
#include "ViewControls.h"

#include "MainWindow.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "ViewerActions.h"
#include <QAction>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>
#include <utility>

ViewControls::ViewControls(MainWindow &window) : m_window(window)
{
    NavCtrlMgrIfc &controls = NavCtrlMgrIfc::Instance();
    controls.SetWheelZoom(false); // the views zoom by themselves, and know touch pads
    QAction &shown = window.actions().action(ViewerAction::ShowControls);
    shown.setChecked(controls.IsShown());
    connect(&shown, &QAction::toggled, &controls, &NavCtrlMgrIfc::SetShown);
    connect(&controls, &NavCtrlMgrIfc::shownChanged, &shown, &QAction::setChecked);
    connect(&controls, &NavCtrlMgrIfc::presentationChanged, this,
            [this](KView *, bool isPresenting) { present(isPresenting); });
    connect(&window, &MainWindow::planOpened, this,
            [&controls](PlanView *view) { controls.AddView(view); });
}

ViewControls::~ViewControls()
{
    NavCtrlMgrIfc::Destroy();
}

void ViewControls::endPresentations()
{
    for (PlanView *view : m_window.tabs().views())
        NavCtrlMgrIfc::Instance().LeavePresentation(view);
}

void ViewControls::present(bool isPresenting)
{
    for (const QPointer<QWidget> &bar : std::exchange(m_hidden, {}))
        if (bar)
            bar->show();
    if (!isPresenting)
        return;
    QWidgetList bars{m_window.menuBar(), m_window.statusBar()};
    for (QToolBar *bar : m_window.findChildren<QToolBar *>())
        bars << bar;
    for (QWidget *bar : bars) {
        if (bar->isHidden())
            continue;
        bar->hide();
        m_hidden << bar;
    }
}
