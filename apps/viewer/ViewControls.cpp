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

void ViewControls::present(bool isPresenting)
{
    m_window.menuBar()->setHidden(isPresenting);
    m_window.statusBar()->setHidden(isPresenting);
    for (QToolBar *bar : m_window.findChildren<QToolBar *>())
        bar->setHidden(isPresenting);
}
