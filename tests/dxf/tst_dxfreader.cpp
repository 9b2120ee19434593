// SPDX-License-Identifier: GPL-2.0-or-later
// Reading plans: what is understood, what is refused and how, ASCII and binary alike.
#include "tests/support/PlanPairs.h"
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
const QByteArray kNothing = "0 LINE";
const QByteArray kFrameText = "A[closed 0.5,1 2,-3.25 1000,4]";
const QByteArray kPlanText = kFrameText + " | A BL_NR=17";

/// A plan with this inside its blocks and entities sections.
PlanPairs planOf(const QByteArray &blocks, const QByteArray &entities)
{
    return pairsOf(kHead + blocks + kMiddle + entities + kTail);
}

DxfReadResult read(const QByteArray &bytes, const PlanProgress &progress = {},
                   const DxfReadOptions &options = {})
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return ReadDxf(buffer, u"plan.dxf"_s, progress, options);
}

/// "3: what was wrong", or the drawing.
QByteArray answerOf(const DxfReadResult &result)
{
    if (!result)
        return QByteArray::number(result.error->line) + ": " + result.error->message.toUtf8();
    return textOf(result.drawing);
}

QByteArray answerTo(const QByteArray &bytes)
{
    return answerOf(read(bytes));
}

/// Gives its bytes in pieces, as pipes do.
struct Pipe : QIODevice
{
    Pipe(QByteArray bytes, qint64 size) : rest(std::move(bytes)), pieceSize(size)
    {
        open(ReadOnly | Unbuffered);
    }
    bool isSequential() const override { return true; }
    qint64 readData(char *data, qint64 size) override
    {
        const qint64 count = std::min({size, pieceSize, rest.size()});
        std::copy_n(rest.constBegin(), count, data);
        rest.remove(0, count);
        return count == 0 ? -1 : count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

    QByteArray rest;
    const qint64 pieceSize;
};

/// A decimal comma, as programs may set for all their streams.
struct Comma : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
};

} // namespace

class TestDxfReader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { std::locale::global(m_comma); }

    void understands()
    {
        const auto row = [this](const char *name, const QByteArray &blocks,
                                const QByteArray &entities, const QByteArray &drawing,
                                const QByteArray &warning = {}) {
            const PlanPairs pairs = planOf(blocks, entities);
            const DxfReadResult result = read(asciiPlan(pairs));
            QVERIFY2(answerOf(result) == drawing, name + (": " + answerOf(result)));
            QByteArrayList warnings;
            for (const PlanFinding &told : result.diagnostics)
                warnings << QByteArray::number(told.line) + ": " + told.text.toUtf8();
            QVERIFY2(warnings.join('\n') == warning, name + (": " + warnings.join('\n')));
            QVERIFY(warnings.empty() || result.diagnostics.front().file == u"plan.dxf"_s);
            QVERIFY(std::locale() == m_comma);
            const bool isAsciiOnly = blocks.contains("+1.5");
            for (const bool isWide : {false, true}) {
                const QByteArray answer = answerTo(binaryPlan(pairs, isWide));
                QVERIFY2(isAsciiOnly || answer == drawing, name + (", binary: " + answer));
            }
        };
        row("closed is said behind the vertices",
            "0 BLOCK|2 B|0 LWPOLYLINE|10 1|20 2|70 1|0 LWPOLYLINE|70 0|10 3|20 4|0 ENDBLK",
            kNothing, "B[closed 1,2; 3,4]");
        row("surfaces and their faces are no polylines",
            "0 BLOCK|2 B|0 POLYLINE|66 1|70 1|10 0|20 0|0 VERTEX|10 1|20 2|0 VERTEX|10 3|20 4|70 "
            "32|"
            "0 SEQEND|0 POLYLINE|70 16|0 VERTEX|10 1|20 2|0 SEQEND|0 POLYLINE|70 64|0 VERTEX|70 "
            "192|"
            "10 1|20 2|0 VERTEX|70 128|71 1|0 SEQEND|0 ENDBLK",
            kNothing, "B[closed 1,2 3,4]");
        row("polylines outside of blocks are no frames", kFrame,
            "0 LWPOLYLINE|90 7|70 1|10 1|0 POLYLINE|0 VERTEX|10 x|0 SEQEND", kFrameText);
        row("attributes belong to the insert before them, and the later value of a tag counts",
            kFrame,
            "0 INSERT|2 A|66 0|0 ATTRIB|2 N|1 1|0 LINE|8 0|0 ATTRIB|2 M|1 2|0 ATTRIB|2 N|1 3|0 "
            "SEQEND|"
            "0 INSERT|2 C|0 SEQEND|0 ATTRIB|2 N|1 9",
            kFrameText + " | A N=3 M=2 | C");
        row("texts of several lines", kFrame,
            "0 INSERT|2 A|0 ATTRIB|2 N|1 own|101 Embedded Object|1 other|0 ATTRIB|2 M|1 |"
            "101 Embedded Object|3 long |1 text|0 ATTRIB|2 K",
            kFrameText + " | A N=own M=long text K=");
        row("texts keep their blanks", "0 BLOCK|2  A |0 ENDBLK",
            "0 INSERT|2  A |0 ATTRIB|2 N|1  7 ", " A [] |  A  N= 7 ");
        row("the first of two definitions holds",
            kFrame +
                "|0 BLOCK|2 A|0 LWPOLYLINE|10 9|20 9|0 INSERT|2 X|0 ATTRIB|2 BL_NR|1 1|0 ENDBLK",
            kSheet, kPlanText, "47: Block 'A' is defined twice; the first definition holds");
        row("a block without a name adds nothing to its neighbours",
            kFrame + "|0 BLOCK|2 |0 LWPOLYLINE|10 9|20 9|0 INSERT|2 A|0 ENDBLK", kSheet, kPlanText,
            "47: A block without a name is left out");
        row("an insert without a name adds nothing to its neighbours", kFrame,
            kSheet + "|0 INSERT|66 1|0 ATTRIB|2 TITEL|1 x|0 SEQEND", kPlanText,
            "71: An insert without a block name is left out");
        row("a sheet number without insert", kFrame, "0 LINE|0 ATTRIB|2 BL_NR|1 7", kFrameText,
            "55: The sheet number '7' belongs to no insert");
        row("numbered inserts inside blocks are told apart",
            kFrame + "|0 BLOCK|2 B|0 INSERT|2 B|0 ATTRIB|2 Bl_Nr|1 5|0 INSERT|2 A|0 ATTRIB|2 T|1 6|"
                     "0 INSERT|2 A|0 ATTRIB|2 BL_NR|1 7|0 ENDBLK",
            kSheet, kFrameText + " B[] | A BL_NR=17 | nested B Bl_Nr=5 | nested A BL_NR=7");
        row("stray ends harm nothing",
            "0 ENDBLK|0 SEQEND|0 VERTEX|10 1|20 1|" + kFrame + "|0 ENDBLK|0 INSERT|2 A",
            "0 SEQEND|0 ENDBLK|0 VERTEX|" + kSheet + "|0 SEQEND", kPlanText);
        row("lost ends of blocks and sections",
            "0 BLOCK|2 B|0 INSERT|2 A|0 BLOCK|2 A|0 SECTION|2 ENTITIES|0 INSERT|2 B", kSheet,
            "B[] A[] | B | A BL_NR=17");
        row("odd numbers",
            "0 BLOCK|2 B|0 LWPOLYLINE|10 +1.5|20 -.5E+1|10 7.|20 1,25|10   8 |20 1e-999|0 ENDBLK",
            kNothing, "B[1.5,-5 7,1.25 8,0]");
    }

    void showsTextsInTheirEncoding()
    {
        const auto row = [](const char *name, const QByteArray &header, const QByteArray &bytes,
                            const QString &text, const QString &encoding = {}) {
            const PlanPairs pairs = pairsOf("0 SECTION|2 HEADER|" + header + kMiddle +
                                            "0 INSERT|2 A|0 ATTRIB|2 N|1 " + bytes + kTail);
            const DxfReadResult result = read(asciiPlan(pairs), {}, {.encoding = encoding});
            QVERIFY2(result, name);
            const auto value = result.drawing.FindAttribute(result.drawing.Inserts()[0], "N");
            QCOMPARE(QByteArray::fromStdString(std::string(*value)), bytes);
            const QString shown = result.drawing.DisplayText(*value);
            QVERIFY2(shown == text, name + (": " + shown.toUtf8()));
        };
        const QByteArray old = "9 $ACADVER|1 AC1018|9 $DWGCODEPAGE|3 ";
        row("nothing said is Latin-1", "9 $ACADVER|1 AC1018", "\xDC\x80", u"Ü\u0080"_s);
        row("a code page nobody knows is Latin-1", old + "ansi_9999", "\xDC", u"Ü"_s);
        row("Western Windows has a euro", old + "ANSI_1252", "\xDC\x80", u"Ü€"_s);
        row("names have any case", old + "ansi_1251", "\xC4\xE0", u"Да"_s);
        row("DOS", old + "dos850", "\x9A\xE1", u"Üß"_s);
        row("DOS by its other name", old + "CP1250", "\xA3", u"Ł"_s);
        row("ISO", old + "ISO8859-2", "\xA3", u"Ł"_s);
        row("ISO by its other name", old + "8859_5", "\xB0", u"А"_s);
        row("Apple", old + "MACINTOSH", "\x86", u"Ü"_s);
        row("Japanese", old + "ANSI_932", "\x90\x7D\x96\xCA", u"図面"_s);
        row("Chinese", old + "GB2312", "\xCD\xBC", u"图"_s);
        row("Korean", old + "ANSI_949", "\xB5\xB5", u"도"_s);
        row("new plans are UTF-8 whatever code page they name",
            "9 $ACADVER|1 AC1021|9 $DWGCODEPAGE|3 ANSI_1251", "\xC3\x9C", u"Ü"_s);
        row("the user knows better", old + "ANSI_1252", "\xC4", u"Д"_s, u"windows-1251"_s);
        row("the user knows better, anew", "9 $ACADVER|1 AC1032", "\xC4", u"Д"_s, u"ANSI_1251"_s);
        row("the user knows of UTF-8", old + "ANSI_1252", "\xC3\x9C", u"Ü"_s, u"utf8"_s);
        row("escapes", old + "ANSI_1252",
            "\\U+0141\xF3"
            "d\\U+017a",
            u"Łódź"_s);
        row("escapes in a new plan", "9 $ACADVER|1 AC1032", "a\\U+2300b", u"a\u2300b"_s);
        row("escapes of a pair", old + "ANSI_1252", "\\U+D83D\\U+DDFA", u"\U0001F5FA"_s);
        row("escapes in the five of two bytes", old + "ANSI_1252",
            "\\M+1907D\\M+2B9CF\\M+3B5B5\\M+5CDBC", u"図圖도图"_s);
        row("what looks like escapes", old + "ANSI_1252", "\\U+12\\u+00DC\\U+00G0\\M+99999\\M+1\\",
            u"\\U+12\\u+00DC\\U+00G0\\M+99999\\M+1\\"_s);
    }

    void knowsDynamicBlocksByName()
    {
        const auto row = [](const char *name, const QByteArray &tables, const std::string &shown) {
            const PlanPairs pairs =
                pairsOf("0 SECTION|2 TABLES|0 TABLE" + tables + "|0 ENDSEC|" + kHead +
                        "0 BLOCK|2 *U18|0 ENDBLK" + kMiddle + "0 INSERT|2 *U18" + kTail);
            for (const QByteArray &plan : {asciiPlan(pairs), binaryPlan(pairs, true)}) {
                const DxfReadResult result = read(plan);
                QVERIFY2(result, name);
                const DxfInsert &insert = result.drawing.Inserts()[0];
                QVERIFY2(result.drawing.ShownBlockName(insert) == shown, name);
                QVERIFY2(result.drawing.ShownName(*result.drawing.BlockOf(insert)) == shown, name);
                QCOMPARE(result.drawing.BlockName(insert), "*U18");
            }
        };
        const QByteArray copy =
            "|0 BLOCK_RECORD|5 A91|2 *U18|1001 AcDbBlockRepBTag|1070 1|1005 a7E";
        const QByteArray block = "|0 BLOCK_RECORD|5 A7E|2 Blatt";
        row("nothing known", "", "*U18");
        row("the block before its variant", block + copy, "Blatt");
        row("the block behind its variant", copy + block, "Blatt");
        row("a block with a true name",
            copy + block + "|1001 AcDbDynamicBlockTrueName|1000 Rahmen|1001 X|1000 no", "Rahmen");
        row("a block that is gone", copy, "*U18");
        row("data of someone else", "|0 BLOCK_RECORD|5 A91|2 *U18|1001 X|1005 A7E" + block, "*U18");
        row("no handles", "|0 BLOCK_RECORD|5 x|2 *U18|1001 AcDbBlockRepBTag|1005 x", "*U18");
    }

    void takesNumbersFromAnotherTag()
    {
        const PlanPairs pairs =
            planOf(kFrame + "|0 BLOCK|2 B|0 INSERT|2 A|0 ATTRIB|2 Nr\374|1 5|0 INSERT|2 A|"
                            "0 ATTRIB|2 BL_NR|1 6|0 ENDBLK",
                   "0 ATTRIB|2 Nr\374|1 1|" + kSheet);
        const DxfReadResult result = read(asciiPlan(pairs), {}, {.numberTag = u"Nrü"_s});
        QVERIFY(bool(result));
        QCOMPARE(answerOf(result), kFrameText + " B[] | A BL_NR=17 | nested A Nr\374=5");
        QCOMPARE(result.drawing.NumberTag(), "Nr\374");
        QCOMPARE(result.diagnostics.size(), 1U);
        QCOMPARE(result.diagnostics[0].subject, u"1"_s);
    }

    void toleratesTheForm()
    {
        const PlanPairs pairs = planOf(kFrame, kSheet);
        const auto check = [](const char *name, const QByteArray &plan) {
            const QByteArray answer = answerTo(plan);
            QVERIFY2(answer == kPlanText, name + (": " + answer));
        };
        QByteArray mixed;
        for (qsizetype i = 0; i < pairs.size(); ++i)
            mixed += "999\ndxflib\n" + asciiPlan({pairs[i]}, i % 3 == 0 ? "\r\n" : "\n");
        check("mixed line ends, comments everywhere", mixed);
        check("CR CR LF", asciiPlan(pairs, "\r\r\n"));
        check("no blanks", asciiPlan(pairs, "\n", 0));
        check("many blanks", asciiPlan(pairs, "\n", 12).replace("  0\n", "  0  \n"));
        check("byte-order mark", "\xEF\xBB\xBF" + asciiPlan(pairs));
        check("no line end at the end", asciiPlan(pairs).chopped(1));
        check("rubbish behind the end", asciiPlan(pairs) + QByteArray("\x1a\0rubbish", 9));
        check("entities before blocks",
              asciiPlan(pairsOf("0 SECTION|2 ENTITIES|" + kSheet + "|0 ENDSEC|0 SECTION|2 BLOCKS|" +
                                kFrame + kTail)));
        check("other sections",
              asciiPlan(pairsOf("0 SECTION|2 TABLES|0 BLOCK|2 X|0 INSERT|0 ENDSEC|" + kHead +
                                kFrame + kMiddle + kSheet +
                                "|0 ENDSEC|0 SECTION|2 OBJECTS|0 INSERT|2 A" + kTail)));
    }

    void refuses()
    {
        const auto row = [](const char *name, const QByteArray &find, const QByteArray &put,
                            const QByteArray &expected) {
            QByteArray plan = asciiPlan(planOf(kFrame, kSheet));
            QCOMPARE(plan.count(find), 1);
            const QByteArray answer = answerTo(plan.replace(find, put));
            QVERIFY2(answer == expected, name + (": " + answer));
        };
        row("letters in a group code", " 66\n", " 6x\n", "57: '6x' is no group code");
        row("an empty group code", " 66\n", "\n", "57: '' is no group code");
        row("a long group code", " 66\n", "4294967362\n", "57: '4294967362' is no group code");
        row("a NUL in a group code", " 66\n", {"6\0006\n", 4}, "57: '6?6' is no group code");
        row("a lost line", " 66\n1\n", " 66\n", "63: 'ATTRIB' is no group code");
        for (const QByteArray number :
             {"", "x", "nan", "inf", "1e400", "1.5x", "--1", "0x10", "1 2"})
            row("number", "\n-3.25\n", '\n' + number + '\n',
                "40: '" + number + "' is no coordinate");
        row("no Y", " 20\n-3.25\n", "", "39: A vertex without Y");
        row("no X", " 10\n2\n", "", "37: A vertex without X");
        row("no Y at last", " 20\n4\n", "", "25: A vertex without Y");
        for (const QByteArray count : {"2", "4", "0", "2147483647"})
            row("vertices announced", " 90\n3\n", " 90\n" + count + '\n',
                "25: A polyline announces " + count + " vertices and has 3");
        row("a negative count", " 90\n3\n", " 90\n-3\n", "30: A polyline cannot have -3 vertices");
        for (const QByteArray count : {"three", "", "99999999999999999999"})
            row("count", " 90\n3\n", " 90\n" + count + '\n',
                "30: '" + count + "' is no whole number");
        row("a NUL", "\n17\n", {"\n1\0007\n", 5}, "66: The text holds a NUL or a line feed");
        row("a text too long", "\n17\n", '\n' + QByteArray(65'537, '7') + '\n',
            "66: The text has more than 65536 bytes");
        row("a code line too long", " 66\n", QByteArray(600'000, '6') + '\n',
            "57: '" + QByteArray(40, '6') + "…' is no group code");
        row("a lost section begin", "  0\nSECTION\n  2\nENTITIES\n", "",
            "49: 'INSERT' stands outside of any section");
        row("a lost section change", "  0\nENDSEC\n  0\nSECTION\n  2\nBLOCKS\n",
            "  0\nSECTION\n  2\nENTITIES\n", "13: A block stands outside of the blocks section");
        row("no end", "  0\nEOF\n", "",
            "0: The end mark (EOF) is missing; the file looks cut short");
    }

    void refusesForeignFiles()
    {
        const PlanPairs plan = planOf(kFrame, kSheet);
        QByteArray utf16;
        for (const char byte : asciiPlan(plan))
            utf16 += QByteArray(1, byte) + '\0';
        const auto check = [](const QByteArray &bytes, const QByteArray &word) {
            const QByteArray answer = answerTo(bytes);
            QVERIFY2(answer.startsWith("0: ") && answer.contains(word), word + " or " + answer);
        };
        check("", "empty");
        check({"AC1027\0\0\0\0\x0a\x02", 12}, "DWG");
        check({"AutoCAD DXB 1.0\r\n\x1a\0", 19}, "DXB");
        check("%PDF-1.7\n", "PDF");
        check("PK\x03\x04zip", "ZIP");
        check("\x1f\x8b\x08", "gzip");
        check("\xff\xfe" + utf16, "UTF-16");
        check(utf16, "UTF-16");
        check("Dear Sir,\n\nplease find\n", "is text");
        check({"\177ELF\x02\x01\x01\0", 8}, "is no DXF drawing");
        check(asciiPlan(plan, "\r"), "CR alone");
        check("0\nEOF\n", "no section");
        check("\n\n\n", "no DXF");
    }

    void refusesEveryCut()
    {
        const PlanPairs pairs = planOf(kFrame, kSheet);
        for (const QByteArray &plan :
             {asciiPlan(pairs, "\r\n"), binaryPlan(pairs, false), binaryPlan(pairs, true)}) {
            // Line ends behind the end mark are not missed.
            const qsizetype needed = plan.lastIndexOf("EOF") + (plan.endsWith('\0') ? 4 : 3);
            for (qsizetype size = 0; size < needed; ++size) {
                const DxfReadResult result = read(plan.left(size));
                QVERIFY2(result.error && result.drawing.Blocks().empty(), QByteArray::number(size));
                QVERIFY(!result.error->message.isEmpty());
            }
        }
    }

    void passesOverLongLines()
    {
        for (const qsizetype size : {1'023, 1'024, 262'143, 262'144, 524'288, 30'000'000}) {
            const auto pairs = planOf(kFrame, "0 MTEXT|1 " + QByteArray(size, 'x') + '|' + kSheet);
            QCOMPARE(answerTo(asciiPlan(pairs, "\r\n")), kPlanText);
            QCOMPARE(answerTo(binaryPlan(pairs, true)), kPlanText);
        }
    }

    void readsPiecesAsAWhole()
    {
        const PlanPairs pairs = planOf(kFrame, "0 LINE|8 " + QByteArray(100, 'x') + '|' + kSheet);
        for (qint64 size = 1; size < 100; ++size)
            for (const QByteArray &plan : {asciiPlan(pairs), binaryPlan(pairs, true)}) {
                Pipe pipe(plan, size);
                QCOMPARE(answerOf(ReadDxf(pipe, u"-"_s)), kPlanText);
            }
    }

    void tellsProgressStopsAndNoticesAChangedFile()
    {
        const QByteArray plan =
            asciiPlan(planOf(kFrame, QByteArray("0 LINE|8 layer|").repeated(100'000) + kSheet));
        QList<qint64> steps;
        QVERIFY(read(plan, [&](qint64 done, qint64 total) {
            steps << done;
            return total == plan.size();
        }));
        QVERIFY(steps.size() > 3 && std::ranges::is_sorted(steps) && steps.last() == plan.size());
        const auto stopped = read(plan, [](qint64 done, qint64) { return done < 500'000; });
        QVERIFY(stopped.cancelled && stopped.error && stopped.drawing.Inserts().empty());
        for (const qint64 newSize : {qint64{300'000}, plan.size() + qint64{10}}) {
            QTemporaryFile file;
            QVERIFY(file.open() && file.write(plan) == plan.size() && file.flush());
            const DxfReadResult result =
                ReadDxfFile(file.fileName(), [&](qint64, qint64) { return file.resize(newSize); });
            QVERIFY(!result.cancelled);
            QCOMPARE(answerOf(result), "0: Was changed while it was being read"_ba);
        }
    }

private:
    const std::locale m_comma{std::locale::classic(), new Comma};
};

QTEST_GUILESS_MAIN(TestDxfReader)
#include "tst_dxfreader.moc"
