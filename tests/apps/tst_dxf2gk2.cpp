// SPDX-License-Identifier: GPL-2.0-or-later
// The command line keeps its promises; the real program runs.
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

/// 0, 1, 2, ...
QList<QByteArray> numbers(int count)
{
    QList<QByteArray> all;
    for (int i = 0; i < count; ++i)
        all << QByteArray::number(i);
    return all;
}

const QByteArray kCorners = "   0,00       20,00    \r\n  30,00       20,00    \r\n"
                            "  30,00        0,00    \r\n   0,00        0,00    \r\n";

} // namespace

class TestDxf2gk2 : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        qputenv("D", DXF2GK2);
        qputenv("LC_ALL", "C.UTF-8");
        qunsetenv("LANGUAGE");
        m_dir = std::make_unique<QTemporaryDir>();
        put("plan.dxf", planWith({"2", "1"}));
    }

    void converts()
    {
        const QByteArray gk2 = "GK2\r\n\r\n1\r\n" + kCorners + "\r\n2\r\n" + kCorners;
        Outcome r = shell("$D plan.dxf");
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, ""_ba);
        QCOMPARE(r.err, "plan.dxf: 2 sheets written to plan.txt, 0 skipped, 0 warnings\n"_ba);
        QCOMPARE(get("plan.txt"), gk2);
        QCOMPARE(shell("$D -q -o - plan.dxf; cat plan.dxf | $D -q -").out, gk2 + gk2);

        // A pipe or device is written to; putting a file in its place would do harm.
        QCOMPARE(shell("mkfifo f; cat f >g & $D -q -o f plan.dxf; wait; test -p f && cat g").out,
                 gk2);

        // A name that is no UTF-8 is removed here, too: the toolkit cannot.
        r = shell("n=$(printf 'M\\374'); cp plan.dxf $n.dxf; $D $n.dxf; mv $n.txt o; rm $n.dxf");
        QCOMPARE(r.err, "M\uFFFD.dxf: 2 sheets written to M\uFFFD.txt, 0 skipped, 0 warnings\n"_ba);
        QCOMPARE(get("o"), gk2);

        put("Ü a.b.dxf", planWith({"1"}));
        // In any locale; and a plan that fails keeps no other from its turn.
        r = shell("mkdir Aus; LC_ALL=C $D -q -d Aus plan.dxf none.dxf 'Ü a.b.dxf'");
        QCOMPARE(r.status, 1);
        QCOMPARE(r.err.count('\n'), 1);
        QCOMPARE(get("Aus/plan.txt"), gk2);
        QCOMPARE(get("Aus/Ü a.b.txt"), "GK2\r\n\r\n1\r\n" + kCorners);
    }

    void refusesWrongUsage()
    {
        const auto row = [this](const char *name, const QByteArray &arguments, const char *told) {
            const Outcome r = shell("$D " + arguments);
            QVERIFY2(r.status == 2, name);
            QVERIFY2(r.err.startsWith(QByteArray("dxf2gk2: ") + told), r.err);
            QCOMPARE(r.err.count('\n'), 1);
            const bool isJson = arguments.contains("--json"); // even with a value: a program asked
            const QJsonObject answer = QJsonDocument::fromJson(r.out).object();
            QVERIFY2(isJson ? answer.contains("error"_L1) : r.out.isEmpty(), name);
            QCOMPARE(shell("ls -A").out, "plan.dxf\n"_ba);
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
        row("an unknown encoding", "--encoding none plan.dxf", "--encoding does not know");

        row("sheets and JSON in one output", "-o - --json plan.dxf", "--json and the sheets");
        row("the same, by default", "--json -", "--json and the sheets");
        row("a list that should be written", "-o - --list plan.dxf", "--list and --list-tags");

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

    void tellsFailuresInOneLine()
    {
        const auto row = [this](const char *name, const QByteArray &line, const char *told) {
            init();
            put("plan.txt", "old");
            Outcome r = shell(line);
            // A run that lists tells its summary beside the failure.
            r.err.replace("plan.dxf: 2 sheets, 0 skipped, 0 warnings\n", "");
            QVERIFY2(r.status == 1, name);
            QVERIFY2(r.err.startsWith(QByteArray("dxf2gk2: ") + told), r.err);
            QCOMPARE(r.err.count('\n'), 1);
            QCOMPARE(get("plan.txt"), "old"_ba);
            QCOMPARE(get("a.txt"), "no file"_ba);
        };
        row("no such plan", "$D none.dxf", "none.dxf: File 'none.dxf' does not exist");
        row("a folder as plan", "$D .", ".: Is a folder, not a plan");
        row("a plan that is damaged", "printf '0\\nSECTION\\n2\\nENTITIES\\nx\\ny\\n' > b; $D b",
            "b: line 5: ");
        row("a name of two lines", "$D 'a\nb.dxf'", "a\uFFFDb.dxf: ");
        row("a name that is no UTF-8", "$D \"$(printf 'n\\374n.dxf')\"",
            "n\uFFFDn.dxf: File 'n\uFFFDn.dxf' does not exist");
        row("no such folder", "$D -d none plan.dxf", "plan.dxf: cannot write 'none/plan.txt'");
        row("a folder with a slash", "$D -d no/ plan.dxf", "plan.dxf: cannot write 'no/plan.txt'");
        row("a folder as target", "$D -o . plan.dxf", "plan.dxf: cannot write '.': it is a folder");
        row("a target that nobody may write to", "chmod 444 plan.txt; $D -o plan.txt plan.dxf",
            "plan.dxf: cannot write 'plan.txt': it is write-protected");
        row("a target that is no GK2 file", "$D plan.dxf", "plan.dxf: 'plan.txt' is no GK2");
        row("the same in a folder named", "mkdir s; cp plan.txt s; $D -d s plan.dxf",
            "plan.dxf: 's/plan.txt' is no GK2");
        row("no room for the picture",
            "(ulimit -f 0; $D --list --preview f.svg plan.dxf >/dev/null)",
            "plan.dxf: cannot write 'f.svg': File too large\n");
        row("no room for the sheets", "(ulimit -f 0; $D -o a.txt plan.dxf)",
            "plan.dxf: cannot write 'a.txt': File too large");
        row("no room in standard output", "$D -q -o - plan.dxf >/dev/full",
            "plan.dxf: cannot write to standard output: No space");
        row("no standard output", "$D --list plan.dxf >&-",
            "cannot write to standard output: Bad file descriptor");
        row("no standard input", "$D -o a.txt - <&-", "-: ");
        row("no such file to compare with", "$D --compare none.txt plan.dxf",
            "plan.dxf: cannot read 'none.txt': No such file");
        row("another file to compare with", "$D --compare plan.dxf plan.dxf",
            "plan.dxf: 'plan.dxf' is no GK2 file");
        row("a damaged file to compare with",
            "printf 'GK2\\r\\n\\r\\n1\\r\\n1 2 3\\r\\n' >o; $D --compare o plan.dxf",
            "plan.dxf: 'o' is damaged: line 4 ");
    }

    void tellsOfAPipeThatBreaksHalfWay()
    {
        put("plan.dxf", planWith(numbers(20'000)));
        // Less than a block fits into the pipe, and head is gone before the rest.
        for (const QByteArray option : {"-o -", "--list"}) {
            shell("($D -q " + option + " plan.dxf; echo $? >s) 2>e | head -c 10 >/dev/null");
            QVERIFY2(get("e").contains("cannot write to standard output: Broken pipe\n"), get("e"));
            QCOMPARE(get("s"), "1\n"_ba);
        }
    }

    void keepsSheetsUnlessTold()
    {
        const QByteArray old = "GK2\r\n\r\n7\r\n";
        put("plan.txt", old);
        Outcome r = shell("$D -q --exclude BL_NR plan.dxf");
        QCOMPARE(r.status, 1);
        QCOMPARE(r.err,
                 "dxf2gk2: plan.dxf: no sheet is left; 'plan.txt' would lose its sheets, and "
                 "does only with --allow-empty\n"_ba);
        QCOMPARE(get("plan.txt"), old);
        // A reason of its own, and no refusal where nothing is lost.
        r = shell("$D --exclude BL_NR -o new.txt plan.dxf");
        QCOMPARE(r.status, 0);
        QVERIFY2(r.err.contains("warning: All sheets that would be left have"), r.err);
        QCOMPARE(get("new.txt"), "GK2\r\n"_ba);

        QCOMPARE(shell("$D -q --allow-empty --exclude BL_NR plan.dxf").status, 0);
        QCOMPARE(get("plan.txt"), "GK2\r\n"_ba);
        put("plan.txt", "letters");
        QCOMPARE(shell("$D -q --force plan.dxf").status, 0);
        QVERIFY(get("plan.txt").startsWith("GK2"));
    }

    void placesSheetsAndTakesOtherNumbers()
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
        QCOMPARE(shell("$D --list --encoding cp1250 --include 'BL_NR=Ł' m.dxf").out.count("Ł"), 1);
        QVERIFY(shell("$D --list --encoding dos866 m.dxf").out.contains("M№"));
        QCOMPARE(shell("$D -q --encoding dos866 -o - m.dxf").out, shell("$D -q -o - m.dxf").out);
    }

    void compares()
    {
        const auto record = [](const QByteArray &number, const QByteArray &corners = kCorners) {
            return "\r\n" + number + "\r\n" + corners;
        };
        put("p.dxf", planWith({"1", "2", "3", "M\xFC"}));
        put("same.txt", "GK2\r\n" + record("M\xFC") + record("1") + record("2") + record("3"));
        Outcome r = shell("$D --compare same.txt p.dxf");
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, ""_ba);
        QVERIFY2(r.err.startsWith("p.dxf compared with same.txt: no changes\n"), r.err);

        QByteArray moved = kCorners;
        moved.replace("  30,00        0,00", "  33,00       -4,00");
        put("old.txt",
            "GK2\r\n" + record("0", moved) + record("1", moved) + record("2", "") + record("3"));
        r = shell("$D -q --compare old.txt p.dxf");
        QCOMPARE(r.status, 4);
        QCOMPARE(r.out.count('\n'), 5);
        for (const char *row : {" gone  0\n", "moved  1       by 5.00\n",
                                "moved  2       other corners\n", "  new  M\u00FC\n"})
            QVERIFY2(r.out.contains(row), r.out);

        QVERIFY(!shell("$D -q --tolerance 5 --compare old.txt p.dxf").out.contains("by 5.00"));
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

    void keepsThePlan()
    {
        for (const QByteArray line :
             {"$D -o plan.dxf plan.dxf", "$D -o \"$PWD/./plan.dxf\" plan.dxf",
              "ln -s plan.dxf plan.txt; $D plan.dxf", "ln plan.dxf x.txt; $D -o x.txt plan.dxf",
              "mv plan.dxf p.txt; ln -s p.txt plan.dxf; $D p.txt",
              "$D none.dxf plan.dxf -d . ; ln plan.dxf none.txt; $D none.dxf plan.dxf",
              "$D -o plan.dxf - < plan.dxf", "$D -o - plan.dxf >> plan.dxf",
              "ln plan.dxf a.png; $D --preview a.png plan.dxf",
              "ln plan.dxf plan.txt; $D --force plan.dxf"}) {
            init();
            QVERIFY2(shell(line).status == 1, line);
            QVERIFY2(get("plan.dxf") == planWith({"2", "1"}), line);
        }
    }

    void keepsLinksAndPermissions()
    {
        // The second link leads nowhere yet.
        const Outcome r = shell("mkdir s; echo old > s/old; ln -s s/old s/new .; umask 027; "
                                "chmod 604 s/old; for f in old new; do $D -q -o $f plan.dxf; done; "
                                "stat -c '%F %a' old new s/old s/new");
        QCOMPARE(r.out,
                 "symbolic link 777\nsymbolic link 777\nregular file 604\nregular file 640\n"_ba);
        QVERIFY(get("s/old").startsWith("GK2") && get("s/new").startsWith("GK2"));
    }

    void filtersAndLists()
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
        QVERIFY2(r.out.startsWith("Inserts  Tag    Example values\n      5  BL_NR  10 | x=y"),
                 r.out);
        QVERIFY2(r.out.endsWith("      1  OTHER  -\n"), r.out);
        QCOMPARE(shell("ls -A").out, "p.dxf\nplan.dxf\n"_ba);
    }

    void printsJson()
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

    void speaksGermanToPeople()
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
        QCOMPARE(german("none.dxf").err,
                 "dxf2gk2: none.dxf: Die Datei „none.dxf“ gibt es nicht\n"_ba);
        // The toolkit's sentence in ours; and the usage is read before a language is known.
        QCOMPARE(german("-x").err, "dxf2gk2: unbekannte Option 'x' (Hilfe mit --help)\n"_ba);
        QCOMPARE(german("--list=1 p.dxf").err,
                 "dxf2gk2: --list nimmt keinen Wert (Hilfe mit --help)\n"_ba);
        QVERIFY(german("-o - p.dxf").err.contains("2 Blätter auf die Standardausgabe geschrieben"));
        for (const char *title : {"\nOptionen:\n", "\nRückgabewerte:\n", "\nBeispiele:\n"})
            QVERIFY2(german("--help").out.contains(title), title);
        for (const QByteArray line :
             {"p.dxf none.dxf", "--list --list-tags p.dxf", "-x", "--json=1", ""}) {
            const Outcome english = shell("$D --json " + line);
            const Outcome r = german("--json " + line);
            QVERIFY2(r.out == english.out && r.err == english.err && !r.out.isEmpty(), line);
        }
    }

    void countsWarningsWhenStrict()
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

    void drawsPreviewsAndProgress()
    {
        QVERIFY(shell("$D --progress always --preview a.PNG plan.dxf 2>&1").out.contains("100 %"));
        QVERIFY(QImage(m_dir->filePath(u"a.PNG"_s)).width() > 500);
        QVERIFY(!shell("$D --progress auto --list --preview a.svg plan.dxf").err.contains('%'));
        QVERIFY(get("a.svg").contains("</svg>"));
        // Where the picture fails, the sheets are there all the same.
        const Outcome r = shell("$D --preview none/f.svg -o b.txt plan.dxf");
        QVERIFY2(r.err.startsWith("dxf2gk2: plan.dxf: cannot write 'none/f.svg': No such file") &&
                     r.err.endsWith("; 2 sheets written to b.txt\n"),
                 r.err);
        QVERIFY(r.status == 1 && get("b.txt").startsWith("GK2"));
    }

    void writesTables()
    {
        QCOMPARE(shell("$D -q --list --table t.csv plan.dxf").status, 0);
        const QByteArrayList lines = get("t.csv").split('\n');
        QVERIFY2(lines[0].startsWith("Number,Block,"), lines[0]);
        QVERIFY2(lines[0].contains("BL_NR,Top left X,Top left Y,Top right X"), lines[0]);
        QVERIFY2(lines[1].startsWith("1,") && lines[1].contains(",0,20,30,20,30,0,0,0\r"),
                 lines[1]);
        QVERIFY2(get("t.csv").contains("\r\n\r\nKind,Line,Concerns,Finding\r\n"), get("t.csv"));
        QVERIFY(get("plan.txt") == "no file"); // a list alone

        QCOMPARE(shell("$D -q --table t.xlsx plan.dxf").status, 0);
        QVERIFY(get("t.xlsx").startsWith("PK"));
        QVERIFY(get("plan.txt").startsWith("GK2"));
        const Outcome r = shell("mkdir d.csv; $D -q --table d.csv plan.dxf");
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.startsWith("dxf2gk2: plan.dxf: 'd.csv' cannot be written: it is"), r.err);
    }

    void leavesNothingBehindWhenKilled()
    {
        put("plan.dxf", planWith(numbers(100'000)));
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

private:
    /// Runs a line of shell in the test's folder; $D is the program.
    Outcome shell(const QByteArray &line)
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

    void put(const char *name, const QByteArray &text)
    {
        QFile file(m_dir->filePath(QString::fromUtf8(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    QByteArray get(const char *name)
    {
        QFile file(m_dir->filePath(QString::fromUtf8(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file"_ba;
    }
    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(TestDxf2gk2)
#include "tst_dxf2gk2.moc"
