// SPDX-License-Identifier: GPL-2.0-or-later
// Workbooks through the writing library, which keeps one row in memory.
#include "spreadsheet/endablestream_p.h"
#include "spreadsheet/sink_p.h"
#include "spreadsheet/tablerules_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStorageInfo>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <map>
#include <numeric>
#include <utility>
#include <xlsxwriter.h>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

/// The number format of a column, in the file's notation.
QByteArray formatCode(const Column &column)
{
    if (!column.format.isEmpty())
        return column.format.toUtf8();
    switch (column.type) {
    case ColumnType::Integer:
        return "0";
    case ColumnType::Number:
        return column.decimals > 0 ? "0." + QByteArray(column.decimals, '0') : "0"_ba;
    case ColumnType::Date:
    case ColumnType::Time:
    case ColumnType::DateTime:
    case ColumnType::Text:
    case ColumnType::Boolean:
    case ColumnType::Link:
        break;
    }
    return {};
}

constexpr std::uint8_t kPaperA4 = 9;
constexpr double kPortraitCharacters = 90; ///< what stands beside each other on an upright page

constexpr char kBooleanFormat[] = R"("TRUE";"TRUE";"FALSE")";

/// Formats that follow the reader's country, by their numbers in the file.
enum BuiltInFormat : std::uint8_t { ShortDate = 14, TimeWithSeconds = 21, ShortDateWithTime = 22 };

/// Asks the user's side from time to time; "no" is the last word.
class Patience
{
public:
    explicit Patience(std::function<bool()> goesOn) : m_goesOn(std::move(goesOn)) {}
    bool operator()()
    {
        constexpr qint64 kAskAfter = 40; // milliseconds
        if (m_isOver || (m_asked.isValid() && m_asked.elapsed() < kAskAfter))
            return !m_isOver;
        m_isOver = !m_goesOn();
        m_asked.start();
        return !m_isOver;
    }

private:
    std::function<bool()> m_goesOn;
    QElapsedTimer m_asked;
    bool m_isOver = false;
};

/// Lets the user end what the library does with a finished sheet: it copies the rows into the part
/// of the sheet, which it has just begun, and packs that part.
void letEnd(lxw_worksheet *sheet, const std::function<bool()> &goesOn)
{
    Patience patience(goesOn);
    auto onRows = [sheet, patience, isPartSeen = false]() mutable {
        if (!std::exchange(isPartSeen, true))
            sheet->file = endableStream(sheet->file, patience);
        return patience();
    };
    sheet->optimize_tmpfile = endableStream(sheet->optimize_tmpfile, std::move(onRows));
}

class XlsxSink : public Sink
{
public:
    XlsxSink(const Target &target, WorkbookDialect dialect);
    ~XlsxSink() override;
    Q_DISABLE_COPY_MOVE(XlsxSink)

    [[nodiscard]] Limits limits() const override
    {
        return {LXW_ROW_MAX, LXW_COL_MAX, 32'767, 65'530, 2'079, true};
    }

    void beginSheet(const Sheet &sheet) override;
    void putHeader(int column, const QString &title) override;
    void putText(int column, const QString &text) override;
    void putNumber(int column, double number) override;
    void putInteger(int column, qint64 number) override;
    void putBoolean(int column, bool value) override;
    void putDate(int column, QDate date) override;
    void putTime(int column, QTime time) override;
    void putDateTime(int column, const QDateTime &time) override;
    void putLink(int column, const Link &link) override;
    void endRow() override;
    void endSheet(const QList<double> &widths) override;
    [[nodiscard]] QString finish(const std::function<bool()> &goesOn) override;
    [[nodiscard]] bool hasFailed() const override { return !m_error.isEmpty(); }

private:
    void setProperties(const Properties &properties);
    [[nodiscard]] const char *utf8(const QString &text);
    [[nodiscard]] lxw_format *codeFormat(const QByteArray &code);
    [[nodiscard]] lxw_format *numberFormat(int column);
    [[nodiscard]] lxw_format *timeFormat(int column, BuiltInFormat otherwise);
    [[nodiscard]] lxw_col_t at(int column) const { return static_cast<lxw_col_t>(column); }
    void check(lxw_error error);
    [[nodiscard]] QString assemble(const std::function<bool()> &goesOn);

    QString m_target;
    WorkbookDialect m_dialect;
    QTemporaryDir m_folder; ///< of the rows and the finished file, until it is copied
    QByteArray m_folderName;
    QByteArray m_fileName;
    QString m_error;
    lxw_workbook *m_workbook = nullptr;
    lxw_worksheet *m_sheet = nullptr;
    std::vector<lxw_worksheet *> m_sheets;
    QList<Column> m_columns;
    bool m_hasFilter = false;
    bool m_hasHeader = false;
    lxw_row_t m_row = 0;
    lxw_format *m_bold = nullptr;
    lxw_format *m_linkFormat = nullptr;
    std::map<QByteArray, lxw_format *> m_codeFormats; ///< all owned by the workbook
    std::map<int, lxw_format *> m_builtInFormats;
    QByteArray m_text; ///< room for the text that is handed over
    QStringEncoder m_encoder{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
};

XlsxSink::XlsxSink(const Target &target, WorkbookDialect dialect)
    : m_target(target.file), m_dialect(dialect)
{
    if (!m_folder.isValid()) {
        m_error = notWritten(m_target, m_folder.errorString());
        return;
    }
    m_folderName = QFile::encodeName(m_folder.path());
    m_fileName = QFile::encodeName(m_folder.filePath(u"table.xlsx"_s));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = m_folderName.data();
    m_workbook = workbook_new_opt(m_fileName.constData(), &options);
    if (!m_workbook) {
        m_error = notWritten(m_target, Texts::tr("there is not enough memory"));
        return;
    }
    m_bold = workbook_add_format(m_workbook);
    format_set_bold(m_bold);
    m_linkFormat = workbook_get_default_url_format(m_workbook);
    setProperties(target.properties);
}

XlsxSink::~XlsxSink()
{
    if (m_workbook)
        lxw_workbook_free(m_workbook); // with its temporary files
}

void XlsxSink::setProperties(const Properties &properties)
{
    QByteArray texts[] = {properties.title.toUtf8(),    properties.subject.toUtf8(),
                          properties.author.toUtf8(),   properties.company.toUtf8(),
                          properties.keywords.toUtf8(), properties.comments.toUtf8()};
    lxw_doc_properties document{};
    document.title = texts[0].data();
    document.subject = texts[1].data();
    document.author = texts[2].data();
    document.company = texts[3].data();
    document.keywords = texts[4].data();
    document.comments = texts[5].data();
    check(workbook_set_properties(m_workbook, &document)); // copies
}

void XlsxSink::beginSheet(const Sheet &sheet)
{
    m_sheet = workbook_add_worksheet(m_workbook, sheet.name.toUtf8().constData());
    if (!m_sheet) {
        m_error = notWritten(m_target, Texts::tr("the sheet '%1' cannot be added").arg(sheet.name));
        return;
    }
    m_sheets.push_back(m_sheet);
    m_columns = sheet.columns;
    m_row = 0;
    m_hasHeader = sheet.hasHeader;
    m_hasFilter = sheet.hasHeader && sheet.hasFilter;
    if (sheet.hasHeader && sheet.isHeaderFrozen)
        worksheet_freeze_panes(m_sheet, 1, 0);
    if (sheet.hasHeader && sheet.repeatsHeader)
        check(worksheet_repeat_rows(m_sheet, 0, 0));
}

void XlsxSink::putHeader(int column, const QString &title)
{
    if (!title.isEmpty())
        check(worksheet_write_string(m_sheet, m_row, at(column), utf8(title), m_bold));
}

void XlsxSink::putText(int column, const QString &text)
{
    lxw_format *const format =
        m_columns[column].format.isEmpty() ? nullptr : codeFormat(formatCode(m_columns[column]));
    check(worksheet_write_string(m_sheet, m_row, at(column), utf8(text), format));
}

void XlsxSink::putNumber(int column, double number)
{
    check(worksheet_write_number(m_sheet, m_row, at(column), number, numberFormat(column)));
}

void XlsxSink::putInteger(int column, qint64 number)
{
    putNumber(column, static_cast<double>(number)); // 15 digits: exact
}

void XlsxSink::putBoolean(int column, bool value)
{
    if (!m_dialect.hasBooleans)
        return check(worksheet_write_number(m_sheet, m_row, at(column), value ? 1 : 0,
                                            codeFormat(kBooleanFormat)));
    check(worksheet_write_boolean(m_sheet, m_row, at(column), value, numberFormat(column)));
}

void XlsxSink::putDate(int column, QDate date)
{
    check(worksheet_write_number(m_sheet, m_row, at(column),
                                 serialOf(date, m_dialect.dayCount).value_or(0),
                                 timeFormat(column, ShortDate)));
}

void XlsxSink::putTime(int column, QTime time)
{
    check(worksheet_write_number(m_sheet, m_row, at(column), serialOf(time),
                                 timeFormat(column, TimeWithSeconds)));
}

void XlsxSink::putDateTime(int column, const QDateTime &time)
{
    const double serial =
        serialOf(time.date(), m_dialect.dayCount).value_or(0) + serialOf(time.time());
    check(worksheet_write_number(m_sheet, m_row, at(column), serial,
                                 timeFormat(column, ShortDateWithTime)));
}

void XlsxSink::putLink(int column, const Link &link)
{
    const QByteArray target = link.target.toUtf8();
    check(worksheet_write_url_opt(m_sheet, m_row, at(column), target.constData(), m_linkFormat,
                                  utf8(link.text), nullptr));
}

void XlsxSink::endRow()
{
    ++m_row;
}

void XlsxSink::endSheet(const QList<double> &widths)
{
    for (int column = 0; column < widths.size(); ++column)
        check(worksheet_set_column(m_sheet, at(column), at(column), widths[column], nullptr));
    // Printed, a sheet is as wide as one page, and the page lies where that reads better.
    worksheet_set_paper(m_sheet, kPaperA4);
    worksheet_fit_to_pages(m_sheet, 1, 0);
    if (std::accumulate(widths.begin(), widths.end(), 0.0) > kPortraitCharacters)
        worksheet_set_landscape(m_sheet);
    if (m_hasFilter && !m_columns.isEmpty()) {
        const lxw_col_t last = at(static_cast<int>(m_columns.size()) - 1);
        check(worksheet_autofilter(m_sheet, 0, 0, m_row > 0 ? m_row - 1 : 0, last));
    }
}

QString XlsxSink::finish(const std::function<bool()> &goesOn)
{
    if (m_error.isEmpty())
        m_error = assemble(goesOn);
    if (m_error.isEmpty() && goesOn())
        m_error = putInPlace(QFile::decodeName(m_fileName), m_target, goesOn);
    return m_error;
}

/// The library does not look whether its temporary files took what it wrote. When the user cancels,
/// the file that it makes lacks rows: nobody gets to see it.
QString XlsxSink::assemble(const std::function<bool()> &goesOn)
{
    qint64 bytes = 0;
    for (const lxw_worksheet *sheet : m_sheets) {
        FILE *const rows = sheet->optimize_tmpfile;
        if (std::fflush(rows) != 0 || std::ferror(rows))
            return notWritten(m_target, Texts::tr("there is no room in the temporary folder"));
        bytes += std::ftell(rows);
    }
    // All rows are copied into the parts of the file before these are packed.
    constexpr qint64 kRest = 16LL * 1024 * 1024;
    const QStorageInfo storage(m_folder.path()); // not valid where mounts are not to be seen
    if (storage.isValid() && storage.bytesAvailable() < bytes + bytes / 4 + kRest)
        return notWritten(m_target, Texts::tr("there is no room in the temporary folder"));
    for (lxw_worksheet *sheet : m_sheets)
        letEnd(sheet, goesOn);
    const lxw_error error = workbook_close(m_workbook);
    m_workbook = nullptr; // freed, whatever came of it
    return error == LXW_NO_ERROR ? QString()
                                 : notWritten(m_target, QString::fromUtf8(lxw_strerror(error)));
}

/// Valid until the next call.
const char *XlsxSink::utf8(const QString &text)
{
    m_text.resize(m_encoder.requiredSpace(text.size()) + 1);
    *m_encoder.appendToBuffer(m_text.data(), text) = '\0';
    return m_text.constData();
}

lxw_format *XlsxSink::codeFormat(const QByteArray &code)
{
    lxw_format *&format = m_codeFormats[code];
    if (!format) {
        format = workbook_add_format(m_workbook);
        format_set_num_format(format, code.constData());
    }
    return format;
}

lxw_format *XlsxSink::numberFormat(int column)
{
    const QByteArray code = formatCode(m_columns[column]);
    return code.isEmpty() ? nullptr : codeFormat(code);
}

lxw_format *XlsxSink::timeFormat(int column, BuiltInFormat otherwise)
{
    if (!m_columns[column].format.isEmpty())
        return codeFormat(m_columns[column].format.toUtf8());
    lxw_format *&format = m_builtInFormats[otherwise];
    if (!format) {
        format = workbook_add_format(m_workbook);
        format_set_num_format_index(format, otherwise);
    }
    return format;
}

void XlsxSink::check(lxw_error error)
{
    if (error != LXW_NO_ERROR && m_error.isEmpty())
        m_error = notWritten(m_target, QString::fromUtf8(lxw_strerror(error)));
}

} // namespace

BackEndState libraryState()
{
    return {BackEnd::Library,
            {Format::Xlsx},
            Texts::tr("libxlsxwriter %1.").arg(QString::fromLatin1(lxw_version()))};
}

std::unique_ptr<Sink> makeXlsxSink(const Target &target, WorkbookDialect dialect)
{
    return std::make_unique<XlsxSink>(target, dialect);
}

} // namespace spreadsheet
