// SPDX-License-Identifier: GPL-2.0-or-later
// What holds for any bytes that are read as a plan and written as GK2.
#include "fuzz/checkplan.h"
#include "fuzz/promise.h"
#include <QBuffer>
#include <cmath>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <kelo_base/dxf/SheetPlacing.h>

namespace {

/// Gives a few bytes at a time and does not tell how many there are.
class Trickle : public QIODevice
{
public:
    explicit Trickle(std::string_view bytes) : m_rest(bytes) { open(ReadOnly | Unbuffered); }
    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        const std::size_t count =
            m_rest.copy(data, std::min(static_cast<std::size_t>(size), m_step));
        m_rest.remove_prefix(count);
        m_step = m_step % 61 + 1;
        return count == 0 ? -1 : static_cast<qint64>(count);
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    std::string_view m_rest;
    std::size_t m_step = 1;
};

DxfReadResult readAtOnce(std::string_view bytes)
{
    QByteArray copy(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    return ReadDxf(buffer, QStringLiteral("plan"));
}

QByteArray writeAll(const DxfDrawing &drawing, const std::vector<quint32> &sheets, qint64 &written)
{
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    written = WriteGk2(buffer, drawing, sheets).written;
    return text;
}

/// Takes the lines of a GK2 file one after the other.
class Lines
{
public:
    explicit Lines(const QByteArray &text)
        : m_rest(text.constData(), static_cast<std::size_t>(text.size()))
    {
    }
    std::string_view next()
    {
        const std::size_t end = m_rest.find("\r\n");
        promise(end != std::string_view::npos, "every line ends with CR LF, and none is missing");
        const std::string_view line = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 2);
        return line;
    }
    /// A text that may itself hold CR, so that it is taken by its length.
    void expect(std::string_view text)
    {
        promise(m_rest.starts_with(text), "the sheet number stands in the file as it is");
        m_rest.remove_prefix(text.size());
        promise(next().empty(), "the sheet number fills its line");
    }
    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

void checkCorner(std::string_view line, DxfVertex vertex)
{
    QByteArray text(line.data(), static_cast<qsizetype>(line.size()));
    const QByteArrayList fields = text.replace(',', '.').simplified().split(' ');
    promise(fields.size() == 2, "a corner has two coordinates");
    const auto isNear = [](double a, double b) {
        return std::abs(a - b) <= 0.005 + std::abs(b) * 1e-15;
    };
    promise(isNear(fields[0].toDouble(), vertex.x) && isNear(fields[1].toDouble(), vertex.y),
            "a corner stands in the file as it was read");
}

void checkRecord(Lines &lines, const DxfDrawing &drawing, const DxfInsert &insert)
{
    promise(lines.next().empty(), "a record begins with an empty line");
    lines.expect(*SheetNumberText(drawing, insert));
    for (const DxfPolyline &polyline : drawing.Polylines(*drawing.BlockOf(insert)))
        for (const VtxPosition corner : {vpTopLeft, vpTopRight, vpBottomRight, vpBottomLeft})
            for (quint32 i = 0; i < polyline.vertexCount; ++i)
                if (drawing.Corner(polyline, i) == corner)
                    checkCorner(lines.next(), drawing.Vertices(polyline)[i]);
}

void checkDrawing(DxfDrawing &drawing, CornerOrder order)
{
    const auto analysis = AnalyzeSheets(drawing, {}, order, QStringLiteral("plan"));
    promise(analysis.has_value(), "nobody cancelled");
    qint64 written = 0;
    const QByteArray text = writeAll(drawing, analysis->sheets, written);
    Lines lines(text);
    promise(lines.next() == "GK2", "the header comes first");
    qint64 records = 0;
    qint64 lastNumber = -1;
    for (const quint32 sheet : analysis->sheets) {
        const DxfInsert &insert = drawing.Inserts()[sheet];
        promise(SheetNumber(drawing, insert) >= lastNumber, "sheets ascend");
        lastNumber = SheetNumber(drawing, insert);
        if (!SheetNumberText(drawing, insert))
            continue;
        checkRecord(lines, drawing, insert);
        ++records;
    }
    promise(lines.isAtEnd(), "nothing else stands in the file");
    promise(records == written, "the count is that of the records");
}

void checkPlaced(const DxfDrawing &drawing)
{
    PlacingResult placed = PlaceInserts(drawing);
    promise(!placed.cancelled, "nobody cancelled");
    if (placed.tooLarge)
        return;
    promise(placed.drawing.Inserts().size() >= drawing.Inserts().size(), "no insert is lost");
    for (const DxfBlock &block : placed.drawing.Blocks())
        for (const DxfPolyline &polyline : placed.drawing.Polylines(block))
            for (const DxfVertex &vertex : placed.drawing.Vertices(polyline))
                promise(std::isfinite(vertex.x) && std::isfinite(vertex.y), "all stays finite");
    checkDrawing(placed.drawing, CornerOrder::Upright);
}

} // namespace

void checkPlan(std::string_view bytes)
{
    DxfReadResult plan = readAtOnce(bytes);
    Trickle trickle(bytes);
    const DxfReadResult again = ReadDxf(trickle, QStringLiteral("plan"));
    promise(plan.error.has_value() == again.error.has_value(), "pieces are read as a whole is");
    if (plan.error) {
        promise(!plan.error->message.isEmpty(), "a refusal has a reason");
        promise(plan.error->message == again.error->message, "both ways give one reason");
        promise(plan.drawing.Inserts().empty() && plan.drawing.Blocks().empty(),
                "a refused plan leaves nothing");
        return;
    }
    promise(plan.drawing.Inserts().size() == again.drawing.Inserts().size() &&
                plan.diagnostics.size() == again.diagnostics.size(),
            "pieces are read as a whole is");
    checkPlaced(plan.drawing);
    checkDrawing(plan.drawing, CornerOrder::AsDrawn);
    checkDrawing(plan.drawing, CornerOrder::Upright);
}
