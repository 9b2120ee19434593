// SPDX-License-Identifier: GPL-2.0-or-later
// The ways to adjacent documents, along the edges of a view.
#pragma once

#include "navigation/controls/halo_p.h"
#include "navigation/controls/pagesides_p.h"
#include <QPointer>
#include <QToolButton>
#include <QVariantAnimation>
#include <array>

namespace navcontrols {

class Manners;

/// One of the eight; seen while the pointer is near or it has the keyboard.
class HotArea : public QToolButton
{
    Q_OBJECT

public:
    /// @param place  0 ... 7 clockwise from the top
    HotArea(int place, KView *view);

    void setNeighbours(const DocWindowXIfc::UDocItemList &neighbours);
    [[nodiscard]] bool hasNeighbours() const { return !m_neighbours.isEmpty(); }
    void setNear(bool isNear);
    /// Goes to the only neighbour, or shows the list of several.
    void go();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void fade();
    void showList();
    [[nodiscard]] bool isWanted() const { return m_isNear || hasFocus(); }

    int m_place;
    QPointer<KView> m_view;
    QList<DocWindowXIfc::UDocItem> m_neighbours; ///< in natural order
    bool m_isNear = false;
    double m_opacity = 0;
    QVariantAnimation m_fading;
    HaloText m_name;
};

/// All eight of a view. They ask for the neighbours when the document changes, and where the page's
/// sides point only when one of them is about to be seen or used.
class HotAreas : public QObject
{
    Q_OBJECT

public:
    HotAreas(KView *view, Manners &manners, QObject *parent);
    ~HotAreas() override;

    /// Whether they may be seen at all; counts from the next setDocumentChanged() on.
    void setShown(bool isShown);
    [[nodiscard]] bool hasAny() const;
    /// Null rectangles hide.
    void setPlaces(const std::array<QRect, kPlaces> &places);
    /// The document is another one: asks for its neighbours.
    void setDocumentChanged();
    void setMoved();
    /// The movement is over: names stand where they belong.
    void settle() { lookWhereSidesPoint(); }
    /// @param pointer  in the view, or nothing when it is elsewhere or a button is down
    void setPointer(std::optional<QPoint> pointer);
    /// Goes where an arrow key points, or a key of the corners around them; false when nothing is
    /// there, and so for other keys.
    bool goByKey(int key);
    /// Whether goByKey() would.
    [[nodiscard]] bool canGoByKey(int key);

signals:
    /// hasAny() answers differently.
    void anyChanged();

private:
    void ask();
    void lookWhereSidesPoint();
    HotArea *areaByKey(int key);

    QPointer<KView> m_view;
    std::array<QPointer<HotArea>, kPlaces> m_areas;
    std::array<DocWindowXIfc::UDocItemList, kPlaces> m_bySide;
    std::array<QRect, kPlaces> m_places;
    bool m_isShown = false;
    bool m_hasAny = false;
    bool m_isTurnKnown = false;
};

} // namespace navcontrols
