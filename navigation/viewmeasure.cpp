// SPDX-License-Identifier: GPL-2.0-or-later
// What a view tells of itself: two conversions a measurement, and no more.
#include "navigation/viewmeasure_p.h"

#include "navigation/viewaccess_p.h"

using UCoord = DocWindowXIfc::UCoord;

namespace viewgeometry {

std::optional<MeasuredDiagonals> measuredDiagonals(QWidget *view)
{
    const ViewAccess access(view);
    QRect device;
    if (!access.deviceRect(device))
        return std::nullopt;
    UCoord first = device.topLeft();
    UCoord last = device.bottomRight();
    if (!access.toGeo(first) || !access.toGeo(last))
        return std::nullopt;
    const UCoord span = last - first;
    const QWidget *widget = access.widget();
    const QSizeF dpi(widget->physicalDpiX(), widget->physicalDpiY());
    return MeasuredDiagonals{diagonals(span.geoPoint, span.devicePoint, dpi), span.geoPoint,
                             span.devicePoint};
}

std::optional<Midline> measuredMidline(QWidget *view)
{
    const ViewAccess access(view);
    QRect device;
    constexpr int kNarrowest = 4; // pixels; in one of three, both points are its middle
    if (!access.deviceRect(device) || device.width() < kNarrowest)
        return std::nullopt;
    const int middle = device.center().y();
    UCoord left(device.left() + 1, middle);
    UCoord right(device.right() - 1, middle);
    if (!access.toGeo(left) || !access.toGeo(right))
        return std::nullopt;
    return Midline{right.geoPoint - left.geoPoint, static_cast<double>(device.width() - 3)};
}

} // namespace viewgeometry
