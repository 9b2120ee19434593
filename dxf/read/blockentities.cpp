// SPDX-License-Identifier: GPL-2.0-or-later
// Blocks on their way through the gate: their begin, and their records in the tables.
#include "dxf/read/blockentities_p.h"
#include "dxf/read/readertext_p.h"
#include <charconv>

namespace {

/// 0, which no object has, where there is none.
quint64 handleOf(std::string_view text)
{
    constexpr int kHexadecimal = 16;
    text = trimmed(text);
    quint64 handle = 0;
    const auto [stop, error] = std::from_chars(text.begin(), text.end(), handle, kHexadecimal);
    return error == std::errc() && stop == text.end() ? handle : 0;
}

} // namespace

bool BlockHead::take(const DxfPair &pair, GateContext &context)
{
    switch (pair.code) {
    case groupcode::kName: {
        const auto name = context.values.text(pair);
        m_name = name.value_or("");
        return name.has_value();
    }
    case groupcode::kX:
        m_x = context.values.number(pair);
        return true;
    case groupcode::kY:
        m_y = context.values.number(pair);
        return true;
    default:
        return true;
    }
}

bool BlockHead::end(GateContext &context) const
{
    if (hasName())
        context.adapter.addBlock({m_name, 0, m_x, m_y, 0});
    else
        context.adapter.note(ReaderText::tr("A block without a name is left out"));
    return true;
}

bool BlockRecord::take(const DxfPair &pair, GateContext & /*context*/)
{
    const bool isNeeded =
        pair.code == groupcode::kName || pair.code == groupcode::kHandle ||
        (pair.code >= groupcode::kDataText && pair.code <= groupcode::kDataHandle);
    if (!isNeeded || pair.isTooLong || pair.value.size() > PairValues::kLongestText)
        return true; // only a nicer name is lost
    if (pair.code == groupcode::kName)
        m_record.name = pair.value;
    else if (pair.code == groupcode::kHandle)
        m_record.handle = handleOf(pair.value);
    else if (pair.code == groupcode::kDataApplication)
        m_data = pair.value == "AcDbDynamicBlockTrueName" ? Data::TrueName
                 : pair.value == "AcDbBlockRepBTag"       ? Data::Represented
                                                          : Data::Other;
    else if (pair.code == groupcode::kDataText && m_data == Data::TrueName)
        m_record.trueName = pair.value;
    else if (pair.code == groupcode::kDataHandle && m_data == Data::Represented)
        m_record.represented = handleOf(pair.value);
    return true;
}

bool BlockRecord::end(GateContext &context) const
{
    context.adapter.addBlockRecord(m_record);
    return true;
}
