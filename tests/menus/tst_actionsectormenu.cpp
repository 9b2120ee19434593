// SPDX-License-Identifier: GPL-2.0-or-later
// Sector menus: what they offer, how they keep in step, what they trigger.
#include <QAction>
#include <QSignalSpy>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/menus/ActionSectorMenu.h>

using namespace Qt::Literals::StringLiterals;

class TestActionSectorMenu : public QObject
{
    Q_OBJECT

private slots:
    void offersByLayout();
    void offersByCategory();
    void putsTheRestIntoMore();
    void keepsInStep();
    void triggersAsAnnounced_data();
    void triggersAsAnnounced();
};

namespace {

struct Registry;
using Act = void (*)(Registry &, ActionSectorMenu &);

const FilterByContextId kHere(0x00010000, 0, -1);

/// A registry of actions "0", "1" ... under ids 100, 101 ...; odd ones belong to category 1.
struct Registry
{
    explicit Registry(int count)
    {
        for (int i = 0; i < count; ++i) {
            actions.push_back(std::make_unique<QAction>(QString::number(i)));
            add(100 + i, i % 2, 0, actions.back().get());
        }
        manager->SetCategoryDescription(1, u"Odd & so"_s);
        const auto note = [this](const QString &what) {
            return [=, this](QAction &action) { log << what + action.text(); };
        };
        QObject::connect(manager.get(), &ActionManager::beforeActionTrigger, note(u"before "_s));
        QObject::connect(manager.get(), &ActionManager::afterActionTriggered, note(u"after "_s));
    }
    void add(int id, int category, int context, QAction *action) const
    {
        // The registry goes by the id given, whatever the record says.
        manager->RegisterAction(id, MakeActionData(0, category, context, action, false, 0));
    }

    std::vector<std::unique_ptr<QAction>> actions;
    QStringList log;
    std::unique_ptr<ActionManager> manager = std::make_unique<ActionManager>();
};

ContextMenuLayout layoutOf(const std::vector<int> &ids)
{
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(static_cast<unsigned int>(ids.size()));
    for (unsigned int slot = 0; slot < ids.size(); ++slot)
        layout.AssignActionIdToSlot(slot, ids[slot]);
    return layout;
}

/// "0 1 (2) - More[3 4]": a disabled item in parentheses, an empty place as "-".
QString contentOf(const QtPieMenu &menu)
{
    QStringList words;
    for (int i = 0; i < menu.count(); ++i) {
        const QString text = menu.itemText(i);
        if (const QtPieMenu *sub = menu.subMenuAt(i))
            words << text + u'[' + contentOf(*sub) + u']';
        else if (text.isEmpty() && menu.itemIcon(i).isNull() && !menu.isItemEnabled(i))
            words << u"-"_s;
        else
            words << (menu.isItemEnabled(i) ? text : u'(' + text + u')');
    }
    return words.join(u' ');
}

} // namespace

void TestActionSectorMenu::offersByLayout()
{
    Registry registry(3);
    QAction elsewhere(u"elsewhere"_s), invalid(u"invalid"_s);
    registry.add(7, 0, 0x00020000, &elsewhere);
    registry.add(-1, 0, 0, &invalid); // -1 stands for an empty slot all the same
    registry.add(8, 0, 0, &invalid);
    registry.manager->FindActionDataById(8)->valid = false;
    registry.actions[1]->setEnabled(false);
    registry.actions.pop_back();
    ActionSectorMenu menu(*registry.manager, 30, 100);
    menu.fillByLayout(layoutOf({101, -1, 7, 100, 55, 102, 8}), kHere);
    QCOMPARE(contentOf(menu), u"(1) - - 0 - - -"_s);
    QCOMPARE(menu.indexAt({100, 20}), 0); // slot 0 is the sector at the top
    registry.manager.reset();
    menu.activateItem(3);
    menu.fillByLayout(layoutOf({100}), kHere);
    QCOMPARE(contentOf(menu), u"-"_s);
}

void TestActionSectorMenu::offersByCategory()
{
    Registry registry(5);
    registry.actions[2]->setVisible(false);
    ActionSectorMenu menu(*registry.manager, 30, 100);
    menu.setHoverInterval(17);
    menu.fillByCategory(kHere);
    QCOMPARE(contentOf(menu), u"Unknown Category[0 4] Odd && so[1 3]"_s);
    QCOMPARE(menu.subMenuAt(1)->hoverInterval(), 17);
    menu.subMenuAt(1)->activateItem(0);
    QCOMPARE(registry.log, QStringList({u"before 1"_s, u"after 1"_s}));
    menu.fillByCategory(FilterByContextId(0, 0, 0));
    QCOMPARE(menu.count(), 0);
}

void TestActionSectorMenu::putsTheRestIntoMore()
{
    Registry registry(30);
    ActionSectorMenu menu(*registry.manager, 30, 100);
    std::vector<int> ids;
    for (int i = 0; i < 30; ++i)
        ids.push_back(100 + i);
    menu.fillByLayout(layoutOf({ids.begin(), ids.begin() + 12}), kHere);
    QCOMPARE(contentOf(menu), u"0 1 2 3 4 5 6 7 8 9 10 11"_s);
    menu.fillByLayout(layoutOf(ids), kHere);
    QCOMPARE(contentOf(menu), u"0 1 2 3 4 5 6 7 8 9 10 More[11 12 13 14 15 16 17 18 19 20 21 "
                              u"More[22 23 24 25 26 27 28 29]]"_s);
}

void TestActionSectorMenu::keepsInStep()
{
    Registry registry(2);
    QAction &action = *registry.actions[0];
    QPixmap own(32, 32);
    own.fill(Qt::red);
    registry.manager->RegisterIconResource(101, u":/small/none.png"_s); // has no large form
    registry.actions[1]->setIcon(own);
    ActionSectorMenu menu(*registry.manager, 30, 100);
    menu.fillByLayout(layoutOf({100, 101}), kHere);
    QCOMPARE(menu.itemIcon(1).cacheKey(), registry.actions[1]->icon().cacheKey());
    menu.popup({400, 400});
    action.setText(u"new"_s);
    action.setIcon(own);
    action.setCheckable(true);
    action.setChecked(true);
    QVERIFY(menu.itemAt(0)->isCheckable() && menu.itemAt(0)->isChecked());
    QVERIFY(!menu.itemIcon(0).isNull());
    action.setEnabled(false);
    QCOMPARE(contentOf(menu), u"(new) 1"_s);
    action.setVisible(false);
    QCOMPARE(contentOf(menu), u"- 1"_s);
    registry.actions.pop_back(); // dies while the menu is open
    QCOMPARE(contentOf(menu), u"- -"_s);
    QTest::keyClick(&menu, Qt::Key_2);
    QVERIFY(menu.isVisible() && registry.log.isEmpty());
    menu.grab();
}

void TestActionSectorMenu::triggersAsAnnounced_data()
{
    QTest::addColumn<Act>("prepare");
    QTest::addColumn<QStringList>("log");
    const auto row = [](const char *name, Act act, const QStringList &log) {
        QTest::newRow(name) << act << log;
    };
    const QStringList both{u"before 0"_s, u"after 0"_s};
    row(
        "plain", [](Registry &, ActionSectorMenu &) {}, both);
    row(
        "checkable and off",
        [](Registry &registry, ActionSectorMenu &) { registry.actions[0]->setCheckable(true); },
        both);
    row("checkable and on",
        [](Registry &registry, ActionSectorMenu &) {
            registry.actions[0]->setCheckable(true);
            registry.actions[0]->setChecked(true);
        },
        {});
    row(
        "the menus are closed before",
        [](Registry &registry, ActionSectorMenu &menu) {
            connect(registry.manager.get(), &ActionManager::beforeActionTrigger, &menu,
                    [&] { QVERIFY(!menu.isVisible()); });
        },
        both);
    row("action deleted when it is announced",
        [](Registry &registry, ActionSectorMenu &) {
            connect(registry.manager.get(), &ActionManager::beforeActionTrigger,
                    [&] { registry.actions.clear(); });
        },
        {u"before 0"_s});
    row("registry deleted when it announces",
        [](Registry &registry, ActionSectorMenu &) {
            connect(registry.manager.get(), &ActionManager::beforeActionTrigger,
                    [&] { registry.manager.reset(); });
        },
        {u"before 0"_s});
    row("action deleted when the menu closes",
        [](Registry &registry, ActionSectorMenu &menu) {
            connect(&menu, &QtPieMenu::activated, &menu, [&] { registry.actions.clear(); });
        },
        {});
    row("refilled when the menu closes",
        [](Registry &registry, ActionSectorMenu &menu) {
            connect(&menu, &QtPieMenu::aboutToHide, registry.manager.get(),
                    [&] { menu.fillByCategory(kHere); });
        },
        {});
}

void TestActionSectorMenu::triggersAsAnnounced()
{
    QFETCH(const Act, prepare);
    QFETCH(const QStringList, log);
    Registry registry(1);
    ActionSectorMenu menu(*registry.manager, 30, 100);
    menu.fillByLayout(layoutOf({100}), kHere);
    menu.popup({400, 400});
    prepare(registry, menu);
    QTest::keyClick(&menu, Qt::Key_1);
    QCOMPARE(registry.log, log);
    QVERIFY(!menu.isVisible());
}

QTEST_MAIN(TestActionSectorMenu)
#include "tst_actionsectormenu.moc"
