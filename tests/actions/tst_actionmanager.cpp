// SPDX-License-Identifier: GPL-2.0-or-later
// The action registry: refusals, filters, trigger reports, and everybody dying in any order.
#include "tests/support/MessageLog.h"
#include <QSignalMapper>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/FunctionFilter.h>

using namespace Qt::Literals::StringLiterals;

class TestActionManager : public QObject
{
    Q_OBJECT

private slots:
    void refusesNullActionsAndTakenIds();
    void filesUnderTheIdGiven();
    void contextFilterAgreesWithTableOfBits();
    void survivesWhatListenersDo_data();
    void survivesWhatListenersDo();
    void survivesDeathsInAnyOrder();
};

namespace {

ActionData *record(int id, QAction *action)
{
    return MakeActionData(id, 1, 0, action, false, 0);
}

} // namespace

void TestActionManager::refusesNullActionsAndTakenIds()
{
    QAction action;
    ActionManager manager;
    manager.RegisterAction(7, record(7, &action), nullptr);
    const MessageLog log;
    manager.RegisterAction(7, record(1, &action));
    manager.RegisterAction(record(8, nullptr));
    manager.RegisterAction(MakeActionData(nullptr));
    const QString name = u"ActionManager::RegisterAction "_s;
    QCOMPARE(log.lines(), QStringList({name + u": Duplicate id added! Id : 7"_s,
                                       name + u": <nullptr> added! Id : 8"_s,
                                       name + u": <nullptr> added! Id : -1"_s}));
    QCOMPARE(manager.GetActions().size(), 1U);
    QCOMPARE(manager.FindActionDataById(7)->id, 7);
}

void TestActionManager::filesUnderTheIdGiven()
{
    QAction action, other;
    QWidget owner, widget;
    ActionManager manager(&owner);
    manager.RegisterAction(-3, record(9, &action), &widget);
    manager.RegisterAction(2, record(9, &action));
    const ActionData original{5, 1, 2, 3, false, &other, true, 4};
    manager.RegisterAction(MakeActionData(&original));
    QCOMPARE(widget.actions(), {&action});
    QCOMPARE(owner.actions(), QList({&action, &other}));
    QCOMPARE(manager.FindActionDataById(9), nullptr);
    QCOMPARE(manager.FindActionDataByAction(&action), manager.FindActionDataById(2));
    const ActionData *copy = manager.FindActionDataById(5);
    QVERIFY(copy->valid && copy->contextMask == 3 && copy->flag && copy->extra == 4);
    struct HasFlag final : ActionValidator
    {
        bool operator()(ActionData *data) const override { return data->flag; }
    };
    manager.ValidateRegisteredActions(HasFlag());
    QVERIFY(!manager.FindActionDataById(-3)->valid && copy->valid);

    manager.SetCategoryDescription(1, u"Views"_s);
    QCOMPARE(manager.GetCategoryDescription(1), u"Views"_s);
    QCOMPARE(manager.GetCategoryDescription(0), u"Unknown Category"_s);
    manager.RegisterIconResource(4, u":/icons/zoom.in.png"_s);
    QCOMPARE(manager.GetLargeIconResource(4), u":/flw_32x32/flw_32x32/zoom.in.png"_s);
    QCOMPARE(manager.GetLargeIconResource(5), QString());
}

void TestActionManager::contextFilterAgreesWithTableOfBits()
{
    QRandomGenerator random(31);
    const auto sparse = [&] {
        return int(random.generate() & random.generate() & random.generate());
    };
    const auto shared = [](int a, int b, int from, int to) {
        int count = 0;
        for (int bit = from; bit < to; ++bit)
            count += (a >> bit & 1) && (b >> bit & 1);
        return count;
    };
    QAction action;
    ActionManager manager;
    for (int id = 200; id > 0; --id) {
        const int context = sparse() & std::array{0, 0xFFFF, ~0xFFFF, ~0}[size_t(id % 4)];
        manager.RegisterAction(MakeActionData(id, 0, context, sparse(), &action, false, 0));
    }
    for (int round = 0; round < 200; ++round) {
        const int groups = sparse(), subs = sparse(), mask = sparse();
        std::vector<ActionData *> offered;
        for (const auto &[id, data] : manager.GetActions()) {
            const int own = data->contextId;
            if ((!shared(own, own, 16, 32) || shared(own, groups, 16, 32)) &&
                (!shared(own, own, 0, 16) || shared(own, subs, 0, 16)) &&
                shared(mask, data->contextMask, 0, 32))
                offered.push_back(data);
        }
        const std::unique_ptr<FunctionFilter> filter(MakeContextFunctionFilter(groups, subs, mask));
        QCOMPARE(manager.FindActionDataByFilter(*filter), offered);
    }
}

using Deed = std::function<void(ActionManager *, QAction *)>;

void TestActionManager::survivesWhatListenersDo_data()
{
    QTest::addColumn<Deed>("deed");
    const auto row = [](const char *name, const Deed &deed) { QTest::newRow(name) << deed; };
    row("nothing", [](auto, auto) {});
    row("deletes the action", [](auto, auto *action) { delete action; });
    row("destroys the manager", [](auto *manager, auto) { delete manager; });
    row("registers others", [](auto *manager, auto) {
        for (int id = 100; id < 1000; ++id)
            manager->RegisterAction(record(id, new QAction(manager)));
    });
    row("destroys the manager in a report within a report", [](auto *manager, auto *action) {
        if (action->isCheckable())
            return delete manager;
        QAction inner;
        inner.setCheckable(true);
        manager->RegisterAction(record(5, &inner));
        inner.trigger();
    });
}

void TestActionManager::survivesWhatListenersDo()
{
    QFETCH(const Deed, deed);
    QPointer<QAction> action(new QAction);
    QPointer<ActionManager> manager(new ActionManager);
    for (const int id : {1, 2}) // under two ids, and still one report
        manager->RegisterAction(record(id, action));
    const QPointer<QSignalMapper> mapper(manager->findChild<QSignalMapper *>());
    int reports = 0, announcements = 0;
    connect(manager, &ActionManager::beforeActionTrigger, this, [&] { ++announcements; });
    connect(manager, &ActionManager::afterActionTriggered, this, [&](QAction &triggered) {
        reports += &triggered == action;
        deed(manager, &triggered);
        QVERIFY(mapper); // its signal has not returned
    });
    action->trigger();
    QCOMPARE(reports, 1);
    QCOMPARE(announcements, 0);
    if (manager) {
        delete manager;
        QVERIFY(!mapper); // no report is under way
    }
    delete action;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!mapper);
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
            QCOMPARE(manager->FindActionDataById(1)->action, action);
            QCOMPARE(manager->FindActionDataByAction(action) != nullptr, !action.isNull());
            const FilterByContextId filter(0, 0, -1);
            QCOMPARE(manager->FindActionDataByFilter(filter).size(), action ? 1U : 0U);
            QAction late;
            manager->RegisterAction(record(10 + who, &late));
            QCOMPARE(late.associatedObjects().size(), owner ? 1 : 0);
            QCOMPARE(manager->FindActionDataByAction(&late), manager->FindActionDataById(10 + who));
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

QTEST_MAIN(TestActionManager)
#include "tst_actionmanager.moc"
