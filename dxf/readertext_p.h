// SPDX-License-Identifier: GPL-2.0-or-later
// Texts of the plan reader for its users.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <string_view>

/// Translation context of the reader's messages: ReaderText::tr("...").
class ReaderText
{
    Q_DECLARE_TR_FUNCTIONS(DxfReader)
};

/// A piece of a file as it can be shown in one sentence: at most 40 characters, no control ones.
QString shownText(std::string_view bytes);
