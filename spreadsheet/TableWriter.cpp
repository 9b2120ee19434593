// SPDX-License-Identifier: GPL-2.0-or-later
// Sees to types and limits, and hands what remains to the sink of the format.
#include <kelo_base/spreadsheet/TableWriter.h>

#include "spreadsheet/backends_p.h"
#include "spreadsheet/sink_p.h"
#include "spreadsheet/tablerules_p.h"

#include <QElapsedTimer>
#include <QLocale>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

constexpr int kKinds = static_cast<int>(FindingKind::ColumnsLeftOut) + 1;
constexpr qint64 kAskAfter = 50;       ///< milliseconds between two questions whether to go on
constexpr int kRowsBetweenLooks = 256; ///< at the clock
constexpr double kNarrowest = 4;
constexpr double kWidest = 60; ///< characters of a column that is as wide as its content

} // namespace

class TableWriter::Work
{
public:
    explicit Work(Target target);

    bool beginSheet(const Sheet &sheet);
    bool addRow(std::span<const Cell> cells);
    Result finish();

private:
    void openSheet(const QString &name);
    void closeSheet();
    void putHeader();
    void putCell(int column, const Cell &cell);
    void put(int, std::monostate) {}
    void put(int column, const QString &text);
    void put(int column, qint64 number);
    void put(int column, double number);
    void put(int column, bool value);
    void put(int column, QDate date);
    void put(int column, QTime time);
    void put(int column, const QDateTime &time);
    void put(int column, const Link &link);
    [[nodiscard]] QString fitted(const QString &text);
    void widen(int column, qsizetype characters);
    void note(FindingKind kind, const QString &where);
    void noteCell(FindingKind kind, int column);
    bool goesOn();

    Target m_target;
    QString m_error; ///< why there is no sink
    std::unique_ptr<Sink> m_sink;
    Limits m_limits;
    bool m_isGuarded;
    Sheet m_sheet;
    bool m_isSheetOpen = false;
    QString m_sheetName;   ///< of the first of those that go on
    int m_part = 1;        ///< of the sheet, when it goes on
    QSet<QString> m_names; ///< taken, in lower case
    int m_columns = 0;
    qint64 m_row = 0;   ///< in the sheet, the header included
    qint64 m_links = 0; ///< in the sheet
    QList<double> m_widths;
    qint64 m_rows = 0;
    std::array<Finding, kKinds> m_findings{};
    bool m_isCancelled = false;
    int m_rowsToLook = 0;
    QElapsedTimer m_asked;
};

TableWriter::Work::Work(Target target)
    : m_target(std::move(target)),
      m_isGuarded(m_target.format == Format::Csv && m_target.csv.isGuarded)
{
    m_sink = makeSink(m_target, m_error);
    if (m_sink)
        m_limits = m_sink->limits();
    m_asked.start();
}

bool TableWriter::Work::beginSheet(const Sheet &sheet)
{
    if (!m_sink || m_isCancelled || m_sink->hasFailed())
        return false;
    closeSheet();
    m_sheet = sheet;
    const qsizetype most = std::min<qsizetype>(m_limits.columns, sheet.columns.size());
    m_columns = static_cast<int>(most);
    m_sheet.columns.resize(m_columns);
    m_part = 1;
    openSheet(sheet.name);
    m_sheetName = m_sheet.name;
    for (qsizetype column = most; column < sheet.columns.size(); ++column)
        note(FindingKind::ColumnsLeftOut, m_sheet.name);
    return true;
}

void TableWriter::Work::openSheet(const QString &name)
{
    m_sheet.name = legalSheetName(name, m_names);
    if (!name.isEmpty() && m_sheet.name != name)
        note(FindingKind::SheetRenamed, m_sheet.name);
    m_names.insert(m_sheet.name.toLower());
    m_row = 0;
    m_links = 0;
    m_isSheetOpen = true;
    m_widths.fill(kNarrowest, m_columns);
    m_sink->beginSheet(m_sheet);
    if (m_sheet.hasHeader)
        putHeader();
}

void TableWriter::Work::closeSheet()
{
    if (!m_isSheetOpen)
        return;
    m_isSheetOpen = false;
    for (int column = 0; column < m_columns; ++column)
        if (m_sheet.columns[column].width > 0)
            m_widths[column] = m_sheet.columns[column].width;
    m_sink->endSheet(m_widths);
}

void TableWriter::Work::putHeader()
{
    constexpr qsizetype kFilterButton = 3; // as wide as these characters
    for (int column = 0; column < m_columns; ++column) {
        const QString title = fitted(m_sheet.columns[column].title);
        widen(column, title.size() + (m_sheet.hasFilter ? kFilterButton : 0));
        m_sink->putHeader(column, title);
    }
    m_sink->endRow();
    ++m_row;
}

bool TableWriter::Work::addRow(std::span<const Cell> cells)
{
    if (!m_isSheetOpen || !goesOn())
        return false;
    if (m_row == m_limits.rows) {
        closeSheet();
        openSheet(continuedName(m_sheetName, ++m_part));
        note(FindingKind::SheetContinued, m_sheet.name);
    }
    const int count = std::min(static_cast<int>(cells.size()), m_columns);
    for (int column = 0; column < count; ++column)
        putCell(column, cells[static_cast<std::size_t>(column)]);
    m_sink->endRow();
    ++m_row;
    ++m_rows;
    return !m_sink->hasFailed();
}

void TableWriter::Work::putCell(int column, const Cell &cell)
{
    std::visit([this, column](const auto &value) { put(column, value); }, cell);
}

void TableWriter::Work::put(int column, const QString &text)
{
    QString written = fitted(text);
    if (written.isEmpty())
        return;
    if (written.size() < text.size())
        noteCell(FindingKind::TextCut, column);
    if (m_isGuarded && m_sheet.columns[column].type == ColumnType::Text &&
        looksLikeFormula(written)) {
        noteCell(FindingKind::TextGuarded, column);
        written.prepend(u'\'');
    }
    widen(column, written.size());
    m_sink->putText(column, written);
}

void TableWriter::Work::put(int column, qint64 number)
{
    if (m_limits.hasTypes && isTooLong(number)) {
        noteCell(FindingKind::LongNumberAsText, column);
        const QString text = QString::number(number);
        widen(column, text.size());
        return m_sink->putText(column, text);
    }
    constexpr qsizetype kTypical = 10;
    widen(column, kTypical);
    m_sink->putInteger(column, number);
}

void TableWriter::Work::put(int column, double number)
{
    if (!std::isfinite(number))
        return noteCell(FindingKind::NumberLeftOut, column);
    constexpr qsizetype kTypical = 8; // before the decimal sign, a minus included
    widen(column, kTypical + 1 + m_sheet.columns[column].decimals);
    m_sink->putNumber(column, number);
}

void TableWriter::Work::put(int column, bool value)
{
    widen(column, 7); // of "FALSCH", and a little
    m_sink->putBoolean(column, value);
}

void TableWriter::Work::put(int column, QDate date)
{
    if (!date.isValid())
        return;
    widen(column, 11);
    if (!m_limits.hasTypes || serialOf(date))
        return m_sink->putDate(column, date);
    noteCell(FindingKind::DateAsText, column);
    m_sink->putText(column, isoText(date));
}

void TableWriter::Work::put(int column, QTime time)
{
    if (!time.isValid())
        return;
    widen(column, 9);
    m_sink->putTime(column, time);
}

void TableWriter::Work::put(int column, const QDateTime &time)
{
    if (!time.isValid())
        return;
    widen(column, 20);
    if (!m_limits.hasTypes || serialOf(time.date()))
        return m_sink->putDateTime(column, time);
    noteCell(FindingKind::DateAsText, column);
    m_sink->putText(column, isoText(time));
}

void TableWriter::Work::put(int column, const Link &link)
{
    if (link.target.isEmpty())
        return put(column, link.text);
    const bool fits = link.target.size() <= m_limits.linkCharacters && m_links < m_limits.links;
    if (!fits) {
        noteCell(FindingKind::LinkAsText, column);
        return put(column, link.text.isEmpty() ? link.target : link.text);
    }
    ++m_links;
    const Link whole{link.target, fitted(link.text.isEmpty() ? link.target : link.text)};
    widen(column, whole.text.size());
    m_sink->putLink(column, whole);
}

/// What the format can hold of the text; the cutting of cells is noted by the caller.
QString TableWriter::Work::fitted(const QString &text)
{
    const std::optional<QString> whole = mended(text);
    if (whole)
        note(FindingKind::TextMended, m_sheet.name);
    return cut(whole.value_or(text), m_limits.characters);
}

void TableWriter::Work::widen(int column, qsizetype characters)
{
    m_widths[column] =
        std::max(m_widths[column], std::min(static_cast<double>(characters) + 1, kWidest));
}

void TableWriter::Work::note(FindingKind kind, const QString &where)
{
    Finding &finding = m_findings[static_cast<std::size_t>(kind)];
    if (finding.count++ == 0)
        finding = {kind, 1, where};
}

void TableWriter::Work::noteCell(FindingKind kind, int column)
{
    Finding &finding = m_findings[static_cast<std::size_t>(kind)];
    if (finding.count++ == 0)
        finding = {kind, 1, m_sheet.name + u'!' + cellName(m_row, column)};
}

/// Asks the user's side, though not for each row.
bool TableWriter::Work::goesOn()
{
    if (m_isCancelled || !m_target.goesOn || --m_rowsToLook > 0)
        return !m_isCancelled;
    m_rowsToLook = kRowsBetweenLooks;
    if (m_asked.elapsed() < kAskAfter)
        return true;
    m_isCancelled = !m_target.goesOn(m_rows);
    m_asked.restart();
    return !m_isCancelled;
}

Result TableWriter::Work::finish()
{
    Result result;
    result.error = m_error;
    result.rows = m_rows;
    if (m_sink && !m_isCancelled) {
        closeSheet();
        const auto goesOn = [this] {
            if (!m_isCancelled && m_target.goesOn)
                m_isCancelled = !m_target.goesOn(m_rows);
            return !m_isCancelled;
        };
        result.error = m_sink->finish(goesOn);
    }
    m_sink.reset();
    result.isCancelled = m_isCancelled;
    if (m_isCancelled)
        result.error.clear();
    for (const Finding &finding : m_findings)
        if (finding.count > 0)
            result.findings << finding;
    return result;
}

TableWriter::TableWriter(Target target) : m_work(std::make_unique<Work>(std::move(target))) {}

TableWriter::~TableWriter() = default;

bool TableWriter::BeginSheet(const Sheet &sheet)
{
    return m_work->beginSheet(sheet);
}

bool TableWriter::AddRow(std::span<const Cell> cells)
{
    return m_work->addRow(cells);
}

Result TableWriter::Finish()
{
    return m_work->finish();
}

CsvStyle CsvStyle::ForThisMachine()
{
    const QLocale locale;
    const char decimalPoint = locale.decimalPoint() == ","_L1 ? ',' : '.';
    const char separator = decimalPoint == ',' ? ';' : ','; // as spreadsheet programs do
    return {separator, decimalPoint, true, true};
}

} // namespace spreadsheet
