// SPDX-License-Identifier: GPL-2.0-or-later
// Angles, sectors, places and steps of pie menus, without any window.
#include "core/contrast_p.h"
#include "menus/piecolors_p.h"
#include "menus/piegeometry_p.h"
#include "menus/pielayout_p.h"
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
    void findsBorders();
    void sharesEveryPixelOut();
    void findsOddAngles();
    void placesOnScreen();
    void arrowsGoWhereTheyPoint();
    void labelsShareOneCircle();
    void colorsCanBeTold();
};

namespace {

pie::Layout layoutOf(const Weights &weights, double inner = 20)
{
    return {QPoint(100, 100), inner, 100, pie::centredBorders(weights)};
}

/// The long way: how far a pixel is behind the start of item 0, in weights.
int sectorBySumming(Weights weights, double x, double y)
{
    for (int &weight : weights)
        weight = std::max(weight, 0);
    const double total = std::accumulate(weights.begin(), weights.end(), 0.0);
    if (total == 0)
        return sectorBySumming(Weights(weights.size(), 1), x, y);
    const double blur = 0.05 / std::hypot(x, y) / (2 * pi) * total; // in pixels along the ring
    const double turns = std::fmod((std::atan2(-y, x) / pi - 0.5) / 2 + 2, 1);
    double rest = std::fmod(turns * total + weights[0] / 2.0, total);
    for (std::size_t i = 0; i < weights.size(); rest -= weights[i++]) {
        if (std::abs(rest) < blur || std::abs(rest - weights[i]) < blur)
            return -1; // too near to a border to tell
        if (rest < weights[i])
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace

void TestPieGeometry::findsBorders()
{
    const auto check = [](const char *name, const Weights &weights, int index, int count,
                          bool isMiddle, double angle) {
        const double border = pie::borderAngle(weights, index, count, isMiddle);
        QVERIFY2(std::abs(border - angle) < 1e-6 && border >= 0 && border < 2 * pi, name);
    };
    const Weights four(4, 1);
    check("first at the top", four, 0, 4, false, pi / 2);
    check("a whole turn is none", four, 3, 4, false, 0);
    check("centred", four, 0, 4, true, pi / 4);
    check("one before the first is the last", four, -1, 4, true, 7 * pi / 4);
    check("no items: equal shares", {}, 1, 3, false, 7 * pi / 6);
    check("alone, centred", {5}, 0, 1, true, 3 * pi / 2);
    check("beyond the items, weight 1", {2, 2}, 3, 5, false, pi);
    check("no shares at all are equal", {0, -7}, 1, 2, false, 3 * pi / 2);
    check("count 0 is 1", {}, INT_MIN, 0, false, pi / 2);
    check("many turns beyond", {1}, 1'000'000'000, INT_MAX, false, pi / 2);
}

void TestPieGeometry::sharesEveryPixelOut()
{
    QRandomGenerator random(8);
    std::vector<Weights> rings{{1},       {1, 1},           {0, 0},
                               {1, 0, 0}, {-5, INT_MAX, 1}, Weights(64, INT_MAX)};
    for (int i = 0; i < 60; ++i) {
        for (int &weight : rings.emplace_back(1 + random.bounded(64U)))
            weight =
                random.bounded(10) == 0 ? 0 : random.bounded(random.bounded(2) ? 5 : 1'000'000);
    }
    int round = 0;
    for (const Weights &weights : rings) {
        constexpr double kInner[] = {20, 0, 1, 40};
        const double inner = kInner[round++ % 4];
        const pie::Layout layout = layoutOf(weights, inner);
        QImage image(201, 201, QImage::Format_RGB32);
        image.fill(0);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_Plus); // shows what is painted twice
        for (int i = 0; i < layout.count(); ++i)
            painter.fillPath(pie::sectorPath(layout, i), QColor(0, 1, 2 + i));
        painter.end();
        for (int pixel = 0; pixel < 201 * 201; ++pixel) {
            const QPoint offset(pixel % 201 - 100, pixel / 201 - 100);
            const double radius = std::hypot(offset.x(), offset.y());
            const int sector = pie::directionAt(layout, offset);
            const int expected = sectorBySumming(weights, offset.x(), offset.y());
            QVERIFY(expected < 0 || sector == expected);
            QVERIFY(radius == 0 ? sector == -1 : sector >= 0 && layout.sweep(sector) > 0);
            QCOMPARE(pie::targetAt(layout, offset), radius < layout.innerRadius ? -1 : sector);
            if (expected >= 0 && radius > std::max(inner + 0.5, 3.0) && radius < 99.5)
                QCOMPARE(image.pixel(layout.middle + offset), qRgb(0, 1, 2 + sector));
        }
    }
}

void TestPieGeometry::findsOddAngles()
{
    QCOMPARE(pie::angleOf(5, 0), 2 * pi); // not 0
    QVERIFY(std::isnan(pie::angleOf(0, 0)));
    const std::vector<double> quarters = pie::centredBorders(Weights(4, 1));
    QCOMPARE(pie::sectorAt(quarters, pi / 4), 0); // a border belongs to what begins there
    QCOMPARE(pie::sectorAt(quarters, std::nextafter(pi / 4, 0)), 3);
    QCOMPARE(pie::sectorAt(quarters, -pi / 2), 2); // found one turn later
    QVERIFY(pie::sectorAt(quarters, 100) == -1 && pie::sectorAt(quarters, std::nan("")) == -1);
    // Halves: item 0 is the upper one. Exactly to the right ends the lower one, as 2 pi does.
    const std::vector<double> halves = pie::centredBorders(Weights{1, 1});
    QVERIFY(pie::sectorAt(halves, 2 * pi) == 1 && pie::sectorAt(halves, 0) == 0);
}

void TestPieGeometry::placesOnScreen()
{
    const QRect screen(-100, 50, 1000, 600);
    const QSize menu(201, 201);
    QCOMPARE(pie::placeOnScreen({500, 300}, menu, screen), QPoint(400, 200)); // middle at the point
    QCOMPARE(pie::placeOnScreen({-100, 50}, menu, screen), QPoint(-100, 50));
    QCOMPARE(pie::placeOnScreen({799, 549}, menu, screen), QPoint(699, 449));      // just fits
    QCOMPARE(pie::placeOnScreen({0, 100}, {1001, 601}, screen), QPoint(-101, 49)); // too large
}

void TestPieGeometry::arrowsGoWhereTheyPoint()
{
    // Items: o open, x closed. Keys: up, down, left, right; + and - step along the ring. Way: the
    // items reached, - for none.
    const auto check = [](const QString &items, const QString &keys, const QString &way) {
        std::vector<bool> open;
        for (const QChar item : items)
            open.push_back(item == u'o');
        const std::vector<double> borders = pie::centredBorders(Weights(open.size(), 1));
        int current = -1;
        QString walked;
        for (const QChar key : keys) {
            const double direction = static_cast<int>(QStringView(u"ruld").indexOf(key)) * pi / 2;
            if (key == u'+' || key == u'-')
                current = pie::stepAlong(open, current, key == u'+' ? 1 : -1);
            else
                current = pie::stepTowards(borders, open, current, direction);
            walked += current < 0 ? u"-"_s : QString::number(current);
        }
        QVERIFY2(walked == way, qPrintable(keys + u" goes "_s + walked));
    };
    check(u"oooo"_s, u"urdl"_s, u"0321"_s);
    check(u"oooo"_s, u"uduu"_s, u"0200"_s); // across, and on
    check(u"oooooooo"_s, u"urrrrddlll"_s, u"0766654322"_s);
    check(u"ooooooox"_s, u"urd"_s, u"065"_s); // over the closed one
    check(u"ooooooxo"_s, u"ur"_s, u"07"_s);   // never past the direction
    check(u"xoxo"_s, u"ru"_s, u"33"_s);       // stays when nothing is there
    check(u"xxx"_s, u"u"_s, u"-"_s);
    check(u""_s, u"u"_s, u"-"_s);
    check(u"oxoo"_s, u"+++-+-"_s, u"023232"_s);
    check(u"ooo"_s, u"-+-"_s, u"202"_s); // backwards from none, and around
}

void TestPieGeometry::labelsShareOneCircle()
{
    QRandomGenerator random(12);
    int cut = 0, whole = 0;
    for (int round = 0; round < 300; ++round) {
        pie::Layout layout = layoutOf(Weights(1 + random.bounded(16U), 1), random.bounded(101));
        std::vector<pie::Wish> wishes(static_cast<std::size_t>(layout.count()));
        for (pie::Wish &wish : wishes) {
            const double width = random.bounded(1, 50);
            wish.texts = {QSizeF(width, 15), QSizeF(width / 2, 30)};
            wish.readable = 20;
            wish.hasIcon = round % 2 == 0;
            wish.hasDigit = random.bounded(2) == 0;
            wish.hasArrow = random.bounded(4) == 0;
        }
        constexpr double kIcons[] = {32, 16};
        const pie::Labels labels = pie::placeLabels(layout, wishes, 10, kIcons);
        double radius = 0, icon = 0;
        for (int i = 0; i < layout.count(); ++i) {
            const auto at = static_cast<std::size_t>(i);
            const pie::Label &label = labels.labels[at];
            QVERIFY(label.arrow.isNull() || !label.arrow.intersects(label.digit));
            for (const QRectF &part : {label.icon, label.text}) { // arcs are not quite round
                const QRectF core = part.adjusted(.1, .1, -.1, -.1);
                QVERIFY(part.isEmpty() || pie::sectorPath(layout, i).contains(core));
                QVERIFY(!part.intersects(label.digit) && !part.intersects(label.arrow));
            }
            if (label.both().isNull())
                continue;
            const QPointF middle = label.both().center() - layout.centre();
            const double distance = std::hypot(middle.x(), middle.y());
            QVERIFY(radius == 0 || std::abs(distance - radius) < 1e-6);
            QVERIFY(icon == 0 || label.icon.width() == icon);
            radius = distance;
            icon = label.icon.width();
            if (!label.icon.isEmpty() && !label.text.isEmpty())
                QVERIFY(label.icon.bottom() <= label.text.top());
        }
        ++(labels.cut > 0 ? cut : whole);
        // With room enough nothing is cut, nor smaller than it may be.
        layout.outerRadius = pie::radiusForLabels(layout, 4000, wishes, 10, 32);
        const pie::Labels grown = pie::placeLabels(layout, wishes, 10, kIcons);
        QCOMPARE(grown.cut, 0);
        QCOMPARE(grown.labels[0].icon.width(), round % 2 == 0 ? 32.0 : 0.0);
    }
    QVERIFY(cut > 50 && whole > 50);
}

void TestPieGeometry::colorsCanBeTold()
{
    QRandomGenerator random(3);
    for (int round = 0; round < 500; ++round) {
        const QColor fill(random.generate());
        const QColor text = round % 3 == 0   ? QColor(Qt::white)
                            : round % 3 == 1 ? QColor(Qt::black)
                                             : QColor(random.generate());
        const QColor readable = pie::readableFill(fill, text);
        QVERIFY(colors::contrast(readable, text) >= colors::kReadableContrast);
        QCOMPARE(readable == fill, colors::contrast(fill, text) >= colors::kReadableContrast);
    }
    QCOMPARE(std::round(colors::contrast(Qt::white, Qt::black)), 21.0);
    const auto lines = [](const QColor &window, const QColor &ink) {
        QPalette palette(window, window);
        palette.setColor(QPalette::WindowText, ink);
        return colors::contrast(pie::Colors(palette).separator, window);
    };
    QVERIFY(lines(Qt::black, Qt::white) > 4.5 && lines(Qt::white, Qt::black) > 3);
    QVERIFY(lines(QColor(239, 239, 239), Qt::black) < 2); // does not shout
    // An icon of one colour takes the text's, one of many keeps what it shows.
    QImage icon(8, 8, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    icon.setPixelColor(1, 1, Qt::black);
    QImage dark = pie::tinted(QPixmap::fromImage(icon), Qt::white).toImage();
    QVERIFY(dark.pixelColor(1, 1) == Qt::white && dark.pixelColor(0, 0).alpha() == 0);
    icon.setPixelColor(2, 2, Qt::red);
    dark = pie::tinted(QPixmap::fromImage(icon), Qt::white).toImage();
    QVERIFY(dark.pixelColor(2, 2).hue() == 0 && dark.pixelColor(1, 1).red() > 90);
}

QTEST_MAIN(TestPieGeometry)
#include "tst_piegeometry.moc"
