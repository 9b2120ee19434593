// SPDX-License-Identifier: GPL-2.0-or-later
// Chooses entities and groups.
#include "BackdropGate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t kBlock = 65'536;
constexpr std::size_t kLongestText = 900; ///< the parser's lines hold 1023 bytes
constexpr int kMeshOrFaces = 16 | 64;     ///< flags of polylines that are none
constexpr int kSplineFrame = 16;          ///< flag of a vertex that is not drawn

bool isNumberCode(int code)
{
    constexpr std::array kCodes{10, 20, 11, 21, 40, 42, 50, 51, 70, 71, 72, 73, 210, 220, 230};
    return std::ranges::find(kCodes, code) != kCodes.end();
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r");
    const std::size_t end = text.find_last_not_of(" \t\r");
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, end - begin + 1);
}

template <typename Number>
bool isNumber(std::string_view text, Number &number)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && stop == text.data() + text.size();
}

int flagsOf(std::string_view text)
{
    int flags = 0;
    return isNumber(trimmed(text), flags) ? flags : 0;
}

} // namespace

BackdropGate::int_type BackdropGate::underflow()
{
    PlanPair pair;
    m_next.clear();
    while (m_next.size() < kBlock && m_place != Place::End) {
        if (m_pairs.next(pair)) {
            take(pair);
            continue;
        }
        endEntity();
        m_place = Place::End;
    }
    if (m_place == Place::End && !std::exchange(m_isEnded, true))
        m_next += "0\nENDSEC\n0\nEOF\n"; // an entity is handed over when the next thing begins
    if (m_next.empty())
        return traits_type::eof();
    m_out.swap(m_next);
    setg(m_out.data(), m_out.data(), m_out.data() + m_out.size());
    return traits_type::to_int_type(m_out.front());
}

void BackdropGate::take(const PlanPair &pair)
{
    if (pair.code == 0) {
        endEntity();
        const std::string_view name = trimmed(pair.value);
        if (m_place == Place::Entities && name == "ENDSEC")
            m_place = Place::End;
        else if (m_place == Place::Entities)
            beginEntity(name);
        else
            m_place = name == "SECTION" ? Place::SectionName : Place::Outside;
    } else if (m_place == Place::SectionName && pair.code == 2) {
        m_place = trimmed(pair.value) == "ENTITIES" ? Place::Entities : Place::Outside;
    } else if (m_place != Place::Entities || !m_isWanted) {
        return;
    } else if (pair.code == 67) { // of paper space
        m_isWanted = flagsOf(pair.value) == 0;
    } else if (pair.code == 70) {
        takeFlags(pair);
    } else if (pair.code == 1 || pair.code == 3) {
        emitPair(m_entity, pair.code, pair.value.substr(0, kLongestText));
    } else if (isNumberCode(pair.code)) {
        takeNumber(pair);
    }
}

void BackdropGate::beginEntity(std::string_view name)
{
    constexpr std::array<std::string_view, 6> kSimple{"LINE", "ARC",   "CIRCLE",
                                                      "TEXT", "MTEXT", "SEQEND"};
    m_kind = std::ranges::find(kSimple, name) != kSimple.end() ? Kind::Simple
             : name == "LWPOLYLINE"                            ? Kind::LightPolyline
             : name == "POLYLINE"                              ? Kind::OldPolyline
             : name == "VERTEX"                                ? Kind::Vertex
                                                               : Kind::Other;
    const bool isPart = name == "VERTEX" || name == "SEQEND";
    m_isWanted = m_kind != Kind::Other && (!isPart || m_isPolylineWanted);
    m_name = m_kind == Kind::LightPolyline ? "POLYLINE" : std::string(name);
    m_entity.clear();
    m_points.clear();
}

void BackdropGate::endEntity()
{
    if (m_isWanted) {
        emitPair(m_next, 0, m_name);
        m_next += m_entity;
        m_next += m_points;
        if (m_kind == Kind::LightPolyline)
            emitPair(m_next, 0, "SEQEND");
    }
    if (m_kind != Kind::Vertex)
        m_isPolylineWanted = m_isWanted && m_kind == Kind::OldPolyline;
    m_isWanted = false;
    m_kind = Kind::Other;
}

void BackdropGate::takeFlags(const PlanPair &pair)
{
    const int flags = flagsOf(pair.value);
    if (m_kind == Kind::OldPolyline)
        m_isWanted = (flags & kMeshOrFaces) == 0;
    else if (m_kind == Kind::Vertex)
        m_isWanted = (flags & kSplineFrame) == 0;
    takeNumber(pair);
}

void BackdropGate::takeNumber(const PlanPair &pair)
{
    const std::string_view value = trimmed(pair.value);
    double number = 0;
    if (value.size() > 64 || !isNumber(value, number) || !std::isfinite(number))
        return;
    const bool isPoint = pair.code == 10 || pair.code == 20 || pair.code == 42;
    std::string &to = m_kind == Kind::LightPolyline && isPoint ? m_points : m_entity;
    if (m_kind == Kind::LightPolyline && pair.code == 10)
        emitPair(to, 0, "VERTEX");
    emitPair(to, pair.code, value);
}

void BackdropGate::emitPair(std::string &to, int code, std::string_view value)
{
    char digits[16];
    const auto [end, error] = std::to_chars(digits, std::end(digits), code);
    to.append(digits, end);
    to += '\n';
    to += value;
    to += '\n';
}
