// SPDX-License-Identifier: GPL-2.0-or-later
// The plan dialog over a plan of 100,000 sheets: from the last key of a filter to the new list.
#include "benchmarks/ratio.h"
#include "dxf/read/drawingbuilder_p.h"
#include "dxf/sheets/filterplan_p.h"
#include "dxf/workbench/attributecompletion_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include <QRandomGenerator>
#include <algorithm>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kSheets = 100'000;

std::string valueText(int number)
{
    const char region = static_cast<char>('A' + number % 7);
    return std::string("Blatt ") + region + std::to_string(number);
}

/// Sheets with a block of their own, in the file in no order, half of them of the type "main".
DxfDrawing makePlan()
{
    std::vector<int> numbers(kSheets);
    std::iota(numbers.begin(), numbers.end(), 0);
    QRandomGenerator random(1);
    std::shuffle(numbers.begin(), numbers.end(), random);
    DxfDrawingBuilder plan;
    plan.setVersion("AC1015");
    for (const int number : numbers) {
        const std::string name = "SHEET" + std::to_string(number);
        plan.beginBlock(name, 1);
        plan.beginPolyline(true);
        for (const auto &[x, y] : {std::pair(0, 0), {800, 0}, {800, 500}, {0, 500}})
            plan.addVertex({x + number * 1000.0, static_cast<double>(y)});
        plan.endBlock();
        plan.beginInsert(name, 2);
        plan.addAttribute("TITLE", "Street plan");
        plan.addAttribute("BL_NR", valueText(number));
        plan.addAttribute("TYP", number % 2 == 0 ? "main" : "side");
        plan.endInsert();
    }
    DxfDrawing drawing = plan.take();
    LabelSheets(drawing, CornerOrder::Upright);
    return drawing;
}

DxfDrawing &plan()
{
    static DxfDrawing drawing = makePlan();
    return drawing;
}

/// All and half of the sheets in turn, as when the last letter of a value is typed.
void refilter(benchmark::State &state, int column)
{
    SheetTableModel model;
    model.setDrawing(&plan());
    model.setSheets(*SelectSheets(plan(), {}));
    model.sort(column);
    FilterFields fields{
        .includes = true, .includeTag = u"TYP"_s, .includeValue = u"main"_s, .excludeTag = {}};
    for (auto _ : state) {
        fields.includes = !fields.includes;
        model.setSheets(*SelectSheets(plan(), dxftools::filterOf(fields)));
        const int expected = fields.includes ? kSheets / 2 : kSheets;
        if (model.rowCount() != expected || model.markedCount() != expected)
            state.SkipWithError("not the sheets that were expected");
    }
}

/// A value that no sheet has, and the reason for the empty list.
void refilterToNothing(benchmark::State &state)
{
    const FilterFields fields{
        .includes = true, .includeTag = u"BL_NR"_s, .includeValue = u"B"_s, .excludeTag = {}};
    SheetTableModel model;
    model.setDrawing(&plan());
    for (auto _ : state) {
        model.setSheets(*SelectSheets(plan(), dxftools::filterOf(fields)));
        if (model.rowCount() != 0 ||
            dxftools::whyNoSheets(plan(), dxftools::filterOf(fields)).isEmpty())
            state.SkipWithError("not the sheets that were expected");
    }
}

void sortBy(benchmark::State &state, int column)
{
    SheetTableModel model;
    model.setDrawing(&plan());
    model.setSheets(*SelectSheets(plan(), {}));
    for (auto _ : state) {
        model.sort(-1);
        model.sort(column);
    }
}

void offerTags(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(dxftools::offerTags(plan()));
}

void offerValues(benchmark::State &state, const char *tag)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(dxftools::offerValues(plan(), QString::fromLatin1(tag)));
}

} // namespace

BENCHMARK_CAPTURE(refilter, unsorted, -1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(refilter, byValue, SheetTableModel::ValueColumn)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(refilter, byCorners, SheetTableModel::CornersColumn)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(refilterToNothing)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortBy, value, SheetTableModel::ValueColumn)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortBy, block, SheetTableModel::BlockColumn)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortBy, corners, SheetTableModel::CornersColumn)->Unit(benchmark::kMillisecond);
BENCHMARK(offerTags)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(offerValues, ofAType, "TYP")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(offerValues, allDifferent, "BL_NR")->Unit(benchmark::kMillisecond);

KELO_RATIO_MAIN()
