// SPDX-License-Identifier: GPL-2.0-or-later
// Fetches the numbers from the view and applies the formulas.
#include "navigation/viewmeasure_p.h"
#include "navigation/zoomcorrection_p.h"
#include <kelo_base/navigation/ViewGeometry.h>

using viewgeometry::Estimate;
using viewgeometry::limitedEye;

namespace {

unsigned int defaultFieldOfView = 50;
unsigned int defaultEyeToMonitorDistance = 60;

/// Hands the parts of an estimate to those who want them; returns the combined value.
double report(const Estimate &estimate, double *byFieldOfView, double *byEyeDistance,
              double *deviation)
{
    if (byFieldOfView)
        *byFieldOfView = estimate.byFieldOfView;
    if (byEyeDistance)
        *byEyeDistance = estimate.byEyeDistance;
    if (deviation)
        *deviation = estimate.deviation;
    return estimate.combined;
}

} // namespace

void SetDefaultFieldOfView(double degrees)
{
    defaultFieldOfView = viewgeometry::storedDefault(degrees);
}

void SetDefaultEyeToMonitorDistance(double centimetres)
{
    defaultEyeToMonitorDistance = viewgeometry::storedDefault(centimetres);
}

unsigned int DefaultFieldOfView()
{
    return defaultFieldOfView;
}

unsigned int DefaultEyeToMonitorDistance()
{
    return defaultEyeToMonitorDistance;
}

double EstimatedHeightAboveGroundLevel(QWidget *view, double fieldOfView,
                                       double eyeToMonitorDistance, double *heightByFieldOfView,
                                       double *heightByEyeDistance, double *deviation)
{
    Estimate estimate;
    if (const auto diagonals = viewgeometry::measuredDiagonals(view))
        estimate =
            viewgeometry::estimateHeight(*diagonals, limitedEye(fieldOfView, eyeToMonitorDistance));
    return report(estimate, heightByFieldOfView, heightByEyeDistance, deviation);
}

double EstimatedZoomRatioFromDesiredHeightAboveGroundLevel(
    QWidget *view, double fieldOfView, double eyeToMonitorDistance, double desiredHeight,
    double *ratioByFieldOfView, double *ratioByEyeDistance, double *deviation)
{
    Estimate estimate;
    if (const auto diagonals = viewgeometry::measuredDiagonals(view))
        estimate = viewgeometry::estimateZoomRatio(
            *diagonals, limitedEye(fieldOfView, eyeToMonitorDistance), desiredHeight);
    return report(estimate, ratioByFieldOfView, ratioByEyeDistance, deviation);
}

double EstimatedHeightAboveGroundLevelS(QWidget *view)
{
    return EstimatedHeightAboveGroundLevel(view, defaultFieldOfView, defaultEyeToMonitorDistance,
                                           nullptr, nullptr, nullptr);
}

double EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(QWidget *view, double desiredHeight)
{
    return EstimatedZoomRatioFromDesiredHeightAboveGroundLevel(
        view, defaultFieldOfView, defaultEyeToMonitorDistance, desiredHeight, nullptr, nullptr,
        nullptr);
}

double MapScale(QWidget *view)
{
    const auto diagonals = viewgeometry::measuredDiagonals(view);
    return diagonals ? viewgeometry::mapScale(*diagonals) : -1;
}

bool NorthAngle(QWidget *view, double &angle)
{
    angle = 0;
    const auto midline = viewgeometry::measuredMidline(view);
    const double computed = midline ? viewgeometry::northAngle(midline->map) : std::nan("");
    if (std::isnan(computed))
        return false;
    angle = computed;
    return true;
}

int GetZoomFactorCorrectionForScaleValue(double scaleA, double scaleB)
{
    static const zoomcorrection::Table table =
        zoomcorrection::loadTable(zoomcorrection::settingsFile());
    const bool isOneScale = scaleA == scaleB && scaleA != 0;
    return isOneScale ? zoomcorrection::factorFor(table, scaleA) : -1;
}
