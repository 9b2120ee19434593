// SPDX-License-Identifier: GPL-2.0-or-later
// Shortcuts as values: who is in whose way, what a search finds, what typed keys mean, what larger
// edits would change.
#include "actions/configuration/configurationfile_p.h"
#include "actions/configuration/importplan_p.h"
#include "actions/configuration/keytext_p.h"
#include "actions/configuration/rowfilter_p.h"
#include "actions/configuration/workingcopy_p.h"
#include "tests/support/FileBytes.h"
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace menuconfig;

namespace {

QKeySequence keys(const QString &text)
{
    return QKeySequence::fromString(text, QKeySequence::PortableText);
}

/// "1=Ctrl+K 2=Ctrl+K,Ctrl+P 3=": an entry each.
ActionShortCutList listOf(const QString &text)
{
    ActionShortCutList list;
    for (const QString &entry : text.split(u' ', Qt::SkipEmptyParts))
        list.AssignKeySequence(entry.section(u'=', 0, 0).toInt(), keys(entry.section(u'=', 1)));
    return list;
}

QString shown(const ActionShortCutList &list)
{
    QStringList entries;
    for (const int id : idsOf(list))
        entries << u"%1=%2"_s.arg(id).arg(list.GetSequenceById(id).toString().remove(u' '));
    return entries.join(u' ');
}

/// Functions 1 to 6: 1 to 3 everywhere, 4 in group 1 only, 5 in group 2 only, 6 in both groups'
/// mode 1 with sub-context 1.
Surroundings surroundings(const QString &defaults = {})
{
    Surroundings given;
    given.catalogue = ActionCatalogue({{1, 1, {}, u"Öffnen"_s},
                                       {2, 1, {}, u"Save as"_s},
                                       {3, 2, {}, u"Zoom in"_s},
                                       {4, 2, Contexts::of(0x10000, -1), u"Zoom map"_s},
                                       {5, 2, Contexts::of(0x20000, -1), u"Zoom plan"_s},
                                       {6, 2, Contexts::of(0x30001, 1), u"Measure"_s}},
                                      {{1, u"File"_s}, {2, u"View"_s}});
    given.defaults = listOf(defaults);
    given.reserved.AddSequence(keys(u"Ctrl+W"_s));
    given.bookmarks.AddSequence(keys(u"Ctrl+B"_s));
    return given;
}

QString shown(const std::vector<Rival> &rivals)
{
    QStringList entries;
    for (const Rival &rival : rivals)
        entries << (rival.kind == OwnerKind::Action     ? QString::number(rival.id)
                    : rival.kind == OwnerKind::Reserved ? u"reserved"_s
                                                        : u"bookmark"_s) +
                       (rival.canCoexist ? u"+"_s : QString());
    return entries.join(u' ');
}

} // namespace

class TestMenuConfig : public QObject
{
    Q_OBJECT

private slots:
    void saysWhereFunctionsAreOffered()
    {
        const ActionCatalogue catalogue({}, {}, {{0x10000, u"on a map"_s}, {0x2, u"late"_s}});
        const auto text = [&](int id, int mask) {
            return catalogue.contextText({1, 1, Contexts::of(id, mask), u"Zoom"_s});
        };
        QCOMPARE(text(0, -1), u"everywhere"_s);
        QCOMPARE(text(0x10000, -1), u"on a map"_s);
        QCOMPARE(text(0x30003, -1), u"on a map, group 2; sub-context 1, late"_s);
        QCOMPARE(text(0x2, 1), u"late; some modes"_s);
    }

    void recordsWhatIsPrintedOnKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("recorded");
        const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers,
                            const QString &text, const QString &recorded) {
            QTest::newRow(name) << key << modifiers << text << recorded;
        };
        row("AltGr alone", Qt::Key_AltGr, Qt::GroupSwitchModifier, {}, {});
        row("a sign behind AltGr", Qt::Key_At, Qt::GroupSwitchModifier, u"@"_s, u"@"_s);
        row("and with Control", Qt::Key_At, Qt::GroupSwitchModifier | Qt::ControlModifier, u"@"_s,
            u"Ctrl+@"_s);
        row("a sign behind Shift", Qt::Key_Question, Qt::ShiftModifier, u"?"_s, u"?"_s);
        row("a letter with Shift", Qt::Key_A, Qt::ShiftModifier, u"A"_s, u"Shift+A"_s);
        row("an accent waiting for its letter", Qt::Key_Dead_Acute, Qt::NoModifier, {}, {});
        row("Shift and Tab", Qt::Key_Backtab, Qt::ShiftModifier, {}, u"Shift+Tab"_s);
        row("on the number pad", Qt::Key_5, Qt::KeypadModifier, u"5"_s, u"5"_s);
    }
    void recordsWhatIsPrintedOnKeys()
    {
        QFETCH(const int, key);
        QFETCH(const Qt::KeyboardModifiers, modifiers);
        QFETCH(const QString, text);
        const auto stroke = strokeOf(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
        QTEST(stroke ? QKeySequence(*stroke).toString() : QString(), "recorded");
    }

    void findsWhoIsInTheWay_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<QString>("rivals");
        QTest::newRow("the same keys") << u"2=Ctrl+K"_s << 1 << u"Ctrl+K"_s << u"2"_s;
        QTest::newRow("its own keys") << u"1=Ctrl+K"_s << 1 << u"Ctrl+K"_s << QString();
        QTest::newRow("a beginning") << u"2=Ctrl+K"_s << 1 << u"Ctrl+K,Ctrl+P"_s << u"2"_s;
        QTest::newRow("a continuation")
            << u"2=Ctrl+K,Ctrl+P 3=Ctrl+K,Ctrl+Q,A"_s << 1 << u"Ctrl+K"_s << u"2 3"_s;
        QTest::newRow("another second stroke")
            << u"2=Ctrl+K,Ctrl+P"_s << 1 << u"Ctrl+K,Ctrl+Q"_s << QString();
        QTest::newRow("never live together") << u"5=F5"_s << 4 << u"F5"_s << QString();
        // One is live wherever the other is: that could never be used.
        QTest::newRow("within the other's contexts") << u"1=F5"_s << 4 << u"F5"_s << u"1"_s;
        QTest::newRow("some contexts in common") << u"6=F5"_s << 4 << u"F5"_s << u"6+"_s;
        QTest::newRow("reserved") << QString() << 1 << u"Ctrl+W"_s << u"reserved"_s;
        QTest::newRow("reserved for its default") << QString() << 2 << u"Ctrl+W"_s << QString();
        QTest::newRow("a bookmark's, and a function's")
            << u"2=Ctrl+B,A"_s << 1 << u"Ctrl+B"_s << u"bookmark 2"_s;
        QTest::newRow("none") << u"2="_s << 1 << QString() << QString();
    }
    void findsWhoIsInTheWay()
    {
        QFETCH(const QString, list);
        QFETCH(const int, id);
        QFETCH(const QString, wanted);
        const Surroundings given = surroundings(u"2=Ctrl+W"_s);
        const KeyOwners owners = given.ownersIn(listOf(list));
        QTEST(shown(owners.rivalsOf(keys(wanted), given.claimantOf(id))), "rivals");
    }

    /// The search over everything agrees with asking for each action.
    void findsAllConflicts()
    {
        QRandomGenerator random(16);
        for (int round = 0; round < 300; ++round) {
            const Surroundings given = surroundings(u"2=Ctrl+W 3=A"_s);
            ActionShortCutList list;
            for (int id = 1; id <= 6; ++id) {
                const QStringList texts{QString(),  u"A"_s,      u"A,B"_s,   u"A,C"_s,
                                        u"A,B,C"_s, u"Ctrl+W"_s, u"Ctrl+B"_s};
                list.AssignKeySequence(id, keys(texts[random.bounded(7)]));
            }
            const KeyOwners owners = given.ownersIn(list);
            std::vector<int> expected;
            for (int id = 1; id <= 6; ++id) {
                if (!owners.rivalsOf(list.GetSequenceById(id), given.claimantOf(id)).empty())
                    expected.push_back(id);
            }
            QCOMPARE(owners.actionsInConflict(), expected);
        }
    }

    void findsConflictsInACrowd()
    {
        constexpr int kFunctions = 400;
        QRandomGenerator random(17);
        Surroundings given = surroundings();
        std::vector<ActionInfo> infos;
        ActionShortCutList list;
        for (int id = 0; id < kFunctions; ++id) {
            const int group = 1 << random.bounded(16);
            const int sub = random.bounded(20) == 0 ? 0 : 1 << random.bounded(16);
            const auto modes = static_cast<int>(3U << random.bounded(32)); // one or two
            infos.push_back({id, 1, Contexts::of(group << 16 | sub, modes), u"Function"_s});
            list.AssignKeySequence(id, keys(id % 50 == 0  ? u"Ctrl+W"_s
                                            : id % 3 == 0 ? u"A,B"_s
                                                          : u"A"_s));
        }
        given.catalogue = ActionCatalogue(infos, {});
        const KeyOwners owners = given.ownersIn(list);
        std::vector<int> expected;
        for (int id = 0; id < kFunctions; ++id) {
            if (!owners.rivalsOf(list.GetSequenceById(id), given.claimantOf(id)).empty())
                expected.push_back(id);
        }
        QCOMPARE(owners.actionsInConflict(), expected);
        QCOMPARE_GT(expected.size(), 50U);
        QCOMPARE_LT(expected.size(), 350U);
    }

    void readsTypedKeys_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected"); // "?": cannot be read
        QTest::newRow("two strokes") << u"ctrl + k, control+P"_s << u"Ctrl+K, Ctrl+P"_s;
        QTest::newRow("the comma key") << u"Ctrl+,"_s << u"Ctrl+,"_s;
        QTest::newRow("the plus key") << u"Ctrl++"_s << u"Ctrl++"_s;
        QTest::newRow("another name") << u"Alt+Delete"_s << u"Alt+Del"_s;
        QTest::newRow("unfinished") << u"Ctrl+"_s << u"?"_s;
        QTest::newRow("no key") << u"Ctrl+Nonsense"_s << u"?"_s;
        QTest::newRow("five strokes") << u"A, B, C, D, E"_s << u"?"_s;
        QTest::newRow("a megabyte") << QString(1 << 20, u'A') << u"?"_s;
        QTest::newRow("nothing") << u"  "_s << QString();
    }
    void readsTypedKeys()
    {
        QFETCH(const QString, text);
        const auto sequence = sequenceFromText(text);
        QTEST(sequence ? sequence->toString(QKeySequence::PortableText) : u"?"_s, "expected");
    }

    void findsRows_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pressed");
        QTest::addColumn<QList<int>>("ids");
        QTest::newRow("accents and case aside") << u"offnen"_s << QString() << QList<int>{1};
        QTest::newRow("the category") << u"file"_s << QString() << QList<int>{1, 2};
        QTest::newRow("all words") << u"zoom map"_s << QString() << QList<int>{4};
        QTest::newRow("keys by any name") << u"control + k"_s << QString() << QList<int>{1, 3};
        QTest::newRow("pressed") << QString() << u"Ctrl+K"_s << QList<int>{1, 3};
        QTest::newRow("pressed twice") << QString() << u"Ctrl+K,Ctrl+P"_s << QList<int>{3};
        QTest::newRow("nothing") << u"absent"_s << QString() << QList<int>{};
    }
    void findsRows()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, pressed);
        const ActionCatalogue catalogue = surroundings().catalogue;
        const RowFilter filter(catalogue, listOf(u"1=Ctrl+K 3=Ctrl+K,Ctrl+P"_s));
        QList<int> ids;
        for (const std::size_t place : filter.matches({text, keys(pressed)}, {}, {}))
            ids << catalogue.actions()[place].id;
        std::sort(ids.begin(), ids.end());
        QTEST(ids, "ids");
    }

    void takesKeysFromAllRivals()
    {
        const ActionShortCutList list = listOf(u"1=F2 2=Ctrl+K 3=Ctrl+K,A 5=F5"_s);
        QCOMPARE(shown(reassigned(list, surroundings(), 1, keys(u"Ctrl+K"_s))),
                 u"1=Ctrl+K 2= 3= 5=F5"_s);
        QCOMPARE(shown(reassigned(list, surroundings(), 4, keys(u"F5"_s))),
                 u"1=F2 2=Ctrl+K 3=Ctrl+K,A 4=F5 5=F5"_s);
    }

    void resetsToDefaults_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<std::vector<int>>("ids");
        QTest::addColumn<bool>("keepsOwn");
        QTest::addColumn<QString>("result");
        const std::vector<int> all{1, 2, 3, 4, 5, 6};
        QTest::newRow("a row") << u"1=F9 2=F8"_s << std::vector{1} << false << u"1=F1 2=F8"_s;
        QTest::newRow("a row without a default") << u"3=F9"_s << std::vector{3} << false << u"3="_s;
        QTest::newRow("a row whose default another one took")
            << u"1=F9 2=F1,A 3=F7"_s << std::vector{1} << false << u"1=F1 2= 3=F7"_s;
        QTest::newRow("everything, own keys stay unless needed")
            << u"1= 2=F1 3=F7 4=F2 77=F1"_s << all << true << u"1=F1 2=F2 3=F7 4= 77=F1"_s;
        QTest::newRow("a swap") << u"1=F2 2=F1"_s << all << true << u"1=F1 2=F2"_s;
    }
    void resetsToDefaults()
    {
        QFETCH(const QString, list);
        QFETCH(const std::vector<int>, ids);
        QFETCH(const bool, keepsOwn);
        QTEST(shown(withDefaults(listOf(list), surroundings(u"1=F1 2=F2"_s), ids,
                                 keepsOwn ? OwnKeys::Keep : OwnKeys::Drop)),
              "result");
    }

    void plansAnImport()
    {
        const Surroundings given = surroundings(u"1=F1"_s);
        const MenuConfiguration current{listOf(u"1=F1 2=F2 3=F3"_s), {}};
        const MenuConfiguration other{listOf(u"1=F2 3=Ctrl+W 4=F4 77=F7"_s), {}};
        ImportPlan plan = planImport(current, other, given);
        QStringList rows;
        for (const ImportRow &row : plan.rows)
            rows << QString::number(row.change.id) + (row.note.isEmpty() ? u""_s : u" noted"_s) +
                        (row.isTaken ? u""_s : u" skipped"_s);
        QCOMPARE(rows, QStringList({u"1 noted"_s, u"3 noted skipped"_s, u"4"_s, u"77 noted"_s}));
        QCOMPARE(shown(withImport(current, plan, given).shortcuts), u"1=F2 2= 3=F3 4=F4 77=F7"_s);
        plan.rows[0].isTaken = false;
        plan.rows[1].isTaken = true; // it cannot be
        QCOMPARE(shown(withImport(current, plan, given).shortcuts), u"1=F1 2=F2 3=F3 4=F4 77=F7"_s);
    }

    void refusesDamagedFiles_data()
    {
        QTest::addColumn<QByteArray>("shortcuts"); // lines of the array
        QTest::addColumn<bool>("isRead");
        QTest::newRow("sound") << QByteArray("1\\ActionId=1;1\\KeySequence=F1;size=1") << true;
        QTest::newRow("negative size") << QByteArray("size=-3") << false;
        QTest::newRow("huge size") << QByteArray("size=2000000000") << false;
        QTest::newRow("no number") << QByteArray("size=many") << false;
        QTest::newRow("an id twice") << QByteArray("1\\ActionId=1;2\\ActionId=1;size=2") << false;
        QTest::newRow("a megabyte of keys")
            << "1\\ActionId=1;1\\KeySequence=" + QByteArray(1 << 20, 'A') + ";size=1" << false;
        QTest::newRow("a megabyte of strokes")
            << "1\\ActionId=1;1\\KeySequence=" + QByteArray("A,").repeated(1 << 19) + ";size=1"
            << false;
        QTest::newRow("nothing") << QByteArray() << false;
    }
    void refusesDamagedFiles()
    {
        QFETCH(const QByteArray, shortcuts);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.ini"_s);
        QByteArray text = "[MenuConfig]\n";
        for (const QByteArray &line : shortcuts.split(';'))
            text += line.isEmpty() ? QByteArray()
                                   : "Work\\KeyboardShortcuts\\ShortcutList\\" + line + '\n';
        writeBytes(path, text);
        const ConfigurationFile file = readConfigurationFile(path, u"Default"_s);
        QTEST(file.error.isEmpty(), "isRead");
        QCOMPARE(file.configuration.shortcuts.HasEntry(1), file.error.isEmpty());
        QVERIFY(!readConfigurationFile(folder.filePath(u"absent.ini"_s), {}).error.isEmpty());
    }

    void exportsWhatItImports()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.ini"_s);
        MenuConfiguration configuration{listOf(u"1=Ctrl+K,Ctrl+, 2= 77=F7"_s), {}};
        configuration.layout.SetNumberOfSlots(2);
        configuration.layout.ClearSlot(1);
        QCOMPARE(writeConfigurationFile(path, u"Work"_s, configuration), QString());
        QVERIFY(readConfigurationFile(path, {}).configuration == configuration);
        QVERIFY(
            !writeConfigurationFile(folder.filePath(u"a.ini/b.ini"_s), u"Work"_s, {}).isEmpty());
    }

    /// Cleared and absent entries come back as they were.
    void undoesEachStep()
    {
        const MenuConfiguration start{listOf(u"1=F1 2="_s), {}};
        WorkingCopy copy(start);
        MenuConfiguration next{listOf(u"2=F2 3=F3"_s), {}};
        next.layout.SetNumberOfSlots(2);
        copy.edit(next, u"edit"_s);
        copy.edit(next, u"nothing"_s);
        QCOMPARE(copy.history().count(), 1);
        copy.history().undo();
        QVERIFY(copy.current() == start);
        copy.history().redo();
        QVERIFY(copy.current() == next);
    }
};

QTEST_MAIN(TestMenuConfig)
#include "tst_menuconfig.moc"
