// SPDX-License-Identifier: GPL-2.0-or-later
// Values of settings as the one text that stands for each, and back.
#pragma once

#include <QStringList>
#include <QVariant>

namespace initext {

/// What a text of the file stands for: itself, or what follows its "@".
/// @param isWhole  becomes false when writing the value again would lose something
[[nodiscard]] QVariant valueOf(const QString &text, bool &isWhole);
/// Texts alone make a QStringList, anything else among them a QVariantList.
[[nodiscard]] QVariant valueOfList(const QStringList &texts, bool &isWhole);
/// The inverse of valueOf().
[[nodiscard]] QString textOfValue(const QVariant &value);

} // namespace initext
