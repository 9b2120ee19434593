// SPDX-License-Identifier: GPL-2.0-or-later
// The values that cross the document window's interface, and its registration.
#include "tests/support/TestView.h"
#include <QPainterPath>
#include <QtTest>
#include <climits>
#include <kelo_base/navigation/ViewGeometry.h>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using UCoord = DocWindowXIfc::UCoord;
using UDocItem = DocWindowXIfc::UDocItem;
using UDocItemList = DocWindowXIfc::UDocItemList;
using UGeoArea = DocWindowXIfc::UGeoArea;
using URectArea = DocWindowXIfc::URectArea;

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
    void takesRectanglesFromTheView();
    void recognisesRectangles_data();
    void recognisesRectangles();
    void measuresTurnedViews();
};

void TestDocWindow::comparesDocumentPoints()
{
    UCoord coord(9, 9);
    for (const auto &[point, same] :
         {std::pair(QPointF(0.0004, 0.0005), true), std::pair(QPointF(0.0006, 0.0005), false),
          std::pair(QPointF(-0.0006, 0.0005), false), std::pair(QPointF(qQNaN(), 0), false)}) {
        coord.docPoint = point;
        QCOMPARE(coord == UCoord({7, 7}, UCoord::ctGeo), same);
        QCOMPARE(coord != UCoord(), !same);
    }
}

void TestDocWindow::knowsWhichPointsAreThere()
{
    const auto known = [](const UCoord &coord) {
        int bits = 0;
        for (int type = 0; type <= 5; ++type)
            bits |= coord.IsValid(static_cast<UCoord::CoordType>(type)) << type;
        return bits ^ 0b100001; // types 0 and 5 do not exist
    };
    QCOMPARE(known({}), 0);
    QCOMPARE(known({0, -1}), 0b00010);
    QCOMPARE(known({{1, 0}, UCoord::ctDocument}), 0b00100);
    QCOMPARE(known({{0, 1}, UCoord::ctGeo}), 0b01000);
    QCOMPARE(known({{1, 1}, UCoord::ctAll}), 0);
    UCoord all(1, 1);
    all.docPoint = all.geoPoint = {1, 1};
    QCOMPARE(known(all), 0b11110);
}

void TestDocWindow::subtractsInAllSystems()
{
    UCoord coord(INT_MIN, 7);
    coord.docPoint = {1, 2};
    coord.geoPoint = {3, 4};
    UCoord other(1, 3);
    other.docPoint = {0.5, 3};
    coord -= other - UCoord({1, 1.5}, UCoord::ctGeo);
    QCOMPARE(coord.devicePoint, QPoint(INT_MIN, 4));
    QCOMPARE(coord.docPoint, QPointF(0.5, -1));
    QCOMPARE(coord.geoPoint, QPointF(4, 5.5));
}

void TestDocWindow::refusesUnusableItems()
{
    UDocItem item;
    for (const auto &[number, valid] :
         {std::pair(-1, false), {0, false}, {1, true}, {16777215, true}, {16777216, false}}) {
        item.documentNumber = number;
        item.fileName = u"a.tif"_s;
        QCOMPARE(item.IsValid(), valid);
        item.fileName.clear();
        QVERIFY(!item.IsValid());
    }
    QVERIFY(!UDocItemList()[-1].IsValid() && !UDocItemList()[0].IsValid());
}

void TestDocWindow::identifiesListContent()
{
    const UDocItem item{u"ab"_s, u"c"_s, {}, 1, -1, 0, 1, {}};
    QList<UDocItem> variants(9, item);
    std::tie(variants[1].fileName, variants[1].title) = std::pair(u"a"_s, u"bc"_s);
    variants[2].description = u"ä"_s;
    variants[3].documentNumber = 2;
    variants[4].pageNumber = 0;
    std::tie(variants[5].rotation, variants[5].scale) = std::pair(1, 0);
    variants[6].position.devicePoint.rx() = 1;
    variants[7].position.docPoint.ry() = 1e-9;
    variants[8].position.geoPoint.rx() = 1;
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
    QVERIFY(!DocWindowXIfc::HInstance() && !URectArea().FillFromDevice(nullptr));
    auto first = std::make_unique<TestWindow>();
    auto second = std::make_unique<TestWindow>();
    first.reset(); // registered no longer: takes nothing along
    QCOMPARE(DocWindowXIfc::HInstance(), second.get());
    second.reset();
    QCOMPARE(DocWindowXIfc::HInstance(), nullptr);
    QCOMPARE(EstimatedHeightAboveGroundLevelS(nullptr), -1.0);
}

void TestDocWindow::takesRectanglesFromTheView()
{
    TestWindow window;
    URectArea area;
    QVERIFY(!area.IsValid() && area.FillFromDocPage(nullptr) && area.IsValid());
    QCOMPARE(area.Rect(), QRectF(0, 0, 420, 297));
    QCOMPARE(area.Type(), UCoord::ctDocument);
    QVERIFY(area.FillFromDevice(&window.view));
    QCOMPARE(area.Rect(), QRectF(window.view.device));
    QCOMPARE(area.Type(), UCoord::ctDevice);
    window.hasRects = false;
    QVERIFY(!area.FillFromDevice(nullptr) && !area.IsValid());
}

void TestDocWindow::recognisesRectangles_data()
{
    QTest::addColumn<QPolygonF>("corners");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("rect");
    QTest::addColumn<QSizeF>("size");
    const auto row = [](const char *name, const QPolygonF &corners, bool valid, bool rect,
                        QSizeF size) { QTest::newRow(name) << corners << valid << rect << size; };
    row("nothing", {}, false, false, {});
    row("turned", {{0, 0}, {4, 3}, {1, 7}, {-3, 4}}, true, true, {5, 5});
    row("0.05 degrees off", {{0, 0}, {1000, 0}, {1000, 100}, {0, 100.9}}, true, true, {1000, 100});
    row("0.07 degrees off", {{0, 0}, {1000, 0}, {1000, 99}, {0, 100.2}}, true, false,
        {1000, 100.2});
    row("oblique", {{0, 0}, {10, 0}, {12, 5}, {2, 5}}, true, false, {12, 5});
    row("bow tie", {{0, 0}, {4, 0}, {0, 2}, {4, 2}}, true, false, {4, 2});
    row("on one line", {{0, 0}, {4, 3}, {8, 6}, {4, 3}}, false, false, {8, 6});
}

void TestDocWindow::recognisesRectangles()
{
    QFETCH(const QPolygonF, corners);
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    const UGeoArea area(path);
    QTEST(area.IsGeoValid(), "valid");
    QTEST(area.IsRect(), "rect");
    QTEST(area.QSzGeo(), "size");
}

void TestDocWindow::measuresTurnedViews()
{
    TestWindow window;
    window.view.eastToRight = 30;
    window.view.metresPerPixel = 0.5;
    UGeoArea area(nullptr, QRect(QPoint(10, 20), QPoint(110, 60)));
    QVERIFY(area.IsRect() && area.IsGeoValid());
    QCOMPARE(area.QSzGeo(), QSizeF(50, 20));
    QCOMPARE(area.Polygon()[2], window.view.geoAt({110, 60}));
    window.goodConversions = 3;
    area = UGeoArea(nullptr, {0, 0, 9, 9});
    QVERIFY(!area.IsGeoValid() && area.Polygon().isEmpty());
    window.view.origin.rx() = qInf();
    QVERIFY(!UGeoArea(nullptr, {0, 0, 9, 9}).IsGeoValid());
}

QTEST_MAIN(TestDocWindow)
#include "tst_docwindow.moc"
