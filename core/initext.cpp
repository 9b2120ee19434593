// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as the text of an INI file, and back.
#include "core/initext_p.h"

#include <QDataStream>
#include <QIODevice>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringDecoder>
#include <QStringList>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace initext {
namespace {

/// What stands behind a backslash in a value, and what it means.
constexpr std::pair<char, char16_t> kEscapes[] = {{'a', u'\a'}, {'b', u'\b'}, {'f', u'\f'},
                                                  {'n', u'\n'}, {'r', u'\r'}, {'t', u'\t'},
                                                  {'v', u'\v'}, {'"', u'"'},  {'\\', u'\\'}};

constexpr auto kRectTag = "@Rect("_L1;
constexpr auto kSizeTag = "@Size("_L1;
constexpr auto kPointTag = "@Point("_L1;
constexpr auto kBytesTag = "@ByteArray("_L1;
constexpr auto kTextTag = "@String("_L1; // for texts with a NUL, which end early in old readers
constexpr auto kVariantTag = "@Variant("_L1;
constexpr auto kDateTimeTag = "@DateTime("_L1;
constexpr auto kInvalid = "@Invalid()"_L1;

// The tagged forms are read by every version since 4.0, and dates and times since 5.6.
constexpr auto kVariantVersion = QDataStream::Qt_4_0;
constexpr auto kDateTimeVersion = QDataStream::Qt_5_6;

constexpr auto kGeneral = "General"_L1; // the section of keys that have none

bool isBlank(char16_t c)
{
    return c == u' ' || c == u'\t';
}

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

/// The value of a digit to the base; -1 when it is none.
int digitValue(char16_t c, int base)
{
    int value = -1;
    if (c >= u'0' && c <= u'9')
        value = c - u'0';
    else if ((c | 0x20) >= u'a' && (c | 0x20) <= u'f')
        value = (c | 0x20) - u'a' + 10;
    return value < base ? value : -1;
}

// ---- Lines -----------------------------------------------------------------------------------

struct Line
{
    QByteArrayView text;
    qsizetype equalSign = -1; ///< its index in the text; -1 without one
};

/// Walks the lines that say something: no comments, and no blanks in front. A line goes on behind a
/// backslash and inside quotes.
class LineReader
{
public:
    explicit LineReader(QByteArrayView text) : m_text(text) {}

    bool next(Line &line)
    {
        skipToLine();
        const qsizetype start = m_at;
        line.equalSign = -1;
        for (bool isQuoted = false; m_at < m_text.size(); ++m_at) {
            const char c = m_text[m_at];
            if (c == '"')
                isQuoted = !isQuoted;
            else if (c == '\\')
                skipEscaped();
            else if (!isQuoted && (isLineEnd(c) || c == ';'))
                break;
            else if (!isQuoted && c == '=' && line.equalSign < 0)
                line.equalSign = m_at - start;
        }
        m_at = std::min(m_at, m_text.size());
        line.text = m_text.sliced(start, m_at - start);
        return !line.text.isEmpty();
    }

private:
    void skipToLine()
    {
        for (bool isComment = false; m_at < m_text.size(); ++m_at) {
            const char c = m_text[m_at];
            if (isLineEnd(c))
                isComment = false;
            else if (c == ';')
                isComment = true;
            else if (!isComment && !isBlank(static_cast<unsigned char>(c)))
                return;
        }
    }

    void skipEscaped() // one character, or one line end of two bytes
    {
        const QByteArrayView escaped =
            m_text.sliced(m_at + 1).first(std::min<qsizetype>(2, m_text.size() - m_at - 1));
        const bool isPair = escaped == "\r\n" || escaped == "\n\r";
        m_at += isPair ? 2 : 1;
    }

    QByteArrayView m_text;
    qsizetype m_at = 0;
};

// ---- Values ----------------------------------------------------------------------------------

/// Resolves quotes, escapes and commas of one value. More than one text makes a list.
class ValueReader
{
public:
    explicit ValueReader(QByteArrayView value) : m_value(value) {}

    QStringList read()
    {
        while (m_at < m_value.size())
            readNext();
        finishText();
        return m_texts;
    }

    [[nodiscard]] bool isWhole() const { return m_isWhole; }

private:
    void readNext()
    {
        const char c = m_value[m_at];
        if (c == '\\') {
            ++m_at;
            readEscape();
            m_solid = m_text.size();
            m_skipsBlanks = false;
        } else if (c == '"') {
            ++m_at;
            m_isQuoted = !m_isQuoted;
            m_solid = m_text.size();
            m_skipsBlanks = !m_isQuoted;
        } else if (c == ',' && !m_isQuoted) {
            ++m_at;
            finishText();
        } else if (m_skipsBlanks && isBlank(static_cast<unsigned char>(c))) {
            ++m_at;
        } else {
            readPlain();
        }
    }

    void readPlain()
    {
        const QByteArrayView special = m_isQuoted ? "\\\"" : "\\\",";
        const auto *const start = m_value.begin() + m_at;
        const auto *const end =
            std::find_first_of(start, m_value.end(), special.begin(), special.end());
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        m_text += decoder(QByteArrayView(start, end));
        m_isWhole = m_isWhole && !decoder.hasError();
        m_at += end - start;
        m_skipsBlanks = false;
    }

    void readEscape()
    {
        if (m_at == m_value.size())
            return;
        const char c = m_value[m_at];
        const auto *const known = std::ranges::find(kEscapes, c, &std::pair<char, char16_t>::first);
        if (known != std::end(kEscapes)) {
            m_text += QChar(known->second);
            ++m_at;
        } else if (c == 'x') {
            ++m_at;
            readCode(16);
        } else if (digitValue(static_cast<unsigned char>(c), 8) >= 0) {
            readCode(8);
        } else { // a line end, at which the value goes on, or nonsense
            const bool isPair = isLineEnd(c) && m_at + 1 < m_value.size() &&
                                isLineEnd(m_value[m_at + 1]) && m_value[m_at + 1] != c;
            m_at += isPair ? 2 : 1;
        }
    }

    void readCode(int base)
    {
        unsigned int code = 0;
        for (; m_at < m_value.size(); ++m_at) {
            const int digit = digitValue(static_cast<unsigned char>(m_value[m_at]), base);
            if (digit < 0)
                break;
            code = code * static_cast<unsigned int>(base) + static_cast<unsigned int>(digit);
        }
        m_text += QChar(static_cast<char16_t>(code)); // longer codes keep their low 16 bits
    }

    void finishText()
    {
        while (m_text.size() > m_solid && isBlank(m_text.back().unicode()))
            m_text.chop(1);
        m_texts << std::exchange(m_text, QString());
        m_solid = 0;
        m_skipsBlanks = true;
    }

    QByteArrayView m_value;
    QStringList m_texts;
    QString m_text;
    qsizetype m_at = 0;
    qsizetype m_solid = 0; ///< blanks before this length of m_text are meant, those behind trail
    bool m_isQuoted = false;
    bool m_skipsBlanks = true;
    bool m_isWhole = true;
};

/// @param value  the text in its unescaped form, without the quotes
QByteArray escapedValue(const QString &value)
{
    QByteArray result;
    bool isBehindCode = false; // a hex digit there would be taken for part of the code
    QStringEncoder utf8(QStringEncoder::Utf8);
    for (const QChar c : value) {
        const char16_t code = c.unicode();
        const auto *const known =
            std::ranges::find(kEscapes, code, &std::pair<char, char16_t>::second);
        if (code < 0x20 && known == std::end(kEscapes) && code != 0) {
            result += "\\x" + QByteArray::number(code, 16);
            isBehindCode = true;
        } else if (isBehindCode && digitValue(code, 16) >= 0) {
            result += "\\x" + QByteArray::number(code, 16);
        } else {
            isBehindCode = code == 0;
            if (code == 0)
                result += "\\0";
            else if (known != std::end(kEscapes))
                result += {'\\', known->first};
            else
                result += QByteArray(utf8(c));
        }
    }
    const bool hasOuterBlank = result.startsWith(' ') || result.endsWith(' ');
    const bool hasSeparator =
        std::ranges::any_of(result, [](char c) { return c == ';' || c == ',' || c == '='; });
    return hasOuterBlank || hasSeparator ? '"' + result + '"' : result;
}

// ---- Variants and their texts ----------------------------------------------------------------

QString taggedStream(const QVariant &value, QLatin1StringView tag, QDataStream::Version version)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream << value;
    return tag + QString::fromLatin1(bytes) + ')'_L1;
}

QString numbersText(QLatin1StringView tag, std::initializer_list<int> numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    return tag + texts.join(u' ') + ')'_L1;
}

QString variantText(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return kInvalid;
    case QMetaType::QByteArray:
        return kBytesTag + QString::fromLatin1(value.toByteArray()) + ')'_L1;
    case QMetaType::QString:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Bool:
    case QMetaType::Float:
    case QMetaType::Double:
    case QMetaType::QKeySequence: {
        const QString text = value.toString();
        if (text.contains(u'\0'))
            return kTextTag + text + ')'_L1;
        return text.startsWith(u'@') ? u'@' + text : text;
    }
    case QMetaType::QRect: {
        const QRect rect = value.toRect();
        return numbersText(kRectTag, {rect.x(), rect.y(), rect.width(), rect.height()});
    }
    case QMetaType::QSize:
        return numbersText(kSizeTag, {value.toSize().width(), value.toSize().height()});
    case QMetaType::QPoint:
        return numbersText(kPointTag, {value.toPoint().x(), value.toPoint().y()});
    case QMetaType::QDateTime:
        return taggedStream(value, kDateTimeTag, kDateTimeVersion);
    default:
        return taggedStream(value, kVariantTag, kVariantVersion);
    }
}

/// What stands between the tag and the closing bracket; null when the text is not of that kind.
QStringView taggedContent(QStringView text, QLatin1StringView tag)
{
    if (!text.startsWith(tag) || !text.endsWith(u')'))
        return {};
    return text.sliced(tag.size()).chopped(1);
}

QVariant streamed(QStringView content, QDataStream::Version version)
{
    QDataStream stream(content.toLatin1());
    stream.setVersion(version);
    QVariant value;
    stream >> value;
    return value;
}

/// As many integers as asked for; empty when the content holds another number of them.
QList<int> numbersIn(QStringView content, qsizetype count)
{
    QList<int> numbers;
    for (const QStringView number : content.split(u' '))
        numbers << number.toInt();
    return numbers.size() == count ? numbers : QList<int>();
}

QVariant variantOf(const QString &text)
{
    if (!text.startsWith(u'@'))
        return text;
    if (text == kInvalid)
        return {};
    if (const QStringView bytes = taggedContent(text, kBytesTag); !bytes.isNull())
        return bytes.toLatin1();
    if (const QStringView plain = taggedContent(text, kTextTag); !plain.isNull())
        return plain.toString();
    if (const QStringView stream = taggedContent(text, kVariantTag); !stream.isNull())
        return streamed(stream, kVariantVersion);
    if (const QStringView stream = taggedContent(text, kDateTimeTag); !stream.isNull())
        return streamed(stream, kDateTimeVersion);
    if (const auto n = numbersIn(taggedContent(text, kRectTag), 4); !n.isEmpty())
        return QRect(n[0], n[1], n[2], n[3]);
    if (const auto n = numbersIn(taggedContent(text, kSizeTag), 2); !n.isEmpty())
        return QSize(n[0], n[1]);
    if (const auto n = numbersIn(taggedContent(text, kPointTag), 2); !n.isEmpty())
        return QPoint(n[0], n[1]);
    return text.startsWith("@@"_L1) ? text.sliced(1) : text;
}

QVariant valueOf(QStringList texts)
{
    if (texts.size() == 1)
        return variantOf(texts.first());
    const auto isTagged = [](const QString &text) {
        return text.startsWith(u'@') && !text.startsWith("@@"_L1);
    };
    if (std::ranges::any_of(texts, isTagged)) {
        QVariantList values;
        std::ranges::transform(texts, std::back_inserter(values), variantOf);
        return values;
    }
    for (QString &text : texts)
        text = variantOf(text).toString();
    return texts;
}

QByteArray valueText(const QVariant &value)
{
    const bool isList = value.typeId() == QMetaType::QStringList ||
                        (value.typeId() == QMetaType::QVariantList && value.toList().size() != 1);
    if (!isList)
        return escapedValue(variantText(value));
    QByteArrayList texts;
    for (const QVariant &element : value.toList())
        texts << escapedValue(variantText(element));
    return texts.isEmpty() ? QByteArray("@Invalid()") : texts.join(", ");
}

// ---- Keys ------------------------------------------------------------------------------------

/// The code in @p digits hexadecimal digits at the start of the text; -1 when they are no such.
int codeAt(QByteArrayView text, qsizetype digits)
{
    if (text.size() < digits)
        return -1;
    int code = 0;
    for (const char c : text.first(digits)) {
        const int digit = digitValue(static_cast<unsigned char>(c), 16);
        if (digit < 0)
            return -1;
        code = code * 16 + digit;
    }
    return code;
}

QString unescapedKey(QByteArrayView key)
{
    QString result;
    for (qsizetype i = 0; i < key.size(); ++i) {
        const bool isLong = key.sliced(i).startsWith("%U");
        const qsizetype digits = isLong ? 4 : 2;
        const qsizetype start = i + (isLong ? 2 : 1);
        const int code =
            key[i] == '%' && start <= key.size() ? codeAt(key.sliced(start), digits) : -1;
        if (code >= 0) {
            result += QChar(static_cast<char16_t>(code));
            i = start + digits - 1;
        } else {
            result += key[i] == '\\' ? QLatin1Char('/') : QLatin1Char(key[i]);
        }
    }
    return result;
}

QByteArray escapedKey(QStringView key)
{
    QByteArray result;
    for (const QChar c : key) {
        const char16_t code = c.unicode();
        const bool isPlain = (code | 0x20) >= u'a' && (code | 0x20) <= u'z' && code < 0x80;
        if (isPlain || digitValue(code, 10) >= 0 || code == u'_' || code == u'-' || code == u'.')
            result += static_cast<char>(code);
        else if (code == u'/')
            result += '\\';
        else if (code <= 0xFF)
            result += '%' + QByteArray::number(code, 16).rightJustified(2, '0').toUpper();
        else
            result += "%U" + QByteArray::number(code, 16).rightJustified(4, '0').toUpper();
    }
    return result;
}

bool isGeneral(QByteArrayView section)
{
    return section.compare(QByteArrayView(kGeneral.data(), kGeneral.size()), Qt::CaseInsensitive) ==
           0;
}

/// What stands in front of the keys of the section: nothing for [General], else name and slash.
QString keyPrefix(QByteArrayView section)
{
    if (isGeneral(section))
        return {};
    const bool isNamedGeneral = section.startsWith('%') && isGeneral(section.sliced(1));
    return unescapedKey(isNamedGeneral ? section.sliced(1) : section) + u'/';
}

QByteArray sectionHead(QStringView section)
{
    const QByteArray name = escapedKey(section);
    return '[' + (isGeneral(name) ? '%' + name : name) + "]\n";
}

} // namespace

Parsed parse(QByteArrayView text)
{
    constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";
    if (text.startsWith(kByteOrderMark))
        text = text.sliced(kByteOrderMark.size());
    Parsed result;
    QString prefix;
    LineReader lines(text);
    for (Line line; lines.next(line);) {
        if (line.text.startsWith('[')) {
            const qsizetype end = line.text.indexOf(']');
            result.isWhole = result.isWhole && end >= 0;
            prefix = keyPrefix((end >= 0 ? line.text.first(end) : line.text).sliced(1).trimmed());
        } else if (line.equalSign >= 0) {
            ValueReader value(line.text.sliced(line.equalSign + 1));
            const QString key = unescapedKey(line.text.first(line.equalSign).trimmed());
            result.values.insert(prefix + key, valueOf(value.read()));
            result.isWhole = result.isWhole && value.isWhole();
        } else {
            result.isWhole = false;
        }
    }
    return result;
}

QByteArray textOf(const QSettings::SettingsMap &values)
{
    QByteArray general;
    QByteArray sections;
    QStringView current;
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        const QStringView key = entry.key();
        const qsizetype slash = key.indexOf(u'/');
        QByteArray &text = slash < 0 ? general : sections;
        const QStringView section = key.first(std::max<qsizetype>(slash, 0));
        if (slash >= 0 && (sections.isEmpty() || section != current)) {
            sections += '\n' + sectionHead(section);
            current = section;
        }
        text += escapedKey(key.sliced(slash + 1)) + '=' + valueText(entry.value()) + '\n';
    }
    if (general.isEmpty())
        return sections.sliced(sections.isEmpty() ? 0 : 1);
    return "[General]\n" + general + sections;
}

} // namespace initext
