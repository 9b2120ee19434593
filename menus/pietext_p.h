// SPDX-License-Identifier: GPL-2.0-or-later
// The "&" in the texts of menu items.
#pragma once

#include <QString>

namespace pie {

/// "Save" from "&Save"; "&&" stands for the sign itself.
[[nodiscard]] inline QString withoutMnemonic(QString text)
{
    for (qsizetype at = 0; (at = text.indexOf(u'&', at)) >= 0; ++at)
        text.remove(at, 1); // the character behind it stays, whatever it is
    return text;
}

/// The letter marked in @p text, regardless of case; null when there is none.
[[nodiscard]] inline QChar mnemonicOf(const QString &text)
{
    for (qsizetype at = 0; (at = text.indexOf(u'&', at)) >= 0 && at + 1 < text.size(); at += 2) {
        if (text[at + 1] != u'&')
            return text[at + 1].toCaseFolded();
    }
    return QChar();
}

} // namespace pie
