// SPDX-License-Identifier: GPL-2.0-or-later
// A plan that is read and analysed as a whole, or not at all.
#include "dxf/workbench/openplan_p.h"
#include <QFileInfo>
#include <new>

namespace {

/// Whether a work that takes memory came to its end.
template <typename Work>
bool attempt(Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc &) {
        return false;
    }
}

} // namespace

QString OpenPlan::name() const
{
    return QFileInfo(path).fileName();
}

std::vector<Diagnostic> OpenPlan::findings() const
{
    std::vector<Diagnostic> all = readFindings;
    all.insert(all.end(), analysis.diagnostics.begin(), analysis.diagnostics.end());
    return all;
}

bool OpenPlan::relabel(const AnalysisOptions &options)
{
    return attempt([&] { return LabelSheets(drawing, options.order); }) && review(options.filter);
}

bool OpenPlan::choose(const SheetFilter &filter)
{
    return attempt([&] {
        analysis.sheets = SelectSheets(drawing, filter).value();
        return true;
    });
}

bool OpenPlan::review(const SheetFilter &filter)
{
    return attempt([&] {
        analysis = ReviewSheets(drawing, filter, path).value();
        return true;
    });
}

PlanReading ReadPlan(const QString &path, const AnalysisOptions &options,
                     const PlanProgress &progress)
{
    PlanReading reading;
    DxfReadResult result = ReadDxfFile(path, progress.reading);
    reading.isCancelled = result.cancelled;
    reading.error = std::move(result.error);
    if (reading.error)
        return reading;
    auto plan = std::make_unique<OpenPlan>();
    plan->path = QFileInfo(path).absoluteFilePath();
    plan->drawing = std::move(result.drawing);
    plan->readFindings = std::move(result.diagnostics);
    reading.hasAnalysisFailed = !attempt([&] {
        auto analysis = AnalyzeSheets(plan->drawing, options.filter, options.order, plan->path,
                                      progress.analyzing);
        reading.isCancelled = !analysis;
        if (analysis)
            plan->analysis = *std::move(analysis);
        return true;
    });
    if (!reading.hasAnalysisFailed && !reading.isCancelled)
        reading.plan = std::move(plan);
    return reading;
}
