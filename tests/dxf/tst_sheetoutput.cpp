// SPDX-License-Identifier: GPL-2.0-or-later
// GK2 files hold exactly the bytes that other programs expect; pictures hold every sheet, to one
// scale, in its place.
#include "tests/dxf/plan.h"
#include "tests/support/FileBytes.h"
#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QtTest>
#include <algorithm>
#include <bit>
#include <cmath>
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
    DxfDrawing drawing = plan.take();
    GK::CRoutingTilesRevisor revisor(drawing);
    for (std::size_t block = 0; block < drawing.Blocks().size(); ++block)
        revisor.ReviseBlock(block);
    Drawn picture{LayOutSheets(drawing, allInserts(drawing), u"plan"_s), {}};
    for (const SheetPlace &place : picture.places)
        picture.figures.push_back(FigureOf(picture, place, drawing));
    return picture;
}

/// Each in a block of its own, with the number 4711, a step apart in both directions.
void addSheets(DxfDrawingBuilder &plan, int count, double step)
{
    const int columns = std::max(50, static_cast<int>(std::sqrt(count)));
    for (int i = 0; i < count; ++i) {
        const double x = i % columns * step;
        const int row = i / columns;
        const double y = row * step;
        addBlock(plan, std::to_string(i), {{{x, y}, {x + 3, y}, {x + 3, y + 2}, {x, y + 2}}});
        addInsert(plan, std::to_string(i), {{"BL_NR", "4711"}});
    }
}

bool isInLegend(const SheetPicture &picture, const QString &text)
{
    return std::ranges::find(picture.legend, text, &LegendEntry::text) != picture.legend.end();
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

using Labels = std::vector<std::vector<VtxPosition>>;
Q_DECLARE_METATYPE(Labels)

class TestSheetOutput : public QObject
{
    Q_OBJECT

private slots:
    void writesExactBytes_data();
    void writesExactBytes();
    void skipsWhatIsNoSheet();
    void coordinatesAreLikeC();
    void replacesTheFileAndStopsWhenTold();
    void keepsPlaceAndScale_data();
    void keepsPlaceAndScale();
    void keepsLargePicturesSmall_data();
    void keepsLargePicturesSmall();
    void showsWhatIsWrongWithSheets();
    void survivesOddSizes();
    void countsSheetsByState();
};

void TestSheetOutput::writesExactBytes_data()
{
    QTest::addColumn<Labels>("labels");
    QTest::addColumn<QByteArray>("corners");
    QTest::newRow("corners stand clockwise from top left")
        << Labels{{vpBottomLeft, vpTopLeft, vpTopRight, vpBottomRight}}
        << " -12,50        0,00    \r\n   1,00        2,00    \r\n"
           "123456,79       -0,12    \r\n3512,50      871,26    \r\n"_ba;
    QTest::newRow("no labels, no lines") << Labels() << ""_ba;
    QTest::newRow("a missing corner leaves no gap")
        << Labels{{vpBottomLeft, vpUnknown, vpTopRight}}
        << "   1,00        2,00    \r\n3512,50      871,26    \r\n"_ba;
    QTest::newRow("the last of two equal labels counts")
        << Labels{{vpTopLeft, vpUnknown, vpTopLeft}} << "   1,00        2,00    \r\n"_ba;
    QTest::newRow("one polyline comes after the other")
        << Labels{{vpUnknown, vpBottomLeft}, {vpTopLeft}}
        << " -12,50        0,00    \r\n   3,00        3,00    \r\n"_ba;
}

void TestSheetOutput::writesExactBytes()
{
    QFETCH(const Labels, labels);
    QFETCH(const QByteArray, corners);
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {{{3512.5, 871.256}, {-12.5, 0}, {1, 2}, {123456.789, -0.125}}, {{3, 3}}});
    addInsert(plan, "B", {{"BL_NR", " 1\xFC "}});
    addInsert(plan, "B", {{"Bl_Nr", "no"}, {"BL_NR", "%%U2"}});
    DxfDrawing drawing = plan.take();
    const auto polylines = drawing.Polylines(drawing.Blocks()[0]);
    for (std::size_t p = 0; p < labels.size(); ++p)
        for (quint32 v = 0; v < labels[p].size(); ++v)
            drawing.SetCorner(polylines[p], v, labels[p][v]);
    QCOMPARE(gk2(drawing, 2), "GK2\r\n\r\n 1\xFC \r\n" + corners + "\r\n%%U2\r\n" + corners);
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
    DxfDrawing drawing = plan.take();
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
    const DxfDrawing drawing = plan.take();
    QTemporaryDir dir;
    QFile file(dir.filePath(u"ältere Datei.txt"_s));
    writeBytes(file.fileName(), QByteArray(100'000, 'x'));
    QCOMPARE(ExportGk2File(file.fileName(), drawing, allInserts(drawing)), 5000);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.readAll(), "GK2\r\n" + QByteArray("\r\n1\r\n").repeated(5000));
    // Quiet: the count tells what was formatted, even where nothing could be stored.
    QCOMPARE(ExportGk2File(dir.filePath(u"none/x.txt"_s), drawing, allInserts(drawing)), 5000);
    const auto stopHalfWay = [](qint64 done, qint64 total) { return 2 * done < total; };
    const Gk2Result result = WriteGk2(file, drawing, allInserts(drawing), stopHalfWay);
    QVERIFY(result.cancelled);
    QVERIFY2(result.written >= 2500 && result.written < 5000, QByteArray::number(result.written));
}

void TestSheetOutput::keepsPlaceAndScale_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("step");
    QTest::addColumn<bool>("isMap");
    QTest::newRow("one sheet is a map") << 1 << 4.0 << true;
    QTest::newRow("sheets beside each other are a map") << 2000 << 4.0 << true;
    QTest::newRow("sheets on one place stand in rows") << 2000 << 0.0 << false;
    QTest::newRow("sheets too far apart stand in rows") << 60 << 1000.0 << false;
}

void TestSheetOutput::keepsPlaceAndScale()
{
    QFETCH(const int, count);
    QFETCH(const double, step);
    DxfDrawingBuilder plan;
    addSheets(plan, count, step);
    const Drawn picture = pictureOf(plan);
    QTEST(picture.isMap, "isMap");
    QCOMPARE(picture.figures.size(), static_cast<std::size_t>(count));
    QVERIFY(picture.size.width() >= 900);
    QVERIFY(picture.size.width() < 5000);
    QVERIFY(areOnPage(picture));
    for (const SheetFigure &figure : picture.figures) {
        QVERIFY(figure.textHeight >= 8); // can be read
        const auto &[topLeft, topRight, bottomRight, bottomLeft] = figure.corners;
        QVERIFY(topLeft.y() < bottomLeft.y());
        QVERIFY(topLeft.x() < topRight.x());
        QVERIFY(qFuzzyCompare(topRight.x() - topLeft.x(), 3 * picture.pixelsPerUnit));
        QVERIFY(qFuzzyCompare(bottomRight.y() - topRight.y(), 2 * picture.pixelsPerUnit));
    }
    if (count > 1) { // no two sheets cover each other
        const QPointF way = picture.figures[1].centre - picture.figures[0].centre;
        QVERIFY(std::abs(way.x()) > 3 * picture.pixelsPerUnit);
    }
}

void TestSheetOutput::keepsLargePicturesSmall_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("hasNumbers");
    QTest::newRow("few sheets have their numbers") << 60 << true;
    QTest::newRow("2,000 sheets have theirs") << 2000 << true;
    QTest::newRow("of more sheets they cannot be read") << 30'000 << false;
    QTest::newRow("of very many there are only spots") << 50'001 << false;
}

void TestSheetOutput::keepsLargePicturesSmall()
{
    QFETCH(const int, count);
    DxfDrawingBuilder plan;
    addSheets(plan, count, 4);
    DxfDrawing drawing = plan.take();
    LabelSheets(drawing, CornerOrder::Upright);
    const SheetPicture picture = LayOutSheets(drawing, allInserts(drawing), u"plan"_s);
    const auto written = [&](SheetPictureFormat format) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        return WriteSheetPicture(buffer, picture, drawing, format) ? buffer.data() : QByteArray();
    };
    const QByteArray svg = written(SheetPictureFormat::Svg);
    QVERIFY(svg.size() > 1000);
    QVERIFY2(svg.size() < 5'000'000, QByteArray::number(svg.size()));
    QTEST(svg.contains(">4711<"), "hasNumbers");
    const QSize size = QImage::fromData(written(SheetPictureFormat::Png)).size();
    QVERIFY2(size.width() >= std::min(900, 30 * count), QByteArray::number(size.width()));
    QVERIFY2(std::max(size.width(), size.height()) <= 4000, QByteArray::number(size.height()));
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
    QCOMPARE(picture.figures.size(), 3U);
    QCOMPARE(picture.figures[0].number, u"1, 3"_s);
    QCOMPARE(picture.figures[1].kind, SheetKind::Unlabelled);
    QCOMPARE(picture.figures[1].outlines.size(), 2U);
    QCOMPARE(picture.figures[2].kind, SheetKind::Unnumbered);
    QVERIFY(isInLegend(picture, u"plan"_s));
    QVERIFY(isInLegend(picture, u"without labels: 1"_s));
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
    QCOMPARE(picture.figures.size(), 4U);
    QVERIFY(areOnPage(picture));
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
    DxfDrawing drawing = plan.take();
    LabelSheets(drawing, CornerOrder::Upright);
    SheetPicture picture = LayOutSheets(drawing, allInserts(drawing), u"plan"_s);
    QCOMPARE(picture.places.size(), 2U);
    for (const quint32 sheet : {0U, 1U, 2U})
        drawing.SetExportMark(sheet, false);
    ShowSheetStates(picture, drawing, std::vector<quint32>{0, 1, 2});
    // Sheets, not places.
    QVERIFY(isInLegend(picture, u"not marked: 3"_s));
    QVERIFY(isInLegend(picture, u"not included: 1"_s));
    QCOMPARE(picture.places[0].state, SheetState::Unmarked); // the best of two
    drawing.SetExportMark(1, true);
    ShowSheetStates(picture, drawing, std::vector<quint32>{0, 1});
    QCOMPARE(picture.places[0].state, SheetState::Exported);
    QCOMPARE(picture.places[1].state, SheetState::FilteredOut);
}

QTEST_MAIN(TestSheetOutput)
#include "tst_sheetoutput.moc"
