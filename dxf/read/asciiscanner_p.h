// SPDX-License-Identifier: GPL-2.0-or-later
// Walks the pairs of an ASCII DXF file at the speed of memory.
#pragma once

#include "dxf/read/bytesource_p.h"
#include "dxf/read/pair_p.h"
#include <QString>
#include <QtEndian>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Eight bytes as a number, the first one lowest.
[[nodiscard]] inline std::uint64_t loadEight(const char *text)
{
    std::uint64_t word = 0;
    std::memcpy(&word, text, 8);
    if constexpr (std::endian::native == std::endian::big)
        word = qbswap(word);
    return word;
}

/// Marks in the lowest marked byte the first line feed among eight bytes; 0 when there is none.
[[nodiscard]] inline std::uint64_t lineFeedMarks(const char *text)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighs = 0x8080808080808080;
    const std::uint64_t word = loadEight(text) ^ (kOnes * '\n'); // a line feed becomes a zero byte
    // A borrow can only mark bytes above the first zero one, so the lowest mark is exact.
    return (word - kOnes) & ~word & kHighs;
}

/// The first line feed at or after @p text. There must be one, and 16 readable bytes behind it.
/// Sixteen bytes at a time, since most lines of a plan are shorter: one branch that is foreseen.
[[nodiscard]] inline const char *findLineFeed(const char *text)
{
#ifdef __SSE2__ // a comparison for all sixteen; two thirds of the time of the portable way
    const __m128i lineFeeds = _mm_set1_epi8('\n');
    for (;; text += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(text));
        const int marks = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, lineFeeds));
        if (marks != 0)
            return text + std::countr_zero(static_cast<unsigned>(marks));
    }
#endif
    for (;; text += 16) {
        const std::uint64_t low = lineFeedMarks(text);
        const std::uint64_t high = lineFeedMarks(text + 8);
        if ((low | high) != 0)
            return text + (low != 0 ? std::countr_zero(low) : 64 + std::countr_zero(high)) / 8;
    }
}

/// Gives the pairs of an ASCII file one after the other. Lines end with LF or CR LF; codes may be
/// padded with blanks; every code must be an integer of at most five digits.
class AsciiScanner
{
public:
    /// Begins at the source's first unread byte; a byte-order mark is passed over.
    explicit AsciiScanner(ByteSource &source);

    ScanResult next(DxfPair &pair)
    {
        const char *const code = m_source.begin();
        const char *const codeEnd = findLineFeed(code);
        if (codeEnd >= m_source.end())
            return nextSlowly(pair);
        const char *const valueEnd = findLineFeed(codeEnd + 1);
        if (valueEnd >= m_source.end())
            return nextSlowly(pair);
        m_source.consumeTo(valueEnd + 1);
        return makePair(pair, {code, codeEnd}, {codeEnd + 1, valueEnd});
    }

    /// The next pair that begins an entity, a section or the end. The pairs before it are passed
    /// over, but their codes are looked at as next() does.
    ScanResult nextEntity(DxfPair &pair)
    {
        ScanResult result = ScanResult::Pair;
        do {
            passOver();
            result = next(pair);
        } while (result == ScanResult::Pair && pair.code != 0);
        return result;
    }

    [[nodiscard]] qint64 errorPosition() const { return m_errorLine; }
    [[nodiscard]] QString errorMessage() const { return m_errorMessage; }
    /// Where reading has arrived: the line that begins at the first unread byte.
    [[nodiscard]] qint64 position() const { return m_line; }

private:
    ScanResult makePair(DxfPair &pair, std::string_view codeLine, std::string_view valueLine)
    {
        pair.position = m_line;
        pair.valuePosition = m_line + 1;
        m_line += 2;
        if (!findCode(codeLine, pair.code))
            return failOnCode(pair.position, codeLine);
        while (!valueLine.empty() && valueLine.back() == '\r')
            valueLine.remove_suffix(1);
        pair.value = valueLine;
        pair.isTooLong = false;
        return ScanResult::Pair;
    }
    /// Up to a pair with code 0, with a fault, or that is not whole in memory.
    void passOver()
    {
        const char *text = m_source.begin();
        for (int code = 0;; m_line += 2) {
            const char *const codeEnd = findLineFeed(text);
            if (codeEnd >= m_source.end())
                break;
            const char *const valueEnd = findLineFeed(codeEnd + 1);
            if (valueEnd >= m_source.end() || !findCode({text, codeEnd}, code) || code == 0)
                break;
            text = valueEnd + 1;
        }
        m_source.consumeTo(text);
    }
    bool findCode(std::string_view line, int &code);
    static bool parseCode(std::string_view line, int &code);
    ScanResult nextSlowly(DxfPair &pair);
    ScanResult lastPair(DxfPair &pair);
    ScanResult nextTooLong(DxfPair &pair);
    ScanResult fail(qint64 line, const QString &message);
    ScanResult failOnCode(qint64 line, std::string_view codeLine);

    struct KnownCode
    {
        std::uint64_t line = 0; ///< its bytes and, in the lowest one, their number
        int code = 0;
    };

    ByteSource &m_source;
    std::array<KnownCode, 256> m_knownCodes{};
    qint64 m_line = 1;
    qint64 m_errorLine = 0;
    QString m_errorMessage;
};

/// A plan has few different codes: a table remembers what their lines looked like.
inline bool AsciiScanner::findCode(std::string_view line, int &code)
{
    constexpr std::size_t kLongest = 5;
    if (line.size() > kLongest || line.empty())
        return parseCode(line, code);
    // There are more than eight bytes behind every line's begin.
    const std::uint64_t key = (loadEight(line.data()) << (64 - 8 * line.size())) | line.size();
    KnownCode &known = m_knownCodes[(key * 0x9E3779B97F4A7C15) >> 56];
    if (known.line != key) {
        if (!parseCode(line, code))
            return false;
        known = {key, code};
    }
    code = known.code;
    return true;
}
