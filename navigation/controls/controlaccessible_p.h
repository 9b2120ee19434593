// SPDX-License-Identifier: GPL-2.0-or-later
// The controls that are no buttons and no fields, for screen readers.
#pragma once

namespace navcontrols {

/// Makes the north arrow, a dial, and the scale bar known to QAccessible; harmless when repeated.
void installAccessibility();

} // namespace navcontrols
