// SPDX-License-Identifier: GPL-2.0-or-later
// What one view shows at this moment, asked at most once a movement and only when somebody looks.
#pragma once

#include "navigation/viewmeasure_p.h"
#include <QObject>
#include <QPointer>
#include <kelo_base/navigation/KView.h>
#include <optional>

namespace navcontrols {

/// Four conversions: two for the direction and the length of a pixel across, two for the scale and
/// on which side of the map the view looks. All controls of a view share them.
class Readout : public QObject
{
    Q_OBJECT

public:
    explicit Readout(KView *view, QObject *parent);

    /// Asks anew when somebody looks next; emits moved().
    void forget();

    [[nodiscard]] bool hasGeoReference();
    /// Where north is on screen, degrees clockwise from the top, above -180, up to 180.
    [[nodiscard]] std::optional<double> north();
    /// Denominator; -1 when not known, as with the next two.
    [[nodiscard]] double scale();
    /// Metres above ground, by the viewing defaults of the process.
    [[nodiscard]] double height();
    /// Across the screen.
    [[nodiscard]] double metresPerPixel();

signals:
    void moved();
    void settled();

private:
    void look();

    QPointer<KView> m_view;
    bool m_isKnown = false;
    std::optional<viewgeometry::MeasuredDiagonals> m_diagonals;
    std::optional<viewgeometry::Midline> m_midline;
};

} // namespace navcontrols
