// SPDX-License-Identifier: GPL-2.0-or-later
// Tells what kind of file a user gave as a plan.
#pragma once

#include <QString>
#include <string_view>

/// Why a file that begins like this cannot be a DXF plan, and what to do about it, in one sentence;
/// empty when it may be one.
/// @param head  the first bytes, as many as there are up to some thousands
QString whyNoDxf(std::string_view head);
