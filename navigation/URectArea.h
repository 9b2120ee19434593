// SPDX-License-Identifier: GPL-2.0-or-later
// A rectangle of a document view, in pixels or on the page.
#pragma once

#include <QRectF>
#include <kelo_base/core/Export.h>
#include <kelo_base/navigation/UCoord.h>

class QWidget;

namespace docwindow {

/// A rectangle of a view and the system it is meant in: pixels of the widget or units of the page.
/// Programs know it as DocWindowXIfc::URectArea.
class KELO_BASE_EXPORT URectArea
{
public:
    URectArea() = default;
    /// A rectangle of device pixels.
    explicit URectArea(const QRect &device) : m_rect(device) {}

    void Reset() { *this = URectArea(); }
    /// Whether it covers anything: finite, width and height above 0.
    [[nodiscard]] bool IsValid() const;

    /// Takes the visible rectangle of @p view in pixels (null: the primary view). False, and the
    /// area empty, when there is no such view or it does not tell.
    bool FillFromDevice(QWidget *view);
    /// Takes the document page shown in @p view, in units of the page; fails as FillFromDevice().
    bool FillFromDocPage(QWidget *view);

    [[nodiscard]] QRectF Rect() const { return m_rect; }
    /// ctDevice or ctDocument; an empty area counts as one of pixels.
    [[nodiscard]] UCoord::CoordType Type() const { return m_type; }

private:
    QRectF m_rect;
    UCoord::CoordType m_type = UCoord::ctDevice;
};

} // namespace docwindow
