// SPDX-License-Identifier: GPL-2.0-or-later
// Icons of one colour that suit every palette.
#pragma once

#include <QIcon>

namespace dxftools {

/// The shape of an image in the colour of the text on buttons, faint where it is disabled.
QIcon inkIcon(const QString &file);

} // namespace dxftools
