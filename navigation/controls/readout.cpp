// SPDX-License-Identifier: GPL-2.0-or-later
// What one view shows at this moment, asked at most once a movement and only when somebody looks.
#include "navigation/controls/readout_p.h"

#include "navigation/controls/angles_p.h"
#include <kelo_base/navigation/ViewGeometry.h>

namespace navcontrols {

Readout::Readout(KView *view, QObject *parent) : QObject(parent), m_view(view)
{
    connect(view, &KView::viewChanged, this, &Readout::forget);
    connect(view, &KView::viewSettled, this, &Readout::settled);
}

void Readout::forget()
{
    m_isKnown = false;
    emit moved();
}

void Readout::look()
{
    if (m_isKnown || !m_view)
        return;
    m_isKnown = true;
    m_midline = viewgeometry::measuredMidline(m_view);
    m_diagonals = m_midline ? viewgeometry::measuredDiagonals(m_view) : std::nullopt;
}

bool Readout::hasGeoReference()
{
    return north().has_value();
}

std::optional<double> Readout::north()
{
    look();
    if (!m_diagonals || !m_midline)
        return std::nullopt;
    const QPointF right = m_midline->map / m_midline->pixels;
    const QPointF down =
        (m_diagonals->map - m_diagonals->pixels.x() * right) / m_diagonals->pixels.y();
    const double angle = northDirection(right, down);
    return std::isnan(angle) ? std::nullopt : std::optional(angle);
}

double Readout::scale()
{
    look();
    return m_diagonals ? viewgeometry::mapScale(*m_diagonals) : -1;
}

double Readout::height()
{
    look();
    if (!m_diagonals)
        return -1;
    const auto eye = viewgeometry::limitedEye(DefaultFieldOfView(), DefaultEyeToMonitorDistance());
    return viewgeometry::estimateHeight(*m_diagonals, eye).combined;
}

double Readout::metresPerPixel()
{
    look();
    const double metres =
        m_midline ? std::hypot(m_midline->map.x(), m_midline->map.y()) / m_midline->pixels : -1;
    return metres > 0 && std::isfinite(metres) ? metres : -1;
}

} // namespace navcontrols
