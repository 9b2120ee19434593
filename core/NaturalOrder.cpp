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

/// The order of texts that are equal, and have no null character, up to @p at.
template <bool ignoresCase>
Q_NEVER_INLINE int orderFrom(QStringView left, QStringView right, qsizetype at)
{
    while (at > 0 && isDigit(left.utf16()[at - 1]))
        --at; // to the start of a run
    return orderOfRests<ignoresCase>(Walker(left, at), Walker(right, at));
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

/// The highest bit of each unit that is no digit, in a block of ASCII.
quint64 endsOfDigits(quint64 block)
{
    const quint64 values = block ^ (kEach * u'0'); // 0 ... 9 for digits, more for all else
    return (values + kEach * (0x7FFF - 9)) & kHighest;
}

bool isAscii(quint64 block)
{
    return (block & (kEach * 0xFF80)) == 0;
}

bool isAsciiDigit(char16_t c)
{
    return static_cast<char16_t>(c - u'0') < 10;
}

/// The order of two runs of digits that differ first at @p at; 0 behind anything but ASCII.
/// @param longer  which one goes on longer: below 0 the right one, 0 neither
inline int orderOfRuns(const char16_t *x, const char16_t *y, qsizetype at, int longer)
{
    const int difference = orderOf(x[at], y[at]);
    if (longer * difference >= 0) // both say the same, whichever counts
        return difference;
    while (at > 0 && isAsciiDigit(x[at - 1]))
        --at;
    if (at > 0 && x[at - 1] >= 0x80)
        return 0; // may be a digit as well
    const bool isFraction = x[at] == u'0' || y[at] == u'0';
    return isFraction ? difference : longer;
}

/// The order of texts of which one goes on with white space and the other without; 0 when it takes
/// closer looks. @param x, y  have two units at least
template <bool ignoresCase>
inline int orderBehindBlank(const char16_t *x, const char16_t *y)
{
    const char16_t a = x[0] == u' ' ? x[1] : x[0];
    const char16_t b = y[0] == u' ' ? y[1] : y[0];
    const bool isClear = a > u' ' && b > u' ' && !(isAsciiDigit(a) && isAsciiDigit(b));
    if (!isClear)
        return 0;
    return ignoresCase ? orderOf(asciiUpper(a), asciiUpper(b)) : orderOf(a, b);
}

/// The order of texts that differ first at @p at; 0 when it takes closer looks: at white space,
/// ends of texts, and whatever is not ASCII.
/// @param size  of the shorter one
template <bool ignoresCase>
inline int orderOfBlocks(const char16_t *x, const char16_t *y, qsizetype at, qsizetype size)
{
    for (qsizetype next = at; next + kBlock <= size; next += kBlock) {
        const quint64 a = blockAt(x + next);
        const quint64 b = blockAt(y + next);
        if (!isAscii(a | b))
            return 0;
        const quint64 endsA = endsOfDigits(a);
        const quint64 endsB = endsOfDigits(b);
        if ((endsA | endsB) == 0)
            continue; // digits all through
        const int longer = std::countr_zero(endsA) - std::countr_zero(endsB);
        if (next > at || ((endsA | endsB) & 0x8000) == 0)
            return orderOfRuns(x, y, at, longer);
        const char16_t before = at > 0 ? x[at - 1] : u'\0';
        if (longer != 0 && before >= u'0' && (before <= u'9' || before >= 0x80))
            return before <= u'9' ? longer : 0; // of equal runs one goes on
        if (x[at] <= u' ' || y[at] <= u' ')
            return orderBehindBlank<ignoresCase>(x + at, y + at);
        return ignoresCase ? orderOf(asciiUpper(x[at]), asciiUpper(y[at])) : orderOf(x[at], y[at]);
    }
    return 0;
}

/// Below, at or above 0, as @p left comes before, with or after @p right.
template <bool ignoresCase>
int naturalOrder(QStringView left, QStringView right)
{
    const char16_t *const x = left.utf16();
    const char16_t *const y = right.utf16();
    const qsizetype size = std::min(left.size(), right.size());
    quint64 nulls = 0;
    qsizetype at = 0;
    for (; at + kBlock <= size; at += kBlock) {
        const quint64 block = blockAt(x + at);
        const quint64 difference = block ^ blockAt(y + at);
        nulls |= (block - kEach) & ~block; // highest bits: right up to the first null
        if (difference == 0)
            continue;
        at += std::countr_zero(difference) / 16;
        break;
    }
    if ((nulls & kHighest) != 0)
        return orderFrom<ignoresCase>(left, right, 0);
    if (const int order = orderOfBlocks<ignoresCase>(x, y, at, size))
        return order;
    return orderFrom<ignoresCase>(left, right, at);
}

/// The conversion would look twice whether the text is null, which counts here.
QStringView unitsOf(const QString &text)
{
    return {text.begin(), text.end()};
}

} // namespace

bool caseSensitiveNaturalOrderLessThen(const QString &a, const QString &b)
{
    return naturalOrder<false>(unitsOf(a), unitsOf(b)) < 0;
}

bool caseInsensitiveNaturalOrderLessThen(const QString &a, const QString &b)
{
    return naturalOrder<true>(unitsOf(a), unitsOf(b)) < 0;
}
