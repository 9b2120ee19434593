// SPDX-License-Identifier: GPL-2.0-or-later
// Lets through to the parser what a backdrop is made of, in a form that does it no harm.
#pragma once

#include "PlanPairs.h"
#include <streambuf>
#include <string>

/// A DXF file of the lines, polylines, arcs, circles and texts of model space, and of their groups
/// that matter alone. The parser takes no file that is binary, has very long lines or numbers that
/// are none, and spends most of its time on what nobody needs; so none of it gets there. Light
/// polylines become old ones, whose vertices it hands over one by one.
class BackdropGate : public std::streambuf
{
public:
    /// False when the file cannot be read.
    bool open(const QString &path) { return m_pairs.open(path); }
    [[nodiscard]] qint64 done() const { return m_pairs.done(); }
    [[nodiscard]] qint64 size() const { return m_pairs.size(); }

protected:
    int_type underflow() override;

private:
    enum class Kind { Other, Simple, OldPolyline, Vertex, LightPolyline };
    enum class Place { Outside, SectionName, Entities, End };

    void take(const PlanPair &pair);
    void beginEntity(std::string_view name);
    void endEntity();
    void takeNumber(const PlanPair &pair);
    void takeFlags(const PlanPair &pair);
    void emitPair(std::string &to, int code, std::string_view value);

    PlanPairs m_pairs;
    std::string m_out;    ///< what the parser reads now
    std::string m_next;   ///< collected for it
    std::string m_entity; ///< the groups of the entity at hand
    std::string m_points; ///< of a light polyline
    std::string m_name;
    Kind m_kind = Kind::Other;
    Place m_place = Place::Outside;
    bool m_isEnded = false;
    bool m_isWanted = false;
    bool m_isPolylineWanted = false; ///< whether the vertices that follow are
};
