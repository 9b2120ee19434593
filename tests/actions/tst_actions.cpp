// SPDX-License-Identifier: GPL-2.0-or-later
// The action registry and everybody dying in any order; shortcut lists, context-menu layouts and
// the menu configuration, in memory and on disk.
#include "tests/support/MessageLog.h"
#include <QSignalMapper>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/LayoutStorage.h>
#include <kelo_base/actions/MenuConfigManager.h>

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
    void filesUnderTheIdGivenAndLogsRefusals()
    {
        QAction action, other;
        QWidget owner, widget;
        ActionManager manager(&owner);
        manager.RegisterAction(-3, record(9, &action), &widget);
        manager.RegisterAction(2, record(9, &action));
        const ActionData original{5, 1, 2, 3, false, &other, true, 4};
        manager.RegisterAction(MakeActionData(&original));
        const MessageLog log;
        manager.RegisterAction(2, record(1, &other));
        manager.RegisterAction(record(8, nullptr));
        manager.RegisterAction(MakeActionData(nullptr));
        QCOMPARE(log.lines().join(u'\n'),
                 u"ActionManager::RegisterAction : Duplicate id added! Id : 2\n"
                 "ActionManager::RegisterAction : <nullptr> added! Id : 8\n"
                 "ActionManager::RegisterAction : <nullptr> added! Id : -1"_s);
        QVERIFY(widget.actions() == QList{&action} && owner.actions() == QList({&action, &other}));
        QVERIFY(manager.GetActions().size() == 3 && !manager.FindActionDataById(9));
        QCOMPARE(manager.FindActionDataByAction(&action), manager.FindActionDataById(2));
        const ActionData *copy = manager.FindActionDataById(5);
        QVERIFY(copy->valid && copy->contextMask == 3 && copy->flag && copy->extra == 4);
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
            const int groups = sparse(), subs = sparse(), mask = sparse();
            std::vector<ActionData *> offered;
            for (const auto &[id, data] : manager.GetActions()) {
                const int own = data->contextId;
                if ((!meet(own, own, 16) || meet(own, groups, 16)) &&
                    (!meet(own, own, 0) || meet(own, subs, 0)) && (mask & data->contextMask))
                    offered.push_back(data);
            }
            const std::unique_ptr<FunctionFilter> filter(
                MakeContextFunctionFilter(groups, subs, mask));
            QCOMPARE(manager.FindActionDataByFilter(*filter), offered);
        }
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
            action->trigger();
            QCOMPARE(reports, 1);
            delete manager;
            delete action;
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(!mapper);
        };
        check([](auto, auto *action) { delete action; });
        check([](auto *manager, auto) { delete manager; });
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
        manager.AssignKeyboardShortcutList(list);
        ContextMenuLayout layout;
        layout.SetNumberOfSlots(2);
        layout.ClearSlot(1);
        manager.AssignContextMenuLayout(layout);
        MenuConfigManager(manager).SaveToStorage(); // the copy has no store
        QVERIFY(store->allKeys().isEmpty());
        manager.SaveToStorage();
        store->sync();
        QFile file(path); // K/ and L/ stand for the two arrays
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll()
                     .replace("W\\KeyboardShortcuts\\ShortcutList\\", "K/")
                     .replace("W\\ContextMenuLayout\\Menus\\", "L/"),
                 "[MenuConfig]\nL/1\\ActionId=0\nL/2\\ActionId=-1\nL/size=2\n"
                 "K/1\\ActionId=3\nK/1\\KeySequence=\"Ctrl+K, Ctrl+,\"\n"
                 "K/2\\ActionId=12\nK/2\\KeySequence=F5\nK/size=2\n");
        manager = MenuConfigManager(); // keeps its store
        QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"of 0"_s);
        manager.SetConfigName(u"W"_s);
        manager.LoadFromStorage();
        QCOMPARE(shown(manager.GetKeyboardShortcutList()), shown(list));
        QCOMPARE(manager.GetContextMenuLayout(), layout);
        store.reset();
        manager.SaveToStorage(); // does nothing any more
    }

    void reservesSequencesAndLoadsDefaults()
    {
        QCoreApplication::setApplicationName(u"tst-viewer"_s);
        const QDir programDir(QCoreApplication::applicationDirPath());
        const QString defaults = programDir.filePath(u"config/tst-viewer-menu.ini"_s);
        QVERIFY(programDir.mkpath(u"config"_s));
        writeFile(defaults, "[MenuConfig]\nDefault\\ContextMenuLayout\\Menus\\size=1\n");
        MenuConfigManager manager;
        manager.Initialize();
        manager.Initialize(); // once more adds nothing
        QVERIFY(QFile::remove(defaults));
        QCOMPARE(shown(manager.GetContextMenuLayout()), u"-1 of 1"_s);
        QString text;
        const auto &all = manager.GetReservedSequenceList().GetSequences();
        for (auto sequence = all.end() - 18; sequence != all.end(); ++sequence)
            text += sequence->toString() + u' ';
        QCOMPARE(text, u"Esc Up Down Left Right < > Ctrl+W Shift+S Shift+F Shift+A Shift+1 Shift+2 "
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
        SetupActionManagerFromKeyboardShortcutList(ActionShortCutList(), manager);
        QVERIFY(zoom.shortcut().isEmpty());
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestActions)
#include "tst_actions.moc"
