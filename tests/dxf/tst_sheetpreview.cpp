// SPDX-License-Identifier: GPL-2.0-or-later
// Pictures hold every sheet, to one scale, in its place.
#include "tests/dxf/plan.h"
#include <QtTest>
#include <cmath>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetPreview.h>

using namespace Qt::Literals::StringLiterals;

namespace {

Points frameAt(double x, double y)
{
    Points points = kFrame;
    for (DxfVertex &vertex : points)
        vertex = {vertex.x + x, vertex.y + y};
    return points;
}

SheetPicture pictureOf(DxfDrawingBuilder &plan)
{
    DxfDrawing drawing = plan.Take();
    GK::CRoutingTilesRevisor revisor(drawing);
    for (std::size_t block = 0; block < drawing.Blocks().size(); ++block)
        revisor.ReviseBlock(block);
    return LayOutSheets(drawing, allInserts(drawing), u"plan"_s);
}

/// One sheet in each block, @p step apart in both directions.
SheetPicture pictureOfMany(int count, double step)
{
    DxfDrawingBuilder plan;
    for (int i = 0; i < count; ++i) {
        const std::string name = std::to_string(i);
        addBlock(plan, name, {frameAt(i % 50 * step, i / 50 * step)});
        addInsert(plan, name, {{"BL_NR", name}});
    }
    return pictureOf(plan);
}

bool isOnPage(const SheetPicture &picture, const SheetFigure &figure)
{
    const QRectF page(QPointF(), picture.size);
    return std::ranges::all_of(figure.outlines, [&](const QPolygonF &points) {
        return std::ranges::all_of(points, [&](QPointF point) { return page.contains(point); });
    });
}

} // namespace

class TestSheetPreview : public QObject
{
    Q_OBJECT

private slots:
    void keepsPlaceAndScale_data();
    void keepsPlaceAndScale();
    void showsWhatIsWrongWithSheets();
    void survivesOddSizes();
};

void TestSheetPreview::keepsPlaceAndScale_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("step");
    QTest::addColumn<bool>("isMap");
    QTest::newRow("one") << 1 << 4.0 << true;
    QTest::newRow("two thousand") << 2000 << 4.0 << true;
    QTest::newRow("all on one place") << 2000 << 0.0 << false;
    QTest::newRow("too far apart") << 60 << 1000.0 << false;
}

void TestSheetPreview::keepsPlaceAndScale()
{
    QFETCH(const int, count);
    QFETCH(const double, step);
    const SheetPicture picture = pictureOfMany(count, step);
    QTEST(picture.isMap, "isMap");
    QCOMPARE(picture.figures.size(), static_cast<std::size_t>(count));
    QVERIFY(picture.size.width() >= 900 && picture.size.width() < 5000);
    for (const SheetFigure &figure : picture.figures) {
        QVERIFY(isOnPage(picture, figure));
        QVERIFY(figure.textHeight >= 8); // can be read
        const auto &[topLeft, topRight, bottomRight, bottomLeft] = figure.corners;
        QVERIFY(topLeft.y() < bottomLeft.y() && topLeft.x() < topRight.x());
        QVERIFY(qFuzzyCompare(topRight.x() - topLeft.x(), 3 * picture.pixelsPerUnit));
        QVERIFY(qFuzzyCompare(bottomRight.y() - topRight.y(), 2 * picture.pixelsPerUnit));
    }
    if (count > 50) { // no two sheets cover each other
        const QPointF way = picture.figures[1].centre - picture.figures[0].centre;
        QVERIFY(std::abs(way.x()) > 3 * picture.pixelsPerUnit);
    }
}

void TestSheetPreview::showsWhatIsWrongWithSheets()
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
    const SheetPicture picture = pictureOf(plan);
    using Kind = SheetFigure::Kind;
    QCOMPARE(picture.figures.size(), 3U); // sheets of one block are one figure
    QCOMPARE(picture.figures[0].number, u"1, 3"_s);
    QVERIFY(picture.figures[1].kind == Kind::Unlabelled && picture.figures[1].outlines.size() == 2);
    QCOMPARE(picture.figures[2].kind, Kind::Unnumbered);
    QStringList legend;
    for (const LegendEntry &entry : picture.legend)
        legend << entry.text;
    QVERIFY(legend.contains(u"plan"_s) && legend.contains(u"without labels: 1"_s));
}

void TestSheetPreview::survivesOddSizes()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "huge", {{{-1e308, -1e308}, {1e308, -1e308}, {1e308, 1e308}, {-1e308, 1e308}}});
    addBlock(plan, "a point", {{{5, 5}}});
    addBlock(plan, "a line", {{{0, 0}, {1, 0}}});
    addBlock(plan, "nothing", {{}});
    for (const char *block : {"huge", "a point", "a line", "nothing"})
        addInsert(plan, block, {{"BL_NR", "1"}});
    const SheetPicture picture = pictureOf(plan);
    QCOMPARE(picture.figures.size(), 4U);
    for (const SheetFigure &figure : picture.figures)
        QVERIFY(isOnPage(picture, figure));
    DxfDrawingBuilder none;
    QVERIFY(!pictureOf(none).size.isEmpty());
}

QTEST_APPLESS_MAIN(TestSheetPreview)
#include "tst_sheetpreview.moc"
