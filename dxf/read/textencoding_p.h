// SPDX-License-Identifier: GPL-2.0-or-later
// The encodings of texts in plans.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <string_view>

namespace textencoding {

inline constexpr char kUtf8[] = "UTF-8";

/// The character set behind a code page as plans name it, "ANSI_1252", "dos850", "8859_1", or
/// behind a name of its own, in any case. Nothing when this system does not know it; "" is Latin-1.
[[nodiscard]] std::optional<QByteArray> codecOf(std::string_view name);

/// The characters of the 256 bytes; empty when the codec has characters of more than one byte.
[[nodiscard]] QString charactersOf(const QByteArray &codec);

/// @param characters  charactersOf(codec)
[[nodiscard]] QString decoded(std::string_view bytes, const QByteArray &codec,
                              const QString &characters);
/// Nothing when the codec lacks a character of the text.
[[nodiscard]] std::optional<QByteArray> encoded(const QString &text, const QByteArray &codec);

/// "\U+00DC" and "\M+1889F", which stand for characters that the encoding lacks, are these
/// characters; all else, and what is not well-formed, stays.
[[nodiscard]] QString withoutEscapes(const QString &text);

} // namespace textencoding
