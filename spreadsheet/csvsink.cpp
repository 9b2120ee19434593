// SPDX-License-Identifier: GPL-2.0-or-later
// Text with separators, after RFC 4180: rows end with CR LF, quotes are doubled inside of quotes.
#include "spreadsheet/sink_p.h"
#include "spreadsheet/tablerules_p.h"

#include <QIODevice>
#include <QStringEncoder>
#include <charconv>
#include <limits>

namespace spreadsheet {
namespace {

constexpr qsizetype kBlock = 256LL * 1024; ///< bytes written at once

class CsvSink : public Sink
{
public:
    explicit CsvSink(const Target &target)
        : m_file(target.file), m_path(target.file), m_style(target.csv)
    {
        m_block.reserve(2 * kBlock);
        m_isGood = m_file.Open();
        if (m_style.hasByteOrderMark)
            m_block += "\xEF\xBB\xBF";
    }

    [[nodiscard]] Limits limits() const override
    {
        constexpr qint64 kNone = std::numeric_limits<int>::max();
        return {std::numeric_limits<qint64>::max(), kNone, kNone, kNone, kNone, false};
    }

    /// An empty row parts it from the one before.
    void beginSheet(const Sheet &sheet) override
    {
        m_columns = static_cast<int>(sheet.columns.size());
        if (!m_isFirstSheet)
            m_block += "\r\n";
        m_isFirstSheet = false;
        m_column = 0;
    }

    void putHeader(int column, const QString &title) override { putText(column, title); }

    void putText(int column, const QString &text) override
    {
        moveTo(column);
        if (needsQuotes(text))
            appendQuoted(text);
        else
            append(text);
    }

    void putNumber(int column, double number) override
    {
        char text[32];
        const auto [end, error] = std::to_chars(text, std::end(text), number); // the shortest
        moveTo(column);
        if (m_style.decimalPoint != '.')
            std::replace(text, end, '.', m_style.decimalPoint);
        m_block.append(text, end - text);
    }

    void putInteger(int column, qint64 number) override
    {
        char text[24];
        const auto [end, error] = std::to_chars(text, std::end(text), number);
        moveTo(column);
        m_block.append(text, end - text);
    }

    void putBoolean(int column, bool value) override
    {
        moveTo(column);
        m_block += value ? "true" : "false";
    }

    void putDate(int column, QDate date) override { putText(column, isoText(date)); }
    void putTime(int column, QTime time) override { putText(column, isoText(time)); }
    void putDateTime(int column, const QDateTime &time) override { putText(column, isoText(time)); }

    /// Programs make links of what looks like one; what it says is in other columns.
    void putLink(int column, const Link &link) override { putText(column, link.target); }

    void endRow() override
    {
        moveTo(m_columns - 1);
        m_block += "\r\n";
        m_column = 0;
        if (m_block.size() >= kBlock)
            flush();
    }

    void endSheet(const QList<double> &) override {}

    [[nodiscard]] QString finish(const std::function<bool()> &) override
    {
        flush();
        return m_isGood && m_file.Commit() ? QString() : notWritten(m_path, m_file.Fault());
    }

    [[nodiscard]] bool hasFailed() const override { return !m_isGood; }

private:
    void moveTo(int column)
    {
        for (; m_column < column; ++m_column)
            m_block += m_style.separator;
    }

    /// Blanks at the ends are kept only inside of quotes, by some programs.
    [[nodiscard]] bool needsQuotes(const QString &text) const
    {
        if (text.isEmpty())
            return false;
        if (text.front() == u' ' || text.back() == u' ')
            return true;
        const QChar separator = QLatin1Char(m_style.separator);
        for (const QChar c : text)
            if (c == separator || c == u'"' || c == u'\n' || c == u'\r')
                return true;
        return false;
    }

    void appendQuoted(const QString &text)
    {
        m_block += '"';
        if (text.contains(u'"'))
            append(QString(text).replace(u'"', QStringLiteral("\"\"")));
        else
            append(text);
        m_block += '"';
    }

    /// In UTF-8, without a buffer in between.
    void append(const QString &text)
    {
        const qsizetype before = m_block.size();
        m_block.resize(before + m_encoder.requiredSpace(text.size()));
        const char *const end = m_encoder.appendToBuffer(m_block.data() + before, text);
        m_block.resize(end - m_block.constData());
    }

    void flush()
    {
        m_isGood = m_isGood && m_file.Device().write(m_block) == m_block.size();
        m_block.resize(0); // keeps the room
    }

    ReplacedFile m_file;
    QString m_path;
    CsvStyle m_style;
    QByteArray m_block;
    QStringEncoder m_encoder{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
    int m_columns = 0;
    int m_column = 0; ///< separators written in this row
    bool m_isFirstSheet = true;
    bool m_isGood = false;
};

} // namespace

std::unique_ptr<Sink> makeCsvSink(const Target &target)
{
    return std::make_unique<CsvSink>(target);
}

} // namespace spreadsheet
