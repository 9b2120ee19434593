// SPDX-License-Identifier: GPL-2.0-or-later
// The least that a program with the DXF parser does: reads a plan, counts inserts and vertices, and
// says how many there are. The peer of the whole command.
#include <cstdio>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <fstream>

namespace {

class CountingAdapter : public DL_CreationAdapter
{
public:
    void addInsert(const DL_InsertData &) override { ++inserts; }
    void addVertex(const DL_VertexData &) override { ++vertices; }
    long inserts = 0;
    long vertices = 0;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    CountingAdapter adapter;
    std::ifstream stream(argv[1]);
    DL_Dxf().in(stream, &adapter);
    std::printf("%ld inserts, %ld vertices\n", adapter.inserts, adapter.vertices);
    return adapter.inserts > 0 ? 0 : 1;
}
