// SPDX-License-Identifier: GPL-2.0-or-later
// The rules behind the navigation controls: angles, sides, places, texts, lists, colours.
#include "core/contrast_p.h"
#include "navigation/controls/angles_p.h"
#include "navigation/controls/halo_p.h"
#include "navigation/controls/pagesides_p.h"
#include "navigation/controls/placement_p.h"
#include "navigation/controls/scaletext_p.h"
#include "navigation/controls/storedviews_p.h"
#include <QSettings>
#include <QTemporaryDir>
#include <QTransform>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace navcontrols;

namespace {

UDocItem named(const QString &title)
{
    return {title + u".tif"_s, title, {}, 7, -1, 0, 1, {}};
}

QString titles(const UDocItemList &list)
{
    QStringList all;
    for (const UDocItem &item : list)
        all << item.title;
    return all.join(u',');
}

} // namespace

class TestNavFormulas : public QObject
{
    Q_OBJECT

private slots:
    void stepsToTheNextAngle_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<int>("sense");
        QTest::addColumn<double>("to");
        QTest::newRow("from a step to the next") << 30.0 << 1 << 45.0;
        QTest::newRow("back") << 30.0 << -1 << 15.0;
        QTest::newRow("from between") << 31.0 << 1 << 45.0;
        QTest::newRow("back from between") << 31.0 << -1 << 30.0;
        QTest::newRow("rounding is no step") << 29.9999999 << 1 << 45.0;
        QTest::newRow("nor back") << 30.0000001 << -1 << 15.0;
        QTest::newRow("through zero") << 7.0 << -1 << 0.0;
        QTest::newRow("over the half turn") << 180.0 << 1 << -165.0;
        QTest::newRow("to the half turn") << 165.0 << 1 << 180.0;
        QTest::newRow("back over it") << -175.0 << -1 << 180.0;
    }
    void stepsToTheNextAngle()
    {
        QFETCH(const double, from);
        QFETCH(const int, sense);
        QFETCH(const double, to);
        QCOMPARE(steppedAngle(from, kTurnStep, sense), to);
    }

    void measuresDrags_data()
    {
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("to");
        QTest::addColumn<double>("angle");
        QTest::newRow("a quarter clockwise") << QPointF(0, -9) << QPointF(5, 0) << 90.0;
        QTest::newRow("back") << QPointF(5, 0) << QPointF(0, -9) << -90.0;
        QTest::newRow("the shorter way over the bottom") << QPointF(1, 1) << QPointF(-1, 1) << 90.0;
        QTest::newRow("half a turn") << QPointF(0, -1) << QPointF(0, 1) << 180.0;
    }
    void measuresDrags()
    {
        QFETCH(const QPointF, from);
        QFETCH(const QPointF, to);
        const QPointF centre(3, 4);
        QTEST(dragAngle(centre, centre + from, centre + to), "angle");
    }

    void findsSidesWhereTheyPoint_data()
    {
        QTest::addColumn<double>("turn");
        QTest::addColumn<bool>("isMirrored");
        for (const double turn : {0.0, 20.0, 45.0, 90.0, 135.0, 180.0, -100.0, -20.0})
            for (const bool isMirrored : {false, true})
                QTest::addRow("%g%s", turn, isMirrored ? " mirrored" : "") << turn << isMirrored;
    }
    /// A side of a square is at the place whose direction is nearest to that of its middle.
    void findsSidesWhereTheyPoint()
    {
        QFETCH(const double, turn);
        QFETCH(const bool, isMirrored);
        const QTransform page =
            QTransform::fromScale(isMirrored ? -3 : 3, 3) * QTransform().rotate(turn);
        const auto sides = sidesAtPlaces({page.map(QPointF(1, 0)), page.map(QPointF(0, 0.1))});
        const QPointF middles[] = {{0, -1}, {1, -1}, {1, 0},  {1, 1},
                                   {0, 1},  {-1, 1}, {-1, 0}, {-1, -1}};
        for (int place = 0; place < kPlaces; ++place) {
            const auto side = static_cast<std::size_t>(sides[static_cast<std::size_t>(place)]);
            const double direction = directionOf(page.map(middles[side]));
            QVERIFY(std::abs(normalizedAngle(direction - 45 * place)) <= 22.5001);
        }
    }

    void readsScales_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("scale"); // 0: none
        QTest::newRow("with colon") << u"1:5000"_s << 5000.0;
        QTest::newRow("denominator alone") << u"5000"_s << 5000.0;
        QTest::newRow("grouped by points") << u"1 : 5.000"_s << 5000.0;
        QTest::newRow("grouped by commas") << u"1:1,250,000"_s << 1'250'000.0;
        QTest::newRow("grouped by blanks") << u" 1 : 25\u00A0000 "_s << 25'000.0;
        QTest::newRow("a decimal point") << u"1:2.5"_s << 2.5;
        QTest::newRow("a decimal comma") << u"1:1250,5"_s << 1250.5;
        QTest::newRow("enlarged") << u"2:1"_s << 0.5;
        QTest::newRow("not grouped throughout") << u"1:1.25.000"_s << 0.0;
        QTest::newRow("two kinds of marks") << u"1:1.250,000"_s << 0.0;
        QTest::newRow("nothing") << u""_s << 0.0;
        QTest::newRow("zero") << u"1:0"_s << 0.0;
        QTest::newRow("negative") << u"1:-5"_s << 0.0;
        QTest::newRow("words") << u"1:5000 m"_s << 0.0;
        QTest::newRow("too small") << u"1:99999999999"_s << 0.0;
        QTest::newRow("two colons") << u"1:2:3"_s << 0.0;
    }
    void readsScales()
    {
        QFETCH(const QString, text);
        QTEST(parseScale(text).value_or(0), "scale");
    }

    void readsWhatItWrites()
    {
        for (const QLocale &locale : {QLocale(QLocale::English), QLocale(QLocale::German)}) {
            for (const double scale : {0.5, 2.5, 500.0, 5000.0, 1'250'000.0})
                QCOMPARE(parseScale(scaleText(scale, locale)).value_or(0), scale);
            for (const double metres : {0.25, 7.5, 120.0, 9'876.0, 12'300.0})
                QCOMPARE(parseLength(lengthText(metres, locale), locale).value_or(0), metres);
        }
        const QLocale german(QLocale::German);
        QCOMPARE(scaleText(25'000, german), u"1 : 25.000"_s);
        QCOMPARE(parseLength(u"1,5 KM", german).value_or(0), 1500.0);
        QCOMPARE(parseQuantity(u" -12,5 ° ", u"°", german).value_or(0), -12.5);
        for (const auto *text : {u"", u"m", u"-5", u"0", u"nan", u"inf", u"1e300"})
            QVERIFY(!parseLength(text, german));
    }

    void drawsRoundBars()
    {
        for (double metresPerPixel = 1e-4; metresPerPixel < 1e5; metresPerPixel *= 1.37) {
            const auto bar = scaleBar(metresPerPixel, 130);
            QVERIFY(bar && bar->pixels > 0.3999 * 130 && bar->pixels <= 130.0001);
            QCOMPARE(bar->pixels * metresPerPixel, bar->metres);
            const double digit =
                bar->metres / std::pow(10, std::floor(std::log10(bar->metres) + 1e-9));
            QVERIFY(qFuzzyCompare(digit, 1) || qFuzzyCompare(digit, 2) || qFuzzyCompare(digit, 5));
        }
        QVERIFY(!scaleBar(-1, 130) && !scaleBar(qQNaN(), 130) && !scaleBar(1, 0));
        QCOMPARE(scaleBarText(1000, QLocale::c()), u"1 km"_s);
        QCOMPARE(scaleBarText(0.5, QLocale::c()), u"0.5 m"_s);
    }

    /// Whatever the size and the corners: nothing overlaps, nothing leaves the view, and what gives
    /// way does so in its order.
    void findsPlacesForAll()
    {
        constexpr Corner kCorners[] = {Corner::TopLeft, Corner::TopRight, Corner::BottomLeft,
                                       Corner::BottomRight};
        PlacementRequest request{{68, 68}, {190, 190}, {28, 28}, {260, 28}, false,
                                 true,     {},         {},       {}};
        for (int extent = 20; extent <= 420; extent += 10) {
            for (const Corner corner : kCorners) {
                request.viewMenuCorner = corner;
                for (const QSize size : {QSize(extent, 900), QSize(900, extent)}) {
                    const QRect area(QPoint(5, 7), size);
                    const Placement got = placeControls(area, request);
                    QList<QRect> rects{got.arrow, got.viewMenu, got.presentation};
                    for (const QRect &rect : got.hotAreas)
                        rects << rect;
                    for (qsizetype i = 0; i < rects.size(); ++i) {
                        QVERIFY(rects[i].isNull() || area.contains(rects[i]));
                        for (qsizetype k = 0; k < i; ++k)
                            QVERIFY(!rects[i].intersects(rects[k]));
                    }
                    QVERIFY(extent >= 300 || got.presentation.isNull());
                    QVERIFY(extent >= 240 || got.viewMenu.isNull() || got.isViewMenuFolded);
                    QCOMPARE(got.hotAreas[0].isNull(), extent < 180);
                    QVERIFY(!got.arrow.isNull() || extent < 90);
                    QVERIFY(!got.viewMenu.isNull() || extent < 120);
                }
            }
        }
        const Placement all = placeControls({0, 0, 800, 600}, request);
        QVERIFY(!all.presentation.isNull() && !all.isViewMenuFolded);
        QCOMPARE(nearestCorner({0, 0, 800, 600}, all.viewMenu.center()), Corner::BottomRight);
        request.viewMenuCorner = request.arrowCorner; // pile up, the arrow in the corner
        const Placement piled = placeControls({0, 0, 800, 600}, request);
        QVERIFY(piled.viewMenu.top() >= piled.arrow.bottom() + kMargin);
    }

    void editsLists()
    {
        UDocItemList list;
        list << named(u"a"_s) << named(u"b"_s) << named(u"c"_s);
        list.currentIndex = 0;
        QVERIFY(moveItem(list, 0, 2) && list.currentIndex == 2);
        QCOMPARE(titles(list), u"b,c,a"_s);
        QVERIFY(!moveItem(list, 2, 3) && !moveItem(list, -1, 0));
        QVERIFY(renameItem(list, 0, u" c "_s) && !renameItem(list, 0, u" "_s));
        QVERIFY(renameItem(list, 1, u"c"_s)); // its own title is free to it
        QVERIFY(!renameItem(list, 3, u"x"_s));
        QCOMPARE(titles(list), u"c (2),c,a"_s);
        QCOMPARE(freeTitle(list, u"c"_s), u"c (3)"_s);
        const int steps[][4] = {{-1, 1, 3, 0}, {-1, -1, 3, 2}, {2, 1, 3, 0},
                                {0, -1, 3, 2}, {9, 1, 3, 0},   {0, 1, 0, -1}};
        for (const auto &[index, by, size, expected] : steps)
            QCOMPARE(steppedIndex(index, by, size), expected);
    }

    void keepsListsInFilesAndDatabases()
    {
        UDocItemList list;
        list << named(u"a,\"b\"; ü"_s) << named(u"b"_s);
        UDocItem full{u"x.tif"_s, u"t"_s, u"d"_s, 9, 3, -45, 25'000, {}};
        full.position.geoPoint = {500'000.123456789, 5'600'000.5};
        full.position.docPoint = {1.25, -7};
        list << full;
        QCOMPARE(fromJson(toJson(list)).value_or(UDocItemList()).BuildHashID(), list.BuildHashID());
        const QTemporaryDir dir;
        const QString file = dir.filePath(u"layout.ini"_s);
        {
            QSettings settings(file, QSettings::IniFormat);
            writeViews(settings, list);
        }
        QSettings settings(file, QSettings::IniFormat);
        QCOMPARE(readViews(settings).BuildHashID(), list.BuildHashID());
        QVERIFY(!fromJson("{") && !fromJson("{}") && fromJson("[7, {}]")->Size() == 0);
        settings.setValue(u"StoredViews/size"_s, 2'000'000'000);
        QCOMPARE(readViews(settings).Size(), 3);
    }

    /// Each map leaves ink or rim to read by, and the two are told from each other.
    void isReadOverAnyMap()
    {
        for (const auto &[text, window] :
             {std::pair(Qt::black, Qt::white), std::pair(Qt::white, Qt::black),
              std::pair(Qt::white, Qt::darkGray), std::pair(Qt::darkGray, Qt::lightGray),
              std::pair(Qt::blue, Qt::yellow), std::pair(Qt::gray, Qt::gray)}) {
            QPalette palette;
            palette.setColor(QPalette::WindowText, text);
            palette.setColor(QPalette::Window, window);
            const Halo halo(palette);
            QVERIFY(colors::contrast(halo.ink, halo.rim) >= 4.5);
            for (const QColor &map : {QColor(Qt::white), QColor(Qt::black), QColor(128, 128, 128)})
                QVERIFY(std::max(colors::contrast(halo.ink, map),
                                 colors::contrast(halo.rim, map)) >= 4.5);
        }
    }
};

QTEST_MAIN(TestNavFormulas)
#include "tst_navformulas.moc"
