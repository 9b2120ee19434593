// SPDX-License-Identifier: GPL-2.0-or-later
// Puts the dialog's parts into a dock.
#include "WorkbenchDock.h"

#include "MainWindow.h"
#include "Plan.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "ViewerActions.h"
#include <QAction>
#include <QScrollArea>
#include <QTimer>
#include <kelo_base/dxf/DxfToolsDialog.h>

using namespace Qt::Literals::StringLiterals;

WorkbenchDock::WorkbenchDock(MainWindow &window) : QDockWidget(tr("Workbench")), m_window(window)
{
    setObjectName(u"workbench"_s);
    QAction &action = window.actions().action(ViewerAction::Workbench);
    connect(&action, &QAction::toggled, this, &QWidget::setVisible);
    connect(this, &QDockWidget::visibilityChanged, this, [this, &action] {
        action.setChecked(!isHidden());
        QTimer::singleShot(0, this, &WorkbenchDock::follow);
    });
    connect(&window.tabs(), &PlanTabs::currentViewChanged, this,
            [this] { QTimer::singleShot(0, this, &WorkbenchDock::follow); });
    hide();
}

void WorkbenchDock::follow()
{
    const PlanView *view = m_window.currentView();
    if (isHidden())
        return;
    if (!m_workbench) {
        m_workbench = new DxfToolsDialog(this);
        m_workbench->SetEmbedded();
        auto *area = new QScrollArea; // a small screen shows a part of it
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setWidget(m_workbench);
        setWidget(area);
        m_workbench->show();
    }
    if (view && !m_workbench->IsReading() && m_workbench->FileName() != view->plan().path())
        m_workbench->ReadFile(view->plan().path());
}
