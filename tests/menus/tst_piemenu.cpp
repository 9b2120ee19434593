// SPDX-License-Identifier: GPL-2.0-or-later
// The pie menu as a widget: ways of picking and cancelling, what it says, deaths, its picture.
#include "tests/support/MessageLog.h"
#include "tests/support/ScreenReader.h"
#include "tests/support/System.h"
#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>
#include <QToolTip>
#include <QtTest>
#include <kelo_base/menus/QtPieMenu.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QPoint kPlace(400, 400);
const QString kPickedDo = u"top.activated top.aboutToHide Do"_s;
const QString kHidden = u"sub.activated top.activated top.aboutToHide sub.aboutToHide"_s;
const QString kPickedUnder = kHidden + u" Under"_s;
const QString kLeft = u"top.aboutToHide top.canceledAll"_s;
const QString kLeftAll = u"sub.aboutToHide sub.canceledAll "_s + kLeft;
const QString kBack = u"sub.aboutToHide sub.canceled"_s;

/// Items clockwise from the right: Do, Top, Left (disabled), and below the sub-menu with Up, Under.
struct Menu
{
    Menu()
    {
        const auto follow = [this](auto *sender, auto signal, const QString &name) {
            QObject::connect(sender, signal, &context, [=, this] {
                log << name;
                if (name == deadline)
                    delete victim;
            });
            return sender;
        };
        for (QtPieMenu *menu : {top.data(), sub.data()}) {
            const QString name = menu == top ? u"top."_s : u"sub."_s;
            follow(menu, &QtPieMenu::activated, name + u"activated"_s);
            follow(menu, &QtPieMenu::aboutToHide, name + u"aboutToHide"_s);
            follow(menu, &QtPieMenu::canceled, name + u"canceled"_s);
            follow(menu, &QtPieMenu::canceledAll, name + u"canceledAll"_s);
        }
        for (const QString &name : {u"Up"_s, u"Under"_s})
            sub->insertItem(follow(new QtPieItem(name), &QtPieItem::activated, name));
        for (const QString &name : {u"Top"_s, u"Left"_s, u"Do"_s})
            top->insertItem(follow(new QtPieItem(u'&' + name), &QtPieItem::activated, name));
        top->insertItem(sub, 2);
        top->setItemEnabled(false, 1);
        top->setTapThreshold(INT_MAX);
    }
    ~Menu() { delete top; }

    /// Opens the menu when it is not yet, and takes steps on the menu in front: m, p, r move, press
    /// and release the left button and R clicks the right one, at a place: c the middle, C beside
    /// it, n e s w on the ring, N E S W far outside. Others are names of keys; with "key" a key
    /// opens the menu, "repeat" repeats it and "unmarked" does so without saying so, "opener" lets
    /// it go, "ctrl" lets go a key that was held already, and after "long" any time counts as long.
    /// "sub@Do" deletes the sub-menu when "Do" is signalled, "sub@now" at once.
    void run(const QString &steps)
    {
        QWidget host;
        QTest::keyPress(&host, Qt::Key_Control);
        if (steps.startsWith(u"key"_s))
            QTest::keyPress(&host, Qt::Key_F1);
        else
            point(&host, u'p', {});
        if (!top->isVisible())
            top->popup(kPlace);
        QWidget *front = nullptr;
        const std::map<QString, std::function<void()>> deeds{
            {u"key"_s, [] {}},
            {u"hover"_s, [&] { QVERIFY(QMetaObject::invokeMethod(front, "hoverAlert")); }},
            {u"wait"_s, [&] { QTest::qWait(wholeWait(*front)); }},
            {u"unfocus"_s,
             [&] { send(front, QFocusEvent(QEvent::FocusOut, Qt::ActiveWindowFocusReason)); }},
            {u"close"_s, [&] { front->close(); }},
            {u"opener"_s, [&] { letGo(front, Qt::Key_F1); }},
            {u"ctrl"_s, [&] { letGo(front, Qt::Key_Control); }},
            {u"repeat"_s,
             [&] { send(front, QKeyEvent(QEvent::KeyPress, Qt::Key_F1, {}, {}, true)); }},
            {u"unmarked"_s,
             [&] { QTest::keyRelease(front, Qt::Key_F1), QTest::keyPress(front, Qt::Key_F1); }},
            {u"long"_s, [&] { top->setTapThreshold(0), sub->setTapThreshold(0); }},
            {u"leash"_s, [&] { top->setCancelDistance(200); }},
            {u"hide"_s, [&] { sub->hide(); }},
            {u"popup"_s, [&] { top->popup(kPlace); }},
            {u"alone"_s, [&] { sub->popup(kPlace); }}};
        for (const QString &word : steps.split(u' ')) {
            front = QApplication::activePopupWidget();
            QVERIFY(front);
            if (word.contains(u'@')) {
                victim = word[0] == u'D' ? top->itemAt(3) : word[0] == u's' ? sub : top;
                deadline = word.section(u'@', 1);
                if (deadline == u"now"_s)
                    delete victim;
            } else if (word.size() == 2 && u"mprR"_s.contains(word[0])) {
                point(front, word[0], placeOf(word[1]));
            } else if (const auto deed = deeds.find(word); deed != deeds.end()) {
                deed->second();
            } else {
                const QKeyCombination key = QKeySequence(word)[0];
                QTest::keyClick(front, key.key(), key.keyboardModifiers());
            }
        }
    }
    /// And waits until it is sure that the key is not repeating.
    static void letGo(QWidget *front, Qt::Key key)
    {
        QTest::keyRelease(front, key);
        QTest::qWait(50);
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }
    /// As long as the pointer rests before a sub-menu opens, and some time for slow machines.
    static int wholeWait(const QWidget &front)
    {
        return 100 + front.style()->styleHint(QStyle::SH_Menu_SubMenuPopupDelay, nullptr, &front);
    }
    static void send(QWidget *front, QEvent &&event) { QApplication::sendEvent(front, &event); }
    static QPoint placeOf(QChar place)
    {
        const int distance = place == u'c' ? 0 : place == u'C' ? 15 : place.isUpper() ? 390 : 70;
        const qsizetype quarter = QStringView(u"enws").indexOf(place.toLower());
        return kPlace + QLineF::fromPolar(distance, 90.0 * double(quarter)).p2().toPoint();
    }
    static void point(QWidget *front, QChar kind, QPoint place)
    {
        const auto act = [&](QEvent::Type type, Qt::MouseButton button) {
            if (front->isVisible() || kind == u'p')
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
        const auto state = [](const QtPieMenu *menu, const QString &name) {
            const bool isOpen = menu && menu->isVisible();
            return isOpen ? name + (menu->isShaded() ? u"* "_s : u" "_s) : QString();
        };
        return (state(top, u"top"_s) + state(sub, u"sub"_s)).trimmed();
    }

    QObject context;
    QPointer<QtPieMenu> top = new QtPieMenu(30, 100, nullptr, u"top"_s);
    QPointer<QtPieMenu> sub = new QtPieMenu(u"&Sub"_s, 30, 100);
    QStringList log;
    QString deadline;
    QPointer<QObject> victim;
};

/// Each of the ways, parted by "|", leads to the same signals and leaves the same menus open.
void check(const QString &ways, const QString &log, const QString &open)
{
    for (const QString &steps : ways.split(u" | "_s)) {
        Menu menu;
        menu.run(steps);
        QCOMPARE(steps + u": "_s + menu.log.join(u' '), steps + u": "_s + log);
        QCOMPARE(steps + u": "_s + menu.open(), steps + u": "_s + open);
        QVERIFY(!menu.victim);
        if (!menu.top)
            continue;
        QCOMPARE(menu.top->shownSubMenu(), open.contains(u"sub"_s) ? 2 : -1);
        if (log.endsWith(u"canceled"_s) || log.endsWith(u"canceledAll"_s))
            QVERIFY2(menu.top->isCanceled() && menu.top->highlightedItem() == -2, steps.toUtf8());
        menu.top->grab();
        menu.top->popup(kPlace);
        QVERIFY(!menu.top->isCanceled());
    }
}

} // namespace

class TestPieMenu : public QObject
{
    Q_OBJECT

private slots:
    void startsAsPromised()
    {
        const QtPieMenu menu(30, 100);
        QCOMPARE(menu.sizeHint(), QSize(201, 201));
        QVERIFY(menu.hasMouseTracking() && menu.tapThreshold() == 200 &&
                !menu.autoActivateSubMenus());
        QCOMPARE(QtPieMenu(-5, 1'000'000).sizeHint(), QSize(8193, 8193));

        QBitmap mask(201, 201);
        menu.generateMask(&mask);
        const QImage round = mask.toImage();
        const auto isSet = [&](int x, int y) { return qGray(round.pixel(x, y)) == 0; };
        QVERIFY(isSet(100, 0) && isSet(200, 100) && isSet(31, 31) && !isSet(28, 28));
    }

    void warnsOfIndexesOutOfRange()
    {
        QtPieMenu menu(30, 100);
        const MessageLog log;
        const QIcon icon;
        menu.insertItem(u"only"_s);
        menu.setItemText(u"x"_s, 1);
        menu.setItemIcon(icon, 7);
        menu.setItemWeight(3, 1);
        menu.setItemEnabled(true, -2);
        QVERIFY(menu.itemText(-1).isEmpty() && menu.itemIcon(1).isNull() && !menu.itemWeight(1));
        QVERIFY(!menu.isItemEnabled(1) && !menu.itemAt(1) && !menu.subMenuAt(0) &&
                !menu.subMenuAt(-1));
        menu.removeItemAt(1);
        QStringList expected;
        for (const QString &call :
             {u"setItemText(\"x\", 1)"_s,
              QString::asprintf("setItemIcon(%p, 7)", static_cast<const void *>(&icon)),
              u"setItemWeight(3, 1)"_s, u"setItemEnabled(true, -2)"_s, u"itemText(-1)"_s,
              u"itemIcon(1)"_s, u"itemWeight(1)"_s, u"isItemEnabled(1)"_s})
            expected << u"QtPieMenu::"_s + call + u" index of of range"_s;
        expected << u"Attempt to remove item 1 from QtPieMenu with 1 items."_s;
        QCOMPARE(log.lines(), expected);
    }

    void keepsItemsInOrder()
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
        QVERIFY(menu.sub->count() == 3 && !menu.sub->isTopLevelMenu());
        delete menu.top->itemAt(0);
        menu.top->removeItemAt(1);
        QCOMPARE(texts(), u"&Sub &Top"_s);
        menu.top->setItemWeight(3, 1); // no longer half, but three quarters
        QCOMPARE(menu.top->indexAt({50, 95}), 1);
    }

    void picksCancelsAndSurvives()
    {
        QCursor::setPos(kPlace);
        // Strokes, also far outside, and clicks; the key held, repeating
        check(u"me re | mE rE | leash mE rE | rc pe re | rc pc me re"_s, kPickedDo, {});
        check(
            u"key me opener pe re | key me long repeat opener | key me long unmarked unmarked opener"_s,
            kPickedDo, {});
        // Keys: arrow, around over the disabled item, backwards, digit, letter
        check(u"Right Return | Tab Tab Tab Space | Backtab Enter | 4 | D"_s, kPickedDo, {});
        check(u"Right Home Return"_s, u"top.activated top.aboutToHide Top"_s, {});
        // Clicks and strokes that end in the middle, the right button, and what comes from outside
        check(u"rc pc rc | me mc rc | key long repeat opener | rc Re | Esc | unfocus"_s, kLeft, {});
        check(u"leash rc pE rE | close"_s, kLeft, {});
        // An unsteady click, a second release, one thought better of; nothing highlighted, a digit
        // without an item or of a disabled one
        check(u"mC rC | rc me re me re | rc me pe mc rc | Return | 0 | 2 | Ctrl+4"_s, {}, u"top"_s);
        // The opening key tapped, and let go but once; a disabled item, resting on a plain one
        check(u"key me opener | key me opener long repeat opener | rc pw rw | rc me hover"_s, {},
              u"top"_s);
        // The opening key still down, though it seems let go each time that it repeats; other keys
        check(u"key me long unmarked unmarked | me long ctrl | key me long ctrl"_s, {}, u"top"_s);
        // A sub-menu opens by a click, by resting, also at the end of the stroke, and by keys:
        // letter, and the arrow that points to it
        check(
            u"rc ps rs | rc ms wait | rc ms hover | ms hover rs | rc ms hover mS rS | S | Down Down"_s,
            {}, u"top* sub"_s);
        check(u"rc ps rs pS rS | ms hover mS rS | Down Down Down Return"_s, kPickedUnder, {});
        // Back by the right button, a click in the middle, backspace, which never goes further; the
        // stroke ends with its sub-menu
        check(u"S Re | rc S pc rc | S Backspace Backspace | ms hover Esc re"_s, kBack, u"top"_s);
        // The host hides the sub-menu, or pops the menu up anew while it or a sub-menu alone is
        // open
        check(u"S hide | S popup | alone popup"_s, {}, u"top"_s);
        // A pointer that rests picks nothing from the sub-menu that opens under it
        check(u"ms hover rs"_s, {}, u"top* sub"_s);
        check(u"key long ms hover opener"_s, kBack, u"top"_s);
        // Escape goes back, and then out
        check(u"S Esc Esc"_s, kBack + u' ' + kLeft, {});
        check(u"S unfocus | S close"_s, kLeftAll, {});
        // Deaths
        check(u"top@top.activated 4"_s, u"top.activated"_s, {});
        check(u"top@sub.aboutToHide S 2"_s, kHidden, {});
        check(u"top@top.aboutToHide Esc"_s, u"top.aboutToHide"_s, {});
        check(u"top@top.canceledAll S unfocus"_s, kLeftAll, {});
        check(u"top@now"_s, {}, {});
        check(u"sub@sub.aboutToHide S unfocus"_s, u"sub.aboutToHide "_s + kLeft, {});
        check(u"sub@sub.activated S 2"_s, u"sub.activated top.activated top.aboutToHide"_s, {});
        check(u"sub@sub.canceled S Esc 3"_s, kBack + u' ' + kPickedDo, {});
        check(u"S sub@now 3 | Do@Do 4"_s, kPickedDo, {});
        check(u"Right Do@now Return"_s, {}, u"top"_s); // it was highlighted
        QCOMPARE(QCursor::pos(), kPlace);              // never moved by us
    }

    void measuresStrokesFromThePress()
    {
        for (const QScreen *screen : QGuiApplication::screens()) {
            for (const bool rests : {false, true}) {
                Menu menu;
                const QPoint corner = screen->geometry().bottomRight();
                menu.top->popup(corner);
                QCOMPARE(menu.top->highlightedItem(), -2);
                QCOMPARE(menu.top->geometry(), QRect(corner - QPoint(200, 200), QSize(201, 201)));
                menu.top->repaint();
                // Above the corner, but to the right of the menu's middle.
                const QPoint place = corner - QPoint(0, 60);
                Menu::point(menu.top, u'm', place);
                QCOMPARE(menu.top->highlightedItem(), 0);
                if (rests)
                    QTRY_COMPARE(menu.top->highlightedItem(), 3);
                Menu::point(menu.top, u'r', place);
                QCOMPARE(menu.log.value(2), rests ? u"Do"_s : u"Top"_s);
            }
        }
    }

    /// Whatever moved, rested or was pressed before: what is picked was highlighted.
    void picksWhatIsLit()
    {
        QRandomGenerator random(7);
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        int picked = 0;
        for (int round = 0; round < 400; ++round) {
            Menu menu;
            const auto anywhere = [&] {
                return QPoint(random.bounded(screen.width()), random.bounded(screen.height()));
            };
            menu.sub->setEnabled(false);
            menu.top->setInnerRadius(random.bounded(2) * 30);
            QPoint pointer = anywhere();
            menu.top->popup(pointer);
            for (int step = random.bounded(8); step >= 0; --step) {
                const int deed = random.bounded(6);
                if (deed < 3)
                    pointer = random.bounded(4) == 0 ? anywhere() : pointer + QPoint(deed * 20, -9);
                if (deed < 3)
                    Menu::point(menu.top, u'm', pointer);
                else if (deed == 3)
                    QMetaObject::invokeMethod(menu.top, "pointerRested");
                else if (deed == 4)
                    QTest::keyClick(menu.top, Qt::Key_Tab);
                else
                    menu.top->insertItem(u"more"_s, 0);
            }
            const bool isClick = random.bounded(2) == 0;
            if (isClick)
                Menu::point(menu.top, u'p', pointer);
            const QString lit =
                menu.top->itemText(std::max(menu.top->highlightedItem(), 0)).remove(u'&');
            const bool isLit = menu.top->highlightedItem() >= 0;
            Menu::point(menu.top, u'r', pointer);
            const bool isPicked = !menu.log.isEmpty() && menu.log[0] == u"top.activated"_s;
            QVERIFY(isPicked ? isLit : !isLit || menu.open() == u"top"_s);
            if (isPicked)
                QCOMPARE(menu.log.value(2, u"more"_s), lit);
            picked += isPicked ? 1 : 0;
        }
        QVERIFY(picked > 100);
    }

    void opensSubMenusWhereAsked()
    {
        Menu menu;
        const auto centreOf = [](const QWidget *widget) { return widget->geometry().center(); };
        menu.top->setAutoActivateSubMenus(true);
        menu.run(u"key S"_s);
        QCOMPARE(centreOf(menu.sub), kPlace);
        menu.top->setSubMenuPlacement(QtPieMenu::SubMenuPlacement::AroundPointer);
        menu.run(u"Esc ms"_s);
        QCOMPARE(centreOf(menu.sub), Menu::placeOf(u's'));
        menu.run(u"Esc ms"_s); // it does not come back by itself
        QCOMPARE(menu.open(), u"top"_s);
        menu.run(u"S"_s);
        QCOMPARE(centreOf(menu.sub), kPlace + QPoint(0, 65)); // around its item
        menu.top->hide();
        QVERIFY(!menu.sub->isVisible());

        menu.run(u"key"_s);
        menu.sub->setTapThreshold(0);
        QTest::keyPress(menu.top, Qt::Key_S);
        QTest::keyRelease(menu.sub, Qt::Key_S); // not the opening key, though let go over there
        QCOMPARE(menu.open(), u"top* sub"_s);
        menu.run(u"opener"_s);
        QCOMPARE(menu.log.last(), u"sub.canceled"_s);
    }

    void growsForItsLabels()
    {
        QtPieMenu menu(30, 60);
        for (int i = 0; i < 12; ++i)
            menu.insertItem(u"Quite a long text %1"_s.arg(i));
        const auto radius = [&menu] {
            menu.popup(kPlace);
            const int edge = 2 * menu.outerRadius() + 1;
            return menu.size() == QSize(edge, edge) ? menu.outerRadius() : -1;
        };
        QCOMPARE(radius(), 60);
        const auto tip = [&menu] { // what is not shown whole
            const QPoint right(menu.width() / 2 + 45, menu.height() / 2);
            const int item = menu.indexAt(right);
            Menu::send(&menu, QHelpEvent(QEvent::ToolTip, right, menu.mapToGlobal(right)));
            return std::pair(QToolTip::text(), menu.itemText(item));
        };
        QCOMPARE(tip().first, tip().second);
        menu.setGrowing(true);
        const int grown = radius();
        QVERIFY(grown > 90 && grown < 300);
        auto radiusWhen = [&, font = menu.font()](double larger) mutable {
            font.setPointSizeF(larger * font.pointSizeF());
            menu.setFont(font);
            return radius();
        };
        QVERIFY(radiusWhen(1.4) > grown);
        QCOMPARE(radiusWhen(10), 399); // no larger than the screen
        menu.clear();
        menu.insertItem(u"x"_s);
        menu.setFont({});
        QVERIFY(radius() < grown && menu.leastOuterRadius() == 60);
        QTRY_COMPARE(tip().first, QString());
    }

    void paintsHighlightWhereItIsHit()
    {
        QtPieMenu menu(20, 100);
        for (const int weight : {3, 1, 0, 2, 5})
            menu.insertItem(QString())->setWeight(weight);
        QCOMPARE(QGuiApplication::screens().last()->devicePixelRatio(), 1.5);
        for (const QScreen *screen : QGuiApplication::screens()) {
            menu.popup(screen->geometry().center());
            menu.setHighlightedItem(-1);
            const QImage plain = menu.grab().toImage();
            for (int i = 0; i < menu.count(); ++i) {
                menu.setHighlightedItem(i);
                const QImage image = menu.grab().toImage();
                for (int step = 0; step < 16; ++step) { // none of them near the edge of a sector
                    const QPoint at =
                        QPoint(100, 100) + QLineF::fromPolar(70, step * 22.5).p2().toPoint();
                    const QPoint pixel = at * plain.devicePixelRatio();
                    QCOMPARE(image.pixel(pixel) != plain.pixel(pixel), menu.indexAt(at) == i);
                }
            }
        }
    }

    void paintsChecksAndDigits()
    {
        QPixmap icon(16, 16);
        icon.fill(Qt::red);
        for (const QString &text : {u"Text"_s, u""_s}) {
            for (const QIcon &shown : {QIcon(icon), QIcon()}) {
                QtPieMenu menu(20, 100);
                QtPieItem *item = menu.insertItem(shown, text);
                const auto picture = [&menu] { return menu.grab().toImage(); };
                const QImage plain = picture();
                item->setCheckable(true);
                const QImage unchecked = picture();
                item->setChecked(true);
                const QImage checked = picture();
                QRect changed;
                for (int i = 0; i < 201 * 201; ++i)
                    if (const QPoint at(i % 201, i / 201); checked.pixel(at) != unchecked.pixel(at))
                        changed |= QRect(at, at);
                QVERIFY(!changed.isEmpty() && changed.width() <= menu.fontMetrics().height());
                QVERIFY(text.isEmpty() || plain != unchecked); // room for the tick
                menu.setDigitsShown(false);
                QVERIFY(picture() != checked);
            }
        }
    }

    void tellsScreenReaders()
    {
        Menu menu;
        menu.top->itemAt(0)->setCheckable(true);
        menu.top->itemAt(0)->setChecked(true);
        menu.top->popup(kPlace);
        menu.top->setHighlightedItem(3);
        QAccessibleInterface *ring = QAccessible::queryAccessibleInterface(menu.top);
        QCOMPARE(ring->role(), QAccessible::PopupMenu);
        const auto tell = [&](int i) {
            const QAccessible::State state = ring->child(i)->state();
            return ring->child(i)->text(QAccessible::Name) + u"; "_s +
                   ring->child(i)->text(QAccessible::Description) +
                   (state.disabled ? u"; disabled"_s : u""_s) +
                   (state.checkable ? u"; checkable"_s : u""_s) +
                   (state.checked ? u"; checked"_s : u""_s) +
                   (state.hasPopup ? u"; popup"_s : u""_s) +
                   (state.expandable ? u"; expandable"_s : u""_s) +
                   (state.focused ? u"; focused"_s : u""_s);
        };
        QCOMPARE(tell(0), u"Top; top, 1 of 4; checkable; checked"_s);
        QCOMPARE(tell(1), u"Left; left, 2 of 4; disabled"_s);
        QCOMPARE(tell(2), u"Sub; bottom, 3 of 4; popup; expandable"_s);
        QCOMPARE(tell(3), u"Do; right, 4 of 4; focused"_s);
        const auto key = [&](int i) { return ring->child(i)->text(QAccessible::Accelerator); };
        QCOMPARE(key(0) + key(2), u"TS"_s);
        menu.top->setItemText(u"Left"_s, 1);
        const QString press = QAccessibleActionInterface::pressAction();
        QCOMPARE(key(1), u"2"_s);
        QCOMPARE(ring->child(1)->actionInterface()->keyBindingsForAction(press).value(0), u"2"_s);
        QVERIFY(ring->childCount() == 4 && ring->child(0)->role() == QAccessible::MenuItem);
        QVERIFY(ring->focusChild() == ring->child(3) && ring->indexOfChild(ring->child(2)) == 2);
        QCOMPARE(ring->childAt(kPlace.x(), kPlace.y() - 70), ring->child(0));
        QVERIFY(ring->child(3)->rect().contains(kPlace + QPoint(65, 0)));
        ring->child(3)->actionInterface()->doAction(press);
        QCOMPARE(menu.log.last(), u"Do"_s);
        QVERIFY(ring->child(3)->state().invisible);

        toldScreenReaders().clear();
        menu.top->setItemText(u"new"_s, 3);
        menu.top->itemAt(0)->setChecked(false);
        menu.top->itemAt(0)->setChecked(false); // as it is
        menu.top->setItemEnabled(false, 0);
        KELO_UNIX_ONLY("what is told cannot be heard");
        QCOMPARE(toldScreenReaders(), QStringList({u"name"_s, u"check"_s, u"enabled"_s}));
    }

    void offersAPlainMenu()
    {
        Menu menu;
        const std::unique_ptr<QMenu> plain(menu.top->createPlainMenu());
        const QList<QAction *> actions = plain->actions();
        QVERIFY(actions.size() == 4 && !actions[1]->isEnabled() && actions[2]->menu());
        menu.top->setItemText(u"Done"_s, 3);
        QCOMPARE(actions[3]->text(), u"Done"_s);
        actions[2]->menu()->actions().last()->trigger();
        QCOMPARE(menu.log.join(u' '), kPickedUnder);
        const auto afterDeaths = [&] {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return plain->actions().size();
        };
        menu.top->removeItemAt(0);
        QCOMPARE(afterDeaths(), 3);
        // What moves to another menu is chosen from there, whatever became of the first one.
        QtPieMenu other(30, 100);
        connect(&other, &QtPieMenu::activated, &menu.context, [&] { menu.log << u"other"_s; });
        other.insertItem(menu.top->itemAt(2));
        menu.log.clear();
        actions[3]->trigger();
        QCOMPARE(menu.log.join(u' '), u"other Do"_s);
        menu.top->clear();
        QCOMPARE(afterDeaths(), 1);
        delete menu.top;
        actions[3]->trigger();
        QCOMPARE(menu.log.count(u"Do"_s), 2);
    }
};

/// Two screens, the second with three pixels for two.
int main(int argc, char **argv)
{
    // Here: on Windows, the platform would take a drive's colon for the end of the name.
    QTemporaryFile screens(QStringLiteral("screens"));
    if (!screens.open())
        return 1;
    screens.write(R"({"screens": [{"name": "coarse", "width": 800, "height": 800},
        {"name": "fine", "x": 800, "y": -100, "width": 700, "height": 600, "dpr": 1.5}]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" +
                                   QDir::current().relativeFilePath(screens.fileName()).toUtf8());
    QApplication app(argc, argv);
    TestPieMenu test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_piemenu.moc"
