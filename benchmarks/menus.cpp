// SPDX-License-Identifier: GPL-2.0-or-later
// Eight functions as a pie and as a plain menu: until the first picture, a repaint, a hit.
#include "benchmarks/ratio.h"
#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTemporaryFile>
#include <cstdlib>
#include <kelo_base/menus/QtPieMenu.h>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kItems = 8;
constexpr int kOuterRadius = 150;

/// Two screens side by side, the second with two pixels for one.
constexpr const char *kScreens =
    R"({"screens": [{"name": "1x", "x": 0, "y": 0, "width": 1000, "height": 1000},
                    {"name": "2x", "x": 1000, "y": 0, "width": 1000, "height": 1000, "dpr": 2}]})";

QIcon icon()
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::darkGreen);
    return QIcon(pixmap);
}

QString text(int i)
{
    return u"Function &%1"_s.arg(i + 1);
}

std::unique_ptr<QtPieMenu> newPie()
{
    auto menu = std::make_unique<QtPieMenu>(40, kOuterRadius);
    for (int i = 0; i < kItems; ++i)
        menu->insertItem(icon(), text(i));
    menu->setGrowing(true);
    return menu;
}

std::unique_ptr<QMenu> newPlain()
{
    auto menu = std::make_unique<QMenu>();
    for (int i = 0; i < kItems; ++i)
        menu->addAction(icon(), text(i));
    return menu;
}

/// Notes that the widget was painted, and that without anything left to paint.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) : m_widget(widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_isPainted |= event->type() == QEvent::Paint;
        return false;
    }
    void wait()
    {
        for (int i = 0; i < 1000 && !m_isPainted; ++i)
            QCoreApplication::processEvents();
        if (!m_isPainted || !m_widget.isVisible())
            std::abort();
        m_isPainted = false;
    }

private:
    QWidget &m_widget;
    bool m_isPainted = false;
};

QPoint middleOf(int screen)
{
    return QGuiApplication::screens().at(screen)->geometry().center();
}

/// Pops up again and again, with a menu made anew each time when the argument is 1.
template <typename NewMenu>
void popUp(benchmark::State &state, NewMenu newMenu)
{
    auto menu = newMenu();
    auto watch = std::make_unique<PaintWatch>(*menu);
    for (auto _ : state) {
        state.PauseTiming();
        menu->hide();
        if (state.range(0) == 1) {
            menu = newMenu();
            watch = std::make_unique<PaintWatch>(*menu);
        }
        QCoreApplication::processEvents();
        state.ResumeTiming();
        menu->popup(middleOf(0));
        watch->wait();
    }
}

void popUpOurs(benchmark::State &state)
{
    popUp(state, newPie);
}
BENCHMARK(popUpOurs)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void popUpPeer(benchmark::State &state)
{
    popUp(state, newPlain);
}
BENCHMARK(popUpPeer)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The highlight goes around, on the screen with so many pixels for one.
void highlightOurs(benchmark::State &state)
{
    const auto menu = newPie();
    menu->popup(middleOf(static_cast<int>(state.range(0)) - 1));
    PaintWatch watch(*menu);
    watch.wait();
    if (menu->devicePixelRatio() != static_cast<int>(state.range(0)))
        std::abort();
    menu->setHighlightedItem(0);
    watch.wait();
    for (auto _ : state) {
        menu->setHighlightedItem((menu->highlightedItem() + 1) % kItems);
        watch.wait();
    }
}
BENCHMARK(highlightOurs)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void highlightPeer(benchmark::State &state)
{
    const auto menu = newPlain();
    menu->popup(middleOf(static_cast<int>(state.range(0)) - 1));
    PaintWatch watch(*menu);
    watch.wait();
    for (qsizetype next = 0; auto _ : state) {
        menu->setActiveAction(menu->actions().at(next++ % kItems));
        watch.wait();
    }
}
BENCHMARK(highlightPeer)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void hitOurs(benchmark::State &state)
{
    const auto menu = newPie();
    const int edge = menu->sizeHint().width();
    for (int i = 0; auto _ : state) {
        i = (i + 7919) % (edge * edge);
        benchmark::DoNotOptimize(menu->indexAt(QPoint(i % edge, i / edge)));
    }
}
BENCHMARK(hitOurs);

void hitPeer(benchmark::State &state)
{
    const auto menu = newPlain();
    menu->popup(middleOf(0));
    const QSize size = menu->size();
    for (int i = 0; auto _ : state) {
        i = (i + 7919) % (size.width() * size.height());
        benchmark::DoNotOptimize(menu->actionAt(QPoint(i % size.width(), i / size.width())));
    }
}
BENCHMARK(hitPeer);

} // namespace

int main(int argc, char **argv)
{
    QTemporaryFile screens;
    if (!screens.open() || screens.write(kScreens) < 0 || !screens.flush())
        return 1;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    const QApplication app(argc, argv);
    return ratio::run(argc, argv);
}
