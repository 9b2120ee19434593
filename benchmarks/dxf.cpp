// SPDX-License-Identifier: GPL-2.0-or-later
// The plan reader beside the bare parser and beside ogr2ogr, the whole command beside a program
// that only parses, with placed sheets beside without, and the GK2 writer beside the reader.
// KELO_BENCH_PLANS names a folder with own.dxf, shared.dxf and noise.dxf, KELO_BENCH_SHEETS how
// many sheets each of them has.
#include "benchmarks/ratio.h"
#include <QBuffer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <fstream>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/SheetAnalysis.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString planPath(const char *name)
{
    return qEnvironmentVariable("KELO_BENCH_PLANS") + u'/' + QString::fromLatin1(name) + u".dxf"_s;
}

/// What a reader delivers, so that nobody is measured doing less.
struct Counts
{
    qint64 inserts = 0;
    qint64 vertices = 0;
};

void check(benchmark::State &state, const Counts &counts)
{
    const bool isAll =
        counts.inserts == qEnvironmentVariableIntValue("KELO_BENCH_SHEETS") && counts.vertices >= 4;
    if (!isAll)
        state.SkipWithError("not the plan that was expected");
}

void readOurs(benchmark::State &state, const char *name)
{
    for (auto _ : state) {
        const DxfReadResult result = ReadDxfFile(planPath(name));
        Counts counts{.inserts = static_cast<qint64>(result.drawing.Inserts().size())};
        for (const DxfBlock &block : result.drawing.Blocks())
            for (const DxfPolyline &polyline : result.drawing.Polylines(block))
                counts.vertices += polyline.vertexCount;
        check(state, counts);
    }
}

class CountingAdapter : public DL_CreationAdapter
{
public:
    void addInsert(const DL_InsertData &) override { ++counts.inserts; }
    void addVertex(const DL_VertexData &) override { ++counts.vertices; }
    Counts counts;
};

void bareParserOurs(benchmark::State &state, const char *name)
{
    readOurs(state, name);
}
void bareParserPeer(benchmark::State &state, const char *name)
{
    for (auto _ : state) {
        CountingAdapter adapter;
        std::ifstream stream(QFile::encodeName(planPath(name)).toStdString());
        DL_Dxf().in(stream, &adapter);
        check(state, adapter.counts);
    }
}

void ogr2ogrOurs(benchmark::State &state, const char *name)
{
    readOurs(state, name);
}
void ogr2ogrPeer(benchmark::State &state, const char *name)
{
    const QTemporaryDir dir;
    int run = 0;
    for (auto _ : state) {
        const QString table = dir.filePath(QString::number(++run) + u".csv"_s);
        const int status = QProcess::execute(u"ogr2ogr"_s, {u"--config"_s, u"DXF_INLINE_BLOCKS"_s,
                                                            u"NO"_s, u"-f"_s, u"CSV"_s, table,
                                                            planPath(name), u"entities"_s});
        if (status != 0 || QFile(table).size() == 0)
            state.SkipWithError("ogr2ogr failed");
    }
}

void runProgram(benchmark::State &state, const QString &program, const QStringList &arguments)
{
    for (auto _ : state) {
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(program, arguments);
        const bool isDone = process.waitForFinished(-1) && process.exitCode() == 0;
        if (!isDone)
            state.SkipWithError("the program failed");
    }
}

/// Converts the plan, and writes the file, as users do.
void runCommand(benchmark::State &state, const char *name, const QStringList &options = {})
{
    const QTemporaryDir dir;
    const QString output = dir.filePath(u"out.txt"_s);
    runProgram(state, QStringLiteral(KELO_DXF2GK2),
               options + QStringList{planPath(name), u"-o"_s, output});
    const qint64 least = qEnvironmentVariableIntValue("KELO_BENCH_SHEETS") * qint64{100};
    if (QFile(output).size() < least)
        state.SkipWithError("not the sheets that were expected");
}

void wholeProcessOurs(benchmark::State &state, const char *name)
{
    runCommand(state, name);
}
void wholeProcessPeer(benchmark::State &state, const char *name)
{
    runProgram(state, QStringLiteral(KELO_BAREPARSER), {planPath(name)});
}

void placedOurs(benchmark::State &state, const char *name)
{
    runCommand(state, name, {u"--placed"_s});
}
void placedPeer(benchmark::State &state, const char *name)
{
    runCommand(state, name);
}

/// Reading is the peer: writing may take a small part of it.
void writeGk2Ours(benchmark::State &state, const char *name)
{
    DxfReadResult plan = ReadDxfFile(planPath(name));
    const auto analysis = AnalyzeSheets(plan.drawing, {}, CornerOrder::Upright, planPath(name));
    const QTemporaryDir dir;
    for (auto _ : state) {
        const qint64 written =
            ExportGk2File(dir.filePath(u"out.txt"_s), plan.drawing, analysis->sheets);
        check(state, {.inserts = written, .vertices = 4});
    }
}
void writeGk2Peer(benchmark::State &state, const char *name)
{
    readOurs(state, name);
}

} // namespace

BENCHMARK_CAPTURE(bareParserOurs, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(bareParserPeer, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(bareParserOurs, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(bareParserPeer, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(bareParserOurs, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(bareParserPeer, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(ogr2ogrOurs, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(ogr2ogrPeer, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(ogr2ogrOurs, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(ogr2ogrPeer, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(ogr2ogrOurs, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(ogr2ogrPeer, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(wholeProcessOurs, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(wholeProcessPeer, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(wholeProcessOurs, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(wholeProcessPeer, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(wholeProcessOurs, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(wholeProcessPeer, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(placedOurs, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(placedPeer, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(placedOurs, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(placedPeer, shared, "shared")->UseRealTime();
BENCHMARK_CAPTURE(placedOurs, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(placedPeer, noise, "noise")->UseRealTime();
BENCHMARK_CAPTURE(writeGk2Ours, own, "own")->UseRealTime();
BENCHMARK_CAPTURE(writeGk2Peer, own, "own")->UseRealTime();

KELO_RATIO_MAIN()
