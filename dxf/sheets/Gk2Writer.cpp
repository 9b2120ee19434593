// SPDX-License-Identifier: GPL-2.0-or-later
// Writes sheets as GK2, the text format in which sheet corners go to other programs.
#include <kelo_base/dxf/Gk2Writer.h>

#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/gk2records_p.h"
#include "dxf/sheets/lookahead_p.h"
#include "dxf/sheets/stepcounter_p.h"
#include <QFile>
#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>
#include <kelo_base/dxf/SheetCorners.h>
#include <optional>

namespace {

constexpr std::size_t kChunk = 256UL * 1024;
constexpr std::ptrdiff_t kColumns = 7;

/// |value| in hundredths, exactly rounded half to even, for |value| < 2^52: a mantissa of 53 bits
/// times 100 fits into 64, so that the rounding sees every bit.
quint64 hundredths(double value)
{
    constexpr int kMantissaBits = 52;
    const auto bits = std::bit_cast<quint64>(value);
    const auto exponent = static_cast<int>((bits >> kMantissaBits) & 0x7FF);
    const int shift = 1075 - std::max(exponent, 1); // value = mantissa / 2^shift
    const quint64 implied = exponent > 0 ? quint64{1} << kMantissaBits : 0;
    const quint64 product = ((bits & (implied - 1)) | implied) * 100;
    if (shift >= 64)
        return 0; // product < 2^60: less than half a hundredth
    const quint64 whole = product >> shift;
    const quint64 rest = product & ((quint64{1} << shift) - 1);
    const quint64 half = quint64{1} << (shift - 1);
    const bool roundsUp = rest > half || (rest == half && (whole & 1) != 0);
    return whole + (roundsUp ? 1 : 0);
}

/// Writes "123,45"; gives the end.
char *writeHundredths(char *begin, char *limit, quint64 count)
{
    const auto cents = static_cast<unsigned>(count % 100);
    char *end = std::to_chars(begin, limit, count / 100).ptr;
    *end++ = ',';
    *end++ = static_cast<char>('0' + cents / 10);
    *end++ = static_cast<char>('0' + cents % 10);
    return end;
}

void appendAligned(std::string &text, const char *begin, const char *end)
{
    const std::ptrdiff_t missing = kColumns - (end - begin);
    if (missing > 0)
        text.append(static_cast<std::size_t>(missing), ' ');
    text.append(begin, end);
}

void appendCornerLines(std::string &text, const DxfDrawing &drawing, const DxfPolyline &polyline)
{
    for (const auto &corner : CornersOf(drawing, polyline)) {
        if (!corner)
            continue;
        AppendGk2Coordinate(text, corner->x);
        text += "     ";
        AppendGk2Coordinate(text, corner->y);
        text += "    \r\n";
    }
}

/// The sheet number of an insert that is exported; nothing when it is not.
std::optional<std::string_view> recordNumber(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const DxfBlock *block = drawing.BlockOf(insert);
    if (!block || block->polylineCount == 0 || !insert.exportMark)
        return std::nullopt;
    return dxftools::sheetNumberAttribute(drawing, insert);
}

/// Formats records. Sheets of one block in a row format its corners once.
class RecordFormatter
{
public:
    explicit RecordFormatter(const DxfDrawing &drawing) : m_drawing(drawing) {}

    /// False, and nothing appended, when the insert is not to be exported.
    bool Append(std::string &text, const DxfInsert &insert)
    {
        const auto number = recordNumber(m_drawing, insert);
        if (!number)
            return false;
        text += "\r\n";
        text += *number;
        text += "\r\n";
        text += cornersOf(*m_drawing.BlockOf(insert));
        return true;
    }

private:
    const std::string &cornersOf(const DxfBlock &block)
    {
        if (m_block == &block)
            return m_corners;
        m_block = &block;
        m_corners.clear();
        for (const DxfPolyline &polyline : m_drawing.Polylines(block))
            appendCornerLines(m_corners, m_drawing, polyline);
        return m_corners;
    }

    const DxfDrawing &m_drawing;
    const DxfBlock *m_block = nullptr;
    std::string m_corners; ///< the corner lines of m_block
};

/// Hands the text over and empties it. False when the device did not take it all; after a part,
/// only its next refusal tells why.
bool flush(QIODevice &device, std::string &text)
{
    const auto size = static_cast<qint64>(text.size());
    qint64 done = 0;
    qint64 stored = 1;
    while (done < size && stored > 0) {
        stored = device.write(text.data() + done, size - done);
        done += std::max<qint64>(stored, 0);
    }
    text.clear();
    return done == size;
}

/// A device that takes everything and keeps nothing.
class Nowhere : public QIODevice
{
public:
    Nowhere() { open(WriteOnly | Unbuffered); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override { return size; }
};

} // namespace

void AppendGk2Coordinate(std::string &text, double coordinate)
{
    constexpr double kExactBelow = 4503599627370496.0; // 2^52
    char digits[328];                                  // the longest double takes 313
    char *end = digits;
    if (std::abs(coordinate) < kExactBelow) {
        if (std::signbit(coordinate))
            *end++ = '-'; // also where it rounds to zero, as in C
        end = writeHundredths(end, std::end(digits), hundredths(coordinate));
    } else {
        const auto fixed = std::chars_format::fixed;
        end = std::to_chars(digits, std::end(digits), coordinate, fixed, 2).ptr;
        std::replace(digits, end, '.', ',');
    }
    appendAligned(text, digits, end);
}

Gk2Result WriteGk2(QIODevice &device, const DxfDrawing &drawing, std::span<const quint32> sheets,
                   const PlanProgress &progress)
{
    Gk2Result result;
    RecordFormatter records(drawing);
    const Lookahead lookahead(drawing, sheets);
    StepCounter steps(progress, sheets.size());
    std::string text = "GK2\r\n";
    text.reserve(kChunk + 4096);
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        lookahead.Fetch(i);
        if (records.Append(text, drawing.Inserts()[sheets[i]]))
            ++result.written;
        if (text.size() >= kChunk)
            result.stored = flush(device, text);
        result.cancelled = !steps.step();
        if (!result)
            return result;
    }
    result.stored = flush(device, text);
    return result;
}

qint64 dxftools::countGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets)
{
    Nowhere nowhere;
    return WriteGk2(nowhere, drawing, sheets).written;
}

bool dxftools::hasGk2Records(const DxfDrawing &drawing, std::span<const quint32> sheets)
{
    return std::ranges::any_of(sheets, [&](quint32 sheet) {
        return recordNumber(drawing, drawing.Inserts()[sheet]).has_value();
    });
}

qint64 ExportGk2File(const QString &path, const DxfDrawing &drawing,
                     std::span<const quint32> sheets)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        const Gk2Result result = WriteGk2(file, drawing, sheets);
        if (result)
            return result.written;
    }
    return dxftools::countGk2Records(drawing, sheets);
}
