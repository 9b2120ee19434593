// SPDX-License-Identifier: GPL-2.0-or-later
// Holds the items of a pie menu, pops it up, picks and cancels.
#include <kelo_base/menus/QtPieMenu.h>

#include "menus/compositing_p.h"
#include "menus/pieaccessible_p.h"
#include "menus/piegeometry_p.h"
#include "menus/piemenudata_p.h"
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace {

constexpr int kLargestRadius = 4096; // its mask has eight megabytes
constexpr Qt::WindowFlags kPopupFlags =
    Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;

QSize sizeOf(int outerRadius)
{
    const int edge = 2 * outerRadius + 1;
    return {edge, edge};
}

} // namespace

QtPieMenu::QtPieMenu(int innerRadius, int outerRadius, QWidget *parent, const QString &name)
    : QtPieMenu(QIcon(), QString(), innerRadius, outerRadius, parent, name)
{
}

QtPieMenu::QtPieMenu(const QString &text, int innerRadius, int outerRadius, QWidget *parent,
                     const QString &name)
    : QtPieMenu(QIcon(), text, innerRadius, outerRadius, parent, name)
{
}

QtPieMenu::QtPieMenu(const QIcon &icon, const QString &text, int innerRadius, int outerRadius,
                     QWidget *parent, const QString &name)
    : QtPieItem(icon, text, parent), d(std::make_unique<Data>())
{
    init(name);
    setInnerRadius(innerRadius);
    setOuterRadius(outerRadius);
}

QtPieMenu::~QtPieMenu() = default;

void QtPieMenu::init(const QString &name)
{
    setMouseTracking(true);
    setObjectName(name);
    setWindowFlags(kPopupFlags);
    setAttribute(Qt::WA_WindowPropagation); // sub-menus look like their parents
    if (pie::compositesWindows())
        setAttribute(Qt::WA_TranslucentBackground);
    d->hover.setSingleShot(true);
    d->hover.setInterval(style()->styleHint(QStyle::SH_Menu_SubMenuPopupDelay, nullptr, this));
    connect(&d->hover, &QTimer::timeout, this, &QtPieMenu::hoverAlert);
    d->rest.setSingleShot(true);
    d->rest.setInterval(Data::kRest);
    connect(&d->rest, &QTimer::timeout, this, &QtPieMenu::pointerRested);
    d->releaseWait.setSingleShot(true);
    connect(&d->releaseWait, &QTimer::timeout, this, &QtPieMenu::releaseUnrepeated);
    pie::watchKeys();
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState now) {
                if (now != Qt::ApplicationActive && isVisible())
                    cancelAllOpen();
            });
}

bool QtPieMenu::isTopLevelMenu() const
{
    return !parent() || !parent()->inherits("QtPieMenu");
}

/// The menu of which this one is a sub-menu; null: none.
QtPieMenu *QtPieMenu::holder() const
{
    return qobject_cast<QtPieMenu *>(parent());
}

/// The open menu that this one belongs to in the end; itself, when it is alone.
QtPieMenu &QtPieMenu::firstOpen()
{
    QtPieMenu *first = this;
    while (first->holder() && first->holder()->isVisible())
        first = first->holder();
    return *first;
}

/// The open menu in front of this one; itself, when there is none.
QtPieMenu &QtPieMenu::lastOpen()
{
    QtPieMenu *last = this;
    while (QtPieMenu *menu = last->subMenuAt(last->d->shownSubMenu))
        last = menu;
    return *last;
}

// Items

int QtPieMenu::count() const
{
    return d->items.count();
}

void QtPieMenu::insertItem(QtPieItem *item, int index)
{
    for (const QWidget *holder = this; holder; holder = holder->parentWidget()) {
        if (!item || holder == item)
            return;
    }
    if (item->parent() == this)
        item->setParent(nullptr, item->windowFlags()); // takes it out of the list, if it is there
    item->setParent(this, item->windowFlags());        // hides it as well
    const int place = d->items.insert(item, index);
    connect(item, &QtPieItem::changed, this, &QtPieMenu::itemChanged);
    if (const auto *menu = qobject_cast<QtPieMenu *>(item)) {
        connect(menu, &QtPieItem::activated, this, &QtPieMenu::subMenuSelected);
        connect(menu, &QtPieMenu::canceled, this, &QtPieMenu::subMenuCanceled);
        connect(menu, &QtPieMenu::canceledAll, this, &QtPieMenu::allCanceled);
    }
    for (int *kept : {&d->highlighted, &d->pointerOver, &d->shownSubMenu})
        *kept = pie::afterInsertion(*kept, place);
    itemChanged();
}

QtPieItem *QtPieMenu::insertItem(const QString &text, int index)
{
    return insertItem(QIcon(), text, index);
}

QtPieItem *QtPieMenu::insertItem(const QIcon &icon, const QString &text, int index)
{
    auto item = std::make_unique<QtPieItem>(icon, text);
    insertItem(item.get(), index);
    return item.release();
}

void QtPieMenu::removeItemAt(int index)
{
    QtPieItem *item = itemAt(index);
    if (!item)
        return qWarning("Attempt to remove item %i from QtPieMenu with %i items.", index, count());
    delete item; // childEvent() takes it out of the list
}

void QtPieMenu::clear()
{
    while (count() > 0)
        removeItemAt(count() - 1);
}

void QtPieMenu::childEvent(QChildEvent *event)
{
    QtPieItem::childEvent(event);
    const int place = event->removed() ? d->items.remove(event->child()) : Data::kNone;
    if (place == Data::kNone)
        return;
    disconnect(event->child(), nullptr, this, nullptr);
    const bool wasShown = place == d->shownSubMenu;
    for (int *kept : {&d->highlighted, &d->pointerOver, &d->shownSubMenu})
        *kept = pie::afterRemoval(*kept, place);
    if (wasShown)
        subMenuCanceled();
    itemChanged();
}

QtPieItem *QtPieMenu::itemAt(int index) const
{
    return d->items.at(index);
}

QtPieMenu *QtPieMenu::subMenuAt(int index) const
{
    QtPieItem *item = itemAt(index);
    return item && item->type() == SubMenu ? qobject_cast<QtPieMenu *>(item) : nullptr;
}

int QtPieMenu::indexOf(const QtPieItem *item) const
{
    return d->items.indexOf(item);
}

// The warnings are worded the way logs have always had them, "of of" included.

void QtPieMenu::setItemText(const QString &text, int index)
{
    if (QtPieItem *item = itemAt(index))
        return item->setText(text);
    qWarning("QtPieMenu::setItemText(\"%s\", %i) index of of range", qUtf8Printable(text), index);
}

QString QtPieMenu::itemText(int index) const
{
    if (const QtPieItem *item = itemAt(index))
        return item->text();
    qWarning("QtPieMenu::itemText(%i) index of of range", index);
    return QString();
}

void QtPieMenu::setItemIcon(const QIcon &icon, int index)
{
    if (QtPieItem *item = itemAt(index))
        return item->setIcon(icon);
    qWarning("QtPieMenu::setItemIcon(%p, %i) index of of range", static_cast<const void *>(&icon),
             index);
}

QIcon QtPieMenu::itemIcon(int index) const
{
    if (const QtPieItem *item = itemAt(index))
        return item->icon();
    qWarning("QtPieMenu::itemIcon(%i) index of of range", index);
    return QIcon();
}

void QtPieMenu::setItemWeight(int weight, int index)
{
    if (QtPieItem *item = itemAt(index))
        return item->setWeight(weight);
    qWarning("QtPieMenu::setItemWeight(%i, %i) index of of range", weight, index);
}

int QtPieMenu::itemWeight(int index) const
{
    if (const QtPieItem *item = itemAt(index))
        return item->weight();
    qWarning("QtPieMenu::itemWeight(%i) index of of range", index);
    return 0;
}

void QtPieMenu::setItemEnabled(bool isEnabled, int index)
{
    if (QtPieItem *item = itemAt(index))
        return item->setEnabled(isEnabled);
    qWarning("QtPieMenu::setItemEnabled(%s, %i) index of of range", isEnabled ? "true" : "false",
             index);
}

bool QtPieMenu::isItemEnabled(int index) const
{
    if (const QtPieItem *item = itemAt(index))
        return item->isEnabled();
    qWarning("QtPieMenu::isItemEnabled(%i) index of of range", index);
    return false;
}

void QtPieMenu::itemChanged()
{
    d->outdate();
    update();
    if (isVisible() && d->highlighted >= 0 && !canChoose(d->highlighted))
        setHighlightedItem(Data::kNone);
}

// Geometry

void QtPieMenu::setInnerRadius(int pixels)
{
    d->innerRadius = std::clamp(pixels, 0, kLargestRadius);
    itemChanged();
}

int QtPieMenu::innerRadius() const
{
    return d->innerRadius;
}

void QtPieMenu::setOuterRadius(int pixels)
{
    d->leastOuterRadius = std::clamp(pixels, 0, kLargestRadius);
    setShownRadius(d->leastOuterRadius);
}

void QtPieMenu::setShownRadius(int pixels)
{
    d->outerRadius = pixels;
    d->mask = QBitmap(sizeOf(pixels));
    d->isMaskOutdated = true;
    d->outdateLayout();
    resize(sizeOf(pixels));
    update();
}

int QtPieMenu::outerRadius() const
{
    return d->outerRadius;
}

void QtPieMenu::setGrowing(bool isGrowing)
{
    d->isGrowing = isGrowing;
}

bool QtPieMenu::isGrowing() const
{
    return d->isGrowing;
}

int QtPieMenu::leastOuterRadius() const
{
    return d->leastOuterRadius;
}

QSize QtPieMenu::sizeHint() const
{
    return sizeOf(d->outerRadius);
}

void QtPieMenu::generateMask(QBitmap *mask) const
{
    if (!mask || mask->isNull())
        return;
    mask->clear();
    QPainter painter(mask);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawEllipse(mask->rect().adjusted(0, 0, -1, -1));
}

double QtPieMenu::radiusAt(const QPoint &pos) const
{
    const QPointF offset = QPointF(pos) - rect().center();
    return pie::radiusOf(offset.x(), offset.y());
}

double QtPieMenu::angleAt(const QPoint &pos) const
{
    const QPointF offset = QPointF(pos) - rect().center();
    return pie::angleOf(offset.x(), offset.y());
}

int QtPieMenu::indexAt(const QPoint &pos) const
{
    return angleToIndex(angleAt(pos), count());
}

double QtPieMenu::indexToAngle(int index, int count, bool middle) const
{
    return pie::borderAngle(d->items.weights(), index, count, middle);
}

int QtPieMenu::angleToIndex(double angle, int count) const
{
    return count <= 0 ? Data::kNone : pie::sectorAt(d->layoutOf(*this).borders, angle);
}

// Behaviour

void QtPieMenu::setAutoActivateSubMenus(bool isAutomatic)
{
    d->autoActivates = isAutomatic;
}

bool QtPieMenu::autoActivateSubMenus() const
{
    return d->autoActivates;
}

void QtPieMenu::setHoverInterval(int milliseconds)
{
    d->hover.setInterval(std::max(milliseconds, 0));
}

int QtPieMenu::hoverInterval() const
{
    return d->hover.interval();
}

void QtPieMenu::setTapThreshold(int milliseconds)
{
    d->tapThreshold = std::max(milliseconds, 0);
}

int QtPieMenu::tapThreshold() const
{
    return d->tapThreshold;
}

void QtPieMenu::setCancelDistance(int pixels)
{
    d->cancelDistance = std::max(pixels, 0);
}

int QtPieMenu::cancelDistance() const
{
    return d->cancelDistance;
}

void QtPieMenu::setSubMenuPlacement(SubMenuPlacement placement)
{
    d->placement = placement;
}

QtPieMenu::SubMenuPlacement QtPieMenu::subMenuPlacement() const
{
    return d->placement;
}

void QtPieMenu::setFading(bool isFading)
{
    d->isFading = isFading;
}

bool QtPieMenu::isFading() const
{
    return d->isFading;
}

void QtPieMenu::setDigitsShown(bool areShown)
{
    d->showsDigits = areShown;
    itemChanged();
}

bool QtPieMenu::areDigitsShown() const
{
    return d->showsDigits;
}

// Opening

void QtPieMenu::popup(const QPoint &globalPos)
{
    QtPieMenu *top = this;
    while (top->holder())
        top = top->holder();
    top->hideTree();
    open(globalPos);
}

void QtPieMenu::hideTree()
{
    if (isVisible())
        hide(); // with what it has opened itself
    for (int i = 0; i < count(); ++i) {
        if (QtPieMenu *menu = subMenuAt(i)) // a host may have opened it alone
            menu->hideTree();
    }
}

void QtPieMenu::open(QPoint globalPos)
{
    setHighlightedItem(indexAt(mapFromGlobal(QCursor::pos()))); // where the menu still is
    d->position = globalPos;
    d->pointerOver = Data::kNone;
    d->isShaded = false;
    d->isCanceled = false;
    ++d->opening;
    d->sinceOpening.start();
    d->keys = pie::HeldKeys(pie::keyJustPressed());
    d->stroke.open(globalPos, d->keys.hasOpener() ? QCursor::pos() : globalPos);
    const QScreen *onScreen = QGuiApplication::screenAt(globalPos);
    const QRect area = (onScreen ? onScreen : screen())->geometry();
    grow(area.size());
    resize(sizeHint());
    move(pie::placeOnScreen(globalPos, size(), area));
    const QPointer<QtPieMenu> alive(this);
    prepare();
    if (alive)
        show();
}

void QtPieMenu::grow(QSize screen)
{
    const int radius = d->isGrowing ? d->grownRadius(*this, screen) : d->outerRadius;
    if (radius != d->outerRadius)
        setShownRadius(std::min(radius, kLargestRadius));
}

QPixmap QtPieMenu::picture(QSize screen)
{
    if (!isVisible()) {
        ensurePolished();
        grow(screen);
        resize(sizeHint());
    }
    return grab();
}

void QtPieMenu::openSubMenu(int index, QPoint place)
{
    const QPointer<QtPieMenu> menu(subMenuAt(index));
    if (!menu || !canChoose(index) || !isVisible() || d->shownSubMenu != Data::kNone)
        return;
    d->hover.stop();
    setHighlightedItem(index);
    d->shownSubMenu = index;
    d->isShaded = true;
    update();
    // What is held goes on over there: a stroke, the opening key, and one that may be repeating.
    const bool isHere = d->placement == SubMenuPlacement::AtParent;
    const QPoint origin = isHere ? d->stroke.origin(globalCentre()) : place;
    const pie::Stroke stroke = d->stroke.handOver(origin, d->pointer);
    const pie::HeldKeys keys = std::exchange(d->keys, {});
    const bool isWaiting = d->releaseWait.isActive();
    const QElapsedTimer sinceOpening = d->sinceOpening;
    const QPoint pointer = d->pointer;
    const bool isTap = d->isTap;
    d->releaseWait.stop();
    d->rest.stop();
    menu->open(isHere ? globalCentre() : place);
    if (!menu)
        return;
    menu->d->stroke = stroke;
    menu->d->keys = keys;
    menu->d->isTap = isTap;
    menu->d->sinceOpening = sinceOpening;
    menu->d->pointer = pointer;
    menu->setHighlightedItem(Data::kJustOpened); // a pointer that rests has no say in this
    if (isWaiting)
        menu->d->releaseWait.start(Data::kRepetition);
    menu->awaitRest();
}

/// Whoever hid it, a sub-menu that is gone shades nothing.
void QtPieMenu::subMenuHidden(const QtPieMenu &menu)
{
    if (subMenuAt(d->shownSubMenu) != &menu)
        return;
    d->shownSubMenu = Data::kNone;
    d->isShaded = false;
    setHighlightedItem(Data::kNone);
    update();
}

void QtPieMenu::setHighlightedItem(int index)
{
    const int before = d->highlighted;
    d->highlighted = index < count() ? index : Data::kNone;
    if (d->highlighted == before || !isVisible())
        return;
    const std::vector<pie::Cell> &cells = d->fittedCells(*this);
    for (const int changed : {before, d->highlighted}) {
        if (itemAt(changed))
            update(pie::sectorArea(cells[static_cast<std::size_t>(changed)]));
    }
    pie::announceFocus(*this, itemAt(d->highlighted));
}

int QtPieMenu::highlightedItem() const
{
    return d->highlighted;
}

int QtPieMenu::shownSubMenu() const
{
    return d->shownSubMenu;
}

bool QtPieMenu::isShaded() const
{
    return d->isShaded;
}

bool QtPieMenu::isCanceled() const
{
    return d->isCanceled;
}

bool QtPieMenu::canChoose(int index) const
{
    const QtPieItem *item = itemAt(index);
    return item && item->isEnabled() && d->layoutOf(*this).sweep(index) > 0;
}

// Picking and cancelling

void QtPieMenu::activateItem(int index)
{
    if (!canChoose(index))
        return;
    if (subMenuAt(index))
        return openSubMenu(index, d->pointer);
    const QPointer<QtPieItem> item(itemAt(index));
    const QPointer<QtPieMenu> first(&firstOpen());
    const unsigned opening = first->d->opening;
    subMenuSelected();
    // A menu in between that a listener deleted has told those behind it nothing.
    if (first && first != this && first->isVisible() && first->d->opening == opening)
        first->lastOpen().subMenuSelected();
    if (item)
        emit item->activated();
}

void QtPieMenu::subMenuSelected()
{
    const QPointer<QtPieMenu> alive(this);
    emit activated();
    if (alive)
        emit aboutToHide();
    if (!alive)
        return;
    d->shownSubMenu = Data::kNone; // the sub-menu that was chosen from closes itself
    hide();
}

void QtPieMenu::resetAfterCancel()
{
    if (QtPieMenu *menu = subMenuAt(d->shownSubMenu))
        menu->hide();
    d->shownSubMenu = Data::kNone;
    d->hover.stop();
    d->isShaded = false;
    d->isCanceled = true;
    d->highlighted = Data::kJustOpened;
    update();
}

void QtPieMenu::subMenuCanceled()
{
    resetAfterCancel();
}

void QtPieMenu::allCanceled()
{
    const QPointer<QtPieMenu> alive(this);
    resetAfterCancel();
    emit aboutToHide();
    if (alive)
        hide();
    if (alive)
        emit canceledAll();
    if (alive)
        update();
}

void QtPieMenu::cancelLevel()
{
    if (isTopLevelMenu())
        return allCanceled();
    const QPointer<QtPieMenu> alive(this);
    resetAfterCancel();
    emit aboutToHide();
    if (alive)
        hide();
    if (alive)
        emit canceled();
}

/// Leaves this menu by way of those in front of it. They tell those behind them, unless a listener
/// deletes one on the way.
void QtPieMenu::cancelTree()
{
    const QPointer<QtPieMenu> alive(this);
    const unsigned opening = d->opening;
    if (QtPieMenu *menu = subMenuAt(d->shownSubMenu))
        menu->cancelTree();
    if (alive && isVisible() && d->opening == opening)
        allCanceled();
}

void QtPieMenu::cancelAllOpen()
{
    firstOpen().cancelTree();
}

QMenu *QtPieMenu::createPlainMenu(QWidget *parent)
{
    auto plain = std::make_unique<QMenu>(text(), parent);
    plain->setIcon(icon());
    for (QtPieItem *item : d->items) {
        QAction *action = nullptr;
        if (auto *menu = qobject_cast<QtPieMenu *>(item)) {
            QMenu *nested = menu->createPlainMenu(plain.get());
            action = plain->addMenu(nested); // which belongs to the nested menu
            connect(item, &QObject::destroyed, nested, &QObject::deleteLater);
        } else {
            action = plain->addAction(QString());
            connect(item, &QObject::destroyed, action, &QObject::deleteLater);
            connect(action, &QAction::triggered, item, [item] {
                auto *ring = qobject_cast<QtPieMenu *>(item->parent()); // the one it is in now
                if (ring)
                    ring->activateItem(ring->indexOf(item));
            });
        }
        const auto follow = [action, item] {
            action->setText(item->text());
            action->setIcon(item->icon());
            action->setEnabled(item->isEnabled());
            action->setVisible(!item->text().isEmpty() || !item->icon().isNull());
            action->setCheckable(item->isCheckable());
            action->setChecked(item->isChecked());
        };
        connect(item, &QtPieItem::changed, action, follow);
        connect(action, &QAction::triggered, item, follow); // the toolkit has toggled it
        follow();
    }
    return plain.release();
}
