// SPDX-License-Identifier: GPL-2.0-or-later
// Registration of the viewer's document window, and what it offers by default.
#include <QGlobalStatic>
#include <kelo_base/navigation/DocWindowNotifier.h>
#include <kelo_base/navigation/DocWindowXIfc.h>

namespace {

DocWindowXIfc *registeredWindow = nullptr; // watched, not owned: cleared by its destructor

DocWindowXIfc *dyingWindow = nullptr; // answers nobody any more, whoever registers it once again

Q_GLOBAL_STATIC(DocWindowNotifier, processNotifier)

} // namespace

DocWindowXIfc *DocWindowXIfc::HInstance()
{
    return registeredWindow;
}

void DocWindowXIfc::SetHInstance(DocWindowXIfc *window)
{
    if (window == registeredWindow || (window && window == dyingWindow))
        return;
    registeredWindow = window;
    if (DocWindowNotifier *notifier = Notifier())
        emit notifier->documentWindowReplaced();
}

DocWindowNotifier *DocWindowXIfc::Notifier()
{
    return processNotifier();
}

void DocWindowXIfc::AnnouncePrimaryView() const
{
    DocWindowNotifier *notifier = Notifier();
    if (notifier && registeredWindow == this)
        emit notifier->primaryViewReplaced();
}

DocWindowXIfc::~DocWindowXIfc()
{
    if (registeredWindow != this)
        return;
    dyingWindow = this;
    SetHInstance(nullptr);
    dyingWindow = nullptr;
}

bool DocWindowXIfc::GeoToDevice(QWidget *, UCoord &) const
{
    return false;
}

bool DocWindowXIfc::DeviceToDocument(QWidget *, UCoord &) const
{
    return false;
}

bool DocWindowXIfc::DocumentToDevice(QWidget *, UCoord &) const
{
    return false;
}

DocWindowXIfc::UDocItem DocWindowXIfc::CurrentDocument(QWidget *) const
{
    return {};
}

DocWindowXIfc::ViewDetails DocWindowXIfc::CurrentDetails(QWidget *) const
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

bool DocWindowXIfc::ShowWholePage(QWidget *, PageTurn)
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
