// SPDX-License-Identifier: GPL-2.0-or-later
// Nothing that a user would miss is left out without a word.
#include "tests/dxf/plan.h"
#include <QtTest>
#include <kelo_base/dxf/SheetAnalysis.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList told(const SheetAnalysis &analysis)
{
    QStringList lines;
    for (const Diagnostic &diagnostic : analysis.diagnostics)
        lines << u"%1 [%2] %3"_s.arg(QString::number(diagnostic.line), diagnostic.subject,
                                     diagnostic.text);
    return lines;
}

SheetAnalysis analysisOf(DxfDrawing drawing, const SheetFilter &filter = {})
{
    return *AnalyzeSheets(drawing, filter, CornerOrder::Upright, u"plan.dxf"_s);
}

} // namespace

class TestSheetAnalysis : public QObject
{
    Q_OBJECT

private slots:
    void tellsWhatAnExportLeavesOut();
    void tellsOnlyOfChosenInserts();
    void tellsWhenThereAreNoSheets();
    void tellsOffsetsOfBinaryPlans();
    void countsWhatItDoesNotTell();
    void stopsWhenTold();
};

void TestSheetAnalysis::tellsWhatAnExportLeavesOut()
{
    DxfDrawingBuilder plan;
    plan.SetVersion("AC1009");
    addBlock(plan, "good", {kFrame}, 10);
    addBlock(plan,
             "Stra\xDF"
             "e %2",
             {{{0, 0}, {1, 1}}}, 20);
    addBlock(plan, "twice", {kFrame, kFrame}, 30);
    addBlock(plan, "unused", {{{0, 0}, {1, 1}}}, 40);
    addBlock(plan, "lines only", {}, 50);
    plan.BeginBlock("outer", 60);
    addInsert(plan, "good", {{"BL_NR", "n1"}}, 61);
    plan.EndBlock();
    addInsert(plan, "good", {{"BL_NR", "1"}}, 100);
    addInsert(plan, "twice", {{"BL_NR", "2"}}, 101);
    addInsert(plan, "twice", {{"BL_NR", "3"}}, 102);
    addInsert(plan,
              "Stra\xDF"
              "e %2",
              {}, 103);
    addInsert(plan,
              "Stra\xDF"
              "e %2",
              {}, 104);
    addInsert(plan, "good", {{"BL_NR", "A1"}}, 105);
    addInsert(plan, "good", {{"BL_NR", "1"}}, 106);
    addInsert(plan, "good", {{"BL_NR", "1"}}, 107);
    addInsert(plan, "lines only", {{"BL_NR", "8"}}, 108);
    addInsert(plan, "lines only", {}, 109);
    addInsert(plan, "nowhere", {{"Bl_Nr", "9"}}, 110);
    const SheetAnalysis analysis = analysisOf(plan.Take());
    const QString detector =
        u"Rectangle detector detected less or more than one rectangle (Block:"_s;
    const QStringList expected{
        u"20 [Straße %2] "_s + detector + u"Straße %2): none found"_s,
        u"30 [twice] "_s + detector + u"twice): 2 found"_s,
        u"103 [Straße %2] 2 inserts of block 'Straße %2' have no sheet number and are not exported"_s,
        u"106 [1] More than one sheet has the number '1'"_s,
        u"108 [8] Sheet '8' is not exported: its block 'lines only' has no polyline"_s,
        u"110 [9] Sheet '9' is not exported: there is no block 'nowhere'"_s,
        u"61 [n1] Sheet 'n1' is not exported: its insert lies inside a block"_s};
    QCOMPARE(told(analysis), expected);
    QCOMPARE(analysis.warnings, expected.size());
    QCOMPARE(analysis.skipped, 4);
    QCOMPARE(analysis.sheets.size(), 8U);
    QCOMPARE(analysis.diagnostics[0].file, u"plan.dxf"_s);
}

void TestSheetAnalysis::tellsOnlyOfChosenInserts()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "good", {kFrame});
    addBlock(plan, "bad", {{{0, 0}, {1, 1}}});
    addInsert(plan, "good", {{"BL_NR", "1"}});
    addInsert(plan, "bad", {{"OLD", ""}});
    addInsert(plan, "nowhere", {{"BL_NR", "2"}, {"OLD", ""}});
    const SheetAnalysis analysis = analysisOf(plan.Take(), {.include = {}, .excludeTag = u"OLD"_s});
    QCOMPARE(told(analysis), QStringList());
    QCOMPARE(analysis.skipped, 0);
}

void TestSheetAnalysis::tellsWhenThereAreNoSheets()
{
    QCOMPARE(told(analysisOf({})), QStringList(u"0 [] No insert of the plan counts as a sheet"_s));
}

void TestSheetAnalysis::tellsOffsetsOfBinaryPlans()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "good", {kFrame});
    addInsert(plan, "good", {{"BL_NR", "1"}});
    addInsert(plan, "good", {{"BL_NR", "1"}}, 4711);
    DxfDrawing drawing = plan.Take();
    drawing.SetBinary(true);
    QCOMPARE(told(analysisOf(std::move(drawing))),
             QStringList(u"0 [1] More than one sheet has the number '1', at byte 4711"_s));
}

void TestSheetAnalysis::countsWhatItDoesNotTell()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "good", {kFrame});
    for (int i = 0; i < 1500; ++i)
        addInsert(plan, "nowhere", {{"BL_NR", "1"}});
    addInsert(plan, "good", {{"BL_NR", "1"}});
    const SheetAnalysis analysis = analysisOf(plan.Take());
    QCOMPARE(analysis.diagnostics.size(), 1001U);
    QCOMPARE(told(analysis).last(), u"0 [] 500 more warnings of this kind"_s);
    QCOMPARE(analysis.warnings, 1500);
}

void TestSheetAnalysis::stopsWhenTold()
{
    DxfDrawingBuilder plan;
    for (int i = 0; i < 3000; ++i)
        addBlock(plan, std::to_string(i), {kFrame});
    for (int i = 0; i < 3000; ++i)
        addInsert(plan, std::to_string(i), {{"BL_NR", std::to_string(i)}});
    DxfDrawing drawing = plan.Take();
    qint64 last = 0;
    qint64 whole = 0;
    const auto follow = [&](qint64 done, qint64 total) {
        const bool goesOn = done >= last && (whole == 0 || whole == total);
        last = done;
        whole = total;
        return goesOn;
    };
    QVERIFY(AnalyzeSheets(drawing, {}, CornerOrder::Upright, {}, follow));
    QCOMPARE(last, whole);
    for (qint64 stop = 0; stop < whole; stop += 500) {
        const auto until = [stop](qint64 done, qint64) { return done <= stop; };
        QVERIFY(!AnalyzeSheets(drawing, {}, CornerOrder::Upright, {}, until));
    }
}

QTEST_APPLESS_MAIN(TestSheetAnalysis)
#include "tst_sheetanalysis.moc"
