// SPDX-License-Identifier: GPL-2.0-or-later
// Walks the pairs of a binary DXF file.
#include "dxf/read/binaryscanner_p.h"
#include "dxf/read/readertext_p.h"
#include <QtEndian>

namespace {

enum class ValueType { Text, Chunk, Real, Int8, Int16, Int32, Int64, Unknown };

struct CodeRange
{
    int last; ///< the range begins behind the one before
    ValueType type;
};

/// Which bytes follow which group codes, in ascending order of codes.
constexpr CodeRange kCodeRanges[] = {
    {-6, ValueType::Unknown}, {9, ValueType::Text},      {59, ValueType::Real},
    {79, ValueType::Int16},   {89, ValueType::Unknown},  {99, ValueType::Int32},
    {109, ValueType::Text},   {149, ValueType::Real},    {159, ValueType::Unknown},
    {169, ValueType::Int64},  {179, ValueType::Int16},   {209, ValueType::Unknown},
    {239, ValueType::Real},   {269, ValueType::Unknown}, {289, ValueType::Int16},
    {299, ValueType::Int8},   {309, ValueType::Text},    {319, ValueType::Chunk},
    {369, ValueType::Text},   {389, ValueType::Int16},   {399, ValueType::Text},
    {409, ValueType::Int16},  {419, ValueType::Text},    {429, ValueType::Int32},
    {439, ValueType::Text},   {459, ValueType::Int32},   {469, ValueType::Real},
    {481, ValueType::Text},   {998, ValueType::Unknown}, {1003, ValueType::Text},
    {1004, ValueType::Chunk}, {1009, ValueType::Text},   {1059, ValueType::Real},
    {1070, ValueType::Int16}, {1071, ValueType::Int32},
};

ValueType typeOf(int code)
{
    for (const CodeRange &range : kCodeRanges)
        if (code <= range.last)
            return range.type;
    return ValueType::Unknown;
}

} // namespace

BinaryScanner::BinaryScanner(ByteSource &source) : m_source(source)
{
    m_source.consume(kBinarySentinel.size());
    if (!has(2))
        return;
    // A file begins with code 0, or with a comment (999): 255 escapes it where codes are narrow.
    const auto first = static_cast<unsigned char>(m_source.begin()[0]);
    const auto second = static_cast<unsigned char>(m_source.begin()[1]);
    m_codesAreWide = first == 0 ? second == 0 : first != 255;
}

ScanResult BinaryScanner::next(DxfPair &pair)
{
    pair.position = m_source.offset();
    if (!has(1)) {
        const bool isAtEnd = m_source.state() == ByteSource::State::End;
        return isAtEnd ? ScanResult::End : ScanResult::Error;
    }
    if (!takeCode(pair.code))
        return cutShort();
    pair.valuePosition = m_source.offset();
    pair.isTooLong = false;
    switch (typeOf(pair.code)) {
    case ValueType::Text:
        return takeText(pair);
    case ValueType::Chunk:
        return takeChunk(pair);
    case ValueType::Real:
        return takeReal(pair);
    case ValueType::Int8:
        return takeInteger<qint8>(pair);
    case ValueType::Int16:
        return takeInteger<qint16>(pair);
    case ValueType::Int32:
        return takeInteger<qint32>(pair);
    case ValueType::Int64:
        return takeInteger<qint64>(pair);
    case ValueType::Unknown:
        break;
    }
    return fail(pair.position, ReaderText::tr("%1 is no group code").arg(pair.code));
}

ScanResult BinaryScanner::nextEntity(DxfPair &pair)
{
    ScanResult result = next(pair);
    while (result == ScanResult::Pair && pair.code != 0)
        result = next(pair);
    return result;
}

bool BinaryScanner::has(std::size_t bytes)
{
    while (m_source.unread().size() < bytes)
        if (!m_source.more())
            return false;
    return true;
}

template <typename Number>
Number BinaryScanner::take()
{
    const auto number = qFromLittleEndian<Number>(m_source.begin());
    m_source.consume(sizeof(Number));
    return number;
}

bool BinaryScanner::takeCode(int &code)
{
    if (!m_codesAreWide) {
        code = take<quint8>();
        if (code != 255)
            return true;
    }
    if (!has(2))
        return false;
    code = take<qint16>();
    return true;
}

ScanResult BinaryScanner::takeText(DxfPair &pair)
{
    pair.kind = DxfPair::Kind::Text;
    std::size_t size = m_source.unread().find('\0');
    while (size == std::string_view::npos) {
        if (m_source.isFull()) {
            pair.isTooLong = true;
            m_source.consume(m_source.unread().size());
        }
        if (!m_source.more())
            return cutShort();
        size = m_source.unread().find('\0');
    }
    pair.value = pair.isTooLong ? std::string_view() : m_source.unread().substr(0, size);
    m_source.consume(size + 1);
    return ScanResult::Pair;
}

ScanResult BinaryScanner::takeChunk(DxfPair &pair)
{
    pair.kind = DxfPair::Kind::Text;
    if (!has(1))
        return cutShort();
    const std::size_t size = take<quint8>();
    if (!has(size))
        return cutShort();
    pair.value = m_source.unread().substr(0, size);
    m_source.consume(size);
    return ScanResult::Pair;
}

template <typename Number>
ScanResult BinaryScanner::takeInteger(DxfPair &pair)
{
    if (!has(sizeof(Number)))
        return cutShort();
    pair.kind = DxfPair::Kind::Integer;
    pair.integer = take<Number>();
    return ScanResult::Pair;
}

ScanResult BinaryScanner::takeReal(DxfPair &pair)
{
    if (!has(sizeof(double)))
        return cutShort();
    pair.kind = DxfPair::Kind::Real;
    pair.real = take<double>();
    return ScanResult::Pair;
}

ScanResult BinaryScanner::cutShort()
{
    return fail(m_source.offset(), ReaderText::tr("The file ends in the middle of a value"));
}

ScanResult BinaryScanner::fail(qint64 offset, const QString &message)
{
    m_errorOffset = offset;
    m_errorMessage = message;
    return ScanResult::Error;
}
