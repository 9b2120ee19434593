// SPDX-License-Identifier: GPL-2.0-or-later
// The action registry: refusals, filters, trigger reports, and everybody dying in any order.
#include "tests/support/MessageLog.h"
#include <QSignalMapper>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/MenuConfigManager.h>

using namespace Qt::Literals::StringLiterals;

class TestActionManager : public QObject
{
    Q_OBJECT

private slots:
    void refusesNullActionsAndTakenIds();
    void filesUnderTheIdGiven();
    void copiesRecordsAsValid();
    void givesLargeIconsByName_data();
    void givesLargeIconsByName();
    void contextFilterAgreesWithTableOfBits();
    void reportsEachTriggerOnce();
    void survivesWhatListenersDo_data();
    void survivesWhatListenersDo();
    void survivesDeathsInAnyOrder();
};

namespace {

ActionData *record(int id, QAction *action, int contextId = 0)
{
    return MakeActionData(id, 1, contextId, action, false, 0);
}

} // namespace

void TestActionManager::refusesNullActionsAndTakenIds()
{
    QAction action;
    ActionManager manager;
    manager.RegisterAction(7, record(7, &action), nullptr);
    const MessageLog log;
    manager.RegisterAction(7, MakeActionData(7, 2, 0, &action, false, 0));
    manager.RegisterAction(record(8, nullptr));
    manager.RegisterAction(nullptr);
    QCOMPARE(log.lines(),
             QStringList({u"ActionManager::RegisterAction : Duplicate id added! Id : 7"_s,
                          u"ActionManager::RegisterAction : <nullptr> added! Id : 8"_s,
                          u"ActionManager::RegisterAction : <nullptr> added! Id : -1"_s}));
    QCOMPARE(manager.GetActions().size(), 1U);
    QCOMPARE(manager.FindActionDataById(7)->category, 1);
}

void TestActionManager::filesUnderTheIdGiven()
{
    QAction action;
    QAction other;
    QWidget owner;
    QWidget widget;
    ActionManager manager(&owner);
    manager.RegisterAction(-3, record(9, &action), &widget);
    manager.RegisterAction(2, record(9, &action));
    manager.RegisterAction(record(5, &other));
    QCOMPARE(widget.actions(), {&action});
    QCOMPARE(owner.actions(), QList({&action, &other}));
    QCOMPARE(manager.FindActionDataById(9), nullptr);
    QCOMPARE(manager.FindActionDataByAction(&action), manager.FindActionDataById(2));

    struct IsOther final : ActionValidator
    {
        bool operator()(ActionData *data) const override { return data->id != 9; }
    };
    manager.ValidateRegisteredActions(IsOther());
    QVERIFY(!manager.FindActionDataById(-3)->valid && manager.FindActionDataById(5)->valid);

    manager.SetCategoryDescription(1, u"Views"_s);
    QCOMPARE(manager.GetCategoryDescription(1), u"Views"_s);
    QCOMPARE(manager.GetCategoryDescription(0), u"Unknown Category"_s);
}

void TestActionManager::copiesRecordsAsValid()
{
    QAction action;
    ActionData original{1, 2, 3, 4, false, &action, true, 5};
    const std::unique_ptr<ActionData> copy(MakeActionData(&original));
    QVERIFY(copy->valid);
    QCOMPARE(std::tuple(copy->id, copy->category, copy->contextId, copy->contextMask, copy->action,
                        copy->flag, copy->extra),
             std::tuple(1, 2, 3, 4, &action, true, 5));
    const std::unique_ptr<ActionData> plain(MakeActionData(1, 2, 3, &action, true, 5));
    QCOMPARE(plain->contextMask, -1);
    QVERIFY(!MakeActionData(nullptr));
}

void TestActionManager::givesLargeIconsByName_data()
{
    QTest::addColumn<QString>("small");
    QTest::addColumn<QString>("large");
    QTest::newRow("plain") << u":/a/b/open.svg"_s << u":/flw_32x32/flw_32x32/open.png"_s;
    QTest::newRow("only the last extension goes")
        << u":/icons/zoom.in.png"_s << u":/flw_32x32/flw_32x32/zoom.in.png"_s;
    QTest::newRow("without extension") << u"open"_s << u":/flw_32x32/flw_32x32/open.png"_s;
}

void TestActionManager::givesLargeIconsByName()
{
    QFETCH(const QString, small);
    ActionManager manager;
    QCOMPARE(manager.GetLargeIconResource(4), QString());
    manager.RegisterIconResource(4, u":/earlier.png"_s);
    manager.RegisterIconResource(4, small);
    QTEST(manager.GetLargeIconResource(4), "large");
}

void TestActionManager::contextFilterAgreesWithTableOfBits()
{
    QRandomGenerator random(31);
    const auto sparse = [&random] { return random.generate() & random.generate(); };
    const auto shared = [](quint32 a, quint32 b, int from, int to) {
        int count = 0;
        for (int bit = from; bit < to; ++bit)
            count += (a >> bit & 1U) && (b >> bit & 1U);
        return count;
    };
    const auto meet = [shared](quint32 wanted, quint32 current, int from, int to) {
        return shared(wanted, wanted, from, to) == 0 || shared(wanted, current, from, to) > 0;
    };
    std::vector<std::unique_ptr<QAction>> actions;
    ActionManager manager;
    for (int id = 0; id < 200; ++id) {
        // Every third has no group, every fifth no sub-context.
        const quint32 context =
            sparse() & sparse() & (id % 3 ? ~0U : 0xFFFFU) & (id % 5 ? ~0U : 0xFFFF0000U);
        actions.push_back(std::make_unique<QAction>());
        manager.RegisterAction(MakeActionData(id, 0, int(context), int(sparse() & sparse()),
                                              actions.back().get(), false, 0));
    }
    std::size_t offered = 0;
    for (int round = 0; round < 200; ++round) {
        const quint32 groups = sparse() & sparse(), subs = sparse() & sparse(), mask = sparse();
        const std::unique_ptr<FunctionFilter> filter(
            MakeContextFunctionFilter(int(groups), int(subs), int(mask)));
        std::vector<ActionData *> expected;
        for (const auto &[id, data] : manager.GetActions()) {
            const auto context = quint32(data->contextId);
            if (meet(context, groups, 16, 32) && meet(context, subs, 0, 16) &&
                shared(mask, quint32(data->contextMask), 0, 32) > 0)
                expected.push_back(data);
        }
        QCOMPARE(manager.FindActionDataByFilter(*filter), expected);
        offered += expected.size();
    }
    QVERIFY(offered > 4000 && offered < 36000); // the table has both answers in numbers
}

void TestActionManager::reportsEachTriggerOnce()
{
    QAction first;
    QAction twice;
    ActionManager manager;
    manager.RegisterAction(record(1, &first));
    manager.RegisterAction(record(2, &twice));
    manager.RegisterAction(record(3, &twice));
    QStringList reports;
    connect(&manager, &ActionManager::beforeActionTrigger, this,
            [&](QAction &action) { reports << u"before "_s + action.objectName(); });
    connect(&manager, &ActionManager::afterActionTriggered, this,
            [&](QAction &action) { reports << u"after "_s + action.objectName(); });
    first.setObjectName(u"first"_s);
    twice.setObjectName(u"twice"_s);
    first.trigger();
    twice.trigger();
    manager.SignalBeforeActionTrigger(first);
    manager.SignalAfterActionTriggered(twice);
    QCOMPARE(reports, QStringList({u"after first"_s, u"after twice"_s, u"before first"_s,
                                   u"after twice"_s}));
}

void TestActionManager::survivesWhatListenersDo_data()
{
    using Deed = std::function<void(ActionManager *, QAction *)>;
    QTest::addColumn<Deed>("deed");
    QTest::newRow("deletes the action") << Deed([](auto, QAction *action) { delete action; });
    QTest::newRow("destroys the manager") << Deed([](auto *manager, auto) { delete manager; });
    QTest::newRow("destroys both") << Deed([](auto *manager, QAction *action) {
        delete manager;
        delete action;
    });
    QTest::newRow("registers others") << Deed([](auto *manager, auto) {
        for (int id = 100; id < 1000; ++id)
            manager->RegisterAction(record(id, new QAction(manager)));
    });
    QTest::newRow("destroys the manager in a report within a report")
        << Deed([](auto *manager, QAction *action) {
               if (action->isCheckable()) {
                   delete manager;
                   return;
               }
               QAction inner;
               inner.setCheckable(true);
               manager->RegisterAction(record(5, &inner));
               inner.trigger();
           });
}

void TestActionManager::survivesWhatListenersDo()
{
    QFETCH(const std::function<void(ActionManager *, QAction *)>, deed);
    QPointer<QAction> action(new QAction);
    QPointer<ActionManager> manager(new ActionManager);
    manager->RegisterAction(record(1, action));
    const QPointer<QSignalMapper> mapper(manager->findChild<QSignalMapper *>());
    int reports = 0;
    connect(manager, &ActionManager::afterActionTriggered, this, [&](QAction &triggered) {
        ++reports;
        deed(manager, &triggered);
        QVERIFY(mapper); // it is still at work
    });
    action->trigger();
    QVERIFY(reports > 0);
    if (manager)
        QCOMPARE(manager->FindActionDataById(1)->action, action);
    delete manager;
    if (action)
        action->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!mapper);
    delete action;
}

void TestActionManager::survivesDeathsInAnyOrder()
{
    std::array order{0, 1, 2};
    do {
        QPointer<QAction> action(new QAction);
        QPointer<QWidget> owner(new QWidget);
        QPointer<ActionManager> manager(new ActionManager(owner));
        manager->RegisterAction(record(1, action));
        for (const int who : order) {
            delete std::array<QObject *, 3>{action, owner, manager}[size_t(who)];
            if (!manager)
                continue;
            const ActionData *data = manager->FindActionDataById(1);
            QCOMPARE(data->action, action);
            QCOMPARE(manager->FindActionDataByAction(action), action ? data : nullptr);
            const FilterByContextId filter(0, 0, -1);
            QCOMPARE(manager->FindActionDataByFilter(filter).size(), action ? 1U : 0U);
            ActionShortCutList list;
            list.AssignKeySequence(1, QKeySequence(u"Ctrl+K"_s));
            SetupActionManagerFromKeyboardShortcutList(list, *manager);
            list.ClearAll();
            SetupKeyboardShortcutListFromActionManager(*manager, list);
            QCOMPARE(list.HasSequenceAssigned(1), !action.isNull());
            QAction late;
            manager->RegisterAction(record(10 + who, &late));
            QCOMPARE(late.associatedObjects().size(), owner ? 1 : 0);
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

QTEST_MAIN(TestActionManager)
#include "tst_actionmanager.moc"
