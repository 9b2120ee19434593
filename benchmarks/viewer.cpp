// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer: frames while a large plan is moved and turned, memory, opening, and its start.
//
// Run again by itself as "bench_viewer --start window" and "--start viewer", it ends with the first
// paint. In memory, unless QT_QPA_PLATFORM names a window system.
#include "Viewer.h"
#include "Backdrop.h"
#include "BackdropReader.h"
#include "CommandLine.h"
#include "Plan.h"
#include "PlanView.h"
#include "ScenePainting.h"
#include "benchmarks/ratio.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/PlanSession.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kEast = 4'468'211;
constexpr double kNorth = 5'318'402;

/// A plan of sheets side by side, 600 x 420 m each, with short lines all over it.
QString writePlan(const QTemporaryDir &folder, int sheets, int lines)
{
    const QString path = folder.filePath(u"plan%1.dxf"_s.arg(sheets));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    const int columns = static_cast<int>(std::ceil(std::sqrt(sheets)));
    const auto number = [](double value) { return QByteArray::number(value, 'f', 3); };
    file.write("0\nSECTION\n2\nBLOCKS\n");
    for (int i = 0; i < sheets; ++i) {
        const double x = kEast + i % columns * 600.0;
        const int row = i / columns;
        const double y = kNorth + row * 420.0;
        QByteArray block = "0\nBLOCK\n2\nB" + QByteArray::number(i) +
                           "\n70\n0\n10\n0\n20\n0\n0\nLWPOLYLINE\n90\n4\n70\n1\n";
        for (const QPointF corner :
             {QPointF(x, y), QPointF(x + 600, y), QPointF(x + 600, y + 420), QPointF(x, y + 420)})
            block += "10\n" + number(corner.x()) + "\n20\n" + number(corner.y()) + '\n';
        file.write(block + "0\nENDBLK\n");
    }
    file.write("0\nENDSEC\n0\nSECTION\n2\nENTITIES\n");
    for (int i = 0; i < sheets; ++i)
        file.write("0\nINSERT\n66\n1\n2\nB" + QByteArray::number(i) +
                   "\n10\n0\n20\n0\n0\nATTRIB\n1\n" + QByteArray::number(i + 1) +
                   "\n2\nBL_NR\n0\nSEQEND\n");
    QRandomGenerator random(19);
    const double width = columns * 600.0;
    const double height = columns * 420.0;
    for (int i = 0; i < lines; ++i) {
        const double x = kEast + random.generateDouble() * width;
        const double y = kNorth + random.generateDouble() * height;
        const double toX = x + (random.generateDouble() - 0.5) * 240;
        const double toY = y + (random.generateDouble() - 0.5) * 240;
        file.write("0\nLINE\n8\n0\n10\n" + number(x) + "\n20\n" + number(y) + "\n11\n" +
                   number(toX) + "\n21\n" + number(toY) + '\n');
    }
    file.write("0\nENDSEC\n0\nEOF\n");
    return path;
}

double residentMegabytes()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ')[1].toDouble() / 1024;
    return 0;
}

/// The plan in a view of 1920 x 1080, all read and painted.
struct Shown
{
    Shown(int sheets, int lines)
        : path(writePlan(folder, sheets, lines)), plan(PlanSession::Open(path).session), view(plan)
    {
        view.resize(1920, 1080);
        view.show();
        plan.readBackdrop();
        while (plan.backdropReader())
            QCoreApplication::processEvents();
        if (static_cast<int>(plan.backdrop().lineCount()) != lines)
            std::abort();
        settle();
    }
    void settle()
    {
        view.completePicture();
        QElapsedTimer time;
        for (time.start(); time.elapsed() < 300;)
            QCoreApplication::processEvents();
    }
    /// What the user waits for: the step, its paint, and whatever comes before the next event.
    void frame(const ViewPose &pose)
    {
        view.moveTo(pose);
        view.repaint();
        QCoreApplication::processEvents();
    }

    QTemporaryDir folder;
    QString path;
    Plan plan;
    PlanView view;
};

Shown &largePlan()
{
    static auto *shown = new Shown(10'000, 300'000); // dies with the process, before no application
    return *shown;
}

/// One in twenty takes longer.
double percentile95(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() * 95 / 100];
}

/// A frame each iteration, and how slow one in twenty is: by the clock, and in processor time,
/// which others on the machine hardly change.
template <typename Step>
void runFrames(benchmark::State &state, Step step)
{
    Shown &shown = largePlan();
    shown.view.place(shown.view.wholePlan());
    shown.view.place(shown.view.pose().zoomed(1 / static_cast<double>(state.range(0)),
                                              shown.view.middle(), shown.view.size()));
    shown.settle();
    std::vector<double> times;
    std::vector<double> busyTimes;
    int number = 0;
    for (auto _ : state) {
        const ViewPose pose = step(shown.view, number++);
        const std::clock_t busy = std::clock();
        QElapsedTimer time;
        time.start();
        shown.frame(pose);
        times.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6);
        busyTimes.push_back(static_cast<double>(std::clock() - busy) * 1e3 / CLOCKS_PER_SEC);
    }
    state.counters["p95_ms"] = percentile95(times);
    state.counters["p95_cpu_ms"] = percentile95(busyTimes);
    state.counters["worst_ms"] = std::ranges::max(times);
    shown.settle();
}

void panOurs(benchmark::State &state)
{
    runFrames(state, [](const PlanView &view, int number) {
        const double way = number / 60 % 2 == 0 ? 14 : -14; // there and back
        return view.pose().moved({way, way / 2});
    });
}
BENCHMARK(panOurs)->Arg(1)->Arg(8)->Iterations(300)->Unit(benchmark::kMillisecond);

void turnOurs(benchmark::State &state)
{
    runFrames(state, [](const PlanView &view, int) {
        return view.pose().turned(1.5, view.middle(), view.size());
    });
}
BENCHMARK(turnOurs)->Arg(1)->Arg(8)->Iterations(300)->Unit(benchmark::kMillisecond);

void zoomOurs(benchmark::State &state)
{
    runFrames(state, [](const PlanView &view, int number) {
        return view.pose().zoomed(number / 30 % 2 == 0 ? 0.95 : 1 / 0.95, {500, 300}, view.size());
    });
}
BENCHMARK(zoomOurs)->Arg(1)->Arg(8)->Iterations(300)->Unit(benchmark::kMillisecond);

/// The same frame without tiles: what is seen is painted each time.
void paintAll(benchmark::State &state, double degrees)
{
    Shown &shown = largePlan();
    ViewPose pose = shown.view.wholePlan();
    const QSize size = shown.view.size();
    pose = pose.zoomed(1 / static_cast<double>(state.range(0)), shown.view.middle(), size);
    const SceneColors colors = SceneColors::of(shown.view.palette());
    for (auto _ : state) {
        pose = pose.turned(degrees, shown.view.middle(), size);
        ScenePainting painting(shown.plan.scene(), colors, pose.transform(size), size, 1);
        if (!painting.paint(QDeadlineTimer(QDeadlineTimer::Forever)))
            std::abort();
        benchmark::DoNotOptimize(painting.takeImage());
    }
}
void panPeer(benchmark::State &state)
{
    paintAll(state, 0);
}
BENCHMARK(panPeer)->Arg(1)->Arg(8)->Iterations(10)->Unit(benchmark::kMillisecond);
void turnPeer(benchmark::State &state)
{
    paintAll(state, 1.5);
}
BENCHMARK(turnPeer)->Arg(1)->Arg(8)->Iterations(10)->Unit(benchmark::kMillisecond);

/// All that the process holds, while the plan above is shown.
void memory(benchmark::State &state)
{
    const Shown &shown = largePlan();
    for (auto _ : state)
        benchmark::DoNotOptimize(shown.view.pictures().bytes());
    state.counters["resident_MB"] = residentMegabytes();
    state.counters["allowed_MB"] = 60 + (10'000 * 300.0 + 300'000 * 40.0) / 1'048'576;
    state.counters["backdrop_MB"] = static_cast<double>(shown.plan.backdrop().bytes()) / 1'048'576;
    state.counters["pictures_MB"] = static_cast<double>(shown.view.pictures().bytes()) / 1'048'576;
}
BENCHMARK(memory)->Iterations(1);

const QString &manySheets()
{
    static auto *folder = new QTemporaryDir;
    static const QString path = writePlan(*folder, 100'000, 0);
    return path;
}

/// From the file to the painted sheets, beside the reader alone.
void openOurs(benchmark::State &state)
{
    const QString &path = manySheets();
    for (auto _ : state) {
        Plan plan(PlanSession::Open(path).session);
        PlanView view(plan);
        view.resize(1920, 1080);
        view.show();
        view.completePicture();
        view.repaint();
    }
}
BENCHMARK(openOurs)->Iterations(3)->Unit(benchmark::kMillisecond);
void openPeer(benchmark::State &state)
{
    const QString &path = manySheets();
    for (auto _ : state)
        if (!PlanSession::Open(path))
            std::abort();
}
BENCHMARK(openPeer)->Iterations(3)->Unit(benchmark::kMillisecond);

void startProcess(benchmark::State &state, const char *what)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home.path());
    for (auto _ : state) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QCoreApplication::applicationFilePath(),
                      {u"--start"_s, QString::fromLatin1(what)});
        if (!process.waitForFinished() || process.exitCode() != 0)
            std::abort();
    }
}
void startOurs(benchmark::State &state)
{
    startProcess(state, "viewer");
}
BENCHMARK(startOurs)->Iterations(10)->Unit(benchmark::kMillisecond)->UseRealTime();
void startPeer(benchmark::State &state)
{
    startProcess(state, "window");
}
BENCHMARK(startPeer)->Iterations(10)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Ends the process at the first paint of a plan's view, or of a window.
class EndAtPaint : public QObject
{
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && (qobject_cast<PlanView *>(object) || m_isAny)) {
            event->ignore();
            std::_Exit(0);
        }
        return false;
    }

public:
    explicit EndAtPaint(bool isAny) : m_isAny(isAny) {}

private:
    bool m_isAny;
};

int start(QApplication &app, bool isViewer)
{
    EndAtPaint end(!isViewer);
    app.installEventFilter(&end);
    QMainWindow window;
    if (isViewer)
        return Viewer(CommandLine()).run();
    window.resize(1280, 800);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setOrganizationName(u"kelo"_s);
    QApplication::setApplicationName(u"viewer-benchmark"_s);
    if (argc == 3 && std::strcmp(argv[1], "--start") == 0)
        return start(app, std::strcmp(argv[2], "viewer") == 0);
    return ratio::run(argc, argv);
}
