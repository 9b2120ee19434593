// SPDX-License-Identifier: GPL-2.0-or-later
// What is printed reaches whoever started the program, as it is.
#pragma once

/// To be called first of all, before anything is printed. On Windows, streams pass on the bytes
/// that they are given, consoles read them as UTF-8 until the program ends, and a program for the
/// desktop prints to the console that it was started from. On other systems all is so already.
void PrepareConsole();
