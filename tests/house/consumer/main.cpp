// SPDX-License-Identifier: GPL-2.0-or-later
// Counts the sheets of a plan with the installed library: consumer PLAN COUNT
#include <QString>
#include <cstdlib>
#include <kelo_base/dxf/DxfReader.h>

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const DxfReadResult plan = ReadDxfFile(QString::fromLocal8Bit(argv[1]));
    return plan && plan.drawing.Inserts().size() == std::strtoul(argv[2], nullptr, 10) ? 0 : 1;
}
