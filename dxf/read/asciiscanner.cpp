// SPDX-License-Identifier: GPL-2.0-or-later
// The rare ways of the ASCII scanner: block ends, the last line, lines too long, faults.
#include "dxf/read/asciiscanner_p.h"
#include "dxf/read/readertext_p.h"

AsciiScanner::AsciiScanner(ByteSource &source) : m_source(source)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (m_source.unread().starts_with(kByteOrderMark))
        m_source.consume(kByteOrderMark.size());
}

/// Blanks, an integer of at most five digits, blanks, and perhaps a carriage return.
bool AsciiScanner::parseCode(std::string_view line, int &code)
{
    while (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    constexpr std::size_t kLongest = 6; // with a sign
    const std::string_view digits = trimmed(line);
    const auto [stop, error] = std::from_chars(digits.begin(), digits.end(), code);
    return error == std::errc() && stop == digits.end() && digits.size() <= kLongest;
}

/// The pair at hand is not complete in memory.
ScanResult AsciiScanner::nextSlowly(DxfPair &pair)
{
    if (m_source.more())
        return next(pair);
    switch (m_source.state()) {
    case ByteSource::State::Open:
        return nextTooLong(pair);
    case ByteSource::State::End:
        return lastPair(pair);
    case ByteSource::State::Failed:
    case ByteSource::State::Cancelled:
        break;
    }
    return ScanResult::Error; // the reader looks at the source's state first
}

/// No more bytes will come: the last line may lack its line feed.
ScanResult AsciiScanner::lastPair(DxfPair &pair)
{
    const std::string_view rest = m_source.unread();
    if (trimmed(rest).find_first_not_of("\r\n\x1a") == std::string_view::npos)
        return ScanResult::End; // blank lines and the old end mark behind the last pair
    const std::size_t codeEnd = rest.find('\n');
    if (codeEnd == std::string_view::npos || codeEnd + 1 == rest.size())
        return fail(m_line, ReaderText::tr("The file ends in the middle of a pair of lines"));
    m_source.consume(rest.size());
    return makePair(pair, rest.substr(0, codeEnd), rest.substr(codeEnd + 1));
}

/// A line fills all memory there is. As a value it is passed over; nobody can want it whole.
ScanResult AsciiScanner::nextTooLong(DxfPair &pair)
{
    const std::string_view held = m_source.unread();
    const std::size_t codeEnd = held.find('\n');
    if (codeEnd == std::string_view::npos)
        return failOnCode(m_line, held.substr(0, 100));
    const ScanResult result = makePair(pair, held.substr(0, codeEnd), {});
    pair.isTooLong = true;
    m_source.consume(codeEnd + 1);
    for (;;) {
        const std::size_t valueEnd = m_source.unread().find('\n');
        if (valueEnd != std::string_view::npos) {
            m_source.consume(valueEnd + 1);
            return result;
        }
        m_source.consume(m_source.unread().size());
        if (!m_source.more())
            return m_source.state() == ByteSource::State::End ? result : ScanResult::Error;
    }
}

ScanResult AsciiScanner::fail(qint64 line, const QString &message)
{
    m_errorLine = line;
    m_errorMessage = message;
    return ScanResult::Error;
}

ScanResult AsciiScanner::failOnCode(qint64 line, std::string_view codeLine)
{
    return fail(line, ReaderText::tr("'%1' is no group code").arg(shownText(codeLine)));
}
