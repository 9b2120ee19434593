// SPDX-License-Identifier: GPL-2.0-or-later
// Tables of ten mixed columns: workbooks beside the bare library, text beside a text stream, files
// by way of the spreadsheet program beside its own conversion. And the sheets of a plan, which want
// two seconds. KELO_BENCH_PLANS names a folder with own.dxf, KELO_BENCH_SHEETS how many sheets that
// has; the tables have ten times as many rows.
#include "benchmarks/ratio.h"
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QUrl>
#include <algorithm>
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetTable.h>
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

qint64 benchRows()
{
    return 10LL * std::max(100, qEnvironmentVariableIntValue("KELO_BENCH_SHEETS"));
}

/// What this process has of main memory, in MB. @param name  "VmRSS" now, "VmHWM" at most
double memory(const QByteArray &name)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArrayList lines = status.readAll().split('\n');
    for (const QByteArray &line : lines)
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).trimmed().split(' ').first().toDouble() / 1000;
    return 0;
}

/// How much more memory is taken than there was at the start, at most.
class MemoryPeak
{
public:
    MemoryPeak()
    {
        QFile peak(u"/proc/self/clear_refs"_s);
        if (peak.open(QIODevice::WriteOnly))
            peak.write("5"); // forgets the peak
        m_start = memory("VmRSS");
    }
    [[nodiscard]] double megabytes() const { return memory("VmHWM") - m_start; }

private:
    double m_start;
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

Result writeRows(const Data &data, const Target &target)
{
    TableWriter writer(target);
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
    return writer.Finish();
}

void writeOurs(benchmark::State &state, Format format, const QString &name)
{
    const Data data(state.range(0));
    const QTemporaryDir folder;
    qint64 bytes = 0;
    const MemoryPeak peak;
    for (auto _ : state) {
        const QString file = folder.filePath(name);
        if (!writeRows(data, {file, format, {}, {}, {}, {}}))
            state.SkipWithError("not written");
        bytes = QFile(file).size();
    }
    state.SetBytesProcessed(bytes * state.iterations());
    state.counters["MB_above_start"] = peak.megabytes();
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

void byProgramOurs(benchmark::State &state)
{
    writeOurs(state, Format::Ods, u"ours.ods"_s);
}

/// A workbook that is there already; only the program works.
void byProgramPeer(benchmark::State &state)
{
    const Data data(state.range(0));
    const QTemporaryDir folder;
    const QString workbook = folder.filePath(u"peer.xlsx"_s);
    static_cast<void>(writeRows(data, {workbook, Format::Xlsx, {}, {}, {}, {}}));
    const QString program = QStandardPaths::findExecutable(u"soffice"_s);
    for (auto _ : state) {
        QFile::remove(folder.filePath(u"peer.ods"_s));
        const QTemporaryDir own;
        QProcess process;
        process.start(program,
                      {u"-env:UserInstallation="_s + QUrl::fromLocalFile(own.path()).toString(),
                       u"--headless"_s, u"--convert-to"_s, u"ods:calc8"_s, u"--outdir"_s,
                       folder.path(), workbook});
        process.waitForFinished(-1);
        if (!QFile::exists(folder.filePath(u"peer.ods"_s)))
            state.SkipWithError("not written");
    }
}

void sheetList(benchmark::State &state)
{
    const PlanOpening plan =
        PlanSession::Open(qEnvironmentVariable("KELO_BENCH_PLANS") + u"/own.dxf"_s);
    const QTemporaryDir folder;
    for (auto _ : state) {
        const QString file = folder.filePath(u"sheets.xlsx"_s);
        if (!plan || !ExportSheetTable(*plan.session, {file, Format::Xlsx, {}, {}, {}, {}}))
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

BENCHMARK(workbookOurs)->Arg(benchRows())->Unit(benchmark::kMillisecond);
BENCHMARK(workbookPeer)->Arg(benchRows())->Unit(benchmark::kMillisecond);
BENCHMARK(separatedOurs)->Arg(benchRows())->Unit(benchmark::kMillisecond);
BENCHMARK(separatedPeer)->Arg(benchRows())->Unit(benchmark::kMillisecond);
BENCHMARK(byProgramOurs)->Arg(benchRows() / 20)->Unit(benchmark::kMillisecond);
BENCHMARK(byProgramPeer)->Arg(benchRows() / 20)->Unit(benchmark::kMillisecond);
BENCHMARK(sheetList)->Unit(benchmark::kMillisecond);
KELO_RATIO_MAIN()
