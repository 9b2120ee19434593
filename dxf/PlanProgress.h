// SPDX-License-Identifier: GPL-2.0-or-later
// How long work on a plan tells how far it is.
#pragma once

#include <QtGlobal>
#include <functional>

/// Called now and then during long work, at least ten times a second.
/// @param done, total  of the work at hand: bytes while reading, where a total of -1 is not known;
///     blocks, inserts or sheets afterwards
/// @return false to give up
using PlanProgress = std::function<bool(qint64 done, qint64 total)>;
