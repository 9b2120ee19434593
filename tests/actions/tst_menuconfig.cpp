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
    explicit TestMenuConfig(const MenuConfigManager &early) : m_early(early) {}

private slots:
    void listsAgreeWithPlainMaps();
    void readsWhateverFilesHold_data();
    void readsWhateverFilesHold();
    void survivesRoundTripThroughFile();
    void writesWhatOtherProgramsRead();
    void reservesTheProgramsSequences();
    void loadsDefaultsBesideTheProgram();
    void worksOnCopiesAndWithoutStore();
    void carriesShortcutsToActionsAndBack();

private:
    MenuConfigManager m_early; ///< initialised before there was an application object
    QTemporaryDir m_dir;
};

namespace {

QKeySequence keys(const QString &text)
{
    return QKeySequence::fromString(text, QKeySequence::PortableText);
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

/// For example "[5][-1]"; of a long layout the beginning.
QString shown(const ContextMenuLayout &layout)
{
    QString text;
    for (unsigned slot = 0; slot < std::min(layout.NumberOfSlots(), 3U); ++slot)
        text += u"[%1]"_s.arg(layout.GetAssignedActionId(slot));
    return layout.NumberOfSlots() > 3 ? text + u" of %1"_s.arg(layout.NumberOfSlots()) : text;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "unreadable";
}

QKeySequence randomSequence(QRandomGenerator &random)
{
    constexpr std::pair<int, int> kRanges[] = {
        {Qt::Key_Space, Qt::Key_QuoteLeft},   {Qt::Key_BraceLeft, Qt::Key_AsciiTilde},
        {Qt::Key_Agrave, Qt::Key_Odiaeresis}, {Qt::Key_Escape, Qt::Key_Delete},
        {Qt::Key_Home, Qt::Key_PageDown},     {Qt::Key_F1, Qt::Key_F35}};
    int chords[4] = {};
    for (int i = 0; i <= random.bounded(4); ++i) {
        const auto [first, last] = kRanges[random.bounded(6)];
        const int modifiers = random.bounded(16) << 25; // Shift, Ctrl, Alt, Meta
        chords[i] = random.bounded(first, last + 1) | modifiers;
    }
    return QKeySequence(chords[0], chords[1], chords[2], chords[3]);
}

} // namespace

void TestMenuConfig::listsAgreeWithPlainMaps()
{
    QRandomGenerator random(32);
    ActionShortCutList list;
    std::map<int, QKeySequence> plainList;
    ContextMenuLayout layout;
    std::map<unsigned, int> plainLayout;
    unsigned size = 0;
    for (int round = 0; round < 3000; ++round) {
        const int id = random.bounded(-5, 15);
        const unsigned slot = random.bounded(12U);
        const QKeySequence sequence(Qt::Key_A + random.bounded(10));
        switch (random.bounded(6)) {
        case 0:
            list.ClearKeySequence(id);
            plainList[id] = QKeySequence();
            layout.ClearSlot(slot);
            if (slot < size)
                plainLayout[slot] = -1;
            break;
        case 1:
            list.RemoveKeySequence(id);
            plainList.erase(id);
            break;
        case 2:
            layout.SetNumberOfSlots(slot);
            plainLayout.erase(plainLayout.lower_bound(slot), plainLayout.end());
            size = slot;
            break;
        default:
            list.AssignKeySequence(id, sequence);
            plainList[id] = sequence;
            layout.AssignActionIdToSlot(slot, id);
            if (slot < size)
                plainLayout[slot] = id;
        }
        std::vector<int> assigned, expected;
        for (const auto &[key, value] : plainList) {
            if (!value.isEmpty())
                expected.push_back(key);
        }
        list.GetActionIds(assigned);
        QCOMPARE(assigned, expected);
        QCOMPARE(size_t(list.NumberOfAssignments()), plainList.size());
        QCOMPARE(list.HasSequenceAssigned(id), plainList.count(id) && !plainList[id].isEmpty());
        QCOMPARE(list.GetSequenceById(id), plainList.count(id) ? plainList[id] : QKeySequence());
        int first = -1;
        for (auto entry = plainList.rbegin(); entry != plainList.rend(); ++entry)
            first = entry->second == sequence ? entry->first : first;
        QCOMPARE(list.FindActionIdForSequence(sequence), first);

        // Slots never assigned since they came hold 0.
        const int held = slot >= size ? -1 : plainLayout.count(slot) ? plainLayout[slot] : 0;
        QCOMPARE(layout.NumberOfSlots(), size);
        QCOMPARE(layout.GetAssignedActionId(slot), held);
        QCOMPARE(layout.HasAssignedAction(slot), held != -1);
    }
    list.ClearAll();
    layout.ClearAll();
    QCOMPARE(list, ActionShortCutList());
    QCOMPARE(layout, ContextMenuLayout());
}

void TestMenuConfig::readsWhateverFilesHold_data()
{
    QTest::addColumn<QByteArray>("shortcuts"); // lines of the group; \1 stands for the array
    QTest::addColumn<QByteArray>("menus");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("layout");
    const auto row = [](const char *name, const char *shortcuts, const char *menus,
                        const QString &list, const QString &layout) {
        QTest::newRow(name) << QByteArray(shortcuts) << QByteArray(menus) << list << layout;
    };
    row("nothing leaves all as it was", "", "", u"9=F9 of 1"_s, u"[9]"_s);
    row("one key of any name empties", "other=1", "other=1", u"of 0"_s, u""_s);
    row("an array of size 0 empties", "A/size=0", "A/size=0", u"of 0"_s, u""_s);
    row("a negative size empties", "A/size=-4\nA/1/ActionId=5", "A/size=-4\nA/1/ActionId=5",
        u"of 0"_s, u""_s);
    row("a huge size is cut", "A/size=2000000000\nA/1/ActionId=5\nA/1/KeySequence=F5",
        "A/size=2000000000\nA/2/ActionId=5", u"5=F5 of 1"_s, u"[-1][5][-1] of 100000"_s);
    row("elements without a number are skipped, or empty slots",
        "A/size=5\nA/1/ActionId=-1\nA/2/ActionId=7 \nA/2/KeySequence=F7\nA/3/ActionId=8x\n"
        "A/4/KeySequence=F4\nA/5/ActionId=99999999999",
        "A/size=3\nA/1/ActionId=x\nA/3/ActionId=0", u"7=F7 of 1"_s, u"[-1][-1][0]"_s);
    row("the later of two with one id holds",
        "A/size=2\nA/1/ActionId=5\nA/1/KeySequence=F5\nA/2/ActionId=5\nA/2/KeySequence=F6",
        "A/size=1\nA/1/ActionId=\"1,2\"", u"5=F6 of 1"_s, u"[-1]"_s);
    row("sequences that are missing or unreadable are empty",
        "A/size=4\nA/1/ActionId=1\nA/2/ActionId=2\nA/2/KeySequence=Ctrl+Foo\nA/3/ActionId=3\n"
        "A/3/KeySequence=\"Ctrl+K, Foo\"\nA/4/ActionId=4\nA/4/KeySequence=Shift+A",
        "A/size=1\nA/1/ActionId=1,2", u"4=Shift+A of 4"_s, u"[-1]"_s);
    row("commas that nobody quoted are part of the text",
        "A/size=3\nA/1/ActionId=1\nA/1/KeySequence=Ctrl+,\nA/2/ActionId=2\n"
        "A/2/KeySequence=Ctrl+K, Ctrl+,\nA/3/ActionId=3\nA/3/KeySequence=Ctrl+,, Ctrl+K",
        "", u"1=Ctrl+, 2=Ctrl+K, Ctrl+, 3=Ctrl+,, Ctrl+K of 3"_s, u"[9]"_s);
}

void TestMenuConfig::readsWhateverFilesHold()
{
    QFETCH(QByteArray, shortcuts);
    QFETCH(QByteArray, menus);
    const QString path = m_dir.filePath(QString::fromLatin1(QTest::currentDataTag()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[P/KeyboardShortcuts]\n" + shortcuts.replace("A/", "ShortcutList\\") +
               "\n[P/ContextMenuLayout]\n" + menus.replace("A/", "Menus\\") + "\n");
    file.close();

    ActionShortCutList list;
    list.AssignKeySequence(9, keys(u"F9"_s));
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(1);
    layout.AssignActionIdToSlot(0, 9);
    QSettings settings(path, QSettings::IniFormat);
    QCOMPARE(ReadShortcutList(settings, "P", list), !shortcuts.isEmpty());
    QCOMPARE(ReadContextMenuLayout(settings, "P", layout), !menus.isEmpty());
    QTEST(shown(list), "list");
    QTEST(shown(layout), "layout");
}

void TestMenuConfig::survivesRoundTripThroughFile()
{
    QRandomGenerator random(33);
    for (int round = 0; round < 20; ++round) {
        ActionShortCutList list, readList;
        ContextMenuLayout layout, readLayout;
        layout.SetNumberOfSlots(random.bounded(40U));
        for (int i = 0; i < 100; ++i) {
            list.AssignKeySequence(2 * random.bounded(-500, 500), randomSequence(random));
            layout.AssignActionIdToSlot(random.bounded(40U), random.bounded(-1, 1000));
        }
        const QString written = m_dir.filePath(u"written%1.ini"_s.arg(round));
        {
            QSettings settings(written, QSettings::IniFormat);
            WriteShortcutList(settings, "P/Q", list);
            WriteContextMenuLayout(settings, "P/Q", layout);
        }
        // Under a name of its own: by the same name the store would answer from memory.
        const QString copy = written + u".copy"_s;
        QVERIFY(QFile::copy(written, copy));
        QSettings settings(copy, QSettings::IniFormat);
        QVERIFY(ReadShortcutList(settings, "P/Q", readList));
        QVERIFY(ReadContextMenuLayout(settings, "P/Q", readLayout));
        QCOMPARE(shown(readList), shown(list));
        QCOMPARE(readList, list);
        QCOMPARE(readLayout, layout);
    }
}

void TestMenuConfig::writesWhatOtherProgramsRead()
{
    const QString path = m_dir.filePath(u"store.ini"_s);
    QSettings store(path, QSettings::IniFormat);
    store.setValue("MenuConfig/Work/ContextMenuLayout/foreign"_L1, 1);
    MenuConfigManager manager;
    manager.SetSettings(&store);
    manager.SetConfigName(u"Work"_s);
    ActionShortCutList list;
    list.AssignKeySequence(12, keys(u"Ctrl+5"_s));
    list.AssignKeySequence(3, keys(u"Ctrl+K, Ctrl+,"_s));
    list.ClearKeySequence(5);
    manager.AssignKeyboardShortcutList(list);
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(2);
    layout.ClearSlot(1);
    manager.AssignContextMenuLayout(layout);
    manager.SaveToStorage();
    store.sync();
    QCOMPARE(contents(path), "[MenuConfig]\n"
                             "Work\\ContextMenuLayout\\Menus\\1\\ActionId=0\n"
                             "Work\\ContextMenuLayout\\Menus\\2\\ActionId=-1\n"
                             "Work\\ContextMenuLayout\\Menus\\size=2\n"
                             "Work\\ContextMenuLayout\\foreign=1\n"
                             "Work\\KeyboardShortcuts\\ShortcutList\\1\\ActionId=3\n"
                             "Work\\KeyboardShortcuts\\ShortcutList\\1\\KeySequence=\"Ctrl+K, "
                             "Ctrl+,\"\n"
                             "Work\\KeyboardShortcuts\\ShortcutList\\2\\ActionId=12\n"
                             "Work\\KeyboardShortcuts\\ShortcutList\\2\\KeySequence=Ctrl+5\n"
                             "Work\\KeyboardShortcuts\\ShortcutList\\size=2\n");
    list.ClearAll();
    manager.AssignKeyboardShortcutList(list);
    layout.SetNumberOfSlots(1);
    manager.AssignContextMenuLayout(layout);
    manager.SaveToStorage();
    store.sync();
    QCOMPARE(contents(path), "[MenuConfig]\n"
                             "Work\\ContextMenuLayout\\Menus\\1\\ActionId=0\n"
                             "Work\\ContextMenuLayout\\Menus\\size=1\n"
                             "Work\\ContextMenuLayout\\foreign=1\n"
                             "Work\\KeyboardShortcuts\\ShortcutList\\size=0\n");
}

void TestMenuConfig::reservesTheProgramsSequences()
{
    QString text;
    for (const QKeySequence &sequence : m_early.GetReservedSequenceList().GetSequences())
        text += sequence.toString(QKeySequence::PortableText) + u' ';
    QCOMPARE(text, u"Esc Up Down Left Right < > Ctrl+W Shift+S Shift+F Shift+A Shift+1 Shift+2 "
                   "Ctrl+1 Ctrl+2 Ctrl+3 Ctrl+4 Ctrl+5 "_s);

    MenuConfigManager manager;
    manager.Initialize();
    manager.Initialize(); // once more adds nothing
    std::vector<QKeySequence> all = manager.GetReservedSequenceList().GetSequences();
    const auto escape = std::find(all.begin(), all.end(), QKeySequence(Qt::Key_Escape));
    const std::vector<QKeySequence> standardKeys(all.begin(), escape);
    QCOMPARE(standardKeys.at(0), QKeySequence(QKeySequence::New));
    QCOMPARE(standardKeys.back(), QKeySequence(QKeySequence::Refresh));
    QVERIFY(std::find(standardKeys.begin(), standardKeys.end(), QKeySequence()) ==
            standardKeys.end());
    QCOMPARE(all.size() - standardKeys.size(), 18U);
    QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"of 0"_s);
}

void TestMenuConfig::loadsDefaultsBesideTheProgram()
{
    QCoreApplication::setApplicationName(u"tst-viewer"_s);
    const QDir programDir(QCoreApplication::applicationDirPath());
    QVERIFY(programDir.mkpath(u"config"_s));
    QFile file(programDir.filePath(u"config/tst-viewer-menu.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[MenuConfig]\nDefault\\ContextMenuLayout\\Menus\\size=1\n"
               "Default\\ContextMenuLayout\\Menus\\1\\ActionId=4\n");
    file.close();
    MenuConfigManager manager;
    ActionShortCutList list;
    list.AssignKeySequence(1, keys(u"F1"_s));
    manager.AssignKeyboardShortcutList(list);
    manager.Initialize();
    file.remove();
    QCOMPARE(shown(manager.GetContextMenuLayout()), u"[4]"_s);
    QCOMPARE(manager.GetKeyboardShortcutList(), list);
    manager.LoadFromFile(programDir.path()); // a folder is no file
    QCOMPARE(shown(manager.GetContextMenuLayout()), u"[4]"_s);
}

void TestMenuConfig::worksOnCopiesAndWithoutStore()
{
    const QString path = m_dir.filePath(u"copies.ini"_s);
    auto store = std::make_unique<QSettings>(path, QSettings::IniFormat);
    ActionShortCutList list;
    list.AssignKeySequence(1, keys(u"F1"_s));
    MenuConfigManager manager;
    manager.SetSettings(store.get());
    manager.SetConfigName(u"Work"_s);
    manager.AssignKeyboardShortcutList(list);
    manager.AssignKeyboardShortcutList(manager.GetKeyboardShortcutList());
    manager.AssignDefaultContextMenuLayout(manager.GetContextMenuLayout());
    MenuConfigManager &self = manager;
    manager = self;
    MenuConfigManager copy(manager);
    QCOMPARE(copy.GetConfigName(), u"MenuConfig/Work"_s);
    QCOMPARE(copy.GetKeyboardShortcutList(), list);
    copy.AssignKeyboardShortcutList(ActionShortCutList());
    copy.SaveToStorage(); // it has no store
    copy.LoadFromStorage();
    QCOMPARE(manager.GetKeyboardShortcutList(), list);
    QVERIFY(store->allKeys().isEmpty());
    manager.SaveToStorage();
    manager = copy; // keeps its store
    QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"of 0"_s);
    manager.LoadFromStorage();
    QCOMPARE(manager.GetKeyboardShortcutList(), list);

    store.reset();
    manager.AssignKeyboardShortcutList(ActionShortCutList());
    manager.SaveToStorage();
    manager.LoadFromStorage();
    QCOMPARE(shown(manager.GetKeyboardShortcutList()), u"of 0"_s);
    manager.Initialize();
    manager.Shutdown();
    manager.Shutdown();
    QCOMPARE(manager.GetConfigName(), u"MenuConfig/Default"_s);
    QCOMPARE(manager.GetReservedSequenceList(), KeySequenceList());
}

void TestMenuConfig::carriesShortcutsToActionsAndBack()
{
    QAction zoom, pan, print;
    ActionManager manager;
    manager.RegisterAction(-2, MakeActionData(1, 0, 0, &zoom, false, 0));
    manager.RegisterAction(2, MakeActionData(2, 0, 0, &pan, false, 0));
    manager.RegisterAction(3, MakeActionData(3, 0, 0, &print, false, 0));
    pan.setShortcut(keys(u"F2"_s));
    print.setShortcut(keys(u"F3"_s));
    ActionShortCutList list;
    list.AssignKeySequence(-2, keys(u"Ctrl+Z"_s));
    list.AssignKeySequence(3, keys(u"F9"_s));
    list.AssignKeySequence(4, keys(u"F4"_s));
    SetupKeyboardShortcutListFromActionManager(manager, list);
    QCOMPARE(shown(list), u"-2=Ctrl+Z 2=F2 3=F3 4=F4 of 4"_s);

    list.ClearKeySequence(2);
    connect(&zoom, &QAction::changed, this, [&] { zoom.setText(u"zooms"_s); });
    SetupActionManagerFromKeyboardShortcutList(list, manager);
    QCOMPARE(zoom.shortcut(), keys(u"Ctrl+Z"_s));
    QCOMPARE(zoom.shortcutContext(), Qt::ApplicationShortcut);
    QVERIFY(pan.shortcut().isEmpty());
    QCOMPARE(pan.shortcutContext(), Qt::WindowShortcut);

    auto *doomed = new QAction;
    manager.RegisterAction(4, MakeActionData(4, 0, 0, doomed, false, 0));
    connect(doomed, &QAction::changed, this, [&] { delete doomed; });
    SetupActionManagerFromKeyboardShortcutList(list, manager);
    QVERIFY(!manager.FindActionDataById(4)->action);
    SetupActionManagerFromKeyboardShortcutList(ActionShortCutList(), manager);
    QVERIFY(zoom.shortcut().isEmpty() && print.shortcut().isEmpty());
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
