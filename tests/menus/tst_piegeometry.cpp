// SPDX-License-Identifier: GPL-2.0-or-later
// Angles, sectors, places and strokes of pie menus, without any window.
#include "menus/piegeometry_p.h"
#include "menus/pielayout_p.h"
#include "menus/piestroke_p.h"
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QtTest>
#include <algorithm>
#include <climits>
#include <cmath>
#include <numeric>

using namespace Qt::Literals::StringLiterals;
using Weights = std::vector<int>;
using std::numbers::pi;

class TestPieGeometry : public QObject
{
    Q_OBJECT

private slots:
    void measuresAngles();
    void findsBorders_data();
    void findsBorders();
    void sharesEveryPixelOut();
    void paintsWhatIsHit();
    void findsOddAngles();
    void placesOnScreen_data();
    void placesOnScreen();
    void arrowsGoWhereTheyPoint_data();
    void arrowsGoWhereTheyPoint();
    void labelsStayInTheirSector();
    void judgesStrokes_data();
    void judgesStrokes();
};

namespace {

Weights randomWeights(QRandomGenerator &random)
{
    Weights weights(1 + random.bounded(64U));
    for (int &weight : weights)
        weight = random.bounded(10) == 0 ? 0 : random.bounded(random.bounded(2) ? 5 : 1'000'000);
    return weights;
}

pie::Layout layoutOf(const Weights &weights, double inner = 20, double outer = 100)
{
    return {QPoint(100, 100), inner, outer, pie::centredBorders(weights)};
}

/// The long way: how far the angle is behind the start of item 0, in weights.
int sectorBySumming(const Weights &weights, double angle)
{
    const bool isEmpty = std::ranges::all_of(weights, [](int weight) { return weight <= 0; });
    const auto share = [&](std::size_t i) { return isEmpty ? 1.0 : std::max(weights[i], 0); };
    double total = 0;
    for (std::size_t i = 0; i < weights.size(); ++i)
        total += share(i);
    double rest = std::fmod((angle - pi / 2) / (2 * pi) + 2, 1) * total + share(0) / 2;
    rest = rest >= total ? rest - total : rest;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        if (std::abs(rest) < 1e-6 * total || std::abs(rest - share(i)) < 1e-6 * total)
            return -1; // too near to a border to tell
        if (rest < share(i))
            return static_cast<int>(i);
        rest -= share(i);
    }
    return -1;
}

} // namespace

void TestPieGeometry::measuresAngles()
{
    QCOMPARE(pie::angleOf(0, -5), pi / 2);
    QCOMPARE(pie::angleOf(5, 0), 2 * pi); // not 0
    QCOMPARE(pie::angleOf(5, -1), std::atan(0.2));
    QCOMPARE(pie::angleOf(-5, 0), pi);
    QCOMPARE(pie::angleOf(3, 3), 7 * pi / 4);
    QVERIFY(std::isnan(pie::angleOf(0, 0)));
    QCOMPARE(pie::radiusOf(-3, 4), 5.0);
}

void TestPieGeometry::findsBorders_data()
{
    QTest::addColumn<Weights>("weights");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("middle");
    QTest::addColumn<double>("angle");
    const Weights four(4, 1);
    QTest::newRow("first at the top") << four << 0 << 4 << false << pi / 2;
    QTest::newRow("a whole turn is none") << four << 3 << 4 << false << 0.0;
    QTest::newRow("centred") << four << 0 << 4 << true << pi / 4;
    QTest::newRow("index modulo count") << four << 9 << 4 << false << pi;
    QTest::newRow("one before the first is the last") << four << -1 << 4 << true << 7 * pi / 4;
    QTest::newRow("three quarters centred") << Weights{3, 1} << 0 << 2 << true << 7 * pi / 4;
    QTest::newRow("no items: equal shares") << Weights{} << 1 << 3 << false << 7 * pi / 6;
    QTest::newRow("alone, centred") << Weights{5} << 0 << 1 << true << 3 * pi / 2;
    QTest::newRow("beyond the items, weight 1")
        << Weights{2, 2} << 3 << 5 << false << pi / 2 + 5 * pi / 2 - 2 * pi;
    QTest::newRow("no shares at all are equal") << Weights{0, -7} << 1 << 2 << false << 3 * pi / 2;
    QTest::newRow("negative is none") << Weights{1, -7, 1} << 2 << 3 << false << 3 * pi / 2;
    QTest::newRow("huge") << Weights{INT_MAX, INT_MAX} << 1 << 2 << false << 3 * pi / 2;
    QTest::newRow("count 0 is 1") << Weights{} << INT_MIN << 0 << false << pi / 2;
    QTest::newRow("many turns beyond") << Weights{1} << 1'000'000'000 << INT_MAX << false << pi / 2;
}

void TestPieGeometry::findsBorders()
{
    QFETCH(const Weights, weights);
    QFETCH(const int, index);
    QFETCH(const int, count);
    QFETCH(const bool, middle);
    QFETCH(const double, angle);
    const double border = pie::borderAngle(weights, index, count, middle);
    QVERIFY2(std::abs(border - angle) < 1e-6, qPrintable(QString::number(border, 'g', 17)));
    QVERIFY(border >= 0 && border < 2 * pi);
}

void TestPieGeometry::sharesEveryPixelOut()
{
    QRandomGenerator random(8);
    std::vector<Weights> rings{{1}, {1, 1}, {0, 0, 0}, {1, 0, 0}, {-5, INT_MAX, 1}};
    rings.emplace_back(64, INT_MAX);
    for (int i = 0; i < 60; ++i)
        rings.push_back(randomWeights(random));
    for (const Weights &weights : rings) {
        const pie::Layout layout = layoutOf(weights);
        for (int y = -100; y <= 100; ++y) {
            for (int x = -100; x <= 100; ++x) {
                const int sector = pie::directionAt(layout, {x, y});
                const int expected = sectorBySumming(weights, pie::angleOf(x, y));
                if (x == 0 && y == 0) {
                    QCOMPARE(sector, -1);
                    continue;
                }
                QVERIFY(sector >= 0 && sector < layout.count() && layout.sweep(sector) > 0);
                QVERIFY(expected < 0 || sector == expected);
                const bool isInside = pie::radiusOf(x, y) < layout.innerRadius;
                QCOMPARE(pie::targetAt(layout, {x, y}), isInside ? -1 : sector);
            }
        }
    }
}

void TestPieGeometry::paintsWhatIsHit()
{
    QRandomGenerator random(64);
    for (int round = 0; round < 40; ++round) {
        const pie::Layout layout = layoutOf(randomWeights(random));
        QImage image(201, 201, QImage::Format_RGB32);
        image.fill(0);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_Plus); // shows what is painted twice
        for (int i = 0; i < layout.count(); ++i) {
            painter.fillPath(pie::sectorPath(layout, i), QColor(0, 1, 2 + i));
        }
        painter.end();
        for (int y = 0; y <= 200; ++y) {
            for (int x = 0; x <= 200; ++x) {
                const QPoint offset = QPoint(x, y) - layout.middle;
                const double radius = pie::radiusOf(offset.x(), offset.y());
                const double angle = pie::angleOf(offset.x(), offset.y());
                const bool isNearBorder = std::ranges::any_of(layout.borders, [&](double border) {
                    return radius * std::abs(std::remainder(border - angle, 2 * pi)) < 0.05;
                });
                if (radius < 20.5 || radius > 99.5 || isNearBorder)
                    continue;
                const int sector = pie::targetAt(layout, offset);
                QCOMPARE(image.pixel(x, y), qRgb(0, 1, 2 + sector));
            }
        }
    }
}

void TestPieGeometry::findsOddAngles()
{
    const std::vector<double> quarters = pie::centredBorders(Weights(4, 1));
    QCOMPARE(pie::sectorAt(quarters, pi / 4), 0); // a border belongs to what begins there
    QCOMPARE(pie::sectorAt(quarters, std::nextafter(pi / 4, 0)), 3);
    QCOMPARE(pie::sectorAt(quarters, -pi / 2), 2); // found one turn later
    QCOMPARE(pie::sectorAt(quarters, 100), -1);
    QCOMPARE(pie::sectorAt(quarters, std::nan("")), -1);
    QCOMPARE(pie::sectorAt({}, 1), -1);
    // Halves: item 0 is the upper one. Exactly to the right ends the lower one, as 2 pi does.
    const std::vector<double> halves = pie::centredBorders(Weights{1, 1});
    QCOMPARE(pie::sectorAt(halves, 2 * pi), 1);
    QCOMPARE(pie::sectorAt(halves, 0), 0);
}

void TestPieGeometry::placesOnScreen_data()
{
    QTest::addColumn<QPoint>("centre");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("topLeft");
    const QSize menu(201, 201);
    QTest::newRow("the middle pixel is at the point")
        << QPoint(500, 300) << menu << QPoint(400, 200);
    QTest::newRow("top left") << QPoint(-100, 50) << menu << QPoint(-100, 50);
    QTest::newRow("bottom right") << QPoint(899, 649) << menu << QPoint(699, 449);
    QTest::newRow("just fits") << QPoint(799, 549) << menu << QPoint(699, 449);
    QTest::newRow("larger than the screen")
        << QPoint(0, 100) << QSize(1001, 601) << QPoint(-101, 49);
}

void TestPieGeometry::placesOnScreen()
{
    QFETCH(const QPoint, centre);
    QFETCH(const QSize, size);
    QFETCH(const QPoint, topLeft);
    QCOMPARE(pie::placeOnScreen(centre, size, QRect(-100, 50, 1000, 600)), topLeft);
}

void TestPieGeometry::arrowsGoWhereTheyPoint_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("closed");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QList<int>>("way");
    using Way = QList<int>;
    QTest::newRow("four, straight") << 4 << Way() << u"urdl"_s << Way{0, 3, 2, 1};
    QTest::newRow("across, and on") << 4 << Way() << u"uduu"_s << Way{0, 2, 0, 0};
    QTest::newRow("eight, step by step")
        << 8 << Way() << u"urrrrddlll"_s << Way{0, 7, 6, 6, 6, 5, 4, 3, 2, 2};
    QTest::newRow("over the closed one") << 8 << Way{7} << u"urd"_s << Way{0, 6, 5};
    QTest::newRow("never past the direction") << 8 << Way{6} << u"ur"_s << Way{0, 7};
    QTest::newRow("stays when nothing is there") << 4 << Way{0, 2} << u"ru"_s << Way{3, 3};
    QTest::newRow("all closed") << 3 << Way{0, 1, 2} << u"u"_s << Way{-1};
    QTest::newRow("one item") << 1 << Way() << u"dlru"_s << Way{0, 0, 0, 0};
    QTest::newRow("none") << 0 << Way() << u"u"_s << Way{-1};
    QTest::newRow("ring order") << 4 << Way{1} << u"+++-+-"_s << Way{0, 2, 3, 2, 3, 2};
    QTest::newRow("backwards from none, and around") << 3 << Way() << u"-+-"_s << Way{2, 0, 2};
}

void TestPieGeometry::arrowsGoWhereTheyPoint()
{
    QFETCH(const int, count);
    QFETCH(const QList<int>, closed);
    QFETCH(const QString, keys);
    QFETCH(const QList<int>, way);
    const std::vector<double> borders =
        pie::centredBorders(Weights(static_cast<std::size_t>(count), 1));
    std::vector<bool> open(static_cast<std::size_t>(count), true);
    for (const int i : closed)
        open[static_cast<std::size_t>(i)] = false;
    int current = -1;
    QList<int> walked;
    for (const QChar key : keys) {
        const double direction = static_cast<int>(QStringView(u"ruld").indexOf(key)) * pi / 2;
        if (key == u'+' || key == u'-')
            current = pie::stepAlong(open, current, key == u'+' ? 1 : -1);
        else
            current = pie::stepTowards(borders, open, current, direction);
        walked << current;
    }
    QCOMPARE(walked, way);
}

void TestPieGeometry::labelsStayInTheirSector()
{
    QRandomGenerator random(12);
    int cut = 0;
    int whole = 0;
    for (int round = 0; round < 300; ++round) {
        const Weights weights(1 + random.bounded(30U), 1);
        const pie::Layout layout = layoutOf(weights, random.bounded(101), 100);
        const pie::Wish wish{QSizeF(random.bounded(1, 90), 15), 45, random.bounded(2) ? 32.0 : 0.0,
                             0};
        for (int i = 0; i < layout.count(); ++i) {
            const pie::Label label = pie::placeLabel(layout, i, wish);
            ++(label.text.width() < wish.text.width() ? cut : whole);
            QVERIFY(label.text.width() <= wish.text.width() && label.icon.width() <= wish.icon);
            if (!label.icon.isEmpty() && !label.text.isEmpty())
                QVERIFY(label.icon.bottom() <= label.text.top());
            for (const QRectF &part : {label.icon, label.text}) {
                for (int corner = 0; corner < 9 && !part.isEmpty(); ++corner) {
                    const int column = corner % 3;
                    const int row = corner / 3;
                    const QPointF at = part.topLeft() - layout.centre() +
                                       QPointF(part.width() * column, part.height() * row) / 2;
                    const double radius = pie::radiusOf(at.x(), at.y());
                    QVERIFY(radius > layout.innerRadius && radius < layout.outerRadius);
                    QCOMPARE(pie::sectorAt(layout.borders, pie::angleOf(at.x(), at.y())), i);
                }
            }
        }
    }
    QVERIFY(cut > 100 && whole > 100);
}

/// p press, o O move onto one item or another, c move to the centre, r release there, n release
/// where it was, h hand over to a sub-menu; k key let go after long, t after a tap
void TestPieGeometry::judgesStrokes_data()
{
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("verdicts");
    QTest::newRow("an unsteady click, too") << u"cr"_s << u"."_s;
    QTest::newRow("out and back cancels") << u"ocr"_s << u"x"_s;
    QTest::newRow("click, and click in the middle") << u"rcpr"_s << u".x"_s;
    QTest::newRow("thought better of") << u"ropcr"_s << u".."_s;
    QTest::newRow("from the middle onto an item") << u"rcpor"_s << u".!"_s;
    QTest::newRow("a second release means nothing") << u"roror"_s << u"..."_s;
    QTest::newRow("tap stays, then a click") << u"topr"_s << u".!"_s;
    QTest::newRow("hold picks") << u"ok"_s << u"!"_s;
    QTest::newRow("hold in the middle cancels") << u"ck"_s << u"x"_s;
    QTest::newRow("only the first key counts") << u"tok"_s << u".."_s;
    QTest::newRow("on through a sub-menu") << u"ohOr"_s << u"!"_s;
    QTest::newRow("a sub-menu under a resting pointer stays") << u"ohr"_s << u"."_s;
    QTest::newRow("nothing held, nothing handed over") << u"rhor"_s << u".."_s;
}

void TestPieGeometry::judgesStrokes()
{
    QFETCH(const QString, events);
    QFETCH(const QString, verdicts);
    QString given;
    const QPoint item(60, 0);
    const QPoint other(0, 60);
    QPoint pointer;
    pie::Stroke stroke;
    stroke.open(pointer);
    const auto isOnItem = [&] { return pointer == item || pointer == other; };
    const auto note = [&](pie::Verdict verdict) { given += u".!x"[static_cast<int>(verdict)]; };
    for (const QChar event : events) {
        switch (event.unicode()) {
        case 'o':
        case 'O':
        case 'c':
            pointer = event == u'o' ? item : event == u'O' ? other : QPoint(0, 15);
            stroke.move(pointer, isOnItem(), 10);
            break;
        case 'p':
            stroke.press(pointer, isOnItem());
            break;
        case 'r':
            note(stroke.release(pointer, isOnItem(), 10));
            break;
        case 'k':
        case 't':
            note(stroke.releaseKey(event == u't', isOnItem()));
            break;
        default:
            stroke = stroke.handOver(pointer);
            break;
        }
    }
    QCOMPARE(given, verdicts);
}

QTEST_APPLESS_MAIN(TestPieGeometry)
#include "tst_piegeometry.moc"
