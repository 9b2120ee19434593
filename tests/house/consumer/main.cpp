// SPDX-License-Identifier: GPL-2.0-or-later
// Uses a little of the installed library; exit status 0 when it answers as it should.
#include <kelo_base/core/Interpolate.h>
#include <kelo_base/dxf/DxfDrawing.h>

int main()
{
    const DxfDrawing drawing;
    const bool isEmpty = drawing.Blocks().empty() && !drawing.HasUtf8Texts();
    return isEmpty && qor::InterpolateValueLinear(0, 0, 2, 4, 1) == 2 ? 0 : 1;
}
