// SPDX-License-Identifier: GPL-2.0-or-later
// What the widgets tell to screen readers, where there are none.
#pragma once

#include <QStringList>

/// "name", "check", "enabled" or "else" for each change so far.
QStringList &toldScreenReaders();
/// The texts of the labels that asked to be read out so far.
QStringList &readByScreenReaders();
