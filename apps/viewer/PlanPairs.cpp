// SPDX-License-Identifier: GPL-2.0-or-later
// Cuts a file into pairs.
#include "PlanPairs.h"

#include <QtEndian>
#include <charconv>
#include <cstring>
#include <kelo_base/core/FileName.h>

namespace {

constexpr qint64 kPiece = 262'144;
constexpr std::size_t kLongestLine = 1 << 20;
constexpr std::string_view kBinaryMark{"AutoCAD Binary DXF\r\n\x1a\0", 22};

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

enum class Kind { Text, Real, Int16, Int32, Int64, Byte, Chunk };

/// What a binary file holds behind a code.
Kind kindOf(int code)
{
    const auto isIn = [code](int low, int high) { return low <= code && code <= high; };
    if (isIn(10, 59) || isIn(110, 149) || isIn(210, 239) || isIn(460, 469) || isIn(1010, 1059))
        return Kind::Real;
    if (isIn(60, 79) || isIn(170, 179) || isIn(270, 289) || isIn(370, 389) || isIn(400, 409) ||
        isIn(1060, 1070))
        return Kind::Int16;
    if (isIn(90, 99) || isIn(420, 429) || isIn(440, 459) || code == 1071)
        return Kind::Int32;
    if (isIn(160, 169))
        return Kind::Int64;
    if (isIn(290, 299))
        return Kind::Byte;
    return isIn(310, 319) || code == 1004 ? Kind::Chunk : Kind::Text;
}

} // namespace

bool PlanPairs::open(const QString &path)
{
    if (!OpenForReading(m_file, path) || !fill())
        return false;
    m_isBinary = m_bytes.compare(0, kBinaryMark.size(), kBinaryMark) == 0;
    if (m_isBinary) {
        m_at = kBinaryMark.size();
        // The first pair is (0, SECTION): its code has one byte, or two since R13.
        m_hasWideCodes = has(2) && m_bytes[m_at + 1] == 0;
    } else if (m_bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) {
        m_at = 3;
    }
    return true;
}

bool PlanPairs::next(PlanPair &pair)
{
    return m_isBinary ? nextBinary(pair) : nextAscii(pair);
}

/// Drops what was taken, and reads on. False at the end.
bool PlanPairs::fill()
{
    m_bytes.erase(0, m_at);
    m_at = 0;
    const std::size_t old = m_bytes.size();
    m_bytes.resize(old + static_cast<std::size_t>(kPiece));
    const qint64 read = m_file.read(m_bytes.data() + old, kPiece);
    m_bytes.resize(old + static_cast<std::size_t>(std::max<qint64>(read, 0)));
    m_done += std::max<qint64>(read, 0);
    return read > 0;
}

bool PlanPairs::has(std::size_t bytes)
{
    while (m_bytes.size() - m_at < bytes)
        if (!fill())
            return false;
    return true;
}

bool PlanPairs::takeLine(std::string_view &line)
{
    std::size_t end = m_bytes.find('\n', m_at);
    while (end == std::string::npos) {
        const std::size_t seen = m_bytes.size() - m_at;
        if (seen > kLongestLine)
            return false;
        if (!fill()) {
            end = m_bytes.size();
            break;
        }
        end = m_bytes.find('\n', m_at + seen);
    }
    if (end == m_at && end == m_bytes.size())
        return false;
    line = std::string_view(m_bytes).substr(m_at, end - m_at);
    m_at = std::min(end + 1, m_bytes.size());
    return true;
}

bool PlanPairs::nextAscii(PlanPair &pair)
{
    std::string_view line;
    if (!takeLine(line))
        return false;
    const std::string_view code = trimmed(line);
    const auto [stop, error] = std::from_chars(code.data(), code.data() + code.size(), pair.code);
    if (error != std::errc() || stop != code.data() + code.size() || !takeLine(line))
        return false;
    while (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    pair.value = line;
    return true;
}

bool PlanPairs::takeCode(int &code)
{
    if (!has(3))
        return false;
    const auto byte = static_cast<unsigned char>(m_bytes[m_at]);
    if (m_hasWideCodes || byte == 255) {
        const std::size_t at = m_hasWideCodes ? m_at : m_at + 1;
        code = qFromLittleEndian<qint16>(m_bytes.data() + at);
        m_at = at + 2;
    } else {
        code = byte;
        ++m_at;
    }
    return true;
}

bool PlanPairs::takeText(std::string_view &text)
{
    std::size_t end = m_bytes.find('\0', m_at);
    while (end == std::string::npos) {
        const std::size_t seen = m_bytes.size() - m_at;
        if (seen > kLongestLine || !fill())
            return false;
        end = m_bytes.find('\0', m_at + seen);
    }
    text = std::string_view(m_bytes).substr(m_at, end - m_at);
    m_at = end + 1;
    return true;
}

template <typename Number>
bool PlanPairs::takeNumber(std::string_view &text)
{
    if (!has(sizeof(Number)))
        return false;
    const auto number = qFromLittleEndian<Number>(m_bytes.data() + m_at);
    m_at += sizeof(Number);
    char digits[32];
    const auto [end, error] = std::to_chars(digits, std::end(digits), number);
    m_number.assign(digits, end);
    text = m_number;
    return true;
}

bool PlanPairs::nextBinary(PlanPair &pair)
{
    if (!takeCode(pair.code))
        return false;
    switch (kindOf(pair.code)) {
    case Kind::Text:
        return takeText(pair.value);
    case Kind::Real:
        return takeNumber<double>(pair.value);
    case Kind::Int16:
        return takeNumber<qint16>(pair.value);
    case Kind::Int32:
        return takeNumber<qint32>(pair.value);
    case Kind::Int64:
        return takeNumber<qint64>(pair.value);
    case Kind::Byte:
        return takeNumber<quint8>(pair.value);
    case Kind::Chunk:
        break;
    }
    if (!has(1))
        return false;
    const auto size = static_cast<unsigned char>(m_bytes[m_at]);
    if (!has(1U + size))
        return false;
    m_at += 1U + size;
    pair.value = {};
    return true;
}
