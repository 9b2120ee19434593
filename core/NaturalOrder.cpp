// SPDX-License-Identifier: GPL-2.0-or-later
// Natural order: compares names as people count them, "sheet2" before "sheet10".
#include <kelo_base/core/NaturalOrder.h>

#include <QStringView>
#include <cstdint>
#include <cstring>

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

char16_t toUpper(char16_t c)
{
    if (c < 0x80)
        return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - (u'a' - u'A')) : c;
    return QChar(c).toUpper().unicode();
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
    return x == y ? 0 : x < y ? -1 : 1;
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

std::uint64_t fourUnits(const char16_t *at)
{
    std::uint64_t units;
    std::memcpy(&units, at, sizeof units);
    return units;
}

bool hasNull(std::uint64_t units)
{
    return ((units - 0x0001'0001'0001'0001U) & ~units & 0x8000'8000'8000'8000U) != 0;
}

/// Where the walk may begin since all before is the same in both: behind the equal units, but not
/// inside a run of digits, nor behind a null character. Sorting compares neighbours, so this is
/// most of the way.
qsizetype equalStart(QStringView a, QStringView b)
{
    const char16_t *const x = a.utf16();
    const char16_t *const y = b.utf16();
    const qsizetype size = std::min(a.size(), b.size());
    qsizetype at = 0;
    while (at + 4 <= size && fourUnits(x + at) == fourUnits(y + at) && !hasNull(fourUnits(x + at)))
        at += 4;
    while (at < size && x[at] == y[at] && x[at] != u'\0')
        ++at;
    while (at > 0 && isDigit(x[at - 1]))
        --at;
    return at;
}

/// Below, at or above 0, as @p left comes before, with or after @p right.
template <bool ignoresCase>
int naturalOrder(QStringView left, QStringView right)
{
    const qsizetype start = equalStart(left, right);
    Walker a(left, start);
    Walker b(right, start);
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

} // namespace

bool caseSensitiveNaturalOrderLessThen(const QString &a, const QString &b)
{
    return naturalOrder<false>(a, b) < 0;
}

bool caseInsensitiveNaturalOrderLessThen(const QString &a, const QString &b)
{
    return naturalOrder<true>(a, b) < 0;
}
