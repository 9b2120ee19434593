// SPDX-License-Identifier: GPL-2.0-or-later
// A view together with the document window that answers for it.
#pragma once

#include <kelo_base/navigation/DocWindowXIfc.h>
#include <kelo_base/navigation/KView.h>

/// Whether a KView is being destroyed, and with it perhaps the document window that owns it.
[[nodiscard]] bool isAnyViewDying();

/// For the length of one call; every question fails while there is no document window or no view,
/// or a view is dying.
class ViewAccess
{
public:
    /// Null means the primary view.
    explicit ViewAccess(QWidget *view)
        : m_window(isAnyViewDying() ? nullptr : DocWindowXIfc::HInstance()), m_view(view)
    {
        if (!m_view && m_window)
            m_view = m_window->PrimaryView();
    }

    [[nodiscard]] bool deviceRect(QRect &rect) const
    {
        return isThere() && m_window->DeviceRect(m_view, rect);
    }
    [[nodiscard]] bool docPageRect(QRectF &rect) const
    {
        return isThere() && m_window->DocPageRect(m_view, rect);
    }
    [[nodiscard]] bool toGeo(DocWindowXIfc::UCoord &coord) const
    {
        return isThere() && m_window->DeviceToGeo(m_view, coord);
    }
    [[nodiscard]] bool toDocument(DocWindowXIfc::UCoord &coord) const
    {
        return isThere() && m_window->DeviceToDocument(m_view, coord);
    }
    [[nodiscard]] bool fromDocument(DocWindowXIfc::UCoord &coord) const
    {
        return isThere() && m_window->DocumentToDevice(m_view, coord);
    }
    /// The document window that answers for the view; null when none does.
    [[nodiscard]] DocWindowXIfc *window() const { return isThere() ? m_window : nullptr; }
    /// Not null once one of the others has succeeded.
    [[nodiscard]] QWidget *widget() const { return m_view; }

private:
    [[nodiscard]] bool isThere() const { return m_window && m_view; }

    DocWindowXIfc *m_window;
    QWidget *m_view;
};
