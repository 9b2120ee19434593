// SPDX-License-Identifier: GPL-2.0-or-later
// The program's texts for people.
#pragma once

#include <QCoreApplication>

/// Their translation context: Text::tr("..."). A text that counts has a sentence of its own for
/// one;
/// "%n" is for all others. What scripts read is never translated: names of options, the beginning
/// of a fault's line, JSON.
class Text
{
    Q_DECLARE_TR_FUNCTIONS(dxf2gk2)
};
