// SPDX-License-Identifier: GPL-2.0-or-later
// From a height to a scale by the library's estimates.
#include "ViewNavigation.h"

#include "PlanView.h"
#include <kelo_base/navigation/ViewGeometry.h>

bool goTo(PlanView &view, const WantedView &wanted)
{
    double ratio = 1;
    if (wanted.height > 0)
        ratio = EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(&view, wanted.height);
    if (ratio <= 0)
        return false;
    view.go(ViewPose(wanted.middle, view.pose().metresPerPixel() * ratio, wanted.angle));
    return true;
}
