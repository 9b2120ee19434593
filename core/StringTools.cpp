// SPDX-License-Identifier: GPL-2.0-or-later
// Small functions on narrow (8-bit) and wide (16-bit) texts.
#include <kelo_base/core/StringTools.h>

#include <QChar>
#include <algorithm>
#include <cstring>
#include <type_traits>

namespace {

template <typename Char>
using Text = std::basic_string<Char>;

char16_t widened(char c)
{
    return static_cast<unsigned char>(c);
}

char narrowed(char16_t c)
{
    return static_cast<char>(c & 0xFF);
}

/// Moves the text together as it goes: the result is never longer.
template <typename Char>
void replaceWithChar(Text<Char> &str, const Text<Char> &from, Char to)
{
    if (from.empty())
        return;
    auto out = str.begin();
    auto at = str.cbegin();
    while (at != str.cend()) {
        const auto found = std::search(at, str.cend(), from.begin(), from.end());
        out = std::copy(at, found, out);
        if (found == str.cend())
            break;
        *out++ = to;
        at = found + static_cast<std::ptrdiff_t>(from.size());
    }
    str.erase(out, str.end());
}

template <typename Char>
void replaceWithString(Text<Char> &str, Char from, const Text<Char> &to)
{
    Text<Char> result;
    result.reserve(str.size());
    for (const Char c : str) {
        if (c == from)
            result += to;
        else
            result += c;
    }
    str = std::move(result);
}

template <typename Char>
Text<Char> quoted(const Text<Char> &str)
{
    constexpr Char kQuote = '"';
    return kQuote + str + kQuote;
}

template <typename Char>
Text<Char> crlf()
{
    return {Char('\r'), Char('\n')};
}

/// A copy of @p str that @p convert has changed.
template <typename Char, typename Convert>
Text<Char> converted(Text<Char> str, Convert convert)
{
    convert(str);
    return str;
}

} // namespace

namespace Tz {

unsigned short *CharPointerToWCharPointer(const char *text)
{
    if (!text)
        return nullptr;
    const std::size_t size = std::strlen(text) + 1;
    auto *const copy = new unsigned short[size];
    std::transform(text, text + size, copy, widened);
    return copy;
}

char *WCharPointerToCharPointer(const unsigned short *text)
{
    if (!text)
        return nullptr;
    std::size_t size = 1;
    while (text[size - 1])
        ++size;
    auto *const copy = new char[size];
    std::transform(text, text + size, copy, narrowed);
    return copy;
}

bool WCharPointerToCharPointer(const unsigned short *src, char *dst, unsigned int size)
{
    if (!src || !dst)
        return false;
    const auto *const end = std::find(src, src + size, 0); // looks no further than what fits
    if (end == src + size)
        return false;
    std::transform(src, end + 1, dst, narrowed);
    return true;
}

std::u16string StringToWString(const std::string &text)
{
    std::u16string wide(text.size(), u'\0');
    std::ranges::transform(text, wide.begin(), widened);
    return wide;
}

std::string WStringToString(const std::u16string &text)
{
    std::string narrow(text.size(), '\0');
    std::ranges::transform(text, narrow.begin(), narrowed);
    return narrow;
}

void ReplaceCharWithChar(std::string &str, char from, char to)
{
    std::ranges::replace(str, from, to);
}

void ReplaceCharWithChar(std::u16string &str, char16_t from, char16_t to)
{
    std::ranges::replace(str, from, to);
}

void ReplaceStringWithChar(std::string &str, const std::string &from, char to)
{
    replaceWithChar(str, from, to);
}

void ReplaceStringWithChar(std::u16string &str, const std::u16string &from, char16_t to)
{
    replaceWithChar(str, from, to);
}

void ReplaceCharWithString(std::string &str, char from, const std::string &to)
{
    replaceWithString(str, from, to);
}

void ReplaceCharWithString(std::u16string &str, char16_t from, const std::u16string &to)
{
    replaceWithString(str, from, to);
}

void AppendString(std::string &str, const std::string &more)
{
    str += more;
}

void AppendString(std::u16string &str, const std::u16string &more)
{
    str += more;
}

bool Contains(const std::string &str, char ch)
{
    return str.find(ch) != std::string::npos;
}

bool Contains(const std::u16string &str, char16_t ch)
{
    return str.find(ch) != std::u16string::npos;
}

std::string MakeQuotedString(const std::string &str)
{
    return quoted(str);
}

std::u16string MakeQuotedString(const std::u16string &str)
{
    return quoted(str);
}

void ReplacePipeWithNewLine(std::string &str)
{
    std::ranges::replace(str, '|', '\n');
}

void ReplacePipeWithNewLine(std::u16string &str)
{
    std::ranges::replace(str, u'|', u'\n');
}

void ReplaceNewLineWithPipe(std::string &str)
{
    std::ranges::replace(str, '\n', '|');
}

void ReplaceNewLineWithPipe(std::u16string &str)
{
    std::ranges::replace(str, u'\n', u'|');
}

void ReplaceCRLFWithPipe(std::string &str)
{
    replaceWithChar(str, crlf<char>(), '|');
}

void ReplaceCRLFWithPipe(std::u16string &str)
{
    replaceWithChar(str, crlf<char16_t>(), u'|');
}

void ReplacePipeWithCRLF(std::string &str)
{
    replaceWithString(str, '|', crlf<char>());
}

void ReplacePipeWithCRLF(std::u16string &str)
{
    replaceWithString(str, u'|', crlf<char16_t>());
}

// The copying forms, each by way of the changing form of the same name.
#define KELO_COPYING_FORM(name)                                                                    \
    std::string name(const std::string &str)                                                       \
    {                                                                                              \
        return converted(str, [](std::string &copy) { name(copy); });                              \
    }                                                                                              \
    std::u16string name(const std::u16string &str)                                                 \
    {                                                                                              \
        return converted(str, [](std::u16string &copy) { name(copy); });                           \
    }
KELO_COPYING_FORM(ReplacePipeWithNewLine)
KELO_COPYING_FORM(ReplaceNewLineWithPipe)
KELO_COPYING_FORM(ReplaceCRLFWithPipe)
KELO_COPYING_FORM(ReplacePipeWithCRLF)
#undef KELO_COPYING_FORM

std::string ToUpper(const std::string &text)
{
    std::string upper = text;
    std::ranges::transform(upper, upper.begin(), [](char c) {
        const char16_t letter = QChar(widened(c)).toUpper().unicode(); // all else is its own
        return letter <= 0xFF ? narrowed(letter) : c;
    });
    return upper;
}

} // namespace Tz
