// SPDX-License-Identifier: GPL-2.0-or-later
// What a technician sees and gets in the workbench dialog, from the plan to the file exported.
#include "core/contrast_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/readingbar_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include "tests/support/FileBytes.h"
#include "tests/support/PlanPairs.h"
#include "tests/support/System.h"
#include "tests/support/TemporaryHome.h"
#include <QtTest>
#include <QtWidgets>
#include <kelo_base/core/Translation.h>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/dxf/DxfToolsDialog.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A frame of 3 x 2, drawn from its lower right corner counter-clockwise.
const QByteArray kBlocks = "0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 LWPOLYLINE|90 4|70 1|10 3|20 0|10 3|"
                           "20 2|10 0|20 2|10 0|20 0|0 ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES|";
const QByteArray kCorners = "   0,00        2,00    \r\n   3,00        2,00    \r\n"
                            "   3,00        0,00    \r\n   0,00        0,00    \r\n";

QByteArray sheet(const QByteArray &number, const QByteArray &kind)
{
    return "0 INSERT|2 A|66 1|0 ATTRIB|1 " + number + "|2 BL_NR|0 ATTRIB|1 " + kind + "|2 KIND";
}

QByteArray planOf(const QByteArrayList &sheets)
{
    return asciiPlan(pairsOf(kBlocks + sheets.join('|') + "|0 ENDSEC|0 EOF"));
}

const QByteArrayList kFourSheets{sheet("10", "city"), sheet("2", "city"), sheet("7", "land"),
                                 sheet("3", "city")};
/// A plan that takes several steps to read.
const QByteArray kLargePlan = planOf(QByteArrayList(10'000, sheet("1", "city")));

/// A device that takes nothing; where that is allowed one of our own, which a fault may replace.
QString fullDevice(const QTemporaryDir &dir)
{
    const QString own = dir.filePath(u"full"_s);
    return testsystem::makeFullDevice(own) ? own : u"/dev/full"_s;
}

/// Answers the dialogs that wait for somebody, and keeps what they said.
struct Answers
{
    /// @param target  the file to save to; empty to cancel
    explicit Answers(const QString &target)
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this, target] { answer(target); });
        timer.start(0);
    }
    void answer(const QString &target)
    {
        if (auto *files = qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) {
            said << files->windowTitle() << files->nameFilters() << files->defaultSuffix()
                 << files->selectedFiles().value(0);
            files->setOption(QFileDialog::DontConfirmOverwrite);
            files->selectFile(target);
            QMetaObject::invokeMethod(files, target.isEmpty() ? "reject" : "accept");
        } else if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            said << box->windowTitle() << box->text();
            box->accept();
        }
    }
    QStringList said;
    QTimer timer;
};

/// A dialog with a folder and a store of its own, used as people do.
struct Bench
{
    explicit Bench(const QByteArray &plan = planOf(kFourSheets))
    {
        put("plan.dxf", plan);
        dialog->show();
    }
    ~Bench() { delete dialog; }
    Q_DISABLE_COPY_MOVE(Bench)

    QString file(const char *name) const { return dir.filePath(QLatin1String(name)); }
    void put(const char *name, const QByteArray &bytes) const { writeBytes(file(name), bytes); }
    QByteArray bytes(const char *name) const { return bytesOf(file(name)); }
    bool read(const char *name = "plan.dxf") const { return dialog->ReadFile(file(name)); }
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return dialog->findChild<Widget *>(QLatin1String(name));
    }
    QString said(const char *line) const { return find<MessageLine>(line)->text(); }
    /// "2 3 10": the numbers from top to bottom, those selected in brackets, unmarked with "-".
    QString sheets() const
    {
        QStringList texts;
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            const QModelIndex index = list->model()->index(row, SheetTableModel::NumberColumn);
            const bool isMarked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
            const bool isSelected = list->selectionModel()->isSelected(index);
            texts << (isSelected ? u"[%1%2]"_s : u"%1%2"_s)
                         .arg(isMarked ? u""_s : u"-"_s, index.data().toString());
        }
        return texts.join(u' ');
    }
    void type(const char *edit, const QString &text) const
    {
        auto *field = find<QLineEdit>(edit);
        qobject_cast<QGroupBox *>(field->parentWidget())->setChecked(true);
        QTest::keyClicks(field, text);
    }
    /// Keys reach shortcuts of the widget that has the focus only in an active window.
    void focus(QWidget *widget) const
    {
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        widget->setFocus();
    }
    void press(const char *name) const { find<QAbstractButton>(name)->click(); }
    /// What the dialogs said on the way.
    QStringList exportTo(const QString &target, const char *button = "btnExportAsGK2") const
    {
        const Answers answers(target);
        press(button);
        return answers.said;
    }
    QString corners() const
    {
        return list->model()->index(0, SheetTableModel::CornersColumn).data().toString();
    }
    QModelIndexList findingsWith(const QString &text) const
    {
        const QAbstractItemModel *model = findings->model();
        return model->match(model->index(0, 0), Qt::DisplayRole, text, -1, Qt::MatchContains);
    }
    /// Does this as soon as the progress is shown.
    void whileReading(const std::function<void()> &action) const
    {
        auto *progress = dialog->findChild<ReadingBar *>();
        progress->setPace({.shownAfter = 0, .eventsEvery = 0});
        QObject::connect(progress, &ReadingBar::becameLong, qApp,
                         [action] { QTimer::singleShot(0, qApp, action); });
    }

    QTemporaryDir dir;
    QSettings store{file("store.ini"), QSettings::IniFormat};
    QPointer<DxfToolsDialog> dialog = new DxfToolsDialog(nullptr, &store);
    QTableView *list = find<QTableView>("sheetList");
    QListView *findings = find<QListView>("findingList");
    QLabel *hint = list->viewport()->findChild<QLabel *>();
    SheetPictureView *picture = dialog->findChild<SheetPictureView *>();
};

/// One whose plan is shown already.
struct OpenBench : Bench
{
    explicit OpenBench(const QByteArray &plan = planOf(kFourSheets)) : Bench(plan) { read(); }
};

} // namespace

class TestDxfToolsDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { InstallTranslation(QLocale::c()); }

    void exportsWhatIsChosenAndMarked()
    {
        const Bench bench;
        QVERIFY(!bench.find<QPushButton>("btnExportAsGK2")->isEnabled());
        QVERIFY(bench.read());
        QCOMPARE(bench.sheets(), u"2 3 7 10"_s);
        bench.type("edtIncludeTag", u"KIND"_s);
        bench.type("edtIncludeValue", u"city"_s);
        bench.list->setCurrentIndex(bench.list->model()->index(1, 0));
        QTest::keyClick(bench.list, Qt::Key_Space);
        QCOMPARE(bench.sheets(), u"2 [-3] 10"_s);
        QCOMPARE(bench.find<QLabel>("lblCounter")->text(), u"3"_s);
        QVERIFY(bench.find<QLabel>("lblToBeExported")->text().contains(u'2'));
        const QStringList asked{u"Export DXF as Kelo-GK2"_s, u"*.txt"_s, u"txt"_s,
                                bench.file("plan.txt")};
        QCOMPARE(bench.exportTo({}), asked);
        QVERIFY(!QFile::exists(bench.file("plan.txt")));
        bench.list->sortByColumn(SheetTableModel::NumberColumn, Qt::DescendingOrder);
        QCOMPARE(bench.sheets(), u"10 [-3] 2"_s);
        const QStringList told{u"DFX GK2 Export"_s, u"Export completed - Inserts written: 2"_s};
        QCOMPARE(bench.exportTo(bench.file("plan.txt")), asked + told);
        QCOMPARE(bench.bytes("plan.txt"), "GK2\r\n\r\n2\r\n" + kCorners + "\r\n10\r\n" + kCorners);
        bench.press("btnMarkNone");
        bench.exportTo(bench.file("plan.txt"));
        QCOMPARE(bench.bytes("plan.txt"), "GK2\r\n"_ba);
        bench.press("btnMarkAll");
        QCOMPARE(bench.sheets(), u"10 [3] 2"_s);
    }

    void followsFilterAndOption()
    {
        const OpenBench bench;
        bench.list->selectRow(3);
        bench.type("edtExcludeTag", u"KIN"_s);
        QCOMPARE(bench.sheets(), u"2 3 7 [10]"_s); // still selected
        bench.type("edtExcludeTag", u"D"_s);
        QCOMPARE(bench.list->model()->rowCount(), 0);
        QCOMPARE(bench.find<QLabel>("lblCounter")->text(), u"0"_s);
        QVERIFY(bench.hint->isVisible() && !bench.hint->text().isEmpty());
        // Enter in a field is no order to export or to close.
        QTest::keyClick(bench.find<QLineEdit>("edtExcludeTag"), Qt::Key_Return);
        QVERIFY(bench.dialog->isVisible());
        bench.find<QGroupBox>("grpExclude")->setChecked(false);
        QCOMPARE(bench.sheets(), u"2 3 7 10"_s);
        QVERIFY(!bench.hint->isVisible());
        QVERIFY(bench.corners().startsWith(u"0,00 2,00"_s));
        bench.press("chkCorrectVertexPositions");
        QVERIFY(bench.corners().startsWith(u"3,00 0,00"_s)); // where drawing it began
    }

    void keepsThePlaceOfTheKeyboard()
    {
        const Bench bench;
        bench.put("large.dxf", kLargePlan);
        bench.dialog->activateWindow();
        auto *progress = bench.dialog->findChild<ReadingBar *>();
        progress->setPace({.shownAfter = 0, .eventsEvery = 0});
        bench.read("large.dxf"); // gives the focus back to the first button
        progress->setPace({});
        bench.list->setFocus(Qt::TabFocusReason);
        bench.read();
        QCOMPARE(bench.dialog->focusWidget(), bench.list);
        bench.list->setCurrentIndex({});
        bench.list->selectionModel()->setCurrentIndex(bench.list->model()->index(1, 0),
                                                      QItemSelectionModel::NoUpdate);
        QTest::keyClick(bench.list, Qt::Key_Space);
        QCOMPARE(bench.sheets(), u"2 -3 7 10"_s);

        bench.type("edtIncludeTag", u"KIND"_s);
        const auto *values = bench.find<QLineEdit>("edtIncludeValue")->completer()->model();
        bench.find<QLineEdit>("edtIncludeValue")->setFocus();
        QCOMPARE(values->rowCount(), 2);
        const QPersistentModelIndex place = values->index(1, 0);
        bench.type("edtIncludeValue", u"la"_s);
        QSignalSpy reviewed(bench.findings->model(), &QAbstractItemModel::modelReset);
        QVERIFY(reviewed.wait() && place.isValid());
    }

    void saysWhyAPlanIsNotRead()
    {
        const Bench bench;
        const QString path = bench.file("bad.dxf");
        const auto isSaid = [&](const QString &sentence) {
            return !bench.dialog->ReadFile(path) && bench.said("readMessage").startsWith(sentence);
        };
        QVERIFY(isSaid(u"File '%1' does not exist"_s.arg(path)));
        bench.put("bad.dxf", "PK\3\4");
        QVERIFY(isSaid(u"bad.dxf: "_s));
        QVERIFY(bench.read());
        bench.put("bad.dxf", "0\nSECTION\nx\n");
        QVERIFY(isSaid(u"bad.dxf, line 3: "_s));
        QVERIFY(bench.said("readMessage").contains(u"plan.dxf"_s)); // which is still shown
        QCOMPARE(bench.sheets(), u"2 3 7 10"_s);
        QCOMPARE(bench.dialog->FileName(), bench.file("plan.dxf"));
    }

    void staysAsItWasWhenCancelled()
    {
        const auto cancelBy = [](const std::function<void(const Bench &)> &way,
                                 bool staysOpen = true) {
            const OpenBench bench;
            bench.put("large.dxf", kLargePlan);
            bench.type("edtIncludeTag", u"KIND"_s);
            bench.type("edtIncludeValue", u"city"_s);
            bench.list->selectRow(1);
            QTest::keyClick(bench.list, Qt::Key_Space);
            const auto *panel = bench.find<QWidget>("sheetList");
            bool hasRun = false;
            bench.whileReading([&] {
                hasRun = bench.dialog->IsReading() && bench.find<QWidget>("btnCancel")->isVisible();
                QVERIFY(!panel->isEnabled() && !bench.find<QWidget>("btnOpen")->isEnabled());
                QVERIFY(!bench.read()); // one after the other
                way(bench);
            });
            QVERIFY(!bench.read("large.dxf"));
            QVERIFY(hasRun && !bench.dialog->IsReading());
            QCOMPARE(bench.dialog->isVisible(), staysOpen);
            QCOMPARE(bench.sheets(), u"2 [-3] 10"_s);
            QVERIFY(bench.said("readMessage").contains(u"cancelled"_s));
            QVERIFY(bench.dialog->windowTitle().startsWith(u"plan.dxf"_s));
            QVERIFY(panel->isEnabled() && bench.find<QWidget>("btnExportAsGK2")->isEnabled());
        };
        cancelBy([](auto &bench) { QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Escape); });
        cancelBy([](auto &bench) { bench.press("btnCancel"); });
        cancelBy([](auto &bench) { bench.dialog->close(); }, false);
        cancelBy([](auto &bench) { bench.dialog->done(0); }, false);

        Bench ended(kLargePlan);
        ended.whileReading([&ended] { delete ended.dialog; });
        QVERIFY(!ended.read() && !ended.dialog);
    }

    void takesOneDroppedFile()
    {
        const Bench bench;
        const QUrl plan = QUrl::fromLocalFile(bench.file("plan.dxf"));
        QMimeData data;
        const auto isTaken = [&](const QList<QUrl> &urls) {
            data.setUrls(urls);
            // Proposed is to move it; whoever is told that this was done may delete the plan.
            QDragEnterEvent enter({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                                  Qt::ShiftModifier);
            enter.ignore();
            QApplication::sendEvent(bench.dialog, &enter);
            return enter.isAccepted() && enter.dropAction() == Qt::CopyAction;
        };
        QVERIFY(!isTaken({}));
        QVERIFY(!isTaken({QUrl(u"https://example.org/plan.dxf"_s)}));
        QVERIFY(!isTaken({plan, plan})); // only one can be shown
        QVERIFY(bench.said("readMessage").contains(u"one file"_s));
        QVERIFY(isTaken({plan}));
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(bench.dialog, &drop);
        QTRY_COMPARE(bench.sheets(), u"2 3 7 10"_s);
    }

    void offersRecentPlans()
    {
        Bench bench;
        bench.put("a&b.dxf", planOf({sheet("5", "city")}));
        const auto actions = [&bench] {
            auto *menu = bench.find<QPushButton>("btnRecent")->menu();
            emit menu->aboutToShow();
            return menu->actions();
        };
        QVERIFY(actions().size() == 1 && !actions().first()->isEnabled());
        bench.read("a&b.dxf");
        bench.read();
        QCOMPARE(bench.store.value("DxfToolsDialog/LastUsedFile"), bench.file("plan.dxf"));
        delete bench.dialog;
        bench.dialog = new DxfToolsDialog(nullptr, &bench.store);
        bench.list = bench.find<QTableView>("sheetList");
        QCOMPARE(actions().size(), 2);
        QVERIFY(actions().at(1)->text().startsWith(u"&2 a&&b.dxf"_s));
        actions().at(1)->trigger();
        QCOMPARE(bench.sheets(), u"5"_s);

        QFile::remove(bench.file("plan.dxf"));
        actions().at(1)->trigger();
        QVERIFY(bench.said("readMessage").contains(u"does not exist"_s));
        auto *forget = bench.find<MessageLine>("readMessage")->findChild<QPushButton *>();
        QVERIFY(forget->isVisibleTo(bench.dialog));
        forget->click();
        QCOMPARE(actions().size(), 1);
        QVERIFY(!forget->isVisibleTo(bench.dialog));
    }

    void remembersInTheUsersFiles()
    {
        const TemporaryHome home;
        QCoreApplication::setApplicationName(u"tst-workbench"_s);
        const Bench bench;
        const QString config = UserDataManager().GetStorageBaseDirectory(true) + u"/config/"_s;
        {
            DxfToolsDialog dialog;
            dialog.show();
            QVERIFY(dialog.ReadFile(bench.file("plan.dxf")));
            dialog.resize(1000, 650);
            dialog.findChild<QTableView *>()->sortByColumn(0, Qt::DescendingOrder);
            dialog.findChild<QTableView *>()->setColumnWidth(2, 333);
            UserDataManager().SaveUserConfigFiles(); // the dialog is asked for its state
            QVERIFY(bytesOf(config + u"layout.ini"_s).contains("Dialog_Geometry"));
            QVERIFY(bytesOf(config + u"settings.ini"_s).contains("LastUsedFile"));
            QVERIFY(!bytesOf(config + u"settings.ini"_s).contains("Dialog_Geometry"));
            dialog.close();
        }
        DxfToolsDialog again;
        QCOMPARE(again.size(), QSize(1000, 650));
        QCOMPARE(again.findChild<QTableView *>()->columnWidth(2), 333);
        UserDataManagerI::Destroy();
        QVERIFY(again.ReadFile(bench.file("plan.dxf"))); // there is nothing to remember it in
        QCOMPARE(again.findChild<QTableView *>()->model()->index(0, 0).data().toString(), u"10"_s);
        again.done(0);
    }

    void tellsWhatWasNotWritten()
    {
        const OpenBench bench;
        const QByteArray plan = bench.bytes("plan.dxf");
        const auto check = [&](const QString &target, bool isReported) {
            const QStringList said = bench.exportTo(target);
            QVERIFY(bench.said("exportMessage").contains(QDir::toNativeSeparators(target)));
            QCOMPARE(said.contains(u"Export completed - Inserts written: 4"_s), isReported);
        };
        check(bench.file("none/x.txt"), true);
        if (testsystem::isUnix())
            check(fullDevice(bench.dir), true);
        check(bench.file("plan.dxf"), false);
        QCOMPARE(bench.bytes("plan.dxf"), plan);
        const QByteArray longest = QByteArray(251, 'x') + ".txt"; // as long as names can be
        check(bench.file(longest.constData()), true);
        QVERIFY(bench.bytes(longest.constData()).startsWith("GK2"));
    }

    void keepsAnOlderFileWhole()
    {
        KELO_UNIX_ONLY("about links, permissions and a full disk");
        const OpenBench bench(kLargePlan);
        bench.put("older.txt", "older");
        const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther;
        QVERIFY(QFile::setPermissions(bench.file("older.txt"), permissions));
        QVERIFY(QFile::link(bench.file("older.txt"), bench.file("link.txt")));
        const QDir folder(bench.dir.path(), u"*.t*"_s);
        const QStringList files = folder.entryList();
        QStringList said;
        {
            const testsystem::ResourceLimit small(testsystem::ResourceLimit::FileSize, 20'000);
            said = bench.exportTo(bench.file("link.txt"));
        }
        QCOMPARE(said.last(), u"Export completed - Inserts written: 10000"_s);
        QVERIFY(bench.said("exportMessage").contains(u"the older file is unchanged"_s));
        QCOMPARE(bench.bytes("older.txt"), "older"_ba);
        QCOMPARE(QDir(folder).entryList(), files); // nothing unfinished lies about
        bench.exportTo(bench.file("link.txt"));
        QCOMPARE(bench.bytes("older.txt").size(), 5 + 10'000 * (5 + kCorners.size()));
        QVERIFY(QFileInfo(bench.file("link.txt")).isSymLink());
        QVERIFY((QFile::permissions(bench.file("older.txt")) & QFile::ReadGroup) == 0);
    }

    void exportsTables()
    {
        const OpenBench bench(planOf(kFourSheets + QByteArrayList{sheet("7", "land")}));
        bench.list->selectRow(1);
        QTest::keyClick(bench.list, Qt::Key_Space); // all but 3
        bench.type("edtIncludeTag", u"KIND"_s);
        bench.type("edtIncludeValue", u"city"_s); // a review is due: 7 is not there twice any more
        bench.exportTo(bench.file("plan.csv"), "btnExportAsTable");
        QByteArray expected = "\uFEFFNumber,Block,BL_NR,KIND,Top left X,Top left Y,Top right X,"
                              "Top right Y,Bottom right X,Bottom right Y,Bottom left X,"
                              "Bottom left Y\r\n";
        for (const char *const sheet : {"2,A,2,city", "10,A,10,city"})
            expected += sheet + ",0,2,3,2,3,0,0,0\r\n"_ba;
        QVERIFY2(bench.bytes("plan.csv").startsWith(expected), bench.bytes("plan.csv"));
        QVERIFY(!bench.bytes("plan.csv").contains("Warning"));
        QVERIFY(bench.said("exportMessage").startsWith(u"2 sheets written to "_s));
        const QStringList asked = bench.exportTo(bench.file("plan.XLSX"), "btnExportAsTable");
        QCOMPARE(asked.value(0), u"Export as Table"_s);
        QVERIFY(asked.contains(u"Workbook (*.xlsx)"_s));
        QVERIFY(bench.bytes("plan.XLSX").startsWith("PK"));

        const QByteArray plan = bench.bytes("plan.dxf");
        for (const char *const name : {"none/x.csv", "plan.dxf", "plan.txt"}) {
            bench.exportTo(bench.file(name), "btnExportAsTable");
            QVERIFY(
                bench.said("exportMessage").contains(QDir::toNativeSeparators(bench.file(name))));
            QVERIFY(!bench.said("exportMessage").contains(u"sheets written"_s));
        }
        QCOMPARE(bench.bytes("plan.dxf"), plan);
    }

    void endsTables_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("by the button") << 0;
        QTest::newRow("by Escape") << 1;
        QTest::newRow("by closing the dialog") << 2;
        QTest::newRow("by deleting the dialog") << 3;
    }

    void endsTables()
    {
        QFETCH(const int, way);
        Bench bench(kLargePlan);
        QVERIFY(bench.read());
        bench.put("old.xlsx", "old");
        bool hasRun = false;
        bench.whileReading([&] {
            hasRun = bench.find<QWidget>("btnCancel")->isVisible() && !bench.read();
            QVERIFY(!bench.find<QWidget>("btnExportAsTable")->isEnabled());
            switch (way) {
            case 0:
                return bench.press("btnCancel");
            case 1:
                return QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Escape);
            case 2:
                return void(bench.dialog->close());
            default:
                delete bench.dialog;
            }
        });
        bench.exportTo(bench.file("old.xlsx"), "btnExportAsTable");
        QVERIFY(hasRun);
        QCOMPARE(bytesOf(bench.file("old.xlsx")), "old");
        QCOMPARE(QDir(bench.dir.path()).entryList({u"*.xlsx*"_s}, QDir::Files).size(), 1);
        QCOMPARE(bench.dialog && bench.dialog->isVisible(), way < 2);
        if (way < 2) {
            QVERIFY(bench.said("exportMessage").contains(u"was cancelled"_s));
            QVERIFY(bench.find<QWidget>("btnExportAsTable")->isEnabled());
        }
    }

    void savesPictures()
    {
        const OpenBench bench;
        const auto save = [&](const char *name) {
            bench.exportTo(bench.file(name), "btnSavePicture");
            return bench.said("exportMessage");
        };
        QVERIFY(save("plan.svg").contains(u"Picture saved as "_s));
        QVERIFY(bench.bytes("plan.svg").contains("<svg"));
        QVERIFY(save("plan.png").contains(QDir::toNativeSeparators(bench.file("plan.png"))));
        QVERIFY(!QImage(bench.file("plan.png")).isNull());
        QVERIFY(save("none/plan.svg").contains(u"was not written"_s));
    }

    /// A review handles events while it works, in which anything may happen.
    void endsWhileItReviews()
    {
        Bench bench(planOf(QByteArrayList(400'000, sheet("1", "city"))));
        QVERIFY(bench.read());
        bench.type("edtExcludeTag", u"none"_s);
        QElapsedTimer sinceLast;
        QTimer idle; // which comes late only while something works
        connect(&idle, &QTimer::timeout, &idle, [&] {
            constexpr qint64 kWorking = 20; // milliseconds
            if (sinceLast.restart() >= kWorking)
                delete bench.dialog;
        });
        sinceLast.start(); // the review may be the first thing that happens
        idle.start(0);
        QTRY_VERIFY(!bench.dialog);
    }

    void marksManyAtOnce()
    {
        // The first has no number, and so no check box.
        const OpenBench bench(planOf(kFourSheets + QByteArrayList{"0 INSERT|2 A"}));
        bench.focus(bench.list);
        bench.list->setCurrentIndex(bench.list->model()->index(0, 0));
        bench.list->selectAll();
        QTest::keyClick(bench.list, Qt::Key_Space);
        QCOMPARE(bench.sheets(), u"[-] [-2] [-3] [-7] [-10]"_s);
        bench.list->clearSelection();
        bench.list->selectRow(2);
        bench.press("btnMarkSelected");
        bench.press("btnMarkSelected"); // no toggle
        QCOMPARE(bench.sheets(), u"- -2 [3] -7 -10"_s);
        emit bench.picture->sheetsPicked({0, 1}); // 10 and 2
        QTest::keyClick(bench.picture, Qt::Key_Space);
        QCOMPARE(bench.sheets(), u"- [2] 3 -7 [10]"_s);
        QVERIFY(bench.find<QLabel>("lblToBeExported")->text().contains(u'3'));
    }

    void offersWhatThePlanHas()
    {
        const OpenBench bench;
        bench.focus(bench.list);
        bench.find<QGroupBox>("grpInclude")->setChecked(true);
        const auto choose = [&](const char *name, const QString &offered) {
            auto *field = bench.find<QLineEdit>(name);
            field->setFocus(Qt::TabFocusReason);
            auto *list = field->completer()->popup();
            QTRY_VERIFY(list->isVisible()); // though nothing was typed
            QCOMPARE(list->model()->index(1, 0).data().toString(), offered);
            QTest::keyClick(list, Qt::Key_Down);
            QTest::keyClick(list, Qt::Key_Down);
            QTest::keyClick(list, Qt::Key_Return);
        };
        choose("edtIncludeTag", u"KIND (4 inserts)"_s);
        choose("edtIncludeValue", u"land (1 insert)"_s);
        QCOMPARE(bench.sheets(), u"7"_s);
        auto *tag = bench.find<QLineEdit>("edtIncludeTag");
        tag->setText(u"k"_s);
        QVERIFY(!tag->completer()->popup()->isVisible());
        QTest::keyClick(tag, Qt::Key_Down);
        QVERIFY(tag->completer()->popup()->isVisible());
        QTest::keyClick(tag->completer()->popup(), Qt::Key_Escape);
    }

    void leadsFromSheetsToFindingsAndBack()
    {
        const OpenBench bench(planOf(kFourSheets + QByteArrayList{sheet("7", ""), "0 INSERT|2 A"}));
        emit bench.picture->sheetsPicked({0, 2});
        QCOMPARE(bench.sheets(), u"- 2 3 [7] 7 [10]"_s);
        const QModelIndexList twice = bench.findingsWith(u"'7'"_s);
        QCOMPARE(twice.size(), 1);
        QTest::mouseClick(bench.findings->viewport(), Qt::LeftButton, {},
                          bench.findings->visualRect(twice.first()).center());
        QCOMPARE(bench.sheets(), u"- 2 3 7 [7] 10"_s);
        const auto isTitle = [&](const QLabel *label) {
            return label->buddy() == bench.findings &&
                   label->text() == u"&Findings: 2 warnings, 1 note"_s;
        };
        QVERIFY(std::ranges::any_of(bench.dialog->findChildren<QLabel *>(), isTitle));
        const auto selected = [&] { return bench.findings->selectionModel()->selectedIndexes(); };
        bench.list->selectRow(1);
        QVERIFY(selected().isEmpty());
        bench.list->selectRow(4); // the second 7
        QCOMPARE(selected(), twice);
        // Another plan is shown from its beginning.
        bench.put("large.dxf", kLargePlan);
        bench.read("large.dxf");
        bench.list->scrollToBottom();
        QVERIFY(bench.list->verticalScrollBar()->value() > 0);
        bench.read("large.dxf");
        QCOMPARE(bench.list->verticalScrollBar()->value(), 0);
    }

    void copiesTables()
    {
        const Bench bench(
            planOf({sheet("2", "city"), sheet("x\t1", "city"), sheet("x\t1", "city")}));
        bench.read();
        bench.focus(bench.list);
        const QString titles = u"Number\tValue\tBlock\tCorners\n"_s;
        const QString row = u"%1\tA\t0,00 2,00 \u2013 3,00 0,00\n"_s;
        QTest::keyClick(bench.list, Qt::Key_C, Qt::ControlModifier);
        const QString first = row.arg(u"1\tx 1"_s); // a tab would begin another cell
        QCOMPARE(QGuiApplication::clipboard()->text(), titles + first + first + row.arg(u"2\t2"_s));
        bench.list->selectRow(2);
        QTest::keyClick(bench.list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), titles + row.arg(u"2\t2"_s));
        bench.findings->setFocus();
        QTest::keyClick(bench.findings, Qt::Key_C, Qt::ControlModifier);
        const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n');
        QCOMPARE(lines.size(), 4); // titles, two findings, the last line's end
        QCOMPARE(lines[0], u"Kind\tLine\tFinding"_s);
        QCOMPARE(lines.filter(QRegularExpression(u"^Warning\\t\\d+\\tMore than one"_s)).size(), 1);
    }

    void suitsEveryLanguage()
    {
        for (const QLocale::Language language : {QLocale::German, QLocale::English}) {
            InstallTranslation(QLocale(language));
            const OpenBench bench;
            const QSize room = bench.dialog->screen()->availableSize();
            QVERIFY(bench.dialog->width() < room.width() && bench.dialog->height() < room.height());
            const QSize least = bench.dialog->minimumSizeHint();
            QVERIFY2(least.width() <= 758, QByteArray::number(least.width())); // 1366 at 180 %
            QVERIFY2(least.height() <= 384 - 48, QByteArray::number(least.height()));
            bench.dialog->resize(least);
            for (const char *name : {"btnExportAsGK2", "btnClose"})
                QVERIFY(bench.dialog->rect().contains(bench.find<QWidget>(name)->geometry()));

            bench.find<QGroupBox>("grpInclude")->setChecked(true);
            bench.find<QGroupBox>("grpExclude")->setChecked(true);
            // The button that may appear in a message counts as well.
            bench.find<MessageLine>("readMessage")
                ->warn(u"gone"_s, DxfDialogTexts::RemoveFromList());
            QMap<QString, QString> mnemonics, names;
            const auto claim = [](auto &owners, const QString &key, const QString &owner) {
                QVERIFY2(!owners.contains(key), qPrintable(owners.value(key) + u" | "_s + owner));
                if (!key.isEmpty())
                    owners[key] = owner;
            };
            for (QWidget *widget : bench.dialog->findChildren<QWidget *>()) {
                const QString text = widget->property("text").toString();
                const QString title = text.isEmpty() ? widget->property("title").toString() : text;
                claim(mnemonics, QKeySequence::mnemonic(title).toString(), title);
                // What is reached by the keyboard has a name for screen readers.
                if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible() ||
                    widget->focusProxy())
                    continue;
                const QString name =
                    QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
                QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
                claim(names, name, widget->objectName());
            }
            QVERIFY(mnemonics.size() >= 15 && names.size() >= 18);
        }
    }

    void keepsItsLayoutWhileReading()
    {
        Bench bench(kLargePlan);
        const auto places = [&] {
            QList<QRect> rects;
            for (const char *name : {"sheetList", "findingList", "btnExportAsGK2", "grpInclude"})
                rects << QRect(bench.find<QWidget>(name)->mapToGlobal(QPoint()),
                               bench.find<QWidget>(name)->size());
            return rects;
        };
        const QList<QRect> before = places();
        QVERIFY(bench.hint->text().contains(u"drop one here"_s));
        bench.whileReading([&] {
            QCOMPARE(bench.hint->text(), u"Reading plan.dxf"_s); // drops are refused
            QCOMPARE(places(), before);
            bench.dialog->CancelReading();
        });
        QVERIFY(!bench.read());
        QVERIFY(bench.hint->isVisible() && bench.hint->text().contains(u"drop one here"_s));
    }

    void writesQuietlyButReadably()
    {
        for (const auto &[ink, ground] : {std::pair(Qt::black, Qt::white),
                                          {Qt::white, Qt::black},
                                          {Qt::darkBlue, Qt::yellow},
                                          {Qt::lightGray, Qt::darkGray}}) {
            QPalette palette;
            palette.setColor(QPalette::Text, ink);
            palette.setColor(QPalette::Base, ground);
            const double most = colors::contrast(ink, ground);
            const double own = colors::contrast(workbench::quietInk(palette), ground);
            QVERIFY2(own >= std::min(most, 4.5) && own <= most, QByteArray::number(own));
        }
        const Bench bench;
        QVERIFY(colors::contrast(bench.hint->palette().color(bench.hint->foregroundRole()),
                                 bench.list->palette().color(QPalette::Base)) >= 4.5);
    }

    void tellsWhatAnExportChanged()
    {
        OpenBench bench;
        bench.put("older.txt", "GK2\r\n\r\n2\r\n" + kCorners +
                                   "\r\n3\r\n   0,00        0,00    \r\n" +
                                   "\r\n9\r\n   5,00        5,00    \r\n");
        bench.exportTo(bench.file("older.txt"));
        QVERIFY(bench.said("exportMessage").contains(u"4 sheets written"_s));
        QVERIFY(bench.said("exportMessage").contains(u"2 new, 1 gone, 1 moved, 0 renamed"_s));
        QCOMPARE(bench.findingsWith(u"Sheet '10' is new"_s).size(), 1);
        QCOMPARE(bench.findingsWith(u"Sheet '9' is not in the file any more"_s).size(), 1);
        bench.list->selectRow(3); // 10, which leads to what is said of it
        QCOMPARE(bench.findings->selectionModel()->selectedIndexes().size(), 1);
        bench.exportTo(bench.file("older.txt")); // onto what was just written
        QVERIFY(bench.said("exportMessage").contains(u"nothing changed"_s));
        const QByteArray moved = QByteArray(kCorners).replace("2,00 ", "2,40 ");
        for (const double tolerance : {0.5, 0.3}) {
            bench.find<QDoubleSpinBox>("spnTolerance")->setValue(tolerance);
            bench.put("older.txt", "GK2\r\n\r\n2\r\n" + moved);
            bench.exportTo(bench.file("older.txt"));
            const QString counted = tolerance < 0.4 ? u"1 moved"_s : u"0 moved"_s;
            QVERIFY2(bench.said("exportMessage").contains(counted),
                     qPrintable(bench.said("exportMessage")));
            DxfToolsDialog again(nullptr, &bench.store);
            QCOMPARE(again.findChild<QDoubleSpinBox *>()->value(), tolerance);
        }
        bench.put("foreign.txt", "no sheets");
        bench.exportTo(bench.file("foreign.txt"));
        QVERIFY(!bench.said("exportMessage").contains(u"changed"_s));
    }

    void appliesInsertPositions()
    {
        const Bench bench(planOf({"0 INSERT|2 A|10 100|20 200|0 ATTRIB|1 1|2 BL_NR|0 SEQEND"}));
        bench.read();

        QVERIFY(bench.corners().startsWith(u"0,00 2,00"_s));
        bench.list->selectRow(0);
        bench.press("chkApplyInsertPosition");
        QVERIFY(bench.corners().startsWith(u"100,00 202,00"_s));
        QCOMPARE(bench.sheets(), u"[1]"_s);
    }

    void tellsWhatRunsHere()
    {
        for (const auto &[language, line] : {std::pair(QLocale::German, u"Sprache: de\n"_s),
                                             {QLocale::English, u"Language: en\n"_s}}) {
            InstallTranslation(QLocale(language));
            const Bench bench;
            bench.focus(bench.find<QWidget>("btnOpen"));
            const QKeySequence key =
                QKeySequence::mnemonic(bench.find<QPushButton>("btnAbout")->text());
            QTest::keySequence(bench.dialog, key);
            QTRY_VERIFY(QApplication::activeModalWidget());
            const QPointer<QWidget> about = QApplication::activeModalWidget();
            auto *text = about->findChild<QPlainTextEdit *>();
            QTRY_VERIFY(text->hasFocus());
            QVERIFY(text->isReadOnly() && !text->accessibleName().isEmpty());
            QVERIFY2(text->toPlainText().contains(line), qPrintable(text->toPlainText()));
            QTest::keyClick(text, Qt::Key_Tab); // leads on, though it is a text
            QTest::keyClick(about->focusWidget(), Qt::Key_Space);
            QCOMPARE(QGuiApplication::clipboard()->text(), text->toPlainText());
            QTest::keyClick(text, Qt::Key_Escape);
            QTRY_VERIFY(!about);
        }
    }
};

QTEST_MAIN(TestDxfToolsDialog)
#include "tst_dxftoolsdialog.moc"
