// SPDX-License-Identifier: GPL-2.0-or-later
// Registration of the viewer's document window, and what it offers by default.
#include <kelo_base/navigation/DocWindowXIfc.h>

namespace {
DocWindowXIfc *registeredWindow = nullptr; // watched, not owned: cleared by its destructor
}

DocWindowXIfc *DocWindowXIfc::HInstance()
{
    return registeredWindow;
}

void DocWindowXIfc::SetHInstance(DocWindowXIfc *window)
{
    registeredWindow = window;
}

DocWindowXIfc::~DocWindowXIfc()
{
    if (registeredWindow == this)
        registeredWindow = nullptr;
}

bool DocWindowXIfc::GeoToDevice(QWidget *, UCoord &) const
{
    return false;
}

DocWindowXIfc::UDocItem DocWindowXIfc::CurrentDocument(QWidget *) const
{
    return {};
}

DocWindowXIfc::UDocItemList DocWindowXIfc::Neighbours(QWidget *, PageSide) const
{
    return {};
}

DocWindowXIfc::UDocItemList DocWindowXIfc::LinkedDocuments(QWidget *) const
{
    return {};
}

DocWindowXIfc::UDocItemList DocWindowXIfc::StoredViews(QWidget *) const
{
    return {};
}

bool DocWindowXIfc::ShowDocument(QWidget *, const UDocItem &)
{
    return false;
}

bool DocWindowXIfc::MoveTo(QWidget *, const UCoord &)
{
    return false;
}

bool DocWindowXIfc::ZoomBy(QWidget *, double)
{
    return false;
}

bool DocWindowXIfc::TurnBy(QWidget *, double)
{
    return false;
}
