// SPDX-License-Identifier: GPL-2.0-or-later
// The configuration dialog over 10,000 functions: until it is painted, a key in its filter, the
// search for conflicts, and its memory; beside a tree widget, and a filter model over items.
#include "actions/configuration/actioncatalogue_p.h"
#include "actions/configuration/keyowners_p.h"
#include "benchmarks/ratio.h"
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigDialog.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <malloc.h>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace menuconfig;

namespace {

constexpr int kFunctions = 10'000;
constexpr int kCategories = 40;

QString textOf(int id)
{
    return u"Function %1 of the plan"_s.arg(id);
}

QString categoryOf(int id)
{
    return u"Category %1"_s.arg(id % kCategories);
}

/// Two strokes that no other function has; every hundredth has the first of these alone, which
/// begins those of others.
QKeySequence keysOf(int id)
{
    constexpr Qt::KeyboardModifiers kModifiers[] = {
        Qt::ControlModifier, Qt::ControlModifier | Qt::ShiftModifier, Qt::AltModifier,
        Qt::ControlModifier | Qt::AltModifier};
    const auto stroke = [&](int number) {
        return QKeyCombination(kModifiers[number / 26 % 4], Qt::Key(Qt::Key_A + number % 26));
    };
    return id % 100 == 0 ? QKeySequence(stroke(id / 104))
                         : QKeySequence(stroke(id / 104), stroke(id % 104));
}

/// Functions with their shortcuts, as a program registers them.
struct Program
{
    explicit Program(int count)
    {
        actions.reserve(static_cast<std::size_t>(count));
        for (int id = 0; id < count; ++id) {
            actions.push_back(std::make_unique<QAction>(textOf(id)));
            actions.back()->setShortcut(keysOf(id));
            registry.RegisterAction(
                id, MakeActionData(id, id % kCategories, 0, actions.back().get(), false, 0));
        }
        for (int category = 0; category < kCategories; ++category)
            registry.SetCategoryDescription(category, categoryOf(category));
        manager.SetSettings(&store);
        manager.SetUpActions(registry);
    }

    QTemporaryDir folder;
    QSettings store{folder.filePath(u"store.ini"_s), QSettings::IniFormat};
    ActionManager registry;
    std::vector<std::unique_ptr<QAction>> actions;
    MenuConfigManager manager;
};

/// Lets the application work until the tree was painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(const QTreeView &tree) { tree.viewport()->installEventFilter(this); }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        m_isPainted |= event->type() == QEvent::Paint;
        return false;
    }
    /// False when that does not come.
    [[nodiscard]] bool wait()
    {
        for (int i = 0; i < 1000 && !m_isPainted; ++i)
            QCoreApplication::processEvents();
        return std::exchange(m_isPainted, false);
    }

private:
    bool m_isPainted = false;
};

/// The dialog, and what a user sees and types in.
struct Ours
{
    explicit Ours(Program &program) : dialog(program.manager, program.registry) {}

    MenuConfigDialog dialog;
    QTreeView *tree = dialog.findChild<QTreeView *>(u"treeShortcuts"_s);
    QLineEdit *filter = dialog.findChild<QLineEdit *>(u"edtFilter"_s);
};

/// The same columns of text in the toolkit's own tree of items.
struct TreeOfItems
{
    explicit TreeOfItems(const Program &program)
    {
        (new QVBoxLayout(&dialog))->addWidget(tree);
        dialog.resize(980, 640);
        tree->setUniformRowHeights(true);
        tree->setHeaderLabels({u"Function"_s, u"Shortcut"_s, u"Default"_s, u"Offered"_s});
        QList<QTreeWidgetItem *> categories;
        for (int category = 0; category < kCategories; ++category)
            categories << new QTreeWidgetItem({categoryOf(category)});
        for (const auto &[id, data] : program.registry.GetActions()) {
            const QString keys = data->action->shortcut().toString(QKeySequence::NativeText);
            categories[data->category]->addChild(
                new QTreeWidgetItem({data->action->text(), keys, keys, u"everywhere"_s}));
        }
        tree->addTopLevelItems(categories);
        tree->expandAll();
    }

    QDialog dialog;
    QTreeWidget *tree = new QTreeWidget;
};

/// A field that filters a model of items.
struct FilteredItems
{
    explicit FilteredItems(const Program &program)
    {
        std::vector<QStandardItem *> categories;
        categories.reserve(kCategories);
        for (int category = 0; category < kCategories; ++category) {
            categories.push_back(new QStandardItem(categoryOf(category)));
            items.appendRow(categories.back());
        }
        for (const auto &[id, data] : program.registry.GetActions()) {
            const QString keys = data->action->shortcut().toString(QKeySequence::NativeText);
            categories[static_cast<std::size_t>(data->category)]->appendRow(
                {new QStandardItem(data->action->text()), new QStandardItem(keys),
                 new QStandardItem(keys), new QStandardItem(u"everywhere"_s)});
        }
        proxy.setRecursiveFilteringEnabled(true);
        proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
        proxy.setFilterKeyColumn(-1);
        proxy.setSourceModel(&items);
        tree->setUniformRowHeights(true);
        tree->setModel(&proxy);
        tree->expandAll();
        auto *rows = new QVBoxLayout(&dialog);
        rows->addWidget(filter);
        rows->addWidget(tree);
        dialog.resize(980, 640);
        QObject::connect(filter, &QLineEdit::textChanged, &dialog, [this](const QString &text) {
            proxy.setFilterFixedString(text);
            tree->expandAll();
        });
    }

    QStandardItemModel items;
    QSortFilterProxyModel proxy;
    QDialog dialog;
    QLineEdit *filter = new QLineEdit;
    QTreeView *tree = new QTreeView;
};

int rowsOf(const QTreeView &tree)
{
    int rows = 0;
    for (int row = 0; row < tree.model()->rowCount(); ++row)
        rows += tree.model()->rowCount(tree.model()->index(row, 0));
    return rows;
}

double heap()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Also tells what a dialog of all functions holds, in MB, beyond one of none.
template <typename Dialog>
void open(benchmark::State &state)
{
    const auto openedHeap = [&](auto &program) {
        const double before = heap();
        Dialog opened(program);
        PaintWatch watch(*opened.tree);
        opened.dialog.show();
        if (!watch.wait())
            state.SkipWithError("not painted");
        return heap() - before;
    };
    Program none(0);
    Program all(kFunctions);
    openedHeap(all); // fonts and the like are loaded once
    state.counters["MB"] = (openedHeap(all) - openedHeap(none)) / (1024 * 1024);
    for (auto _ : state) {
        auto opened = std::make_unique<Dialog>(all);
        PaintWatch watch(*opened->tree);
        opened->dialog.show();
        if (!watch.wait() || rowsOf(*opened->tree) != kFunctions)
            state.SkipWithError("not the rows that were expected");
        state.PauseTiming();
        opened.reset();
        state.ResumeTiming();
    }
}

/// A 7 is typed behind @p start, which leaves @p rows, and taken away in turn.
template <typename Dialog>
void filterKey(benchmark::State &state, const char *start, int rows)
{
    Program program(kFunctions);
    Dialog opened(program);
    PaintWatch watch(*opened.tree);
    opened.dialog.show();
    opened.filter->setFocus();
    const auto press = [&](Qt::Key key, const QString &text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(opened.filter, &event);
        return watch.wait();
    };
    bool isAsExpected = watch.wait();
    for (const QChar letter : QString::fromLatin1(start))
        isAsExpected &= press(Qt::Key_unknown, letter);
    bool isTyped = false;
    for (auto _ : state) {
        isTyped = !isTyped;
        isAsExpected &= isTyped ? press(Qt::Key_7, u"7"_s) : press(Qt::Key_Backspace, QString());
        isAsExpected &= (rowsOf(*opened.tree) == rows) == isTyped;
    }
    if (!isAsExpected)
        state.SkipWithError("not the rows that were expected");
}

void openOurs(benchmark::State &state)
{
    open<Ours>(state);
}
void openPeer(benchmark::State &state)
{
    open<TreeOfItems>(state);
}

template <typename... Arguments>
void filterKeyOurs(benchmark::State &state, Arguments... arguments)
{
    filterKey<Ours>(state, arguments...);
}
template <typename... Arguments>
void filterKeyPeer(benchmark::State &state, Arguments... arguments)
{
    filterKey<FilteredItems>(state, arguments...);
}

enum Spread : int {
    Distinct, ///< each has its own keys, or the beginning of others'
    OneKey,   ///< all have the same keys, in contexts that nobody shares
};

struct Keys
{
    Keys(int count, Spread spread)
    {
        std::vector<ActionInfo> infos;
        infos.reserve(static_cast<std::size_t>(count));
        for (int id = 0; id < count; ++id) {
            const int group = 1 << (id % 16);
            const int sub = 1 << (id / 16 % 16);
            const auto mode = static_cast<int>(1U << (id / 256 % 32));
            infos.push_back({id, id % kCategories,
                             spread == OneKey ? Contexts::of(group << 16 | sub, mode) : Contexts(),
                             textOf(id)});
            shortcuts.AssignKeySequence(id,
                                        spread == OneKey ? QKeySequence(Qt::Key_F5) : keysOf(id));
        }
        catalogue = ActionCatalogue(std::move(infos), {});
    }

    ActionCatalogue catalogue;
    ActionShortCutList shortcuts;
};

/// From nothing, as after each edit.
void conflictsOurs(benchmark::State &state)
{
    const Keys keys(static_cast<int>(state.range(0)), static_cast<Spread>(state.range(1)));
    for (auto _ : state) {
        const KeyOwners owners(keys.catalogue, keys.shortcuts, keys.shortcuts, {}, {});
        benchmark::DoNotOptimize(owners.actionsInConflict());
    }
}

/// Finds the same keys alone, no beginnings, and knows no contexts.
void conflictsPeer(benchmark::State &state)
{
    const Keys keys(static_cast<int>(state.range(0)), static_cast<Spread>(state.range(1)));
    for (auto _ : state) {
        QHash<QKeySequence, QList<int>> owners;
        for (const ActionInfo &info : keys.catalogue.actions())
            owners[keys.shortcuts.GetSequenceById(info.id)].append(info.id);
        std::vector<int> ids;
        for (const QList<int> &sharers : std::as_const(owners)) {
            if (sharers.size() > 1)
                ids.insert(ids.end(), sharers.begin(), sharers.end());
        }
        std::sort(ids.begin(), ids.end());
        benchmark::DoNotOptimize(ids);
    }
}

} // namespace

BENCHMARK(openOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(openPeer)->Unit(benchmark::kMillisecond);
// How many of the numbers below 10,000 have a 7, and three in a row.
BENCHMARK_CAPTURE(filterKeyOurs, first, "", 3'439)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterKeyPeer, first, "", 3'439)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterKeyOurs, third, "77", 19)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterKeyPeer, third, "77", 19)->Unit(benchmark::kMillisecond);
BENCHMARK(conflictsOurs)
    ->ArgsProduct({{5'000, 10'000}, {Distinct, OneKey}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(conflictsPeer)
    ->ArgsProduct({{5'000, 10'000}, {Distinct, OneKey}})
    ->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return ratio::run(argc, argv);
}
