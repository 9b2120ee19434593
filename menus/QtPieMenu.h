// SPDX-License-Identifier: GPL-2.0-or-later
// A round pop-up menu whose items are chosen by direction.
#pragma once

#include <QPoint>
#include <QSize>
#include <kelo_base/core/Export.h>
#include <kelo_base/menus/QtPieItem.h>
#include <memory>
#include <vector>

class QBitmap;
class QMenu;
class QPixmap;

namespace pie {
enum class Verdict : int;
}

/// Shows its items as sectors of a ring around the point where it pops up. Being an item itself, a
/// pie menu can be an item of another one: a sub-menu.
///
/// Three ways of picking: press, drag and let go; click to open and click an item; keys. What is
/// highlighted is what is picked. A direction counts beyond the ring as well. Within the inner
/// radius nothing is chosen, and a click there cancels. Escape and the right button cancel one
/// level, losing the focus cancels all.
///
/// Near an edge of the screen the menu opens aside of where it was asked for. The directions of a
/// stroke count from there nonetheless, until the pointer rests for 150 ms or the button is let go;
/// then they count from the middle of the menu.
///
/// Angles are radians, counter-clockwise on screen, pi/2 at the top. Item 0 is centred on the top,
/// the others follow counter-clockwise in list order. The same holds in right-to-left layouts.
///
/// Signals when an item is picked, here in a sub-menu: the sub-menu's activated(), the menu's
/// activated() and aboutToHide(), the sub-menu's aboutToHide(), the item's activated(). A listener
/// may delete anything, this menu included; what was deleted says nothing more.
class KELO_BASE_EXPORT QtPieMenu : public QtPieItem
{
    Q_OBJECT

public:
    /// Where sub-menus open: around the pointer (by keyboard: around their item), or in this menu's
    /// place.
    enum class SubMenuPlacement { AroundPointer, AtParent };

    /// @param innerRadius, outerRadius  see setInnerRadius() and setOuterRadius()
    /// @param name  the object name
    QtPieMenu(int innerRadius, int outerRadius, QWidget *parent = nullptr,
              const QString &name = QString());
    /// With the text and the icon that it has as a sub-menu.
    QtPieMenu(const QString &text, int innerRadius, int outerRadius, QWidget *parent = nullptr,
              const QString &name = QString());
    QtPieMenu(const QIcon &icon, const QString &text, int innerRadius, int outerRadius,
              QWidget *parent = nullptr, const QString &name = QString());
    ~QtPieMenu() override;

    [[nodiscard]] int type() const override { return SubMenu; }
    /// Whether the parent object is no pie menu.
    [[nodiscard]] bool isTopLevelMenu() const;

    // Items. Indexes count from 0. One that does not exist makes setters do nothing and getters
    // return an empty or false value, and a warning is logged.

    [[nodiscard]] int count() const;
    /// Puts the item before the one at @p index; at the end when there is none. The item belongs to
    /// this menu from now on, and leaves the one in which it was. Ignored: null, and a menu that
    /// holds this one.
    void insertItem(QtPieItem *item, int index = -1);
    /// Inserts a new plain item and returns it.
    QtPieItem *insertItem(const QString &text, int index = -1);
    QtPieItem *insertItem(const QIcon &icon, const QString &text, int index = -1);
    /// Deletes the item. Deleting it, or giving it another parent, is as good.
    void removeItemAt(int index);
    void clear();
    /// Null without a warning when there is no such item.
    [[nodiscard]] QtPieItem *itemAt(int index) const;
    /// The item when it is a menu; else null, without a warning.
    [[nodiscard]] QtPieMenu *subMenuAt(int index) const;
    /// The index of @p item; -1 when it is not in this menu.
    [[nodiscard]] int indexOf(const QtPieItem *item) const;

    void setItemText(const QString &text, int index);
    [[nodiscard]] QString itemText(int index) const;
    void setItemIcon(const QIcon &icon, int index);
    [[nodiscard]] QIcon itemIcon(int index) const;
    void setItemWeight(int weight, int index);
    [[nodiscard]] int itemWeight(int index) const;
    void setItemEnabled(bool isEnabled, int index);
    [[nodiscard]] bool isItemEnabled(int index) const;

    // Geometry

    /// Pixels, from 0 to 4096; other values are limited. An inner radius above the outer one leaves
    /// a ring without width, whose items are still chosen by direction.
    void setInnerRadius(int pixels);
    [[nodiscard]] int innerRadius() const;
    void setOuterRadius(int pixels);
    [[nodiscard]] int outerRadius() const;
    /// Whether the outer radius grows when the menu pops up, as far as its font and its items take
    /// for all texts to be shown and the screen has room; initially false. outerRadius() is the
    /// grown one then, leastOuterRadius() the one that was set.
    void setGrowing(bool isGrowing);
    [[nodiscard]] bool isGrowing() const;
    [[nodiscard]] int leastOuterRadius() const;
    /// 2 x outer radius + 1 on each side: there is a pixel in the middle.
    [[nodiscard]] QSize sizeHint() const override;
    /// Makes @p mask the shape of the menu, a round one as large as the bitmap. Null is ignored.
    virtual void generateMask(QBitmap *mask) const;

    /// Distance in pixels from the middle of this widget.
    [[nodiscard]] double radiusAt(const QPoint &pos) const;
    /// Direction from the middle, above 0 and up to 2 pi: exactly to the right is 2 pi, not 0. NaN
    /// in the middle itself.
    [[nodiscard]] double angleAt(const QPoint &pos) const;
    /// The item in whose direction @p pos lies, however near or far; -1 when there are no items and
    /// in the middle itself.
    [[nodiscard]] int indexAt(const QPoint &pos) const;
    /// Where an item begins, from 0 and below 2 pi.
    /// @param index   taken modulo @p count
    /// @param count   above 0; less counts as 1. It may exceed count(): each item beyond has weight
    ///                1, and without items it is the number of equal sectors
    /// @param middle  true: item 0 is centred on the top, as the menu shows it; false: it begins
    ///                there
    [[nodiscard]] double indexToAngle(int index, int count, bool middle) const;
    /// The item that lies in a direction; -1 when @p count is 0 and when there is none. A border
    /// belongs to the item that begins there.
    [[nodiscard]] int angleToIndex(double angle, int count) const;

    // Behaviour. Each menu has its own settings, sub-menus too.

    /// Whether sub-menus open as soon as the pointer is on them; initially false: after the hover
    /// interval, or a click.
    void setAutoActivateSubMenus(bool isAutomatic);
    [[nodiscard]] bool autoActivateSubMenus() const;
    /// Milliseconds on an item until its sub-menu opens; initially what the style has for menus.
    void setHoverInterval(int milliseconds);
    [[nodiscard]] int hoverInterval() const;
    /// Milliseconds up to which the key that opened the menu counts as tapped, and leaves it open;
    /// held longer, letting go picks. Initially 200.
    void setTapThreshold(int milliseconds);
    [[nodiscard]] int tapThreshold() const;
    /// Pixels from the middle beyond which a click leaves the menu and those it belongs to, instead
    /// of picking by its direction; never less than the outer radius. 0, initially: none. Strokes
    /// reach as far as they like.
    void setCancelDistance(int pixels);
    [[nodiscard]] int cancelDistance() const;
    /// Initially AtParent.
    void setSubMenuPlacement(SubMenuPlacement placement);
    [[nodiscard]] SubMenuPlacement subMenuPlacement() const;
    /// Whether the menu fades in where desktop and style animate; it can be used from the first
    /// moment on. Initially false.
    void setFading(bool isFading);
    [[nodiscard]] bool isFading() const;
    /// Whether the first nine items show, faintly, the digit that picks them; initially true.
    void setDigitsShown(bool areShown);
    [[nodiscard]] bool areDigitsShown() const;

    // State

    /// Pops up with the middle at @p globalPos, moved as far as it takes to be on the screen that
    /// holds this point. Menus that are open in the same tree are hidden first. Returns at once. To
    /// be called while the button or key that asks for the menu is down, so that the user can go on
    /// in one stroke, or after it. The pointer stays where it is.
    void popup(const QPoint &globalPos);
    /// What a click on the item does: opens its sub-menu when this menu is open, or chooses it.
    /// Nothing happens with one that is disabled, has no sector, or does not exist.
    void activateItem(int index);
    /// Highlights an item; -1 none, -2 none since the menu has just opened.
    void setHighlightedItem(int index);
    [[nodiscard]] int highlightedItem() const;
    /// The item whose sub-menu is open; -1 none.
    [[nodiscard]] int shownSubMenu() const;
    /// Whether the menu is painted faint, since a sub-menu is open in front of it.
    [[nodiscard]] bool isShaded() const;
    /// Whether the menu, or a sub-menu of it, was cancelled since it last popped up.
    [[nodiscard]] bool isCanceled() const;

    /// A plain menu with the same content, for whoever prefers it; the caller owns it. It is made
    /// of the items there are now, and keeps in step with what they show. Choosing from it has the
    /// same effect and the same signals.
    [[nodiscard]] QMenu *createPlainMenu(QWidget *parent = nullptr);
    /// The menu as it would open on a screen of that size, for who shows what it will be like. A
    /// menu that is open is shown as it is.
    [[nodiscard]] QPixmap picture(QSize screen);

public slots:
    /// An item here or in a sub-menu was chosen: emits activated() and aboutToHide(), and hides.
    void subMenuSelected();
    /// A sub-menu was left: nothing is highlighted any more, and the menu stays open.
    void subMenuCanceled();
    /// Leaves the menu and those it belongs to: emits aboutToHide(), hides, emits canceledAll().
    void allCanceled();
    /// Opens the sub-menu of the item under the pointer, if it has one.
    void hoverAlert();

signals:
    void aboutToHide();
    /// This sub-menu was cancelled; its parent stays open.
    void canceled();
    /// The menu was cancelled with all those it belongs to.
    void canceledAll();

protected:
    /// The last step before the menu shows, already in its place.
    virtual void prepare() {}

    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

    bool focusNextPrevChild(bool) override { return false; } // Tab walks around the ring

private slots:
    void pointerRested();

private:
    struct Data;

    void init(const QString &name);
    void itemChanged();
    void setShownRadius(int pixels);
    void grow(QSize screen);
    void open(QPoint globalPos);
    void hideTree();
    void openSubMenu(int index, QPoint place);
    void subMenuHidden(const QtPieMenu &menu);
    void resetAfterCancel();
    void cancelLevel();
    void cancelTree();
    void cancelAllOpen();
    [[nodiscard]] QtPieMenu *holder() const;
    [[nodiscard]] QtPieMenu &firstOpen();
    [[nodiscard]] QtPieMenu &lastOpen();
    void light(QPoint globalPos);
    void pointTo(QPoint globalPos);
    void awaitRest();
    void releaseUnrepeated();
    void releaseSettled();
    [[nodiscard]] bool isAway(QPoint globalPos) const;
    [[nodiscard]] bool isInside(QPoint globalPos) const;
    void carryOut(pie::Verdict verdict, int target);
    [[nodiscard]] bool steerByKey(int key);
    void steerTowards(const std::vector<bool> &open, double direction);
    void pickByKey(const QKeyEvent &event);
    void pickByLetter(QChar letter);
    void activateByKey(int index);
    void fadeIn();
    [[nodiscard]] int targetAt(QPoint globalPos) const;
    [[nodiscard]] QPoint globalCentre() const;
    [[nodiscard]] bool canChoose(int index) const;

    std::unique_ptr<Data> d;
};
