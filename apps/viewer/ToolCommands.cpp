// SPDX-License-Identifier: GPL-2.0-or-later
// Full screen, and what can be said of this run.
#include "ToolCommands.h"

#include "MainWindow.h"
#include "ViewerActions.h"
#include <QAction>
#include <QMessageBox>
#include <kelo_base/core/Environment.h>

ToolCommands::ToolCommands(MainWindow &window) : QObject(&window), m_window(window)
{
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::FullScreen, this, [this] { showFullScreen(); });
    actions.on(ViewerAction::About, this, [this] { showAbout(); });
}

void ToolCommands::showFullScreen()
{
    if (m_window.actions().action(ViewerAction::FullScreen).isChecked())
        m_window.showFullScreen();
    else
        m_window.showNormal();
}

void ToolCommands::showAbout()
{
    QMessageBox box(QMessageBox::NoIcon, tr("About this viewer"),
                    tr("Shows the sheets of DXF plans with what is drawn around them."),
                    QMessageBox::Close, &m_window);
    box.setDetailedText(DescribeEnvironment().ToText());
    box.exec();
}
