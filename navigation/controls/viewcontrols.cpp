// SPDX-License-Identifier: GPL-2.0-or-later
// All controls of one view.
#include "navigation/controls/viewcontrols_p.h"

#include "navigation/controls/controlaccessible_p.h"
#include "navigation/controls/scaletext_p.h"
#include "navigation/controls/valuefield_p.h"
#include "navigation/controls/viewmoves_p.h"
#include "navigation/viewaccess_p.h"
#include <QHoverEvent>
#include <QKeyEvent>
#include <QWheelEvent>
#include <initializer_list>
#include <utility>

namespace navcontrols {

ViewControls::ViewControls(KView *view, const ControlState &state, StoredViews &stored,
                           QObject *parent)
    : QObject(parent),
      m_view(view),
      m_state(state),
      m_hasOwnHover(view->testAttribute(Qt::WA_Hover)),
      m_readout(view, nullptr),
      m_presentation(view, stored, nullptr),
      m_hotAreas(view, m_manners, nullptr),
      m_arrow(new NorthArrow(m_readout, view)),
      m_menu(new ViewMenu(m_readout, view, m_manners)),
      m_presentationMenu(new PresentationMenu(m_presentation, stored, view, m_manners))
{
    installAccessibility();
    m_manners.watch(m_arrow);
    view->installEventFilter(this);
    connect(view, &KView::viewChanged, this, [this] { m_hotAreas.setMoved(); });
    connect(view, &KView::viewSettled, this, &ViewControls::settle);
    connect(view, &KView::documentChanged, this, &ViewControls::setDocumentChanged);
    connect(&m_hotAreas, &HotAreas::anyChanged, this, &ViewControls::place);
    connect(m_arrow, &NorthArrow::angleWanted, this, &ViewControls::editAngle);
    connect(m_presentationMenu, &PresentationMenu::left, this, &ViewControls::giveKeyboardBack);
    connect(m_presentationMenu, &PresentationMenu::intervalEntered, this,
            &ViewControls::intervalEntered);
    connectMenu();
}

void ViewControls::connectMenu()
{
    const MenuHandle &handle = m_menu->handle();
    connect(&handle, &NavButton::clicked, this,
            [this] { emit foldChosen(!m_state.isViewMenuFolded); });
    connect(&handle, &MenuHandle::draggedTo, this,
            [this](QPoint point) { m_menu->move(point - m_menu->handle().geometry().center()); });
    connect(&handle, &MenuHandle::dropped, this, &ViewControls::dock);
    connect(&handle, &MenuHandle::pushed, this, &ViewControls::pushMenu);
    connect(m_menu, &ViewMenu::left, this, &ViewControls::giveKeyboardBack);
    connect(m_menu, &ViewMenu::scaleEntered, this, &ViewControls::scaleEntered);
    connect(m_menu, &ViewMenu::eyeChanged, this, &ViewControls::eyeChanged);
}

/// A view that dies takes its widgets along: those that are gone are null here.
ViewControls::~ViewControls()
{
    delete m_angleField;
    delete m_presentationMenu;
    delete m_menu;
    delete m_arrow;
}

void ViewControls::retire(bool isViewAlive)
{
    const QPointer<KView> view = std::exchange(m_view, nullptr);
    deleteLater();
    if (!isViewAlive || !view)
        return;
    view->removeEventFilter(this);
    view->disconnect(this);
    if (!m_hasOwnHover)
        view->setAttribute(Qt::WA_Hover, false);
    m_hotAreas.setShown(false);
    m_hotAreas.setPlaces({});
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_arrow, m_menu, m_presentationMenu, m_angleField})
        if (widget)
            widget->hide();
    m_presentation.leave(); // last: the viewer hears of it
}

QRect ViewControls::area() const
{
    QRect device;
    const bool isTold = ViewAccess(m_view).deviceRect(device) && !device.isEmpty();
    return isTold ? device.intersected(m_view->rect()) : m_view->rect();
}

Corner ViewControls::seen(Corner corner) const
{
    return m_view->layoutDirection() == Qt::RightToLeft ? mirroredCorner(corner) : corner;
}

void ViewControls::apply()
{
    if (!m_view)
        return;
    m_presentation.setInterval(m_state.interval);
    m_presentationMenu->setInterval(m_state.interval);
    m_hotAreas.setShown(m_state.isWanted(Control::HotAreas));
    setDocumentChanged();
}

/// Asks what decides whether a control is there at all.
void ViewControls::setDocumentChanged()
{
    m_hotAreas.setDocumentChanged();
    m_readout.forget();
    settle();
}

void ViewControls::settle()
{
    if (!m_view || !m_state.isShown)
        return place();
    if (m_state.isWanted(Control::ViewMenu))
        m_menu->settle();
    place();
    m_hotAreas.settle();
    m_menu->refresh();
    m_presentationMenu->refresh();
}

void ViewControls::place()
{
    if (!m_view)
        return;
    PlacementRequest request;
    const bool hasArrow = m_state.isWanted(Control::NorthArrow) &&
                          (m_state.isArrowGreyed || m_readout.hasGeoReference());
    if (hasArrow)
        request.arrow = {NorthArrow::kExtent, NorthArrow::kExtent};
    if (m_state.isWanted(Control::ViewMenu)) {
        request.viewMenu = m_menu->unfoldedSize();
        request.viewHandle = ViewMenu::foldedSize();
    }
    if (m_state.isWanted(Control::PresentationMenu))
        request.presentation = m_presentationMenu->sizeHint();
    request.isViewMenuFolded = m_state.isViewMenuFolded;
    request.hasHotAreas = m_hotAreas.hasAny();
    request.arrowCorner = seen(m_state.corner(Control::NorthArrow));
    request.viewMenuCorner = seen(m_state.corner(Control::ViewMenu));
    request.presentationCorner = seen(m_state.corner(Control::PresentationMenu));
    const Placement placement = m_state.isShown ? placeControls(area(), request) : Placement();
    m_menu->setFolded(placement.isViewMenuFolded);
    const auto put = [](QWidget &widget, const QRect &rect) {
        if (!rect.isNull())
            widget.setGeometry(rect);
        widget.setVisible(!rect.isNull());
    };
    put(*m_arrow, placement.arrow);
    put(*m_menu, placement.viewMenu);
    put(*m_presentationMenu, placement.presentation);
    m_hotAreas.setPlaces(placement.hotAreas);
    // Tells where the pointer is, and leaves alone what the viewer gets to know of the mouse.
    if (!m_hasOwnHover)
        m_view->setAttribute(Qt::WA_Hover, m_hotAreas.hasAny());
}

QWidget *ViewControls::widget(Control control) const
{
    QWidget *found = nullptr;
    switch (control) {
    case Control::NorthArrow:
        found = m_arrow;
        break;
    case Control::ViewMenu:
        found = m_menu;
        break;
    case Control::PresentationMenu:
        found = m_presentationMenu;
        break;
    case Control::HotAreas:
        break;
    }
    return found && found->isVisibleTo(m_view) ? found : nullptr;
}

void ViewControls::dock(QPoint point)
{
    if (!m_view)
        return;
    const Corner corner = seen(nearestCorner(area(), point));
    if (corner == m_state.corner(Control::ViewMenu))
        place(); // back to where it was
    else
        emit cornerChosen(Control::ViewMenu, corner);
}

void ViewControls::pushMenu(int key)
{
    if (!m_view)
        return;
    const QRect all = area();
    const Corner now = seen(m_state.corner(Control::ViewMenu));
    bool isLeft = now == Corner::TopLeft || now == Corner::BottomLeft;
    bool isTop = now == Corner::TopLeft || now == Corner::TopRight;
    if (key == Qt::Key_Left || key == Qt::Key_Right)
        isLeft = key == Qt::Key_Left;
    else
        isTop = key == Qt::Key_Up;
    dock({isLeft ? all.left() : all.right(), isTop ? all.top() : all.bottom()});
}

/// A field beside the arrow, for the time of one entry.
void ViewControls::editAngle()
{
    delete m_angleField;
    auto *field = new ValueField(
        tr("North arrow's angle"), [this] { return m_arrow ? m_arrow->angleText() : QString(); },
        [this](const QString &text) {
            const auto degrees = parseQuantity(text, u"°", m_view->locale());
            if (degrees && m_arrow)
                m_arrow->turnTo(*degrees);
            return degrees.has_value();
        },
        QStringLiteral("-888.88°"), m_view);
    field->setHelp(tr("Degrees clockwise from the top"));
    m_angleField = field;
    m_manners.watch(field);
    field->resize(field->sizeHint());
    QRect rect = field->geometry();
    rect.moveCenter(m_arrow->geometry().center());
    rect.moveLeft(std::clamp(rect.left(), 0, std::max(0, m_view->width() - rect.width())));
    field->setGeometry(rect);
    const auto close = [field] {
        field->hide();
        field->deleteLater();
    };
    connect(field, &ValueField::left, this, [this, close] {
        close();
        giveKeyboardBack();
    });
    connect(field, &QLineEdit::editingFinished, field, close); // the keyboard went elsewhere
    field->show();
    field->setFocus(Qt::OtherFocusReason);
}

void ViewControls::giveKeyboardBack()
{
    if (m_view)
        m_view->setFocus();
}

bool ViewControls::zoomByWheel(const QWheelEvent &event)
{
    const QPoint turned = event.angleDelta();
    const bool isTurned = turned.y() != 0 && event.buttons() == Qt::NoButton;
    const bool isFine = event.modifiers().testFlag(Qt::ControlModifier);
    return isTurned && m_view &&
           zoomAround(m_view, event.position().toPoint(), wheelRatio(turned.y(), isFine));
}

bool ViewControls::isForHotAreas(const QKeyEvent &event)
{
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
}

bool ViewControls::useKey(QKeyEvent &event)
{
    if (isForHotAreas(event) && m_hotAreas.goByKey(event.key()))
        return true;
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && m_presentation.useKey(event.key()))
        return true;
    const QWidget *focus = m_view->window()->focusWidget();
    const bool isInControl = focus && focus != m_view && m_view->isAncestorOf(focus);
    if (!isPlain || event.key() != Qt::Key_Escape || !isInControl)
        return false;
    giveKeyboardBack();
    return true;
}

/// Keys and wheel events that controls do not use arrive here, too.
bool ViewControls::eventFilter(QObject *, QEvent *event)
{
    if (isAnyViewDying() || !m_view) // what is left of a dying one is no KView any more
        return false;
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Show:
        m_readout.forget();
        settle();
        return false;
    case QEvent::LayoutDirectionChange:
        place();
        return false;
    case QEvent::HoverEnter:
    case QEvent::HoverMove: {
        const bool isDrag = m_manners.isDocumentsTurn();
        const QPoint pos = static_cast<QHoverEvent *>(event)->position().toPoint();
        m_hotAreas.setPointer(isDrag ? std::nullopt : std::optional(pos));
        return !m_hasOwnHover; // the toolkit would repaint the whole view
    }
    case QEvent::HoverLeave:
        m_hotAreas.setPointer(std::nullopt);
        return !m_hasOwnHover;
    case QEvent::Leave:
        m_hotAreas.setPointer(std::nullopt);
        return false;
    case QEvent::Wheel:
        if (!m_state.isWheelZooming || !zoomByWheel(*static_cast<QWheelEvent *>(event)))
            return false;
        event->accept();
        return true;
    case QEvent::ShortcutOverride: {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (isForHotAreas(key) && m_hotAreas.canGoByKey(key.key()))
            event->accept(); // before a menu's Alt+Left: what is seen wins
        return false;
    }
    case QEvent::KeyPress: {
        const bool isUsed = useKey(*static_cast<QKeyEvent *>(event));
        if (isUsed)
            event->accept();
        return isUsed;
    }
    default:
        return false;
    }
}

} // namespace navcontrols
