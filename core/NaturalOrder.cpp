// SPDX-License-Identifier: GPL-2.0-or-later
// Natural order: compares names as people count them, "sheet2" before "sheet10".
#include <kelo_base/core/NaturalOrder.h>

#include <QStringView>
#include <QtEndian>
#include <algorithm>
#include <bit>

namespace {

// QChar's classes, with a short way for ASCII, which is nearly all there is in names.
bool isSpace(char16_t c)
{
    return c < 0x80 ? c == u' ' || (c >= u'\t' && c <= u'\r') : QChar::isSpace(c);
}

bool isDigit(char16_t c)
{
    return c < 0x80 ? c >= u'0' && c <= u'9' : QChar::isDigit(c);
}

char16_t asciiUpper(char16_t c)
{
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - (u'a' - u'A')) : c;
}

char16_t toUpper(char16_t c)
{
    return c < 0x80 ? asciiUpper(c) : QChar(c).toUpper().unicode();
}

/// A position in a text; at the end it shows the null character.
class Walker
{
public:
    Walker(QStringView text, qsizetype start)
        : m_at(text.utf16() + start), m_end(text.utf16() + text.size())
    {
    }

    [[nodiscard]] char16_t current() const { return m_at < m_end ? *m_at : u'\0'; }
    void advance() { ++m_at; }
    void skipSpace()
    {
        while (isSpace(current()))
            ++m_at;
    }

private:
    const char16_t *m_at;
    const char16_t *m_end;
};

int orderOf(char16_t x, char16_t y)
{
    return static_cast<int>(x) - static_cast<int>(y);
}

/// Compares two runs of digits from the left, like decimal places. Moves behind equal ones.
int compareAsFractions(Walker &a, Walker &b)
{
    for (;; a.advance(), b.advance()) {
        const bool endsA = !isDigit(a.current());
        const bool endsB = !isDigit(b.current());
        if (endsA || endsB)
            return static_cast<int>(endsB) - static_cast<int>(endsA);
        if (const int order = orderOf(a.current(), b.current()))
            return order;
    }
}

/// Compares two runs of digits as numbers without leading zeros. Moves behind equal ones.
int compareAsIntegers(Walker &a, Walker &b)
{
    int firstDifference = 0; // decides once both prove equally long
    for (;; a.advance(), b.advance()) {
        const bool endsA = !isDigit(a.current());
        const bool endsB = !isDigit(b.current());
        if (endsA && endsB)
            return firstDifference;
        if (endsA || endsB)
            return endsA ? -1 : 1;
        if (firstDifference == 0)
            firstDifference = orderOf(a.current(), b.current());
    }
}

/// Compares from positions that are outside of runs of digits, or at the start of both.
template <bool ignoresCase>
int orderOfRests(Walker a, Walker b)
{
    for (;;) {
        a.skipSpace();
        b.skipSpace();
        const char16_t x = a.current();
        const char16_t y = b.current();
        if (isDigit(x) && isDigit(y)) {
            const bool isFraction = x == u'0' || y == u'0';
            if (const int order = isFraction ? compareAsFractions(a, b) : compareAsIntegers(a, b))
                return order;
            continue;
        }
        if (const int order = ignoresCase ? orderOf(toUpper(x), toUpper(y)) : orderOf(x, y))
            return order;
        if (x == u'\0')
            return 0;
        a.advance();
        b.advance();
    }
}

/// The conversion would look twice whether the text is null, which counts here.
QStringView unitsOf(const QString &text)
{
    return {text.begin(), text.size()};
}

/// Whether @p left comes before @p right; both are equal, and have no null character, up to @p at.
template <bool ignoresCase>
Q_NEVER_INLINE bool isLessFrom(const QString &left, const QString &right, qsizetype at)
{
    const QStringView x = unitsOf(left);
    const QStringView y = unitsOf(right);
    while (at > 0 && isDigit(x.utf16()[at - 1]))
        --at; // to the start of a run
    return orderOfRests<ignoresCase>(Walker(x, at), Walker(y, at)) < 0;
}

// Sorting compares neighbours: much is equal at the start, and the first difference mostly decides.
// So four units are looked at together, the first in the lowest 16 bits. Few steps without turns
// matter more than it seems: processors then fetch the next texts ahead.
constexpr qsizetype kBlock = 4;
constexpr quint64 kEach = 0x0001'0001'0001'0001;
constexpr quint64 kHighest = kEach * 0x8000;

quint64 blockAt(const char16_t *units)
{
    return qFromLittleEndian<quint64>(units);
}

/// The highest bit of each unit that is no digit, among other bits, in a block of ASCII.
quint64 endsOfDigits(quint64 block)
{
    const quint64 values = block ^ (kEach * u'0'); // 0 ... 9 for digits, more for all else
    return values + kEach * (0x7FFF - 9);
}

bool isAscii(quint64 block)
{
    return (block & (kEach * 0xFF80)) == 0;
}

bool isAsciiDigit(char16_t c)
{
    return static_cast<char16_t>(c - u'0') < 10;
}

/// An answer of the quick look.
enum class Less { No, Yes, Unclear };

Less answer(bool isLess)
{
    return isLess ? Less::Yes : Less::No;
}

/// Two runs of digits of unequal length, whose first difference at @p at says the contrary of
/// their lengths.
Less lessOfRuns(const char16_t *x, const char16_t *y, qsizetype at)
{
    const bool isShorter = x[at] > y[at];
    while (at > 0 && isAsciiDigit(x[at - 1]))
        --at;
    if (at > 0 && x[at - 1] >= 0x80)
        return Less::Unclear; // may be a digit as well
    const bool isFraction = x[at] == u'0' || y[at] == u'0';
    return answer(isShorter != isFraction);
}

/// Two runs of digits that differ first at @p at.
/// @param last  the last place where a block may begin
inline Less lessOfDigits(const char16_t *x, const char16_t *y, qsizetype at, qsizetype last)
{
    const bool isLess = x[at] < y[at];
    for (qsizetype next = at; next <= last; next += kBlock) {
        const quint64 a = blockAt(x + next);
        const quint64 b = blockAt(y + next);
        if (!isAscii(a | b))
            break;
        const quint64 endsA = endsOfDigits(a);
        const quint64 endsB = endsOfDigits(b);
        const quint64 ends = (endsA | endsB) & kHighest;
        if (ends == 0)
            continue; // digits all through
        const quint64 first = ends & (~ends + 1);
        if ((endsA & endsB & first) != 0) // of equal length
            return answer(isLess);
        const bool isShorter = (endsA & first) != 0;
        return isShorter == isLess ? answer(isLess) : lessOfRuns(x, y, at);
    }
    return Less::Unclear;
}

/// Of texts one of which goes on with white space, the other without.
/// @param x, y  have two units at least
template <bool ignoresCase>
inline Less lessBehindBlank(const char16_t *x, const char16_t *y)
{
    const char16_t a = x[0] == u' ' ? x[1] : x[0];
    const char16_t b = y[0] == u' ' ? y[1] : y[0];
    if (a <= u' ' || b <= u' ' || a >= 0x80 || b >= 0x80 || (isAsciiDigit(a) && isAsciiDigit(b)))
        return Less::Unclear;
    const char16_t c = ignoresCase ? asciiUpper(a) : a;
    const char16_t d = ignoresCase ? asciiUpper(b) : b;
    return c == d ? Less::Unclear : answer(c < d);
}

/// Texts that differ first at @p at. Unclear are white space, ends of texts, and whatever is not
/// ASCII.
/// @param last  the last place where a block may begin; not below @p at
template <bool ignoresCase>
inline Less lessAt(const char16_t *x, const char16_t *y, qsizetype at, qsizetype last)
{
    const char16_t a = x[at];
    const char16_t b = y[at];
    const bool isDigitA = isAsciiDigit(a);
    const bool isDigitB = isAsciiDigit(b);
    if (isDigitA && isDigitB)
        return lessOfDigits(x, y, at, last);
    if (a >= 0x80 || b >= 0x80)
        return Less::Unclear;
    if (isDigitA != isDigitB && at > 0 && x[at - 1] >= u'0') {
        if (x[at - 1] >= 0x80)
            return Less::Unclear; // may be a digit as well
        if (x[at - 1] <= u'9')
            return answer(isDigitB); // of equal runs one goes on
    }
    if (a <= u' ' || b <= u' ')
        return lessBehindBlank<ignoresCase>(x + at, y + at);
    const char16_t c = ignoresCase ? asciiUpper(a) : a;
    const char16_t d = ignoresCase ? asciiUpper(b) : b;
    return c == d ? Less::Unclear : answer(c < d);
}

/// Whether @p left comes before @p right.
template <bool ignoresCase>
bool isLess(const QString &left, const QString &right)
{
    const char16_t *const x = unitsOf(left).utf16();
    const char16_t *const y = unitsOf(right).utf16();
    const qsizetype last = std::min(left.size(), right.size()) - kBlock;
    quint64 nulls = 0; // highest bits: all up to the first null, and perhaps of far characters
    qsizetype at = 0;
    for (; at <= last; at += kBlock) {
        const quint64 block = blockAt(x + at);
        const quint64 difference = block ^ blockAt(y + at);
        nulls |= block - kEach;
        if (difference == 0)
            continue;
        at += std::countr_zero(difference) / 16;
        break;
    }
    if ((nulls & kHighest) != 0)
        return isLessFrom<ignoresCase>(left, right, 0);
    const Less less = at <= last ? lessAt<ignoresCase>(x, y, at, last) : Less::Unclear;
    return less == Less::Unclear ? isLessFrom<ignoresCase>(left, right, at) : less == Less::Yes;
}

} // namespace

bool caseSensitiveNaturalOrderLessThen(const QString &a, const QString &b)
{
    return isLess<false>(a, b);
}

bool caseInsensitiveNaturalOrderLessThen(const QString &a, const QString &b)
{
    return isLess<true>(a, b);
}
