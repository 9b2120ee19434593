// SPDX-License-Identifier: GPL-2.0-or-later
// Reads GK2 files back, to compare a plan with what was exported before.
#include "dxf/sheets/gk2records_p.h"
#include <QBuffer>
#include <QFile>
#include <algorithm>
#include <charconv>
#include <kelo_base/core/FileName.h>
#include <kelo_base/dxf/Gk2Reader.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <optional>
#include <string>

namespace {

/// Hands out the lines of a text without their ends.
class Lines
{
public:
    explicit Lines(QByteArrayView text) : m_rest(text) {}

    [[nodiscard]] bool hasNext() const { return !m_rest.isEmpty(); }
    [[nodiscard]] qint64 number() const { return m_number; }
    QByteArrayView next()
    {
        const qsizetype end = m_rest.indexOf('\n');
        QByteArrayView line = end < 0 ? m_rest : m_rest.first(end);
        m_rest = end < 0 ? QByteArrayView() : m_rest.sliced(end + 1);
        ++m_number;
        if (line.endsWith('\r'))
            line.chop(1);
        return line;
    }

private:
    QByteArrayView m_rest;
    qint64 m_number = 0;
};

/// Takes "3512,50" from the front of the text, and the blanks before it.
std::optional<double> takeCoordinate(std::string &text)
{
    text.erase(0, text.find_first_not_of(' '));
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end == text.data())
        return std::nullopt;
    text.erase(0, static_cast<std::size_t>(end - text.data()));
    return value + 0.0; // -0,00 and 0,00 are one place
}

std::optional<DxfVertex> cornerOf(QByteArrayView line)
{
    std::string text(line.data(), static_cast<std::size_t>(line.size()));
    std::ranges::replace(text, ',', '.');
    const auto x = takeCoordinate(text);
    const bool isApart = text.starts_with(' ');
    const auto y = takeCoordinate(text);
    const bool isWhole = text.find_first_not_of(' ') == std::string::npos;
    return x && y && isApart && isWhole ? std::optional(DxfVertex{*x, *y}) : std::nullopt;
}

} // namespace

Gk2Reading ReadGk2(QByteArrayView text)
{
    Gk2Reading reading;
    Lines lines(text);
    if (!lines.hasNext() || lines.next() != "GK2") {
        reading.fault = Gk2Reading::Fault::NotGk2;
        return reading;
    }
    while (lines.hasNext()) {
        const QByteArrayView line = lines.next();
        if (line.isEmpty()) { // the number follows, whatever it looks like
            if (lines.hasNext())
                reading.records.push_back({lines.next().toByteArray(), {}});
            continue;
        }
        const auto corner = reading.records.empty() ? std::nullopt : cornerOf(line);
        if (!corner)
            return {.records = {},
                    .fault = Gk2Reading::Fault::BadLine,
                    .line = lines.number(),
                    .reason = {}};
        reading.records.back().corners.push_back(*corner);
    }
    return reading;
}

Gk2Reading ReadGk2File(const QString &path)
{
    QFile file;
    const bool isOpen = OpenForReading(file, path);
    const QByteArray text = isOpen ? file.readAll() : QByteArray();
    if (!isOpen || file.error() != QFileDevice::NoError)
        return {.records = {},
                .fault = Gk2Reading::Fault::NotOpened,
                .line = 0,
                .reason = file.errorString()};
    return ReadGk2(text);
}

std::vector<Gk2Record> Gk2RecordsOf(const DxfDrawing &drawing, std::span<const quint32> sheets,
                                    std::vector<quint32> *written)
{
    constexpr std::size_t kPart = 4096; // the text of all need not fit into memory
    std::vector<Gk2Record> records;
    for (std::size_t done = 0; done < sheets.size(); done += kPart) {
        const auto part = sheets.subspan(done, std::min(kPart, sheets.size() - done));
        QBuffer text;
        text.open(QIODevice::WriteOnly);
        (void)WriteGk2(text, drawing, part); // memory takes everything
        std::ranges::move(ReadGk2(text.data()).records, std::back_inserter(records));
        if (written)
            std::ranges::copy_if(part, std::back_inserter(*written), [&](const quint32 &sheet) {
                return dxftools::hasGk2Records(drawing, {&sheet, 1});
            });
    }
    return records;
}
