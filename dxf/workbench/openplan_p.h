// SPDX-License-Identifier: GPL-2.0-or-later
// A plan that is read and analysed as a whole, or not at all.
#pragma once

#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <memory>

/// How the user wants a plan analysed.
struct AnalysisOptions
{
    SheetFilter filter;
    CornerOrder order = CornerOrder::Upright;
};

/// A plan with the sheets chosen from it.
struct OpenPlan
{
    QString path; ///< absolute
    DxfDrawing drawing;
    std::vector<Diagnostic> readFindings; ///< faults that did not hinder reading
    SheetAnalysis analysis;

    /// The name without its folder.
    [[nodiscard]] QString name() const;
    /// Those of reading, then those of the analysis.
    [[nodiscard]] std::vector<Diagnostic> findings() const;
    /// Labels the corners anew and reviews. False when memory does not suffice: the labels are
    /// then undefined.
    bool relabel(const AnalysisOptions &options);
    /// Chooses the sheets anew, but reviews nothing: analysis.diagnostics stay those of before.
    bool choose(const SheetFilter &filter);
    /// Chooses and reviews; takes several times as long as choosing.
    bool review(const SheetFilter &filter);
};

struct [[nodiscard]] PlanReading
{
    std::unique_ptr<OpenPlan> plan; ///< null when there is an error or it was cancelled
    std::optional<ReadError> error; ///< what the reader says
    bool hasAnalysisFailed = false;
    bool isCancelled = false;
};

/// What the two steps report to; either may give up.
struct PlanProgress
{
    ReadProgress reading;
    SheetProgress analyzing;
};

PlanReading ReadPlan(const QString &path, const AnalysisOptions &options,
                     const PlanProgress &progress);
