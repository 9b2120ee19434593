// SPDX-License-Identifier: GPL-2.0-or-later
// The view geometry against what it cannot do without: the viewer's own queries and conversions.
// And a frame with the controls over the view beside one without them.
#include "benchmarks/ratio.h"
#include "tests/support/MapWindow.h"
#include "tests/support/TestView.h"
#include <QApplication>
#include <QHoverEvent>
#include <QImage>
#include <QTemporaryDir>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>
#include <kelo_base/navigation/ViewGeometry.h>
#include <malloc.h>
#include <stdexcept>

namespace {

/// Keeps the optimiser from seeing that the registered window is a TestWindow.
DocWindowXIfc *window()
{
    DocWindowXIfc *registered = DocWindowXIfc::HInstance();
    benchmark::DoNotOptimize(registered);
    return registered;
}

/// The rectangle, and its first and last pixel on the map.
double queriesAlone()
{
    QWidget *view = window()->PrimaryView();
    QRect device;
    if (!window()->DeviceRect(view, device))
        throw std::runtime_error("no rectangle");
    DocWindowXIfc::UCoord first = device.topLeft();
    DocWindowXIfc::UCoord last = device.bottomRight();
    if (!window()->DeviceToGeo(view, first) || !window()->DeviceToGeo(view, last))
        throw std::runtime_error("no conversion");
    return first.geoPoint.x() + last.geoPoint.y();
}

void heightOurs(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(EstimatedHeightAboveGroundLevelS(nullptr));
}

void heightPeer(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(queriesAlone());
}

void zoomRatioOurs(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(
            EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(nullptr, 500));
}

void northAngleOurs(benchmark::State &state)
{
    double angle = 0;
    for ([[maybe_unused]] auto _ : state) {
        NorthAngle(nullptr, angle);
        benchmark::DoNotOptimize(angle);
    }
}

void zoomCorrectionOurs(benchmark::State &state)
{
    double scale = 7500;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(scale);
        benchmark::DoNotOptimize(GetZoomFactorCorrectionForScaleValue(scale, scale));
    }
}

/// Controls over a large view, each edge with its hot areas, those at the top seen.
class Stage
{
public:
    Stage() : image(1920, 1080, QImage::Format_RGB32)
    {
        for (int side = 0; side < 8; ++side)
            window.neighbours[static_cast<DocWindowXIfc::PageSide>(side)]
                << MapWindow::item(QStringLiteral("Sheet %1").arg(side), side + 1);
        view().resize(image.size());
        view().show();
        NavCtrlMgrIfc::Instance().SetShown(true); // remembers what the stage before left
        if (NavCtrlMgrIfc::Instance().Views().size() != 1)
            throw std::runtime_error("no controls");
        emit view().documentChanged();
        point(10);
        QCoreApplication::processEvents();
        frame();
    }
    ~Stage() { NavCtrlMgrIfc::Destroy(); }
    Q_DISABLE_COPY_MOVE(Stage)

    [[nodiscard]] MapView &view() const { return *window.view; }
    void point(int y)
    {
        const QPointF pos(960, y);
        QHoverEvent event(QEvent::HoverMove, pos, pos, QPointF());
        QCoreApplication::sendEvent(&view(), &event);
    }
    /// As the toolkit composes a frame, into memory.
    void frame()
    {
        view().turn += 0.7;
        view().metresPerPixel *= view().turn > 3600 ? 0.5 : 1.0001;
        emit view().viewChanged();
        paint();
    }
    void paint() { view().render(&image, {}, {}, QWidget::DrawChildren); }

    MapWindow window;
    QImage image;
};

void repaintOfControls(benchmark::State &state)
{
    Stage stage;
    for ([[maybe_unused]] auto _ : state)
        stage.paint();
}

void movingFrame(benchmark::State &state, bool isShown)
{
    Stage stage;
    NavCtrlMgrIfc::Instance().SetShown(isShown);
    QCoreApplication::processEvents();
    stage.window.conversions = 0;
    for ([[maybe_unused]] auto _ : state)
        stage.frame();
    state.counters["conversions"] =
        benchmark::Counter(stage.window.conversions, benchmark::Counter::kAvgIterations);
}

void frameOurs(benchmark::State &state)
{
    movingFrame(state, true);
}

void framePeer(benchmark::State &state)
{
    movingFrame(state, false); // the same with hidden controls
}

/// 36,000 steps of use, ten a second; what the heap gained in the second half.
void hourOfUse(benchmark::State &state)
{
    Stage stage;
    constexpr int kSteps = 36'000;
    const auto inUse = [] { return static_cast<double>(mallinfo2().uordblks); };
    double before = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (int step = 0; step < kSteps; ++step) {
            if (step == kSteps / 2)
                before = inUse();
            stage.view().turn += 1;
            stage.view().metresPerPixel = 1 + step % 100 * 0.01;
            emit stage.view().viewChanged();
            if (step % 10 == 0) {
                stage.point(step % 1080);
                stage.paint();
                emit stage.view().viewSettled();
            }
            if (step % 500 == 0)
                emit stage.view().documentChanged();
            QCoreApplication::processEvents();
        }
    }
    state.counters["growth"] = inUse() - before; // bytes
}

} // namespace

BENCHMARK(heightOurs);
BENCHMARK(heightPeer);
BENCHMARK(zoomRatioOurs);
BENCHMARK(northAngleOurs);
BENCHMARK(zoomCorrectionOurs);
BENCHMARK(repaintOfControls)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameOurs)->Unit(benchmark::kMicrosecond);
BENCHMARK(framePeer)->Unit(benchmark::kMicrosecond);
BENCHMARK(hourOfUse)->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char **argv)
{
    const QTemporaryDir home; // nothing of the user's is read or written
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    const QApplication app(argc, argv);
    TestWindow window;
    window.view.dpi = {}; // asks the screen, as real views do
    window.view.show();
    const int result = ratio::run(argc, argv);
    UserDataManagerI::Destroy();
    return result;
}
