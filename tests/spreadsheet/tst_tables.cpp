// SPDX-License-Identifier: GPL-2.0-or-later
// Tables through every back end, read back by an independent reader.
#include "spreadsheet/tablerules_p.h"
#include "tests/support/FileBytes.h"
#include "tests/support/System.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QtTest>
#include <kelo_base/spreadsheet/TableWriter.h>
#include <limits>

using namespace Qt::Literals::StringLiterals;
using namespace spreadsheet;

namespace {

const QString kPython = u"/usr/bin/python3"_s; // the system's, which has the reader

bool hasOffice()
{
    return !BackEnds()[1].formats.isEmpty();
}

QJsonObject readBack(const QString &file)
{
    QProcess reader;
    reader.start(kPython, {u"" READ_TABLE ""_s, file});
    if (!reader.waitForFinished(60'000) || reader.exitCode() != 0)
        qFatal("%s", reader.readAllStandardError().constData());
    return QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
}

/// The part of a workbook that holds one of its sheets.
QByteArray unpackedSheet(const QString &file, int number)
{
    const QString script = u"import sys,zipfile; z=zipfile.ZipFile(sys.argv[1]); "
                           "sys.stdout.buffer.write(z.read('xl/worksheets/sheet%1.xml'))"_s;
    QProcess unzip;
    unzip.start(kPython, {u"-c"_s, script.arg(number), file});
    return unzip.waitForFinished() ? unzip.readAllStandardOutput() : QByteArray();
}

QByteArray compact(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
}

qint64 countOf(const Result &result, FindingKind kind)
{
    for (const Finding &finding : result.findings)
        if (finding.kind == kind)
            return finding.count;
    return 0;
}

} // namespace

Q_DECLARE_METATYPE(Cell)
Q_DECLARE_METATYPE(std::optional<BackEnd>)

class TestTables : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void namesSheets_data()
    {
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<QString>("name");
        QTest::newRow("a good one") << u"Blätter 1"_s << u"Blätter 1"_s;
        QTest::newRow("forbidden signs") << u"a[b]:c*d?e/f\\g"_s << u"a_b__c_d_e_f_g"_s;
        QTest::newRow("too long") << QString(40, u'x') << QString(31, u'x');
        QTest::newRow("cut inside of a pair") << QString(30, u'x') + u"😀"_s << QString(30, u'x');
        QTest::newRow("apostrophes at the ends") << u"'a'b'"_s << u"_a'b_"_s;
        QTest::newRow("the programs' own") << u"HISTORY"_s << u"HISTORY_"_s;
        QTest::newRow("taken in another case") << u"TAKEN"_s << u"TAKEN (2)"_s;
        QTest::newRow("empty") << u" "_s << u"Sheet"_s;
    }

    void namesSheets()
    {
        QFETCH(const QString, wanted);
        QTEST(legalSheetName(wanted, {u"taken"_s}), "name");
    }

    void namesCells()
    {
        const QMap<int, QString> names{
            {0, u"A1"_s}, {25, u"Z1"_s}, {26, u"AA1"_s}, {16383, u"XFD1"_s}};
        for (auto name = names.begin(); name != names.end(); ++name)
            QCOMPARE(cellName(0, name.key()), name.value());
    }

    void countsDays_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("ofFiles");
        QTest::addColumn<double>("truly");
        QTest::newRow("the first day") << QDate(1900, 1, 1) << 1.0 << 2.0;
        QTest::newRow("before the day that never was") << QDate(1900, 2, 28) << 59.0 << 60.0;
        QTest::newRow("after it") << QDate(1900, 3, 1) << 61.0 << 61.0;
        QTest::newRow("the first day of the other epoch") << QDate(1904, 1, 1) << 1462.0 << 1462.0;
        QTest::newRow("the last day") << QDate(9999, 12, 31) << 2958465.0 << 2958465.0;
        QTest::newRow("too early") << QDate(1899, 12, 31) << -1.0 << -1.0;
        QTest::newRow("too late") << QDate(10000, 1, 1) << -1.0 << -1.0;
    }

    void countsDays()
    {
        QFETCH(const QDate, date);
        QTEST(serialOf(date).value_or(-1), "ofFiles");
        QTEST(serialOf(date, DayCount::True).value_or(-1), "truly");
    }

    void keepsTypes_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<std::optional<BackEnd>>("backEnd");
        QTest::newRow("a workbook by the library") << u"xlsx"_s << std::optional(BackEnd::Library);
        QTest::newRow("a workbook by the program")
            << u"xlsx"_s << std::optional(BackEnd::Automation);
        QTest::newRow("an open document by the program") << u"ods"_s << std::optional<BackEnd>();
    }

    void keepsTypes()
    {
        KELO_UNIX_ONLY("another program reads it back, one of Unix");
        QFETCH(const QString, suffix);
        QFETCH(const std::optional<BackEnd>, backEnd);
        if (backEnd != BackEnd::Library && !hasOffice())
            QSKIP("no spreadsheet program here");

        struct Row
        {
            Cell cell;
            QJsonArray found;
        };
        const double most = 999'999'999'999'999;
        const double infinite = std::numeric_limits<double>::infinity();
        const Row rows[] = {
            {u"007"_s, {u"text"_s, u"007"_s}},
            {u"=1+1"_s, {u"text"_s, u"=1+1"_s}},
            {u"-@x ä € 😀 <&>\" '\nb"_s, {u"text"_s, u"-@x ä € 😀 <&>\" '\nb"_s}},
            {qint64(-42), {u"number"_s, -42}},
            {qint64(999'999'999'999'999), {u"number"_s, most}},
            {qint64(1'000'000'000'000'000), {u"text"_s, u"1000000000000000"_s}},
            {0.1, {u"number"_s, 0.1}},
            {infinite, {u"empty"_s, QJsonValue()}},
            {std::nan(""), {u"empty"_s, QJsonValue()}},
            {true, {u"boolean"_s, true}},
            {QDate(1900, 1, 1), {u"datetime"_s, u"1900-01-01 00:00:00.000"_s}},
            {QDate(1904, 1, 1), {u"datetime"_s, u"1904-01-01 00:00:00.000"_s}},
            {QDate(1899, 12, 31), {u"text"_s, u"1899-12-31"_s}},
            {QTime(13, 5, 7), {u"time"_s, u"13:05:07.000"_s}},
            {QDateTime(QDate(2026, 11, 25), QTime(23, 59, 58), Qt::UTC),
             {u"datetime"_s, u"2026-11-25 23:59:58.000"_s}},
            {Link{u"https://example.org/a?b=c&d"_s, u"a page"_s},
             {u"link"_s, u"https://example.org/a?b=c&d"_s, u"a page"_s}},
            {std::monostate(), {u"empty"_s, QJsonValue()}},
            {u"last"_s, {u"text"_s, u"last"_s}},
        };
        const QString file = path(u"table."_s + suffix);
        TableWriter writer({file, *FormatOf(file), backEnd, {}, {}, {}});
        using enum ColumnType;
        QList<Column> columns;
        for (const ColumnType type : {Text, Date, Time, DateTime})
            columns << Column{u"c"_s, type, 2, 0, {}};
        QVERIFY(writer.BeginSheet({u"Types"_s, columns}));
        for (const auto &[cell, found] : rows) {
            const std::size_t place = std::holds_alternative<QDate>(cell)       ? 1
                                      : std::holds_alternative<QTime>(cell)     ? 2
                                      : std::holds_alternative<QDateTime>(cell) ? 3
                                                                                : 0;
            std::vector<Cell> cells(place + 1);
            cells[place] = cell;
            QVERIFY(writer.AddRow(cells));
        }
        const Result result = writer.Finish();
        QVERIFY2(result, qPrintable(result.error));
        QCOMPARE(countOf(result, FindingKind::LongNumberAsText), 1);
        QCOMPARE(countOf(result, FindingKind::NumberLeftOut), 2);
        QCOMPARE(countOf(result, FindingKind::DateAsText), 1);

        const QJsonArray found = readBack(file)[u"sheets"_s][0][u"rows"_s].toArray();
        QCOMPARE(found.size(), qsizetype(std::size(rows)) + 1);
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            QJsonArray value{u"empty"_s, QJsonValue()};
            for (const QJsonValue cell : found[qsizetype(i) + 1].toArray())
                if (cell[0] != u"empty"_s)
                    value = cell.toArray();
            QCOMPARE(compact(value), compact(rows[i].found));
        }
    }

    void looksAsWished()
    {
        KELO_UNIX_ONLY("another program reads it back, one of Unix");
        const QString file = path(u"look.xlsx"_s);
        const Properties properties{u"Blätter"_s, {}, u"Ä. Author"_s, {}, {}, {}};
        TableWriter writer({file, Format::Xlsx, BackEnd::Library, properties, {}, {}});
        const QList<Column> columns{{u"Number"_s, ColumnType::Number, 3, 0, {}},
                                    {u"Share"_s, ColumnType::Number, 2, 17, u"0.0%"_s},
                                    {u"Text"_s, ColumnType::Text, 2, 0, {}}};
        QVERIFY(writer.BeginSheet({u"Look"_s, columns}));
        QVERIFY(writer.AddRow(std::vector<Cell>{1.5, 0.25, QString(30, u'x')}));
        QVERIFY(writer.BeginSheet({u"Plain"_s, columns, false, false, false, false}));
        QVERIFY(writer.AddRow(std::vector<Cell>{1.5}));
        QVERIFY(writer.Finish());

        const QJsonObject book = readBack(file);
        QCOMPARE(book[u"title"_s].toString(), u"Blätter"_s);
        QCOMPARE(book[u"author"_s].toString(), u"Ä. Author"_s);
        const QJsonObject look = book[u"sheets"_s][0].toObject();
        QCOMPARE(look[u"frozen"_s].toString(), u"A2"_s);
        QCOMPARE(look[u"filter"_s].toString(), u"A1:C2"_s);
        QVERIFY(look[u"titles"_s].toString().contains(u"1:$1"_s));
        QVERIFY(compact(look[u"formats"_s]).startsWith("[[\"0.000\",\"0.0%\","));
        QCOMPARE(qRound(look[u"widths"_s][1].toDouble()), 18); // the file counts the margins
        QVERIFY(look[u"widths"_s][2].toDouble() > 30);
        const QJsonObject plain = book[u"sheets"_s][1].toObject();
        QVERIFY(plain[u"frozen"_s].isNull() && plain[u"filter"_s].isNull());
        QCOMPARE(plain[u"rows"_s].toArray().size(), 1);
    }

    void spellsCsv_data()
    {
        QTest::addColumn<bool>("isPlain");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("for programs")
            << true
            << "Text,Number\r\n007,-1.5\r\n\"a,\"\"b\"\"\",1000000000000000\r\n"
               "=1,\r\n\"x\ny\",true\r\nä;ö,2026-11-25\r\n"_ba;
        QTest::newRow("for the program of this machine")
            << false
            << "\uFEFFText;Number\r\n007;-1,5\r\n\"a,\"\"b\"\"\";1000000000000000\r\n"
               "'=1;\r\n\"x\ny\";true\r\n\"ä;ö\";2026-11-25\r\n"_ba;
    }

    void spellsCsv()
    {
        QFETCH(const bool, isPlain);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        const CsvStyle style = isPlain ? CsvStyle::Plain() : CsvStyle::ForThisMachine();
        QLocale::setDefault(before);
        const QString file = path(u"t.csv"_s);
        TableWriter writer({file, Format::Csv, {}, {}, style, {}});
        writer.BeginSheet({u"S"_s, {{u"Text"_s}, {u"Number"_s, ColumnType::Number, 2, 0, {}}}});
        writer.AddRow(std::vector<Cell>{u"007"_s, -1.5});
        writer.AddRow(std::vector<Cell>{u"a,\"b\""_s, qint64(1'000'000'000'000'000)});
        writer.AddRow(std::vector<Cell>{u"=1"_s});
        writer.AddRow(std::vector<Cell>{u"x\ny"_s, true});
        writer.AddRow(std::vector<Cell>{u"ä;ö"_s, QDate(2026, 11, 25)});
        const Result result = writer.Finish();
        QVERIFY(result);
        QTEST(bytesOf(file), "text");
        QCOMPARE(countOf(result, FindingKind::TextGuarded), isPlain ? 0 : 1);
    }

    void goesOnInTheNextSheet()
    {
        KELO_UNIX_ONLY("another program reads it back, one of Unix");
        constexpr qint64 kRows = 1'048'575 + 2; // beside the header, and two more
        const QString file = path(u"long.xlsx"_s);
        TableWriter writer({file, Format::Xlsx, BackEnd::Library, {}, {}, {}});
        QVERIFY(writer.BeginSheet({u"Blatt"_s, {{u"n"_s, ColumnType::Integer, 0, 0, {}}}}));
        for (qint64 row = 0; row < kRows; ++row)
            QVERIFY(writer.AddRow(std::vector<Cell>{row}));
        const Result result = writer.Finish();
        QVERIFY2(result, qPrintable(result.error));
        QCOMPARE(result.rows, kRows);
        QCOMPARE(countOf(result, FindingKind::SheetContinued), 1);
        QCOMPARE(result.findings.constFirst().first, u"Blatt 2"_s);
        const QByteArray unpacked = unpackedSheet(file, 2);
        QCOMPARE(unpacked.count("<row "), 3); // header and the two
        QVERIFY(unpacked.contains("<v>1048576</v>"));
    }

    void keepsLimitsVisibly()
    {
        KELO_UNIX_ONLY("another program reads it back, one of Unix");
        const QString file = path(u"limits.xlsx"_s);
        TableWriter writer({file, Format::Xlsx, BackEnd::Library, {}, {}, {}});
        QVERIFY(writer.BeginSheet({u"a/b"_s, {{u"t"_s}, {u"l"_s, ColumnType::Link, 0, 0, {}}}}));
        QVERIFY(writer.AddRow(
            std::vector<Cell>{QString(32'768, u'y'), Link{u"x:"_s + QString(2'100, u'z'), {}}}));
        QVERIFY(writer.AddRow(std::vector<Cell>{u"bell\a, half \xD800"_s}));
        const Result result = writer.Finish();
        QVERIFY2(result, qPrintable(result.error));
        using enum FindingKind;
        for (const FindingKind kind : {TextCut, TextMended, LinkAsText, SheetRenamed})
            QCOMPARE(countOf(result, kind), 1);
        const QJsonArray rows = readBack(file)[u"sheets"_s][0][u"rows"_s].toArray();
        QCOMPARE(rows[1][0][1].toString().size(), 32'767);
        QCOMPARE(rows[2][0][1].toString(), u"bell\uFFFD, half \uFFFD"_s);

        TableWriter large({path(u"large.xlsx"_s), Format::Xlsx, BackEnd::Library, {}, {}, {}});
        QVERIFY(large.BeginSheet({u"links"_s, {{u"l"_s, ColumnType::Link, 0, 0, {}}}}));
        const Cell link[] = {Link{u"https://example.org/"_s, {}}};
        for (int i = 0; i < 65'531; ++i)
            QVERIFY(large.AddRow(link));
        QVERIFY(large.BeginSheet({u"wide"_s, QList<Column>(16'386, Column{u"c"_s})}));
        const Result counted = large.Finish();
        QVERIFY2(counted, qPrintable(counted.error));
        QCOMPARE(countOf(counted, LinkAsText), 1);
        QCOMPARE(countOf(counted, ColumnsLeftOut), 2);
        for (const Finding &finding : counted.findings)
            QVERIFY(Sentence(finding).contains(finding.first));
    }

    void leavesOldFilesAlone_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("how");
        for (const QString &name : {u"t.xlsx"_s, u"t.csv"_s})
            for (const QString &how : {u"cancel"_s, u"drop"_s, u"protect"_s})
                QTest::addRow("%s: %s", qPrintable(name), qPrintable(how)) << name << how;
    }

    void leavesOldFilesAlone()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, how);
        const QString file = path(name);
        writeBytes(file, "old");
        if (how == u"protect"_s)
            QVERIFY(QFile::setPermissions(file, QFileDevice::ReadOwner));
        int asked = 0;
        const auto goesOn = [&](qint64) { return how != u"cancel"_s || ++asked < 2; };
        {
            TableWriter writer({file, *FormatOf(name), {}, {}, {}, goesOn});
            writer.BeginSheet({u"S"_s, {{u"a"_s}}});
            const QDeadlineTimer end(300);
            while (!end.hasExpired() && writer.AddRow(std::vector<Cell>{u"x"_s}))
                continue;
            if (how != u"drop"_s) {
                const Result result = writer.Finish();
                QCOMPARE(result.isCancelled, how == u"cancel"_s);
                QCOMPARE(result.error.contains(name), how == u"protect"_s);
            }
        }
        QCOMPARE(bytesOf(file), "old");
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
    }

    /// Packing is asked again and again whether to go on, and ends without looking at the rest.
    void endsPacking()
    {
        KELO_UNIX_ONLY("another program reads it back, one of Unix");
        const QString file = path(u"long.xlsx"_s);
        writeBytes(file, "old");
        int asked = 0;
        int most = 0;
        const auto goesOn = [&](qint64) { return ++asked < most; };
        const auto pack = [&](int mostAsked) {
            most = std::numeric_limits<int>::max();
            TableWriter writer({file, Format::Xlsx, BackEnd::Library, {}, {}, goesOn});
            writer.BeginSheet({u"S"_s, QList<Column>(10, Column{u"c"_s})});
            const std::vector<Cell> cells(10, u"a text that packs well"_s);
            for (int row = 0; row < 60'000; ++row)
                writer.AddRow(cells);
            asked = 0;
            most = mostAsked;
            return writer.Finish();
        };
        QVERIFY(pack(3).isCancelled);
        QCOMPARE(asked, 3);
        QCOMPARE(bytesOf(file), "old");
        QVERIFY(pack(std::numeric_limits<int>::max()));
        QVERIFY2(asked > 4, QByteArray::number(asked)); // without packing: 3
        QCOMPARE(unpackedSheet(file, 1).count("<row "), 60'001);
    }

    void exportsModels()
    {
        QStandardItemModel model(2, 4);
        model.setHorizontalHeaderLabels({u"Text"_s, u"Hidden"_s, u"Count"_s, u"Day"_s});
        model.setData(model.index(0, 0), u"007"_s);
        model.setData(model.index(0, 1), u"no"_s);
        model.setData(model.index(0, 2), 7);
        model.setData(model.index(1, 3), QDate(2026, 11, 25));
        const QString file = path(u"model.csv"_s);
        ModelChoice choice;
        choice.hiddenColumns = {1};
        QVERIFY(ExportModel(model, choice, {file, Format::Csv, {}, {}, {}, {}}));
        QCOMPARE(bytesOf(file), "Text,Count,Day\r\n007,7,\r\n,,2026-11-25\r\n");
    }

    void drawsPages()
    {
        if (!hasOffice())
            QSKIP("no spreadsheet program here");
        const QString file = path(u"t.pdf"_s);
        TableWriter writer({file, Format::Pdf, {}, {}, {}, {}});
        QVERIFY(writer.BeginSheet({u"S"_s, {{u"a"_s}}}));
        QVERIFY(writer.AddRow(std::vector<Cell>{u"x"_s}));
        const Result result = writer.Finish();
        QVERIFY2(result, qPrintable(result.error));
        QVERIFY(bytesOf(file).startsWith("%PDF"));
    }

    void endsProgramsThatHang_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<bool>("isCancelled");
        // It leaves a child behind that only its end would end.
        QTest::newRow("one that hangs, and the user cancels")
            << "sleep 4711 & sleep 4711"_ba << true;
        QTest::newRow("one that says all is well, and writes nothing") << "exit 0"_ba << false;
        QTest::newRow("one that fails") << "echo broken; exit 3"_ba << false;
    }

    void endsProgramsThatHang()
    {
        KELO_UNIX_ONLY("the program is a script of a shell");
        QFETCH(const QByteArray, script);
        QFETCH(const bool, isCancelled);
        const QString program = path(u"soffice"_s);
        writeBytes(program, "#!/bin/sh\n" + script + '\n');
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
        const QByteArray before = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_dir->path()) + ':' + before);
        const QDeadlineTimer end(300);
        const auto goesOn = [&](qint64) { return !isCancelled || !end.hasExpired(); };
        TableWriter writer({path(u"t.ods"_s), Format::Ods, {}, {}, {}, goesOn});
        writer.BeginSheet({u"S"_s, {{u"a"_s}}});
        const Result result = writer.Finish();
        qputenv("PATH", before);
        QCOMPARE(result.isCancelled, isCancelled);
        QCOMPARE(result.error.isEmpty(), isCancelled);
        QVERIFY(!QFile::exists(path(u"t.ods"_s)));
        QCOMPARE(QProcess::execute(u"pgrep"_s, {u"-f"_s, u"sleep 4711"_s}), 1); // none
    }

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(TestTables)
#include "tst_tables.moc"
