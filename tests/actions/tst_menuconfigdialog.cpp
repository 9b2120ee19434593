// SPDX-License-Identifier: GPL-2.0-or-later
// The configuration dialog as people use it, down to the bytes in the store.
#include "tests/support/FileBytes.h"
#include "tests/support/ScreenReader.h"
#include "tests/support/System.h"
#include "tests/support/TemporaryHome.h"
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>
#include <QTreeWidget>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigDialog.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/core/Translation.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Functions 1 to 3 with F6, F7 and none, in a window that a user could have.
struct Program
{
    explicit Program(const QString &storeName = u"store.ini"_s)
        : store(home.filePath(storeName), QSettings::IniFormat)
    {
        for (int id = 1; id <= 3; ++id) {
            auto *action = new QAction(u"Function %1"_s.arg(QChar(u'@' + id)), &window);
            if (id < 3)
                action->setShortcut(QKeySequence(Qt::Key_F5 + id));
            actions->RegisterAction(id, MakeActionData(id, 1, 0, action, false, 0), &window);
        }
        manager->SetSettings(&store);
        manager->SetUpActions(*actions);
        dialog = std::make_unique<MenuConfigDialog>(*manager, *actions);
        dialog->show();
    }
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return dialog->findChild<Widget *>(QLatin1StringView(name));
    }
    void click(const char *name) const { find<QAbstractButton>(name)->click(); }
    void type(const QString &keys) const
    {
        auto *field = find<QLineEdit>("edtShortcut");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, keys);
    }
    [[nodiscard]] QString keysOf(int id) const
    {
        return actions->FindActionDataById(id)->action->shortcut().toString();
    }
    [[nodiscard]] QString sentence() const { return find<QLabel>("lblSentence")->text(); }

    TemporaryHome home;
    QSettings store;
    QWidget window;
    std::unique_ptr<ActionManager> actions = std::make_unique<ActionManager>();
    std::unique_ptr<MenuConfigManager> manager = std::make_unique<MenuConfigManager>();
    std::unique_ptr<MenuConfigDialog> dialog;
};

/// Answers dialogs, one after the other: a text for a name or a file, a button for a question.
struct Answers
{
    explicit Answers(QVariantList answers) : left(std::move(answers))
    {
        QObject::connect(&driver, &QTimer::timeout, &driver, [this] {
            QWidget *top = QApplication::activeModalWidget();
            if (!top || left.isEmpty())
                return;
            const QVariant answer = left.takeFirst();
            if (auto *box = qobject_cast<QMessageBox *>(top)) {
                text = box->informativeText();
                return box->button(answer.value<QMessageBox::StandardButton>())->click();
            }
            top->findChild<QLineEdit *>()->setText(answer.toString());
            QMetaObject::invokeMethod(top, "accept");
        });
        driver.start(10);
    }
    QTimer driver;
    QVariantList left;
    QString text; ///< of the latest question
};

} // namespace

class TestMenuConfigDialog : public QObject
{
    Q_OBJECT

private slots:
    void mnemonicsNeverClash_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("English") << QLocale(QLocale::English);
        QTest::newRow("German") << QLocale(QLocale::German);
    }
    /// On neither page with what stands around both; buttons that may appear count as well.
    void mnemonicsNeverClash()
    {
        QFETCH(const QLocale, locale);
        InstallTranslation(locale);
        const auto english = qScopeGuard([] { InstallTranslation(QLocale(QLocale::English)); });
        const Program program;
        const auto *pages = program.dialog->findChild<QTabWidget *>();
        for (int shown = 0; shown < pages->count(); ++shown) {
            QStringList texts{pages->tabText(0), pages->tabText(1)};
            for (const QWidget *widget : program.dialog->findChildren<QWidget *>()) {
                const auto *label = qobject_cast<const QLabel *>(widget);
                if (!pages->widget(1 - shown)->isAncestorOf(widget) && (!label || label->buddy()))
                    texts << widget->property("text").toString();
            }
            QHash<QKeySequence, QString> owners;
            for (const QString &text : texts) {
                const QKeySequence letter = QKeySequence::mnemonic(text);
                QVERIFY2(!owners.contains(letter),
                         qPrintable(text + u" | "_s + owners.value(letter)));
                if (!letter.isEmpty())
                    owners[letter] = text;
            }
            QVERIFY(owners.size() >= 13);
        }
    }

    void recordsReassignsUndoesAndApplies()
    {
        Program program;
        program.dialog->ShowAction(3);
        QTest::keyClick(program.find<QTreeView>("treeShortcuts"), Qt::Key_F2);
        auto *field = program.find<QLineEdit>("edtShortcut");
        QTest::keyClick(field, Qt::Key_F6);
        QVERIFY2(program.sentence().contains(u"Function A"_s), qPrintable(program.sentence()));
        program.click("btnRecord"); // ends it
        QVERIFY(!program.find<QPushButton>("btnKeepBoth")->isVisible());
        program.click("btnReassign");
        QCOMPARE(program.sentence(), QString());
        program.click("btnUndo");
        QCOMPARE(field->text(), QString());
        program.click("btnRedo");
        QCOMPARE(field->text(), u"F6"_s);
        QCOMPARE(program.keysOf(1), u"F6"_s); // nothing before it is applied

        QVERIFY(program.dialog->Apply());
        QCOMPARE(program.keysOf(1), QString());
        const QByteArray stored = bytesOf(program.store.fileName());
        QVERIFY(stored.contains("ShortcutList\\2\\ActionId=3"));
        QVERIFY(stored.contains("ShortcutList\\2\\KeySequence=F6"));
        QVERIFY(stored.contains("ClearedList\\1\\ActionId=1"));
        program.dialog->close();
        program.window.show();
        program.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.window));
        QSignalSpy fired(program.actions->FindActionDataById(3)->action, &QAction::triggered);
        QTest::keyClick(&program.window, Qt::Key_F6);
        QCOMPARE(fired.count(), 1);
    }

    void recordsKeysThatUsuallyLeave()
    {
        Program program;
        program.dialog->ShowAction(3);
        program.click("btnRecord");
        auto *field = program.find<QLineEdit>("edtShortcut");
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Escape, Qt::Key_Return})
            QTest::keyClick(field, key); // the fourth ends it
        QVERIFY(program.dialog->isVisible());
        QCOMPARE(field->text(), u"Tab, Backspace, Esc, Return"_s);
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(!program.dialog->isVisible());
        QCOMPARE(program.keysOf(3), QString());
    }

    void refusesWhatIsReservedAndWhatIsNoKey()
    {
        Program program;
        program.dialog->ShowAction(3);
        program.type(u"Ctrl+W"_s);
        QVERIFY(!program.sentence().isEmpty());
        for (const char *button : {"btnReassign", "btnKeepBoth"})
            QVERIFY(!program.find<QPushButton>(button)->isVisible());
        program.type(u"Ctrl+Wrong"_s);
        QVERIFY(!program.find<QPushButton>("btnAssign")->isEnabled());
        QTest::keyClick(program.find<QLineEdit>("edtShortcut"), Qt::Key_Return);
        QVERIFY(program.dialog->isVisible());
        program.type(u"ctrl+j"_s);
        QTest::keyClick(program.find<QLineEdit>("edtShortcut"), Qt::Key_Return);
        program.dialog->accept();
        QCOMPARE(program.keysOf(3), u"Ctrl+J"_s);
    }

    void filtersAndStillShowsTheRowAskedFor()
    {
        Program program;
        auto *tree = program.find<QTreeView>("treeShortcuts");
        program.click("btnFindKeys");
        QTest::keyClick(program.find<QLineEdit>("edtFilter"), Qt::Key_F7);
        QCOMPARE(tree->model()->rowCount(tree->model()->index(0, 0)), 1);
        program.dialog->ShowAction(1);
        QCOMPARE(tree->currentIndex().data().toString(), u"Function A"_s);
        QCOMPARE(tree->model()->rowCount(tree->model()->index(0, 0)), 3);
    }

    void listsWhatAResetChanges()
    {
        Program program;
        program.dialog->ShowAction(3);
        program.type(u"F6, A"_s);
        program.click("btnReassign"); // from function 1
        QAction *everything = program.find<QToolButton>("btnReset")->menu()->actions().last();
        {
            const Answers no({QMessageBox::Cancel});
            everything->trigger();
            QVERIFY2(no.text.contains(u"Function A"_s), qPrintable(no.text));
            QVERIFY2(no.text.contains(u"Function C"_s), qPrintable(no.text));
        }
        QCOMPARE(program.find<QLineEdit>("edtShortcut")->text(), u"F6, A"_s);
        const Answers yes({QMessageBox::Ok});
        everything->trigger();
        QCOMPARE(program.find<QLineEdit>("edtShortcut")->text(), QString());
        program.dialog->accept();
        QCOMPARE(program.keysOf(1), u"F6"_s);
    }

    void importsInOneStep_data()
    {
        QTest::addColumn<bool>("vanishes");
        QTest::newRow("as shown") << false;
        QTest::newRow("the file vanishes while it is shown") << true;
    }
    void importsInOneStep()
    {
        QFETCH(const bool, vanishes);
        Program program;
        program.dialog->ShowAction(1);
        const QString path = program.home.filePath(u"other.ini"_s);
        writeBytes(path, "[MenuConfig]\n"
                         "Default\\KeyboardShortcuts\\ShortcutList\\1\\ActionId=3\n"
                         "Default\\KeyboardShortcuts\\ShortcutList\\1\\KeySequence=F6\n"
                         "Default\\KeyboardShortcuts\\ShortcutList\\size=1\n");
        int rows = 0;
        QTimer driver; // the two dialogs, one after the other
        connect(&driver, &QTimer::timeout, &driver, [&] {
            QWidget *top = QApplication::activeModalWidget();
            if (auto *files = qobject_cast<QFileDialog *>(top)) {
                files->findChild<QLineEdit *>()->setText(path);
                QMetaObject::invokeMethod(files, "accept");
            } else if (auto *list =
                           top ? top->findChild<QTreeWidget *>(u"listImport"_s) : nullptr) {
                rows = list->topLevelItemCount();
                if (vanishes)
                    QFile::remove(path);
                qobject_cast<QDialog *>(top)->accept();
            }
        });
        driver.start(10);
        program.find<QPushButton>("btnExchange")->menu()->actions().first()->trigger();
        driver.stop();
        QCOMPARE(rows, 1);
        QCOMPARE(program.find<QLabel>("lblMessage")->text().contains(u"other.ini"_s), vanishes);
        auto *field = program.find<QLineEdit>("edtShortcut");
        QCOMPARE(field->text(), vanishes ? u"F6"_s : QString());
        program.click("btnUndo");
        QCOMPARE(field->text(), u"F6"_s);
    }

    void keepsNamedConfigurations()
    {
        Program program;
        auto *menu = program.find<QPushButton>("btnConfiguration")->menu();
        const auto choose = [&](const QString &text, const QVariantList &answers) {
            const Answers given(answers);
            QMetaObject::invokeMethod(menu, "aboutToShow");
            for (QAction *action : menu->actions()) {
                if (action->text() == text && action->isEnabled())
                    return action->trigger(), given.left.size();
            }
            return qsizetype(-1);
        };
        auto *message = program.find<QLabel>("lblMessage");
        const auto edit = [&] {
            program.dialog->ShowAction(1);
            program.click("btnRemove");
        };
        QCOMPARE(choose(u"&Delete…"_s, {}), -1); // the last one
        for (const QString &name : {u"a/b"_s, u"default"_s}) {
            QCOMPARE(choose(u"&New…"_s, {name}), 0);
            QVERIFY2(message->text().contains(name), qPrintable(message->text()));
        }
        edit();
        QCOMPARE(choose(u"&Copy…"_s, {u"Plan & 1"_s, QMessageBox::Apply}), 0);
        QCOMPARE(message->text(), QString());
        QCOMPARE(choose(u"&New…"_s, {u"Plan 2"_s}), 0);
        QCOMPARE(program.keysOf(1), u"F6"_s); // the default
        edit();
        QCOMPARE(choose(u"Default"_s, {QMessageBox::Cancel}), 0);
        QCOMPARE(program.manager->GetPlainConfigName(), u"Plan 2"_s);
        QCOMPARE(choose(u"Plan && 1"_s, {QMessageBox::Discard}), 0);
        QCOMPARE(program.keysOf(1), QString());
        // The store's format ignores case on Windows; the application's own files do not.
        QCOMPARE(choose(u"&Rename…"_s, {testsystem::isUnix() ? u"PLAN & 1"_s : u"Z"_s}), 0);
        QCOMPARE(menu->actions().at(1)->text(), u"Plan 2"_s);
        QCOMPARE(choose(u"&Delete…"_s, {QMessageBox::Yes}), 0);
        QCOMPARE(program.keysOf(1), u"F6"_s);
        QCOMPARE(program.manager->GetConfigNames(), (QStringList{u"Default"_s, u"Plan 2"_s}));
        QVERIFY(bytesOf(program.store.fileName()).contains("MRU.Array\\1\\Text=Plan 2"));
    }

    void speaksOfConflicts()
    {
        Program program;
        program.dialog->ShowAction(3);
        readByScreenReaders().clear();
        program.type(u"F6"_s);
        QVERIFY(program.sentence().contains(u"Function A"_s));
        KELO_UNIX_ONLY("what is told cannot be heard");
        QCOMPARE(readByScreenReaders(), QStringList{program.sentence()});
    }

    void looksAsItWasLeft()
    {
        Program program;
        const auto again = [&program] {
            program.dialog->reject();
            program.dialog = std::make_unique<MenuConfigDialog>(*program.manager, *program.actions);
            program.dialog->show();
        };
        const auto width = [&](int column) {
            return program.find<QTreeView>("treeShortcuts")->columnWidth(column);
        };
        const int usual = width(0);
        program.find<QTreeView>("treeShortcuts")->setColumnWidth(0, usual + 23);
        program.dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
        again();
        QCOMPARE(width(0), usual + 23);
        QCOMPARE(program.dialog->findChild<QTabWidget *>()->currentIndex(), 1);
        program.dialog->reject();
        program.store.setValue("MenuConfigDialog/Columns"_L1, QStringList{u"-9"_s, u"1000000"_s});
        program.store.setValue("MenuConfigDialog/Page"_L1, 77);
        program.dialog = std::make_unique<MenuConfigDialog>(*program.manager, *program.actions);
        QVERIFY(width(0) == usual && width(1) < 1000);
        QCOMPARE(program.dialog->findChild<QTabWidget *>()->currentIndex(), 0);
    }

    void looksAsChosen_data()
    {
        QTest::addColumn<bool>("vanishes");
        QTest::newRow("by a style sheet that is there") << false;
        QTest::newRow("and not at all when the file has gone") << true;
    }
    void looksAsChosen()
    {
        QFETCH(const bool, vanishes);
        QDir folder(QCoreApplication::applicationDirPath() + "/plugins/styles"_L1);
        QVERIFY(folder.mkpath(u"."_s));
        const auto clear = qScopeGuard([&folder] {
            folder.removeRecursively();
            qApp->setStyleSheet(QString());
        });
        for (const char *name : {"B10.stylesheet", "b2.stylesheet", "b3.qss"})
            writeBytes(folder.filePath(QLatin1StringView(name)), "QLabel { color: red }");
        Program program;
        auto *choice = program.find<QComboBox>("cmbStyleSheet");
        QCOMPARE(choice->itemText(1) + u' ' + choice->itemText(2), u"b2 B10"_s);
        if (vanishes)
            QVERIFY(folder.remove(u"b2.stylesheet"_s));
        choice->setCurrentIndex(1);
        emit choice->activated(1);
        QCOMPARE(qApp->styleSheet().isEmpty(), vanishes);
        QCOMPARE(program.find<QLabel>("lblMessage")->text().contains(u"b2.style"_s), vanishes);
        QCOMPARE(choice->currentIndex(), vanishes ? 0 : 1);
        QCOMPARE(bytesOf(program.store.fileName()).contains("StyleSheetFile=b2.style"), !vanishes);
    }

    void savesTheOverview()
    {
        Program program;
        QAction *save = program.find<QPushButton>("btnExchange")->menu()->actions().last();
        for (const auto &[name, start] : {std::pair("a.HTM", "<!DOCTYPE"), {"a.pdf", "%PDF"}}) {
            const QString path = program.home.filePath(QLatin1StringView(name));
            const Answers given({path});
            save->trigger();
            QVERIFY2(bytesOf(path).startsWith(start), name);
        }
        const Answers given({program.home.filePath(u"none/a.pdf"_s)});
        save->trigger();
        QVERIFY(program.find<QLabel>("lblMessage")->text().contains(u"a.pdf"_s));
    }

    void appliesNothingToAStoreThatCannotBeWritten()
    {
        Program program(u"file/store.ini"_s);
        writeBytes(program.home.filePath(u"file"_s), "in the way of the folder");
        program.dialog->ShowAction(1);
        program.click("btnRemove");
        program.dialog->accept();
        QVERIFY(program.dialog->isVisible());
        QVERIFY(program.find<QLabel>("lblMessage")->text().contains(u"store.ini"_s));
        QCOMPARE(program.keysOf(1), u"F6"_s);
        QVERIFY(program.manager->GetKeyboardShortcutList().HasSequenceAssigned(1));
    }

    void survivesTheOthers_data()
    {
        QTest::addColumn<bool>("isManager");
        QTest::newRow("the manager dies") << true;
        QTest::newRow("the registry dies") << false;
    }
    void survivesTheOthers()
    {
        QFETCH(const bool, isManager);
        Program program;
        program.dialog->ShowAction(1);
        delete program.actions->FindActionDataById(2)->action;
        program.click("btnRemove");
        isManager ? program.manager.reset() : program.actions.reset();
        QVERIFY(!program.find<QLabel>("lblMessage")->text().isEmpty());
        QVERIFY(!program.dialog->Apply());
        program.dialog->grab();
        program.dialog->reject();
    }

    void survivesItsEndWhileItAsks_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("entry");
        QTest::newRow("for a file to import") << u"btnExchange"_s << 0;
        QTest::newRow("for a file to export to") << u"btnExchange"_s << 1;
        QTest::newRow("for a file for the overview") << u"btnExchange"_s << 2;
        QTest::newRow("whether all is to be reset") << u"btnReset"_s << 2;
        QTest::newRow("for the name of a new configuration") << u"btnConfiguration"_s << -4;
    }
    void survivesItsEndWhileItAsks()
    {
        QFETCH(const QString, button);
        QFETCH(const int, entry);
        Program program;
        const auto *push = program.dialog->findChild<QPushButton *>(button);
        QMenu *menu =
            push ? push->menu() : program.dialog->findChild<QToolButton *>(button)->menu();
        QMetaObject::invokeMethod(menu, "aboutToShow");
        QTimer driver;
        connect(&driver, &QTimer::timeout, &driver, [&] {
            if (QApplication::activeModalWidget())
                program.dialog.reset();
        });
        driver.start(10);
        const QList<QAction *> entries = menu->actions();
        entries[entry < 0 ? entries.size() + entry : entry]->trigger();
        QVERIFY(!program.dialog);
        QCOMPARE(program.keysOf(1), u"F6"_s);
    }

    void survivesAListenerThatDeletesTheDialog()
    {
        Program program;
        program.dialog->ShowAction(1);
        program.click("btnRemove");
        connect(program.manager.get(), &MenuConfigManager::changed, &program.window,
                [&] { program.dialog.reset(); });
        program.dialog->accept();
        QVERIFY(!program.dialog);
        QCOMPARE(program.keysOf(1), QString());
    }
};

QTEST_MAIN(TestMenuConfigDialog)
#include "tst_menuconfigdialog.moc"
