// SPDX-License-Identifier: GPL-2.0-or-later
// Inserts and their attributes on their way through the gate.
#include "dxf/read/insertentities_p.h"
#include "dxf/read/readertext_p.h"

bool InsertHead::take(const DxfPair &pair, GateContext &context)
{
    if (pair.code != groupcode::kName) {
        takeNumber(pair, context.values);
        return true;
    }
    const auto name = context.values.text(pair);
    m_data.name = name.value_or("");
    return name.has_value();
}

void InsertHead::takeNumber(const DxfPair &pair, PairValues &values)
{
    switch (pair.code) {
    case groupcode::kX:
        m_data.ipx = values.number(pair);
        break;
    case groupcode::kY:
        m_data.ipy = values.number(pair);
        break;
    case groupcode::kScaleX:
        m_data.sx = values.number(pair);
        break;
    case groupcode::kScaleY:
        m_data.sy = values.number(pair);
        break;
    case groupcode::kColumnSpacing:
        m_data.colSp = values.number(pair);
        break;
    case groupcode::kRowSpacing:
        m_data.rowSp = values.number(pair);
        break;
    case groupcode::kAngle:
        m_data.angle = values.number(pair);
        break;
    case groupcode::kFlags:
        m_data.cols = values.smallInteger(pair, 1);
        break;
    case groupcode::kRows:
        m_data.rows = values.smallInteger(pair, 1);
        break;
    default:
        m_extrusion.take(pair, values);
        break;
    }
}

bool InsertHead::end(GateContext &context) const
{
    context.adapter.endInsert(); // the one before, should this one have no name
    if (m_data.name.empty()) {
        context.adapter.note(ReaderText::tr("An insert without a block name is left out"));
        return true;
    }
    m_extrusion.giveTo(context.adapter);
    context.adapter.addInsert(m_data);
    return true;
}

bool Attribute::take(const DxfPair &pair, GateContext &context)
{
    m_isEmbedded = m_isEmbedded || pair.code == groupcode::kEmbeddedObject;
    if (m_isEmbedded)
        return takeEmbedded(pair, context.values);
    if (pair.code != groupcode::kName && pair.code != groupcode::kText)
        return true;
    const auto text = context.values.text(pair);
    (pair.code == groupcode::kName ? m_tag : m_text) = text.value_or("");
    return text.has_value();
}

/// A long text comes in pieces: all but the last under a code of their own.
bool Attribute::takeEmbedded(const DxfPair &pair, PairValues &values)
{
    if (pair.code != groupcode::kText && pair.code != groupcode::kMoreText)
        return true;
    const auto text = values.text(pair);
    if (!text)
        return false;
    m_embeddedText.append(*text);
    return m_embeddedText.size() <= PairValues::kLongestText || values.refuseLongText(pair);
}

bool Attribute::end(GateContext &context) const
{
    const std::string &text = m_text.empty() ? m_embeddedText : m_text;
    context.adapter.addAttribute({0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, m_tag, text, {}, 0});
    return true;
}
