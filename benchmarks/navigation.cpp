// SPDX-License-Identifier: GPL-2.0-or-later
// The view geometry against what it cannot do without: the viewer's own queries and conversions.
#include "benchmarks/ratio.h"
#include "tests/support/TestView.h"
#include <QApplication>
#include <kelo_base/navigation/ViewGeometry.h>
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

} // namespace

BENCHMARK(heightOurs);
BENCHMARK(heightPeer);
BENCHMARK(zoomRatioOurs);
BENCHMARK(northAngleOurs);
BENCHMARK(zoomCorrectionOurs);

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    TestWindow window;
    window.view.dpi = {}; // asks the screen, as real views do
    window.view.show();
    return ratio::run(argc, argv);
}
