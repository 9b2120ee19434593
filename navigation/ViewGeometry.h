// SPDX-License-Identifier: GPL-2.0-or-later
// From how high a view looks down, which zoom a height takes, and where north is.
#pragma once

#include <kelo_base/core/Export.h>

class QWidget;

// In all functions a null view means the primary view of the document window.

/// @name Viewing defaults of the process
/// Whole degrees (50 at first) and whole centimetres (60 at first). What is behind the point is
/// dropped, a negative value is stored as the very large one with the same 32 bits, no number as 0.
/// @{
KELO_BASE_EXPORT void SetDefaultFieldOfView(double degrees);
KELO_BASE_EXPORT void SetDefaultEyeToMonitorDistance(double centimetres);
[[nodiscard]] KELO_BASE_EXPORT unsigned int DefaultFieldOfView();
[[nodiscard]] KELO_BASE_EXPORT unsigned int DefaultEyeToMonitorDistance();
/// @}

/// Height above ground from which one would see what the view shows, in metres. Two ways lead to
/// it: the height from which an eye with that field of view takes in the area just so, and the
/// distance at which the map has the size it has on the screen for an eye before it.
/// @param fieldOfView            full opening angle in degrees; limited to 0.1 ... 179.9
/// @param eyeToMonitorDistance   centimetres; limited to 5 ... 800; as with the angle, what is no
///                               number counts as the lower limit
/// @param heightByFieldOfView    may be null, as the next two; receives the first height
/// @param heightByEyeDistance    receives the second height
/// @param deviation              receives half the distance of the pair from the result; 0 when
///                               that is not known
/// @return the geometric mean of both; -1, as either of them, when it cannot be computed: the view
///         does not tell what it shows, has no screen, or is a single pixel
KELO_BASE_EXPORT double EstimatedHeightAboveGroundLevel(QWidget *view, double fieldOfView,
                                                        double eyeToMonitorDistance,
                                                        double *heightByFieldOfView,
                                                        double *heightByEyeDistance,
                                                        double *deviation);

/// By how much a view has to show more for that height: 2 for twice the width and height.
/// @param desiredHeight  metres; 0, below, or no number: there is no ratio
/// All else is as with the height: two ways, their geometric mean, half the distance, -1 and 0.
KELO_BASE_EXPORT double EstimatedZoomRatioFromDesiredHeightAboveGroundLevel(
    QWidget *view, double fieldOfView, double eyeToMonitorDistance, double desiredHeight,
    double *ratioByFieldOfView, double *ratioByEyeDistance, double *deviation);

/// The same with the two defaults of the process.
[[nodiscard]] KELO_BASE_EXPORT double EstimatedHeightAboveGroundLevelS(QWidget *view);
[[nodiscard]] KELO_BASE_EXPORT double
EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(QWidget *view, double desiredHeight);

/// The denominator of the scale at which the map stands on the screen, by the screen's physical
/// resolution: 5000 for 1 : 5000. ZoomBy() with the ratio of a wished scale to it leads there.
/// @return -1 when it cannot be computed, as with the estimates
[[nodiscard]] KELO_BASE_EXPORT double MapScale(QWidget *view);

/// The direction, counter-clockwise from the map's east, in which the right of the screen points:
/// -180 ... 180 degrees, 0 for a map with north at the top. A north arrow is painted turned
/// clockwise on screen by it. Measured through the middle of the view, one pixel inside its edges.
/// @return false, and an angle of 0, when the view does not tell, or both points are one on the
/// map;
///         so for a view less than four pixels wide, which has nothing between its edges
KELO_BASE_EXPORT bool NorthAngle(QWidget *view, double &angle);

/// The zoom-factor correction for a map scale denominator, interpolated between the entries of a
/// table and cut toward zero. The table is read at the first call and then kept: from
/// "config/settings.ini" beside the program, the built-in one when there is no such file.
/// @param scaleA, scaleB  the denominator, twice
/// @return the smallest entry's factor below it; -1 above the largest one, when the table is empty,
///         when the arguments differ, and when both are 0
[[nodiscard]] KELO_BASE_EXPORT int GetZoomFactorCorrectionForScaleValue(double scaleA,
                                                                        double scaleB);
