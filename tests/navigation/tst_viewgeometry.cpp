// SPDX-License-Identifier: GPL-2.0-or-later
// Heights, zoom ratios, the north angle and the zoom-factor correction.
#include "tests/support/TestView.h"
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>
#include <array>
#include <cstdio>
#include <kelo_base/navigation/ViewGeometry.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using Values = std::array<double, 4>; // by field of view, by eye distance, combined, deviation
const Values kFailure{-1, -1, -1, 0};

Values heights(double fieldOfView, double eyeDistance)
{
    Values got{};
    got[2] = EstimatedHeightAboveGroundLevel(nullptr, fieldOfView, eyeDistance, &got[0], &got[1],
                                             &got[3]);
    return got;
}

Values ratios(double fieldOfView, double eyeDistance, double desiredHeight)
{
    Values got{};
    got[2] = EstimatedZoomRatioFromDesiredHeightAboveGroundLevel(
        nullptr, fieldOfView, eyeDistance, desiredHeight, &got[0], &got[1], &got[3]);
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
    view.device.setRect(random.bounded(-50, 50), random.bounded(-50, 50), random.bounded(100, 4000),
                        random.bounded(100, 3000));
    view.metresPerPixel = std::pow(10, random.bounded(5.0) - 2);
    view.eastToRight = random.bounded(360.0) - 180;
    view.origin = view.metresPerPixel * QPointF(random.bounded(1000), -random.bounded(1000));
    view.dpi = {random.bounded(60, 400), random.bounded(60, 400)};
}

} // namespace

class TestViewGeometry : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithLongDoubles();
    void limitsItsArguments();
    void failsWithoutNumbers();
    void storesWholeDefaults();
    void pointsNorth();
    void correctsByTable_data();
    void correctsByTable();
};

void TestViewGeometry::agreesWithLongDoubles()
{
    QRandomGenerator random(51);
    const TestWindow window;
    for (int i = 0; i < 2000; ++i) {
        setRandomly(window.view, random);
        const auto &[device, metresPerPixel, dpi] =
            std::tie(window.view.device, window.view.metresPerPixel, window.view.dpi);
        const double fieldOfView = 1 + random.bounded(178.0);
        const double eyeDistance = 5 + random.bounded(795.0);
        const double desired = 1 + random.bounded(1e5);

        const long double pixels = std::hypot(device.width() - 1.0L, device.height() - 1.0L);
        const long double map = metresPerPixel * pixels + 0.001L;
        const long double screen = pixels * 0.0254L / std::sqrt(1.0L * dpi.width() * dpi.height());
        const long double angle = fieldOfView / 180 * std::numbers::pi_v<long double>;
        const long double byFieldOfView = map / 2 / std::tan(angle / 2);
        const long double byEyeDistance = eyeDistance / 100 * map / screen;
        QVERIFY(agree(heights(fieldOfView, eyeDistance), byFieldOfView, byEyeDistance));
        const Values ratio = ratios(fieldOfView, eyeDistance, desired);
        QVERIFY(agree(ratio, desired / byFieldOfView, desired / byEyeDistance));

        // The loop closes, up to what is added to the diagonal.
        const double before = metresPerPixel;
        for (std::size_t way = 0; way < 3; ++way) {
            window.view.metresPerPixel = before * ratio[way];
            const long double lost = 0.001 / before / pixels * std::max(1.0, 1 / ratio[way]);
            QVERIFY(isClose(heights(fieldOfView, eyeDistance)[way], desired,
                            desired * (lost + 1e-12L)));
        }
    }
}

void TestViewGeometry::limitsItsArguments()
{
    const TestWindow window;
    for (const double large : {180.0, qInf()})
        QCOMPARE(heights(large, 800), heights(179.9, large * 10));
    for (const double small : {0.0, -7.0, qQNaN()})
        QCOMPARE(heights(small, 5), heights(0.1, small));
    const Values limits = ratios(179.9, 5, 100);
    QVERIFY(limits[0] > ratios(179.89, 5, 100)[0] && limits[1] > ratios(179.9, 5.01, 100)[1]);
    QVERIFY(heights(0.1, 800)[0] > heights(0.11, 800)[0]);
    QVERIFY(heights(0.1, 800)[1] > heights(0.1, 799)[1]);
    for (const double noHeight : {0.0, -1.0, qQNaN(), qInf()})
        QCOMPARE(ratios(50, 60, noHeight), kFailure);
}

void TestViewGeometry::failsWithoutNumbers()
{
    TestWindow window;
    const auto fails = [&window] {
        double angle = 7;
        return !NorthAngle(&window.view, angle) && angle == 0 && heights(50, 60) == kFailure &&
               ratios(50, 60, 100) == kFailure;
    };
    for (const int column : {0, 400}) { // neither corner is known; the first one is
        window.view.unknownFrom = column;
        QVERIFY(fails());
    }
    window.view.unknownFrom = 800;
    window.view.origin.rx() = qInf();
    QVERIFY(fails());
    window.view.origin = {};
    window.hasRects = false;
    QVERIFY(fails());

    window.hasRects = true;
    const Values onlyByFieldOfView{heights(50, 60)[0], -1, -1, 0};
    window.view.dpi = {0, 0}; // no screen
    QCOMPARE(heights(50, 60), onlyByFieldOfView);
    window.view.dpi = {96, 96};
    window.view.device = {5, 5, 1, 1};
    QCOMPARE(ratios(50, 60, 100)[2], -1.0);
}

void TestViewGeometry::storesWholeDefaults()
{
    const TestWindow window;
    QCOMPARE(EstimatedHeightAboveGroundLevelS(&window.view), heights(50, 60)[2]);
    for (const auto &[given, stored] : {std::pair(45.9, 45U),
                                        {-0.9, 0U},
                                        {-1.5, 4294967295U},
                                        {-1e300, 2147483648U},
                                        {qInf(), 4294967295U},
                                        {qQNaN(), 0U}}) {
        SetDefaultFieldOfView(given);
        SetDefaultEyeToMonitorDistance(given);
        QCOMPARE(DefaultFieldOfView(), stored);
        QCOMPARE(DefaultEyeToMonitorDistance(), stored);
        QCOMPARE(EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(nullptr, 9),
                 ratios(stored, stored, 9)[2]);
    }
}

void TestViewGeometry::pointsNorth()
{
    QRandomGenerator random(53);
    const TestWindow window;
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
    for (const double turned : {0.0, 1e-9, 180.0}) { // an arccosine would take 1e-9 for 0
        window.view.eastToRight = turned;
        QVERIFY(NorthAngle(nullptr, angle) && isClose(angle, turned, 1e-13L));
    }
    window.view.device.setWidth(3); // both points are one
    QVERIFY(!NorthAngle(nullptr, angle) && angle == 0);
}

void TestViewGeometry::correctsByTable_data()
{
    QTest::addColumn<QByteArray>("file"); // null: there is none
    QTest::addColumn<QString>("scales");
    QTest::addColumn<QByteArray>("factors");
    QTest::newRow("no file") << QByteArray()
                             << u"100 1000 2000 5000 10000 25000 50000 100000 200000"_s
                             << QByteArray("1 11 11 13 18 20 23 30 40 ");
    QTest::newRow("between and outside")
        << QByteArray() << u"7500 1500 50 -5 300000 inf nan 0 7/8 0/7"_s
        << QByteArray("15 11 1 1 -1 -1 -1 -1 -1 -1 ");
    QByteArray file = "[IPC]\n";
    QTest::newRow("no array") << file << u"7500 50"_s << QByteArray("-1 -1 ");
    file += "HeightScaleFactor\\size=2000000000\n"; // damaged
    int number = 0;
    for (const QByteArray element :
         {"100 99", "100 10.9", "nan 5", "150 many", "200.5 -1e99", "300 -8", "400 -9"}) {
        const QByteArray key = "HeightScaleFactor\\" + QByteArray::number(++number);
        file += key + "\\Scale=" + element + '\n';
        file.replace(" ", '\n' + key + "\\Factor=");
    }
    QTest::newRow("file") << file << u"99 100 200.5 390 400 401"_s
                          << QByteArray("10 10 -2147483648 -8 -9 -1 ");
}

/// The table is read once a process, beside the program: a copy of this one answers.
void TestViewGeometry::correctsByTable()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, scales);
    const QTemporaryDir dir;
    const QString program = dir.filePath(u"program"_s);
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));
    if (!file.isNull()) {
        QVERIFY(QDir(dir.path()).mkdir(u"config"_s));
        QFile settings(dir.filePath(u"config/settings.ini"_s));
        QVERIFY(settings.open(QIODevice::WriteOnly) && settings.write(file) == file.size());
    }
    QProcess process;
    process.start(program, {u"--correct"_s, scales});
    QVERIFY(process.waitForFinished());
    QTEST(process.readAllStandardOutput(), "factors");
}

/// With "--correct", prints the factor for each scale; "7/8" hands over two different ones.
int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    TestViewGeometry test;
    if (app.arguments().value(1) != "--correct"_L1)
        return QTest::qExec(&test, app.arguments());
    for (const QString &scale : app.arguments().value(2).split(u' ')) {
        const QStringList pair = scale.split(u'/');
        std::printf("%d ", GetZoomFactorCorrectionForScaleValue(pair.first().toDouble(),
                                                                pair.last().toDouble()));
    }
    return 0;
}
#include "tst_viewgeometry.moc"
