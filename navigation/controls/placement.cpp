// SPDX-License-Identifier: GPL-2.0-or-later
// Where the controls of a view lie, and which of them give way in a small one.
#include "navigation/controls/placement_p.h"

#include <algorithm>
#include <vector>

namespace navcontrols {

namespace {

// Extents in pixels below which something gives way.
constexpr int kForPresentation = 300;
constexpr int kForViewMenu = 240;
constexpr int kForHotAreas = 180;
constexpr int kForHandle = 120;
constexpr int kForArrow = 72;

bool isAtLeft(Corner corner)
{
    return corner == Corner::TopLeft || corner == Corner::BottomLeft;
}

bool isAtTop(Corner corner)
{
    return corner == Corner::TopLeft || corner == Corner::TopRight;
}

/// Puts one control after the other into the room that is left.
class Stack
{
public:
    explicit Stack(const QRect &room) : m_room(room) {}

    /// Null when there is no place.
    QRect place(QSize size, Corner corner)
    {
        QRect rect(QPoint(), size);
        rect.moveTopLeft({isAtLeft(corner) ? m_room.left() : m_room.right() - size.width() + 1,
                          isAtTop(corner) ? m_room.top() : m_room.bottom() - size.height() + 1});
        for (const QRect &taken : m_taken) // in their order, so that those of a corner pile up
            if (isNear(rect, taken))
                rect.moveTop(isAtTop(corner) ? taken.bottom() + 1 + kMargin
                                             : taken.top() - kMargin - size.height());
        const bool isFree = std::none_of(m_taken.cbegin(), m_taken.cend(),
                                         [&](const QRect &taken) { return isNear(rect, taken); });
        if (size.isEmpty() || !m_room.contains(rect) || !isFree)
            return {};
        m_taken.push_back(rect);
        return rect;
    }

private:
    static bool isNear(const QRect &a, const QRect &b)
    {
        return a.adjusted(-kMargin, -kMargin, kMargin, kMargin).intersects(b);
    }

    QRect m_room;
    std::vector<QRect> m_taken;
};

/// A third of each edge for its middle, a third of the upper and the lower one for each corner.
std::array<QRect, 8> hotAreasOf(const QRect &area)
{
    const int third = area.width() / 3;
    const int top = area.top();
    const int bottom = area.bottom() - kHotDepth + 1;
    const int right = area.right() + 1;
    const int middle = right - 2 * third - area.left();
    const int height = area.height() / 3;
    const int high = area.top() + height;
    return {QRect(area.left() + third, top, middle, kHotDepth),
            QRect(right - third, top, third, kHotDepth),
            QRect(right - kHotDepth, high, kHotDepth, height),
            QRect(right - third, bottom, third, kHotDepth),
            QRect(area.left() + third, bottom, middle, kHotDepth),
            QRect(area.left(), bottom, third, kHotDepth),
            QRect(area.left(), high, kHotDepth, height),
            QRect(area.left(), top, third, kHotDepth)};
}

} // namespace

Corner mirroredCorner(Corner corner)
{
    switch (corner) {
    case Corner::TopLeft:
        return Corner::TopRight;
    case Corner::TopRight:
        return Corner::TopLeft;
    case Corner::BottomLeft:
        return Corner::BottomRight;
    case Corner::BottomRight:
        return Corner::BottomLeft;
    }
    return corner;
}

Corner nearestCorner(const QRect &area, QPoint point)
{
    const bool left = point.x() < area.x() + area.width() / 2;
    if (point.y() < area.y() + area.height() / 2)
        return left ? Corner::TopLeft : Corner::TopRight;
    return left ? Corner::BottomLeft : Corner::BottomRight;
}

Placement placeControls(const QRect &area, const PlacementRequest &request)
{
    const int extent = std::min(area.width(), area.height());
    Placement placement;
    int border = kMargin;
    if (request.hasHotAreas && extent >= kForHotAreas) {
        placement.hotAreas = hotAreasOf(area);
        border = kHotDepth + kMargin / 2;
    }
    Stack stack(area.adjusted(border, border, -border, -border));
    if (extent >= kForArrow)
        placement.arrow = stack.place(request.arrow, request.arrowCorner);
    if (extent >= kForViewMenu && !request.isViewMenuFolded)
        placement.viewMenu = stack.place(request.viewMenu, request.viewMenuCorner);
    if (extent >= kForHandle && placement.viewMenu.isNull()) {
        placement.viewMenu = stack.place(request.viewHandle, request.viewMenuCorner);
        placement.isViewMenuFolded = !placement.viewMenu.isNull();
    }
    if (extent >= kForPresentation)
        placement.presentation = stack.place(request.presentation, request.presentationCorner);
    return placement;
}

} // namespace navcontrols
