// SPDX-License-Identifier: GPL-2.0-or-later
// Blocks on their way through the gate: their begin, and their records in the tables.
#pragma once

#include "dxf/read/gatecontext_p.h"
#include <string>

/// What stands before a block's entities.
class BlockHead
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context) const;
    /// A block without a name is left out, and all in it.
    [[nodiscard]] bool hasName() const { return !m_name.empty(); }

private:
    std::string m_name;
    double m_x = 0; ///< of the base point
    double m_y = 0;
};

/// A block's record in the tables: it tells which dynamic block a variant of it stands for.
class BlockRecord
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context) const;

private:
    enum class Data { Other, TrueName, Represented };

    DxfBlockRecord m_record;
    Data m_data = Data::Other; ///< whose extended data the next pairs are
};
