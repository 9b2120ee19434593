// SPDX-License-Identifier: GPL-2.0-or-later
// The plan reader beside the bare DXF parser and beside ogr2ogr, and the GK2 writer beside the reader.
// The folder that KELO_BENCH_PLANS names must hold own.dxf, shared.dxf and noise.dxf.
#include "benchmarks/ratio.h"
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <fstream>
#include <kelo_base/dxf/DxfReader.h>

namespace
{

QString planPath(const std::string &name)
{
    return qEnvironmentVariable("KELO_BENCH_PLANS") + u'/' + QString::fromStdString(name)
           + QStringLiteral(".dxf");
}

/// What a plan reader delivers, so that nobody is measured doing less.
struct Counts
{
    std::size_t inserts = 0;
    std::size_t vertices = 0;
};

class CountingAdapter : public DL_CreationAdapter
{
public:
    void addInsert(const DL_InsertData &) override { ++counts.inserts; }
    void addVertex(const DL_VertexData &) override { ++counts.vertices; }
    Counts counts;
};

void check(benchmark::State &state, const Counts &counts)
{
    if (counts.inserts != 100'000 || counts.vertices == 0)
        state.SkipWithError("not the plan of 100,000 sheets");
}

void readerOurs(benchmark::State &state, const std::string &name)
{
    for (auto _ : state) {
        const DxfReadResult result = ReadDxfFile(planPath(name));
        Counts counts{.inserts = result.drawing.Inserts().size()};
        for (const DxfBlock &block : result.drawing.Blocks())
            for (const DxfPolyline &polyline : result.drawing.Polylines(block))
                counts.vertices += polyline.vertexCount;
        check(state, counts);
    }
}

void readerPeer(benchmark::State &state, const std::string &name)
{
    for (auto _ : state) {
        CountingAdapter adapter;
        std::ifstream stream(QFile::encodeName(planPath(name)).toStdString());
        DL_Dxf().in(stream, &adapter);
        check(state, adapter.counts);
    }
}

} // namespace
BENCHMARK_CAPTURE(readerOurs, own, "own");
BENCHMARK_CAPTURE(readerPeer, own, "own");
BENCHMARK_CAPTURE(readerOurs, shared, "shared");
BENCHMARK_CAPTURE(readerPeer, shared, "shared");
BENCHMARK_CAPTURE(readerOurs, noise, "noise");
BENCHMARK_CAPTURE(readerPeer, noise, "noise");

KELO_RATIO_MAIN()
