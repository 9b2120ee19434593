// SPDX-License-Identifier: GPL-2.0-or-later
// Tells people what to name when they ask for help.
#pragma once

class QWidget;

namespace workbench {

/// Opens a dialog about this run of the program, with a text to be copied; returns at once. The
/// dialog deletes itself when it is closed.
void showAbout(QWidget *parent);

} // namespace workbench
