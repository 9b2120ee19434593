// SPDX-License-Identifier: GPL-2.0-or-later
// Goes where a command wants to, by height and angle.
#pragma once

class PlanView;
struct WantedView;

/// Shows the place, turned as wanted, from the wanted height. A height of 0 keeps the scale.
/// @return false when the scale of the view is not known
bool goTo(PlanView &view, const WantedView &wanted);
