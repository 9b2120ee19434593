// SPDX-License-Identifier: GPL-2.0-or-later
// Natural order: compares names as people count them, "sheet2" before "sheet10".
#pragma once

#include <kelo_base/core/Export.h>

#include <QString>

/// Whether @p a comes before @p b; a predicate for sorting names of files and sheets.
///
/// White space does not count: "a 1" equals "a1". Runs of digits compare as integers, the longer
/// one being greater; where one of the two begins with '0', they compare from the left like decimal
/// places: "x01" before "x1". All else compares by UTF-16 code unit, so the languages' own letters
/// come behind "z". A null character ends a text. Allocates nothing, and takes time linear in the
/// length of the texts.
///
/// A strict weak order, as sorting requires, for all names whose digits are of one script (say
/// ASCII). With digits of several scripts the rule itself can go round in a circle: "10" < "a" by
/// code, "a" < "٩" (Arabic-Indic 9) by code, and "٩" < "10" as the shorter number.
[[nodiscard]] KELO_BASE_EXPORT bool caseSensitiveNaturalOrderLessThen(const QString &a,
                                                                      const QString &b);

/// The same with each UTF-16 code unit in its simple upper-case form: "Blatt" equals "blatt".
[[nodiscard]] KELO_BASE_EXPORT bool caseInsensitiveNaturalOrderLessThen(const QString &a,
                                                                        const QString &b);
