// SPDX-License-Identifier: GPL-2.0-or-later
// The picture of the sheets: opened, painted anew after a choice, moved and pointed into.
#include "benchmarks/ratio.h"
#include "dxf/read/drawingbuilder_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include <QApplication>
#include <QMouseEvent>
#include <cmath>
#include <cstdlib>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <numeric>
#include <string>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A plan of labelled sheets side by side, 3 x 2 units each.
class Plan
{
public:
    explicit Plan(int count) : m_drawing(drawn(count)), m_sheets(static_cast<std::size_t>(count))
    {
        std::iota(m_sheets.begin(), m_sheets.end(), 0U);
        GK::CRoutingTilesRevisor revisor(m_drawing);
        for (std::size_t block = 0; block < m_drawing.Blocks().size(); ++block)
            revisor.ReviseBlock(block);
    }
    void ShowIn(SheetPictureView &view) const { view.setSheets(m_drawing, m_sheets, u"plan"_s); }

private:
    static DxfDrawing drawn(int count)
    {
        DxfDrawingBuilder plan;
        const int columns = static_cast<int>(std::sqrt(count));
        for (int i = 0; i < count; ++i) {
            const std::string name = std::to_string(i);
            const int row = i / columns;
            const double x = i % columns * 3.2;
            const double y = row * 2.2;
            plan.beginBlock(name, 0);
            plan.beginPolyline(true);
            for (const auto &[dx, dy] : {DxfVertex{0, 0}, {3, 0}, {3, 2}, {0, 2}})
                plan.addVertex({x + dx, y + dy});
            plan.endPolyline();
            plan.endBlock();
            plan.beginInsert(name, 0);
            plan.addAttribute("BL_NR", name);
            plan.endInsert();
        }
        return plan.take();
    }

    DxfDrawing m_drawing;
    std::vector<quint32> m_sheets;
};

void show(SheetPictureView &view)
{
    view.resize(900, 700);
    view.show();
    QCoreApplication::processEvents();
    if (!view.isVisible())
        std::abort();
}

/// A picture of so many sheets, zoomed in by so many steps.
struct Shown
{
    explicit Shown(std::int64_t sheets, std::int64_t steps = 0) : plan(static_cast<int>(sheets))
    {
        show(view);
        plan.ShowIn(view);
        for (std::int64_t i = 0; i < steps; ++i)
            view.zoomIn();
    }
    Plan plan;
    SheetPictureView view;
};

/// From the drawing to the first picture.
void openPicture(benchmark::State &state)
{
    const Plan plan(static_cast<int>(state.range(0)));
    SheetPictureView view;
    show(view);
    for (auto _ : state) {
        plan.ShowIn(view);
        view.repaint();
    }
}
BENCHMARK(openPicture)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

/// Another sheet is chosen, with so many sheets and zoomed in by so many steps.
void choose(benchmark::State &state)
{
    Shown shown(state.range(0), state.range(1));
    SheetPictureView &view = shown.view;
    const auto half = static_cast<quint32>(state.range(0) / 2);
    for (quint32 next = 0; auto _ : state) {
        view.setSelectedSheets({half + next++ % 50});
        view.repaint();
    }
}
BENCHMARK(choose)
    ->ArgsProduct({{10'000}, {0, 1, 2, 4, 6, 8, 12, 18}})
    ->ArgsProduct({{100'000, 1'000'000}, {0, 12}})
    ->Unit(benchmark::kMillisecond);

/// The pointer drags the picture by some pixels.
void drag(benchmark::State &state)
{
    Shown shown(state.range(0), state.range(1));
    SheetPictureView &view = shown.view;
    const auto send = [&view](QEvent::Type type, QPointF pos) {
        QMouseEvent event(type, pos, view.mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&view, &event);
    };
    send(QEvent::MouseButtonPress, {400, 300});
    for (int x = 0; auto _ : state) {
        send(QEvent::MouseMove, {350.0 + x, 300});
        view.repaint();
        x = (x + 7) % 100;
    }
}
BENCHMARK(drag)->ArgsProduct({{20'000, 1'000'000}, {2, 6}})->Unit(benchmark::kMillisecond);

/// The pointer moves over a picture of many sheets.
void point(benchmark::State &state)
{
    Shown shown(state.range(0));
    SheetPictureView &view = shown.view;
    for (int x = 0; auto _ : state) {
        const QPointF pos(100.0 + x, 300);
        QMouseEvent event(QEvent::MouseMove, pos, view.mapToGlobal(pos), Qt::NoButton, {}, {});
        QCoreApplication::sendEvent(&view, &event);
        x = (x + 7) % 600;
    }
}
BENCHMARK(point)->Arg(20'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return ratio::run(argc, argv);
}
