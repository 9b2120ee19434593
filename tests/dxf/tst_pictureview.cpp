// SPDX-License-Identifier: GPL-2.0-or-later
// The picture stays within its limits, and a sheet is picked where it is seen.
#include "dxf/workbench/picturezoom_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include "tests/dxf/plan.h"
#include <QWheelEvent>
#include <QtTest>
#include <kelo_base/dxf/SheetAnalysis.h>

using namespace Qt::Literals::StringLiterals;
using Sheets = std::vector<quint32>;

namespace {

SheetFigure figureOf(const QPolygonF &outline)
{
    SheetFigure figure;
    figure.outlines = {outline};
    figure.bounds = outline.boundingRect();
    return figure;
}

/// Ten sheets of 3 x 2 in two rows, in about the shape of the view; the last three share a block.
struct Bench
{
    DxfDrawing drawing;
    SheetPictureView view;
    std::vector<Sheets> picked;
    std::vector<Sheets> toggled;

    Bench()
    {
        DxfDrawingBuilder plan;
        for (int i = 0; i < 10; ++i) {
            const int row = i / 4;
            const double x = i % 4 * 4;
            const double y = row * 8.3;
            const std::string block = std::to_string(std::min(i, 7));
            addBlock(plan, block, {{{x, y}, {x + 3, y}, {x + 3, y + 2}, {x, y + 2}}});
            addInsert(plan, block, {{"BL_NR", std::to_string(i)}});
        }
        drawing = plan.take();
        LabelSheets(drawing, CornerOrder::Upright);
        view.resize(800, 600);
        view.show();
        view.setSheets(drawing, allInserts(drawing), u"plan"_s);
        QObject::connect(&view, &SheetPictureView::sheetsPicked, &view,
                         [this](const Sheets &sheets) { picked.push_back(sheets); });
        QObject::connect(&view, &SheetPictureView::marksToggled, &view,
                         [this](const Sheets &sheets) { toggled.push_back(sheets); });
    }
    QImage Image() { return view.grab().toImage(); }
    /// Where the picture looks different when @p sheets are selected.
    QRect Place(const Sheets &sheets)
    {
        view.setSelectedSheets({});
        const QImage plain = Image();
        view.setSelectedSheets(sheets);
        const QImage marked = Image();
        view.setSelectedSheets({});
        return Difference(plain, marked);
    }
    /// Beside the number, on which a click would mark.
    QPoint Side(const Sheets &sheets)
    {
        const QRect place = Place(sheets);
        return {place.center().x(), place.top() + place.height() / 5};
    }
    static QRect Difference(const QImage &plain, const QImage &marked)
    {
        QRegion place;
        for (int y = 0; y < plain.height(); ++y)
            for (int x = 0; x < plain.width(); ++x)
                if (plain.pixel(x, y) != marked.pixel(x, y))
                    place += QRect(x, y, 1, 1);
        return place.boundingRect();
    }
    void Wheel(QPointF pos, int delta)
    {
        QWheelEvent event(pos, view.mapToGlobal(pos), {}, {0, delta}, {}, {}, {}, false);
        QCoreApplication::sendEvent(&view, &event);
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&view, Qt::LeftButton, modifiers, from);
        QMouseEvent move(QEvent::MouseMove, to, view.mapToGlobal(to), {}, Qt::LeftButton,
                         modifiers);
        QCoreApplication::sendEvent(&view, &move);
        QTest::mouseRelease(&view, Qt::LeftButton, modifiers, to);
    }
};

} // namespace

class TestPictureView : public QObject
{
    Q_OBJECT

private slots:
    // The other way to the answer: a random walk, after each step of which the limits hold.
    void staysInTouchWhateverComes()
    {
        QRandomGenerator random(91);
        const auto number = [&](double least, double most) {
            return least + random.bounded(1.0) * (most - least);
        };
        const auto isInTouch = [](double low, double high, double window) {
            const bool isInMiddle = std::abs(low + high - window) < 1e-6;
            return isInMiddle || (low < 15 && high > window - 15);
        };
        for (int round = 0; round < 300; ++round) {
            PictureZoom shown;
            QSizeF window(number(1, 900), number(1, 700));
            const QRectF picture(number(-50, 50), number(-50, 50), number(0, 3000), number(0, 900));
            shown.setWindow(window);
            shown.setPicture(picture, number(1, 100));
            QVERIFY(shown.showsAll());
            for (int step = 0; step < 50; ++step) {
                const QPointF at(number(0, window.width()), number(0, window.height()));
                const int what = random.bounded(4);
                if (what == 0)
                    shown.zoomBy(number(0.3, 3), at);
                else if (what == 1)
                    shown.panBy({number(-500, 500), number(-500, 500)});
                else if (what == 2)
                    shown.setWindow(window = {number(1, 900), number(1, 700)});
                else
                    shown.bringInSight({shown.toPicture(at), QSizeF(number(0, 50), 20)});
                const QRectF rect = shown.toWindow(picture);
                QVERIFY(shown.zoom() >= 1);
                QVERIFY(shown.zoom() <= shown.mostZoom() * 1.000001);
                QVERIFY(isInTouch(rect.left(), rect.right(), window.width()));
                QVERIFY(isInTouch(rect.top(), rect.bottom(), window.height()));
            }
        }
    }

    void findsFigures()
    {
        const std::vector figures{
            figureOf(QRectF(0, 0, 10, 10)),
            figureOf(QPolygonF(QList<QPointF>{{20, 0}, {30, 10}, {20, 20}, {10, 10}, {20, 0}})),
            figureOf(QRectF(5, 5, 10, 2)), figureOf(QPolygonF(QList<QPointF>{{40, 0}, {50, 10}})),
            figureOf(QPolygonF(QList<QPointF>{{60, 5}}))};
        const auto at = [&](double x, double y) {
            for (int i = static_cast<int>(figures.size()); i-- > 0;)
                if (dxftools::isAt(figures[static_cast<std::size_t>(i)], {x, y}, 1))
                    return i;
            return 99;
        };
        const auto in = [&](const QRectF &area) {
            std::vector<std::size_t> touched;
            for (std::size_t i = 0; i < figures.size(); ++i)
                if (dxftools::touches(figures[i], area))
                    touched.push_back(i);
            return touched;
        };
        QCOMPARE(at(8, 6), 2);   // the upper one of two
        QCOMPARE(at(11, 1), 99); // within the bounds of the diamond only
        QCOMPARE(at(20, 3), 1);
        QCOMPARE(at(45.5, 4.5), 3);
        QCOMPARE(at(48, 2), 99); // beside the line
        QCOMPARE(at(60.5, 5.5), 4);
        using Found = std::vector<std::size_t>;
        QCOMPARE(in({-1, -1, 100, 100}), (Found{0, 1, 2, 3, 4}));
        QCOMPARE(in({1, 1, 2, 2}), Found{0});   // inside of one
        QCOMPARE(in({10.5, 0, 4, 4}), Found()); // beside the diamond's edge
        QCOMPARE(in({42, 1, 2, 20}), Found{3}); // neither end is in it
    }

    void picksWithTheMouse()
    {
        Bench bench;
        const QPoint one = bench.Side({1});
        const QPoint two = bench.Side({2});
        const QRect row = bench.Place({1, 2});
        const QPoint outside = row.topRight() - QPoint(0, 20);
        const auto click = [&](QPoint pos, Qt::KeyboardModifiers modifiers = {}) {
            QTest::mouseClick(&bench.view, Qt::LeftButton, modifiers, pos);
            return bench.picked.back();
        };
        QCOMPARE(click(one), Sheets{1});
        QCOMPARE(click(two, Qt::ShiftModifier), (Sheets{1, 2}));
        QCOMPARE(click(bench.Side({9}), Qt::ControlModifier), (Sheets{7, 8, 9}));
        QCOMPARE(click(one, Qt::ControlModifier), (Sheets{1, 7, 8, 9}));
        QCOMPARE(click(one, Qt::ControlModifier), (Sheets{7, 8, 9}));
        QCOMPARE(click(outside), Sheets());
        bench.Drag(row.topLeft() - QPoint(5, 5), two, Qt::ShiftModifier);
        QCOMPARE(bench.picked.back(), (Sheets{1, 2}));
        bench.Drag(one, two); // moves the picture, if anything
        bench.view.setSelectedSheets({3});
        QCOMPARE(bench.picked.size(), 7U);
        bench.view.clear(u"message"_s);
        QCOMPARE(click(one), Sheets());
    }

    void zoomsAndPans()
    {
        Bench bench;
        QSignalSpy zooms(&bench.view, &SheetPictureView::zoomChanged);
        const QRect before = bench.Place({1});
        for (int i = 0; i < 3; ++i)
            bench.Wheel(before.center(), 20); // part of a click, as from touchpads
        const QRect zoomed = bench.Place({1});
        QVERIFY((zoomed.center() - before.center()).manhattanLength() <= 2);
        QVERIFY(zooms.size() == 3 && zoomed.width() > before.width() * 1.08);
        bench.Drag({400, 300}, {405, 310});
        QCOMPARE(bench.Place({1}).topLeft(), zoomed.topLeft() + QPoint(5, 10));
        QTest::keyClick(&bench.view, Qt::Key_Home);
        QVERIFY(bench.Place({1}) == before && bench.view.zoom() == 1);
        bench.Wheel(before.center(), -120); // no smaller than all
        QCOMPARE(zooms.size(), 4);
        bench.view.zoomIn();
        bench.view.clear();
        QVERIFY(zooms.size() == 6 && bench.view.zoom() == 1);
    }

    void bringsASheetInSight()
    {
        Bench bench;
        for (int i = 0; i < 5; ++i)
            bench.view.zoomIn();
        const double zoom = bench.view.zoom();
        for (const quint32 sheet : {0U, 9U, 3U, 4U}) {
            bench.view.showSheet(sheet);
            QVERIFY(bench.view.rect().adjusted(2, 2, -2, -2).contains(bench.Place({sheet})));
            QVERIFY(bench.Place({sheet}).width() > 100 && bench.view.zoom() == zoom);
        }
        QTest::mouseDClick(&bench.view, Qt::LeftButton, {}, bench.Side({4}));
        const QRect close = bench.Place({4}); // a third of the view high
        QVERIFY(close.height() > 140 && close.height() < 200);
    }

    void marksWithMouseAndKeys()
    {
        Bench bench;
        const QPoint number = bench.Place({4}).center();
        QTest::mouseClick(&bench.view, Qt::LeftButton, {}, number);
        QTest::mouseClick(&bench.view, Qt::LeftButton, {}, bench.Place({9}).center());
        QCOMPARE(bench.toggled, (std::vector<Sheets>{{4}, {7, 8, 9}})); // three share a place
        QVERIFY(bench.picked.empty());
        QTest::mouseClick(&bench.view, Qt::LeftButton, Qt::ControlModifier, number);
        QCOMPARE(bench.picked.back(), Sheets{4});
        bench.view.setSelectedSheets({5, 6});
        QTest::keyClick(&bench.view, Qt::Key_Space);
        QCOMPARE(bench.toggled.back(), (Sheets{5, 6}));
        bench.view.setSelectedSheets({});
        QTest::keyClick(&bench.view, Qt::Key_Space);
        QCOMPARE(bench.toggled.size(), 3U);
    }

    void tellsStatesApart()
    {
        Bench bench;
        const Sheets all = allInserts(bench.drawing);
        const auto image = [&](const Sheets &chosen) {
            bench.view.showStates(chosen);
            const QRect area = bench.view.rect() & QRect(0, 0, 800, 500); // without the legend
            return bench.view.grab(area).toImage();
        };
        for (const int steps : {0, 30}) { // as figures, and all of them as spots
            for (int i = 0; i < steps; ++i)
                bench.view.resize(bench.view.width() - 22, bench.view.height());
            const QImage exported = image(all); // first: the states take room in the legend
            const QRect place = bench.Place({3});
            bench.drawing.SetExportMark(3, false);
            const QImage unmarked = image(all);
            bench.drawing.SetExportMark(3, true);
            const QImage filteredOut = image({0, 1, 2, 4, 5, 6, 7, 8, 9});
            QVERIFY(place.contains(Bench::Difference(exported, unmarked)));
            QVERIFY(place.contains(Bench::Difference(exported, filteredOut)));
            QVERIFY(exported != unmarked && exported != filteredOut && unmarked != filteredOut);
            QVERIFY(bench.Place({3}) == place); // it did not vanish
        }
    }
};

QTEST_MAIN(TestPictureView)
#include "tst_pictureview.moc"
