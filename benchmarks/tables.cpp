// SPDX-License-Identifier: GPL-2.0-or-later
// Tables of ten mixed columns: workbooks beside the bare library, text beside a text stream.
#include "benchmarks/ratio.h"
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <kelo_base/spreadsheet/TableWriter.h>
#include <xlsxwriter.h>

using namespace Qt::Literals::StringLiterals;
using namespace spreadsheet;

namespace {

constexpr int kTextColumns = 4;
constexpr int kNumberColumns = 4;

/// The values of all rows, made once: both sides only write.
struct Data
{
    explicit Data(qint64 rows) : count(rows)
    {
        for (int i = 0; i < 1000; ++i)
            texts << u"Straße %1, Blatt %2"_s.arg(i).arg(i * 7);
    }
    [[nodiscard]] const QString &text(qint64 row, int column) const
    {
        return texts[(row * 31 + column) % texts.size()];
    }
    [[nodiscard]] static double number(qint64 row, int column)
    {
        return 4'468'000.25 + double(row) * 1.37 + column;
    }

    qint64 count;
    QStringList texts;
};

Sheet sheet()
{
    Sheet result;
    for (int column = 0; column < kTextColumns; ++column)
        result.columns << Column{u"text"_s};
    for (int column = 0; column < kNumberColumns; ++column)
        result.columns << Column{u"number"_s, ColumnType::Number};
    result.columns << Column{u"count"_s, ColumnType::Integer}
                   << Column{u"is"_s, ColumnType::Boolean};
    return result;
}

void writeOurs(benchmark::State &state, Format format, const QString &name)
{
    const Data data(state.range(0));
    const QTemporaryDir folder;
    qint64 bytes = 0;
    for (auto _ : state) {
        const QString file = folder.filePath(name);
        TableWriter writer({file, format, {}, {}, {}, {}});
        writer.BeginSheet(sheet());
        std::vector<Cell> cells(10);
        for (qint64 row = 0; row < data.count; ++row) {
            for (int column = 0; column < kTextColumns; ++column)
                cells[static_cast<std::size_t>(column)] = data.text(row, column);
            for (int column = 0; column < kNumberColumns; ++column)
                cells[kTextColumns + static_cast<std::size_t>(column)] = Data::number(row, column);
            cells[8] = row;
            cells[9] = row % 2 == 0;
            writer.AddRow(cells);
        }
        if (!writer.Finish())
            state.SkipWithError("not written");
        bytes = QFile(file).size();
    }
    state.SetBytesProcessed(bytes * state.iterations());
}

void workbookOurs(benchmark::State &state)
{
    writeOurs(state, Format::Xlsx, u"ours.xlsx"_s);
}

void workbookPeer(benchmark::State &state)
{
    const Data data(state.range(0));
    const QTemporaryDir folder;
    QByteArrayList texts;
    for (const QString &text : data.texts)
        texts << text.toUtf8();
    for (auto _ : state) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        const QByteArray file = QFile::encodeName(folder.filePath(u"peer.xlsx"_s));
        lxw_workbook *const book = workbook_new_opt(file.constData(), &options);
        lxw_worksheet *const rows = workbook_add_worksheet(book, nullptr);
        lxw_format *const format = workbook_add_format(book);
        format_set_num_format(format, "0.00");
        for (qint64 row = 0; row < data.count; ++row) {
            const auto at = lxw_row_t(row);
            lxw_col_t to = 0;
            for (int column = 0; column < kTextColumns; ++column)
                worksheet_write_string(
                    rows, at, to++, texts[(row * 31 + column) % texts.size()].constData(), nullptr);
            for (int column = 0; column < kNumberColumns; ++column)
                worksheet_write_number(rows, at, to++, Data::number(row, column), format);
            worksheet_write_number(rows, at, to++, double(row), nullptr);
            worksheet_write_boolean(rows, at, to++, row % 2 == 0, nullptr);
        }
        if (workbook_close(book) != LXW_NO_ERROR)
            state.SkipWithError("not written");
    }
}

void separatedOurs(benchmark::State &state)
{
    writeOurs(state, Format::Csv, u"ours.csv"_s);
}

void separatedPeer(benchmark::State &state)
{
    const Data data(state.range(0));
    const QTemporaryDir folder;
    qint64 bytes = 0;
    for (auto _ : state) {
        QFile file(folder.filePath(u"peer.csv"_s));
        if (!file.open(QIODevice::WriteOnly))
            state.SkipWithError("not written");
        QTextStream stream(&file);
        stream.setRealNumberPrecision(17);
        for (qint64 row = 0; row < data.count; ++row) {
            for (int column = 0; column < kTextColumns; ++column)
                stream << '"' << data.text(row, column) << "\",";
            for (int column = 0; column < kNumberColumns; ++column)
                stream << Data::number(row, column) << ',';
            stream << row << ',' << (row % 2 == 0 ? "true" : "false") << "\r\n";
        }
        stream.flush();
        bytes = file.size();
    }
    state.SetBytesProcessed(bytes * state.iterations());
}

} // namespace

BENCHMARK(workbookOurs)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(workbookPeer)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(separatedOurs)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(separatedPeer)->Arg(100'000)->Unit(benchmark::kMillisecond);
KELO_RATIO_MAIN()
