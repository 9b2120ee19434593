// SPDX-License-Identifier: GPL-2.0-or-later
// Texts of the plan reader for its users.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <algorithm>
#include <limits>
#include <string_view>

/// Translation context of the reader's messages: ReaderText::tr("...").
class ReaderText
{
    Q_DECLARE_TR_FUNCTIONS(DxfReader)
};

/// The number of a sentence that counts, as tr() takes it to choose the plural form.
inline int textAmount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

/// A piece of a file as it can be shown in one sentence: at most 40 characters, no control ones.
QString shownText(std::string_view bytes);
