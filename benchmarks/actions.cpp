// SPDX-License-Identifier: GPL-2.0-or-later
// Ten thousand registered functions: finding, filtering, and taking shortcuts from a file.
#include "benchmarks/ratio.h"
#include <QAction>
#include <QApplication>
#include <QHash>
#include <QTemporaryDir>
#include <algorithm>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/LayoutStorage.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <memory>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kActions = 10'000;

/// The ids in no order, as modules of a program register them.
std::vector<int> shuffledIds()
{
    std::vector<int> ids(kActions);
    for (int i = 0; i < kActions; ++i)
        ids[static_cast<std::size_t>(i)] = 100 + 7 * i;
    std::shuffle(ids.begin(), ids.end(), std::mt19937(1));
    return ids;
}

/// A sequence of three strokes, a different one for each number below 26 * 26 * 26.
QKeySequence sequenceOf(int number)
{
    const auto letter = [](int n) { return Qt::Key_A + n % 26; };
    return QKeySequence(letter(number), letter(number / 26), letter(number / 676));
}

struct Registry
{
    Registry()
    {
        for (const int id : shuffledIds()) {
            actions.push_back(std::make_unique<QAction>());
            const int context = (id % 3) << 16 | id % 5;
            manager.RegisterAction(MakeActionData(id, 0, context, actions.back().get(), false, 0));
        }
    }
    void dropShortcuts()
    {
        for (const auto &action : actions)
            action->setShortcut(QKeySequence());
    }
    std::vector<std::unique_ptr<QAction>> actions;
    ActionManager manager;
};

/// A file that holds a shortcut for each action.
struct StoredShortcuts
{
    StoredShortcuts()
    {
        ActionShortCutList list;
        for (const int id : shuffledIds())
            list.AssignKeySequence(id, sequenceOf(id / 7));
        QSettings settings(path, QSettings::IniFormat);
        WriteShortcutList(settings, "MenuConfig/Default", list);
    }
    QTemporaryDir dir;
    QString path = dir.filePath(u"layout.ini"_s);
};

/// Both must have given each action its sequence.
void check(benchmark::State &state, const Registry &registry)
{
    for (const auto &[id, data] : registry.manager.GetActions()) {
        if (data->action->shortcut() != sequenceOf(static_cast<int>(id) / 7) ||
            data->action->shortcutContext() != Qt::ApplicationShortcut)
            return state.SkipWithError("an action lacks its shortcut");
    }
}

void loadShortcutsOurs(benchmark::State &state)
{
    const StoredShortcuts stored;
    Registry registry;
    for (auto _ : state) {
        MenuConfigManager configuration;
        configuration.LoadFromFile(stored.path);
        SetupActionManagerFromKeyboardShortcutList(configuration.GetKeyboardShortcutList(),
                                                   registry.manager);
        state.PauseTiming();
        check(state, registry);
        registry.dropShortcuts();
        state.ResumeTiming();
    }
}

void loadShortcutsPeer(benchmark::State &state)
{
    const StoredShortcuts stored;
    Registry registry;
    QHash<int, QAction *> actions;
    for (const auto &[id, data] : registry.manager.GetActions())
        actions.insert(static_cast<int>(id), data->action);
    for (auto _ : state) {
        QSettings settings(stored.path, QSettings::IniFormat);
        settings.beginGroup(u"MenuConfig/Default/KeyboardShortcuts"_s);
        const int size = settings.beginReadArray(u"ShortcutList"_s);
        for (int i = 0; i < size; ++i) {
            settings.setArrayIndex(i);
            QAction *action = actions.value(settings.value(u"ActionId"_s).toInt());
            action->setShortcutContext(Qt::ApplicationShortcut);
            action->setShortcut(QKeySequence::fromString(
                settings.value(u"KeySequence"_s).toString(), QKeySequence::PortableText));
        }
        state.PauseTiming();
        check(state, registry);
        registry.dropShortcuts();
        state.ResumeTiming();
    }
}

/// One look-up per iteration, in no order.
void findActionDataById(benchmark::State &state)
{
    const Registry registry;
    std::vector<int> ids = shuffledIds();
    std::shuffle(ids.begin(), ids.end(), std::mt19937(2));
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(registry.manager.FindActionDataById(ids[next]));
        next = next + 1 == ids.size() ? 0 : next + 1;
    }
}

/// All records that a context offers.
void filterByContext(benchmark::State &state)
{
    const Registry registry;
    const std::unique_ptr<FunctionFilter> filter(MakeContextFunctionFilter(0x10000, 0x5, -1));
    std::size_t offered = 0;
    for (auto _ : state)
        offered = registry.manager.FindActionDataByFilter(*filter).size();
    state.counters["offered"] = static_cast<double>(offered);
}

BENCHMARK(loadShortcutsOurs)->Unit(benchmark::kMillisecond)->Repetitions(3);
BENCHMARK(loadShortcutsPeer)->Unit(benchmark::kMillisecond)->Repetitions(3);
BENCHMARK(findActionDataById);
BENCHMARK(filterByContext)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return ratio::run(argc, argv);
}
