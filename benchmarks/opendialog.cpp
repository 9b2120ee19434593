// SPDX-License-Identifier: GPL-2.0-or-later
// The plan dialog as its user waits for it: a large plan from file to screen, and from the last key
// of a filter to the painted list. KELO_BENCH_PLANS names a folder with own.dxf, KELO_BENCH_SHEETS
// how many sheets it has.
#include "benchmarks/ratio.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/DxfToolsDialog.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Each sheet has a block of its own.
QString planPath()
{
    return qEnvironmentVariable("KELO_BENCH_PLANS") + u"/own.dxf"_s;
}

/// Never 0, so that a plan that is not there is noticed.
int sheetsOfPlan()
{
    return std::max(1, qEnvironmentVariableIntValue("KELO_BENCH_SHEETS"));
}

/// A dialog that forgets everything.
class Dialog
{
public:
    QTemporaryDir folder;
    QSettings store{folder.filePath(u"store.ini"_s), QSettings::IniFormat};
    DxfToolsDialog dialog{nullptr, &store};
    QLabel *counter = dialog.findChild<QLabel *>(u"lblCounter"_s);
};

void openDialogOurs(benchmark::State &state)
{
    for (auto _ : state) {
        Dialog opened;
        opened.dialog.show();
        opened.dialog.ReadFile(planPath());
        QApplication::processEvents(); // paints
        if (opened.counter->text() != QLocale().toString(sheetsOfPlan()))
            state.SkipWithError("not the sheets that were expected");
    }
}

void openDialogPeer(benchmark::State &state)
{
    for (auto _ : state)
        if (ReadDxfFile(planPath()).drawing.Inserts().size() !=
            static_cast<std::size_t>(sheetsOfPlan()))
            state.SkipWithError("not the sheets that were expected");
}

/// The last letter of a value is typed and taken away in turn.
void keyToList(benchmark::State &state)
{
    Dialog opened;
    opened.dialog.show();
    opened.dialog.ReadFile(planPath());
    opened.dialog.findChild<QGroupBox *>(u"grpInclude"_s)->setChecked(true);
    opened.dialog.findChild<QLineEdit *>(u"edtIncludeTag"_s)->setText(u"MASSSTAB"_s);
    auto *value = opened.dialog.findChild<QLineEdit *>(u"edtIncludeValue"_s);
    bool isWhole = false;
    for (auto _ : state) {
        isWhole = !isWhole;
        value->setText(isWhole ? u"1:1000"_s : u"1:100"_s);
        QApplication::sendPostedEvents(); // paints, but lets no timer run
        if (opened.counter->text() != QLocale().toString(isWhole ? sheetsOfPlan() : 0))
            state.SkipWithError("not the sheets that were expected");
    }
}

/// All sheets are selected and none, in turn.
void selectAll(benchmark::State &state)
{
    Dialog opened;
    opened.dialog.show();
    opened.dialog.ReadFile(planPath());
    auto *list = opened.dialog.findChild<QTableView *>(u"sheetList"_s);
    bool selects = false;
    for (auto _ : state) {
        selects = !selects;
        if (selects)
            list->selectAll();
        else
            list->clearSelection();
        QApplication::sendPostedEvents(); // paints
        if (list->selectionModel()->hasSelection() != selects)
            state.SkipWithError("not the sheets that were expected");
    }
}

/// From the pause after a key to the findings, and the longest time that a key would have to wait
/// meanwhile.
void review(benchmark::State &state)
{
    Dialog opened;
    opened.dialog.show();
    opened.dialog.ReadFile(planPath());
    auto *group = opened.dialog.findChild<QGroupBox *>(u"grpExclude"_s);
    auto *findings = opened.dialog.findChild<QListView *>(u"findingList"_s)->model();
    qint64 longest = 0;
    for (auto _ : state) {
        bool isDone = false;
        const auto connection = QObject::connect(findings, &QAbstractItemModel::modelReset,
                                                 [&isDone] { isDone = true; });
        group->setChecked(!group->isChecked());
        QApplication::sendPostedEvents();
        QTimer beat;
        QElapsedTimer sinceBeat;
        sinceBeat.start();
        QObject::connect(&beat, &QTimer::timeout,
                         [&] { longest = std::max(longest, sinceBeat.restart()); });
        beat.start(0);
        while (!isDone)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, sinceBeat.elapsed());
        QObject::disconnect(connection);
    }
    state.counters["longest_ms"] = static_cast<double>(longest);
}

} // namespace

BENCHMARK(openDialogOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(openDialogPeer)->Unit(benchmark::kMillisecond);
BENCHMARK(keyToList)->Unit(benchmark::kMillisecond);
BENCHMARK(selectAll)->Unit(benchmark::kMillisecond);
BENCHMARK(review)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return ratio::run(argc, argv);
}
