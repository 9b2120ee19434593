// SPDX-License-Identifier: GPL-2.0-or-later
// Putting the context menu together: moves of slots, the page and its previews; the overview of
// shortcuts on paper; and the notice about keys that two functions have.
#include "actions/configuration/contextmenumodels_p.h"
#include "actions/configuration/contextmenupage_p.h"
#include "actions/configuration/menupreview_p.h"
#include "actions/configuration/shortcutoverview_p.h"
#include "actions/configuration/slotmoves_p.h"
#include "actions/configuration/workingcopy_p.h"
#include <QAction>
#include <QBuffer>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QTreeView>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/AmbiguityNotice.h>
#include <kelo_base/actions/ContextMenu.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/menus/ActionSectorMenu.h>

using namespace Qt::Literals::StringLiterals;
using namespace menuconfig;
using Ids = std::vector<int>;
using Places = std::vector<unsigned int>;

namespace {

const FilterByContextId kEverywhere(-1, -1, -1);

ContextMenuLayout layoutOf(const Ids &ids)
{
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(static_cast<unsigned int>(ids.size()));
    for (unsigned int slot = 0; slot < ids.size(); ++slot)
        layout.AssignActionIdToSlot(slot, ids[slot]);
    return layout;
}

Ids idsIn(const ContextMenuLayout &layout)
{
    Ids ids;
    for (unsigned int slot = 0; slot < layout.NumberOfSlots(); ++slot)
        ids.push_back(layout.GetAssignedActionId(slot));
    return ids;
}

/// "&Open", "&Other", "Zoom" and more under ids from 1.
struct Registry
{
    explicit Registry(int count = 5)
    {
        const QStringList texts{u"&Open..."_s, u"&Other"_s, u"Zoom"_s, u"<Cut> & Go"_s};
        for (int i = 0; i < count; ++i) {
            actions.push_back(std::make_unique<QAction>(texts.value(i, u"Function %1"_s.arg(i))));
            manager.RegisterAction(MakeActionData(i + 1, i / 40, 0, actions.back().get(), false, 0),
                                   nullptr);
        }
        manager.SetCategoryDescription(0, u"First"_s);
        manager.SetCategoryDescription(1, u"Second"_s);
    }
    std::vector<std::unique_ptr<QAction>> actions;
    ActionManager manager;
};

} // namespace

class TestContextMenuPage : public QObject
{
    Q_OBJECT

private slots:
    void movesSlots_data()
    {
        QTest::addColumn<SlotEdit>("edit");
        QTest::addColumn<Ids>("ids");
        QTest::addColumn<Places>("touched");
        const ContextMenuLayout layout = layoutOf({1, 2, -1, 4, 5});
        const auto row = [](const char *name, const SlotEdit &edit, const Ids &ids,
                            const Places &touched) {
            QTest::newRow(name) << edit << ids << touched;
        };
        row("to the front", slotsMoved(layout, {4, 2}, 0), {-1, 5, 1, 2, 4}, {0, 1});
        row("around the target", slotsMoved(layout, {0, 4}, 2), {2, 1, 5, -1, 4}, {1, 2});
        row("to the end and beyond", slotsMoved(layout, {0, 77}, 99), {2, -1, 4, 5, 1}, {4});
        row("up in a block", slotsShifted(layout, {3, 4}, true), {1, 2, 4, 5, -1}, {2, 3});
        row("up at the edge", slotsShifted(layout, {0, 1, 4}, true), {1, 2, -1, 5, 4}, {0, 1, 3});
        row("down", slotsShifted(layout, {0, 4}, false), {2, 1, -1, 4, 5}, {1, 4});
        row("inserted", slotsInserted(layout, {7, 1}, 1), {-1, 7, 1, 2, -1, 4, 5}, {1, 2});
        row("filled", slotsFilled(layout, {5, 8}, 2), {1, 2, 5, 8, -1}, {2, 3});
        row("filled over the end", slotsFilled(layout, {7, 8}, 4), {1, 2, -1, 4, 7, 8}, {4, 5});
        row("emptied", slotsDeleted(layout, {1, 2}), {1, -1, -1, 4, 5}, {1, 2});
        row("an empty one taken out", slotsDeleted(layout, {2}), {1, 2, 4, 5}, {2});
        row("the only one taken out", slotsDeleted(layoutOf({-1}), {0}), {}, {});
        const SlotEdit full = slotsInserted(layoutOf(Ids(kMostSlots - 1, -1)), {1, 2}, 0);
        row("no room", slotsFilled(full.layout, {1}, 0), idsIn(full.layout), {0});
    }
    void movesSlots()
    {
        QFETCH(const SlotEdit, edit);
        QFETCH(const Ids, ids);
        QTEST(edit.touched, "touched");
        QCOMPARE(idsIn(edit.layout), ids);
    }

    void fillsTheMenu()
    {
        const auto isEven = [](int id) { return id % 2 == 0; };
        QCOMPARE(ContextMenuEntries(layoutOf({-1, 2, -1, 1, -1, -1, 4, 2, -1}), isEven),
                 (Ids{2, -1, 4}));
        Registry registry;
        registry.actions[2].reset(); // is dead, and its slot with it
        QMenu menu;
        menu.addAction(u"old"_s);
        FillContextMenu(menu, registry.manager, layoutOf({2, 3, -1, 99, 1}), kEverywhere);
        QCOMPARE(menu.actions().size(), 3);
        QCOMPARE(menu.actions().constFirst(), registry.actions[1].get());
        QVERIFY(menu.actions()[1]->isSeparator());
    }

    /// Search, put in, move, insert, empty, take out, by keys alone; and all the way back.
    void worksFromTheKeyboard()
    {
        Registry registry;
        WorkingCopy copy({{}, layoutOf({1, -1, 5})});
        ContextMenuPage page(registry.manager, copy);
        page.show();
        auto *tray = page.findChild<QTreeView *>(u"tray"_s);
        auto *view = page.findChild<QTreeView *>(u"slots"_s);
        auto *search = page.findChild<QLineEdit *>();
        QTest::keyClicks(search, u"other"_s);
        QCOMPARE(tray->model()->rowCount(), 1);
        tray->setCurrentIndex(tray->model()->index(0, 0));
        view->setCurrentIndex(view->model()->index(1, 0));
        QTest::keyClick(tray, Qt::Key_Return);
        QCOMPARE(idsIn(copy.current().layout), (Ids{1, 2, 5}));
        QCOMPARE(tray->model()->index(0, 2).data().toInt(), 2);
        const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers, const Ids &expected) {
            QTest::keyClick(view, key, modifiers);
            QCOMPARE(idsIn(copy.current().layout), expected);
        };
        press(Qt::Key_Up, Qt::AltModifier, {2, 1, 5});
        press(Qt::Key_Up, Qt::AltModifier, {2, 1, 5});
        press(Qt::Key_Down, Qt::AltModifier, {1, 2, 5});
        press(Qt::Key_Insert, Qt::NoModifier, {1, -1, 2, 5});
        press(Qt::Key_Delete, Qt::NoModifier, {1, 2, 5});
        press(Qt::Key_Delete, Qt::NoModifier, {1, -1, 5});
        QCOMPARE(copy.history().count(), 6); // at the edge nothing moved
        copy.history().setIndex(0);
        QCOMPARE(idsIn(copy.current().layout), (Ids{1, -1, 5}));
        QCOMPARE(view->model()->rowCount(), 3);
    }

    void dragsAndDrops()
    {
        Registry registry;
        const auto catalogue = std::make_shared<const ActionCatalogue>(registry.manager);
        WorkingCopy copy({{}, layoutOf({1, 2})});
        SlotModel slotModel(registry.manager, catalogue, copy, nullptr);
        TrayModel tray(registry.manager, catalogue, copy, slotModel, nullptr);
        tray.search(u"zoom"_s);
        const std::unique_ptr<QMimeData> zoom(tray.mimeData({tray.index(0, 0), tray.index(0, 1)}));
        const std::unique_ptr<QMimeData> first(slotModel.mimeData({slotModel.index(0, 0)}));
        const auto drop = [&](QAbstractItemModel &on, QMimeData &data, int row, int onRow) {
            const bool isTaken = on.dropMimeData(&data, Qt::MoveAction, row, 0, on.index(onRow, 0));
            return isTaken ? idsIn(copy.current().layout) : Ids{};
        };
        QCOMPARE(drop(slotModel, *zoom, 1, -1), (Ids{1, 3, 2}));
        QCOMPARE(drop(slotModel, *zoom, -1, 2), (Ids{1, -1, 3}));
        QCOMPARE(drop(slotModel, *zoom, -1, -1), (Ids{1, -1, -1, 3}));
        QCOMPARE(drop(slotModel, *first, 4, -1), (Ids{-1, -1, 3, 1}));
        QCOMPARE(drop(tray, *zoom, -1, -1), Ids{});
        const std::unique_ptr<QMimeData> last(slotModel.mimeData({slotModel.index(3, 0)}));
        QCOMPARE(drop(tray, *last, -1, -1), (Ids{-1, -1, 3, -1}));
        QMimeData foreign;
        foreign.setData(zoom->formats().constFirst(), "17");
        QCOMPARE(drop(slotModel, foreign, -1, -1), Ids{});
    }

    void previewsBothMenus()
    {
        Registry registry;
        WorkingCopy copy({{}, layoutOf({1, -1, 3})});
        ContextMenuPage page(registry.manager, copy);
        auto *menu = page.findChild<MenuPreview *>();
        const QSize before = menu->size();
        ContextMenuLayout seen;
        ActionSectorMenu sectors(registry.manager, 30, 100);
        QPixmap picture;
        page.setSectorPicture([&](const ContextMenuLayout &layout, QSize most) {
            seen = layout;
            sectors.fillByLayout(layout, kEverywhere);
            return picture = sectors.picture(most);
        });
        QVERIFY(picture.width() > 200 && picture.width() <= 300);
        QCOMPARE(menu->warning(), QString());
        MenuConfiguration next{{}, layoutOf({1, -1, 2, 3})};
        next.shortcuts.AssignKeySequence(3, QKeySequence(u"F7"_s));
        copy.edit(next, u"edit"_s);
        QVERIFY(seen == next.layout);
        QVERIFY(menu->warning().endsWith(u"O"_s));
        QVERIFY(menu->height() > before.height());
        QCOMPARE(menu->menu().actions().constLast()->text(), u"Zoom\tF7"_s);
    }

    void writesTheOverview()
    {
        Registry registry(220);
        ActionShortCutList shortcuts;
        for (int id = 2; id <= 220; ++id)
            shortcuts.AssignKeySequence(
                id, QKeySequence(QKeyCombination(Qt::CTRL, Qt::Key(0x100 + id))));
        const ActionCatalogue catalogue(registry.manager);
        const QString html = shortcutOverviewHtml(catalogue, shortcuts, u"A<B"_s);
        QCOMPARE(html.count(u"<tr><td"_s), 219);
        QVERIFY(html.contains(u"&lt;Cut&gt;"_s) && html.contains(u"A&lt;B</h1>"_s));
        QVERIFY(!html.contains(u"Open"_s)); // which has no shortcut
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QVERIFY(writeShortcutOverviewPdf(pdf, catalogue, shortcuts, u"A<B"_s));
        QBuffer closed;
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");
        QVERIFY(!writeShortcutOverviewPdf(closed, catalogue, shortcuts, {}));
        const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
        if (reader.isEmpty())
            QSKIP("pdftotext is missing");
        QProcess process;
        process.start(reader, {u"-layout"_s, u"-"_s, u"-"_s});
        process.write(pdf.data());
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished());
        const QString text = QString::fromUtf8(process.readAll());
        const qsizetype pages = text.count(u'\f');
        QVERIFY(pages > 1);
        QVERIFY(text.contains(u"Page %1 of %1"_s.arg(pages)));
        QCOMPARE(text.count(u"Keyboard Shortcuts: A<B"_s), pages);
        QVERIFY(text.contains(u"<Cut> & Go"_s) || text.contains(u"<Cut>"_s));
        QVERIFY(text.contains(u"Function 219"_s));
    }

    void tellsOfAmbiguousKeys()
    {
        Registry registry;
        QWidget window;
        window.resize(700, 300);
        const QKeySequence keys(u"Ctrl+K"_s);
        for (const std::size_t i : {0U, 1U, 2U}) {
            window.addAction(registry.actions[i].get());
            registry.actions[i]->setShortcut(i < 2 ? keys : QKeySequence(u"Ctrl+L"_s));
        }
        QAction foreign(u"Foreign"_s);
        foreign.setShortcut(QKeySequence(u"Ctrl+L"_s));
        window.addAction(&foreign);
        AmbiguityNotice notice(registry.manager);
        const QSignalSpy requests(&notice, &AmbiguityNotice::configureRequested);
        const QSignalSpy triggers(&registry.manager, &ActionManager::afterActionTriggered);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
        QVERIFY(notice.Notice());
        QVERIFY(window.rect().contains(notice.Notice()->geometry()));
        const QString told = notice.Notice()->accessibleName();
        QVERIFY2(told.contains(u"“Open”"_s) && told.contains(u"“Other”"_s), qPrintable(told));
        notice.Notice()->findChild<QPushButton *>()->click();
        QCOMPARE(requests, (QList<QVariantList>{{1}}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
        QVERIFY(!notice.Notice()); // once is enough
        QTest::keyClick(&window, Qt::Key_L, Qt::ControlModifier);
        QVERIFY(notice.Notice());
        QVERIFY(notice.Notice()->accessibleName().contains(u"“Zoom”"_s));
        QCOMPARE(triggers.size(), 0);
        registry.actions[1]->setEnabled(false); // then there is nothing to choose
        QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
        QCOMPARE(triggers.size(), 1);
    }
};

QTEST_MAIN(TestContextMenuPage)
#include "tst_contextmenupage.moc"
