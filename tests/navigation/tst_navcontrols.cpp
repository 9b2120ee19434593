// SPDX-License-Identifier: GPL-2.0-or-later
// The navigation controls over a view whose transformation is known.
#include "core/contrast_p.h"
#include "navigation/controls/angles_p.h"
#include "navigation/controls/blankscreen_p.h"
#include "navigation/controls/hotareas_p.h"
#include "navigation/controls/navbutton_p.h"
#include "navigation/controls/northarrow_p.h"
#include "navigation/controls/scalebarwidget_p.h"
#include "navigation/controls/storedviewsdialog_p.h"
#include "navigation/controls/valuefield_p.h"
#include "navigation/controls/viewmenu_p.h"
#include "tests/support/MapWindow.h"
#include "tests/support/System.h"
#include "tests/support/TemporaryHome.h"
#include <QAccessible>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QListWidget>
#include <QMenu>
#include <QProxyStyle>
#include <QPushButton>
#include <QtTest>
#include <kelo_base/core/Database.h>
#include <kelo_base/core/DatabaseDocuments.h>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>
#include <kelo_base/navigation/ViewGeometry.h>

using namespace Qt::Literals::StringLiterals;
using namespace navcontrols;
using PageSide = DocWindowXIfc::PageSide;

namespace {

/// Without animations, as people may want it.
class StillStyle : public QProxyStyle
{
public:
    int duration = 0;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? duration
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

template <typename Widget>
Widget *named(QWidget *in, const QString &name)
{
    for (Widget *widget : in->findChildren<Widget *>())
        if (widget->accessibleName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

NavCtrlMgrIfc &manager()
{
    return NavCtrlMgrIfc::Instance();
}

void turnWheel(QWidget *widget, QPoint pos, int angle, Qt::KeyboardModifiers keys = {},
               Qt::MouseButtons buttons = {})
{
    QWheelEvent event(pos, widget->mapToGlobal(pos), {}, {0, angle}, buttons, keys,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // others are not offered to parents
    QCoreApplication::instance()->notify(widget, &event);
}

void sendMouse(QWidget *widget, QEvent::Type type, QPoint pos, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), button, buttons, {});
    QApplication::sendEvent(widget, &event);
}

/// Types into a field of the view menu, as people do.
bool typeInto(QWidget *view, const QString &name, const QString &text)
{
    auto *field = named<ValueField>(view, name);
    if (!field)
        return false;
    field->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
    return true;
}

} // namespace

class TestNavControls : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TemporaryHome> m_home;
    std::unique_ptr<MapWindow> m_window;
    StillStyle *m_style = nullptr;

    [[nodiscard]] MapView &view() const { return *m_window->view; }
    [[nodiscard]] NorthArrow *arrow() const
    {
        return static_cast<NorthArrow *>(manager().Widget(&view(), Control::NorthArrow));
    }
    using Control = NavCtrlMgrIfc::Control;
    using Corner = NavCtrlMgrIfc::Corner;
    /// Where north is on screen, by the transformation alone.
    [[nodiscard]] double trueNorth() const
    {
        const QTransform onScreen = view().onScreen();
        return directionOf(onScreen.map(view().middle + QPointF(0, 1000)) -
                           onScreen.map(view().middle));
    }
    void putNeighbours()
    {
        m_window->neighbours[PageSide::Top] << MapWindow::item(u"North 6"_s, 6);
        for (const QString &title : {u"East 10"_s, u"East 9"_s})
            m_window->neighbours[PageSide::Right] << MapWindow::item(title, 9);
        emit view().documentChanged();
    }
    /// There may be no event for a pointer that is there already.
    void point(QPoint pos) const
    {
        QTest::mouseMove(&view(), {399, 301});
        QTest::mouseMove(&view(), pos);
    }
    [[nodiscard]] HotArea *areaAt(int place) const
    {
        const QPoint middles[] = {{400, 3},   {780, 3},  {797, 300}, {780, 597},
                                  {400, 597}, {20, 597}, {3, 300},   {20, 3}};
        return qobject_cast<HotArea *>(view().childAt(middles[place]));
    }

private slots:
    void initTestCase()
    {
        m_style = new StillStyle;
        QApplication::setStyle(m_style);
    }
    void init()
    {
        m_home = std::make_unique<TemporaryHome>();
        m_window = std::make_unique<MapWindow>();
        static_cast<void>(manager());
        view().show();
        QVERIFY(QTest::qWaitForWindowActive(&view()));
        view().setFocus();
    }
    void cleanup()
    {
        m_window.reset();
        NavCtrlMgrIfc::Destroy();
        UserDataManagerI::Destroy();
        m_home.reset(); // before the next: each gives back what it found
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        SetDefaultFieldOfView(50);
        SetDefaultEyeToMonitorDistance(60);
    }

    void pointsNorth_data()
    {
        QTest::addColumn<double>("turn");
        QTest::addColumn<bool>("isMirrored");
        for (const double turn : {0.0, 30.0, 90.0, 135.0, 180.0, -60.0})
            for (const bool isMirrored : {false, true})
                QTest::addRow("%g%s", turn, isMirrored ? " mirrored" : "") << turn << isMirrored;
    }
    /// The letter, painted farther out than the needle, is where the transformation has north.
    void pointsNorth()
    {
        QFETCH(const double, turn);
        QFETCH(const bool, isMirrored);
        view().turn = turn;
        view().isMirrored = isMirrored;
        emit view().viewChanged();
        QVERIFY(std::abs(normalizedAngle(arrow()->angle() - trueNorth())) < 1e-6);

        QImage image(arrow()->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        arrow()->render(&image, {}, {}, {});
        const QPointF centre(image.width() / 2.0, image.height() / 2.0);
        QPointF painted;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const QPointF offset = QPointF(x + 0.5, y + 0.5) - centre;
                    std::hypot(offset.x(), offset.y()) > 23)
                    painted += offset * qAlpha(image.pixel(x, y));
        QVERIFY(!painted.isNull());
        QVERIFY(std::abs(normalizedAngle(directionOf(painted) - trueNorth())) < 12);
    }

    void turnsByTheArrow()
    {
        view().turn = 31;
        emit view().viewChanged();
        turnWheel(arrow(), {40, 40}, 120);
        QCOMPARE(std::round(view().turn * 1e6), 45e6);
        turnWheel(arrow(), {40, 40}, -60); // half a step of a fine wheel
        QCOMPARE(std::round(view().turn * 1e6), 45e6);
        turnWheel(arrow(), {40, 40}, -60);
        QCOMPARE(std::round(view().turn * 1e6), 30e6);
        turnWheel(arrow(), {40, 40}, 240, Qt::ShiftModifier);
        QCOMPARE(std::round(view().turn * 1e6), 32e6);
        QTest::keyClick(arrow(), Qt::Key_Left);
        QTest::keyClick(arrow(), Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(std::round(view().turn * 1e6), 29e6);
        QCOMPARE(arrow()->angleText(), u"29°"_s);
        QTest::mouseClick(arrow(), Qt::LeftButton, {}, {40, 40});
        QVERIFY(std::abs(trueNorth()) < 1e-6);
    }

    /// The map under the arrow's tip goes with the pointer, the same way around.
    void turnsWithADrag()
    {
        QTest::mousePress(arrow(), Qt::LeftButton, {}, {40, 6});
        sendMouse(arrow(), QEvent::MouseMove, {74, 40}, Qt::NoButton, Qt::LeftButton);
        QVERIFY(std::abs(trueNorth() - 90) < 2);
        sendMouse(arrow(), QEvent::MouseMove, {40, 74}, Qt::NoButton, Qt::LeftButton);
        QVERIFY(std::abs(trueNorth()) > 178);
        QTest::keyClick(arrow(), Qt::Key_Escape);
        QVERIFY(std::abs(trueNorth()) < 1e-6);
        QTest::mouseRelease(arrow(), Qt::LeftButton, {}, {40, 74});
        QVERIFY(std::abs(trueNorth()) < 1e-6); // no click either
    }

    void takesATypedAngle()
    {
        view().turn = 77;
        emit view().viewChanged();
        QTest::mouseClick(arrow(), Qt::LeftButton, {}, {40, 40});
        QTest::mouseDClick(arrow(), Qt::LeftButton, {}, {40, 40});
        QVERIFY(std::abs(trueNorth() - 77) < 1e-6); // the first click is taken back
        QVERIFY(typeInto(&view(), u"North arrow's angle"_s, u"-33.5"_s));
        QVERIFY(std::abs(trueNorth() + 33.5) < 1e-6);
        QCOMPARE(arrow()->angleText(), u"-33.5°"_s);
        QTRY_VERIFY(view().hasFocus() && !named<ValueField>(&view(), u"North arrow's angle"_s));
    }

    void hidesWithoutGeoReference()
    {
        m_window->isOnMap = false;
        emit view().documentChanged();
        QVERIFY(!arrow() && !named<ValueField>(&view(), u"Scale"_s));
        manager().SetNorthArrowGreyed(true);
        QVERIFY(arrow());
        QTest::mouseClick(arrow(), Qt::LeftButton, {}, {40, 40});
        QCOMPARE(view().turn, 0.0);
        m_window->isOnMap = true;
        emit view().viewChanged();
        emit view().viewSettled();
        QVERIFY(named<ValueField>(&view(), u"Scale"_s));
    }

    void readsBackWhatIsTyped_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("scale") << u"Scale"_s << u"1:5000"_s << u"1 : 5,000"_s;
        QTest::newRow("denominator") << u"Scale"_s << u"2500"_s << u"1 : 2,500"_s;
        QTest::newRow("grouped") << u"Scale"_s << u"1 : 25.000"_s << u"1 : 25,000"_s;
        QTest::newRow("height") << u"Height"_s << u"750"_s << u"750 m"_s;
        QTest::newRow("kilometres") << u"Height"_s << u"12.5 km"_s << u"12.5 km"_s;
        QTest::newRow("field of view") << u"Field of view"_s << u"65"_s << u"65°"_s;
        QTest::newRow("eye distance") << u"Eye distance"_s << u"75 cm"_s << u"75 cm"_s;
    }
    void readsBackWhatIsTyped()
    {
        QFETCH(const QString, field);
        QFETCH(const QString, text);
        QFETCH(const QString, shown);
        const double heightBefore = EstimatedHeightAboveGroundLevelS(&view());
        QVERIFY(typeInto(&view(), field, text));
        QTRY_VERIFY(view().hasFocus());
        emit view().viewSettled();
        QCOMPARE(named<ValueField>(&view(), field)->text(), shown);
        QVERIFY(EstimatedHeightAboveGroundLevelS(&view()) != heightBefore); // each of them counts
        QVERIFY(typeInto(&view(), field, u"x"_s)); // means nothing: stays to be mended
        QVERIFY(named<ValueField>(&view(), field)->hasFocus());
        QTest::keyClick(named<ValueField>(&view(), field), Qt::Key_Escape);
        QCOMPARE(named<ValueField>(&view(), field)->text(), shown);
    }

    void tellsTheScaleThatWasTyped()
    {
        double scale = 0;
        int correction = 0;
        const QObject context;
        connect(&manager(), &NavCtrlMgrIfc::scaleEntered, &context, [&](KView *, double s, int c) {
            scale = s;
            correction = c;
        });
        QVERIFY(typeInto(&view(), u"Scale"_s, u"1:7500"_s));
        QCOMPARE(scale, 7500.0);
        QCOMPARE(correction, 15);
        QVERIFY(std::abs(MapScale(&view()) - 7500) < 1e-6);
    }

    void drawsABarAsLongAsItSays()
    {
        auto *bar = view().findChild<ScaleBarWidget *>();
        for (const double metresPerPixel : {0.013, 0.9, 3.7, 410.0}) {
            view().metresPerPixel = metresPerPixel;
            view().turn += 50;
            emit view().viewChanged();
            const QPointF left = bar->mapTo(&view(), bar->barRect().toRect().topLeft());
            const QPointF span =
                view().geoAt(left + QPointF(bar->barRect().width(), 0)) - view().geoAt(left);
            const double metres = std::hypot(span.x(), span.y());
            const QStringList words = bar->lengthText().split(u' ');
            QCOMPARE(std::round(metres * 1e6),
                     std::round(words[0].toDouble() * (words[1] == u"km" ? 1e9 : 1e6)));
        }
    }

    void zoomsWithThePlaceUnderThePointer()
    {
        view().turn = 25;
        view().resize(801, 600); // an odd width: its middle is between two pixels
        const QPoint pointer(100, 140);
        const QPointF place = view().geoAt(pointer);
        const double before = view().metresPerPixel;
        turnWheel(&view(), pointer, 120);
        QVERIFY(std::abs(view().metresPerPixel * 1.25 / before - 1) < 1e-9);
        turnWheel(&view(), pointer, -40); // a third of a step
        turnWheel(&view(), pointer, -80);
        QVERIFY(std::abs(view().metresPerPixel / before - 1) < 1e-9);
        turnWheel(&view(), pointer, 120, Qt::ControlModifier);
        QVERIFY(std::abs(view().metresPerPixel * 1.05 / before - 1) < 1e-9);
        const QPointF drift = view().geoAt(pointer) - place;
        QVERIFY(drift.manhattanLength() < 1e-6 * view().metresPerPixel);
        manager().SetWheelZoom(false);
        turnWheel(&view(), pointer, 120);
        QCOMPARE(view().wheels, 1);
    }

    void leadsToNeighboursInTheirDirection()
    {
        putNeighbours();
        point({400, 20});
        for (const auto &[turn, place] : {std::pair(0, 0), std::pair(90, 2), std::pair(180, 4),
                                          std::pair(-90, 6), std::pair(45, 1)}) {
            view().turn = turn;
            emit view().viewChanged();
            emit view().viewSettled();
            QVERIFY(areaAt(place));
            QCOMPARE(areaAt(place)->text(), u"North 6"_s); // the page's top
        }
        view().turn = 90.25;
        emit view().viewChanged();
        emit view().viewSettled();
        QCOMPARE(areaAt(4)->text(), u"2 sheets"_s);
        // To the last digit, though items hold whole degrees and denominators; around the map's
        // origin as well, a null point that would be no place.
        for (const QPointF middle : {view().middle, QPointF(0, 0)}) {
            view().middle = middle;
            emit view().viewChanged();
            const QTransform before = view().onScreen();
            QTest::keyClick(&view(), Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(m_window->shown.fileName, u"North 6.tif"_s);
            for (const QPointF corner : {QPointF(0, 0), QPointF(800, 600)})
                QVERIFY((view().onScreen().map(before.inverted().map(corner)) - corner)
                            .manhattanLength() < 1e-4);
        }
    }

    void appearsNearThePointer()
    {
        putNeighbours();
        point({400, 300});
        const auto isSeen = [this] { // in the top right corner of a grab only the area paints
            QImage image(areaAt(0)->size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            areaAt(0)->render(&image, {}, {}, {});
            const QImage empty = [&] {
                QImage clear(image.size(), image.format());
                clear.fill(Qt::transparent);
                return clear;
            }();
            return image != empty;
        };
        QVERIFY(!isSeen());
        QTest::mouseClick(areaAt(0), Qt::LeftButton); // what is not seen is not there
        QVERIFY(m_window->shown.fileName.isEmpty());
        QCOMPARE(view().presses, 1);
        point({400, 60});
        QVERIFY(isSeen());
        point({400, 200});
        QVERIFY(!isSeen());
        areaAt(0)->setFocus(Qt::TabFocusReason);
        QVERIFY(isSeen());
        m_style->duration = 200;
        view().setFocus();
        QVERIFY(isSeen()); // fades
        QTRY_VERIFY(!isSeen());
        m_style->duration = 0;
        point({400, 20});
        QTest::mouseClick(areaAt(0), Qt::LeftButton);
        QCOMPARE(m_window->shown.fileName, u"North 6.tif"_s);
    }

    void listsSeveralNeighbours()
    {
        putNeighbours();
        QVERIFY(!areaAt(4)); // none, no area
        QTest::keyClick(&view(), Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(&view(), Qt::Key_Right, Qt::AltModifier);
        auto *list = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(list && m_window->shown.fileName.isEmpty());
        QCOMPARE(list->actions().size(), 2);
        QCOMPARE(list->actions()[0]->text(), u"East 9"_s);
        list->actions()[1]->trigger();
        QCOMPARE(m_window->shown.fileName, u"East 10.tif"_s);
        list->close();
    }

    /// A drag that began on the document is its own, over whatever control it comes.
    void leavesDragsToTheDocument()
    {
        putNeighbours();
        auto *button = named<NavButton>(&view(), u"Zoom in"_s);
        const double before = view().metresPerPixel;
        int expected = 0;
        for (QWidget *control : {static_cast<QWidget *>(arrow()), static_cast<QWidget *>(button),
                                 static_cast<QWidget *>(areaAt(0)),
                                 static_cast<QWidget *>(named<ValueField>(&view(), u"Scale"_s))}) {
            const QPoint middle = control->rect().center();
            sendMouse(&view(), QEvent::MouseButtonPress, {400, 300}, Qt::LeftButton,
                      Qt::LeftButton);
            sendMouse(control, QEvent::MouseMove, middle, Qt::NoButton, Qt::LeftButton);
            sendMouse(control, QEvent::MouseButtonPress, middle, Qt::RightButton,
                      Qt::LeftButton | Qt::RightButton);
            turnWheel(control, middle, 120, {}, Qt::LeftButton);
            sendMouse(control, QEvent::MouseButtonRelease, middle, Qt::RightButton, Qt::LeftButton);
            sendMouse(control, QEvent::MouseButtonRelease, middle, Qt::LeftButton, Qt::NoButton);
            ++expected;
            QCOMPARE(view().moves, expected);
            QCOMPARE(view().presses, 2 * expected);
            QCOMPARE(view().releases, 2 * expected);
            QCOMPARE(view().wheels, expected);
        }
        QCOMPARE(view().metresPerPixel, before);
        QCOMPARE(view().turn, 0.0);
        turnWheel(button, {14, 14}, 120); // not used by the button: zooms the view
        QVERIFY(view().metresPerPixel < before);
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::mouseClick(named<NavButton>(&view(), u"Zoom out"_s), Qt::LeftButton);
        QVERIFY(std::abs(view().metresPerPixel * 1.25 / before - 1) < 1e-9);
    }

    void showsTheWholePage()
    {
        view().turn = 30;
        view().middle += QPointF(500, 0);
        auto *page = named<NavButton>(&view(), u"Whole page"_s);
        QTest::mouseClick(page, Qt::LeftButton);
        QCOMPARE(view().middle, QPointF(500'000, 5'600'000));
        QCOMPARE(view().turn, 30.0);
    }

    void foldsAndDocks()
    {
        const auto menu = [this] { return manager().Widget(&view(), Control::ViewMenu); };
        auto *handle = view().findChild<MenuHandle *>();
        QTest::mouseClick(handle, Qt::LeftButton);
        QVERIFY(manager().IsViewMenuFolded());
        QCOMPARE(menu()->size(), QSize(28, 28));
        QTest::keyClick(handle, Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(manager().GetCorner(Control::ViewMenu), Corner::BottomLeft);
        QTest::mousePress(handle, Qt::LeftButton, {}, {14, 14});
        const QPoint target = handle->mapFrom(&view(), QPoint(600, 100));
        sendMouse(handle, QEvent::MouseMove, target, Qt::NoButton, Qt::LeftButton);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFrom(&view(), QPoint(600, 100)));
        QCOMPARE(manager().GetCorner(Control::ViewMenu), Corner::TopRight);
        QVERIFY(menu()->x() > 700 && menu()->y() > arrow()->geometry().bottom());
        QVERIFY(manager().IsViewMenuFolded()); // a drag is no click
        view().setLayoutDirection(Qt::RightToLeft);
        QVERIFY(menu()->x() < 100 && arrow()->x() < 100);
        view().resize(290, 600);
        QVERIFY(!manager().Widget(&view(), Control::PresentationMenu) && arrow());
    }

    void presentsStoredViews()
    {
        m_window->ownViews << MapWindow::item(u"Overview"_s);
        QVERIFY(manager().StoreView(&view(), {}));
        view().turn = 40;
        view().middle += QPointF(100, 50);
        const QPointF middle = view().middle;
        QVERIFY(manager().StoreView(&view(), u"Sheet 5"_s));
        QCOMPARE(manager().StoredViews()[1].title, u"Sheet 5 (2)"_s);
        auto *next = named<NavButton>(&view(), u"Next view"_s);
        auto *count = named<NavButton>(&view(), u"Stored views"_s);
        QTest::mouseClick(next, Qt::LeftButton);
        QCOMPARE(count->text(), u"1/3"_s); // the viewer's come first
        QVERIFY(manager().ShowStoredView(&view(), -1));
        QCOMPARE(count->text(), u"3/3"_s);
        QCOMPARE(view().turn, 40.0);
        // The pixel in the middle, from which it is measured, is one beside it.
        QVERIFY((view().middle - middle).manhattanLength() < 3 * view().metresPerPixel);

        bool isPresenting = false;
        const QObject context;
        connect(&manager(), &NavCtrlMgrIfc::presentationChanged, &context,
                [&](KView *, bool is) { isPresenting = is; });
        QVERIFY(typeInto(&view(), u"Interval"_s, u"1"_s));
        QTest::mouseClick(named<NavButton>(&view(), u"Play the stored views"_s), Qt::LeftButton);
        QVERIFY(isPresenting);
        QTRY_COMPARE(count->text(), u"1/3"_s);
        QTest::keyClick(&view(), Qt::Key_PageDown);
        QCOMPARE(count->text(), u"2/3"_s);
        manager().SetFullScreen(&view(), true);
        QVERIFY(view().isFullScreen());
        QTest::keyClick(&view(), Qt::Key_B);
        auto *blank = view().findChild<BlankScreen *>();
        QVERIFY(blank && blank->geometry() == view().rect());
        QTest::keyClick(blank, Qt::Key_X);
        QVERIFY(!blank->isVisible() && view().isFullScreen());
        QTest::keyClick(&view(), Qt::Key_Escape);
        QVERIFY(!view().isFullScreen() && !isPresenting);
    }

    void editsStoredViewsInADialog()
    {
        for (const QString &title : {u"a"_s, u"b"_s})
            QVERIFY(manager().StoreView(&view(), title));
        auto *menu = named<NavButton>(&view(), u"Stored views"_s)->menu();
        emit menu->aboutToShow();
        menu->actions().constLast()->trigger();
        QPointer<StoredViewsDialog> dialog = view().findChild<StoredViewsDialog *>();
        QVERIFY(dialog);
        const auto press = [&](const QString &text) {
            for (QPushButton *button : dialog->findChildren<QPushButton *>())
                if (button->text() == text)
                    button->click();
        };
        press(u"Move &Down"_s);
        QCOMPARE(manager().StoredViews()[0].title, u"b"_s);
        auto *list = dialog->findChild<QListWidget *>();
        list->item(0)->setText(u"renamed"_s);
        QCOMPARE(manager().StoredViews()[0].title, u"renamed"_s);
        list->item(0)->setText(u" "_s);
        QTRY_COMPARE(list->item(0)->text(), u"renamed"_s);
        list->setCurrentRow(1);
        press(u"De&lete"_s);
        press(u"&Add This View"_s);
        QCOMPARE(manager().StoredViews().Size(), 2);
        QCOMPARE(manager().StoredViews()[1].title, u"Sheet 5"_s);
        NavCtrlMgrIfc::Destroy(); // the list is gone, the dialog with it
        QTRY_VERIFY(!dialog);
    }

    void keepsStateAndViews()
    {
        const Tz::ObjectId first("A"), second("B");
        UserDataManagerI &data = UserDataManager();
        data.OpenProjectConfigFiles(first);
        QVERIFY(manager().StoreView(&view(), u"of A"_s));
        data.OpenProjectConfigFiles(second);
        QCOMPARE(manager().StoredViews().Size(), 0);
        QVERIFY(manager().StoreView(&view(), u"of B"_s));
        manager().SetCorner(Control::ViewMenu, Corner::TopLeft);
        manager().SetControlShown(Control::PresentationMenu, false);
        manager().SetViewMenuFolded(true);
        QVERIFY(typeInto(&view(), u"Interval"_s, u"9"_s) == false); // not shown
        SetDefaultFieldOfView(70);
        UserDataManagerI::Destroy(); // announces that it saves
        NavCtrlMgrIfc::Destroy();
        SetDefaultFieldOfView(50);
        QCOMPARE(manager().GetCorner(Control::ViewMenu), Corner::TopLeft);
        QVERIFY(!manager().IsControlShown(Control::PresentationMenu));
        QVERIFY(manager().IsViewMenuFolded() && DefaultFieldOfView() == 70);
        UserDataManager().OpenProjectConfigFiles(first);
        QCOMPARE(manager().StoredViews()[0].title, u"of A"_s);

        DatabasePlace place;
        place.file = m_home->filePath(u"views.sqlite"_s);
        Database database(place);
        QVERIFY(database.Open());
        manager().SetDatabase(&database, u"A"_s);
        QCOMPARE(manager().StoredViews().Size(), 0);
        QVERIFY(manager().StoreView(&view(), u"in the database"_s));
        NavCtrlMgrIfc::Destroy();
        manager().SetDatabase(&database, u"A"_s);
        QCOMPARE(manager().StoredViews()[0].title, u"in the database"_s);
        manager().SetDatabase(nullptr, {});
        QCOMPARE(manager().StoredViews()[0].title, u"of A"_s);
    }

    /// Of two programs with one database, as one that goes back and forth between its projects.
    void keepsWhatOthersHaveStored()
    {
        DatabasePlace place;
        place.file = m_home->filePath(u"views.sqlite"_s);
        Database database(place);
        DatabaseDocuments documents(database);
        const QString name = u"navigation/views/A"_s;
        const auto titles = [&] {
            QStringList stored;
            const auto content = documents.LoadDocument(name);
            for (const QJsonValue item : QJsonDocument::fromJson(content.value_or("")).array())
                stored << item[u"Title"].toString();
            return stored;
        };
        QVERIFY(database.Open());
        manager().SetDatabase(&database, u"A"_s);
        QVERIFY(manager().StoreView(&view(), u"one"_s) && manager().StoreView(&view(), u"two"_s));
        const auto earlier = documents.LoadDocument(name);
        QVERIFY(manager().StoreView(&view(), u"three"_s));
        QByteArray theirs = *earlier; // "two" is "theirs" now, and there is no "three"
        QVERIFY(documents.SaveDocument(name, theirs.replace("two", "theirs")));
        QVERIFY(manager().StoreView(&view(), u"mine"_s));
        QCOMPARE(titles(), QStringList({u"one"_s, u"mine"_s, u"theirs"_s}));
        QCOMPARE(manager().StoredViews().Size(), 3);

        QSignalSpy failures(&manager(), &NavCtrlMgrIfc::storedViewsFailed);
        QVERIFY(documents.SaveDocument(name, "[{\"Title\":"));
        QVERIFY(manager().StoreView(&view(), u"more"_s));
        QCOMPARE(titles().size(), 4); // those that were known are not lost
        QTRY_COMPARE(failures.size(), 1);
        const QStringList kept =
            documents.DocumentNames(name + u".broken-"_s).value_or(QStringList());
        QCOMPARE(kept.size(), 1);
        QCOMPARE(documents.LoadDocument(kept[0]), QByteArray("[{\"Title\":"));
        QVERIFY(failures[0][0].toString().contains(kept[0]));

        QVERIFY(database.Run(u"ALTER TABLE KELO_DOCUMENTS RENAME TO AWAY"_s));
        QVERIFY(manager().StoreView(&view(), u"at a bad time"_s));
        manager().SetDatabase(&database, u"A"_s);
        QCOMPARE(manager().StoredViews().Size(), 0); // which is not the truth
        QTRY_COMPARE(failures.size(), 3);
        QVERIFY(database.Run(u"ALTER TABLE AWAY RENAME TO KELO_DOCUMENTS"_s));
        QVERIFY(manager().StoreView(&view(), u"last"_s));
        QCOMPARE(titles().size(), 5); // nothing was written over
        manager().SetDatabase(nullptr, {});
    }

    void costsNothingWhileHidden()
    {
        putNeighbours();
        manager().SetShown(false);
        QCoreApplication::processEvents();
        m_window->conversions = m_window->questions = 0;
        view().repaints = 0;
        for (int frame = 0; frame < 10; ++frame) {
            emit view().viewChanged();
            emit view().viewSettled();
            emit view().documentChanged();
            QTest::mouseMove(&view(), {400, 5 + frame});
            QCoreApplication::processEvents();
        }
        QCOMPARE(m_window->conversions, 0);
        QCOMPARE(m_window->questions, 0);
        QCOMPARE(view().repaints, 0);

        manager().SetShown(true);
        QCoreApplication::processEvents();
        m_window->conversions = 0;
        for (int frame = 0; frame < 10; ++frame) {
            for (int event = 0; event < 3; ++event) { // more often than is painted
                view().turn += 1;
                emit view().viewChanged();
            }
            view().repaint();
        }
        QCOMPARE(m_window->conversions, 40); // of angle and scale, two each
    }

    void followsViewsAndWindows()
    {
        auto second = std::make_unique<MapView>();
        second->show();
        manager().AddView(second.get());
        manager().AddView(second.get());
        QCOMPARE(manager().Views().size(), 2);
        second->turn = 90;
        emit second->viewChanged();
        auto *other =
            static_cast<NorthArrow *>(manager().Widget(second.get(), Control::NorthArrow));
        QVERIFY(other->angle() > 89 && arrow()->angle() == 0);
        second.reset();
        QCOMPARE(manager().Views().size(), 1);
        {
            const MapWindow replacement;
            QCOMPARE(manager().Views(), QList<KView *>{replacement.view});
            QVERIFY(!arrow());
        }
        QVERIFY(manager().Views().isEmpty());
        DocWindowXIfc::SetHInstance(m_window.get());
        QVERIFY(arrow());
        manager().RemoveView(&view());
        QVERIFY(!arrow() && named<NavButton>(&view(), u"Zoom in"_s) == nullptr);
    }

    void survivesDeathInItsOwnSignals_data()
    {
        QTest::addColumn<int>("victim");
        QTest::newRow("the view") << 0;
        QTest::newRow("the manager") << 1;
        QTest::newRow("the window") << 2;
        QTest::newRow("the controls") << 3;
    }
    void survivesDeathInItsOwnSignals()
    {
        QFETCH(const int, victim);
        putNeighbours();
        manager().SetPlaying(&view(), true);
        m_window->ownViews << MapWindow::item(u"Overview"_s);
        const auto kill = [this, victim] {
            m_window->whenShown = nullptr;
            switch (victim) {
            case 0:
                delete m_window->view;
                break;
            case 1:
                NavCtrlMgrIfc::Destroy();
                break;
            case 2:
                m_window->view->setParent(nullptr);
                DocWindowXIfc::SetHInstance(nullptr);
                break;
            default:
                manager().RemoveView(&view());
            }
        };
        m_window->whenShown = kill;
        point({400, 20});
        QTest::mouseClick(areaAt(0), Qt::LeftButton);
        QVERIFY(!m_window->shown.fileName.isEmpty());
        m_window.reset();
        m_window = std::make_unique<MapWindow>();
        view().show();
        m_window->ownViews << MapWindow::item(u"Overview"_s);
        static_cast<void>(manager());
        emit view().documentChanged();
        m_window->whenShown = kill;
        QTest::mouseClick(named<NavButton>(&view(), u"Next view"_s), Qt::LeftButton);
        QCOMPARE(m_window->shown.title, u"Overview"_s);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void isKnownToScreenReaders()
    {
        putNeighbours();
        point({400, 20});
        for (QWidget *widget : view().findChildren<QWidget *>()) {
            if (!widget->isVisible() || !widget->isEnabled() ||
                widget->focusPolicy() == Qt::NoFocus)
                continue;
            QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY(!face->text(QAccessible::Name).isEmpty());
            const auto role = face->role();
            QVERIFY(role == QAccessible::Button || role == QAccessible::CheckBox ||
                    role == QAccessible::ButtonMenu || role == QAccessible::EditableText ||
                    role == QAccessible::Dial);
            // The keyboard's place is seen.
            view().setFocus();
            const QImage without = widget->grab().toImage();
            widget->setFocus(Qt::TabFocusReason);
            QVERIFY(widget->hasFocus());
            QVERIFY(widget->grab().toImage() != without);
        }
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(arrow());
        face->valueInterface()->setCurrentValue(-20);
        QVERIFY(std::abs(trueNorth() + 20) < 1e-6);
        QCOMPARE(face->text(QAccessible::Value), u"-20°"_s);
        face = QAccessible::queryAccessibleInterface(view().findChild<ScaleBarWidget *>());
        QVERIFY(face->text(QAccessible::Value).endsWith(u" m"));
        QTest::keyClick(arrow(), Qt::Key_Escape);
        QVERIFY(view().hasFocus());
    }

    /// What is painted over a plain map differs from it enough to be read.
    void isReadableOverAnyMap()
    {
        KELO_UNIX_ONLY("letters are drawn lighter by the offscreen platform there");
        for (const QColor &map : {QColor(Qt::white), QColor(Qt::black), QColor(128, 128, 128)}) {
            for (const QColor &window : {QColor(240, 240, 240), QColor(50, 50, 50)}) {
                view().setPalette(QPalette(window));
                for (QWidget *widget :
                     {static_cast<QWidget *>(arrow()),
                      static_cast<QWidget *>(view().findChild<ScaleBarWidget *>()),
                      static_cast<QWidget *>(named<NavButton>(&view(), u"Zoom in"_s)),
                      static_cast<QWidget *>(named<ValueField>(&view(), u"Height"_s))}) {
                    QImage image(widget->size(), QImage::Format_RGB32);
                    image.fill(map);
                    widget->render(&image, {}, {}, {});
                    int readable = 0;
                    for (int y = 0; y < image.height(); ++y)
                        for (int x = 0; x < image.width(); ++x)
                            readable += colors::contrast(image.pixelColor(x, y), map) >= 4.5;
                    QVERIFY2(readable > 25, widget->metaObject()->className());
                    QVERIFY(readable < image.width() * image.height() / 2); // no box
                }
            }
        }
    }
};

QTEST_MAIN(TestNavControls)
#include "tst_navcontrols.moc"
