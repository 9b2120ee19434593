// SPDX-License-Identifier: GPL-2.0-or-later
// The pie menu as a widget: ways of picking and cancelling, what it says, deaths, its picture.
#include "tests/support/MessageLog.h"
#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QTemporaryFile>
#include <QtTest>
#include <cmath>
#include <kelo_base/menus/QtPieMenu.h>

using namespace Qt::Literals::StringLiterals;

class TestPieMenu : public QObject
{
    Q_OBJECT

private slots:
    void startsAsPromised();
    void warnsOfIndexesOutOfRange();
    void keepsItemsInOrder();
    void picksAndCancels_data();
    void picksAndCancels();
    void measuresFastStrokesFromThePress_data();
    void measuresFastStrokesFromThePress();
    void opensSubMenusWhereAsked();
    void survivesDeaths_data();
    void survivesDeaths();
    void paintsHighlightWhereItIsHit();
    void tellsScreenReaders();
    void offersAPlainMenu();
};

namespace {

constexpr QPoint kPlace(400, 400);

/// Items clockwise from the right: Do, Top, Left (disabled), and below the sub-menu with Up, Under.
struct Menu
{
    Menu()
    {
        top->insertItem(follow(new QtPieItem(u"&Top"_s), u"Top"_s));
        top->insertItem(follow(new QtPieItem(u"&Left"_s), u"Left"_s));
        sub->insertItem(follow(new QtPieItem(u"Up"_s), u"Up"_s));
        sub->insertItem(follow(new QtPieItem(u"Under"_s), u"Under"_s));
        followMenu(top, u"top"_s);
        followMenu(sub, u"sub"_s);
        top->insertItem(sub);
        top->insertItem(follow(new QtPieItem(u"&Do"_s), u"Do"_s));
        top->setItemEnabled(false, 1);
        top->setTapThreshold(INT_MAX);
    }
    ~Menu() { delete top; }

    /// Writes a signal down, and deletes the victim when its time has come.
    [[nodiscard]] auto note(const QString &text)
    {
        return [=, this] {
            log << text;
            if (text == deadline)
                delete victim;
        };
    }
    QtPieItem *follow(QtPieItem *item, const QString &name)
    {
        QObject::connect(item, &QtPieItem::activated, &context, note(name));
        return item;
    }
    void followMenu(QtPieMenu *menu, const QString &name)
    {
        follow(menu, name + u".activated"_s);
        QObject::connect(menu, &QtPieMenu::aboutToHide, &context, note(name + u".aboutToHide"_s));
        QObject::connect(menu, &QtPieMenu::canceled, &context, note(name + u".canceled"_s));
        QObject::connect(menu, &QtPieMenu::canceledAll, &context, note(name + u".canceledAll"_s));
    }

    /// One step on the menu in front: m, p, r move, press and release the left button and R clicks
    /// the right one, at a place: c the middle, n e s w on the ring, N E S W far outside. Others
    /// are names of keys; "opener" lets go the key that opened the menu.
    void step(const QString &word)
    {
        QWidget *front = QApplication::activePopupWidget();
        QVERIFY(front);
        if (word.size() == 2 && u"mprR"_s.contains(word[0]))
            return point(front, word[0], placeOf(word[1]));
        if (word == u"hover"_s)
            QVERIFY(QMetaObject::invokeMethod(front, "hoverAlert"));
        else if (word == u"unfocus"_s)
            send(front, QFocusEvent(QEvent::FocusOut, Qt::ActiveWindowFocusReason));
        else if (word == u"close"_s)
            front->close();
        else if (word == u"opener"_s)
            QTest::keyRelease(front, Qt::Key_F1);
        else if (word == u"repeat"_s) // the opening key is held
            send(front, QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, true));
        else if (word == u"delete"_s)
            delete victim;
        else
            QTest::keyClick(front, static_cast<Qt::Key>(QKeySequence(word)[0].key()));
    }

    template <typename Event>
    static void send(QWidget *front, Event event)
    {
        QApplication::sendEvent(front, &event);
    }
    static QPoint placeOf(QChar place)
    {
        const int distance = place == u'c' ? 0 : place.isUpper() ? 390 : 70;
        const double angle =
            static_cast<int>(QStringView(u"enwsENWS").indexOf(place)) * std::numbers::pi / 2;
        return kPlace +
               QPoint(qRound(distance * std::cos(angle)), qRound(-distance * std::sin(angle)));
    }
    static void point(QWidget *front, QChar kind, QPoint place)
    {
        const auto act = [&](QEvent::Type type, Qt::MouseButton button) {
            if (front->isVisible())
                send(front, QMouseEvent(type, front->mapFromGlobal(place), place, button, button,
                                        Qt::NoModifier));
        };
        const Qt::MouseButton button = kind == u'R' ? Qt::RightButton : Qt::LeftButton;
        if (kind == u'm')
            return act(QEvent::MouseMove, Qt::NoButton);
        if (kind != u'r')
            act(QEvent::MouseButtonPress, button);
        if (kind != u'p')
            act(QEvent::MouseButtonRelease, button);
    }

    /// "top* sub": both open, the first one shaded.
    [[nodiscard]] QString open() const
    {
        QStringList names;
        if (top->isVisible())
            names << (top->isShaded() ? u"top*"_s : u"top"_s);
        if (sub->isVisible())
            names << (sub->isShaded() ? u"sub*"_s : u"sub"_s);
        return names.join(u' ');
    }

    QObject context;
    QPointer<QtPieMenu> top = new QtPieMenu(30, 100, nullptr, u"top"_s);
    QPointer<QtPieMenu> sub = new QtPieMenu(u"&Sub"_s, 30, 100);
    QStringList log;
    QString deadline;
    QPointer<QWidget> victim;
};

/// Where the edges of sectors blend.
bool isNearLine(const QtPieMenu &menu, QPoint pos)
{
    const double radius = menu.radiusAt(pos);
    bool isNear = radius < menu.innerRadius() + 2 || radius > menu.outerRadius() - 2;
    for (int border = 0; border < menu.count(); ++border) {
        const double turn = menu.angleAt(pos) - menu.indexToAngle(border, menu.count(), true);
        isNear |= radius * std::abs(std::remainder(turn, 2 * std::numbers::pi)) < 2;
    }
    return isNear;
}

} // namespace

void TestPieMenu::startsAsPromised()
{
    const QtPieMenu menu(30, 100, nullptr, u"name"_s);
    QCOMPARE(menu.sizeHint(), QSize(201, 201));
    QCOMPARE(menu.highlightedItem(), -2);
    QCOMPARE(menu.shownSubMenu(), -1);
    QVERIFY(!menu.isShaded() && !menu.isCanceled() && !menu.autoActivateSubMenus());
    QVERIFY(menu.hasMouseTracking() && menu.isTopLevelMenu());
    QCOMPARE(menu.objectName(), u"name"_s);
    QCOMPARE(menu.tapThreshold(), 200);
    QCOMPARE(menu.indexAt({5, 5}), -1);
    QCOMPARE(QtPieMenu(-5, 1'000'000).sizeHint(), QSize(8193, 8193));

    QBitmap mask(201, 201);
    menu.generateMask(&mask);
    const QImage round = mask.toImage();
    const auto isSet = [&](int x, int y) { return qGray(round.pixel(x, y)) == 0; };
    QVERIFY(isSet(100, 0) && isSet(0, 100) && isSet(200, 100) && isSet(100, 200) &&
            isSet(100, 100));
    QVERIFY(!isSet(0, 0) && !isSet(200, 0) && !isSet(28, 28) && isSet(31, 31));
}

void TestPieMenu::warnsOfIndexesOutOfRange()
{
    QtPieMenu menu(30, 100);
    const MessageLog log;
    const QIcon icon;
    menu.insertItem(u"only"_s);
    menu.setItemText(u"x"_s, 1);
    QVERIFY(menu.itemText(-1).isEmpty());
    menu.setItemIcon(icon, 7);
    QVERIFY(menu.itemIcon(1).isNull());
    menu.setItemWeight(3, 1);
    QCOMPARE(menu.itemWeight(1), 0);
    menu.setItemEnabled(true, -2);
    menu.setItemEnabled(false, 1);
    QVERIFY(!menu.isItemEnabled(1));
    menu.removeItemAt(1);
    QVERIFY(!menu.itemAt(1) && !menu.subMenuAt(0) && !menu.subMenuAt(-1));
    const QString address = QString::asprintf("%p", static_cast<const void *>(&icon));
    QCOMPARE(log.lines(),
             QStringList({u"QtPieMenu::setItemText(\"x\", 1) index of of range"_s,
                          u"QtPieMenu::itemText(-1) index of of range"_s,
                          u"QtPieMenu::setItemIcon(%1, 7) index of of range"_s.arg(address),
                          u"QtPieMenu::itemIcon(1) index of of range"_s,
                          u"QtPieMenu::setItemWeight(3, 1) index of of range"_s,
                          u"QtPieMenu::itemWeight(1) index of of range"_s,
                          u"QtPieMenu::setItemEnabled(true, -2) index of of range"_s,
                          u"QtPieMenu::setItemEnabled(false, 1) index of of range"_s,
                          u"QtPieMenu::isItemEnabled(1) index of of range"_s,
                          u"Attempt to remove item 1 from QtPieMenu with 1 items."_s}));
}

void TestPieMenu::keepsItemsInOrder()
{
    Menu menu;
    const auto texts = [&] {
        QStringList all;
        for (int i = 0; i < menu.top->count(); ++i)
            all << menu.top->itemText(i);
        return all.join(u' ');
    };
    menu.top->setHighlightedItem(3);
    menu.top->insertItem(u"new"_s, 1);
    QCOMPARE(texts(), u"&Top new &Left &Sub &Do"_s);
    QCOMPARE(menu.top->highlightedItem(), 4); // still "Do"
    menu.top->insertItem(menu.top->itemAt(0));
    menu.sub->insertItem(menu.top->itemAt(0)); // leaves the menu in which it was
    menu.sub->insertItem(menu.top);            // would hold itself
    menu.top->insertItem(menu.top);
    menu.top->insertItem(static_cast<QtPieItem *>(nullptr));
    QCOMPARE(texts(), u"&Left &Sub &Do &Top"_s);
    QCOMPARE(menu.sub->count(), 3);
    QVERIFY(!menu.sub->isTopLevelMenu() && menu.top->subMenuAt(1) == menu.sub);
    delete menu.top->itemAt(0);
    menu.top->removeItemAt(1);
    QCOMPARE(texts(), u"&Sub &Top"_s);
    // Two halves now, and after the change three quarters for the lower one.
    QCOMPARE(menu.top->indexAt({50, 95}), 0);
    menu.top->setItemWeight(3, 1);
    QCOMPARE(menu.top->indexAt({50, 95}), 1);
}

void TestPieMenu::picksAndCancels_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("open");
    const QString pickedDo = u"top.activated top.aboutToHide Do"_s;
    const QString pickedUnder =
        u"sub.activated top.activated top.aboutToHide sub.aboutToHide Under"_s;
    const QString left = u"top.aboutToHide top.canceledAll"_s;
    const QString back = u"sub.aboutToHide sub.canceled"_s;
    const QString leftAll = u"sub.aboutToHide sub.canceledAll "_s + left;
    const auto row = [](const char *name, const QString &steps, const QString &log,
                        const QString &open) { QTest::newRow(name) << steps << log << open; };
    row("one stroke", u"me re"_s, pickedDo, {});
    row("one stroke, far outside", u"mE rE"_s, pickedDo, {});
    row("a click opens, a click picks", u"rc pe re"_s, pickedDo, {});
    row("a click in the middle cancels", u"rc pc rc"_s, left, {});
    row("out and back cancels", u"me mc rc"_s, left, {});
    row("the right button cancels", u"rc Re"_s, left, {});
    row("a disabled item does nothing", u"rc pw rw"_s, {}, u"top"_s);
    row("escape", u"Esc"_s, left, {});
    row("losing the focus", u"unfocus"_s, left, {});
    row("closed from outside", u"close"_s, left, {});
    row("a click opens the sub-menu", u"rc ps rs"_s, {}, u"top* sub"_s);
    row("and a click there picks", u"rc ps rs pS rS"_s, pickedUnder, {});
    row("resting opens the sub-menu", u"rc ms hover"_s, {}, u"top* sub"_s);
    row("one stroke through it", u"ms hover mS rS"_s, pickedUnder, {});
    row("a stroke that ends where it opened", u"ms hover rs"_s, {}, u"top* sub"_s);
    row("resting on a plain item", u"rc me hover"_s, {}, u"top"_s);
    row("escape goes one level back", u"rc ps rs Esc"_s, back, u"top"_s);
    row("and then out", u"rc ps rs Esc Esc"_s, back + u' ' + left, {});
    row("so does the right button", u"rc ps rs Re"_s, back, u"top"_s);
    row("so does a click in the middle", u"rc ps rs ps rs"_s, back, u"top"_s);
    row("backspace goes back", u"rc ps rs Backspace Backspace"_s, back, u"top"_s);
    row("the stroke ends with its sub-menu", u"ms hover Esc re"_s, back, u"top"_s);
    row("losing the focus leaves all", u"rc ps rs unfocus"_s, leftAll, {});
    row("closing the sub-menu, too", u"rc ps rs close"_s, leftAll, {});
    row("arrow and enter", u"Right Return"_s, pickedDo, {});
    row("nothing highlighted, nothing entered", u"Return"_s, {}, u"top"_s);
    row("around with tab, over the disabled one", u"Tab Tab Tab Space"_s, pickedDo, {});
    row("back with shift and tab", u"Backtab Enter"_s, pickedDo, {});
    row("home", u"Right Home Return"_s, u"top.activated top.aboutToHide Top"_s, {});
    row("digit", u"4"_s, pickedDo, {});
    row("digit without an item", u"0"_s, {}, u"top"_s);
    row("digit of a disabled item", u"2"_s, {}, u"top"_s);
    row("letter", u"D"_s, pickedDo, {});
    row("letter of a sub-menu", u"S"_s, {}, u"top* sub"_s);
    row("an arrow opens the sub-menu it points to", u"Down Down"_s, {}, u"top* sub"_s);
    row("and goes on there", u"Down Down Down Return"_s, pickedUnder, {});
    row("tapping the opening key", u"me opener"_s, {}, u"top"_s);
}

void TestPieMenu::picksAndCancels()
{
    QFETCH(const QString, steps);
    QFETCH(const QString, log);
    QFETCH(const QString, open);
    Menu menu;
    QCursor::setPos(kPlace);
    menu.top->popup(kPlace);
    QCOMPARE(menu.top->highlightedItem(), -2);
    QVERIFY(menu.top->isVisible()); // at once
    for (const QString &word : steps.split(u' '))
        menu.step(word);
    QCOMPARE(menu.log.join(u' '), log);
    QCOMPARE(menu.open(), open);
    if (log.contains(u"cancel"_s))
        QVERIFY(menu.top->isCanceled() && menu.top->highlightedItem() == -2 &&
                menu.top->shownSubMenu() == -1);
    QCOMPARE(QCursor::pos(), kPlace); // never moved by us
}

void TestPieMenu::measuresFastStrokesFromThePress_data()
{
    QTest::addColumn<int>("screen");
    QTest::addColumn<bool>("isSeen");
    QTest::addColumn<QString>("picked");
    QTest::newRow("released before it is seen") << 0 << false << u"Top"_s;
    QTest::newRow("aimed at what is seen") << 0 << true << u"Do"_s;
    QTest::newRow("before, on the other screen") << 1 << false << u"Top"_s;
    QTest::newRow("after, on the other screen") << 1 << true << u"Do"_s;
}

void TestPieMenu::measuresFastStrokesFromThePress()
{
    QFETCH(const int, screen);
    QFETCH(const bool, isSeen);
    QFETCH(const QString, picked);
    Menu menu;
    const QRect area = QGuiApplication::screens().at(screen)->geometry();
    menu.top->popup(area.bottomRight());
    QCOMPARE(menu.top->geometry(), QRect(area.bottomRight() - QPoint(200, 200), QSize(201, 201)));
    if (isSeen)
        QCoreApplication::processEvents(); // paints
    // Above the corner, but to the right of the menu's middle.
    Menu::point(menu.top, u'r', area.bottomRight() - QPoint(0, 60));
    QCOMPARE(menu.log.value(2), picked);
}

void TestPieMenu::opensSubMenusWhereAsked()
{
    Menu menu;
    const auto centreOf = [](const QWidget *widget) { return widget->geometry().center(); };
    menu.top->popup(kPlace);
    menu.top->setAutoActivateSubMenus(true);
    menu.step(u"ms"_s);
    QCOMPARE(centreOf(menu.sub), Menu::placeOf(u's'));
    QCOMPARE(menu.top->shownSubMenu(), 2);
    menu.step(u"Esc"_s);
    menu.step(u"ms"_s); // it does not come back by itself
    QCOMPARE(menu.open(), u"top"_s);
    menu.step(u"S"_s);
    QCOMPARE(centreOf(menu.sub), kPlace + QPoint(0, 65)); // around its item
    menu.step(u"Esc"_s);
    menu.top->setSubMenuPlacement(QtPieMenu::SubMenuPlacement::AtParent);
    menu.step(u"S"_s);
    QCOMPARE(centreOf(menu.sub), kPlace);
    menu.top->hide();
    QVERIFY(!menu.sub->isVisible());

    menu.top->setTapThreshold(0); // any time is long
    menu.top->popup(kPlace);
    for (const QString &word : {u"me"_s, u"repeat"_s, u"opener"_s})
        menu.step(word);
    QCOMPARE(menu.log.last(), u"Do"_s);

    menu.top->popup(kPlace);
    menu.sub->setTapThreshold(0);
    QTest::keyPress(menu.top, Qt::Key_S);
    QTest::keyRelease(menu.sub, Qt::Key_S); // not the opening key, though let go over there
    QCOMPARE(menu.open(), u"top* sub"_s);
    menu.step(u"opener"_s);
    QCOMPARE(menu.log.last(), u"sub.canceled"_s);
}

void TestPieMenu::survivesDeaths_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("deadline");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("log");
    const auto row = [](const char *victim, const QString &deadline, const QString &steps,
                        const QString &log) {
        const QByteArray name =
            victim + (deadline.isEmpty() ? " while open" : " at " + deadline.toLatin1());
        QTest::newRow(name) << QString::fromLatin1(victim) << deadline << steps << log;
    };
    const QString pickedDo = u"top.activated top.aboutToHide Do"_s;
    row("top", u"top.activated"_s, u"4"_s, u"top.activated"_s);
    row("top", u"sub.aboutToHide"_s, u"S 2"_s,
        u"sub.activated top.activated top.aboutToHide sub.aboutToHide"_s);
    row("top", u"top.aboutToHide"_s, u"Esc"_s, u"top.aboutToHide"_s);
    row("top", u"top.canceledAll"_s, u"S unfocus"_s,
        u"sub.aboutToHide sub.canceledAll top.aboutToHide top.canceledAll"_s);
    row("top", {}, u"delete"_s, {});
    row("sub", u"sub.canceled"_s, u"S Esc 3"_s, u"sub.aboutToHide sub.canceled "_s + pickedDo);
    row("sub", {}, u"S delete 3"_s, pickedDo);
    row("Do", u"Do"_s, u"4"_s, pickedDo);
    row("Do", {}, u"Right delete Return"_s, {}); // it was highlighted
}

void TestPieMenu::survivesDeaths()
{
    QFETCH(const QString, victim);
    QFETCH(const QString, deadline);
    QFETCH(const QString, steps);
    QFETCH(const QString, log);
    Menu menu;
    menu.victim = victim == u"top"_s   ? menu.top.data()
                  : victim == u"sub"_s ? menu.sub.data()
                                       : menu.top->itemAt(3);
    menu.deadline = deadline;
    menu.top->popup(kPlace);
    for (const QString &word : steps.split(u' '))
        menu.step(word);
    QCOMPARE(menu.log.join(u' '), log);
    QVERIFY(!menu.victim);
    if (menu.top) {
        QVERIFY(!menu.top->isShaded() && menu.top->shownSubMenu() == -1 &&
                menu.top->highlightedItem() != 3);
        menu.top->grab();
    }
}

void TestPieMenu::paintsHighlightWhereItIsHit()
{
    QtPieMenu menu(20, 100);
    for (const int weight : {3, 1, 0, 2, 5})
        menu.insertItem(QString())->setWeight(weight);
    QList<double> scales;
    for (const QScreen *screen : QGuiApplication::screens()) {
        menu.popup(screen->geometry().center());
        menu.setHighlightedItem(-1);
        const QImage plain = menu.grab().toImage();
        const double scale = plain.devicePixelRatio();
        scales << scale;
        for (int i = 0; i < menu.count(); ++i) {
            menu.setHighlightedItem(i);
            const QImage image = menu.grab().toImage();
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QPoint pos(static_cast<int>(x / scale), static_cast<int>(y / scale));
                    if (!isNearLine(menu, pos))
                        QCOMPARE(image.pixel(x, y) != plain.pixel(x, y), menu.indexAt(pos) == i);
                }
            }
        }
    }
    QCOMPARE(scales, QList({1.0, 1.5}));
}

void TestPieMenu::tellsScreenReaders()
{
    Menu menu;
    menu.top->itemAt(0)->setCheckable(true);
    menu.top->itemAt(0)->setChecked(true);
    menu.top->popup(kPlace);
    menu.top->setHighlightedItem(3);
    QAccessibleInterface *ring = QAccessible::queryAccessibleInterface(menu.top);
    QCOMPARE(ring->role(), QAccessible::PopupMenu);
    QCOMPARE(ring->childCount(), 4);
    const auto tell = [&](int i) {
        const QAccessible::State state = ring->child(i)->state();
        QStringList words{ring->child(i)->text(QAccessible::Name),
                          ring->child(i)->text(QAccessible::Description)};
        const std::pair<bool, QString> flags[] = {{state.disabled, u"disabled"_s},
                                                  {state.checked, u"checked"_s},
                                                  {state.hasPopup, u"popup"_s},
                                                  {state.focused, u"focused"_s},
                                                  {state.invisible, u"invisible"_s}};
        for (const auto &[isSet, name] : flags) {
            if (isSet)
                words << name;
        }
        return words.join(u"; "_s);
    };
    QCOMPARE(tell(0), u"Top; top, 1 of 4; checked"_s);
    QCOMPARE(tell(1), u"Left; left, 2 of 4; disabled"_s);
    QCOMPARE(tell(2), u"Sub; bottom, 3 of 4; popup"_s);
    QCOMPARE(tell(3), u"Do; right, 4 of 4; focused"_s);
    QCOMPARE(ring->child(0)->role(), QAccessible::MenuItem);
    QCOMPARE(ring->focusChild(), ring->child(3));
    QCOMPARE(ring->indexOfChild(ring->child(2)), 2);
    QCOMPARE(ring->childAt(kPlace.x(), kPlace.y() - 70), ring->child(0));
    QVERIFY(ring->child(3)->rect().contains(kPlace + QPoint(65, 0)));
    ring->child(3)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(menu.log.last(), u"Do"_s);
    QVERIFY(ring->child(3)->state().invisible);
}

void TestPieMenu::offersAPlainMenu()
{
    Menu menu;
    const std::unique_ptr<QMenu> plain(menu.top->createPlainMenu());
    const QList<QAction *> actions = plain->actions();
    QCOMPARE(actions.size(), 4);
    QVERIFY(!actions[1]->isEnabled() && actions[2]->menu());
    menu.top->setItemText(u"Done"_s, 3);
    QCOMPARE(actions[3]->text(), u"Done"_s);
    actions[2]->menu()->actions().last()->trigger();
    QCOMPARE(menu.log.join(u' '),
             u"sub.activated top.activated top.aboutToHide sub.aboutToHide Under"_s);
    menu.top->removeItemAt(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(plain->actions().size(), 3);
}

/// Two screens, the second with three pixels for two.
int main(int argc, char **argv)
{
    QTemporaryFile screens;
    if (!screens.open())
        return 1;
    screens.write(R"({"screens": [{"name": "coarse", "width": 800, "height": 800},
        {"name": "fine", "x": 800, "y": -100, "width": 700, "height": 600, "dpr": 1.5}]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    QApplication app(argc, argv);
    TestPieMenu test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_piemenu.moc"
