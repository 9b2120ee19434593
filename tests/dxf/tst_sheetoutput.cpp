// SPDX-License-Identifier: GPL-2.0-or-later
// GK2 files hold exactly the bytes that other programs expect; pictures hold every sheet, to one
// scale, in its place.
#include "tests/dxf/plan.h"
#include <QBuffer>
#include <QRandomGenerator>
#include <QtTest>
#include <bit>
#include <cstdio>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <kelo_base/dxf/SheetPreview.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The file, when it is told to hold this many records.
QByteArray gk2(const DxfDrawing &drawing, qint64 records)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const Gk2Result result = WriteGk2(buffer, drawing, allInserts(drawing));
    return result && result.written == records ? buffer.data() : "failed"_ba;
}

/// A picture with all that is to be seen in it.
struct Drawn : SheetPicture
{
    std::vector<SheetFigure> figures;
};

Drawn pictureOf(DxfDrawingBuilder &plan)
{
    DxfDrawing drawing = plan.Take();
    GK::CRoutingTilesRevisor revisor(drawing);
    for (std::size_t block = 0; block < drawing.Blocks().size(); ++block)
        revisor.ReviseBlock(block);
    Drawn picture{LayOutSheets(drawing, allInserts(drawing), u"plan"_s), {}};
    for (const SheetPlace &place : picture.places)
        picture.figures.push_back(FigureOf(picture, place, drawing));
    return picture;
}

bool areOnPage(const Drawn &picture)
{
    const QRectF page(QPointF(), picture.size);
    for (const SheetFigure &figure : picture.figures)
        for (const QPolygonF &points : figure.outlines)
            for (const QPointF point : points)
                if (!page.contains(point))
                    return false;
    return !picture.size.isEmpty();
}

} // namespace

class TestSheetOutput : public QObject
{
    Q_OBJECT

private slots:
    void writesExactBytes();
    void skipsWhatIsNoSheet();
    void coordinatesAreLikeC();
    void replacesTheFileAndStopsWhenTold();
    void keepsPlaceAndScale();
    void showsWhatIsWrongWithSheets();
    void survivesOddSizes();
    void countsSheetsByState();
};

void TestSheetOutput::writesExactBytes()
{
    using Labels = std::vector<std::vector<VtxPosition>>;
    const auto row = [](const char *name, const Labels &labels, const QByteArray &corners) {
        DxfDrawingBuilder plan;
        addBlock(plan, "B",
                 {{{3512.5, 871.256}, {-12.5, 0}, {1, 2}, {123456.789, -0.125}}, {{3, 3}}});
        addInsert(plan, "B", {{"BL_NR", " 1\xFC "}});
        addInsert(plan, "B", {{"Bl_Nr", "no"}, {"BL_NR", "%%U2"}});
        DxfDrawing drawing = plan.Take();
        const auto polylines = drawing.Polylines(drawing.Blocks()[0]);
        for (std::size_t p = 0; p < labels.size(); ++p)
            for (quint32 v = 0; v < labels[p].size(); ++v)
                drawing.SetCorner(polylines[p], v, labels[p][v]);
        const QByteArray text = gk2(drawing, 2);
        QVERIFY2(text == "GK2\r\n\r\n 1\xFC \r\n" + corners + "\r\n%%U2\r\n" + corners,
                 name + (": " + text));
    };
    row("corners stand clockwise from top left",
        {{vpBottomLeft, vpTopLeft, vpTopRight, vpBottomRight}},
        " -12,50        0,00    \r\n   1,00        2,00    \r\n"
        "123456,79       -0,12    \r\n3512,50      871,26    \r\n");
    row("no labels, no lines", {}, "");
    row("a missing corner leaves no gap", {{vpBottomLeft, vpUnknown, vpTopRight}},
        "   1,00        2,00    \r\n3512,50      871,26    \r\n");
    row("the last of two equal labels counts", {{vpTopLeft, vpUnknown, vpTopLeft}},
        "   1,00        2,00    \r\n");
    row("one polyline after the other", {{vpUnknown, vpBottomLeft}, {vpTopLeft}},
        " -12,50        0,00    \r\n   3,00        3,00    \r\n");
}

void TestSheetOutput::skipsWhatIsNoSheet()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {kFrame});
    addBlock(plan, "no polyline", {});
    for (const char *block : {"B", "no polyline", "no block", "B"})
        addInsert(plan, block, {{"BL_NR", "1"}});
    addInsert(plan, "B", {{"bl_nr", "2"}});
    addInsert(plan, "B", {{"Bl_Nr", ""}});
    DxfDrawing drawing = plan.Take();
    drawing.SetExportMark(3, false);
    QCOMPARE(gk2(drawing, 2), "GK2\r\n\r\n1\r\n\r\n\r\n"_ba);
    QCOMPARE(gk2(DxfDrawing(), 0), "GK2\r\n"_ba);
}

void TestSheetOutput::coordinatesAreLikeC()
{
    QRandomGenerator64 random(2);
    const auto check = [](double value) {
        char expected[400];
        std::snprintf(expected, sizeof expected, "%7.2lf", value); // the C locale: none was set
        std::string text;
        AppendGk2Coordinate(text, value);
        QCOMPARE(QByteArray::fromStdString(text), QByteArray(expected).replace('.', ','));
    };
    for (const double value : {0.125, 0.375, -0.125, 0.005, -0.001, -0.0, 0.995, 999.995, 4.9e-324,
                               4503599627370495.5, 4503599627370496.0, 9007199254740993.0, 1e300})
        check(value);
    for (int round = 0; round < 100'000; ++round) {
        const auto bits = random.generate64();
        check(std::bit_cast<double>(bits & 0xFFBFFFFFFFFFFFFF)); // any size, but finite
        check(double(bits >> 20) / double(8 + (bits & 1023)));   // sizes of maps
        check(double(bits >> 32) / 8);                           // halves of a hundredth
        if (QTest::currentTestFailed())
            return;
    }
}

void TestSheetOutput::replacesTheFileAndStopsWhenTold()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {kFrame});
    for (int i = 0; i < 5000; ++i)
        addInsert(plan, "B", {{"BL_NR", "1"}});
    const DxfDrawing drawing = plan.Take();
    QTemporaryDir dir;
    QFile file(dir.filePath(u"ältere Datei.txt"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(100'000, 'x')) == 100'000);
    file.close();
    QCOMPARE(ExportGk2File(file.fileName(), drawing, allInserts(drawing)), 5000);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.readAll(), "GK2\r\n" + QByteArray("\r\n1\r\n").repeated(5000));
    // Quiet: the count tells what was formatted, even where nothing could be stored.
    QCOMPARE(ExportGk2File(dir.filePath(u"none/x.txt"_s), drawing, allInserts(drawing)), 5000);
    const auto stopHalfWay = [](qint64 done, qint64 total) { return 2 * done < total; };
    const Gk2Result result = WriteGk2(file, drawing, allInserts(drawing), stopHalfWay);
    QVERIFY(!result && result.cancelled && result.written >= 2500 && result.written < 5000);
}

void TestSheetOutput::keepsPlaceAndScale()
{
    // One sheet in each block, a step apart in both directions.
    const auto check = [](int count, double step, bool isMap) {
        DxfDrawingBuilder plan;
        for (int i = 0; i < count; ++i) {
            const int row = i / 50;
            const double x = i % 50 * step;
            const double y = row * step;
            addBlock(plan, std::to_string(i), {{{x, y}, {x + 3, y}, {x + 3, y + 2}, {x, y + 2}}});
            addInsert(plan, std::to_string(i), {{"BL_NR", "1"}});
        }
        const Drawn picture = pictureOf(plan);
        QCOMPARE(picture.isMap, isMap);
        QCOMPARE(picture.figures.size(), static_cast<std::size_t>(count));
        QVERIFY(picture.size.width() >= 900 && picture.size.width() < 5000 && areOnPage(picture));
        for (const SheetFigure &figure : picture.figures) {
            QVERIFY(figure.textHeight >= 8); // can be read
            const auto &[topLeft, topRight, bottomRight, bottomLeft] = figure.corners;
            QVERIFY(topLeft.y() < bottomLeft.y() && topLeft.x() < topRight.x());
            QVERIFY(qFuzzyCompare(topRight.x() - topLeft.x(), 3 * picture.pixelsPerUnit));
            QVERIFY(qFuzzyCompare(bottomRight.y() - topRight.y(), 2 * picture.pixelsPerUnit));
        }
        if (count > 1) { // no two sheets cover each other
            const QPointF way = picture.figures[1].centre - picture.figures[0].centre;
            QVERIFY(std::abs(way.x()) > 3 * picture.pixelsPerUnit);
        }
    };
    check(1, 4, true);
    check(2000, 4, true);
    check(2000, 0, false);  // all on one place
    check(60, 1000, false); // too far apart
}

void TestSheetOutput::showsWhatIsWrongWithSheets()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "good", {kFrame});
    addBlock(plan, "upside down", {{{3, 12}, {0, 12}, {0, 10}, {3, 10}}});
    addBlock(plan, "no frame", {{{10, 0}, {13, 0}, {12, 2}}, {{10, 0}, {11, 1}}});
    addInsert(plan, "good", {{"BL_NR", "1"}});
    addInsert(plan, "no frame", {{"BL_NR", "2"}});
    addInsert(plan, "upside down", {});
    addInsert(plan, "good", {{"BL_NR", "3"}});
    addInsert(plan, "nowhere", {{"BL_NR", "4"}});
    const Drawn picture = pictureOf(plan);
    // Sheets of one block are one figure.
    QVERIFY(picture.figures.size() == 3 && picture.figures[0].number == u"1, 3"_s);
    QVERIFY(picture.figures[1].kind == SheetKind::Unlabelled &&
            picture.figures[1].outlines.size() == 2);
    QCOMPARE(picture.figures[2].kind, SheetKind::Unnumbered);
    const auto isInLegend = [&](const QString &text) {
        return std::ranges::find(picture.legend, text, &LegendEntry::text) != picture.legend.end();
    };
    QVERIFY(isInLegend(u"plan"_s) && isInLegend(u"without labels: 1"_s));
}

void TestSheetOutput::survivesOddSizes()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "huge", {{{-1e308, -1e308}, {1e308, -1e308}, {1e308, 1e308}, {-1e308, 1e308}}});
    addBlock(plan, "a point", {{{5, 5}}});
    addBlock(plan, "a line", {{{0, 0}, {1, 0}}});
    addBlock(plan, "nothing", {{}});
    for (const char *block : {"huge", "a point", "a line", "nothing"})
        addInsert(plan, block, {{"BL_NR", "1"}});
    const Drawn picture = pictureOf(plan);
    QVERIFY(picture.figures.size() == 4 && areOnPage(picture));
    DxfDrawingBuilder none;
    QVERIFY(areOnPage(pictureOf(none)));
}

void TestSheetOutput::countsSheetsByState()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "shared", {kFrame});
    addBlock(plan, "apart", {{{10, 0}, {13, 0}, {13, 2}, {10, 2}}});
    for (const char *block : {"shared", "shared", "apart", "apart"})
        addInsert(plan, block, {{"BL_NR", "1"}});
    DxfDrawing drawing = plan.Take();
    LabelSheets(drawing, CornerOrder::Upright);
    SheetPicture picture = LayOutSheets(drawing, allInserts(drawing), u"plan"_s);
    QCOMPARE(picture.places.size(), 2U);
    for (const quint32 sheet : {0U, 1U, 2U})
        drawing.SetExportMark(sheet, false);
    ShowSheetStates(picture, drawing, std::vector<quint32>{0, 1, 2});
    const auto isInLegend = [&](const QString &text) {
        return std::ranges::find(picture.legend, text, &LegendEntry::text) != picture.legend.end();
    };
    // Sheets, not places.
    QVERIFY(isInLegend(u"not marked: 3"_s) && isInLegend(u"not included: 1"_s));
    QCOMPARE(picture.places[0].state, SheetState::Unmarked); // the best of two
    drawing.SetExportMark(1, true);
    ShowSheetStates(picture, drawing, std::vector<quint32>{0, 1});
    QCOMPARE(picture.places[0].state, SheetState::Exported);
    QCOMPARE(picture.places[1].state, SheetState::FilteredOut);
}

QTEST_APPLESS_MAIN(TestSheetOutput)
#include "tst_sheetoutput.moc"
