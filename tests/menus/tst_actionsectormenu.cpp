// SPDX-License-Identifier: GPL-2.0-or-later
// Sector menus: what they offer, how they keep in step, what they trigger.
#include <QAction>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/menus/ActionSectorMenu.h>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

class TestActionSectorMenu : public QObject
{
    Q_OBJECT

private slots:
    void offersByLayout();
    void offersByCategory();
    void keepsInStep();
    void triggersAsAnnounced();
};

namespace {

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
        QObject::connect(manager.get(), &ActionManager::beforeActionTrigger,
                         [this](QAction &action) { log << u"before "_s + action.text(); });
        QObject::connect(manager.get(), &ActionManager::afterActionTriggered,
                         [this](QAction &action) { log << u"after "_s + action.text(); });
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
        const bool isGap = text.isEmpty() && menu.itemIcon(i).isNull() && !menu.isItemEnabled(i);
        if (const QtPieMenu *sub = menu.subMenuAt(i))
            words << text + u'[' + contentOf(*sub) + u']';
        else
            words << (isGap ? u"-"_s : menu.isItemEnabled(i) ? text : u'(' + text + u')');
    }
    return words.join(u' ');
}

} // namespace

void TestActionSectorMenu::offersByLayout()
{
    Registry registry(30);
    ActionSectorMenu menu(*registry.manager, 30, 100);
    std::vector<int> ids(30);
    std::iota(ids.begin(), ids.end(), 100);
    menu.fillByLayout(layoutOf({ids.begin(), ids.begin() + 12}), kHere);
    QCOMPARE(contentOf(menu), u"0 1 2 3 4 5 6 7 8 9 10 11"_s);
    menu.fillByLayout(layoutOf(ids), kHere);
    QCOMPARE(contentOf(menu), u"0 1 2 3 4 5 6 7 8 9 10 More[11 12 13 14 15 16 17 18 19 20 21 "
                              u"More[22 23 24 25 26 27 28 29]]"_s);

    ids.resize(16, -1); // what "More" would lead to: nothing, one action, several
    std::fill(ids.begin() + 11, ids.end(), -1);
    const QString eleven = u"0 1 2 3 4 5 6 7 8 9 10 "_s;
    menu.fillByLayout(layoutOf(ids), kHere);
    QCOMPARE(contentOf(menu), eleven + u'-');
    ids[14] = 114;
    menu.fillByLayout(layoutOf(ids), kHere);
    QCOMPARE(contentOf(menu), eleven + u"14"_s);
    ids[12] = 112;
    menu.fillByLayout(layoutOf(ids), kHere);
    QCOMPARE(contentOf(menu), eleven + u"More[12 14]"_s);

    QAction elsewhere(u"elsewhere"_s), invalid(u"invalid"_s);
    registry.add(7, 0, 0x00020000, &elsewhere);
    registry.add(-1, 0, 0, &invalid); // -1 stands for an empty slot all the same
    registry.add(8, 0, 0, &invalid);
    registry.manager->FindActionDataById(8)->valid = false;
    registry.actions[1]->setEnabled(false);
    registry.actions.pop_back();
    menu.fillByLayout(layoutOf({101, -1, 7, 100, 55, 129, 8}), kHere);
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
    QVERIFY(menu.itemAt(0)->isCheckable() && menu.itemAt(0)->isChecked() &&
            !menu.itemIcon(0).isNull());
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

void TestActionSectorMenu::triggersAsAnnounced()
{
    using Deed = void (*)(Registry &, ActionSectorMenu &);
    const auto check = [](int checks, const QString &moment, Deed deed, const QString &log) {
        Registry registry(1);
        ActionSectorMenu menu(*registry.manager, 30, 100);
        const auto reach = [&](QStringView now) { now == moment ? deed(registry, menu) : void(); };
        connect(&menu, &QtPieMenu::activated, &menu, [&] { reach(u"closing"_s); });
        connect(registry.manager.get(), &ActionManager::beforeActionTrigger, &menu, [&] {
            QVERIFY(!menu.isVisible()); // so that a function may open a dialog
            reach(u"announced"_s);
        });
        registry.actions[0]->setCheckable(checks > 0);
        registry.actions[0]->setChecked(checks > 1);
        menu.fillByLayout(layoutOf({100}), kHere);
        menu.popup({400, 400});
        QTest::keyClick(&menu, Qt::Key_1);
        QCOMPARE(moment + registry.log.join(u' '), moment + log);
        QVERIFY(!menu.isVisible());
    };
    const Deed deleteAction = [](Registry &registry, auto &) { registry.actions.clear(); };
    const Deed deleteRegistry = [](Registry &registry, auto &) { registry.manager.reset(); };
    const Deed refill = [](Registry &, ActionSectorMenu &menu) { menu.fillByCategory(kHere); };
    check(0, {}, nullptr, u"before 0 after 0"_s);
    check(1, {}, nullptr, u"before 0 after 0"_s);
    check(2, {}, nullptr, {}); // would be switched off
    check(0, u"announced"_s, deleteAction, u"before 0"_s);
    check(0, u"announced"_s, deleteRegistry, u"before 0"_s);
    check(0, u"closing"_s, deleteAction, {});
    check(0, u"closing"_s, refill, {});
}

QTEST_MAIN(TestActionSectorMenu)
#include "tst_actionsectormenu.moc"
