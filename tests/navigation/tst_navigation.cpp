// SPDX-License-Identifier: GPL-2.0-or-later
// The values that cross the document window's interface, and its registration; heights, zoom
// ratios, the north angle and the zoom-factor correction.
#include "tests/support/TestView.h"
#include <QPainterPath>
#include <QProcess>
#include <QtTest>
#include <cstdio>
#include <kelo_base/navigation/DocWindowNotifier.h>
#include <kelo_base/navigation/ViewGeometry.h>

using namespace Qt::Literals::StringLiterals;
using namespace docwindow;

namespace {

using Values = std::array<double, 4>; // by field of view, by eye distance, combined, deviation
const Values kFailure{-1, -1, -1, 0};

Values heights(double angle, double eye)
{
    Values got{};
    got[2] = EstimatedHeightAboveGroundLevel(nullptr, angle, eye, &got[0], &got[1], &got[3]);
    return got;
}

Values ratios(double angle, double eye, double desiredHeight)
{
    Values got{};
    got[2] = EstimatedZoomRatioFromDesiredHeightAboveGroundLevel(nullptr, angle, eye, desiredHeight,
                                                                 &got[0], &got[1], &got[3]);
    return got;
}

bool isClose(double got, long double expected, long double tolerance)
{
    return std::abs(got - expected) <= tolerance;
}

/// To 12 digits; the deviation, a difference, to 12 digits of what it is the difference of.
bool agree(const Values &got, long double first, long double second)
{
    const long double mean = std::sqrt(first) * std::sqrt(second);
    const long double deviation = std::hypot(mean - first, mean - second) / 2;
    return isClose(got[0], first, first * 1e-12L) && isClose(got[1], second, second * 1e-12L) &&
           isClose(got[2], mean, mean * 1e-12L) &&
           isClose(got[3], deviation, (first + second) * 1e-12L);
}

void setRandomly(TestView &view, QRandomGenerator &random)
{
    view.device.setRect(-9, 7, random.bounded(100, 4000), random.bounded(100, 3000));
    view.metresPerPixel = std::pow(10, random.bounded(5.0) - 2);
    view.eastToRight = random.bounded(360.0) - 180;
    view.origin = view.metresPerPixel * QPointF(random.bounded(1000), -random.bounded(1000));
    view.dpi = {random.bounded(60, 400), random.bounded(60, 400)};
}

} // namespace

class TestNavigation : public QObject
{
    Q_OBJECT

private slots:
    void knowsComparesAndSubtractsPoints()
    {
        UCoord coord({0, 1}, UCoord::ctGeo);
        QVERIFY(coord.IsValid(UCoord::ctGeo) && !coord.IsValid(UCoord::ctDocument));
        coord.docPoint = {1, 0};
        QVERIFY(coord.IsValid(UCoord::ctDocument) && !coord.IsValid(UCoord::ctAll));
        coord.devicePoint = {INT_MIN, 7};
        QVERIFY(coord.IsValid(UCoord::ctDevice) && coord.IsValid(UCoord::ctAll));
        coord -= UCoord(1, 3) - UCoord({0.5, 3}, UCoord::ctDocument);
        QCOMPARE(coord.devicePoint, QPoint(INT_MIN, 4));
        QVERIFY(coord.docPoint == QPointF(1.5, 3) && coord.geoPoint == QPointF(0, 1));
        for (const double x : {0.0004, 0.0006, -0.0006, qQNaN()}) {
            coord.docPoint = {x, 0.0005};
            QCOMPARE(coord == UCoord({7, 7}, UCoord::ctGeo), x == 0.0004);
        }
    }

    void identifiesListContent()
    {
        for (const int number : {-2, 0, 1, 16777215, 16777216})
            QCOMPARE((UDocItem{u"a"_s, {}, {}, number, -1, 0, 1, {}}.IsValid()), number % 2 == 1);
        QVERIFY(!(UDocItem{{}, u"A"_s, u"A"_s, 1, -1, 0, 1, {}}.IsValid()));
        QVERIFY(!UDocItemList()[-1].IsValid() && !UDocItemList()[0].IsValid());
        QList<UDocItem> variants(9, {u"ab"_s, u"c"_s, {}, 1, -1, 0, 1, {}});
        variants[1].fileName = u"a"_s;
        variants[1].title = u"bc"_s;
        variants[2].scale = 2;
        variants[3].position.geoPoint.ry() = 1e-9;
        variants[4].pageNumber = 0;
        variants[5].rotation = 1;
        variants[6].description = u"d"_s;
        variants[7].position.devicePoint.ry() = 1;
        variants[8].position.docPoint.rx() = 1;
        UDocItemList list;
        QSet<int> ids{list.BuildHashID()};
        for (const UDocItem &variant : variants)
            ids << (UDocItemList() << variant).BuildHashID() << (list << variant).BuildHashID();
        QCOMPARE(ids.size(), 2 * variants.size()); // the first variant alone comes twice
        UDocItemList zeros;
        zeros << UDocItem{{}, {}, {}, 1, -1, 0, 1, UCoord({-0.0, 0}, UCoord::ctGeo)};
        QCOMPARE(zeros.BuildHashID(),
                 (UDocItemList() << UDocItem{{}, {}, {}, 1, -1, 0, 1, {}}).BuildHashID());
    }

    void keepsTheCurrentItem()
    {
        const auto item = [](const char *name) {
            UDocItem named;
            named.fileName = QString::fromLatin1(name);
            return named;
        };
        UDocItemList list;
        QVERIFY(!list.Insert(1, item("x")) && !list.Replace(0, item("x")) && !list.Remove(0));
        QVERIFY(list.Insert(0, item("c")) && list.currentIndex == -1);
        list.currentIndex = 0;
        QVERIFY(list.Insert(0, item("a")) && list.Insert(1, item("b")) &&
                list.Insert(3, item("d")));
        QVERIFY(list.Replace(3, item("D")) && !list.Remove(-1) && !list.Insert(-1, item("x")));
        QVERIFY(list.currentIndex == 2 && list.Remove(3) && list.Remove(0));
        QVERIFY(list.currentIndex == 1 && list[1].fileName == u"c" && list[0].fileName == u"b");
        QVERIFY(list.Remove(1) && list.currentIndex == -1 && list.Size() == 1);
    }

    void survivesItsRegistration()
    {
        QVERIFY(!DocWindowXIfc::HInstance() && EstimatedHeightAboveGroundLevelS(nullptr) == -1);
        int windows = 0, views = 0;
        const QObject context; // ends with what it counts
        DocWindowNotifier *notifier = DocWindowXIfc::Notifier();
        connect(notifier, &DocWindowNotifier::documentWindowReplaced, &context, [&] { ++windows; });
        connect(notifier, &DocWindowNotifier::primaryViewReplaced, &context, [&] { ++views; });
        auto first = std::make_unique<TestWindow>();
        auto second = std::make_unique<TestWindow>();
        DocWindowXIfc::SetHInstance(second.get());
        first->AnnouncePrimaryView(); // matters to nobody
        second->AnnouncePrimaryView();
        first.reset(); // registered no longer: takes nothing along
        QCOMPARE(DocWindowXIfc::HInstance(), second.get());
        QVERIFY(windows == 2 && views == 1);

        double angle = 0;
        bool isAnswered = true;
        connect(&second->view, &QObject::destroyed, this,
                [&] { isAnswered = NorthAngle(nullptr, angle); });
        QVERIFY(NorthAngle(nullptr, angle));
        second.reset(); // its view dies while it is registered
        QVERIFY(!isAnswered && windows == 3);
        const TestWindow third;
        QVERIFY(NorthAngle(nullptr, angle)); // the silence is over

        auto *const stubborn = new TestWindow; // registered anew by a listener to its own end
        connect(notifier, &DocWindowNotifier::documentWindowReplaced, &context,
                [stubborn] { DocWindowXIfc::SetHInstance(stubborn); });
        delete stubborn;
        QVERIFY(!DocWindowXIfc::HInstance());
    }

    void offersNothingByDefault()
    {
        TestWindow window;
        QWidget *view = &window.view;
        UCoord coord;
        QVERIFY(!window.GeoToDevice(view, coord) && !window.DeviceToDocument(view, coord));
        QVERIFY(!window.DocumentToDevice(view, coord) && !window.CurrentDocument(view).IsValid());
        QVERIFY(!window.CurrentDetails(view) && !window.StoredViews(view).Size());
        QVERIFY(!window.Neighbours(view, TestWindow::PageSide::Top).Size());
        QVERIFY(!window.LinkedDocuments(view).Size() && !window.ShowDocument(view, {}));
        QVERIFY(!window.ShowWholePage(view, TestWindow::PageTurn::Keep));
        QVERIFY(!window.MoveTo(view, coord) && !window.ZoomBy(view, 2) && !window.TurnBy(view, 1));
    }

    void takesAreasFromTheView()
    {
        QCOMPARE(DocWindowXIfc::HInstance(), nullptr);
        TestWindow window;
        URectArea area;
        QVERIFY(area.FillFromDocPage(nullptr) && area.Type() == UCoord::ctDocument);
        QVERIFY(area.FillFromDevice(&window.view) && area.Rect() == QRectF(window.view.device));
        window.hasRects = false;
        QVERIFY(!area.FillFromDevice(nullptr) && !area.IsValid());
        for (const auto &[rect, isValid] : {std::pair(QRect(-900, 5, 8, 9), true),
                                            {QRect(900, 5, 0, 9), false},
                                            {QRect(5, 900, 9, 0), false},
                                            {QRect(5, 900, 9, -1), false}})
            QCOMPARE(URectArea(rect).IsValid(), isValid);
        window.view.eastToRight = 30;
        window.view.metresPerPixel = 0.5;
        const QRect device(QPoint(10, 20), QPoint(110, 60));
        QCOMPARE(UGeoArea(nullptr, device).QSzGeo(), QSizeF(50, 20));
        QCOMPARE(UGeoArea(nullptr, device).Polygon()[2], window.view.geoAt({110, 60}));
        QVERIFY(!UGeoArea(nullptr, QRect(10, 20, 0, 5)).IsGeoValid());
        window.view.unknownFrom = 100;
        QVERIFY(UGeoArea(nullptr, device).Polygon().isEmpty());
    }

    void recognisesRectangles()
    {
        const auto check = [](const QPolygonF &corners, bool valid, bool rect, QSizeF size) {
            QPainterPath path;
            path.addPolygon(corners);
            path.closeSubpath();
            const UGeoArea area(path);
            QVERIFY(area.IsGeoValid() == valid && area.IsRect() == rect && area.QSzGeo() == size);
        };
        check({{0, 0}, {4, 3}, {1, 7}, {-3, 4}}, true, true, {5, 5});                // turned
        check({{0, 0}, {999, 0}, {999, 100}, {0, 100.9}}, true, true, {999, 100});   // 0.05 degrees
        check({{0, 0}, {999, 0}, {999, 99}, {0, 100.2}}, true, false, {999, 100.2}); // 0.07
        check({{0, 0}, {10, 0}, {12, 5}, {2, 5}}, true, false, {12, 5});             // oblique
        check({{0, 0}, {4, 0}, {0, 2}, {4, 2}}, true, false, {4, 2});                // a bow tie
        check({{0, 0}, {4, 0}, {4, 3}, {1, 3}}, true, false, {4, 3});                // a trapezium
        check({{0, 0}, {4, 0}, {4, 3}, {0, 3}, {-1, 1}}, true, false, {5, 3});       // with a gable
        check({{0, 0}, {4, 3}, {8, 6}, {4, 3}}, false, false, {8, 6});               // on one line
        check({{0, 0}, {9, 0}, {9, 9e-9}}, true, false, {9, 9e-9});                  // no more

        QRandomGenerator random(52);
        for (int i = 0; i < 1000; ++i) { // on the map
            const QPointF start(3.5e6 + random.bounded(1e5), 5.5e6 + random.bounded(1e5));
            const QPointF along(random.bounded(1e3) - 500, random.bounded(1e3) - 500);
            const QPointF across =
                QPointF(-along.y(), along.x()) / std::hypot(along.x(), along.y());
            QPainterPath path(start);
            for (int corner = 0; corner < 4; ++corner)
                path.lineTo(start + random.bounded(9.0) * along);
            QVERIFY(!UGeoArea(path).IsGeoValid());
            path.lineTo(start + 0.0005 * across);
            QVERIFY(UGeoArea(path).IsGeoValid());
        }
    }

    void estimatesAgreeWithLongDoubles()
    {
        QRandomGenerator random(51);
        const TestWindow window;
        for (int i = 0; i < 2000; ++i) {
            setRandomly(window.view, random);
            double &scale = window.view.metresPerPixel;
            const double before = scale, desired = 1 + random.bounded(1e5);
            const double fieldOfView = 1 + random.bounded(178.0);
            const double eyeDistance = 5 + random.bounded(795.0);
            const QPoint diagonal = window.view.device.bottomRight() - window.view.device.topLeft();
            const QSize dpi = window.view.dpi;
            const long double pixels = std::hypot(1.0L * diagonal.x(), diagonal.y());
            const long double screen =
                pixels * 0.0254L / std::sqrt(1.0L * dpi.width() * dpi.height());
            const long double map = scale * pixels + 0.001L;
            const long double byAngle = map / 2 / std::tan(fieldOfView / 360.0L * std::numbers::pi);
            const long double byDistance = eyeDistance / 100 * map / screen;
            QVERIFY(agree(heights(fieldOfView, eyeDistance), byAngle, byDistance));
            const Values ratio = ratios(fieldOfView, eyeDistance, desired);
            QVERIFY(agree(ratio, desired / byAngle, desired / byDistance));
            const long double denominator = scale * pixels / screen;
            QVERIFY(isClose(MapScale(nullptr), denominator, denominator * 1e-9L));
            for (std::size_t way = 0; way < 3; ++way) { // the loop closes, up to that 0.001
                scale = before * ratio[way];
                const long double lost = 0.001 / pixels / std::min(before, scale) + 1e-12L;
                const double height = heights(fieldOfView, eyeDistance)[way];
                QVERIFY(isClose(height, desired, desired * lost));
            }
        }
    }

    void limitsItsArgumentsAndFailsWithoutNumbers()
    {
        TestWindow window;
        QCOMPARE(heights(180, qInf()), heights(179.9, 800));
        QVERIFY(heights(qQNaN(), -7) == heights(0.1, qQNaN()) && heights(0, 0) == heights(0.1, 5));
        for (const double noHeight : {0.0, -1.0, qQNaN(), qInf()})
            QCOMPARE(ratios(50, 60, noHeight), kFailure);
        for (const int column : {0, 400, 800}) { // neither corner is known; the first; no place is
            window.view.unknownFrom = column;
            window.view.origin.rx() = column == 800 ? qInf() : 0;
            double angle = 7;
            QVERIFY(!NorthAngle(&window.view, angle) && angle == 0);
            QVERIFY(heights(50, 60) == kFailure && ratios(50, 60, 100) == kFailure);
        }
        window.view.origin = {};
        window.view.dpi = {0, 0}; // no screen
        QVERIFY(heights(50, 60)[0] > 0 && heights(50, 60)[1] == -1 && heights(50, 60)[2] == -1);
        QCOMPARE(MapScale(nullptr), -1.0);
        window.hasRects = false;
        QCOMPARE(MapScale(nullptr), -1.0);
        QCOMPARE(heights(50, 60), kFailure);
    }

    void storesWholeDefaults()
    {
        const TestWindow window;
        QVERIFY(DefaultFieldOfView() == 50 && DefaultEyeToMonitorDistance() == 60);
        SetDefaultFieldOfView(70);
        SetDefaultEyeToMonitorDistance(40);
        QCOMPARE(EstimatedHeightAboveGroundLevelS(nullptr), heights(70, 40)[2]);
        QCOMPARE(EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(nullptr, 9),
                 ratios(70, 40, 9)[2]);
        for (const auto &[given, stored] :
             {std::pair(45.9, 45U), {-1e300, 2147483648U}, {qInf(), 4294967295U}, {qQNaN(), 0U}}) {
            SetDefaultFieldOfView(given);
            SetDefaultEyeToMonitorDistance(given);
            QVERIFY(DefaultFieldOfView() == stored && DefaultEyeToMonitorDistance() == stored);
            QCOMPARE(EstimatedHeightAboveGroundLevelS(nullptr), heights(stored, stored)[2]);
        }
    }

    void pointsNorth()
    {
        struct MiddleRow : TestWindow // elsewhere and at the edges a view may show the map bent
        {
            bool DeviceToGeo(QWidget *widget, UCoord &coord) const override
            {
                const QPoint pixel = coord.devicePoint;
                return pixel.y() == view.device.center().y() && pixel.x() > view.device.left() &&
                       pixel.x() < view.device.right() && TestWindow::DeviceToGeo(widget, coord);
            }
        };
        QRandomGenerator random(53);
        const MiddleRow window;
        double angle = 0;
        for (int i = 0; i < 2000; ++i) {
            setRandomly(window.view, random);
            QVERIFY(NorthAngle(nullptr, angle));
            // An arrow painted turned clockwise by it points to the map's north; y grows downwards.
            const double clockwise = angle / 180 * std::numbers::pi;
            const QPointF tip = window.view.geoAt({std::sin(clockwise), -std::cos(clockwise)});
            const QPointF arrow = (tip - window.view.origin) / window.view.metresPerPixel;
            QVERIFY(isClose(arrow.x(), 0, 1e-11L) && isClose(arrow.y(), 1, 1e-11L));
        }
        window.view.origin = {};
        window.view.eastToRight = 1e-9; // an arccosine would take it for 0
        QVERIFY(NorthAngle(nullptr, angle) && isClose(angle, 1e-9L, 1e-13L));
        window.view.eastToRight = 90;
        for (const int width : {4, 3, 2, 1}) { // from 3 on nothing lies between the edges
            window.view.device.setWidth(width);
            QCOMPARE(NorthAngle(nullptr, angle), width == 4);
            QCOMPARE(angle, width == 4 ? 90.0 : 0.0);
        }
    }

    /// The table is read once a process, beside the program: a copy of this one answers.
    void correctsByTable()
    {
        const auto check = [](const QByteArray &file, const QString &scales, const char *factors) {
            const QTemporaryDir dir;
            const QString program = dir.filePath(u"program"_s);
            QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));
            QVERIFY(QDir(dir.path()).mkdir(u"config"_s));
            QFile settings(dir.filePath(u"config/settings.ini"_s));
            QVERIFY(file.isEmpty() || (settings.open(QIODevice::WriteOnly) &&
                                       settings.write(file) > 0 && settings.flush()));
            QProcess process;
            process.start(program, {u"--correct"_s, scales});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.readAllStandardOutput(), factors);
        };
        const QString scales =
            u"1e2 1e3 2e3 5e3 1e4 25e3 5e4 1e5 2e5 7500 1500 50 -5 3e5 inf nan 0 7/8 0/7"_s;
        check({}, scales, "1 11 11 13 18 20 23 30 40 15 11 1 1 -1 -1 -1 -1 -1 -1 ");
        check("[IPC]\n", u"7500 50"_s, "-1 -1 "); // a file without an array
        QByteArray file =
            "[IPC]\nA\\size=2000000000\nA\\1\\Scale=100\nA\\1\\Factor=99\n"
            "A\\2\\Scale=100\nA\\2\\Factor=10.9\nA\\3\\Scale=nan\nA\\3\\Factor=5\n"
            "A\\4\\Scale=150\nA\\4\\Factor=many\nA\\5\\Scale=200.5\nA\\5\\Factor=-1e99\n"
            "A\\6\\Scale=300\nA\\6\\Factor=-8\nA\\7\\Scale=400\nA\\7\\Factor=-9\n";
        file.replace("A\\", "HeightScaleFactor\\");
        check(file, u"99 100 200.5 390 400 401"_s, "10 10 -2147483648 -8 -9 -1 ");
    }
};

/// With "--correct", prints the factor for each scale; "7/8" hands over two different ones.
int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    TestNavigation test;
    if (app.arguments().value(1) != "--correct"_L1)
        return QTest::qExec(&test, app.arguments());
    for (const QString &scale : app.arguments().value(2).split(u' ')) {
        const QStringList pair = scale.split(u'/');
        std::printf("%d ", GetZoomFactorCorrectionForScaleValue(pair.first().toDouble(),
                                                                pair.last().toDouble()));
    }
}
#include "tst_navigation.moc"
