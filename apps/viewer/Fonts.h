// SPDX-License-Identifier: GPL-2.0-or-later
// The system's fonts; one source per family of systems.
#pragma once

/// Begins to look them up in another thread where that takes milliseconds, as other things can be
/// started meanwhile. The application object exists.
void LookUpFonts();
