// SPDX-License-Identifier: GPL-2.0-or-later
// Reads the values of pairs, and refuses the plan where one cannot be used.
#include "dxf/read/pairvalues_p.h"
#include "dxf/read/readertext_p.h"
#include "dxf/read/realnumber_p.h"
#include <charconv>
#include <cmath>
#include <limits>

namespace {

std::optional<double> finiteNumber(const DxfPair &pair)
{
    if (pair.kind != DxfPair::Kind::Real)
        return pair.isTooLong ? std::nullopt : realNumber(pair.value);
    return std::isfinite(pair.real) ? std::optional(pair.real) : std::nullopt;
}

} // namespace

std::optional<std::string_view> PairValues::text(const DxfPair &pair)
{
    const std::string_view text = pair.text(m_scratch);
    const bool isBroken =
        text.find('\0') != std::string_view::npos || text.find('\n') != std::string_view::npos;
    if (pair.isTooLong || text.size() > kLongestText)
        refuseLongText(pair);
    else if (isBroken)
        refuse(pair.valuePosition, ReaderText::tr("The text holds a NUL or a line feed"));
    else
        return text;
    return std::nullopt;
}

std::optional<qint64> PairValues::integer(const DxfPair &pair)
{
    const auto value = text(pair);
    if (!value)
        return std::nullopt;
    qint64 number = 0;
    const std::string_view digits = trimmed(*value);
    const auto [stop, error] = std::from_chars(digits.begin(), digits.end(), number);
    if (error == std::errc() && stop == digits.end())
        return number;
    refuse(pair.valuePosition, ReaderText::tr("'%1' is no whole number").arg(shownText(*value)));
    return std::nullopt;
}

std::optional<double> PairValues::coordinate(const DxfPair &pair)
{
    const auto number = finiteNumber(pair);
    if (number)
        return number;
    const std::string_view text = pair.text(m_scratch);
    if (pair.isTooLong || text.size() > kLongestText)
        refuseLongText(pair);
    else
        refuse(pair.valuePosition, ReaderText::tr("'%1' is no coordinate").arg(shownText(text)));
    return std::nullopt;
}

double PairValues::number(const DxfPair &pair)
{
    return finiteNumber(pair).value_or(std::numeric_limits<double>::quiet_NaN());
}

int PairValues::smallInteger(const DxfPair &pair, int otherwise)
{
    const std::string_view digits = trimmed(pair.text(m_scratch));
    int number = 0;
    const auto [stop, error] = std::from_chars(digits.begin(), digits.end(), number);
    return error == std::errc() && stop == digits.end() ? number : otherwise;
}

bool PairValues::refuse(qint64 position, const QString &message)
{
    if (!m_errorMessage.isEmpty())
        return false;
    m_errorPosition = position;
    m_errorMessage = message;
    return false;
}

bool PairValues::refuseLongText(const DxfPair &pair)
{
    return refuse(pair.valuePosition,
                  ReaderText::tr("The text has more than %1 bytes").arg(kLongestText));
}
