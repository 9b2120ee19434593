// SPDX-License-Identifier: GPL-2.0-or-later
// Key sequences as people type them, in English and in the user's language.
#pragma once

#include <QKeySequence>
#include <QString>
#include <QStringView>
#include <optional>

class QKeyEvent;

namespace menuconfig {

/// The text without case and accents: what people search for rarely has them.
[[nodiscard]] QString folded(QStringView text);

/// A sequence typed as text: "Ctrl+K, Ctrl+P", "control+k", "Strg+Entf" where keys are named in
/// German, "Ctrl+," and "Ctrl++". Empty for an empty text; nothing when it cannot be read or has
/// more than four strokes.
[[nodiscard]] std::optional<QKeySequence> sequenceFromText(const QString &text);

/// A folded word of a search as the keys are called in stored text: "control+shift" is
/// "ctrl+shift", and so is "umschalt+strg" where keys are named in German. Other words stay.
[[nodiscard]] QString keyWord(const QString &foldedWord);

/// What a filter for keys looks in: the folded text of the sequence in English and in the user's
/// language.
[[nodiscard]] QString searchableKeys(const QKeySequence &sequence);

/// The stroke that a key event makes; nothing for modifiers alone and for keys without a meaning
/// of their own (dead keys, locks). Shift does not count where it only reaches a character: a
/// slash on Shift+7 is a slash.
[[nodiscard]] std::optional<QKeyCombination> strokeOf(const QKeyEvent &event);

/// The sequence with one more stroke; four are the most.
[[nodiscard]] QKeySequence withStroke(const QKeySequence &sequence, QKeyCombination stroke);

} // namespace menuconfig
