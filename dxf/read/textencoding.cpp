// SPDX-License-Identifier: GPL-2.0-or-later
// The encodings of texts in plans.
#include "dxf/read/textencoding_p.h"

#include "dxf/read/characterset_p.h"

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Alias
{
    const char *name; ///< lower-case letters and digits only
    const char *codec;
};
/// Names that do not follow from a number behind a prefix.
constexpr std::array kAliases{
    Alias{"utf8", textencoding::kUtf8},
    Alias{"ansi65001", textencoding::kUtf8},
    Alias{"latin1", ""},
    Alias{"iso88591", ""},
    Alias{"88591", ""},
    Alias{"ascii", ""},
    Alias{"usascii", ""},
    Alias{"macroman", "macintosh"},
    Alias{"mac", "macintosh"},
    Alias{"gb2312", "windows-936"},
    Alias{"gbk", "windows-936"},
    Alias{"big5", "windows-950"},
    Alias{"ksc5601", "windows-949"},
    Alias{"johab", "ibm-1361"},
    Alias{"shiftjis", "windows-31j"},
    Alias{"sjis", "windows-31j"},
    Alias{"ansi932", "windows-31j"},
    Alias{"dos932", "windows-31j"},
    Alias{"cp932", "windows-31j"},
    Alias{"windows932", "windows-31j"},
    Alias{"932", "windows-31j"},
    Alias{"ansi1361", "ibm-1361"},
    Alias{"1361", "ibm-1361"},
};
/// What stands before the number of a code page, and before it in the codec's name.
constexpr std::array kPrefixes{
    Alias{"ansi", "windows-"}, Alias{"windows", "windows-"},  Alias{"win", "windows-"},
    Alias{"cp", "windows-"},   Alias{"dos", "IBM"},           Alias{"oem", "IBM"},
    Alias{"ibm", "IBM"},       Alias{"iso8859", "ISO-8859-"}, Alias{"8859", "ISO-8859-"},
    Alias{"", "windows-"},
};

/// "ANSI_1252" and "ansi-1252" are one name.
QByteArray plainName(std::string_view name)
{
    QByteArray plain;
    for (const char character : name)
        if (std::isalnum(static_cast<unsigned char>(character)) != 0)
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return plain;
}

bool isKnown(const QByteArray &codec)
{
    return codec.isEmpty() || characterset::isKnown(codec);
}

std::optional<QByteArray> ifKnown(const QByteArray &codec)
{
    return isKnown(codec) ? std::optional(codec) : std::nullopt;
}

bool isNumber(QByteArrayView text)
{
    return !text.isEmpty() &&
           std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// The codecs of "\M+1" to "\M+5".
constexpr std::array kEscapeCodecs{"windows-31j", "windows-950", "windows-949", "ibm-1361",
                                   "windows-936"};
constexpr qsizetype kUnicodeDigits = 4;
constexpr qsizetype kEscapeStart = 3; ///< "\U+"

/// The character that an escape at the begin of the text stands for, and the escape's length.
struct Escape
{
    QString character;
    qsizetype length = 0; ///< 0: none is there
};

Escape escapeAt(QStringView text)
{
    const bool isUnicode = text.startsWith("\\U+"_L1);
    const bool isMultibyte = text.startsWith("\\M+"_L1);
    const qsizetype begin = kEscapeStart + (isMultibyte ? 1 : 0);
    const QStringView digits =
        text.sliced(std::min(begin, text.size()))
            .first(std::min(kUnicodeDigits, std::max<qsizetype>(text.size() - begin, 0)));
    bool isHex = false;
    const ushort number = digits.toUShort(&isHex, 16);
    if ((!isUnicode && !isMultibyte) || digits.size() < kUnicodeDigits || !isHex)
        return {};
    if (isUnicode)
        return {QString(QChar(number)), begin + kUnicodeDigits};
    const int codec = text[kEscapeStart].unicode() - u'1';
    if (codec < 0 || codec >= static_cast<int>(kEscapeCodecs.size()))
        return {};
    const char bytes[]{static_cast<char>(number >> 8), static_cast<char>(number & 0xFF)};
    const QString character = characterset::decoded(QByteArrayView(bytes, sizeof bytes),
                                                    kEscapeCodecs[static_cast<std::size_t>(codec)]);
    if (character.size() != 1 || character[0] == QChar::ReplacementCharacter)
        return {};
    return {character, begin + kUnicodeDigits};
}

} // namespace

namespace textencoding {

std::optional<QByteArray> codecOf(std::string_view name)
{
    const QByteArray plain = plainName(name);
    if (plain.isEmpty())
        return std::nullopt;
    for (const Alias &alias : kAliases)
        if (plain == alias.name)
            return ifKnown(alias.codec);
    for (const Alias &prefix : kPrefixes) {
        const auto length = static_cast<qsizetype>(qstrlen(prefix.name));
        if (plain.startsWith(prefix.name) && isNumber(plain.sliced(length)))
            return ifKnown(prefix.codec + plain.sliced(length));
    }
    return ifKnown(QByteArray(name.data(), static_cast<qsizetype>(name.size())));
}

QString charactersOf(const QByteArray &codec)
{
    QByteArray bytes(256, Qt::Uninitialized);
    std::iota(bytes.begin(), bytes.end(), char{0});
    QString characters = characterset::decoded(bytes, codec);
    if (characters.size() != bytes.size())
        return {};
    for (qsizetype ascii = 0; ascii < 128; ++ascii) // some codecs exchange control characters
        characters[ascii] = QChar(static_cast<char16_t>(ascii));
    return characters;
}

QString decoded(std::string_view bytes, const QByteArray &codec, const QString &characters)
{
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (characters.isEmpty())
        return codec.isEmpty() ? QString::fromLatin1(view) : characterset::decoded(view, codec);
    QString text(view.size(), Qt::Uninitialized);
    std::ranges::transform(view, text.begin(),
                           [&](char byte) { return characters[static_cast<unsigned char>(byte)]; });
    return text;
}

std::optional<QByteArray> encoded(const QString &text, const QByteArray &codec)
{
    const bool isLatin1 = codec.isEmpty();
    const QByteArray bytes = isLatin1 ? text.toLatin1() : characterset::encoded(text, codec);
    const QString again =
        isLatin1 ? QString::fromLatin1(bytes) : characterset::decoded(bytes, codec);
    return again == text ? std::optional(bytes) : std::nullopt;
}

QString withoutEscapes(const QString &text)
{
    QString plain;
    qsizetype begin = 0;
    for (qsizetype at = text.indexOf(u'\\'); at >= 0; at = text.indexOf(u'\\', at)) {
        const Escape escape = escapeAt(QStringView(text).sliced(at));
        if (escape.length == 0) {
            ++at;
            continue;
        }
        plain += QStringView(text).sliced(begin, at - begin);
        plain += escape.character;
        at += escape.length;
        begin = at;
    }
    plain += QStringView(text).sliced(begin);
    return plain;
}

} // namespace textencoding
