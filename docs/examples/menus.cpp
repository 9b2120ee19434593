// SPDX-License-Identifier: GPL-2.0-or-later
// A pie menu of registered actions, each in the direction that its slot gives it.
#include <QAction>
#include <QApplication>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/menus/ActionSectorMenu.h>

using namespace Qt::Literals::StringLiterals;

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    ActionManager registry;
    QAction zoomIn(u"Zoom in"_s);
    QAction measure(u"Measure"_s);
    registry.RegisterAction(MakeActionData(1, 0, 0, &zoomIn, false, 0));
    registry.RegisterAction(MakeActionData(2, 0, 0, &measure, false, 0));

    //! [menu]
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(3);
    layout.AssignActionIdToSlot(0, 1);
    layout.ClearSlot(1); // an empty place, so that the others keep their directions
    layout.AssignActionIdToSlot(2, 2);
    ActionSectorMenu menu(registry, 40, 150); // radii in pixels
    menu.fillByLayout(layout, FilterByContextId(-1, -1, -1));
    menu.popup(QPoint(400, 300)); // at the pointer, on the screen; does not wait for a choice
    //! [menu]
    return menu.count() == 3 && menu.isVisible() ? 0 : 1;
}
