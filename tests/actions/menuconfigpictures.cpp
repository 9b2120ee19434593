// SPDX-License-Identifier: GPL-2.0-or-later
// Saves a picture of the configuration dialog with a shortcut that is in the way of another, or of
// what an import would change.
#include "actions/configuration/importdialog_p.h"
#include "tests/support/DarkPalette.h"
#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QLineEdit>
#include <QSettings>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigDialog.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/core/Translation.h>

using namespace Qt::Literals::StringLiterals;

namespace {

void registerActions(ActionManager &actions, QWidget &window)
{
    const char *names[] = {"Open sheet", "Save sheet",       "Print",     "Zoom in",
                           "Zoom out",   "Measure distance", "Show grid", "Next sheet"};
    const char *keys[] = {"Ctrl+O", "Ctrl+S",    "Ctrl+P", "Ctrl++",
                          "Ctrl+-", "Ctrl+M, D", "F7",     "PgDown"};
    actions.SetCategoryDescription(1, u"Sheets"_s);
    actions.SetCategoryDescription(2, u"View"_s);
    for (int i = 0; i < 8; ++i) {
        auto *action = new QAction(QLatin1StringView(names[i]), &window);
        action->setShortcut(QKeySequence(QLatin1StringView(keys[i])));
        action->setIcon(QApplication::style()->standardIcon(QStyle::SP_FileIcon));
        actions.RegisterAction(
            i, MakeActionData(i, i < 3 ? 1 : 2, i == 6 ? 0x30000 : 0, action, false, 0));
    }
}

/// Another Ctrl+P, one that is reserved, one that nobody knows, one that is gone.
menuconfig::MenuConfiguration otherConfiguration(const MenuConfigManager &manager)
{
    menuconfig::MenuConfiguration other{manager.GetKeyboardShortcutList(), {}};
    other.shortcuts.AssignKeySequence(5, QKeySequence(u"Ctrl+P"_s));
    other.shortcuts.AssignKeySequence(6, QKeySequence(u"Ctrl+W"_s));
    other.shortcuts.AssignKeySequence(99, QKeySequence(u"Ctrl+M, Ctrl+Shift+T"_s));
    other.shortcuts.AssignKeySequence(7, QKeySequence());
    other.layout.SetNumberOfSlots(3);
    return other;
}

bool saveImport(const MenuConfigManager &manager, const ActionManager &actions, const QString &file)
{
    const menuconfig::MenuConfiguration current{manager.GetKeyboardShortcutList(), {}};
    const menuconfig::Surroundings given{
        menuconfig::ActionCatalogue(actions), manager.GetDefaultKeyboardShortcutList(),
        manager.GetReservedSequenceList(), manager.GetBookmarkSequenceList()};
    menuconfig::ImportDialog dialog(
        menuconfig::planImport(current, otherConfiguration(manager), given), given.catalogue,
        nullptr);
    dialog.show();
    QTest::qWait(100);
    return dialog.grab().save(file);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption theme(u"theme"_s, u"light, dark or contrast."_s, u"name"_s,
                                   u"light"_s);
    const QCommandLineOption language(u"language"_s, u"en or de."_s, u"code"_s, u"en"_s);
    const QCommandLineOption import(u"import"_s, u"What an import would change."_s);
    const QCommandLineOption rtl(u"rtl"_s, u"From right to left."_s);
    const QCommandLineOption picture(u"picture"_s, u"The file to save."_s, u"file"_s);
    parser.addOptions({theme, language, import, rtl, picture});
    parser.process(app);
    QApplication::setStyle(u"fusion"_s);
    if (parser.value(theme) == "dark"_L1)
        QApplication::setPalette(darkPalette());
    if (parser.value(theme) == "contrast"_L1)
        QApplication::setPalette(contrastPalette());
    if (parser.isSet(rtl))
        QApplication::setLayoutDirection(Qt::RightToLeft);
    QLocale::setDefault(QLocale(parser.value(language)));
    InstallTranslation(QLocale());

    const QTemporaryDir home;
    QSettings store(home.filePath(u"store.ini"_s), QSettings::IniFormat);
    QWidget window;
    ActionManager actions(&window);
    registerActions(actions, window);
    MenuConfigManager manager;
    manager.SetSettings(&store);
    manager.SetUpActions(actions);
    if (parser.isSet(import))
        return saveImport(manager, actions, parser.value(picture)) ? 0 : 1;
    MenuConfigDialog dialog(manager, actions);
    dialog.show();
    dialog.ShowAction(4);
    auto *field = dialog.findChild<QLineEdit *>(u"edtShortcut"_s);
    field->selectAll();
    QTest::keyClicks(field, u"Ctrl+M"_s);
    QTest::qWait(100);
    return dialog.grab().save(parser.value(picture)) ? 0 : 1;
}
