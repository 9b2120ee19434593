// SPDX-License-Identifier: GPL-2.0-or-later
// Fills menus from the configured layout, with what the context offers.
#include "ContextMenus.h"

#include "MainWindow.h"
#include "PlanView.h"
#include "ViewerActions.h"
#include <QAction>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenu.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/menus/ActionSectorMenu.h>

namespace {

FilterByContextId filterOf(const ViewerActions &actions)
{
    return {static_cast<int>(actions.groups()), static_cast<int>(actions.subs()), -1};
}

} // namespace

ContextMenus::ContextMenus(MainWindow &window, const MenuConfigManager &configuration)
    : QObject(&window),
      m_window(window),
      m_configuration(configuration),
      m_menu(std::make_unique<QMenu>())
{
    connect(&window, &MainWindow::planOpened, this, [this](PlanView *view) {
        connect(view, &PlanView::menuWanted, this, &ContextMenus::popup);
    });
}

ContextMenus::~ContextMenus() = default;

void ContextMenus::popup(const QPoint &globalPos)
{
    const ViewerActions &actions = m_window.actions();
    if (!actions.action(ViewerAction::SectorMenu).isChecked()) {
        FillContextMenu(*m_menu, actions.manager(), m_configuration.GetContextMenuLayout(),
                        filterOf(actions));
        if (m_menu->isEmpty())
            m_menu->addAction(&actions.action(ViewerAction::WholePlan));
        m_menu->popup(globalPos);
        return;
    }
    if (!m_sectors) {
        m_sectors = std::make_unique<ActionSectorMenu>(actions.manager(), kInnerRadius,
                                                       kOuterRadius, &m_window);
    }
    m_sectors->fillByLayout(m_configuration.GetContextMenuLayout(), filterOf(actions));
    m_sectors->popup(globalPos);
}
