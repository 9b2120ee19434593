// SPDX-License-Identifier: GPL-2.0-or-later
// Shortcut lists, context-menu layouts and the menu configuration, in memory and on disk.
#include <QAction>
#include <QApplication>
#include <QtTest>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/LayoutStorage.h>
#include <kelo_base/actions/MenuConfigManager.h>

using namespace Qt::Literals::StringLiterals;

class TestMenuConfig : public QObject
{
    Q_OBJECT

public:
    /// @param early  initialised before there was an application object
    explicit TestMenuConfig(const MenuConfigManager &early) : m_early(early) {}

private slots:
    void listsAgreeWithPlainMaps();
    void readsWhateverFilesHold_data();
    void readsWhateverFilesHold();
    void writesWhatOtherProgramsRead();
    void reservesSequencesAndLoadsDefaults();
    void worksOnCopiesAndWithoutStore();
    void carriesShortcutsToActionsAndBack();

private:
    MenuConfigManager m_early;
    QTemporaryDir m_dir;
};

namespace {

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

void TestMenuConfig::listsAgreeWithPlainMaps()
{
    QRandomGenerator random(32);
    ActionShortCutList list;
    ContextMenuLayout layout;
    std::map<int, QKeySequence> entries;
    std::map<unsigned, int> filled; // a slot not assigned since it came holds 0
    for (unsigned round = 0, size = 0; round < 3000; ++round) {
        const int id = random.bounded(20);
        const unsigned slot = random.bounded(12U);
        const QKeySequence key(random.bounded(4) ? Qt::Key_A + random.bounded(9) : 0); // 0: empty
        if (round % 9 == 0) {
            list.RemoveKeySequence(id);
            entries.erase(id);
            layout.SetNumberOfSlots(size = slot);
            filled.erase(filled.lower_bound(size), filled.end());
        } else {
            list.AssignKeySequence(id, key);
            entries[id] = key;
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
        QCOMPARE(list.HasSequenceAssigned(id), entries.count(id) && !entries[id].isEmpty());
        QCOMPARE(list.FindActionIdForSequence(key), first);
        const int held = slot >= size ? -1 : filled.count(slot) ? filled[slot] : 0;
        QCOMPARE(layout.NumberOfSlots(), size);
        QCOMPARE(layout.GetAssignedActionId(slot), held);
        QCOMPARE(layout.HasAssignedAction(slot), held != -1);
    }
}

void TestMenuConfig::readsWhateverFilesHold_data()
{
    QTest::addColumn<QByteArray>("group"); // the keys of both groups, A being their array
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("layout");
    const auto row = [](const char *name, const char *group, const char *list, const char *layout) {
        QTest::newRow(name) << QByteArray(group) << QString::fromLatin1(list)
                            << QString::fromLatin1(layout);
    };
    row("nothing leaves all as it was", "", "9=9 of 1", "9 of 1");
    row("a foreign key alone empties", "other=1", "of 0", "of 0");
    row("size 0 empties", "A/size=0", "of 0", "of 0");
    row("a negative size empties", "A/size=-4\nA/1/ActionId=5", "of 0", "of 0");
    row("a huge size is cut", "A/size=2000000000\nA/2/ActionId=5\nA/2/KeySequence=F5", "5=F5 of 1",
        "-1 5 -1 of 100000");
    row("ids that are missing, or no numbers",
        "A/size=5\nA/2/ActionId=8x\nA/3/ActionId=4,4\nA/4/ActionId=99999999999\nA/5/ActionId=0",
        "of 1", "-1 -1 -1 of 5");
    row("of two with one id the later holds",
        "A/size=2\nA/1/ActionId=5\nA/1/KeySequence=F5\nA/2/ActionId=5\nA/2/KeySequence=F6",
        "5=F6 of 1", "5 5 of 2");
    row("sequences that are missing or unreadable are empty",
        "A/size=3\nA/1/ActionId=1\nA/2/ActionId=2\nA/2/KeySequence=Ctrl+Foo\nA/3/ActionId=3\n"
        "A/3/KeySequence=\"Ctrl+K, Foo\"",
        "of 3", "1 2 3 of 3");
    row("commas that nobody quoted",
        "A/size=3\nA/1/ActionId=1\nA/1/KeySequence=Ctrl+,\nA/2/ActionId=2\n"
        "A/2/KeySequence=Ctrl+K, Ctrl+,\nA/3/ActionId=3\nA/3/KeySequence=Ctrl+,, Ctrl+K",
        "1=Ctrl+, 2=Ctrl+K, Ctrl+, 3=Ctrl+,, Ctrl+K of 3", "1 2 3 of 3");
}

void TestMenuConfig::readsWhateverFilesHold()
{
    QFETCH(const QByteArray, group);
    const QString path = m_dir.filePath(QString::fromLatin1(QTest::currentDataTag()));
    writeFile(path, "[P/KeyboardShortcuts]\n" + QByteArray(group).replace("A/", "ShortcutList\\") +
                        "\n[P/ContextMenuLayout]\n" + QByteArray(group).replace("A/", "Menus\\"));
    ActionShortCutList list = shortcut(9, Qt::Key_9);
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(1);
    layout.AssignActionIdToSlot(0, 9);
    QSettings settings(path, QSettings::IniFormat);
    QCOMPARE(ReadShortcutList(settings, "P", list), !group.isEmpty());
    QCOMPARE(ReadContextMenuLayout(settings, "P", layout), !group.isEmpty());
    QTEST(shown(list), "list");
    QTEST(shown(layout), "layout");
}

void TestMenuConfig::writesWhatOtherProgramsRead()
{
    const QString path = m_dir.filePath(u"store"_s), copy = m_dir.filePath(u"copy"_s);
    QSettings store(path, QSettings::IniFormat);
    store.setValue("MenuConfig/Work/ContextMenuLayout/foreign"_L1, 1);
    MenuConfigManager manager;
    manager.SetSettings(&store);
    manager.SetConfigName(u"Work"_s);
    const auto save = [&](const ActionShortCutList &list, const ContextMenuLayout &layout) {
        manager.AssignKeyboardShortcutList(list);
        manager.AssignContextMenuLayout(layout);
        manager.SaveToStorage();
        store.sync();
        QFile file(path); // K/ and L/ stand for the two arrays
        const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : "unreadable";
        return QByteArray(text)
            .replace("Work\\KeyboardShortcuts\\ShortcutList\\", "K/")
            .replace("Work\\ContextMenuLayout\\Menus\\", "L/")
            .replace('\n', ' ');
    };
    ActionShortCutList list = shortcut(12, Qt::Key_F5);
    list.AssignKeySequence(3, QKeySequence(Qt::CTRL | Qt::Key_K, Qt::CTRL | Qt::Key_Comma));
    list.ClearKeySequence(5);
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(2);
    layout.ClearSlot(1);
    QCOMPARE(save(list, layout), "[MenuConfig] L/1\\ActionId=0 L/2\\ActionId=-1 L/size=2 "
                                 "Work\\ContextMenuLayout\\foreign=1 "
                                 "K/1\\ActionId=3 K/1\\KeySequence=\"Ctrl+K, Ctrl+,\" "
                                 "K/2\\ActionId=12 K/2\\KeySequence=F5 K/size=2 ");
    layout.SetNumberOfSlots(1);
    QCOMPARE(save(ActionShortCutList(), layout), "[MenuConfig] L/1\\ActionId=0 L/size=1 "
                                                 "Work\\ContextMenuLayout\\foreign=1 K/size=0 ");

    QRandomGenerator random(33);
    const auto chord = [&] { // every printable key, Shift, Ctrl, Alt and Meta
        return random.bounded(int(Qt::Key_Space), Qt::Key_QuoteLeft + 1) | random.bounded(16) << 25;
    };
    layout.SetNumberOfSlots(40);
    list.ClearAll();
    for (int i = 0; i < 1000; ++i) {
        list.AssignKeySequence(2 * random.bounded(-5000, 5000), QKeySequence(chord(), chord()));
        layout.AssignActionIdToSlot(random.bounded(40U), random.bounded(-1, 1000));
    }
    save(list, layout);
    QVERIFY(QFile::copy(path, copy)); // by the same name the store would answer from memory
    MenuConfigManager reader;
    reader.SetConfigName(u"Work"_s);
    reader.LoadFromFile(copy);
    QCOMPARE(shown(reader.GetKeyboardShortcutList()), shown(list));
    QVERIFY(reader.GetKeyboardShortcutList() == list && reader.GetContextMenuLayout() == layout);
}

void TestMenuConfig::reservesSequencesAndLoadsDefaults()
{
    QString text;
    for (const QKeySequence &sequence : m_early.GetReservedSequenceList().GetSequences())
        text += sequence.toString() + u' ';
    QCOMPARE(text, u"Esc Up Down Left Right < > Ctrl+W Shift+S Shift+F Shift+A Shift+1 Shift+2 "
                   "Ctrl+1 Ctrl+2 Ctrl+3 Ctrl+4 Ctrl+5 "_s);

    QCoreApplication::setApplicationName(u"tst-viewer"_s);
    const QDir programDir(QCoreApplication::applicationDirPath());
    QVERIFY(programDir.mkpath(u"config"_s));
    const QString defaults = programDir.filePath(u"config/tst-viewer-menu.ini"_s);
    writeFile(defaults, "[MenuConfig]\nDefault\\ContextMenuLayout\\Menus\\size=1\n");
    MenuConfigManager manager;
    manager.AssignKeyboardShortcutList(shortcut(1, Qt::Key_A));
    manager.Initialize();
    manager.Initialize(); // once more adds nothing
    QVERIFY(QFile::remove(defaults));
    QCOMPARE(shown(manager.GetContextMenuLayout()), u"-1 of 1"_s);
    QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"1=A of 1"_s);
    const auto &all = manager.GetReservedSequenceList().GetSequences();
    QCOMPARE(all.front(), QKeySequence(QKeySequence::New));
    QCOMPARE(all.at(all.size() - 18), QKeySequence(Qt::Key_Escape));
    QVERIFY(!manager.GetReservedSequenceList().HasSequence(QKeySequence()));
}

void TestMenuConfig::worksOnCopiesAndWithoutStore()
{
    auto store = std::make_unique<QSettings>(m_dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    const ActionShortCutList list = shortcut(1, Qt::Key_A);
    MenuConfigManager manager;
    manager.SetSettings(store.get());
    manager.SetConfigName(u"Work"_s);
    manager.AssignKeyboardShortcutList(list);
    manager.AssignKeyboardShortcutList(manager.GetKeyboardShortcutList());
    manager = std::as_const(manager);
    MenuConfigManager copy(manager);
    QVERIFY(copy.GetConfigName() == u"MenuConfig/Work" && copy.GetKeyboardShortcutList() == list);
    copy.AssignKeyboardShortcutList(ActionShortCutList());
    copy.SaveToStorage(); // it has no store
    QCOMPARE(manager.GetKeyboardShortcutList(), list);
    QVERIFY(store->allKeys().isEmpty());
    manager.SaveToStorage();
    manager = copy; // keeps its store
    QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"of 0"_s);
    manager.LoadFromStorage();
    QCOMPARE(manager.GetKeyboardShortcutList(), list);
    store.reset();
    manager.SaveToStorage();
    for (int i = 0; i < 2; ++i)
        manager.Shutdown();
    QCOMPARE(manager.GetConfigName(), u"MenuConfig/Default"_s);
    QCOMPARE(manager.GetKeyboardShortcutList(), ActionShortCutList());
}

void TestMenuConfig::carriesShortcutsToActionsAndBack()
{
    QAction zoom, pan;
    auto *doomed = new QAction;
    ActionManager manager;
    manager.RegisterAction(-2, MakeActionData(1, 0, 0, &zoom, false, 0));
    manager.RegisterAction(2, MakeActionData(1, 0, 0, &pan, false, 0));
    manager.RegisterAction(4, MakeActionData(4, 0, 0, doomed, false, 0));
    pan.setShortcut(QKeySequence(Qt::Key_P));
    ActionShortCutList list = shortcut(-2, Qt::Key_Z);
    list.AssignKeySequence(2, QKeySequence(Qt::Key_X));
    list.AssignKeySequence(4, QKeySequence(Qt::Key_D));
    SetupKeyboardShortcutListFromActionManager(manager, list);
    QCOMPARE(shown(list), u"-2=Z 2=P 4=D of 3"_s);

    list.ClearKeySequence(2);
    connect(doomed, &QAction::changed, this, [&] { delete doomed; });
    SetupActionManagerFromKeyboardShortcutList(list, manager);
    QCOMPARE(zoom.shortcut(), QKeySequence(Qt::Key_Z));
    QCOMPARE(zoom.shortcutContext(), Qt::ApplicationShortcut);
    QVERIFY(pan.shortcut().isEmpty() && pan.shortcutContext() == Qt::WindowShortcut);
    QVERIFY(!manager.FindActionDataById(4)->action);
    list.RemoveKeySequence(4);
    SetupKeyboardShortcutListFromActionManager(manager, list);
    SetupActionManagerFromKeyboardShortcutList(ActionShortCutList(), manager);
    QCOMPARE(shown(list), u"-2=Z of 2"_s);
    QVERIFY(zoom.shortcut().isEmpty());
}

int main(int argc, char **argv)
{
    MenuConfigManager early;
    early.Initialize();
    const QApplication application(argc, argv);
    TestMenuConfig test(early);
    return QTest::qExec(&test, argc, argv);
}
#include "tst_menuconfig.moc"
