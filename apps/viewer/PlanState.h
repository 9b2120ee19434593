// SPDX-License-Identifier: GPL-2.0-or-later
// What is remembered of a plan in the settings of its project.
#pragma once

#include "ViewPose.h"
#include <kelo_base/core/ObjectId.h>
#include <optional>

class QSettings;

struct PlanState
{
    ViewPose pose;
    bool isBackdropShown = true;
    bool isPlaced = false;
    friend bool operator==(const PlanState &, const PlanState &) = default;
};

/// The project of a plan: its folder.
[[nodiscard]] Tz::ObjectId projectOf(const QString &plan);

/// @param plan  its file; the name without folder is the key
void writePlanState(QSettings &project, const QString &plan, const PlanState &state);
/// Nothing when none was written, or numbers are none.
[[nodiscard]] std::optional<PlanState> readPlanState(QSettings &project, const QString &plan);
