// SPDX-License-Identifier: GPL-2.0-or-later
// Which side of the page points where on screen.
#include "navigation/controls/pagesides_p.h"

#include "navigation/controls/angles_p.h"
#include "navigation/viewaccess_p.h"
#include <QTransform>
#include <cmath>
#include <kelo_base/navigation/ViewGeometry.h>
#include <optional>

using UCoord = DocWindowXIfc::UCoord;

namespace navcontrols {

namespace {

std::optional<PageOnScreen> byPointsOfPage(const ViewAccess &access)
{
    QRectF page;
    if (!access.docPageRect(page) || page.isEmpty())
        return std::nullopt;
    UCoord corner(page.topLeft(), UCoord::ctDocument);
    UCoord right(page.topRight(), UCoord::ctDocument);
    UCoord below(page.bottomLeft(), UCoord::ctDocument);
    if (!access.fromDocument(corner) || !access.fromDocument(right) || !access.fromDocument(below))
        return std::nullopt;
    return PageOnScreen{QPointF(right.devicePoint) - corner.devicePoint,
                        QPointF(below.devicePoint) - corner.devicePoint};
}

std::optional<PageOnScreen> byPointsOfView(const ViewAccess &access)
{
    QRect device;
    if (!access.deviceRect(device))
        return std::nullopt;
    UCoord corner = device.topLeft();
    UCoord right = device.topRight();
    UCoord below = device.bottomLeft();
    if (!access.toDocument(corner) || !access.toDocument(right) || !access.toDocument(below))
        return std::nullopt;
    const QPointF x = right.docPoint - corner.docPoint;
    const QPointF y = below.docPoint - corner.docPoint;
    bool isInvertible = false;
    const QTransform onPage(x.x(), x.y(), y.x(), y.y(), 0, 0);
    // Of a view that is not square, steps along its edges differ in pixels.
    const QTransform onScreen = onPage.inverted(&isInvertible) *
                                QTransform::fromScale(device.width() - 1, device.height() - 1);
    if (!isInvertible)
        return std::nullopt;
    return PageOnScreen{onScreen.map(QPointF(1, 0)), onScreen.map(QPointF(0, 1))};
}

std::optional<PageOnScreen> byNorth(QWidget *view)
{
    double angle = 0;
    if (!NorthAngle(view, angle))
        return std::nullopt;
    const QTransform turn = QTransform().rotate(angle); // clockwise on screen
    return PageOnScreen{turn.map(QPointF(1, 0)), turn.map(QPointF(0, 1))};
}

} // namespace

std::array<DocWindowXIfc::PageSide, kPlaces> sidesAtPlaces(const PageOnScreen &page)
{
    const bool isMirrored = page.right.x() * page.down.y() < page.right.y() * page.down.x();
    const double top = directionOf(-page.down) / (360.0 / kPlaces);
    const int topPlace = std::isfinite(top) ? static_cast<int>(std::lround(top)) : 0; // -4 ... 4
    std::array<DocWindowXIfc::PageSide, kPlaces> sides{};
    for (int side = 0; side < kPlaces; ++side) {
        const int place = topPlace + (isMirrored ? -side : side) + 2 * kPlaces;
        sides[static_cast<std::size_t>(place % kPlaces)] =
            static_cast<DocWindowXIfc::PageSide>(side);
    }
    return sides;
}

PageOnScreen pageOnScreen(QWidget *view)
{
    const ViewAccess access(view);
    if (const auto page = byPointsOfPage(access))
        return *page;
    if (const auto page = byPointsOfView(access))
        return *page;
    return byNorth(view).value_or(PageOnScreen());
}

} // namespace navcontrols
