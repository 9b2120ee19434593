// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as the text of an INI file, and back, in memory.
#include "core/initext_p.h"

#include "core/inivalues_p.h"

#include <QStringDecoder>
#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace initext {
namespace {

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");
constexpr QByteArrayView kGeneral("general");

/// Characters that follow a backslash, and what they stand for.
constexpr std::pair<char, char16_t> kEscapes[] = {
    {'a', u'\a'}, {'b', u'\b'}, {'f', u'\f'}, {'n', u'\n'},  {'r', u'\r'}, {'t', u'\t'},
    {'v', u'\v'}, {'"', u'"'},  {'?', u'?'},  {'\'', u'\''}, {'\\', u'\\'}};

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

/// The digit's value; -1 for other characters.
int digitValue(char c, int base)
{
    const int value = c >= '0' && c <= '9'   ? c - '0'
                      : c >= 'a' && c <= 'f' ? c - 'a' + 10
                      : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                             : base;
    return value < base ? value : -1;
}

// ---- Reading ---------------------------------------------------------------------------------

/// Reads what stands behind the "=": one text, or several with commas between.
class ValueReader
{
public:
    explicit ValueReader(QByteArrayView text) : m_text(text) {}

    /// @param isWhole  becomes false when a part cannot be read; the rest stays
    [[nodiscard]] QVariant read(bool &isWhole)
    {
        QStringList elements(readElement());
        while (m_at < m_text.size()) {
            ++m_at; // the comma
            elements << readElement();
        }
        return elements.size() == 1 ? valueOf(elements[0], isWhole)
                                    : valueOfList(elements, isWhole);
    }

private:
    [[nodiscard]] bool isAtEnd() const { return m_at >= m_text.size(); }

    void skipBlanks()
    {
        while (!isAtEnd() && isBlank(m_text[m_at]))
            ++m_at;
    }

    /// Up to the next comma outside of quotes. Blanks around count only inside of quotes.
    QString readElement()
    {
        QString element;
        qsizetype kept = 0; // so much of it is kept, blank or not
        bool isQuoted = false;
        bool hasQuotes = false;
        skipBlanks();
        while (!isAtEnd() && (isQuoted || m_text[m_at] != ',')) {
            if (m_text[m_at] == '"') {
                ++m_at;
                hasQuotes = true;
                isQuoted = !isQuoted;
                if (!isQuoted)
                    skipBlanks();
            } else if (m_text[m_at] == '\\') {
                ++m_at;
                readEscape(element);
                kept = element.size();
            } else {
                readRun(element);
            }
        }
        while (!hasQuotes && element.size() > kept && isBlank(element.back().toLatin1()))
            element.chop(1);
        return element;
    }

    /// Takes at least one character.
    void readRun(QString &element)
    {
        const qsizetype start = m_at++;
        while (!isAtEnd() && !QByteArrayView("\\\",").contains(m_text[m_at]))
            ++m_at;
        element += m_decode(m_text.sliced(start, m_at - start));
    }

    /// What follows a backslash: a letter, a number in base 8 or 16, or a line end, which vanishes.
    void readEscape(QString &element)
    {
        if (isAtEnd())
            return;
        const char c = m_text[m_at];
        for (const auto &[letter, meaning] : kEscapes) {
            if (c == letter) {
                ++m_at;
                element += QChar(meaning);
                return;
            }
        }
        if (c == 'x') {
            ++m_at;
            readNumber(element, 16);
        } else if (digitValue(c, 8) >= 0) {
            readNumber(element, 8);
        } else {
            ++m_at;
            const bool isPair = isLineEnd(c) && !isAtEnd() && isLineEnd(m_text[m_at]);
            m_at += isPair && m_text[m_at] != c ? 1 : 0;
        }
    }

    void readNumber(QString &element, int base)
    {
        unsigned int code = 0;
        const qsizetype start = m_at;
        for (; !isAtEnd() && digitValue(m_text[m_at], base) >= 0; ++m_at)
            code = code * static_cast<unsigned int>(base) +
                   static_cast<unsigned int>(digitValue(m_text[m_at], base));
        if (m_at > start)
            element += QChar(static_cast<char16_t>(code)); // its lowest 16 bits
    }

    QByteArrayView m_text;
    qsizetype m_at = 0;
    // A byte-order mark in a value is a character like others.
    QStringDecoder m_decode{QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom};
};

/// A key or a section's name: "\" stands for "/", "%41" and "%U0041" for a character.
QString unescapedKey(QByteArrayView bytes)
{
    QString key = QString::fromUtf8(bytes).replace(u'\\', u'/');
    for (qsizetype i = key.indexOf(u'%'); i >= 0; i = key.indexOf(u'%', i + 1)) {
        const QStringView rest = QStringView(key).sliced(i + 1);
        const qsizetype start = rest.startsWith(u'U') ? 1 : 0;
        const qsizetype end = start == 1 ? 5 : 2;
        bool isNumber = rest.size() >= end;
        const ushort code =
            isNumber ? rest.first(end).sliced(start).toUShort(&isNumber, 16) : ushort(0);
        if (isNumber)
            key.replace(i, end + 1, QChar(code));
    }
    return key;
}

struct Line
{
    QByteArrayView text;   ///< without white space before it, and without its end
    qsizetype equals = -1; ///< where its first "=" stands, -1 for none
    bool isCut = false;    ///< its quotes hold the end of a line
};

/// Takes a text apart into lines. A backslash or quotes carry a line on over its end.
class LineReader
{
public:
    explicit LineReader(QByteArrayView text) : m_text(text) {}

    /// False at the end.
    bool next(Line &line)
    {
        skipSpaceAndComments();
        line = {};
        const qsizetype start = m_at;
        bool isQuoted = false;
        for (; m_at < m_text.size(); ++m_at) {
            const char c = m_text[m_at];
            const bool ends = c == ';' || isLineEnd(c);
            if (ends && !isQuoted)
                break;
            if (c == '"')
                isQuoted = !isQuoted;
            else if (c == '\\')
                skipEscape();
            else if (c == '=' && !isQuoted && line.equals < 0)
                line.equals = m_at - start;
            line.isCut = line.isCut || isLineEnd(c);
        }
        m_at = std::min(m_at, m_text.size());
        line.text = m_text.sliced(start, m_at - start);
        line.isCut = line.isCut || isQuoted;
        return !line.text.isEmpty();
    }

private:
    void skipSpaceAndComments()
    {
        bool isComment = false;
        for (; m_at < m_text.size(); ++m_at) {
            const char c = m_text[m_at];
            isComment = !isLineEnd(c) && (isComment || c == ';');
            if (!isComment && !isBlank(c) && !isLineEnd(c))
                return;
        }
    }

    /// Moves onto the last character that the backslash takes along.
    void skipEscape()
    {
        ++m_at;
        if (m_at + 1 >= m_text.size())
            return;
        const char c = m_text[m_at];
        const char d = m_text[m_at + 1];
        if (isLineEnd(c) && isLineEnd(d) && c != d)
            ++m_at;
    }

    QByteArrayView m_text;
    qsizetype m_at = 0;
};

/// What stands before the keys of a section: "G/", nothing for the section of keys without group.
/// @param name  between the brackets
QString prefixOf(QByteArrayView name)
{
    if (name.compare(kGeneral, Qt::CaseInsensitive) == 0)
        return {};
    const bool isMarked =
        name.startsWith('%') && name.sliced(1).compare(kGeneral, Qt::CaseInsensitive) == 0;
    return (isMarked ? QString::fromLatin1(name.sliced(1)) : unescapedKey(name)) + u'/';
}

// ---- Writing ---------------------------------------------------------------------------------

bool isPlainInKey(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           c == u'_' || c == u'-' || c == u'.';
}

/// The inverse of unescapedKey(). The last "/" goes as a number: a backslash there would take the
/// "=" along, and the toolkit loses such keys.
void appendKey(QByteArray &text, QStringView key)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (qsizetype i = 0; i < key.size(); ++i) {
        const char16_t code = key[i].unicode();
        if (isPlainInKey(code)) {
            text += static_cast<char>(code);
        } else if (code == u'/' && i + 1 < key.size()) {
            text += '\\';
        } else {
            text += code > 0xFF ? "%U" : "%";
            for (int shift = code > 0xFF ? 12 : 4; shift >= 0; shift -= 4)
                text += kDigits[code >> shift & 0xF];
        }
    }
}

/// The letter that stands for the character behind a backslash; 0 for none.
char escapeLetter(char16_t c)
{
    for (const auto &[letter, meaning] : kEscapes) {
        if (meaning == c)
            return c == u'?' || c == u'\'' ? '\0' : letter;
    }
    return '\0';
}

/// Whether UTF-8 or its readers would lose the character: a control character, half of a surrogate
/// pair without the other, or the byte-order mark, which is dropped.
bool needsNumber(QStringView element, qsizetype at)
{
    const QChar c = element[at];
    const bool isFirst =
        c.isHighSurrogate() && at + 1 < element.size() && element[at + 1].isLowSurrogate();
    const bool isSecond = c.isLowSurrogate() && at > 0 && element[at - 1].isHighSurrogate();
    return c < u' ' || c == QChar::ByteOrderMark || (c.isSurrogate() && !isFirst && !isSecond);
}

bool isHexDigit(QChar c)
{
    return c < u'\x80' && digitValue(c.toLatin1(), 16) >= 0;
}

/// Whether the character goes as it is. A quick no for those that take a closer look.
bool isPlainInElement(char16_t c)
{
    return c >= u' ' && c < 0xD800 && c != u'"' && c != u'\\';
}

/// The inverse of what ValueReader does with one element.
void appendElement(QByteArray &text, QStringView element)
{
    const bool needsQuotes =
        element.startsWith(u' ') || element.endsWith(u' ') ||
        std::ranges::any_of(element, [](QChar c) { return c == u';' || c == u',' || c == u'='; });
    bool followsNumber = false; // which a digit would make longer
    qsizetype plain = 0;        // where the characters begin that go as they are
    text += needsQuotes ? "\"" : "";
    for (qsizetype i = 0; i < element.size(); ++i) {
        const char16_t c = element[i].unicode();
        if (!followsNumber && isPlainInElement(c))
            continue;
        const char letter = escapeLetter(c);
        const bool isNumber = letter == '\0' && ((followsNumber && isHexDigit(element[i])) ||
                                                 needsNumber(element, i));
        followsNumber = isNumber;
        if (letter == '\0' && !isNumber)
            continue;
        text += element.sliced(plain, i - plain).toUtf8() + '\\';
        text += letter != '\0' ? QByteArray(1, letter) : 'x' + QByteArray::number(c, 16);
        plain = i + 1;
    }
    text += element.sliced(plain).toUtf8();
    text += needsQuotes ? "\"" : "";
}

void appendValue(QByteArray &text, const QVariant &value)
{
    const bool isTextList = value.typeId() == QMetaType::QStringList;
    // A list of one looks like its element; as a value of its own it stays a list.
    const bool isList =
        isTextList || (value.typeId() == QMetaType::QVariantList && value.toList().size() != 1);
    if (!isList)
        return appendElement(text, textOfValue(value));
    const QVariantList elements = value.toList();
    if (elements.isEmpty())
        return appendElement(text, textOfValue({}));
    for (qsizetype i = 0; i < elements.size(); ++i) {
        text += i > 0 ? ", " : "";
        appendElement(text, textOfValue(elements[i]));
    }
}

void appendSection(QByteArray &text, QStringView group)
{
    text += text.isEmpty() ? "[" : "\n[";
    if (group.compare(QLatin1StringView(kGeneral), Qt::CaseInsensitive) == 0)
        text += '%' + group.toLatin1(); // the plain one is that of keys without a group
    else
        appendKey(text, group);
    text += "]\n";
}

void appendEntry(QByteArray &text, QStringView key, const QVariant &value)
{
    appendKey(text, key);
    text += '=';
    appendValue(text, value);
    text += '\n';
}

} // namespace

Parsed parse(QByteArrayView text)
{
    Parsed parsed;
    parsed.isWhole = text.isValidUtf8();
    if (text.startsWith(kByteOrderMark))
        text = text.sliced(kByteOrderMark.size());
    QString prefix;
    Line line;
    for (LineReader lines(text); lines.next(line);) {
        parsed.isWhole = parsed.isWhole && !line.isCut;
        if (line.text.startsWith('[')) {
            const qsizetype end = line.text.indexOf(']');
            const QByteArrayView name = end < 0 ? line.text : line.text.first(end);
            prefix = prefixOf(name.sliced(1).trimmed());
            parsed.isWhole =
                parsed.isWhole && end > 0 && line.text.sliced(end + 1).trimmed().isEmpty();
        } else if (line.equals >= 0) {
            const QString key = prefix + unescapedKey(line.text.first(line.equals).trimmed());
            ValueReader reader(line.text.sliced(line.equals + 1));
            parsed.values.insert(key, reader.read(parsed.isWhole));
        } else {
            parsed.isWhole = false;
        }
    }
    return parsed;
}

QByteArray textOf(const QSettings::SettingsMap &values)
{
    QByteArray text;
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (value.key().contains(u'/'))
            continue;
        if (text.isEmpty())
            text = "[General]\n";
        appendEntry(text, value.key(), value.value());
    }
    std::optional<QStringView> group;
    for (auto value = values.begin(); value != values.end(); ++value) {
        const QStringView key = value.key();
        const qsizetype slash = key.indexOf(u'/');
        if (slash < 0)
            continue;
        if (group != key.first(slash)) {
            group = key.first(slash);
            appendSection(text, *group);
        }
        appendEntry(text, key.sliced(slash + 1), value.value());
    }
    return text;
}

} // namespace initext
