// SPDX-License-Identifier: GPL-2.0-or-later
// The action registry and everybody dying in any order; shortcut lists, context-menu layouts and
// the menu configuration, in memory and on disk.
#include "tests/support/MessageLog.h"
#include "tests/support/TemporaryHome.h"
#include <QSignalMapper>
#include <QtTest>
#include <algorithm>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/LayoutStorage.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/actions/MenuConfigService.h>
#include <kelo_base/core/History.h>

using namespace Qt::Literals::StringLiterals;

namespace {

ActionData *record(int id, QAction *action)
{
    return MakeActionData(id, 1, 0, action, false, 0);
}

/// For example "3=Shift+A 5=Ctrl+5 of 3": what is assigned, and how many entries there are.
QString shown(const ActionShortCutList &list)
{
    std::vector<int> ids;
    list.GetActionIds(ids);
    QString text;
    for (const int id : ids)
        text += u"%1=%2 "_s.arg(id).arg(list.GetSequenceById(id).toString());
    return text + u"of %1"_s.arg(list.NumberOfAssignments());
}

/// For example "5 -1 of 2"; of a long layout the beginning.
QString shown(const ContextMenuLayout &layout)
{
    QString text;
    for (unsigned slot = 0; slot < std::min(layout.NumberOfSlots(), 3U); ++slot)
        text += u"%1 "_s.arg(layout.GetAssignedActionId(slot));
    return text + u"of %1"_s.arg(layout.NumberOfSlots());
}

ActionShortCutList shortcut(int id, Qt::Key key)
{
    ActionShortCutList list;
    list.AssignKeySequence(id, QKeySequence(key));
    return list;
}

/// Where the program of this name, which now runs, ships its defaults.
QString defaultsOf(const QString &program)
{
    QCoreApplication::setApplicationName(program);
    const QDir folder(QCoreApplication::applicationDirPath());
    folder.mkpath(u"config"_s);
    return folder.filePath(u"config/%1-menu.ini"_s.arg(program));
}

void writeFile(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

} // namespace

class TestActions : public QObject
{
    Q_OBJECT

private slots:
    /// What was changed in one run is there in the next.
    void startsAndStopsWithTheApplication()
    {
        const TemporaryHome home;
        const QKeySequence changed(u"Ctrl+J"_s);
        for (const bool isFirst : {true, false}) {
            QAction action;
            action.setShortcut(QKeySequence(u"Ctrl+L"_s));
            ActionManager actions;
            actions.RegisterAction(7, record(1, &action));
            MenuConfigManager configuration;
            CoreFacadeI &core = CoreFacadeI::Instance();
            core.Join(MenuConfigService(configuration, actions));
            QVERIFY(core.Start());
            QCOMPARE(action.shortcut(), isFirst ? QKeySequence(u"Ctrl+L"_s) : changed);
            QCOMPARE(configuration.GetPlainConfigName(), isFirst ? u"Default"_s : u"Work"_s);
            configuration.SetConfigName(u"Work"_s);
            WriteHistoryToFile(*configuration.GetSettings(), u"MenuConfigDialog"_s,
                               {u"Gone"_s, u"Work"_s});
            ActionShortCutList list = configuration.GetKeyboardShortcutList();
            list.AssignKeySequence(7, changed);
            configuration.AssignKeyboardShortcutList(list);
            CoreFacadeI::Destroy();
        }
    }

    void filesUnderTheIdGivenAndLogsRefusals()
    {
        QAction action, other;
        QWidget owner, widget;
        ActionManager manager(&owner);
        QList<int> registered;
        connect(&manager, &ActionManager::actionRegistered, this, [&](int id) {
            QVERIFY(manager.FindActionDataById(id));
            registered << id;
        });
        manager.RegisterAction(-3, record(9, &action), &widget);
        ActionData *twice = record(9, &action);
        manager.RegisterAction(2, twice);
        const ActionData original{5, 1, 2, 3, false, &other, true, 4};
        manager.RegisterAction(MakeActionData(&original));
        const MessageLog log;
        manager.RegisterAction(2, record(1, &other));
        manager.RegisterAction(record(8, nullptr));
        manager.RegisterAction(MakeActionData(nullptr));
        manager.RegisterAction(7, twice);
        manager.RegisterAction(2, twice); // and it lives on
        QCOMPARE(log.lines().join(u'\n'),
                 u"ActionManager::RegisterAction : Duplicate id added! Id : 2\n"
                 "ActionManager::RegisterAction : <nullptr> added! Id : 8\n"
                 "ActionManager::RegisterAction : <nullptr> added! Id : -1\n"
                 "ActionManager::RegisterAction : Record is registered already! Id : 7\n"
                 "ActionManager::RegisterAction : Record is registered already! Id : 2"_s);
        QCOMPARE(registered, QList({-3, 2, 5}));
        QVERIFY(widget.actions() == QList{&action} && owner.actions() == QList({&action, &other}));
        QVERIFY(manager.GetActions().size() == 3 && !manager.FindActionDataById(9));
        QCOMPARE(manager.FindActionDataByAction(&action), manager.FindActionDataById(2));
        QVERIFY(manager.FindIdByAction(&action) == 2 && manager.FindIdByAction(nullptr) == -1);
        QCOMPARE(manager.FindIdOfActionData(manager.FindActionDataById(-3)), -3);
        QCOMPARE(manager.FindIdOfActionData(&original), -1);
        QAction late;
        manager.RegisterAction(6, record(1, &late)); // after questions that were answered
        QCOMPARE(manager.FindIdByAction(&late), 6);
        const ActionData *copy = manager.FindActionDataById(5);
        QVERIFY(copy->valid && copy->contextMask == 3 && copy->flag && copy->extra == 4);

        QCOMPARE(manager.GetCategoryDescription(1), u"Unknown Category"_s);
        manager.SetCategoryDescription(1, u"Map"_s);
        manager.RegisterIconResource(5, u":/icons/zoom.in.png"_s);
        QVERIFY(manager.GetCategoryDescription(1) == u"Map" &&
                manager.GetLargeIconResource(2) == u"");
        QCOMPARE(manager.GetLargeIconResource(5), u":/flw_32x32/flw_32x32/zoom.in.png"_s);
    }

    void contextFilterAgreesWithTableOfBits()
    {
        QRandomGenerator random(31);
        const auto sparse = [&] { // few bits set
            const quint32 half = random();
            return static_cast<int>(half & random());
        };
        const auto meet = [](int a, int b, int at) { return ((a & b) >> at & 0xFFFF) != 0; };
        QAction action;
        ActionManager manager;
        for (int id = 200; id > 0; --id) {
            const int context = sparse() & std::array{0, 0xFFFF, ~0xFFFF, ~0}[size_t(id % 4)];
            manager.RegisterAction(MakeActionData(id, 0, context, sparse(), &action, false, 0));
        }
        for (int round = 0; round < 200; ++round) {
            const int main = sparse(), sub = sparse(), mask = sparse();
            std::vector<ActionData *> offered;
            for (const auto &[id, data] : manager.GetActions()) {
                const int own = data->contextId;
                data->valid = random.bounded(9) > 0;
                if (data->valid && (!meet(own, own, 16) || meet(own, main, 16)) &&
                    (!meet(own, own, 0) || meet(own, sub, 0)) && (mask & data->contextMask))
                    offered.push_back(data);
            }
            const std::unique_ptr<FunctionFilter> filter(
                MakeContextFunctionFilter(main, sub, mask));
            QCOMPARE(manager.FindActionDataByFilter(*filter), offered);
        }
    }

    void validatesInOrder()
    {
        struct Odd : ActionValidator
        {
            bool operator()(ActionData *data) const override
            {
                order << data->id;
                return data->id % 2 == 1;
            }
            mutable QList<int> order;
        } validator;
        QAction action;
        ActionManager manager;
        for (const int id : {3, 2, 1})
            manager.RegisterAction(record(id, &action));
        manager.ValidateRegisteredActions(validator);
        QCOMPARE(validator.order, QList({1, 2, 3}));
        QVERIFY(manager.FindActionDataById(3)->valid && !manager.FindActionDataById(2)->valid);
    }

    /// Callbacks that register, ask again, and in the end destroy the registry.
    void survivesWhatCallbacksDo()
    {
        struct Busy : FunctionFilter, ActionValidator
        {
            bool accept(const ActionData &) const override { return act(); }
            bool operator()(ActionData *) const override { return act(); }
            bool act() const
            {
                if (const int id = 100 + --left; left > 0) {
                    manager->RegisterAction(record(id, action));
                    return manager->FindActionDataByAction(action);
                }
                delete manager;
                return true;
            }
            QAction *action;
            ActionManager *manager = new ActionManager;
            mutable int left = 4;
        };
        QAction action;
        for (const bool isFilter : {true, false}) {
            Busy busy;
            busy.action = &action;
            const QPointer<ActionManager> alive(busy.manager);
            for (int id = 0; id < 5; ++id)
                busy.manager->RegisterAction(record(id, &action));
            if (isFilter)
                QVERIFY(busy.manager->FindActionDataByFilter(busy).empty());
            else
                busy.manager->ValidateRegisteredActions(busy);
            QVERIFY(!alive);
        }
    }

    void reportsOnRequestAndForSuccessors()
    {
        ActionManager manager;
        QStringList reports;
        connect(&manager, &ActionManager::beforeActionTrigger, this,
                [&](QAction &action) { reports << u"before "_s + action.text(); });
        connect(&manager, &ActionManager::afterActionTriggered, this,
                [&](QAction &action) { reports << u"after "_s + action.text(); });
        std::optional<QAction> action; // each in the place of the one before
        for (const int id : {1, 2}) {
            manager.RegisterAction(record(id, &action.emplace(QString::number(id))));
            action->trigger();
        }
        manager.SignalBeforeActionTrigger(*action);
        manager.SignalAfterActionTriggered(*action);
        QCOMPARE(reports.join(u", "_s), u"after 1, after 2, before 2, after 2"_s);
    }

    void survivesWidgetsThatRefuse()
    {
        struct Refusing : QWidget
        {
            void actionEvent(QActionEvent *event) override
            {
                if (event->type() == QEvent::ActionAdded)
                    delete event->action();
            }
        } widget;
        ActionManager manager;
        manager.RegisterAction(record(1, new QAction), &widget);
        QCOMPARE(manager.FindActionDataById(1)->action, nullptr);
    }

    void survivesWhatListenersDo()
    {
        const auto check = [this](auto deed) {
            QPointer<QAction> action(new QAction);
            QPointer<ActionManager> manager(new ActionManager);
            for (const int id : {1, 2}) // under two ids, and still one report
                manager->RegisterAction(record(id, action));
            const QPointer<QSignalMapper> mapper(manager->findChild<QSignalMapper *>());
            int reports = 0;
            connect(manager, &ActionManager::afterActionTriggered, this, [&](QAction &triggered) {
                reports += &triggered == action;
                deed(manager.data(), &triggered);
                QVERIFY(mapper); // its signal has not returned
            });
            connect(manager, &ActionManager::afterActionTriggered, this, [&](QAction &triggered) {
                QVERIFY(action ? &triggered == action : triggered.text().isEmpty());
            });
            action->trigger();
            QCOMPARE(reports, 1);
            delete manager;
            delete action;
            QVERIFY(!mapper);
        };
        check([](auto, auto) {});
        check([](auto, auto *action) { delete action; });
        check([](auto *manager, auto) {
            delete manager;
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        });
        check([](auto *manager, auto *action) { // destroys it in a report within a report
            if (action->isCheckable())
                return delete manager;
            QAction inner;
            inner.setCheckable(true);
            manager->RegisterAction(record(5, &inner));
            inner.trigger();
        });
    }

    void survivesDeathsInAnyOrder()
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
                const auto found = manager->FindActionDataByFilter(FilterByContextId(0, 0, -1));
                QCOMPARE(found.size(), action ? 1U : 0U);
                QAction late;
                manager->RegisterAction(record(10 + who, &late));
                QCOMPARE(late.associatedObjects().size(), owner ? 1 : 0);
            }
        } while (std::next_permutation(order.begin(), order.end()));
    }

    void listsAgreeWithPlainMaps()
    {
        QRandomGenerator random(32);
        ActionShortCutList list;
        ContextMenuLayout layout;
        std::map<int, QKeySequence> entries;
        std::map<unsigned, int> filled; // a slot not assigned since it came holds 0
        for (unsigned round = 0, size = 0; round < 3000; ++round) {
            const int id = random.bounded(20);
            const unsigned slot = random.bounded(12U);
            const QKeySequence key(random.bounded(4) ? Qt::Key_A + random.bounded(9) : 0);
            if (round % 9 == 0) {
                list.RemoveKeySequence(id);
                entries.erase(id);
                layout.SetNumberOfSlots(size = slot);
                filled.erase(filled.lower_bound(size), filled.end());
            } else {
                list.AssignKeySequence(id, entries[id] = key);
                layout.AssignActionIdToSlot(slot, id - 1);
                if (slot < size)
                    filled[slot] = id - 1;
            }
            QString assigned;
            int first = -1;
            for (const auto &[number, value] : entries) {
                assigned += value.isEmpty() ? u""_s : u"%1=%2 "_s.arg(number).arg(value.toString());
                first = first == -1 && value == key ? number : first;
            }
            QCOMPARE(shown(list), assigned + u"of %1"_s.arg(entries.size()));
            QCOMPARE(list.FindActionIdForSequence(key), first);
            const auto own = entries.find(id);
            QCOMPARE(list.HasSequenceAssigned(id), own != entries.end() && !own->second.isEmpty());
            const int held = slot >= size ? -1 : filled.count(slot) ? filled[slot] : 0;
            QCOMPARE(layout.GetAssignedActionId(slot), held);
        }
    }

    void readsWhateverFilesHold()
    {
        /// keys: of both groups, A being their array, I an id, S a sequence
        const auto check = [this](QByteArray keys, const char *shownList, const char *shownLayout) {
            const QString path = m_dir.filePath(QString::number(qHash(keys))); // none is read twice
            keys.replace("I=", "ActionId=").replace("S=", "KeySequence=");
            const QByteArray menus = QByteArray(keys).replace("A/", "Menus\\");
            keys.replace("A/", "ShortcutList\\");
            writeFile(path, "[P/KeyboardShortcuts]\n" + keys + "\n[P/ContextMenuLayout]\n" + menus);
            ActionShortCutList list = shortcut(9, Qt::Key_9);
            ContextMenuLayout layout;
            layout.SetNumberOfSlots(1);
            QSettings settings(path, QSettings::IniFormat);
            QCOMPARE(ReadShortcutList(settings, "P", list), *shownLayout != '0');
            QCOMPARE(ReadContextMenuLayout(settings, "P", layout), *shownLayout != '0');
            QCOMPARE(shown(list), QLatin1StringView(shownList));
            QCOMPARE(shown(layout), QLatin1StringView(shownLayout));
        };
        check("", "9=9 of 1", "0 of 1"); // nothing was ever stored
        check("other=1", "of 0", "of 0");
        check("A/size=-4\nA/1/I=5", "of 0", "of 0");
        check("A/size=2000000000\nA/2/I=5\nA/2/S=F5", "5=F5 of 1", "-1 5 of 2");
        check("A/size=20000\nA/1400/I=5", "of 1", "-1 -1 -1 of 1000");
        check("A/size=0\nClearedList/size=1\nClearedList/1/I=5", "of 1", "of 0");
        check("A/size=1\nA/1/I=5\nA/1/S=F5\nClearedList/size=1\nClearedList/1/I=5", "5=F5 of 1",
              "5 of 1");
        check("A/size=4\nA/2/I=8x\nA/3/I=4,4\nA/4/I=99999999999", "of 0", "-1 -1 -1 of 4");
        check("A/size=2\nA/1/I=5\nA/1/S=F5\nA/2/I=5\nA/2/S=F6", "5=F6 of 1", "5 5 of 2");
        check("A/size=2\nA/1/I=1\nA/2/I=2\nA/2/S=\"Ctrl+K, Foo\"", "of 2", "1 2 of 2");
        // A comma that nobody quoted.
        check("A/size=1\nA/1/I=3\nA/1/S=Ctrl+,, Ctrl+K", "3=Ctrl+,, Ctrl+K of 1", "3 of 1");
    }

    void writesWhatOtherProgramsRead()
    {
        const QString path = m_dir.filePath(u"store"_s);
        auto store = std::make_unique<QSettings>(path, QSettings::IniFormat);
        MenuConfigManager manager;
        manager.SetSettings(store.get());
        manager.SetConfigName(u"W"_s);
        ActionShortCutList list = shortcut(12, Qt::Key_F5);
        list.AssignKeySequence(3, QKeySequence(Qt::CTRL | Qt::Key_K, Qt::CTRL | Qt::Key_Comma));
        list.ClearKeySequence(5);
        manager.AssignKeyboardShortcutList(list);
        ContextMenuLayout layout;
        layout.SetNumberOfSlots(2);
        layout.ClearSlot(1);
        manager.AssignContextMenuLayout(layout);
        MenuConfigManager(manager).SaveToStorage(); // the copy has no store
        QVERIFY(store->allKeys().isEmpty());
        manager.SaveToStorage();
        store->sync();
        QFile file(path); // K/, C/ and L/ stand for the arrays
        QVERIFY(file.open(QIODevice::ReadOnly));
        QByteArrayList lines = file.readAll()
                                   .replace("W\\KeyboardShortcuts\\ShortcutList\\", "K/")
                                   .replace("W\\KeyboardShortcuts\\ClearedList\\", "C/")
                                   .replace("W\\ContextMenuLayout\\Menus\\", "L/")
                                   .replace("\r\n", "\n")
                                   .split('\n');
        std::ranges::sort(lines); // each system has an order, and line ends, of its own
        QCOMPARE(lines.join('\n'), "\nC/1\\ActionId=5\nC/size=1\n"
                                   "K/1\\ActionId=3\nK/1\\KeySequence=\"Ctrl+K, Ctrl+,\"\n"
                                   "K/2\\ActionId=12\nK/2\\KeySequence=F5\nK/size=2\n"
                                   "L/1\\ActionId=0\nL/2\\ActionId=-1\nL/size=2\n[MenuConfig]");
        manager = MenuConfigManager(); // keeps its store
        QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"of 0"_s);
        manager.SetConfigName(u"W"_s);
        manager.LoadFromStorage();
        QCOMPARE(shown(manager.GetKeyboardShortcutList()), shown(list));
        QCOMPARE(manager.GetContextMenuLayout(), layout);
        list.RemoveKeySequence(5); // leaves no stale element behind
        manager.AssignKeyboardShortcutList(list);
        manager.SaveToStorage();
        QVERIFY(store->allKeys().filter(u"ClearedList"_s).isEmpty());
        MenuConfigManager ended;
        ended.SetSettings(store.get());
        ended.Shutdown();
        ended.SaveToStorage();
        QCOMPARE(ended.GetConfigName(), u"MenuConfig/Default"_s);
        QVERIFY(store->allKeys().filter(u"Default"_s).isEmpty());
        store.reset();
        manager.SaveToStorage(); // does nothing any more
    }

    void reservesSequencesAndLoadsDefaults()
    {
        const QString defaults = defaultsOf(u"tst-viewer"_s);
        writeFile(defaults, "[MenuConfig]\nDefault\\ContextMenuLayout\\Menus\\size=1\n");
        MenuConfigManager manager;
        manager.Initialize();
        manager.Initialize(); // once more adds nothing
        MenuConfigManager other;
        ActionManager none;
        other.SetUpActions(none);
        QVERIFY(QFile::remove(defaults));
        QCOMPARE(shown(manager.GetContextMenuLayout()), u"-1 of 1"_s);
        QCOMPARE(shown(other.GetContextMenuLayout()), u"-1 of 1"_s);
        QVERIFY(other.GetReservedSequenceList().HasSequence(QKeySequence(Qt::Key_F5)));
        QVERIFY(!other.GetReservedSequenceList().HasSequence(QKeySequence(Qt::Key_F6)));
        QString text;
        for (const QKeySequence &sequence : manager.GetReservedSequenceList().GetSequences())
            text += sequence.toString() + u' ';
        QCOMPARE(
            text,
            u"Ctrl+N Ctrl+O Ctrl+S Ctrl+F4 Ctrl+F F3 F1 Ctrl+X Ctrl+C Ctrl+V Del Ctrl+Z Ctrl+Y "
            "Ctrl+H Ctrl+B Ctrl+I F5 Esc Up Down Left Right < > Ctrl+W Shift+S Shift+F Shift+A "
            "Shift+1 Shift+2 "
            "Ctrl+1 Ctrl+2 Ctrl+3 Ctrl+4 Ctrl+5 "_s);
    }

    void carriesShortcutsToActionsAndBack()
    {
        QAction zoom, pan, *doomed = new QAction;
        ActionManager manager;
        manager.RegisterAction(-2, record(1, &zoom));
        manager.RegisterAction(2, record(1, &pan));
        manager.RegisterAction(4, record(4, doomed));
        pan.setShortcut(QKeySequence(Qt::Key_P));
        ActionShortCutList list = shortcut(-2, Qt::Key_Z);
        list.AssignKeySequence(2, QKeySequence(Qt::Key_X));
        list.AssignKeySequence(4, QKeySequence(Qt::Key_D));
        SetupKeyboardShortcutListFromActionManager(manager, list);
        QCOMPARE(shown(list), u"-2=Z 2=P 4=D of 3"_s);

        list.ClearKeySequence(2);
        connect(doomed, &QAction::changed, this, [&] { delete doomed; });
        SetupActionManagerFromKeyboardShortcutList(list, manager);
        QVERIFY(zoom.shortcut() == Qt::Key_Z && zoom.shortcutContext() == Qt::ApplicationShortcut);
        QVERIFY(pan.shortcut().isEmpty() && pan.shortcutContext() == Qt::WindowShortcut);
        list.RemoveKeySequence(4);
        SetupKeyboardShortcutListFromActionManager(manager, list);
        QCOMPARE(shown(list), u"-2=Z of 2"_s);
        auto *mortal = new ActionManager;
        mortal->RegisterAction(record(1, &pan));
        mortal->RegisterAction(record(2, &zoom));
        connect(&pan, &QAction::changed, mortal, [&] { delete mortal; });
        SetupActionManagerFromKeyboardShortcutList(shortcut(1, Qt::Key_P), *mortal);
        QVERIFY(pan.shortcut().isEmpty() && zoom.shortcut() == Qt::Key_Z); // it died at once
        SetupActionManagerFromKeyboardShortcutList(ActionShortCutList(), manager);
        QVERIFY(zoom.shortcut().isEmpty());
    }

    /// Each start with actions of its own, as a new process; "Ctrl+K" is the default of action 1.
    void startsWithoutLosingShortcuts()
    {
        const QString defaults = defaultsOf(u"tst-start"_s);
        QSettings store(m_dir.filePath(u"start"_s), QSettings::IniFormat);
        /// Gives "id=keys" of the actions after the start, and then does what the user does.
        const auto start = [&](const QString &shipped, auto user) {
            std::map<int, QAction> actions;
            ActionManager registry;
            for (const QString &entry : shipped.split(u" | "_s)) {
                const int id = entry.section(u'=', 0, 0).toInt();
                actions[id].setShortcut(QKeySequence(entry.section(u'=', 1)));
                registry.RegisterAction(record(id, &actions[id]));
            }
            MenuConfigManager manager;
            manager.SetSettings(&store);
            manager.SetUpActions(registry);
            manager.SetUpActions(registry); // once more learns nothing from the user's keys
            QString text;
            for (const auto &[id, action] : actions)
                text += u"%1=%2 "_s.arg(id).arg(action.shortcut().toString());
            ActionShortCutList list = manager.GetKeyboardShortcutList();
            user(list);
            manager.AssignKeyboardShortcutList(list);
            manager.SaveToStorage();
            return text + shown(manager.GetDefaultKeyboardShortcutList());
        };
        const auto leaveAll = [](ActionShortCutList &) {};
        QCOMPARE(start(u"1=Ctrl+K | 2=F2 | 3="_s, leaveAll),
                 u"1=Ctrl+K 2=F2 3= 1=Ctrl+K 2=F2 of 3"_s);
        QCOMPARE(start(u"1=Ctrl+K | 2=F2 | 3="_s,
                       [](ActionShortCutList &list) {
                           list.ClearKeySequence(2);
                           list.AssignKeySequence(3, QKeySequence(u"Ctrl+L, X"_s));
                           list.AssignKeySequence(9, QKeySequence(Qt::Key_F9)); // not registered
                       }),
                 u"1=Ctrl+K 2=F2 3= 1=Ctrl+K 2=F2 of 3"_s);
        // New ones: 4 may share a shipped default, 5 and 6 may not touch the user's own keys, 7 and
        // 8 can have what nobody has any more.
        QCOMPARE(
            start(u"1=Ctrl+K | 2=F2 | 3= | 4=Ctrl+K | 5=Ctrl+L | 6=Ctrl+L, X, Y | 7=F2 | 8=F9"_s,
                  [](ActionShortCutList &list) { list.RemoveKeySequence(3); }),
            u"1=Ctrl+K 2= 3=Ctrl+L, X 4=Ctrl+K 5= 6= 7=F2 8=F9 "
            "1=Ctrl+K 2=F2 4=Ctrl+K 5=Ctrl+L 6=Ctrl+L, X, Y 7=F2 8=F9 of 8"_s);
        writeFile(defaults, "[MenuConfig]\nDefault\\ContextMenuLayout\\Menus\\size=1\n"
                            "Default\\KeyboardShortcuts\\ClearedList\\size=1\n"
                            "Default\\KeyboardShortcuts\\ClearedList\\1\\ActionId=10\n"
                            "Default\\KeyboardShortcuts\\ShortcutList\\size=1\n"
                            "Default\\KeyboardShortcuts\\ShortcutList\\1\\ActionId=6\n"
                            "Default\\KeyboardShortcuts\\ShortcutList\\1\\KeySequence=F6\n");
        QCOMPARE(start(u"5=Ctrl+L | 6= | 10=F7"_s, leaveAll), // the keys are free again
                 u"5=Ctrl+L 6=F6 10= 5=Ctrl+L 6=F6 of 3"_s);
        QVERIFY(QFile::remove(defaults));
    }

    void tellsWhatIsDifferent()
    {
        using M = MenuConfigManager;
        using enum M::Part;
        M manager, other;
        QList<M::Parts> notices;
        connect(&manager, &M::changed, this, [&](M::Parts parts) { notices << parts; });
        /// Each list is one of its own.
        const auto check = [&](auto assign, auto get, auto list, M::Part part) {
            (other.*assign)(list);
            (manager.*assign)(list);
            (manager.*assign)((manager.*get)()); // its own list: no difference
            QCOMPARE((manager.*get)(), list);
            QCOMPARE(notices, QList<M::Parts>{part});
            notices.clear();
        };
        KeySequenceList reserved, taken;
        reserved.AddSequence(QKeySequence(Qt::Key_R));
        taken.AddSequence(QKeySequence(Qt::Key_T));
        ContextMenuLayout one, two;
        one.SetNumberOfSlots(1);
        two.SetNumberOfSlots(2);
        check(&M::AssignKeyboardShortcutList, &M::GetKeyboardShortcutList, shortcut(1, Qt::Key_A),
              Shortcuts);
        check(&M::AssignDefaultKeyboardShortcutList, &M::GetDefaultKeyboardShortcutList,
              shortcut(2, Qt::Key_B), Defaults);
        check(&M::AssignReservedSequenceList, &M::GetReservedSequenceList, reserved,
              TakenSequences);
        check(&M::AssignBookmarkSequenceList, &M::GetBookmarkSequenceList, taken, TakenSequences);
        check(&M::AssignContextMenuLayout, &M::GetContextMenuLayout, one, ContextMenu);
        check(&M::AssignDefaultContextMenuLayout, &M::GetDefaultContextMenuLayout, two, Defaults);
        other.AssignDefaultContextMenuLayout(one);
        manager = other;
        QCOMPARE(notices.takeLast(), Defaults);
        other.SetConfigName(u"Other"_s);
        manager = other;
        QCOMPARE(manager.GetConfigName(), u"MenuConfig/Other"_s);
        QVERIFY(notices == QList<M::Parts>{ConfigName} &&
                manager.GetBookmarkSequenceList() == taken);
        manager.Shutdown();
        QCOMPARE(notices.last().toInt(), 31); // all but what is stored
    }

    void managesNamedConfigurations()
    {
        QVERIFY(MenuConfigManager::IsConfigName(u"Standard 2 – Büro"_s));
        for (const QString &name : {u""_s, u"a/b"_s, u"a\\b"_s, u" a"_s, u"a\n"_s})
            QVERIFY(!MenuConfigManager::IsConfigName(name));
        QSettings store(m_dir.filePath(u"named"_s), QSettings::IniFormat);
        store.setValue(u"MenuConfig/Foreign/key"_s, 1);
        MenuConfigManager manager;
        QVERIFY(manager.GetConfigNames().isEmpty() && !manager.RemoveConfig(u"Default"_s));
        manager.SetSettings(&store);
        int notices = 0;
        connect(&manager, &MenuConfigManager::changed, this, [&](MenuConfigManager::Parts parts) {
            notices += parts.testFlag(MenuConfigManager::Part::StoredConfigurations);
        });
        manager.AssignKeyboardShortcutList(shortcut(1, Qt::Key_A));
        manager.SaveToStorage();
        manager.SaveToStorage(); // no news
        QVERIFY(manager.CopyConfig(u"Default"_s, u"Plan 10"_s));
        QVERIFY(manager.CopyConfig(u"Plan 10"_s, u"Plan 9"_s));
        QCOMPARE(notices, 3);
        for (const QString &to : {u"plan 9"_s, u"Default"_s, u"a/b"_s}) // taken, or no name
            QVERIFY(!manager.CopyConfig(u"Default"_s, to) &&
                    !manager.RenameConfig(u"Default"_s, to));
        for (const QString &from : {u"Foreign"_s, u"None"_s})
            QVERIFY(!manager.CopyConfig(from, u"New"_s) && !manager.RenameConfig(from, u"New"_s));
        QVERIFY(manager.RenameConfig(u"Plan 9"_s, u"PLAN 9"_s)); // the case alone
        QCOMPARE(manager.GetPlainConfigName(), u"Default"_s);
        QVERIFY(manager.RenameConfig(u"Default"_s, u"Work"_s));
        QCOMPARE(manager.GetPlainConfigName(), u"Work"_s);
        QCOMPARE(manager.GetConfigNames(), QStringList({u"PLAN 9"_s, u"Plan 10"_s, u"Work"_s}));
        QVERIFY(manager.RemoveConfig(u"Plan 10"_s) && notices == 6);
        QCOMPARE(manager.GetConfigNames(), QStringList({u"PLAN 9"_s, u"Work"_s}));
        QVERIFY(store.contains(u"MenuConfig/Foreign/key"_s));
        manager.SetConfigName(u"PLAN 9"_s);
        manager.AssignKeyboardShortcutList({});
        manager.LoadFromStorage();
        QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"1=A of 1"_s);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestActions)
#include "tst_actions.moc"
