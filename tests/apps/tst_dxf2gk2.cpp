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
    int status = -1; ///< -2: killed
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
    void keepsPlansAndOldResults_data();
    void keepsPlansAndOldResults();
    void goesOnAfterAFailure();
    void keepsLinks();
    void keepsPermissions();
    void filtersAndLists();
    void printsJson();
    void countsWarningsWhenStrict();
    void drawsPreviews();
    void showsProgress();
    void leavesNothingBehindWhenKilled();

private:
    Outcome run(const QStringList &arguments, const QByteArray &input = {});
    /// Runs a line of shell in the test's folder; $D is the program.
    Outcome shell(const QString &line);
    Outcome finished(QProcess &process, const QByteArray &input = {});
    void put(const QString &name, const QByteArray &text);
    QByteArray get(const QString &name);
    QStringList names() const
    {
        return QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestDxf2gk2::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    put(u"plan.dxf"_s, planWith({"2", "1"}));
}

Outcome TestDxf2gk2::finished(QProcess &process, const QByteArray &input)
{
    if (!process.waitForStarted())
        return {};
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished())
        return {};
    const bool hasExited = process.exitStatus() == QProcess::NormalExit;
    return {hasExited ? process.exitCode() : -2, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

Outcome TestDxf2gk2::run(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.setWorkingDirectory(m_dir->path());
    process.start(QString::fromUtf8(DXF2GK2), arguments);
    return finished(process, input);
}

Outcome TestDxf2gk2::shell(const QString &line)
{
    QProcess process;
    process.setWorkingDirectory(m_dir->path());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"D"_s, QString::fromUtf8(DXF2GK2));
    process.setProcessEnvironment(environment);
    process.start(u"sh"_s, {u"-c"_s, line});
    return finished(process);
}

void TestDxf2gk2::put(const QString &name, const QByteArray &text)
{
    QFile file(m_dir->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

QByteArray TestDxf2gk2::get(const QString &name)
{
    QFile file(m_dir->filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file"_ba;
}

void TestDxf2gk2::converts()
{
    const QByteArray gk2 = "GK2\r\n\r\n1\r\n" + kCorners + "\r\n2\r\n" + kCorners;
    Outcome r = run({u"plan.dxf"_s});
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, ""_ba);
    QCOMPARE(r.err, "plan.dxf: 2 sheets written to plan.txt, 0 skipped, 0 warnings\n"_ba);
    QCOMPARE(get(u"plan.txt"_s), gk2);
    QCOMPARE(run({u"-q"_s, u"-o"_s, u"-"_s, u"plan.dxf"_s}).out, gk2);
    QCOMPARE(run({u"-q"_s, u"-"_s}, planWith({"1", "2"})).out, gk2);

    // A pipe or device is written to; putting a file in its place would do harm.
    QCOMPARE(shell(u"mkfifo f; cat f >got & $D -q -o f plan.dxf; wait; test -p f && cat got"_s).out,
             gk2);

    put(u"Ü a.b.dxf"_s, planWith({"1"}));
    QVERIFY(QDir(m_dir->path()).mkdir(u"Aus"_s));
    r = shell(u"LC_ALL=C $D -q -d Aus plan.dxf 'Ü a.b.dxf'"_s); // in any locale
    QCOMPARE(r.err, ""_ba);
    QCOMPARE(get(u"Aus/plan.txt"_s), gk2);
    QCOMPARE(get(u"Aus/Ü a.b.txt"_s), "GK2\r\n\r\n1\r\n" + kCorners);
}

void TestDxf2gk2::refusesWrongUsage_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line : {"",
                             "--nonsense plan.dxf",
                             "''",
                             "plan.dxf -o",
                             "-o a.txt plan.dxf b.dxf",
                             "-o a -d . plan.dxf",
                             "--preview a.svg plan.dxf b.dxf",
                             "--preview a.gif plan.dxf",
                             "--include TYP plan.dxf",
                             "--include =x plan.dxf",
                             "--exclude A --exclude B plan.dxf",
                             "--progress maybe plan.dxf",
                             "-o - --json plan.dxf",
                             "-o - --list plan.dxf",
                             "-o a.txt --list-tags plan.dxf",
                             "- -",
                             "-d . -",
                             "--json -",
                             "plan.dxf ./plan.dxf",
                             "-d . plan.dxf ../x/plan.dxf",
                             "-o p.svg --preview ./p.svg plan.dxf"})
        QTest::newRow(line) << QString::fromLatin1(line);
}

void TestDxf2gk2::refusesWrongUsage()
{
    QFETCH(const QString, line);
    const Outcome r = shell(u"$D "_s + line);
    QCOMPARE(r.status, 2);
    QVERIFY2(r.err.startsWith("dxf2gk2: ") && r.err.count('\n') == 1, r.err);
    QCOMPARE(names(), QStringList(u"plan.dxf"_s));
    const bool hasJson = line.contains("--json"_L1);
    QCOMPARE(QJsonDocument::fromJson(r.out).object().contains("error"_L1), hasJson);
    QVERIFY(hasJson || r.out.isEmpty());
}

void TestDxf2gk2::tellsFailuresInOneLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("told"); // a pattern; the line begins with it
    const auto row = [](const char *name, const QString &line, const QString &told) {
        QTest::newRow(name) << line << told;
    };
    row("no such plan", u"$D none.dxf"_s, u"none.dxf: File 'none.dxf' does not exist"_s);
    row("a folder", u"$D ."_s, u"\\.: "_s);
    row("a line of the plan", u"printf '0\\nSECTION\\n2\\nENTITIES\\nx\\ny\\n' > b.dxf; $D b.dxf"_s,
        u"b.dxf: line 5: "_s);
    row("a name with a line end", u"$D 'a\nb.dxf'"_s, u"a.b.dxf: "_s);
    row("no folder to write to", u"$D -d none plan.dxf"_s,
        u"plan.dxf: cannot write 'none/plan.txt'"_s);
    row("a folder as target", u"$D -o . plan.dxf"_s,
        u"plan.dxf: cannot write '\\.': it is a folder"_s);
    row("file size limit", u"(ulimit -f 0; $D -o big.txt plan.dxf)"_s,
        u"plan.dxf: cannot write 'big.txt': File too large"_s);
    row("file size limit, for a picture",
        u"(ulimit -f 0; $D --list --preview big.svg plan.dxf >/dev/null)"_s,
        u"plan.dxf: cannot write 'big.svg': File too large"_s);
    row("standard output full", u"$D -q -o - plan.dxf >/dev/full"_s,
        u"plan.dxf: cannot write to standard output: No space left on device"_s);
    row("standard output closed", u"$D --list plan.dxf >&-"_s,
        u"cannot write to standard output: Bad file descriptor"_s);
    // The program gets its plan only when the reader of its output is gone.
    // The program gets its plan only when the reader of its output is gone.
    row("reader gone",
        u"mkfifo p; (read x < p; cat plan.dxf) | ($D -q --list - 2>e; echo $? >s) | "
        "(exec <&-; echo > p); cat e >&2; exit $(cat s)"_s,
        u"cannot write to standard output: Broken pipe"_s);
    row("standard input closed", u"$D -o a.txt - <&-"_s, u"-: "_s);
}

void TestDxf2gk2::tellsFailuresInOneLine()
{
    QFETCH(const QString, line);
    QFETCH(const QString, told);
    put(u"plan.txt"_s, "old");
    Outcome r = shell(line);
    QCOMPARE(r.status, 1);
    // A run that lists tells its summary beside the failure.
    r.err.replace("plan.dxf: 2 sheets, 0 skipped, 0 warnings\n", "");
    QVERIFY2(r.err.count('\n') == 1, r.err);
    QVERIFY2(QRegularExpression(u"^dxf2gk2: "_s + told).match(QString::fromUtf8(r.err)).hasMatch(),
             r.err);
    QCOMPARE(get(u"plan.txt"_s), "old"_ba);
    QVERIFY(!names().contains(u"a.txt"_s) && names().filter(u"big"_s).isEmpty());
}

void TestDxf2gk2::keepsPlansAndOldResults_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("by name") << u"$D -o plan.dxf plan.dxf"_s;
    QTest::newRow("in other spelling") << u"$D -o ../${PWD##*/}/./plan.dxf plan.dxf"_s;
    QTest::newRow("by a link to it") << u"ln -s plan.dxf plan.txt; $D plan.dxf"_s;
    QTest::newRow("by a link to the plan's file") << u"ln plan.dxf x.txt; $D -o x.txt plan.dxf"_s;
    QTest::newRow("a plan called .txt") << u"mv plan.dxf p.txt; ln -s p.txt plan.dxf; $D p.txt"_s;
    QTest::newRow("another plan")
        << u"$D none.dxf plan.dxf -d . ; ln plan.dxf none.txt; $D none.dxf plan.dxf"_s;
    QTest::newRow("standard input") << u"$D -o plan.dxf - < plan.dxf"_s;
    QTest::newRow("standard output") << u"$D -o - plan.dxf >> plan.dxf"_s;
    QTest::newRow("a picture") << u"ln plan.dxf a.png; $D --preview a.png plan.dxf"_s;
}

void TestDxf2gk2::keepsPlansAndOldResults()
{
    QFETCH(const QString, line);
    const Outcome r = shell(line);
    QCOMPARE(r.status, 1);
    QCOMPARE(get(u"plan.dxf"_s), planWith({"2", "1"}));
}

void TestDxf2gk2::goesOnAfterAFailure()
{
    put(u"z.dxf"_s, planWith({"1"}));
    const Outcome r = run({u"plan.dxf"_s, u"none.dxf"_s, u"z.dxf"_s});
    QCOMPARE(r.status, 1);
    QCOMPARE(r.err.count("dxf2gk2: "), 1);
    QVERIFY(get(u"plan.txt"_s).startsWith("GK2") && get(u"z.txt"_s).startsWith("GK2"));
}

void TestDxf2gk2::keepsLinks()
{
    QVERIFY(QDir(m_dir->path()).mkdir(u"store"_s));
    for (const QString &name : {u"old.txt"_s, u"new.txt"_s}) { // a link may lead nowhere yet
        if (name == u"old.txt"_s)
            put(u"store/old.txt"_s, "old");
        QVERIFY(QFile::link(u"store/"_s + name, m_dir->filePath(name)));
        QCOMPARE(run({u"-o"_s, name, u"plan.dxf"_s}).status, 0);
        QVERIFY(QFileInfo(m_dir->filePath(name)).isSymLink());
        QVERIFY(get(u"store/"_s + name).startsWith("GK2"));
    }
}

void TestDxf2gk2::keepsPermissions()
{
    put(u"old.txt"_s, "old");
    const Outcome r = shell(u"umask 027; chmod 604 old.txt; $D -q -o old.txt plan.dxf; "
                            "$D -q -o new.txt plan.dxf; stat -c %a old.txt new.txt"_s);
    QCOMPARE(r.out, "604\n640\n"_ba);
}

void TestDxf2gk2::filtersAndLists()
{
    put(u"p.dxf"_s, planWith({"10", "-", "x=y", "9\x1B[2J"}));
    Outcome r = run({u"--list"_s, u"--include"_s, u"BL_NR=x=y"_s, u"p.dxf"_s});
    QCOMPARE(r.status, 0);
    QCOMPARE(
        r.out,
        "Number  Value  Block  Top left         Top right        Bottom right     Bottom left\n"
        "     -  x=y    Blatt     0,00   20,00    30,00   20,00    30,00    0,00     0,00    0,00\n"_ba);
    r = run({u"--list"_s, u"--as-drawn"_s, u"--exclude"_s, u"OTHER"_s, u"p.dxf"_s});
    QCOMPARE(r.out.count('\n'), 4);
    QVERIFY(!r.out.contains('\x1B'));
    QVERIFY2(r.out.contains("10     Blatt     0,00    0,00    30,00    0,00"), r.out);
    r = run({u"--list-tags"_s, u"p.dxf"_s});
    QVERIFY2(r.out.startsWith("Inserts  Tag    Example values\n      3  BL_NR  10 | x=y | 9"),
             r.out);
    QVERIFY2(r.out.endsWith("      1  OTHER  -\n"), r.out);
    QCOMPARE(names(), QStringList({u"p.dxf"_s, u"plan.dxf"_s}));
}

void TestDxf2gk2::printsJson()
{
    put(u"p.dxf"_s, planWith({"7", "7", "-"}));
    const Outcome r = run({u"--json"_s, u"--list"_s, u"--list-tags"_s, u"p.dxf"_s, u"none.dxf"_s});
    QCOMPARE(r.status, 1);
    const QJsonArray plans = QJsonDocument::fromJson(r.out)["plans"_L1].toArray();
    QCOMPARE(plans.size(), 2);
    const QJsonObject plan = plans[0].toObject();
    QCOMPARE(plan["skipped"_L1].toInt(), 1);
    QCOMPARE(plan["warnings"_L1].toInt(), 2);
    QCOMPARE(plan["diagnostics"_L1][1]["subject"_L1].toString(), u"7"_s);
    QCOMPARE(plan["tags"_L1][0]["inserts"_L1].toInt(), 2);
    const QJsonArray sheets = plan["sheets"_L1].toArray();
    QCOMPARE(sheets.size(), 3);
    QVERIFY(sheets[0]["value"_L1].isNull());
    QCOMPARE(sheets[2]["corners"_L1]["topRight"_L1].toArray(), QJsonArray({30, 20}));
    QVERIFY(plans[1]["error"_L1]["message"_L1].toString().contains("none.dxf"_L1));
    const QJsonDocument summary = QJsonDocument::fromJson(run({u"--json"_s, u"plan.dxf"_s}).out);
    QCOMPARE(summary["plans"_L1][0]["written"_L1].toInt(), 2);
    QCOMPARE(summary["plans"_L1][0]["output"_L1].toString(), u"plan.txt"_s);
}

void TestDxf2gk2::countsWarningsWhenStrict()
{
    QCOMPARE(run({u"--strict"_s, u"plan.dxf"_s}).status, 0);
    put(u"p.dxf"_s, planWith({"7", "-"}));
    const Outcome r = run({u"--strict"_s, u"p.dxf"_s});
    QCOMPARE(r.status, 3);
    QVERIFY2(r.err.startsWith("dxf2gk2: p.dxf: line "), r.err);
    QVERIFY2(r.err.endsWith("p.dxf: 1 sheet written to p.txt, 1 skipped, 1 warning\n"), r.err);
    QCOMPARE(run({u"--strict"_s, u"p.dxf"_s, u"none.dxf"_s}).status, 1);
    QCOMPARE(run({u"-q"_s, u"p.dxf"_s}).err, ""_ba);
}

void TestDxf2gk2::drawsPreviews()
{
    QCOMPARE(run({u"--preview"_s, u"a.PNG"_s, u"plan.dxf"_s}).status, 0);
    QVERIFY(QImage(m_dir->filePath(u"a.PNG"_s)).width() > 500);
    QCOMPARE(run({u"--list"_s, u"--preview"_s, u"a.svg"_s, u"plan.dxf"_s}).status, 0);
    QVERIFY(get(u"a.svg"_s).contains("</svg>"));
}

void TestDxf2gk2::showsProgress()
{
    QVERIFY(run({u"--progress"_s, u"always"_s, u"plan.dxf"_s}).err.contains("100 %"));
    QVERIFY(!run({u"--progress"_s, u"auto"_s, u"plan.dxf"_s}).err.contains('%'));
}

void TestDxf2gk2::leavesNothingBehindWhenKilled()
{
    QList<QByteArray> numbers;
    for (int i = 0; i < 100'000; ++i)
        numbers << QByteArray::number(i);
    put(u"plan.dxf"_s, planWith(numbers));
    put(u"plan.txt"_s, "old");
    // Killed at every stage: while it reads, writes, renames.
    for (int delay = 5; delay <= 400; delay += 15) {
        const QString signal = delay % 2 == 0 ? u"TERM"_s : u"KILL"_s;
        const Outcome r = shell(
            u"$D -q plan.dxf & sleep %1; kill -%2 $! 2>/dev/null; wait $!"_s.arg(delay / 1000.0)
                .arg(signal));
        QCOMPARE(names(), QStringList({u"plan.dxf"_s, u"plan.txt"_s}));
        const QByteArray text = get(u"plan.txt"_s);
        QVERIFY(r.status == 0 ? text.endsWith(kCorners) : text == "old" || text.endsWith(kCorners));
        put(u"plan.txt"_s, "old");
    }
}

QTEST_GUILESS_MAIN(TestDxf2gk2)
#include "tst_dxf2gk2.moc"
