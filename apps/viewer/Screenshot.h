// SPDX-License-Identifier: GPL-2.0-or-later
// The window as a picture in a file.
#pragma once

struct CommandLine;
class MainWindow;

/// Waits until all of the plan in front is read and painted. Tells in one sentence on standard
/// error what went wrong.
/// @return the program's status
int takeScreenshot(MainWindow &window, const CommandLine &line);
