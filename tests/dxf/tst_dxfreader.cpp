// SPDX-License-Identifier: GPL-2.0-or-later
// Reading plans: what is understood, what is refused and how, ASCII and binary alike.
#include "tests/support/PlanPairs.h"
#include <QBuffer>
#include <QtTest>
#include <kelo_base/dxf/DxfReader.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray kHead = "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 BLOCKS|";
const QByteArray kMiddle = "|0 ENDSEC|0 SECTION|2 ENTITIES|";
const QByteArray kTail = "|0 ENDSEC|0 EOF";

const QByteArray kFrame = "0 BLOCK|2 A|70 0|10 0.0|20 0.0|0 LWPOLYLINE|8 0|90 3|70 1|10 0.5|20 1|"
                          "10 2|20 -3.25|10 1e3|20 4|0 ENDBLK";
const QByteArray kSheet = "0 INSERT|2 A|66 1|10 5|20 5|0 ATTRIB|1 17|2 BL_NR|0 SEQEND";
const QByteArray kFrameText = "A[closed 0.5,1 2,-3.25 1000,4]";

/// A plan with this inside its blocks and entities sections.
QByteArray planOf(const QByteArray &blocks, const QByteArray &entities)
{
    return kHead + blocks + kMiddle + entities + kTail;
}

DxfReadResult read(const QByteArray &bytes, const ReadProgress &progress = {})
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return ReadDxf(buffer, u"plan.dxf"_s, progress);
}

/// "3: what was wrong", or the drawing.
QByteArray answerTo(const QByteArray &bytes)
{
    const DxfReadResult result = read(bytes);
    if (!result)
        return QByteArray::number(result.error->line) + ": " + result.error->message.toUtf8();
    return textOf(result.drawing);
}

/// Gives its bytes in pieces of random sizes, as pipes do.
class Pipe : public QIODevice
{
public:
    Pipe(QByteArray bytes, quint32 seed) : m_bytes(std::move(bytes)), m_random(seed)
    {
        open(ReadOnly | Unbuffered);
    }
    bool isSequential() const override { return true; }
    qint64 readData(char *data, qint64 size) override
    {
        const qint64 count = std::min({size, m_random.bounded(qint64{1}, qint64{40}), rest()});
        std::memcpy(data, m_bytes.constData() + m_position, static_cast<std::size_t>(count));
        m_position += count;
        return count == 0 ? -1 : count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    qint64 rest() const { return m_bytes.size() - m_position; }
    QByteArray m_bytes;
    qint64 m_position = 0;
    QRandomGenerator m_random;
};

} // namespace

class TestDxfReader : public QObject
{
    Q_OBJECT

private slots:
    void understands_data();
    void understands();
    void toleratesTheForm_data();
    void toleratesTheForm();
    void refuses_data();
    void refuses();
    void refusesForeignFiles_data();
    void refusesForeignFiles();
    void refusesEveryCut();
    void passesOverLongLines();
    void readsPiecesAsAWhole();
    void warnsOfWhatIsLeftOut_data();
    void warnsOfWhatIsLeftOut();
    void tellsProgressAndStops();
    void noticesAChangedFile();
    void namesFilesThatCannotBeRead();
    void readsNumbersInAnyLocale();
};

void TestDxfReader::understands_data()
{
    QTest::addColumn<QByteArray>("blocks");
    QTest::addColumn<QByteArray>("entities");
    QTest::addColumn<QByteArray>("drawing");
    QTest::newRow("a sheet") << kFrame << kSheet << kFrameText + " | A BL_NR=17";
    QTest::newRow("an old polyline")
        << QByteArray("0 BLOCK|2 B|0 POLYLINE|66 1|70 1|10 0|20 0|0 VERTEX|10 1|20 2|0 VERTEX|10 3|"
                      "20 4|70 32|0 SEQEND|0 ENDBLK")
        << QByteArray("0 INSERT|2 B") << QByteArray("B[closed 1,2 3,4] | B");
    // AutoCAD itself writes the flag first, other programs do not.
    QTest::newRow("closed is said behind the vertices")
        << QByteArray(
               "0 BLOCK|2 B|0 LWPOLYLINE|10 1|20 2|70 1|0 LWPOLYLINE|70 0|10 3|20 4|0 ENDBLK")
        << QByteArray("0 LINE") << QByteArray("B[closed 1,2; 3,4]");
    QTest::newRow("no count") << QByteArray("0 BLOCK|2 B|0 LWPOLYLINE|70 1|10 1|20 2|0 ENDBLK")
                              << QByteArray("0 LINE") << QByteArray("B[closed 1,2]");
    QTest::newRow("surfaces and their faces are no polylines")
        << QByteArray("0 BLOCK|2 B|0 POLYLINE|70 16|0 VERTEX|10 1|20 2|0 SEQEND|0 POLYLINE|70 64|0 "
                      "VERTEX|70 192|10 1|20 2|0 VERTEX|70 128|71 1|0 SEQEND|0 ENDBLK")
        << QByteArray("0 LINE") << QByteArray("B[]");
    QTest::newRow("polylines outside of blocks are no frames")
        << kFrame << QByteArray("0 LWPOLYLINE|90 7|70 1|10 1|0 POLYLINE|0 VERTEX|10 x|0 SEQEND")
        << kFrameText;
    QTest::newRow("attributes belong to the insert before them")
        << kFrame
        << QByteArray("0 INSERT|2 A|66 0|0 ATTRIB|2 N|1 1|0 LINE|8 0|0 ATTRIB|2 M|1 2|0 SEQEND|"
                      "0 INSERT|2 C|0 SEQEND|0 ATTRIB|2 N|1 9")
        << kFrameText + " | A N=1 M=2 | C";
    QTest::newRow("the later value of a tag counts")
        << kFrame << QByteArray("0 INSERT|2 A|0 ATTRIB|2 N|1 1|0 ATTRIB|2 M|1 2|0 ATTRIB|2 N|1 3")
        << kFrameText + " | A N=3 M=2";
    QTest::newRow("texts of several lines")
        << kFrame
        << QByteArray("0 INSERT|2 A|0 ATTRIB|2 N|1 own|101 Embedded Object|1 other|0 ATTRIB|2 M|1 |"
                      "101 Embedded Object|3 long |1 text|0 ATTRIB|2 K")
        << kFrameText + " | A N=own M=long text K=";
    QTest::newRow("texts keep their blanks")
        << QByteArray("0 BLOCK|2  A |0 ENDBLK") << QByteArray("0 INSERT|2  A |0 ATTRIB|2 N|1  7 ")
        << QByteArray(" A [] |  A  N= 7 ");
    QTest::newRow("the first of two definitions holds")
        << kFrame + "|0 BLOCK|2 A|0 LWPOLYLINE|10 9|20 9|0 INSERT|2 X|0 ATTRIB|2 BL_NR|1 1|0 ENDBLK"
        << kSheet << kFrameText + " | A BL_NR=17";
    QTest::newRow("what has no name adds nothing to its neighbours")
        << kFrame + "|0 BLOCK|2 |0 LWPOLYLINE|10 9|20 9|0 INSERT|2 A|0 ENDBLK"
        << kSheet + "|0 INSERT|66 1|0 ATTRIB|2 TITEL|1 x|0 SEQEND" << kFrameText + " | A BL_NR=17";
    QTest::newRow("numbered inserts inside blocks are told apart")
        << kFrame + "|0 BLOCK|2 B|0 INSERT|2 B|0 ATTRIB|2 Bl_Nr|1 5|0 INSERT|2 A|0 ATTRIB|2 T|1 6|"
                    "0 INSERT|2 A|0 ATTRIB|2 BL_NR|1 7|0 ENDBLK"
        << kSheet << kFrameText + " B[] | A BL_NR=17 | nested B Bl_Nr=5 | nested A BL_NR=7";
    QTest::newRow("stray ends harm nothing")
        << "0 ENDBLK|0 SEQEND|0 VERTEX|10 1|20 1|" + kFrame + "|0 ENDBLK|0 INSERT|2 A"
        << "0 SEQEND|0 ENDBLK|0 VERTEX|" + kSheet + "|0 SEQEND" << kFrameText + " | A BL_NR=17";
    QTest::newRow("lost ends of blocks and sections")
        << QByteArray("0 BLOCK|2 B|0 INSERT|2 A|0 BLOCK|2 A|0 SECTION|2 ENTITIES|0 INSERT|2 B")
        << kSheet << QByteArray("B[] A[] | B | A BL_NR=17");
    QTest::newRow("odd numbers")
        << QByteArray("0 BLOCK|2 B|0 LWPOLYLINE|10 +1.5|20 -.5E+1|10 7.|20 1,25|10   8 |20 1e-999|"
                      "0 ENDBLK")
        << QByteArray("0 LINE") << QByteArray("B[1.5,-5 7,1.25 8,0]");
}

void TestDxfReader::understands()
{
    QFETCH(const QByteArray, blocks);
    QFETCH(const QByteArray, entities);
    QFETCH(const QByteArray, drawing);
    const PlanPairs pairs = pairsOf(planOf(blocks, entities));
    QCOMPARE(answerTo(asciiPlan(pairs)), drawing);
    const bool isAsciiOnly = QByteArrayView(QTest::currentDataTag()) == "odd numbers";
    if (isAsciiOnly)
        return;
    QCOMPARE(answerTo(binaryPlan(pairs, false)), drawing);
    QCOMPARE(answerTo(binaryPlan(pairs, true)), drawing);
}

void TestDxfReader::toleratesTheForm_data()
{
    const PlanPairs pairs = pairsOf(planOf(kFrame, kSheet));
    QByteArray commented;
    QByteArray mixed;
    for (qsizetype i = 0; i < pairs.size(); ++i) {
        commented += "999\ndxflib\n" + asciiPlan({pairs[i]});
        mixed += asciiPlan({pairs[i]}, i % 3 == 0 ? "\r\n" : "\n");
    }
    QTest::addColumn<QByteArray>("plan");
    QTest::newRow("LF") << asciiPlan(pairs);
    QTest::newRow("CR LF") << asciiPlan(pairs, "\r\n");
    QTest::newRow("mixed") << mixed;
    QTest::newRow("CR CR LF") << asciiPlan(pairs, "\r\r\n");
    QTest::newRow("no blanks") << asciiPlan(pairs, "\n", 0);
    QTest::newRow("many blanks") << asciiPlan(pairs, " \n", 12)
                                        .replace("A \n", "A\n")
                                        .replace("17 \n", "17\n")
                                        .replace("NR \n", "NR\n");
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + asciiPlan(pairs);
    QTest::newRow("comments everywhere") << commented;
    QTest::newRow("no line end at the end") << asciiPlan(pairs).chopped(1);
    QTest::newRow("rubbish behind the end") << asciiPlan(pairs) + "\x1a\0rubbish";
    QTest::newRow("entities before blocks") << asciiPlan(pairsOf(
        "0 SECTION|2 ENTITIES|" + kSheet + "|0 ENDSEC|0 SECTION|2 BLOCKS|" + kFrame + kTail));
    QTest::newRow("other sections") << asciiPlan(
        pairsOf("0 SECTION|2 TABLES|0 BLOCK|2 X|0 INSERT|0 ENDSEC|" + kHead + kFrame + kMiddle +
                kSheet + "|0 ENDSEC|0 SECTION|2 OBJECTS|0 INSERT|2 A" + kTail));
}

void TestDxfReader::toleratesTheForm()
{
    QFETCH(const QByteArray, plan);
    QCOMPARE(answerTo(plan), kFrameText + " | A BL_NR=17");
}

void TestDxfReader::refuses_data()
{
    QTest::addColumn<QByteArray>("find");
    QTest::addColumn<QByteArray>("put");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("letters in a group code")
        << QByteArray(" 66\n") << QByteArray(" 6x\n") << QByteArray("57: '6x' is no group code");
    QTest::newRow("an empty group code")
        << QByteArray(" 66\n") << QByteArray("\n") << QByteArray("57: '' is no group code");
    QTest::newRow("a long group code") << QByteArray(" 66\n") << QByteArray("4294967362\n")
                                       << QByteArray("57: '4294967362' is no group code");
    QTest::newRow("a NUL in a group code") << QByteArray(" 66\n") << QByteArray("6\0006\n", 4)
                                           << QByteArray("57: '6?6' is no group code");
    QTest::newRow("a lost line") << QByteArray(" 66\n1\n") << QByteArray(" 66\n")
                                 << QByteArray("63: 'ATTRIB' is no group code");
    for (const char *number : {"", "x", "nan", "inf", "1e400", "1.5x", "--1", "0x10", "1 2"})
        QTest::addRow("coordinate '%s'", number)
            << QByteArray(" 20\n-3.25\n") << " 20\n" + QByteArray(number) + '\n'
            << "40: '" + QByteArray(number) + "' is no coordinate";
    QTest::newRow("no Y") << QByteArray(" 20\n-3.25\n") << QByteArray("")
                          << QByteArray("39: A vertex without Y");
    QTest::newRow("no X") << QByteArray(" 10\n2\n") << QByteArray("")
                          << QByteArray("37: A vertex without X");
    QTest::newRow("no Y at last") << QByteArray(" 20\n4\n") << QByteArray("")
                                  << QByteArray("25: A vertex without Y");
    for (const char *count : {"2", "4", "0", "2147483647"})
        QTest::addRow("%s vertices announced", count)
            << QByteArray(" 90\n3\n") << " 90\n" + QByteArray(count) + '\n'
            << "25: A polyline announces " + QByteArray(count) + " vertices and has 3";
    QTest::newRow("a negative count") << QByteArray(" 90\n3\n") << QByteArray(" 90\n-3\n")
                                      << QByteArray("30: A polyline cannot have -3 vertices");
    for (const char *count : {"three", "", "99999999999999999999"})
        QTest::addRow("count '%s'", count)
            << QByteArray(" 90\n3\n") << " 90\n" + QByteArray(count) + '\n'
            << "30: '" + QByteArray(count) + "' is no whole number";
    QTest::newRow("a NUL in a text") << QByteArray("\n17\n") << QByteArray("\n1\0007\n", 5)
                                     << QByteArray("66: The text holds a NUL or a line feed");
    QTest::newRow("a text too long")
        << QByteArray("\n17\n") << '\n' + QByteArray(65'537, '7') + '\n'
        << QByteArray("66: The text has more than 65536 bytes");
    QTest::newRow("a code line too long") << QByteArray(" 66\n") << QByteArray(600'000, '6') + '\n'
                                          << "57: '" + QByteArray(40, '6') + "…' is no group code";
    QTest::newRow("a lost section begin")
        << QByteArray("  0\nSECTION\n  2\nENTITIES\n") << QByteArray()
        << QByteArray("49: 'INSERT' stands outside of any section");
    QTest::newRow("a lost section change")
        << QByteArray("  0\nENDSEC\n  0\nSECTION\n  2\nBLOCKS\n")
        << QByteArray("  0\nSECTION\n  2\nENTITIES\n")
        << QByteArray("13: A block stands outside of the blocks");
    QTest::newRow("no end mark")
        << QByteArray("  0\nEOF\n") << QByteArray()
        << QByteArray("0: The end mark (EOF) is missing; the file looks cut short");
}

void TestDxfReader::refuses()
{
    QFETCH(const QByteArray, find);
    QFETCH(const QByteArray, put);
    QFETCH(const QByteArray, answer);
    QByteArray plan = asciiPlan(pairsOf(planOf(kFrame, kSheet)));
    QCOMPARE(plan.count(find), 1);
    QCOMPARE(answerTo(plan.replace(find, put)), answer);
}

void TestDxfReader::refusesForeignFiles_data()
{
    const QByteArray plan = asciiPlan(pairsOf(planOf(kFrame, kSheet)));
    QByteArray utf16;
    for (const char byte : plan)
        utf16 += QByteArray(1, byte) + '\0';
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("nothing") << QByteArray() << QByteArray("empty");
    QTest::newRow("DWG") << QByteArray("AC1027\0\0\0\0\x0a\x02", 12) << QByteArray("DWG");
    QTest::newRow("DXB") << QByteArray("AutoCAD DXB 1.0\r\n\x1a\0", 19) << QByteArray("DXB");
    QTest::newRow("PDF") << QByteArray("%PDF-1.7\n") << QByteArray("PDF");
    QTest::newRow("ZIP") << QByteArray("PK\x03\x04zip") << QByteArray("ZIP");
    QTest::newRow("gzip") << QByteArray("\x1f\x8b\x08") << QByteArray("gzip");
    QTest::newRow("UTF-16 with mark") << "\xff\xfe" + utf16 << QByteArray("UTF-16");
    QTest::newRow("UTF-16 without mark") << utf16 << QByteArray("UTF-16");
    QTest::newRow("a letter") << QByteArray("Dear Sir,\n\nplease find\n") << QByteArray("is text");
    QTest::newRow("garbage") << QByteArray("\x7f"
                                           "ELF\x02\x01\x01\0",
                                           8)
                             << QByteArray("is no DXF drawing");
    QTest::newRow("CR alone") << asciiPlan(pairsOf(planOf(kFrame, kSheet)), "\r")
                              << QByteArray("CR alone");
    QTest::newRow("pairs without a section") << QByteArray("0\nEOF\n") << QByteArray("no section");
    QTest::newRow("blank lines") << QByteArray("\n\n\n") << QByteArray("no DXF");
}

void TestDxfReader::refusesForeignFiles()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QByteArray, word);
    const QByteArray answer = answerTo(bytes);
    QVERIFY2(answer.startsWith("0: ") && answer.contains(word), answer);
}

void TestDxfReader::refusesEveryCut()
{
    const PlanPairs pairs = pairsOf(planOf(kFrame, kSheet));
    for (const QByteArray &plan :
         {asciiPlan(pairs, "\r\n"), binaryPlan(pairs, false), binaryPlan(pairs, true)}) {
        QVERIFY(read(plan));
        // Line ends behind the end mark are not missed.
        const qsizetype needed = plan.lastIndexOf("EOF") + (plan.endsWith('\0') ? 4 : 3);
        for (qsizetype size = 0; size < needed; ++size) {
            const DxfReadResult result = read(plan.left(size));
            QVERIFY2(result.error, qPrintable(QString::number(size)));
            QVERIFY(!result.error->message.isEmpty() && result.drawing.Blocks().empty());
        }
    }
}

void TestDxfReader::passesOverLongLines()
{
    for (const qsizetype size : {1'023, 1'024, 262'143, 262'144, 524'288, 30'000'000}) {
        const QByteArray text(size, 'x');
        const PlanPairs pairs = pairsOf(planOf(kFrame, "0 MTEXT|1 " + text + '|' + kSheet));
        QCOMPARE(answerTo(asciiPlan(pairs, "\r\n")), kFrameText + " | A BL_NR=17");
        QCOMPARE(answerTo(binaryPlan(pairs, true)), kFrameText + " | A BL_NR=17");
    }
}

void TestDxfReader::readsPiecesAsAWhole()
{
    const PlanPairs pairs =
        pairsOf(planOf(kFrame, "0 LINE|8 " + QByteArray(100, 'x') + '|' + kSheet));
    for (quint32 seed = 0; seed < 200; ++seed) {
        Pipe pipe(seed % 2 == 0 ? asciiPlan(pairs) : binaryPlan(pairs, true), seed);
        const DxfReadResult result = ReadDxf(pipe, u"-"_s);
        QVERIFY2(result, result ? "" : qPrintable(result.error->message));
        QCOMPARE(textOf(result.drawing), kFrameText + " | A BL_NR=17");
    }
}

void TestDxfReader::warnsOfWhatIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("blocks");
    QTest::addColumn<QByteArray>("entities");
    QTest::addColumn<QByteArray>("warning");
    QTest::newRow("a sheet number without insert")
        << kFrame << QByteArray("0 LINE|0 ATTRIB|2 BL_NR|1 7")
        << QByteArray("55: The sheet number '7' belongs to no insert");
    QTest::newRow("a nameless block") << QByteArray("0 BLOCK|2 |0 ENDBLK") << QByteArray("0 LINE")
                                      << QByteArray("15: A block without a name is left out");
    QTest::newRow("a nameless insert")
        << QByteArray("0 LINE") << QByteArray("0 INSERT|66 1")
        << QByteArray("23: An insert without a block name is left out");
    QTest::newRow("two definitions")
        << kFrame + "|0 BLOCK|2 A|0 ENDBLK" << QByteArray("0 LINE")
        << QByteArray("47: Block 'A' is defined twice; the first definition holds");
}

void TestDxfReader::warnsOfWhatIsLeftOut()
{
    QFETCH(const QByteArray, blocks);
    QFETCH(const QByteArray, entities);
    QFETCH(const QByteArray, warning);
    const DxfReadResult result = read(asciiPlan(pairsOf(planOf(blocks, entities))));
    QVERIFY(result);
    QCOMPARE(result.diagnostics.size(), std::size_t{1});
    const Diagnostic &diagnostic = result.diagnostics.front();
    QCOMPARE(QByteArray::number(diagnostic.line) + ": " + diagnostic.text.toUtf8(), warning);
    QCOMPARE(diagnostic.file, u"plan.dxf"_s);
}

void TestDxfReader::tellsProgressAndStops()
{
    const QByteArray plan = asciiPlan(
        pairsOf(planOf(kFrame, QByteArray("0 LINE|8 layer|").repeated(100'000) + kSheet)));
    QList<qint64> steps;
    QVERIFY(read(plan, [&](qint64 done, qint64 total) {
        steps << done;
        return total == plan.size();
    }));
    QVERIFY(steps.size() > 3 && std::ranges::is_sorted(steps) && steps.last() == plan.size());
    const DxfReadResult stopped = read(plan, [](qint64 done, qint64) { return done < 500'000; });
    QVERIFY(stopped.cancelled && stopped.error && stopped.drawing.Inserts().empty());
}

void TestDxfReader::noticesAChangedFile()
{
    const QByteArray plan = asciiPlan(
        pairsOf(planOf(kFrame, QByteArray("0 LINE|8 layer|").repeated(100'000) + kSheet)));
    for (const qint64 newSize : {qint64{300'000}, plan.size() + qint64{10}}) {
        QTemporaryFile file;
        QVERIFY(file.open() && file.write(plan) == plan.size() && file.flush());
        const DxfReadResult result =
            ReadDxfFile(file.fileName(), [&](qint64, qint64) { return file.resize(newSize); });
        QVERIFY(result.error && !result.cancelled);
        QCOMPARE(result.error->message, u"Was changed while it was being read"_s);
    }
}

void TestDxfReader::namesFilesThatCannotBeRead()
{
    const QTemporaryDir dir;
    const QString missing = dir.filePath(u"Grüne Au 1.dxf"_s);
    const DxfReadResult none = ReadDxfFile(missing);
    QCOMPARE(none.error->message, u"File '%1' does not exist"_s.arg(missing));
    QCOMPARE(none.error->file, missing);
    QCOMPARE(ReadDxfFile(dir.path()).error->message, u"Is a folder, not a plan"_s);
}

void TestDxfReader::readsNumbersInAnyLocale()
{
    // A decimal comma and dots between thousands, as programs may set for all their streams.
    struct Comma : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    const QByteArray answer = answerTo(asciiPlan(pairsOf(planOf(kFrame, kSheet))));
    const bool isKept = std::has_facet<std::numpunct<char>>(std::locale()) &&
                        std::use_facet<std::numpunct<char>>(std::locale()).decimal_point() == ',';
    std::locale::global(before);
    QCOMPARE(answer, kFrameText + " | A BL_NR=17");
    QVERIFY(isKept);
}

QTEST_GUILESS_MAIN(TestDxfReader)
#include "tst_dxfreader.moc"
