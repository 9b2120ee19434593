// SPDX-License-Identifier: GPL-2.0-or-later
// The workbench beside the plan.
#pragma once

#include <QDockWidget>

class DxfToolsDialog;
class MainWindow;
class PlanView;

/// Reads the plan in front when it is seen first, and again when another one comes to the front.
class WorkbenchDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit WorkbenchDock(MainWindow &window);

private:
    void follow();

    MainWindow &m_window;
    DxfToolsDialog *m_workbench = nullptr; ///< made when it is seen first
};
