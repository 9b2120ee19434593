// SPDX-License-Identifier: GPL-2.0-or-later
// Frames are found, and their corners labelled, however they were drawn.
#include "tests/dxf/plan.h"
#include <QRandomGenerator>
#include <QtTest>
#include <cmath>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <numbers>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kDegree = std::numbers::pi / 180;

DxfVertex turned(DxfVertex point, double degrees, DxfVertex middle)
{
    const double c = std::cos(degrees * kDegree);
    const double s = std::sin(degrees * kDegree);
    return {middle.x + c * point.x - s * point.y, middle.y + s * point.x + c * point.y};
}

struct LabelledPoint
{
    DxfVertex point;
    VtxPosition label;
};

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

} // namespace

class TestRoutingTilesRevisor : public QObject
{
    Q_OBJECT

private slots:
    void labelsByPlaceHoweverDrawn();
    void knowsRectangles_data();
    void knowsRectangles();
    void labelsTheOneFrameOfABlock();
};

// The other way to the answer: a sheet is built from its labels, then turned and drawn at random.
void TestRoutingTilesRevisor::labelsByPlaceHoweverDrawn()
{
    QRandomGenerator random(63);
    for (int round = 0; round < 20'000; ++round) {
        const double w = 0.5 + random.bounded(800.0);
        const double h = 0.5 + random.bounded(800.0);
        // Every fourth is upright; the others turn by any angle of more than -45 and less than 45.
        const double turn = round % 4 == 0 ? 0 : random.bounded(89.999) - 44.9995;
        const DxfVertex middle{random.bounded(5e6), random.bounded(6e6) - 3e6};
        std::vector<LabelledPoint> sheet{{turned({-w, h}, turn, middle), vpTopLeft},
                                         {turned({w, h}, turn, middle), vpTopRight},
                                         {turned({w, -h}, turn, middle), vpBottomRight},
                                         {turned({-w, -h}, turn, middle), vpBottomLeft}};
        if (random.bounded(2) == 0)
            std::reverse(sheet.begin(), sheet.end());
        std::rotate(sheet.begin(), sheet.begin() + random.bounded(4), sheet.end());
        Points points;
        for (const LabelledPoint &corner : sheet)
            points.push_back(corner.point);
        const bool closedByFlag = random.bounded(2) == 0;
        if (!closedByFlag)
            points.push_back(points.front());
        const auto labels = LabelCorners(points, closedByFlag, CornerOrder::Upright);
        QVERIFY2(labels, qPrintable(u"round %1"_s.arg(round)));
        for (std::size_t i = 0; i < 4; ++i)
            QCOMPARE((*labels)[i], sheet[i].label);
        QCOMPARE(labelsOf(points, closedByFlag, CornerOrder::AsDrawn), u"TL TR BR BL"_s);
    }
}

void TestRoutingTilesRevisor::knowsRectangles_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<QString>("labels");
    const auto row = [](const char *name, const Points &points, bool closed, const char *labels) {
        QTest::newRow(name) << points << closed << QString::fromLatin1(labels);
    };
    const Points &f = kFrame;
    row("upright", f, true, "BL BR TR TL");
    row("open", f, false, "-");
    row("closed by its last vertex", {f[0], f[1], f[2], f[3], f[0]}, false, "BL BR TR TL");
    row("closed twice", {f[0], f[1], f[2], f[3], f[0]}, true, "BL BR TR TL");
    row("repeats its first vertex twice", {f[0], f[1], f[2], f[3], f[0], f[0]}, true, "-");
    row("doubled corner", {f[0], f[1], f[1], f[2], f[3]}, true, "-");
    row("doubled corner and its end", {f[0], f[1], f[1], f[0]}, true, "-");
    row("vertex within an edge", {{0, 0}, {1, 0}, {3, 0}, {3, 2}, {0, 2}}, true, "-");
    row("triangle", {f[0], f[1], f[2]}, true, "-");
    row("there and back", {f[0], f[1], f[0], f[1]}, true, "-");
    row("no vertices", {}, true, "-");
    row("crossing itself", {f[0], f[2], f[1], f[3]}, true, "-");
    // Its corners are right within the tolerance, but two of them turn back.
    row("long thin butterfly", {{0, 0}, {1000, 0}, {1000.01, 3}, {0.01, -3}}, true, "-");
    row("askew by 0.49 degrees", {{0, 0}, {100, 0}, {100.855, 100}, {0.855, 100}}, true,
        "BL BR TR TL");
    row("askew by 0.51 degrees", {{0, 0}, {100, 0}, {100.890, 100}, {0.890, 100}}, true, "-");
    // Turned by exactly 45 degrees it counts as turned counter-clockwise: its top looks up left.
    row("at 45 degrees", {{0, 0}, {3, 3}, {1, 5}, {-2, 2}}, true, "BL BR TR TL");
    row("at 45 degrees, clockwise", {{0, 0}, {-2, 2}, {1, 5}, {3, 3}}, true, "BL TL TR BR");
    // Decimals that no double holds: the angle is off by a few of its last bits.
    row("at 45 degrees in decimals", {{0.1, 0.1}, {3.3, 3.3}, {1.2, 5.4}, {-2.0, 2.2}}, true,
        "BL BR TR TL");
    row("at 45 degrees and a bit", {{0, 0}, {3, 3.00001}, {0.99999, 5}, {-2.00001, 2}}, true,
        "BR TR TL BL");
    row("largest coordinates", {{-1e308, -1e308}, {1e308, -1e308}, {1e308, 1e308}, {-1e308, 1e308}},
        true, "BL BR TR TL");
    row("tiny", {{0, 0}, {3e-160, 0}, {3e-160, 2e-160}, {0, 2e-160}}, true, "BL BR TR TL");
}

void TestRoutingTilesRevisor::knowsRectangles()
{
    QFETCH(const Points, points);
    QFETCH(const bool, closed);
    QTEST(labelsOf(points, closed), "labels");
}

void TestRoutingTilesRevisor::labelsTheOneFrameOfABlock()
{
    const Points line{{0, 0}, {1, 1}};
    DxfDrawingBuilder plan;
    addBlock(plan, "sheet", {line, kFrame, line});
    addBlock(plan, "no frame", {line});
    addBlock(plan, "the frame drawn twice", {kFrame, kFrame});
    DxfDrawing drawing = plan.Take();
    GK::CRoutingTilesRevisor revisor(drawing, CornerOrder::AsDrawn);
    const QList<std::size_t> rectangles{1, 0, 2};
    for (std::size_t i = 0; i < 3; ++i) {
        const DxfBlock &block = drawing.Blocks()[i];
        QCOMPARE(CountRectangles(drawing, block), rectangles[static_cast<qsizetype>(i)]);
        QCOMPARE(revisor.ReviseBlock(i), i == 0);
        QCOMPARE(HasLabelledFrame(drawing, block), i == 0);
    }
    const auto polylines = drawing.Polylines(drawing.Blocks()[0]);
    QCOMPARE(drawing.Corner(polylines[0], 0), vpUnknown);
    QCOMPARE(drawing.Corner(polylines[1], 0), vpTopLeft);
    QCOMPARE(drawing.Corner(polylines[1], 3), vpBottomLeft);
    // A revisor begins anew.
    GK::CRoutingTilesRevisor again(drawing);
    QVERIFY(!HasLabelledFrame(drawing, drawing.Blocks()[0]));
}

QTEST_APPLESS_MAIN(TestRoutingTilesRevisor)
#include "tst_routingtilesrevisor.moc"
