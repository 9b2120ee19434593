// SPDX-License-Identifier: GPL-2.0-or-later
// What controls ask of the document window; the view may be gone when one of them returns.
#include "navigation/controls/viewmoves_p.h"

#include "navigation/controls/angles_p.h"
#include "navigation/viewaccess_p.h"
#include "navigation/viewgeometry_p.h"
#include <QPointer>
#include <cmath>
#include <kelo_base/navigation/ViewGeometry.h>
#include <optional>

using UCoord = DocWindowXIfc::UCoord;
using UDocItem = DocWindowXIfc::UDocItem;
using ViewDetail = DocWindowXIfc::ViewDetail;

namespace navcontrols {

namespace {

/// On the map or, where there is none, on the page.
struct Place
{
    QPointF point;
    UCoord::CoordType type;
};

std::optional<Place> placeAt(KView *view, QPoint pixel)
{
    const ViewAccess access(view);
    UCoord coord(pixel);
    if (access.toGeo(coord) && viewgeometry::isFinite(coord.geoPoint))
        return Place{coord.geoPoint, UCoord::ctGeo};
    if (access.toDocument(coord) && viewgeometry::isFinite(coord.docPoint))
        return Place{coord.docPoint, UCoord::ctDocument};
    return std::nullopt;
}

std::optional<Place> placeInMiddle(KView *view)
{
    QRect device;
    return ViewAccess(view).deviceRect(device) ? placeAt(view, device.center()) : std::nullopt;
}

/// The origin itself would count as unknown: the point is a nanometre beside it.
UCoord coordOf(QPointF point, UCoord::CoordType type)
{
    return UCoord(point.isNull() ? QPointF(1e-9, 0) : point, type);
}

bool isFactor(double ratio)
{
    return ratio > 0 && std::isfinite(ratio);
}

/// Moves @p wanted back to the pixel @p pointer. The pixel in the middle may be half a one beside
/// the middle that MoveTo() means: what remains after a move is mended by the next.
void bringBack(const QPointer<KView> &view, const Place &wanted, QPoint pointer)
{
    const auto middle = placeInMiddle(view);
    if (!middle || middle->type != wanted.type)
        return;
    QPointF target = middle->point;
    for (int move = 0; move < 2; ++move) {
        const auto now = placeAt(view, pointer);
        if (!now || now->type != wanted.type || now->point == wanted.point)
            return;
        target += wanted.point - now->point;
        DocWindowXIfc *const window = ViewAccess(view).window();
        if (!window || !window->MoveTo(view, coordOf(target, wanted.type)) || !view)
            return;
    }
}

} // namespace

bool turnView(KView *view, double degrees)
{
    DocWindowXIfc *const window = ViewAccess(view).window();
    return window && std::isfinite(degrees) && window->TurnBy(view, degrees);
}

bool zoomView(KView *view, double ratio)
{
    DocWindowXIfc *const window = ViewAccess(view).window();
    return window && isFactor(ratio) && window->ZoomBy(view, ratio);
}

bool zoomAround(KView *view, QPoint pointer, double ratio)
{
    const QPointer<KView> alive(view);
    const auto place = placeAt(view, pointer);
    if (!zoomView(view, ratio))
        return false;
    if (alive && place)
        bringBack(alive, *place, pointer);
    return true;
}

bool zoomToScale(KView *view, double scale)
{
    const double now = MapScale(view);
    return now > 0 && zoomView(view, scale / now);
}

bool zoomToHeight(KView *view, double metres)
{
    return zoomView(view, EstimatedZoomRatioFromDesiredHeightAboveGroundLevelS(view, metres));
}

bool showWholePage(KView *view, DocWindowXIfc::PageTurn turn)
{
    DocWindowXIfc *const window = ViewAccess(view).window();
    return window && window->ShowWholePage(view, turn);
}

bool showItem(KView *view, const UDocItem &item)
{
    DocWindowXIfc *const window = ViewAccess(view).window();
    return window && window->ShowDocument(view, item);
}

/// An item holds whole degrees and denominators: what they lack is mended afterwards.
bool showNeighbour(KView *view, UDocItem item)
{
    const QPointer<KView> alive(view);
    const auto middle = placeInMiddle(view);
    const double scale = MapScale(view);
    double angle = 0;
    const bool isOnMap = NorthAngle(view, angle) && scale > 0;
    if (isOnMap && middle && middle->type == UCoord::ctGeo) {
        item.position = coordOf(middle->point, UCoord::ctGeo);
        item.rotation = viewgeometry::truncated<qint32>(std::round(angle));
        item.scale = std::max(viewgeometry::truncated<qint32>(std::round(scale)), 1);
    }
    if (!showItem(view, item))
        return false;
    if (!alive || !isOnMap)
        return true;
    double angleNow = 0;
    if (NorthAngle(view, angleNow)) {
        const double turn = normalizedAngle(angle - angleNow);
        if (std::abs(turn) > 1e-6)
            turnView(view, turn);
    }
    const double scaleNow = alive ? MapScale(view) : -1;
    if (scaleNow > 0 && std::abs(scale / scaleNow - 1) > 1e-9)
        zoomView(view, scale / scaleNow);
    if (alive && middle && middle->type == UCoord::ctGeo) {
        QRect device;
        if (ViewAccess(view).deviceRect(device))
            bringBack(alive, *middle, device.center());
    }
    return true;
}

double wheelRatio(int angle, bool isFine)
{
    constexpr double kStep = 120; // eighths of a degree
    return std::pow(isFine ? 1.05 : 1.25, -angle / kStep);
}

UDocItem itemOf(KView *view)
{
    DocWindowXIfc *const window = ViewAccess(view).window();
    if (!window)
        return {};
    UDocItem item = window->CurrentDocument(view);
    if (!item.IsValid())
        return item;
    const DocWindowXIfc::ViewDetails told = window->CurrentDetails(view);
    double angle = 0;
    if (!told.testFlag(ViewDetail::Rotation) && NorthAngle(view, angle))
        item.rotation = viewgeometry::truncated<qint32>(std::round(angle));
    if (const double scale = MapScale(view); !told.testFlag(ViewDetail::Scale) && scale > 0)
        item.scale = std::max(viewgeometry::truncated<qint32>(std::round(scale)), 1);
    if (!told.testFlag(ViewDetail::Position)) {
        const auto middle = placeInMiddle(view);
        item.position = middle ? coordOf(middle->point, middle->type) : UCoord();
    }
    return item;
}

} // namespace navcontrols
