// SPDX-License-Identifier: GPL-2.0-or-later
// Functions of a program in the registry, offered where they make sense, on the user's shortcuts.
#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/MenuConfigManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

//! [ids]
enum ActionId : int { kZoomIn = 1, kPrint = 2 }; // numbers in users' files: they never change
constexpr int kNavigation = 7;                   // a category
constexpr int kMapContext = 0x0001'0000;         // context groups are bits 16 ... 31
//! [ids]

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    const QTemporaryDir folder;

    //! [register]
    QAction zoomIn(u"Zoom in"_s);
    QAction print(u"Print"_s);
    zoomIn.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Plus));
    ActionManager registry;
    registry.SetCategoryDescription(kNavigation, u"Navigation"_s);
    registry.RegisterAction(MakeActionData(kZoomIn, kNavigation, kMapContext, &zoomIn, false, 0));
    registry.RegisterAction(MakeActionData(kPrint, kNavigation, 0, &print, false, 0)); // anywhere
    //! [register]

    //! [offered]
    const FilterByContextId inMap(kMapContext, 0, -1);
    const FilterByContextId elsewhere(0, 0, -1);
    const auto onMap = registry.FindActionDataByFilter(inMap).size();      // 2
    const auto onPage = registry.FindActionDataByFilter(elsewhere).size(); // 1: printing
    //! [offered]

    //! [configuration]
    QSettings store(folder.filePath(u"settings.ini"_s), QSettings::IniFormat);
    MenuConfigManager configuration;
    configuration.SetSettings(&store);
    configuration.SetUpActions(registry); // what the user stored, or else what the actions have
    //! [configuration]
    return onMap == 2 && onPage == 1 && zoomIn.shortcut() == QKeySequence(Qt::CTRL | Qt::Key_Plus)
               ? 0
               : 1;
}
