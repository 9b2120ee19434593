// SPDX-License-Identifier: GPL-2.0-or-later
// Inserts and their attributes on their way through the gate.
#pragma once

#include "dxf/read/gatecontext_p.h"
#include <string>

/// A block reference. Its attributes are entities of their own behind it.
class InsertHead
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context) const;

private:
    void takeNumber(const DxfPair &pair, PairValues &values);

    DL_InsertData m_data{{}, 0, 0, 0, 1, 1, 1, 0, 1, 1, 0, 0};
    Extrusion m_extrusion;
};

/// An attribute. One of several lines has its text in an object embedded in it, which counts when
/// the attribute's own text is empty.
class Attribute
{
public:
    bool take(const DxfPair &pair, GateContext &context);
    bool end(GateContext &context) const;

private:
    bool takeEmbedded(const DxfPair &pair, PairValues &values);

    std::string m_tag;
    std::string m_text;
    std::string m_embeddedText;
    bool m_isEmbedded = false; ///< inside the embedded object
};
