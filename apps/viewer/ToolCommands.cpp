// SPDX-License-Identifier: GPL-2.0-or-later
// Full screen, shortcuts and menus, and what can be said of this run.
#include "ToolCommands.h"

#include "ContextMenus.h"
#include "MainWindow.h"
#include "ViewerActions.h"
#include <QAction>
#include <QMessageBox>
#include <QPixmap>
#include <kelo_base/actions/AmbiguityNotice.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/MenuConfigDialog.h>
#include <kelo_base/core/Environment.h>
#include <kelo_base/menus/ActionSectorMenu.h>

namespace {

struct Everything : FunctionFilter
{
    bool accept(const ActionData & /*data*/) const override { return true; }
};

} // namespace

ToolCommands::ToolCommands(MainWindow &window, MenuConfigManager &configuration)
    : QObject(&window), m_window(window), m_configuration(configuration)
{
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::FullScreen, this, [this] { showFullScreen(); });
    actions.on(ViewerAction::Configure, this, [this] { configure(); });
    const auto *notice = new AmbiguityNotice(actions.manager(), this);
    connect(notice, &AmbiguityNotice::configureRequested, this,
            [this](int id) { configure().ShowAction(id); });
    actions.on(ViewerAction::About, this, [this] { showAbout(); });
}

void ToolCommands::showFullScreen()
{
    const bool isFull = m_window.actions().action(ViewerAction::FullScreen).isChecked();
    m_window.setWindowState(m_window.windowState().setFlag(Qt::WindowFullScreen, isFull));
}

MenuConfigDialog &ToolCommands::configure()
{
    if (!m_dialog) {
        m_dialog = new MenuConfigDialog(m_configuration, m_window.actions().manager(), &m_window);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->SetSectorPicture([this](const ContextMenuLayout &layout, QSize most) {
            ActionSectorMenu menu(m_window.actions().manager(), ContextMenus::kInnerRadius,
                                  ContextMenus::kOuterRadius);
            menu.fillByLayout(layout, Everything());
            return menu.picture(most);
        });
    }
    m_dialog->show();
    m_dialog->activateWindow();
    return *m_dialog;
}

void ToolCommands::showAbout()
{
    QMessageBox box(QMessageBox::NoIcon, tr("About this viewer"),
                    tr("Shows the sheets of DXF plans with what is drawn around them."),
                    QMessageBox::Close, &m_window);
    box.setDetailedText(DescribeEnvironment().ToText());
    box.exec();
}
