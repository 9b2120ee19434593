// SPDX-License-Identifier: GPL-2.0-or-later
// The command line keeps its promises; the real program runs.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Outcome
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

/// A plan with a frame "Blatt" of 30 x 20, and one insert for each number; "-" stands for none.
QByteArray planWith(const QList<QByteArray> &numbers)
{
    QByteArray text = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nBlatt\n0\nLWPOLYLINE\n90\n4\n70\n1\n"
                      "10\n0\n20\n0\n10\n30\n20\n0\n10\n30\n20\n20\n10\n0\n20\n20\n"
                      "0\nENDBLK\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    for (const QByteArray &number : numbers)
        text += "0\nINSERT\n66\n1\n2\nBlatt\n0\nATTRIB\n1\n" + number + "\n2\n" +
                (number == "-" ? "OTHER" : "BL_NR") + "\n0\nSEQEND\n";
    return text + "0\nENDSEC\n0\nEOF\n";
}

const QByteArray kCorners = "   0,00       20,00    \r\n  30,00       20,00    \r\n"
                            "  30,00        0,00    \r\n   0,00        0,00    \r\n";

} // namespace

class TestDxf2gk2 : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void converts();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void tellsFailuresInOneLine_data();
    void tellsFailuresInOneLine();
    void tellsOfAPipeThatBreaksHalfWay();
    void keepsSheetsUnlessTold();
    void tellsOfTheSheetsWhenThePictureFails();
    void takesNamesThatAreNoUtf8();
    void placesSheetsAndTakesOtherNumbers();
    void compares();
    void keepsPlansAndOldResults_data();
    void keepsPlansAndOldResults();
    void keepsLinksAndPermissions();
    void filtersAndLists();
    void printsJson();
    void speaksGermanToPeople();
    void countsWarningsWhenStrict();
    void drawsPreviewsAndProgress();
    void leavesNothingBehindWhenKilled();

private:
    /// Runs a line of shell in the test's folder; $D is the program.
    Outcome shell(const QByteArray &line);
    void put(const char *name, const QByteArray &text);
    QByteArray get(const char *name);
    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestDxf2gk2::init()
{
    qputenv("D", DXF2GK2);
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    m_dir = std::make_unique<QTemporaryDir>();
    put("plan.dxf", planWith({"2", "1"}));
}

Outcome TestDxf2gk2::shell(const QByteArray &line)
{
    QProcess process;
    process.setWorkingDirectory(m_dir->path());
    process.start(u"sh"_s, {u"-c"_s, QString::fromUtf8(line)});
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    // The plans here share one block, of which there is a note each time.
    QByteArrayList errors = process.readAllStandardError().split('\n');
    errors.removeIf([](const QByteArray &error) { return error.contains("(--placed)"); });
    return {process.exitCode(), process.readAllStandardOutput(), errors.join('\n')};
}

void TestDxf2gk2::put(const char *name, const QByteArray &text)
{
    QFile file(m_dir->filePath(QString::fromUtf8(name)));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

QByteArray TestDxf2gk2::get(const char *name)
{
    QFile file(m_dir->filePath(QString::fromUtf8(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file"_ba;
}

void TestDxf2gk2::converts()
{
    const QByteArray gk2 = "GK2\r\n\r\n1\r\n" + kCorners + "\r\n2\r\n" + kCorners;
    Outcome r = shell("$D plan.dxf");
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, ""_ba);
    QCOMPARE(r.err, "plan.dxf: 2 sheets written to plan.txt, 0 skipped, 0 warnings\n"_ba);
    QCOMPARE(get("plan.txt"), gk2);
    QCOMPARE(shell("$D -q -o - plan.dxf; cat plan.dxf | $D -q -").out, gk2 + gk2);

    // A pipe or device is written to; putting a file in its place would do harm.
    QCOMPARE(shell("mkfifo f; cat f >got & $D -q -o f plan.dxf; wait; test -p f && cat got").out,
             gk2);

    put("Ü a.b.dxf", planWith({"1"}));
    // In any locale; and a plan that fails keeps no other from its turn.
    r = shell("mkdir Aus; LC_ALL=C $D -q -d Aus plan.dxf none.dxf 'Ü a.b.dxf'");
    QCOMPARE(r.status, 1);
    QCOMPARE(r.err.count('\n'), 1);
    QCOMPARE(get("Aus/plan.txt"), gk2);
    QCOMPARE(get("Aus/Ü a.b.txt"), "GK2\r\n\r\n1\r\n" + kCorners);
}

void TestDxf2gk2::refusesWrongUsage_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("told");
    const auto row = [](const char *name, const char *arguments, const char *told) {
        QTest::newRow(name) << QByteArray(arguments) << QByteArray(told);
    };
    row("no plan", "", "no plan given");
    row("an option that is not known", "--nonsense plan.dxf", "unknown option 'nonsense'");
    row("a plan without a name", "''", "a plan's name is empty");
    row("an option at the end without its value", "plan.dxf -o", "-o wants a value");
    row("an empty value", "--output= plan.dxf", "--output wants a value");
    row("a value that an option does not take", "--json=1 plan.dxf", "--json takes no value");
    row("one target of two plans", "-o a.txt plan.dxf b.dxf", "--output takes");
    row("two targets", "-o a -d . plan.dxf", "--output and --output-dir");
    row("a picture of two plans", "--preview a.svg plan.dxf b.dxf", "--preview shows one");
    row("a picture of another kind", "--preview a.gif plan.dxf", "--preview wants");
    row("a filter without a value", "--include TYP plan.dxf", "--include wants");
    row("a filter without a tag", "--include =x plan.dxf", "--include wants");
    row("an option given twice", "--exclude A --exclude B plan.dxf", "--exclude is given");
    row("a mode that is not known", "--progress maybe plan.dxf", "--progress is auto");
    row("an encoding that is not known", "--encoding none plan.dxf", "--encoding does not know");
    row("an empty tag", "--number-tag= plan.dxf", "--number-tag wants a value");
    row("sheets and JSON in one output", "-o - --json plan.dxf", "--json and the sheets");
    row("the same, by default", "--json -", "--json and the sheets");
    row("a list that should be written", "-o - --list plan.dxf", "--list and --list-tags");
    row("tags that should be written", "-o a.txt --list-tags plan.dxf", "--list and --list-tags");
    row("standard input twice", "- -", "standard input");
    row("a name for standard input", "-d . -", "a plan from standard input");
    row("one plan twice", "plan.dxf ./plan.dxf", "two results would go to");
    row("two plans of one name", "-d . plan.dxf ../x/plan.dxf", "two results would go to");
    row("two results of one name", "-o p.svg --preview ./p.svg plan.dxf", "two results");
    row("a comparison of two plans", "--compare a.txt plan.dxf b.dxf", "--compare looks at");
    row("changes and sheets in one output", "--compare a -o - plan.dxf", "the changes and");
    row("a tolerance of nothing", "--tolerance 1 plan.dxf", "--tolerance belongs");
    row("a tolerance below 0", "--compare a --tolerance=-1 plan.dxf", "--tolerance wants");
    row("a tolerance that is no number", "--compare a --tolerance 1,5 plan.dxf", "--tolerance");
}

void TestDxf2gk2::refusesWrongUsage()
{
    QFETCH(const QByteArray, arguments);
    QFETCH(const QByteArray, told);
    const Outcome r = shell("$D " + arguments);
    QCOMPARE(r.status, 2);
    QVERIFY2(r.err.startsWith("dxf2gk2: " + told), r.err);
    QCOMPARE(r.err.count('\n'), 1);
    const bool isJson = arguments.contains("--json") && !arguments.contains("--json=");
    QCOMPARE(QJsonDocument::fromJson(r.out).object().contains("error"_L1), isJson);
    QCOMPARE(r.out.isEmpty(), !isJson);
    QCOMPARE(shell("ls -A").out, "plan.dxf\n"_ba);
}

void TestDxf2gk2::tellsFailuresInOneLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("told");
    const auto row = [](const char *name, const char *line, const char *told) {
        QTest::newRow(name) << QByteArray(line) << QByteArray(told);
    };
    row("no such plan", "$D none.dxf", "none.dxf: File 'none.dxf' does not exist");
    row("a folder as plan", "$D .", ".: Is a folder, not a plan");
    row("a plan that is damaged", "printf '0\\nSECTION\\n2\\nENTITIES\\nx\\ny\\n' > b; $D b",
        "b: line 5: ");
    row("a name of two lines", "$D 'a\nb.dxf'", "a\uFFFDb.dxf: ");
    row("a name that is no UTF-8", "$D \"$(printf 'n\\374n.dxf')\"",
        "n\uFFFDn.dxf: File 'n\uFFFDn.dxf' does not exist");
    row("no such folder", "$D -d none plan.dxf", "plan.dxf: cannot write 'none/plan.txt'");
    row("a folder named with its slash", "$D -d none/ plan.dxf",
        "plan.dxf: cannot write 'none/plan.txt'");
    row("a folder as target", "$D -o . plan.dxf", "plan.dxf: cannot write '.': it is a folder");
    row("a target that nobody may write to", "chmod 444 plan.txt; $D -o plan.txt plan.dxf",
        "plan.dxf: cannot write 'plan.txt': it is write-protected");
    row("a default target that is no GK2 file", "$D plan.dxf", "plan.dxf: 'plan.txt' is no GK2");
    row("the same in a folder named", "$D -d . plan.dxf", "plan.dxf: './plan.txt' is no GK2");
    row("no room for the picture", "(ulimit -f 0; $D --list --preview f.svg plan.dxf >/dev/null)",
        "plan.dxf: cannot write 'f.svg': File too large\n");
    row("no room for the sheets", "(ulimit -f 0; $D -o a.txt plan.dxf)",
        "plan.dxf: cannot write 'a.txt': File too large");
    row("no room in standard output", "$D -q -o - plan.dxf >/dev/full",
        "plan.dxf: cannot write to standard output: No space");
    row("no standard output", "$D --list plan.dxf >&-",
        "cannot write to standard output: Bad file descriptor");
    // The program gets its plan only when the reader of its output is gone.
    row("a list that nobody reads",
        "mkfifo p; (read x < p; cat plan.dxf) | ($D -q --list - 2>e; echo $? >s) | "
        "(exec <&-; echo > p); cat e >&2; exit $(cat s)",
        "cannot write to standard output: Broken pipe");
    row("no standard input", "$D -o a.txt - <&-", "-: ");
    row("no such file to compare with", "$D --compare none.txt plan.dxf",
        "plan.dxf: cannot read 'none.txt': No such file");
    row("another file to compare with", "$D --compare plan.dxf plan.dxf",
        "plan.dxf: 'plan.dxf' is no GK2 file");
    row("a damaged file to compare with",
        "printf 'GK2\\r\\n\\r\\n1\\r\\n1 2 3\\r\\n' >o; $D --compare o plan.dxf",
        "plan.dxf: 'o' is damaged: line 4 ");
}

void TestDxf2gk2::tellsFailuresInOneLine()
{
    QFETCH(const QByteArray, line);
    QFETCH(const QByteArray, told);
    put("plan.txt", "old");
    Outcome r = shell(line);
    // A run that lists tells its summary beside the failure.
    r.err.replace("plan.dxf: 2 sheets, 0 skipped, 0 warnings\n", "");
    QCOMPARE(r.status, 1);
    QVERIFY2(r.err.startsWith("dxf2gk2: " + told), r.err);
    QCOMPARE(r.err.count('\n'), 1);
    QCOMPARE(get("plan.txt"), "old"_ba);
    QCOMPARE(get("a.txt"), "no file"_ba);
}

void TestDxf2gk2::tellsOfAPipeThatBreaksHalfWay()
{
    QList<QByteArray> numbers;
    for (int i = 0; i < 20'000; ++i)
        numbers << QByteArray::number(i);
    put("plan.dxf", planWith(numbers));
    // Less than a block fits into the pipe, and head is gone before the rest.
    for (const QByteArray option : {"-o -", "--list"}) {
        shell("($D -q " + option + " plan.dxf; echo $? >s) 2>e | head -c 10 >/dev/null");
        QVERIFY2(get("e").contains("cannot write to standard output: Broken pipe\n"), get("e"));
        QCOMPARE(get("s"), "1\n"_ba);
    }
}

void TestDxf2gk2::keepsSheetsUnlessTold()
{
    const QByteArray old = "GK2\r\n\r\n7\r\n";
    put("plan.txt", old);
    Outcome r = shell("$D -q --exclude BL_NR plan.dxf");
    QCOMPARE(r.status, 1);
    QCOMPARE(r.err, "dxf2gk2: plan.dxf: no sheet is left; 'plan.txt' would lose its sheets, and "
                    "does only with --allow-empty\n"_ba);
    QCOMPARE(get("plan.txt"), old);
    // A reason of its own, and no refusal where nothing is lost.
    r = shell("$D --exclude BL_NR -o new.txt plan.dxf");
    QCOMPARE(r.status, 0);
    QVERIFY2(r.err.contains("warning: All sheets that would be left have the attribute 'BL_NR'"),
             r.err);
    QCOMPARE(get("new.txt"), "GK2\r\n"_ba);
    QCOMPARE(shell("$D -q --exclude BL_NR -o new.txt plan.dxf").status, 0);
    QCOMPARE(shell("$D -q --allow-empty --exclude BL_NR plan.dxf").status, 0);
    QCOMPARE(get("plan.txt"), "GK2\r\n"_ba);
    put("plan.txt", "letters");
    QCOMPARE(shell("$D -q --force plan.dxf").status, 0);
    QVERIFY(get("plan.txt").startsWith("GK2"));
    put("plan.txt", "");
    QCOMPARE(shell("$D -q plan.dxf").status, 0);
}

void TestDxf2gk2::tellsOfTheSheetsWhenThePictureFails()
{
    const Outcome r = shell("$D --preview none/f.svg plan.dxf");
    QCOMPARE(r.status, 1);
    QVERIFY2(r.err.startsWith("dxf2gk2: plan.dxf: cannot write 'none/f.svg': No such file"), r.err);
    QVERIFY2(r.err.endsWith("; 2 sheets written to plan.txt\n"), r.err);
    QVERIFY(get("plan.txt").startsWith("GK2"));
}

void TestDxf2gk2::takesNamesThatAreNoUtf8()
{
    const Outcome r = shell("n=$(printf 'M\\374n'); mv plan.dxf $n.dxf; $D $n.dxf; cp $n.txt o");
    QCOMPARE(r.status, 0);
    QCOMPARE(r.err, "M\uFFFDn.dxf: 2 sheets written to M\uFFFDn.txt, 0 skipped, 0 warnings\n"_ba);
    QVERIFY(get("o").startsWith("GK2"));
}

void TestDxf2gk2::placesSheetsAndTakesOtherNumbers()
{
    QByteArray plan = planWith({"1", "-"});
    put("p.dxf", plan.replace("0\nINSERT\n", "0\nINSERT\n10\n100\n20\n-5\n"));
    Outcome r = shell("$D p.dxf 2>&1");
    QVERIFY2(r.out.contains("p.dxf: note: 2 sheets have the same corners"), r.out);
    QVERIFY2(r.out.contains("looked for the attribute BL_NR or Bl_Nr, found OTHER"), r.out);
    r = shell("$D --placed --number-tag OTHER p.dxf 2>&1");
    QVERIFY2(!r.out.contains("note:"), r.out);
    QVERIFY2(r.out.contains("looked for the attribute OTHER, found BL_NR"), r.out);
    QCOMPARE(get("p.txt"), "GK2\r\n\r\n-\r\n"
                           " 100,00       15,00    \r\n 130,00       15,00    \r\n"
                           " 130,00       -5,00    \r\n 100,00       -5,00    \r\n"_ba);
    put("m.dxf", planWith({"M\xFC", "\\U+0141"}));
    QCOMPARE(shell("$D --list --encoding windows-1250 --include 'BL_NR=Ł' m.dxf").out.count("Ł"),
             1);
    QVERIFY(shell("$D --list --encoding dos866 m.dxf").out.contains("M№"));
    QCOMPARE(shell("$D -q --encoding dos866 -o - m.dxf").out, shell("$D -q -o - m.dxf").out);
}

void TestDxf2gk2::compares()
{
    const auto record = [](const QByteArray &number, const QByteArray &corners) {
        return "\r\n" + number + "\r\n" + corners;
    };
    put("p.dxf", planWith({"1", "2", "3", "M\xFC"}));
    put("same.txt", "GK2\r\n" + record("1", kCorners) + record("2", kCorners) +
                        record("3", kCorners) + record("M\xFC", kCorners));
    Outcome r = shell("$D --compare same.txt p.dxf");
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, ""_ba);
    QVERIFY2(r.err.startsWith("p.dxf compared with same.txt: no changes\n"), r.err);

    QByteArray moved = kCorners;
    moved.replace("  30,00        0,00", "  33,00       -4,00");
    put("old.txt", "GK2\r\n" + record("0", moved) + record("1", moved) + record("2", "") +
                       record("3", kCorners));
    r = shell("$D -q --compare old.txt p.dxf");
    QCOMPARE(r.status, 4);
    const QByteArrayList rows = r.out.split('\n');
    QCOMPARE(rows.size(), 6);
    QVERIFY2(r.out.contains(" gone  0\n"), r.out);
    QVERIFY2(r.out.contains("moved  1       by 5.00\n"), r.out);
    QVERIFY2(r.out.contains("moved  2       other corners\n"), r.out);
    QVERIFY2(r.out.contains("  new  M\u00FC\n"), r.out);

    QVERIFY2(!shell("$D -q --tolerance 5 --compare old.txt p.dxf").out.contains("by 5.00"), r.out);
    const QJsonValue changes = QJsonDocument::fromJson(
        shell("$D --json --compare old.txt p.dxf").out)["plans"_L1][0]["changes"_L1];
    QCOMPARE(changes.toArray().size(), 4);
    QCOMPARE(changes[1]["distance"_L1].toDouble(), 5.0);
    QCOMPARE(changes[3]["before"_L1].toString(), u"0"_s);

    QCOMPARE(shell("$D -q --compare old.txt --preview a.svg p.dxf").status, 4);
    for (const char *legend : {"new: 1", "moved: 2", "gone: 1"})
        QVERIFY2(get("a.svg").contains(legend), legend);

    // The file may be the one that is written over; then that was what was wanted.
    r = shell("$D --compare old.txt -o old.txt p.dxf");
    QCOMPARE(r.status, 0);
    QVERIFY2(r.err.contains("compared with old.txt: 1 new, 1 gone, 2 moved\n"), r.err);
    QCOMPARE(get("old.txt"), get("same.txt"));
}

void TestDxf2gk2::keepsPlansAndOldResults_data()
{
    QTest::addColumn<QByteArray>("line");
    const auto row = [](const char *name, const char *line) {
        QTest::newRow(name) << QByteArray(line);
    };
    row("by its name", "$D -o plan.dxf plan.dxf");
    row("by another spelling", "$D -o \"$PWD/./plan.dxf\" plan.dxf");
    row("by a link", "ln -s plan.dxf plan.txt; $D plan.dxf");
    row("by a second name", "ln plan.dxf x.txt; $D -o x.txt plan.dxf");
    row("by the end of a link", "mv plan.dxf p.txt; ln -s p.txt plan.dxf; $D p.txt");
    row("as another plan's result",
        "$D none.dxf plan.dxf -d . ; ln plan.dxf none.txt; $D none.dxf plan.dxf");
    row("as standard input", "$D -o plan.dxf - < plan.dxf");
    row("as standard output", "$D -o - plan.dxf >> plan.dxf");
    row("by a picture", "ln plan.dxf a.png; $D --preview a.png plan.dxf");
    row("by force", "ln plan.dxf plan.txt; $D --force plan.dxf");
}

void TestDxf2gk2::keepsPlansAndOldResults()
{
    QFETCH(const QByteArray, line);
    QCOMPARE(shell(line).status, 1);
    QCOMPARE(get("plan.dxf"), planWith({"2", "1"}));
}

void TestDxf2gk2::keepsLinksAndPermissions()
{
    // The second link leads nowhere yet.
    const Outcome r = shell("mkdir s; echo old > s/old; ln -s s/old s/new .; umask 027; "
                            "chmod 604 s/old; for f in old new; do $D -q -o $f plan.dxf; done; "
                            "stat -c '%F %a' old new s/old s/new");
    QCOMPARE(r.out,
             "symbolic link 777\nsymbolic link 777\nregular file 604\nregular file 640\n"_ba);
    QVERIFY(get("s/old").startsWith("GK2"));
    QVERIFY(get("s/new").startsWith("GK2"));
}

void TestDxf2gk2::filtersAndLists()
{
    put("p.dxf", planWith({"10", "-", "x=y", "10", "9\x1B[2J", "11"}));
    Outcome r = shell("$D --list --include BL_NR=x=y p.dxf");
    QCOMPARE(r.status, 0);
    QCOMPARE(
        r.out,
        "Number  Value  Block  Top left         Top right        Bottom right     Bottom left\n"
        "     -  x=y    Blatt     0,00   20,00    30,00   20,00    30,00    0,00     0,00    0,00\n"_ba);
    r = shell("$D --list --as-drawn --exclude OTHER p.dxf");
    QCOMPARE(r.out.count('\n'), 6);
    QVERIFY2(!r.out.contains('\x1B'), r.out);
    QVERIFY2(r.out.contains("10     Blatt     0,00    0,00    30,00    0,00"), r.out);
    r = shell("$D --list-tags p.dxf");
    QVERIFY2(r.out.startsWith("Inserts  Tag    Example values\n      5  BL_NR  10 | x=y | 9"),
             r.out);
    QVERIFY2(r.out.endsWith("      1  OTHER  -\n"), r.out);
    QCOMPARE(shell("ls -A").out, "p.dxf\nplan.dxf\n"_ba);
}

void TestDxf2gk2::printsJson()
{
    put("p.dxf", planWith({"7", "7", "-"}));
    Outcome r = shell("$D --json --list --list-tags p.dxf none.dxf");
    QCOMPARE(r.status, 1);
    const QJsonValue plans = QJsonDocument::fromJson(r.out)["plans"_L1];
    const QJsonValue plan = plans[0];
    const QJsonValue sheets = plan["sheets"_L1];
    const QJsonArray given{plan["skipped"_L1],
                           plan["warnings"_L1],
                           plan["diagnostics"_L1][1]["subject"_L1],
                           plan["tags"_L1][0]["inserts"_L1],
                           sheets.toArray().size(),
                           sheets[0]["value"_L1],
                           sheets[2]["corners"_L1]["topRight"_L1]};
    QCOMPARE(given, QJsonArray({1, 2, u"7"_s, 2, 3, QJsonValue::Null, QJsonArray({30, 20})}));
    QVERIFY(plans[1]["error"_L1]["message"_L1].toString().contains("none.dxf"_L1));
    r = shell("$D --json plan.dxf");
    const QJsonValue summary = QJsonDocument::fromJson(r.out)["plans"_L1][0];
    QCOMPARE(summary["written"_L1].toInt(), 2);
    QCOMPARE(summary["output"_L1].toString(), u"plan.txt"_s);
}

void TestDxf2gk2::speaksGermanToPeople()
{
    put("p.dxf", planWith({"7", "7"}));
    const auto german = [this](const QByteArray &line) {
        return shell("LC_ALL=de_DE.UTF-8 $D " + line);
    };
    const QByteArray warning =
        "dxf2gk2: p.dxf: line 53: warning: Mehr als ein Blatt hat die Blattnummer „7“\n";
    QCOMPARE(german("p.dxf").err,
             warning + "p.dxf: 2 Blätter nach p.txt geschrieben, 0 übersprungen, 1 Warnung\n");
    QVERIFY(german("--list p.dxf").out.startsWith("Nummer  Wert  Block  Oben links "));
    QCOMPARE(german("none.dxf").err, "dxf2gk2: none.dxf: Die Datei „none.dxf“ gibt es nicht\n"_ba);
    // The toolkit's sentence in ours; and the usage is read before a language is known.
    QCOMPARE(german("-x").err, "dxf2gk2: unbekannte Option 'x' (Hilfe mit --help)\n"_ba);
    QCOMPARE(german("--json=1 p.dxf").err,
             "dxf2gk2: --json nimmt keinen Wert (Hilfe mit --help)\n"_ba);
    QVERIFY(german("-o - p.dxf").err.contains("2 Blätter auf die Standardausgabe geschrieben"));
    const QByteArray help = german("--help").out;
    for (const char *title : {"\nOptionen:\n", "\nRückgabewerte:\n", "\nBeispiele:\n"})
        QVERIFY2(help.contains(title), title);
    for (const QByteArray line : {"p.dxf none.dxf", "--list --list-tags p.dxf", "-x", ""}) {
        const Outcome english = shell("$D --json " + line);
        const Outcome r = german("--json " + line);
        QCOMPARE(r.out, english.out);
        QCOMPARE(r.err, english.err);
        QVERIFY2(!r.out.isEmpty(), line);
    }
}

void TestDxf2gk2::countsWarningsWhenStrict()
{
    QCOMPARE(shell("$D --strict plan.dxf").status, 0);
    put("p.dxf", planWith({"7", "-"}));
    const Outcome r = shell("$D --strict p.dxf");
    QCOMPARE(r.status, 3);
    QVERIFY2(r.err.startsWith("dxf2gk2: p.dxf: line "), r.err);
    QVERIFY2(r.err.endsWith("p.dxf: 1 sheet written to p.txt, 1 skipped, 1 warning\n"), r.err);
    QCOMPARE(shell("$D --strict p.dxf none.dxf").status, 1);
    QCOMPARE(shell("$D -q p.dxf").err, ""_ba);
}

void TestDxf2gk2::drawsPreviewsAndProgress()
{
    QVERIFY(shell("$D --progress always --preview a.PNG plan.dxf").err.contains("100 %"));
    QVERIFY(QImage(m_dir->filePath(u"a.PNG"_s)).width() > 500);
    QVERIFY(!shell("$D --progress auto --list --preview a.svg plan.dxf").err.contains('%'));
    QVERIFY(get("a.svg").contains("</svg>"));
}

void TestDxf2gk2::leavesNothingBehindWhenKilled()
{
    QList<QByteArray> numbers;
    for (int i = 0; i < 100'000; ++i)
        numbers << QByteArray::number(i);
    put("plan.dxf", planWith(numbers));
    const QByteArray old = "GK2\r\n\r\nold\r\n";
    put("plan.txt", old);
    // Killed at every stage: while it reads, writes, renames.
    for (int delay = 5; delay <= 400; delay += 15) {
        const QByteArray signal = delay % 2 == 0 ? "TERM" : "KILL";
        const Outcome r = shell("$D -q plan.dxf & sleep " + QByteArray::number(delay / 1000.0) +
                                "; kill -" + signal + " $! 2>/dev/null; wait $!");
        QCOMPARE(shell("ls -A").out, "plan.dxf\nplan.txt\n"_ba);
        const QByteArray text = get("plan.txt");
        if (r.status == 0 || text != old)
            QVERIFY(text.endsWith(kCorners));
        put("plan.txt", old);
    }
}

QTEST_GUILESS_MAIN(TestDxf2gk2)
#include "tst_dxf2gk2.moc"
