// SPDX-License-Identifier: GPL-2.0-or-later
// A rectangle of a document view, in pixels or on the page.
#include "navigation/viewaccess_p.h"
#include <cmath>
#include <kelo_base/navigation/URectArea.h>

namespace docwindow {

bool URectArea::IsValid() const
{
    const double sum = m_rect.x() + m_rect.y() + m_rect.width() + m_rect.height();
    return m_rect.width() > 0 && m_rect.height() > 0 && std::isfinite(sum);
}

bool URectArea::FillFromDevice(QWidget *view)
{
    Reset();
    QRect device;
    if (!ViewAccess(view).deviceRect(device))
        return false;
    m_rect = device;
    return true;
}

bool URectArea::FillFromDocPage(QWidget *view)
{
    Reset();
    QRectF page;
    if (!ViewAccess(view).docPageRect(page))
        return false;
    m_rect = page;
    m_type = UCoord::ctDocument;
    return true;
}

} // namespace docwindow
