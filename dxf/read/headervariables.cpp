// SPDX-License-Identifier: GPL-2.0-or-later
// The header section on its way through the gate.
#include "dxf/read/headervariables_p.h"

bool HeaderVariables::take(const DxfPair &pair, GateContext &context)
{
    const bool isName = pair.code == groupcode::kVariable;
    if (!isName && !m_isWanted)
        return true;
    const auto text = context.values.text(pair);
    if (!text)
        return false;
    m_isWanted = isName && (*text == "$ACADVER" || *text == "$DWGCODEPAGE");
    const bool isText = pair.code < groupcode::kVariable;
    if (!m_isWanted && !isText)
        return true;
    m_parser->processDXFGroup(&context.adapter, pair.code, std::string(*text));
    if (!isName)
        m_parser->addSetting(&context.adapter);
    return true;
}
