// SPDX-License-Identifier: GPL-2.0-or-later
// Moves by one step, or to a place that is asked for.
#include "ViewCommands.h"

#include "MainWindow.h"
#include "Plan.h"
#include "PlanView.h"
#include "ViewNavigation.h"
#include "ViewerActions.h"
#include <QAction>
#include <QInputDialog>
#include <QPointer>
#include <kelo_base/navigation/ViewGeometry.h>

namespace {

constexpr double kZoomStep = 1.5;
constexpr double kTurnStep = 15; ///< degrees

} // namespace

ViewCommands::ViewCommands(MainWindow &window) : QObject(&window), m_window(window)
{
    on(ViewerAction::ZoomIn, &ViewCommands::zoomIn);
    on(ViewerAction::ZoomOut, &ViewCommands::zoomOut);
    on(ViewerAction::TurnLeft, &ViewCommands::turnLeft);
    on(ViewerAction::TurnRight, &ViewCommands::turnRight);
    on(ViewerAction::WholePlan, &ViewCommands::showWholePlan);
    on(ViewerAction::WholeSheet, &ViewCommands::showWholeSheet);
    on(ViewerAction::NorthUp, &ViewCommands::turnNorthUp);
    on(ViewerAction::PreviousView, &ViewCommands::goBack);
    on(ViewerAction::NextView, &ViewCommands::goForth);
    on(ViewerAction::ShowBackdrop, &ViewCommands::showBackdrop);
    on(ViewerAction::PlaceSheets, &ViewCommands::placeSheets);
    on(ViewerAction::GoToSheet, &ViewCommands::goToSheet);
    on(ViewerAction::GoToCoordinates, &ViewCommands::goToCoordinates);
}

void ViewCommands::on(ViewerAction id, void (ViewCommands::*work)(PlanView &))
{
    m_window.actions().on(id, this, [this, work] {
        if (PlanView *view = m_window.currentView())
            (this->*work)(*view);
    });
}

void ViewCommands::zoomIn(PlanView &view)
{
    view.moveTo(view.pose().zoomed(1 / kZoomStep, view.middle(), view.size()));
}

void ViewCommands::zoomOut(PlanView &view)
{
    view.moveTo(view.pose().zoomed(kZoomStep, view.middle(), view.size()));
}

void ViewCommands::turnLeft(PlanView &view)
{
    view.moveTo(view.pose().turned(-kTurnStep, view.middle(), view.size()));
}

void ViewCommands::turnRight(PlanView &view)
{
    view.moveTo(view.pose().turned(kTurnStep, view.middle(), view.size()));
}

void ViewCommands::showWholePlan(PlanView &view)
{
    view.go(view.wholePlan());
}

void ViewCommands::showWholeSheet(PlanView &view)
{
    if (const auto sheet = view.currentSheet())
        view.go(view.wholeSheet(*sheet, view.plan().sheets().frame(*sheet).angle()));
}

void ViewCommands::turnNorthUp(PlanView &view)
{
    view.go(view.pose().turned(-view.pose().angle(), view.middle(), view.size()));
}

void ViewCommands::goBack(PlanView &view)
{
    view.goBack();
}

void ViewCommands::goForth(PlanView &view)
{
    view.goForth();
}

void ViewCommands::showBackdrop(PlanView &view)
{
    view.plan().setBackdropShown(m_window.actions().action(ViewerAction::ShowBackdrop).isChecked());
}

void ViewCommands::placeSheets(PlanView &view)
{
    QAction &action = m_window.actions().action(ViewerAction::PlaceSheets);
    if (!view.plan().setPlaced(action.isChecked()))
        m_window.tell(tr("There is not enough memory to place the sheets"));
    action.setChecked(view.plan().isPlaced());
    view.go(view.wholePlan());
}

void ViewCommands::goToSheet(PlanView &view)
{
    const QPointer<PlanView> alive(&view); // its tab can be closed meanwhile
    bool isChosen = false;
    const QString number =
        QInputDialog::getText(&m_window, tr("Go to sheet"), tr("Number of the sheet:"),
                              QLineEdit::Normal, {}, &isChosen)
            .trimmed();
    if (!alive || !isChosen || number.isEmpty())
        return;
    const auto sheet = view.plan().sheets().sheetWithNumber(number);
    if (sheet)
        view.go(view.wholeSheet(*sheet, view.pose().angle()));
    else
        m_window.tell(tr("%1 has no sheet %2").arg(view.plan().name(), number));
}

void ViewCommands::goToCoordinates(PlanView &view)
{
    const QPointer<PlanView> alive(&view);
    const QPointF middle = view.pose().middle();
    const QString now = QStringLiteral("%1,%2,%3,%4")
                            .arg(middle.x(), 0, 'f', 2)
                            .arg(middle.y(), 0, 'f', 2)
                            .arg(EstimatedHeightAboveGroundLevelS(&view), 0, 'f', 1)
                            .arg(view.pose().angle(), 0, 'f', 1);
    bool isChosen = false;
    const QString text =
        QInputDialog::getText(&m_window, tr("Go to coordinates"),
                              tr("East, north, height and angle, with commas between:"),
                              QLineEdit::Normal, now, &isChosen);
    if (!alive || !isChosen)
        return;
    const auto wanted = WantedView::fromText(text);
    if (!wanted)
        m_window.tell(tr("\"%1\" is no place: wanted are east, north and height in metres, and "
                         "perhaps an angle, with commas between")
                          .arg(text));
    else if (!goTo(view, *wanted))
        m_window.tell(tr("The scale of this view is not known"));
}
