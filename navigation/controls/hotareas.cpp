// SPDX-License-Identifier: GPL-2.0-or-later
// The ways to adjacent documents, along the edges of a view.
#include "navigation/controls/hotareas_p.h"

#include "navigation/controls/manners_p.h"
#include "navigation/controls/viewmoves_p.h"
#include "navigation/viewaccess_p.h"
#include <QFileInfo>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <kelo_base/core/NaturalOrder.h>

using PageSide = DocWindowXIfc::PageSide;
using UDocItem = DocWindowXIfc::UDocItem;

namespace navcontrols {

namespace {

constexpr int kNear = 48; // pixels

QString nameOf(const UDocItem &item)
{
    return item.title.isEmpty() ? QFileInfo(item.fileName).completeBaseName() : item.title;
}

/// In the texts of the class.
QString directionName(int place)
{
    static constexpr const char *kNames[] = {
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet above: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet at the top right: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet to the right: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet at the bottom right: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet below: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet at the bottom left: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet to the left: %1"),
        QT_TRANSLATE_NOOP("navcontrols::HotArea", "Sheet at the top left: %1"),
    };
    return HotArea::tr(kNames[place]);
}

/// Of the view's own keys: arrows for the edges, the keys around them on the number pad for the
/// corners.
int placeOfKey(int key)
{
    constexpr int kKeys[kPlaces] = {Qt::Key_Up,   Qt::Key_PageUp, Qt::Key_Right, Qt::Key_PageDown,
                                    Qt::Key_Down, Qt::Key_End,    Qt::Key_Left,  Qt::Key_Home};
    const auto *const found = std::find(std::begin(kKeys), std::end(kKeys), key);
    return found == std::end(kKeys) ? -1 : static_cast<int>(found - std::begin(kKeys));
}

} // namespace

HotArea::HotArea(int place, KView *view) : QToolButton(view), m_place(place), m_view(view)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    m_fading.setStartValue(0.0);
    m_fading.setEndValue(1.0);
    connect(&m_fading, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_opacity = value.toDouble();
        update();
    });
    connect(this, &QToolButton::clicked, this, &HotArea::go);
    hide();
}

void HotArea::setNeighbours(const DocWindowXIfc::UDocItemList &neighbours)
{
    m_neighbours.clear();
    for (const UDocItem &item : neighbours)
        if (item.IsValid())
            m_neighbours << item;
    std::stable_sort(m_neighbours.begin(), m_neighbours.end(),
                     [](const UDocItem &a, const UDocItem &b) {
                         return caseInsensitiveNaturalOrderLessThen(nameOf(a), nameOf(b));
                     });
    QString text;
    if (!m_neighbours.isEmpty())
        text = m_neighbours.size() == 1
                   ? nameOf(m_neighbours[0])
                   : tr("%n sheets", nullptr, static_cast<int>(m_neighbours.size()));
    setText(text);
    setAccessibleName(directionName(m_place).arg(text));
    setToolTip(accessibleName());
    update();
}

void HotArea::setNear(bool isNear)
{
    if (isNear == m_isNear)
        return;
    m_isNear = isNear;
    fade();
}

void HotArea::fade()
{
    const bool isWanted = this->isWanted();
    m_fading.setDirection(isWanted ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    m_fading.setDuration(style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this));
    if (m_fading.duration() > 0) {
        if (m_fading.state() != QAbstractAnimation::Running)
            m_fading.start();
        return;
    }
    m_fading.stop();
    m_opacity = isWanted ? 1 : 0;
    update();
}

void HotArea::go()
{
    if (m_neighbours.size() > 1)
        showList();
    else if (m_view && !m_neighbours.isEmpty())
        showNeighbour(m_view, m_neighbours[0]);
}

void HotArea::showList()
{
    auto *list = new QMenu(this);
    list->setAttribute(Qt::WA_DeleteOnClose);
    for (const UDocItem &item : std::as_const(m_neighbours)) {
        QAction *action = list->addAction(nameOf(item).replace(u'&', QStringLiteral("&&")));
        action->setToolTip(item.description);
        connect(action, &QAction::triggered, m_view, [view = m_view, item] {
            if (view)
                showNeighbour(view, item);
        });
    }
    list->setToolTipsVisible(true);
    list->popup(mapToGlobal(rect().center()));
}

/// One that is not seen is not there.
void HotArea::mousePressEvent(QMouseEvent *event)
{
    if (isWanted())
        QToolButton::mousePressEvent(event);
    else
        event->ignore();
}

void HotArea::focusInEvent(QFocusEvent *event)
{
    QToolButton::focusInEvent(event);
    fade();
}

void HotArea::focusOutEvent(QFocusEvent *event)
{
    QToolButton::focusOutEvent(event);
    fade();
}

/// A chevron that points out of the view, the name beside it; at the left and the right edge it
/// runs along them.
void HotArea::paintEvent(QPaintEvent *)
{
    if (m_opacity <= 0 || m_neighbours.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    const bool isUpright = m_place == 2 || m_place == 6;
    const QSize lying = isUpright ? size().transposed() : size();
    painter.translate(QRectF(rect()).center());
    const double turn = m_place == 6 ? -90 : m_place == 2 ? 90 : 0;
    painter.rotate(turn);

    constexpr double kSign = 24;
    m_name.set(text(), font(), std::max(lying.width() - static_cast<int>(kSign) - 16, 1));
    const double width = m_name.size().width() + kSign;
    const bool isAtLeft = m_place == 5 || m_place == 7;
    const bool isAtRight = m_place == 1 || m_place == 3;
    double left = -width / 2;
    if (isAtLeft)
        left = -lying.width() / 2.0 + 4;
    else if (isAtRight)
        left = lying.width() / 2.0 - 4 - width;
    const double sign = isAtRight ? left + width - kSign / 2 : left + kSign / 2;
    const Halo halo(palette());
    painter.save();
    painter.translate(sign, 0);
    painter.rotate(m_place * 45 - turn);
    QPainterPath chevron(QPointF(-7, 4));
    chevron.lineTo(0, -4);
    chevron.lineTo(7, 4);
    strokeWithHalo(painter, chevron, halo, 3);
    painter.restore();
    m_name.paint(painter, {isAtRight ? left : left + kSign, -m_name.size().height() / 2}, halo);
    if (hasFocus())
        outlineFocus(painter,
                     QRectF(QPointF(-lying.width() / 2.0, -lying.height() / 2.0), QSizeF(lying)),
                     halo);
}

HotAreas::HotAreas(KView *view, Manners &manners, QObject *parent) : QObject(parent), m_view(view)
{
    for (int place = 0; place < kPlaces; ++place) {
        auto *area = new HotArea(place, view);
        manners.watch(area);
        m_areas[static_cast<std::size_t>(place)] = area;
    }
}

HotAreas::~HotAreas()
{
    for (const QPointer<HotArea> &area : m_areas)
        delete area;
}

void HotAreas::setShown(bool isShown)
{
    m_isShown = isShown;
}

bool HotAreas::hasAny() const
{
    return m_isShown && m_hasAny;
}

void HotAreas::setPlaces(const std::array<QRect, kPlaces> &places)
{
    m_places = places;
    for (std::size_t i = 0; i < kPlaces; ++i) {
        HotArea *const area = m_areas[i];
        if (!area)
            continue;
        area->setGeometry(places[i]);
        area->setVisible(m_isShown && !places[i].isEmpty() && area->hasNeighbours());
    }
}

void HotAreas::setDocumentChanged()
{
    const bool before = m_hasAny;
    m_hasAny = false;
    if (m_isShown)
        ask();
    m_isTurnKnown = false;
    if (m_isShown && m_hasAny)
        lookWhereSidesPoint();
    else
        setPlaces(m_places);
    if (m_hasAny != before)
        emit anyChanged();
}

void HotAreas::ask()
{
    DocWindowXIfc *const window = m_view ? ViewAccess(m_view).window() : nullptr;
    for (int side = 0; side < kPlaces; ++side) {
        auto &list = m_bySide[static_cast<std::size_t>(side)];
        list = window ? window->Neighbours(m_view, static_cast<PageSide>(side))
                      : DocWindowXIfc::UDocItemList();
        m_hasAny |= std::any_of(list.begin(), list.end(),
                                [](const UDocItem &item) { return item.IsValid(); });
    }
    if (!m_hasAny)
        for (const QPointer<HotArea> &area : m_areas)
            if (area)
                area->setNeighbours({});
}

void HotAreas::setMoved()
{
    m_isTurnKnown = false;
}

/// Only the place of the names depends on it, so that it can wait until they are seen.
void HotAreas::lookWhereSidesPoint()
{
    if (m_isTurnKnown || !m_view || !hasAny())
        return;
    m_isTurnKnown = true;
    const auto sides = sidesAtPlaces(pageOnScreen(m_view));
    for (std::size_t i = 0; i < kPlaces; ++i)
        if (m_areas[i])
            m_areas[i]->setNeighbours(m_bySide[static_cast<std::size_t>(sides[i])]);
    setPlaces(m_places);
}

void HotAreas::setPointer(std::optional<QPoint> pointer)
{
    if (!hasAny())
        return;
    const auto isNear = [&](const QRect &place) {
        return pointer && !place.isEmpty() &&
               place.adjusted(-kNear, -kNear, kNear, kNear).contains(*pointer);
    };
    if (std::any_of(m_places.cbegin(), m_places.cend(), isNear))
        lookWhereSidesPoint();
    for (std::size_t i = 0; i < kPlaces; ++i)
        if (m_areas[i])
            m_areas[i]->setNear(isNear(m_places[i]));
}

HotArea *HotAreas::areaByKey(int key)
{
    const int place = placeOfKey(key);
    if (place < 0 || !hasAny())
        return nullptr;
    lookWhereSidesPoint();
    HotArea *const area = m_areas[static_cast<std::size_t>(place)];
    return area && area->hasNeighbours() ? area : nullptr;
}

bool HotAreas::canGoByKey(int key)
{
    return areaByKey(key) != nullptr;
}

bool HotAreas::goByKey(int key)
{
    HotArea *const area = areaByKey(key);
    if (area)
        area->go();
    return area != nullptr;
}

} // namespace navcontrols
