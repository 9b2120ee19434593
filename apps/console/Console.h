// SPDX-License-Identifier: GPL-2.0-or-later
// Programs that print: it reaches whoever started them as it is, and they need no screen.
#pragma once

/// To be called first of all, before anything is printed. On Windows, streams pass on the bytes
/// that they are given, consoles read them as UTF-8 until the program ends, and a program for the
/// desktop prints to the console that it was started from. On other systems all is so already.
void PrepareConsole();

/// To be called before the application object is made, by a program that shows nothing: it runs
/// where there is no screen, and has the system's fonts.
void NeedNoScreen();
