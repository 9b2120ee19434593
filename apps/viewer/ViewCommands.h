// SPDX-License-Identifier: GPL-2.0-or-later
// The functions that move the view.
#pragma once

#include "ViewerActions.h"

class MainWindow;
class PlanView;

class ViewCommands : public QObject
{
    Q_OBJECT

public:
    explicit ViewCommands(MainWindow &window);

private:
    /// Does @p work with the view in front, if there is one.
    void on(ViewerAction id, void (ViewCommands::*work)(PlanView &));
    void zoomIn(PlanView &view);
    void zoomOut(PlanView &view);
    void turnLeft(PlanView &view);
    void turnRight(PlanView &view);
    void showWholePlan(PlanView &view);
    void showWholeSheet(PlanView &view);
    void turnNorthUp(PlanView &view);
    void goBack(PlanView &view);
    void goForth(PlanView &view);
    void showBackdrop(PlanView &view);
    void placeSheets(PlanView &view);
    void goToSheet(PlanView &view);
    void goToCoordinates(PlanView &view);

    MainWindow &m_window;
};
