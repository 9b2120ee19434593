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
    void refusesWrongUsage();
    void tellsFailuresInOneLine();
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
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
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
    QVERIFY(r.status == 0 && r.out.isEmpty());
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

void TestDxf2gk2::refusesWrongUsage()
{
    const QByteArray lines =
        "|--nonsense plan.dxf|''|plan.dxf -o|-o a.txt plan.dxf b.dxf|-o a -d . plan.dxf|"
        "--preview a.svg plan.dxf b.dxf|--preview a.gif plan.dxf|--include TYP plan.dxf|"
        "--include =x plan.dxf|--exclude A --exclude B plan.dxf|--progress maybe plan.dxf|"
        "-o - --json plan.dxf|-o - --list plan.dxf|-o a.txt --list-tags plan.dxf|- -|-d . -|"
        "--json -|plan.dxf ./plan.dxf|-d . plan.dxf ../x/plan.dxf|"
        "-o p.svg --preview ./p.svg plan.dxf";
    for (const QByteArray &line : lines.split('|')) {
        const Outcome r = shell("$D " + line);
        const bool isOneLine = r.err.startsWith("dxf2gk2: ") && r.err.count('\n') == 1;
        QVERIFY2(r.status == 2 && isOneLine, line + ": " + r.err);
        const QJsonDocument json = QJsonDocument::fromJson(r.out);
        QVERIFY2(line.contains("--json") ? json.object().contains("error"_L1) : r.out.isEmpty(),
                 line);
        QCOMPARE(shell("ls -A").out, "plan.dxf\n"_ba);
    }
}

void TestDxf2gk2::tellsFailuresInOneLine()
{
    const auto check = [this](const char *line, const char *told) {
        init();
        put("plan.txt", "old");
        Outcome r = shell(line);
        // A run that lists tells its summary beside the failure.
        r.err.replace("plan.dxf: 2 sheets, 0 skipped, 0 warnings\n", "");
        const bool isTold = r.err.startsWith(QByteArray("dxf2gk2: ") + told);
        QVERIFY2(r.status == 1 && r.err.count('\n') == 1 && isTold, line + ("\n" + r.err));
        QVERIFY2(get("plan.txt") == "old" && get("a.txt") == "no file", line);
    };
    check("$D none.dxf", "none.dxf: File 'none.dxf' does not exist");
    check("$D .", ".: Is a folder, not a plan");
    check("printf '0\\nSECTION\\n2\\nENTITIES\\nx\\ny\\n' > b; $D b", "b: line 5: ");
    check("$D 'a\nb.dxf'", "a\uFFFDb.dxf: ");
    check("$D -d none plan.dxf", "plan.dxf: cannot write 'none/plan.txt'");
    check("$D -o . plan.dxf", "plan.dxf: cannot write '.': it is a folder");
    check("(ulimit -f 0; $D --list --preview f.svg plan.dxf >/dev/null)",
          "plan.dxf: cannot write 'f.svg': File too large");
    check("(ulimit -f 0; $D -o a.txt plan.dxf)", "plan.dxf: cannot write 'a.txt': File too large");
    check("$D -q -o - plan.dxf >/dev/full", "plan.dxf: cannot write to standard output: No space");
    check("$D --list plan.dxf >&-", "cannot write to standard output: Bad file descriptor");
    // The program gets its plan only when the reader of its output is gone.
    check("mkfifo p; (read x < p; cat plan.dxf) | ($D -q --list - 2>e; echo $? >s) | "
          "(exec <&-; echo > p); cat e >&2; exit $(cat s)",
          "cannot write to standard output: Broken pipe");
    check("$D -o a.txt - <&-", "-: ");
}

void TestDxf2gk2::keepsPlansAndOldResults()
{
    for (const char *line :
         {"$D -o plan.dxf plan.dxf", "$D -o \"$PWD/./plan.dxf\" plan.dxf",
          "ln -s plan.dxf plan.txt; $D plan.dxf", "ln plan.dxf x.txt; $D -o x.txt plan.dxf",
          "mv plan.dxf p.txt; ln -s p.txt plan.dxf; $D p.txt",
          "$D none.dxf plan.dxf -d . ; ln plan.dxf none.txt; $D none.dxf plan.dxf",
          "$D -o plan.dxf - < plan.dxf", "$D -o - plan.dxf >> plan.dxf",
          "ln plan.dxf a.png; $D --preview a.png plan.dxf"}) {
        init();
        QVERIFY2(shell(line).status == 1, line);
        QVERIFY2(get("plan.dxf") == planWith({"2", "1"}), line);
    }
}

void TestDxf2gk2::keepsLinksAndPermissions()
{
    // The second link leads nowhere yet.
    const Outcome r = shell("mkdir s; echo old > s/old; ln -s s/old s/new .; umask 027; "
                            "chmod 604 s/old; for f in old new; do $D -q -o $f plan.dxf; done; "
                            "stat -c '%F %a' old new s/old s/new");
    QCOMPARE(r.out,
             "symbolic link 777\nsymbolic link 777\nregular file 604\nregular file 640\n"_ba);
    QVERIFY(get("s/old").startsWith("GK2") && get("s/new").startsWith("GK2"));
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
    QVERIFY2(r.out.count('\n') == 6 && !r.out.contains('\x1B') &&
                 r.out.contains("10     Blatt     0,00    0,00    30,00    0,00"),
             r.out);
    r = shell("$D --list-tags p.dxf");
    QVERIFY2(r.out.startsWith("Inserts  Tag    Example values\n      5  BL_NR  10 | x=y | 9") &&
                 r.out.endsWith("      1  OTHER  -\n"),
             r.out);
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
    QVERIFY(german("--help").out.contains("\nOptionen:\n"));
    for (const QByteArray line : {"p.dxf none.dxf", "--list --list-tags p.dxf", "-x", ""}) {
        const Outcome english = shell("$D --json " + line);
        const Outcome r = german("--json " + line);
        QVERIFY2(r.out == english.out && r.err == english.err && !r.out.isEmpty(), line);
    }
}

void TestDxf2gk2::countsWarningsWhenStrict()
{
    QCOMPARE(shell("$D --strict plan.dxf").status, 0);
    put("p.dxf", planWith({"7", "-"}));
    const Outcome r = shell("$D --strict p.dxf");
    QVERIFY2(r.status == 3 && r.err.startsWith("dxf2gk2: p.dxf: line "), r.err);
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
    put("plan.txt", "old");
    // Killed at every stage: while it reads, writes, renames.
    for (int delay = 5; delay <= 400; delay += 15) {
        const QByteArray signal = delay % 2 == 0 ? "TERM" : "KILL";
        const Outcome r = shell("$D -q plan.dxf & sleep " + QByteArray::number(delay / 1000.0) +
                                "; kill -" + signal + " $! 2>/dev/null; wait $!");
        QCOMPARE(shell("ls -A").out, "plan.dxf\nplan.txt\n"_ba);
        const QByteArray text = get("plan.txt");
        QVERIFY(r.status == 0 ? text.endsWith(kCorners) : text == "old" || text.endsWith(kCorners));
        put("plan.txt", "old");
    }
}

QTEST_GUILESS_MAIN(TestDxf2gk2)
#include "tst_dxf2gk2.moc"
