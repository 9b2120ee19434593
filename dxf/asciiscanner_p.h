// SPDX-License-Identifier: GPL-2.0-or-later
// Walks the pairs of an ASCII DXF file at the speed of memory.
#pragma once

#include "dxf/bytesource_p.h"
#include "dxf/pair_p.h"
#include <QString>
#include <bit>
#include <cstdint>
#include <cstring>

/// The first line feed at or after @p text, looked for eight bytes at a time. There must be one,
/// and eight readable bytes behind it.
[[nodiscard]] inline const char *findLineFeed(const char *text)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighs = 0x8080808080808080;
    for (;; text += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text, 8);
        if constexpr (std::endian::native == std::endian::big)
            word = __builtin_bswap64(word);
        word ^= kOnes * '\n'; // a line feed becomes a zero byte
        // A borrow can only mark bytes above the first zero one, so the lowest mark is exact.
        const std::uint64_t zeros = (word - kOnes) & ~word & kHighs;
        if (zeros != 0)
            return text + std::countr_zero(zeros) / 8;
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
        if (!parseCode(codeLine, pair.code))
            return failOnCode(pair.position, codeLine);
        while (!valueLine.empty() && valueLine.back() == '\r')
            valueLine.remove_suffix(1);
        pair.value = valueLine;
        pair.isTooLong = false;
        return ScanResult::Pair;
    }
    static bool parseCode(std::string_view line, int &code);
    ScanResult nextSlowly(DxfPair &pair);
    ScanResult lastPair(DxfPair &pair);
    ScanResult nextTooLong(DxfPair &pair);
    ScanResult fail(qint64 line, const QString &message);
    ScanResult failOnCode(qint64 line, std::string_view codeLine);

    ByteSource &m_source;
    qint64 m_line = 1;
    qint64 m_errorLine = 0;
    QString m_errorMessage;
};

inline bool AsciiScanner::parseCode(std::string_view line, int &code)
{
    const char *at = line.data();
    const char *const end = at + line.size();
    while (at != end && (*at == ' ' || *at == '\t'))
        ++at;
    const bool isNegative = at != end && *at == '-';
    if (isNegative)
        ++at;
    const char *const digits = at;
    int value = 0;
    while (at != end && static_cast<unsigned char>(*at - '0') < 10 && at - digits < 6)
        value = value * 10 + (*at++ - '0');
    const bool hasDigits = at != digits && at - digits < 6;
    while (at != end && (*at == '\r' || *at == ' ' || *at == '\t'))
        ++at;
    code = isNegative ? -value : value;
    return hasDigits && at == end;
}
