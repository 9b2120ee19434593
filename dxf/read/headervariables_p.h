// SPDX-License-Identifier: GPL-2.0-or-later
// The header section on its way through the gate.
#pragma once

#include "dxf/read/gatecontext_p.h"
#include <dl_dxf.h>

/// Lets the parser read the variables that tell how the plan's texts are to be read.
class HeaderVariables
{
public:
    /// @param parser  must outlive the object
    explicit HeaderVariables(DL_Dxf &parser) : m_parser(&parser) {}

    bool take(const DxfPair &pair, GateContext &context);
    static bool end(GateContext & /*context*/) { return true; }

private:
    DL_Dxf *m_parser;
    bool m_isWanted = false; ///< the value of the variable named last
};
