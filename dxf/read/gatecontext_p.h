// SPDX-License-Identifier: GPL-2.0-or-later
// What an entity on its way through the gate needs of its surroundings.
#pragma once

#include "dxf/read/dxfconvertcreationadapter_p.h"
#include "dxf/read/pairvalues_p.h"

/// Each kind of entity has a class with the same two functions, and each entity a fresh object:
///   bool take(const DxfPair &, GateContext &)  the next of its pairs
///   bool end(GateContext &)                    all of them came; hands it to the adapter
/// Both give false when they refused the plan.
///
/// What the gate has judged it has converted, too. So an entity hands the parser's creation
/// interface what the parser would have made of these pairs, and the parser is spared them. Fields
/// that no sheet needs stay at the parser's defaults.
struct GateContext
{
    DxfConvertCreationAdapter &adapter;
    PairValues values{};
    qint64 position = 0; ///< where the entity at hand begins
};

/// Takes no interest in its pairs.
struct SkippedEntity
{
    static bool take(const DxfPair & /*pair*/, GateContext & /*context*/) { return true; }
    static bool end(GateContext & /*context*/) { return true; }
};

/// Which way an entity's plane faces; upwards unless it says so.
class Extrusion
{
public:
    /// Takes the pair if it is one of the direction's.
    void take(const DxfPair &pair, PairValues &values)
    {
        if (pair.code == groupcode::kExtrusionX)
            m_x = values.number(pair);
        else if (pair.code == groupcode::kExtrusionY)
            m_y = values.number(pair);
        else if (pair.code == groupcode::kExtrusionZ)
            m_z = values.number(pair);
    }
    void giveTo(DxfConvertCreationAdapter &adapter) const
    {
        adapter.setExtrusion(m_x, m_y, m_z, 0);
    }

private:
    double m_x = 0;
    double m_y = 0;
    double m_z = 1;
};
