// SPDX-License-Identifier: GPL-2.0-or-later
// The right inserts count as sheets, frames are found however they were drawn, and nothing that a
// user would miss is left out without a word.
#include "tests/dxf/plan.h"
#include <QtTest>
#include <cmath>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <limits>
#include <numbers>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The sheet numbers chosen, in order: "1 2 ...".
QString chosen(const DxfDrawing &drawing, const SheetFilter &filter = {})
{
    const auto sheets = SelectSheets(drawing, filter);
    QStringList numbers;
    for (const quint32 sheet : *sheets)
        numbers << drawing.DisplayText(
            SheetNumberText(drawing, drawing.Inserts()[sheet]).value_or("-"));
    return numbers.join(u' ');
}

/// "TL TR BR BL" and so on, "-" for a polyline that is no rectangle.
QString labelsOf(const Points &points, bool closed = true, CornerOrder order = CornerOrder::Upright)
{
    const auto labels = LabelCorners(points, closed, order);
    if (!labels)
        return u"-"_s;
    QStringList names;
    for (const VtxPosition label : *labels)
        names << QStringList{u"?"_s, u"TL"_s, u"TR"_s, u"BL"_s, u"BR"_s}[label];
    return names.join(u' ');
}

QStringList told(const SheetAnalysis &analysis)
{
    QStringList lines;
    for (const PlanFinding &d : analysis.diagnostics)
        lines << u"%1 [%2] %3"_s.arg(QString::number(d.line), d.subject, d.text);
    return lines;
}

SheetAnalysis analysisOf(DxfDrawing drawing, const SheetFilter &filter = {})
{
    return *AnalyzeSheets(drawing, filter, CornerOrder::Upright, u"plan.dxf"_s);
}

} // namespace

Q_DECLARE_METATYPE(SheetFilter)

class TestSheets : public QObject
{
    Q_OBJECT

private slots:
    void readsNumbers()
    {
        const qint64 largest = std::numeric_limits<qint64>::max();
        const qint64 numbers[] = {12, -1, -1, 3, 5, 7, 4, largest, largest};
        const QByteArray texts =
            "A12b|B||3-4|-5|007|\u0663 4|9223372036854775807|x99999999999999999999y";
        for (std::size_t i = 0; const QByteArray &text : texts.split('|'))
            QVERIFY2(SheetNumber(text.toStdString()) == numbers[i++], text);
    }

    void sortsByNumber()
    {
        DxfDrawingBuilder plan;
        addBlock(plan, "B", {kFrame});
        addBlock(plan, "no polyline", {});
        for (const char *number : {"10", "B2", "99999999999999999999", "Blatt", "A2", "2c", "9"})
            addInsert(plan, "B", {{"BL_NR", number}});
        addInsert(plan, "B", {});
        addInsert(plan, "no polyline", {{"BL_NR", "5"}});
        addInsert(plan, "no block", {{"BL_NR", "6"}});
        QCOMPARE(chosen(plan.take()), u"Blatt - B2 A2 2c 9 10 99999999999999999999"_s);
    }

    void filters_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<QByteArray>("codePage");
        QTest::addColumn<SheetFilter>("filter");
        QTest::addColumn<QString>("numbers");
        const auto row = [](const char *name, const char *version, const SheetFilter &filter,
                            const char *numbers, const char *codePage = "") {
            QTest::newRow(name) << QByteArray(version) << QByteArray(codePage) << filter
                                << QString::fromLatin1(numbers);
        };
        using With = SheetFilter::Attribute;
        row("a value is asked for", "AC1009", {With{u"TYP"_s, u"main"_s}, {}}, "1 3");
        row("part of a value is another", "AC1009", {With{u"TYP"_s, u"mai"_s}, {}}, "");
        row("a tag in other case is another", "AC1009", {With{u"Typ"_s, u"main"_s}, {}}, "");
        row("an empty value is a value", "AC1009", {With{u"OLD"_s, u""_s}, {}}, "3");
        row("a tag leaves sheets out", "AC1009", {{}, u"OLD"_s}, "1 2 4 5 6");
        row("both hold", "AC1009", {With{u"TYP"_s, u"main"_s}, u"OLD"_s}, "1");
        row("old plans have Latin-1", "AC1018", {With{u"Ö"_s, u"ü"_s}, {}}, "4");
        row("new plans have UTF-8", "AC1021", {With{u"Ö"_s, u"ü"_s}, {}}, "5");
        row("an umlaut leaves sheets out", "AC1021", {{}, u"Ö"_s}, "1 2 3 4 6");
        row("the code page counts", "AC1018", {With{u"\u0426"_s, u"\u044C"_s}, {}}, "4",
            "ANSI_1251");
        row("Latin-1 counts beside it", "AC1018", {With{u"Ö"_s, u"ü"_s}, {}}, "4", "ANSI_1251");
        row("escapes are read", "AC1018", {With{u"TITEL"_s, u"Łódź"_s}, {}}, "6");
        row("escapes do not count as they stand", "AC1021",
            {With{u"TITEL"_s, u"\\U+0141\u00F3d\\U+017a"_s}, {}}, "");
        row("what is no Latin-1 is nowhere", "AC1018", {With{u"TYP"_s, u"main\u20AC"_s}, {}}, "");
        row("what is no Latin-1 leaves nothing out", "AC1018", {{}, u"OLD\u0119"_s}, "1 2 3 4 5 6");
    }

    void filters()
    {
        QFETCH(const QByteArray, version);
        QFETCH(const QByteArray, codePage);
        QFETCH(const SheetFilter, filter);
        DxfDrawingBuilder plan;
        plan.setVersion(version.toStdString());
        plan.setCodePage(codePage.toStdString());
        addBlock(plan, "B", {kFrame});
        addInsert(plan, "B", {{"BL_NR", "1"}, {"TYP", "main"}});
        addInsert(plan, "B", {{"BL_NR", "2"}, {"TYP", "Main"}});
        addInsert(plan, "B", {{"BL_NR", "3"}, {"TYP", "main"}, {"OLD", ""}});
        addInsert(plan, "B", {{"BL_NR", "4"}, {"\xD6", "\xFC"}});         // in Latin-1
        addInsert(plan, "B", {{"BL_NR", "5"}, {"\xC3\x96", "\xC3\xBC"}}); // in UTF-8
        addInsert(plan, "B",
                  {{"BL_NR", "6"},
                   {"TITEL", "\\U+0141\xF3"
                             "d\\U+017a"}});
        QTEST(chosen(plan.take(), filter), "numbers");
    }

    // The other way to the answer: a sheet is built from its labels, then turned and drawn at
    // random.
    void labelsByPlaceHoweverDrawn()
    {
        QRandomGenerator random(63);
        for (int round = 0; round < 20'000; ++round) {
            const double w = 0.5 + random.bounded(800.0);
            const double h = 0.5 + random.bounded(800.0);
            // Every fourth is upright; the others turn by any angle of more than -45 and less
            // than 45.
            const double turn = round % 4 == 0 ? 0 : random.bounded(89.999) - 44.9995;
            const double c = std::cos(turn * std::numbers::pi / 180);
            const double s = std::sin(turn * std::numbers::pi / 180);
            const DxfVertex middle{random.bounded(5e6), random.bounded(6e6) - 3e6};
            const auto at = [&](double x, double y) {
                return DxfVertex{middle.x + c * x - s * y, middle.y + s * x + c * y};
            };
            std::vector<std::pair<DxfVertex, VtxPosition>> sheet{{at(-w, h), vpTopLeft},
                                                                 {at(w, h), vpTopRight},
                                                                 {at(w, -h), vpBottomRight},
                                                                 {at(-w, -h), vpBottomLeft}};
            if (random.bounded(2) == 0)
                std::reverse(sheet.begin(), sheet.end());
            std::rotate(sheet.begin(), sheet.begin() + random.bounded(4), sheet.end());
            Points points;
            for (const auto &[corner, label] : sheet)
                points.push_back(corner);
            const bool closedByFlag = random.bounded(2) == 0;
            if (!closedByFlag)
                points.push_back(points.front());
            const auto labels = LabelCorners(points, closedByFlag, CornerOrder::Upright);
            QVERIFY(labels);
            for (std::size_t i = 0; i < 4; ++i)
                QCOMPARE((*labels)[i], sheet[i].second);
            QCOMPARE(labelsOf(points, closedByFlag, CornerOrder::AsDrawn), u"TL TR BR BL"_s);
        }
    }

    void knowsRectangles_data()
    {
        QTest::addColumn<Points>("points");
        QTest::addColumn<QString>("labels");
        const auto row = [](const char *name, const Points &points, const char *labels = "-") {
            QTest::newRow(name) << points << QString::fromLatin1(labels);
        };
        const Points &f = kFrame;
        row("closed twice is closed", {f[0], f[1], f[2], f[3], f[0]}, "BL BR TR TL");
        row("its first vertex comes three times", {f[0], f[1], f[2], f[3], f[0], f[0]});
        row("a corner is doubled", {f[0], f[1], f[1], f[2], f[3]});
        row("a corner and the end are doubled", {f[0], f[1], f[1], f[0]});
        row("a vertex lies within an edge", {{0, 0}, {1, 0}, {3, 0}, {3, 2}, {0, 2}});
        row("a triangle is none", {f[0], f[1], f[2]});
        row("it goes there and back", {f[0], f[1], f[0], f[1]});
        row("it has no vertices", {});
        row("it crosses itself", {f[0], f[2], f[1], f[3]});
        // Its corners are right within the tolerance, but two of them turn back.
        row("it is a long thin butterfly", {{0, 0}, {1000, 0}, {1000.01, 3}, {0.01, -3}});
        row("askew by 0.49 it counts", {{0, 0}, {100, 0}, {100.855, 100}, {0.855, 100}},
            "BL BR TR TL");
        row("askew by 0.51 it does not", {{0, 0}, {100, 0}, {100.890, 100}, {0.890, 100}});
        // Turned by exactly 45 degrees it counts as turned counter-clockwise: its top looks up
        // left.
        row("it stands at 45 degrees", {{0, 0}, {3, 3}, {1, 5}, {-2, 2}}, "BL BR TR TL");
        row("so it does when drawn clockwise", {{0, 0}, {-2, 2}, {1, 5}, {3, 3}}, "BL TL TR BR");
        // Decimals that no double holds: the angle is off by a few of its last bits.
        row("45 degrees in decimals are 45", {{0.1, 0.1}, {3.3, 3.3}, {1.2, 5.4}, {-2.0, 2.2}},
            "BL BR TR TL");
        row("45 degrees and a bit are more", {{0, 0}, {3, 3.00001}, {0.99999, 5}, {-2.00001, 2}},
            "BR TR TL BL");
        row("it is as large as can be",
            {{-1e308, -1e308}, {1e308, -1e308}, {1e308, 1e308}, {-1e308, 1e308}}, "BL BR TR TL");
        row("it is tiny", {{0, 0}, {3e-160, 0}, {3e-160, 2e-160}, {0, 2e-160}}, "BL BR TR TL");
    }

    void knowsRectangles()
    {
        QFETCH(const Points, points);
        QTEST(labelsOf(points), "labels");
        QCOMPARE(labelsOf(kFrame, false), u"-"_s); // open
    }

    void labelsTheOneFrameOfABlock()
    {
        const Points line{{0, 0}, {1, 1}};
        DxfDrawingBuilder plan;
        addBlock(plan, "sheet", {line, kFrame, line});

        DxfDrawing drawing = plan.take();
        const auto blocks = drawing.Blocks();
        GK::CRoutingTilesRevisor revisor(drawing, CornerOrder::AsDrawn);
        QVERIFY(revisor.ReviseBlock(0));
        QVERIFY(HasLabelledFrame(drawing, blocks[0]));

        const auto polylines = drawing.Polylines(blocks[0]);
        QCOMPARE(drawing.Corner(polylines[0], 0), vpUnknown);
        QCOMPARE(drawing.Corner(polylines[1], 3), vpBottomLeft);
        GK::CRoutingTilesRevisor again(drawing); // begins anew
        QVERIFY(!HasLabelledFrame(drawing, blocks[0]));
    }

    void tellsWhatAnExportLeavesOut()
    {
        const Points line{{0, 0}, {1, 1}};
        DxfDrawingBuilder plan;
        plan.setVersion("AC1009");
        addBlock(plan, "good", {kFrame}, 10);
        addBlock(plan, "Stra\337e %2", {line}, 20);
        addBlock(plan, "twice", {kFrame, kFrame}, 30);
        addBlock(plan, "unused", {line}, 40);
        addBlock(plan, "lines only", {}, 50);
        plan.beginBlock("outer", 60);
        addInsert(plan, "good", {{"BL_NR", "n1"}}, 61);
        plan.endBlock();
        quint32 at = 100;
        using Sheet = std::pair<const char *, const char *>;
        for (const auto &[block, number] :
             {Sheet{"good", "1"}, Sheet{"twice", "2"}, Sheet{"twice", "3"}, Sheet{"good", "A1"},
              Sheet{"good", "1"}, Sheet{"good", "1"}, Sheet{"lines only", "8"},
              Sheet{"nowhere", "9"}})
            addInsert(plan, block, {{"BL_NR", number}}, at++);
        for (const char *block : {"Stra\337e %2", "Stra\337e %2", "lines only"})
            addInsert(plan, block, {{"TITEL", "x"}}, at++);
        const SheetAnalysis analysis = analysisOf(plan.take());
        const QString detector =
            u"Rectangle detector detected less or more than one rectangle (Block:"_s;
        const QStringList expected{
            u"20 [Straße %2] "_s + detector + u"Straße %2): none found"_s,
            u"30 [twice] "_s + detector + u"twice): 2 found"_s,
            u"108 [Straße %2] 2 inserts of block 'Straße %2' have no sheet number and are not exported: looked for the attribute BL_NR or Bl_Nr, found TITEL"_s,
            u"104 [1] More than one sheet has the number '1'"_s,
            u"106 [8] Sheet '8' is not exported: its block 'lines only' has no polyline"_s,
            u"107 [9] Sheet '9' is not exported: there is no block 'nowhere'"_s,
            u"0 [] 4 sheets have the same corners as others, because they share blocks; \"Apply insert position\" (--placed) puts each where its insert stands"_s,
            u"61 [n1] Sheet 'n1' is not exported: its insert lies inside a block"_s};
        QCOMPARE(told(analysis), expected);
        QCOMPARE(analysis.warnings, expected.size() - 1); // one of them is a note
        QCOMPARE(analysis.skipped, 4);
        QCOMPARE(analysis.sheets.size(), 8U);
        QCOMPARE(analysis.diagnostics[0].file, u"plan.dxf"_s);
        QCOMPARE(told(analysisOf({})), QStringList(u"0 [] The plan has no block inserts"_s));
    }

    void tellsOnlyOfChosenInserts()
    {
        DxfDrawingBuilder plan;
        addBlock(plan, "good", {kFrame});
        addBlock(plan, "bad", {{{0, 0}, {1, 1}}});
        addInsert(plan, "good", {{"BL_NR", "1"}});
        addInsert(plan, "bad", {{"OLD", ""}});
        addInsert(plan, "nowhere", {{"BL_NR", "2"}, {"OLD", ""}});
        addInsert(plan, "good", {{"BL_NR", "1"}}, 4711);
        DxfDrawing drawing = plan.take();
        drawing.SetBinary(true);
        const SheetAnalysis analysis = analysisOf(std::move(drawing), {{}, u"OLD"_s});
        const QStringList expected{
            u"0 [1] More than one sheet has the number '1', at byte 4711"_s,
            u"0 [] 2 sheets have the same corners as others, because they share blocks; \"Apply "
            "insert position\" (--placed) puts each where its insert stands"_s};
        QCOMPARE(told(analysis), expected);
        QCOMPARE(analysis.skipped, 0);
    }

    void countsWhatItDoesNotTellAndStops()
    {
        DxfDrawingBuilder plan;
        for (int i = 0; i < 3000; ++i) {
            addBlock(plan, std::to_string(i), {kFrame});
            addInsert(plan, std::to_string(i), {{"BL_NR", std::to_string(i)}});
            addInsert(plan, "nowhere", {{"BL_NR", "1"}});
        }
        DxfDrawing drawing = plan.take();
        qint64 last = 0;
        qint64 whole = 0;
        const auto follow = [&](qint64 done, qint64 total) {
            return std::exchange(last, done) <= done && (whole = total) > 0;
        };
        const auto analysis = AnalyzeSheets(drawing, {}, CornerOrder::Upright, {}, follow);
        QVERIFY(analysis);
        QVERIFY2(last > whole / 2 && last <= whole, QByteArray::number(last)); // a range
        QCOMPARE(analysis->diagnostics.size(), 1001U);
        QCOMPARE(told(*analysis).last(), u"0 [] 2000 more warnings of this kind"_s);
        QCOMPARE(analysis->warnings, 3000);
        for (qint64 stop = 0; stop < last; stop += 500)
            QVERIFY(!AnalyzeSheets(drawing, {}, CornerOrder::Upright, {},
                                   [stop](qint64 done, qint64) { return done <= stop; }));
    }
};

QTEST_APPLESS_MAIN(TestSheets)
#include "tst_sheets.moc"
