// SPDX-License-Identifier: GPL-2.0-or-later
// The way of one plan: read, analyse, compare, write, draw.
#pragma once

#include "options.h"
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetComparison.h>
#include <memory>
#include <optional>
#include <vector>

class ProgressBar;

struct Failure
{
    qint64 line = 0; ///< 0: none
    QString message;
};

/// The sheets beside those of an older file.
struct Comparison
{
    std::vector<Gk2Record> older;
    std::vector<Gk2Record> newer;
    std::vector<quint32> written; ///< the sheets of the newer ones
    std::vector<SheetChange> changes;
};

/// What became of one plan.
struct Conversion
{
    QString plan;
    std::unique_ptr<PlanSession> session; ///< null when it could not be read
    std::optional<Comparison> comparison;
    QString output; ///< where the sheets were written; empty when they were not
    qint64 written = 0;
    std::optional<Failure> failure;

    [[nodiscard]] qint64 warnings() const { return session ? session->Warnings() : 0; }
    [[nodiscard]] qint64 skipped() const { return session ? session->Analysis().skipped : 0; }
    [[nodiscard]] bool hasChanges() const { return comparison && !comparison->changes.empty(); }
};

/// Converts one plan as the options say; lists are left to the caller.
Conversion convert(const Options &options, const QString &plan, ProgressBar &bar);
