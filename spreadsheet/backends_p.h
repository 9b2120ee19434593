// SPDX-License-Identifier: GPL-2.0-or-later
// Chooses the sink for a target.
#pragma once

#include "spreadsheet/sink_p.h"

namespace spreadsheet {

/// Null, and why in @p error, a sentence for people, when no back end here can write the target.
[[nodiscard]] std::unique_ptr<Sink> makeSink(const Target &target, QString &error);

} // namespace spreadsheet
