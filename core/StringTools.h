// SPDX-License-Identifier: GPL-2.0-or-later
// Small functions on narrow (8-bit) and wide (16-bit) texts.
#pragma once

#include <kelo_base/core/Export.h>

#include <string>

// Between narrow and wide, characters keep their codes: bytes become 0 ... 255, of a wide character
// the low byte stays. No code page is involved, and NULs are characters like any other, save in the
// forms that take pointers, where a NUL ends the text.
namespace Tz {

/// A wide copy; the caller frees it with delete[]. Null gives null.
[[nodiscard]] KELO_BASE_EXPORT unsigned short *CharPointerToWCharPointer(const char *text);
/// A narrow copy; the caller frees it with delete[]. Null gives null.
[[nodiscard]] KELO_BASE_EXPORT char *WCharPointerToCharPointer(const unsigned short *text);
/// Copies to a buffer of @p size bytes.
/// @return false, and the buffer is untouched, when text and NUL do not fit or a pointer is null
[[nodiscard]] KELO_BASE_EXPORT bool WCharPointerToCharPointer(const unsigned short *src, char *dst,
                                                              unsigned int size);
[[nodiscard]] KELO_BASE_EXPORT std::u16string StringToWString(const std::string &text);
[[nodiscard]] KELO_BASE_EXPORT std::string WStringToString(const std::u16string &text);

// Replace every occurrence, from the left, in place. An empty text to look for occurs nowhere.
KELO_BASE_EXPORT void ReplaceCharWithChar(std::string &str, char from, char to);
KELO_BASE_EXPORT void ReplaceCharWithChar(std::u16string &str, char16_t from, char16_t to);
KELO_BASE_EXPORT void ReplaceStringWithChar(std::string &str, const std::string &from, char to);
KELO_BASE_EXPORT void ReplaceStringWithChar(std::u16string &str, const std::u16string &from,
                                            char16_t to);
KELO_BASE_EXPORT void ReplaceCharWithString(std::string &str, char from, const std::string &to);
KELO_BASE_EXPORT void ReplaceCharWithString(std::u16string &str, char16_t from,
                                            const std::u16string &to);

KELO_BASE_EXPORT void AppendString(std::string &str, const std::string &more);
KELO_BASE_EXPORT void AppendString(std::u16string &str, const std::u16string &more);
[[nodiscard]] KELO_BASE_EXPORT bool Contains(const std::string &str, char ch);
[[nodiscard]] KELO_BASE_EXPORT bool Contains(const std::u16string &str, char16_t ch);
/// The text between double quotes; quotes inside stay as they are.
[[nodiscard]] KELO_BASE_EXPORT std::string MakeQuotedString(const std::string &str);
[[nodiscard]] KELO_BASE_EXPORT std::u16string MakeQuotedString(const std::u16string &str);

// Between text of one line, in which "|" parts the lines, and text of several, in which LF or CR LF
// does. A variable is changed in place; for a constant a converted copy is returned.
KELO_BASE_EXPORT void ReplacePipeWithNewLine(std::string &str);
KELO_BASE_EXPORT void ReplacePipeWithNewLine(std::u16string &str);
[[nodiscard]] KELO_BASE_EXPORT std::string ReplacePipeWithNewLine(const std::string &str);
[[nodiscard]] KELO_BASE_EXPORT std::u16string ReplacePipeWithNewLine(const std::u16string &str);
KELO_BASE_EXPORT void ReplaceNewLineWithPipe(std::string &str);
KELO_BASE_EXPORT void ReplaceNewLineWithPipe(std::u16string &str);
[[nodiscard]] KELO_BASE_EXPORT std::string ReplaceNewLineWithPipe(const std::string &str);
[[nodiscard]] KELO_BASE_EXPORT std::u16string ReplaceNewLineWithPipe(const std::u16string &str);
/// A CR or LF alone stays.
KELO_BASE_EXPORT void ReplaceCRLFWithPipe(std::string &str);
KELO_BASE_EXPORT void ReplaceCRLFWithPipe(std::u16string &str);
[[nodiscard]] KELO_BASE_EXPORT std::string ReplaceCRLFWithPipe(const std::string &str);
[[nodiscard]] KELO_BASE_EXPORT std::u16string ReplaceCRLFWithPipe(const std::u16string &str);
KELO_BASE_EXPORT void ReplacePipeWithCRLF(std::string &str);
KELO_BASE_EXPORT void ReplacePipeWithCRLF(std::u16string &str);
[[nodiscard]] KELO_BASE_EXPORT std::string ReplacePipeWithCRLF(const std::string &str);
[[nodiscard]] KELO_BASE_EXPORT std::u16string ReplacePipeWithCRLF(const std::u16string &str);

/// The text with its letters in upper case, byte by byte as Latin-1 whatever the process's locale.
/// A letter whose upper-case form does not fit into one byte stays as it is (0xB5, 0xDF, 0xFF).
[[nodiscard]] KELO_BASE_EXPORT std::string ToUpper(const std::string &text);

} // namespace Tz
