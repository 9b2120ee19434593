// SPDX-License-Identifier: GPL-2.0-or-later
// The values that cross the document window's interface, and its registration.
#include "tests/support/TestView.h"
#include <QPainterPath>
#include <QtTest>
#include <kelo_base/navigation/ViewGeometry.h>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace docwindow;

class TestDocWindow : public QObject
{
    Q_OBJECT

private slots:
    void comparesDocumentPoints();
    void knowsWhichPointsAreThere();
    void subtractsInAllSystems();
    void refusesUnusableItems();
    void identifiesListContent();
    void survivesItsRegistration();
    void takesAreasFromTheView();
    void recognisesRectangles();
};

void TestDocWindow::comparesDocumentPoints()
{
    UCoord coord(9, 9);
    for (const auto &[x, same] :
         {std::pair(0.0004, true), {0.0006, false}, {-0.0006, false}, {qQNaN(), false}}) {
        coord.docPoint = {x, 0.0005};
        QCOMPARE(coord == UCoord({7, 7}, UCoord::ctGeo), same);
        QCOMPARE(coord != UCoord(), !same);
    }
}

void TestDocWindow::knowsWhichPointsAreThere()
{
    UCoord all(0, -1);
    all.docPoint = all.geoPoint = {1, 0};
    const int others = 0b100001; // types 0 and 5 do not exist
    for (const auto &[coord, known] : {std::pair(UCoord(), 0),
                                       {UCoord(1, 0), 0b00010},
                                       {UCoord({1, 0}, UCoord::ctDocument), 0b00100},
                                       {UCoord({0, 1}, UCoord::ctGeo), 0b01000},
                                       {UCoord({1, 1}, UCoord::ctAll), 0},
                                       {all, 0b11110}})
        for (int type = 0; type <= 5; ++type)
            QCOMPARE(coord.IsValid(UCoord::CoordType(type)), ((known | others) >> type & 1) == 1);
}

void TestDocWindow::subtractsInAllSystems()
{
    UCoord coord(INT_MIN, 7);
    coord.docPoint = {1, 2};
    UCoord other(1, 3);
    other.docPoint = {0.5, 3};
    coord -= other - UCoord({1, 1.5}, UCoord::ctGeo);
    QCOMPARE(coord.devicePoint, QPoint(INT_MIN, 4));
    QCOMPARE(coord.docPoint, QPointF(0.5, -1));
    QCOMPARE(coord.geoPoint, QPointF(1, 1.5));
}

void TestDocWindow::refusesUnusableItems()
{
    for (const auto &[number, valid] :
         {std::pair(-1, false), {0, false}, {1, true}, {16777215, true}, {16777216, false}}) {
        QCOMPARE((UDocItem{u"a.tif"_s, {}, {}, number, -1, 0, 1, {}}.IsValid()), valid);
        QVERIFY(!(UDocItem{{}, u"A"_s, u"A"_s, number, -1, 0, 1, {}}.IsValid()));
    }
    QVERIFY(!UDocItemList()[-1].IsValid() && !UDocItemList()[0].IsValid());
}

void TestDocWindow::identifiesListContent()
{
    QList<UDocItem> variants(4, {u"ab"_s, u"c"_s, {}, 1, -1, 0, 1, {}});
    variants[1].fileName = u"a"_s;
    variants[1].title = u"bc"_s;
    variants[2].scale = 2;
    variants[3].position.geoPoint.ry() = 1e-9;
    UDocItemList list;
    QSet<int> ids{list.BuildHashID()};
    for (const UDocItem &variant : variants)
        ids << (UDocItemList() << variant).BuildHashID() << (list << variant).BuildHashID();
    QCOMPARE(ids.size(), 2 * variants.size()); // the first variant alone comes twice

    UDocItemList copy = list;
    copy.currentIndex = 1;
    QCOMPARE(copy.BuildHashID(), list.BuildHashID());
    copy.Clear();
    QCOMPARE(copy.Size() + copy.currentIndex, -1);
    QCOMPARE(list[1].title, u"bc"_s);
}

void TestDocWindow::survivesItsRegistration()
{
    QVERIFY(!DocWindowXIfc::HInstance() && EstimatedHeightAboveGroundLevelS(nullptr) == -1);
    auto first = std::make_unique<TestWindow>();
    auto second = std::make_unique<TestWindow>();
    first.reset(); // registered no longer: takes nothing along
    QCOMPARE(DocWindowXIfc::HInstance(), second.get());
    second.reset();
    QCOMPARE(DocWindowXIfc::HInstance(), nullptr);
}

void TestDocWindow::takesAreasFromTheView()
{
    TestWindow window;
    URectArea area;
    QVERIFY(!area.IsValid() && area.FillFromDocPage(nullptr) && area.IsValid());
    QCOMPARE(area.Type(), UCoord::ctDocument);
    QVERIFY(area.FillFromDevice(&window.view) && area.Type() == UCoord::ctDevice);
    QCOMPARE(area.Rect(), QRectF(window.view.device));
    window.hasRects = false;
    QVERIFY(!area.FillFromDevice(nullptr) && !area.IsValid());

    window.view.eastToRight = 30;
    window.view.metresPerPixel = 0.5;
    const QRect device(QPoint(10, 20), QPoint(110, 60));
    QCOMPARE(UGeoArea(nullptr, device).QSzGeo(), QSizeF(50, 20));
    QCOMPARE(UGeoArea(nullptr, device).Polygon()[2], window.view.geoAt({110, 60}));
    window.view.unknownFrom = 100;
    QVERIFY(UGeoArea(nullptr, device).Polygon().isEmpty());
    window.view.origin.rx() = qInf();
    QCOMPARE(UGeoArea(nullptr, device).QSzGeo(), QSizeF());
}

void TestDocWindow::recognisesRectangles()
{
    const auto check = [](const QPolygonF &corners, bool valid, bool rect, QSizeF size) {
        QPainterPath path;
        path.addPolygon(corners);
        path.closeSubpath();
        const UGeoArea area(path);
        QCOMPARE(std::tuple(area.IsGeoValid(), area.IsRect(), area.QSzGeo()),
                 std::tuple(valid, rect, size));
    };
    check({}, false, false, {});
    check({{0, 0}, {4, 3}, {1, 7}, {-3, 4}}, true, true, {5, 5});                // turned
    check({{0, 0}, {999, 0}, {999, 100}, {0, 100.9}}, true, true, {999, 100});   // 0.05 degrees off
    check({{0, 0}, {999, 0}, {999, 99}, {0, 100.2}}, true, false, {999, 100.2}); // 0.07
    check({{0, 0}, {10, 0}, {12, 5}, {2, 5}}, true, false, {12, 5});             // oblique
    check({{0, 0}, {4, 0}, {0, 2}, {4, 2}}, true, false, {4, 2});                // a bow tie
    check({{0, 0}, {4, 3}, {8, 6}, {4, 3}}, false, false, {8, 6});               // on one line
}

QTEST_MAIN(TestDocWindow)
#include "tst_docwindow.moc"
