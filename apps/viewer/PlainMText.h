// SPDX-License-Identifier: GPL-2.0-or-later
// The words of a formatted text.
#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// The lines of an MTEXT without its formatting codes. Escapes for characters (\U+, \M+) stay, for
/// whoever knows the plan's encoding.
[[nodiscard]] QByteArrayList plainLines(const QByteArray &text);
