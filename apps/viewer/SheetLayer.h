// SPDX-License-Identifier: GPL-2.0-or-later
// The sheets of a plan as they lie on the map, found by place.
#pragma once

#include "Packs.h"
#include <QPolygonF>
#include <QSizeF>
#include <QString>
#include <array>
#include <optional>
#include <vector>

class PlanSession;

/// Where a sheet's page lies on the map: any four corners, mostly those of a turned rectangle. The
/// page has its origin at its top left, metres as units, y growing downwards.
class SheetFrame
{
public:
    /// @param corners  clockwise from the page's top left
    explicit SheetFrame(const std::array<QPointF, 4> &corners) : m_corners(corners) {}

    [[nodiscard]] const std::array<QPointF, 4> &corners() const { return m_corners; }
    [[nodiscard]] QPointF centre() const;
    [[nodiscard]] QSizeF pageSize() const; ///< metres along the top and the left side
    /// The angle of a view in which the page's top is at the top, in degrees.
    [[nodiscard]] double angle() const;
    // By the top and the left side; of a page without area, all is its top left.
    [[nodiscard]] QPointF toPage(QPointF map) const;
    [[nodiscard]] QPointF toMap(QPointF page) const;
    [[nodiscard]] bool contains(QPointF map) const;

private:
    std::array<QPointF, 4> m_corners;
};

/// Small, for there may be a million; what is seen of a sheet is asked of the layer.
struct SheetPlaceOnMap
{
    MapBounds bounds;
    quint32 sheet = 0; ///< index into PlanSession::Sheets()
};

/// Sheets are counted as in PlanSession::Sheets(). Empty until it is built, from a session that is
/// not owned; built again when that has changed, or before it goes.
class SheetLayer
{
public:
    void build(const PlanSession &session);

    [[nodiscard]] qsizetype count() const { return m_count; }
    [[nodiscard]] const MapBounds &bounds() const { return m_bounds; }
    /// All that may be seen in an area.
    void collect(const MapBounds &area, std::vector<quint32> &sheets) const;

    /// The lines of the sheet on the map; closed ones end where they begin.
    [[nodiscard]] QList<QPolygonF> outlines(quint32 sheet) const;
    /// Nothing when the corners have no labels.
    [[nodiscard]] std::optional<SheetFrame> labelledFrame(quint32 sheet) const;
    /// Where the sheet's page lies; of one without labels, the bounds of its lines.
    [[nodiscard]] SheetFrame frame(quint32 sheet) const;
    [[nodiscard]] QString number(quint32 sheet) const; ///< as people read it; may be empty
    [[nodiscard]] QString title(quint32 sheet) const;  ///< number, or the name of the block

    /// The smallest sheet around a point.
    [[nodiscard]] std::optional<quint32> sheetAt(QPointF map) const;
    /// The first sheet with this number.
    [[nodiscard]] std::optional<quint32> sheetWithNumber(const QString &number) const;

private:
    [[nodiscard]] MapBounds boundsOf(quint32 sheet) const;

    const PlanSession *m_session = nullptr;
    struct Pack
    {
        MapBounds bounds;
        quint32 first = 0;
        quint32 end = 0;
    };
    std::vector<SheetPlaceOnMap> m_places; ///< near ones together
    std::vector<Pack> m_packs;
    MapBounds m_bounds;
    qsizetype m_count = 0;
};
