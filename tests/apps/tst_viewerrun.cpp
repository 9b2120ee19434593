// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer as it runs: with a partner in another process, from one start to the next, and once
// through all it can do.
#include "CommandLine.h"
#include "DocWindow.h"
#include "FileCommands.h"
#include "LinkDock.h"
#include "MainWindow.h"
#include "Plan.h"
#include "PlanOpener.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "StatusLine.h"
#include "StoredViewDock.h"
#include "Viewer.h"
#include "ViewerActions.h"
#include "tests/support/TemporaryHome.h"
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <QToolBar>
#include <QtTest>
#include <functional>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/menus/QtPieMenu.h>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>
#include <kelo_base/navigation/ViewGeometry.h>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using Id = ViewerAction;

namespace {

const QString kSample = QStringLiteral(KELO_SAMPLE);
constexpr QPointF kPlace(4'469'400.25, 5'318'700.75); // on sheet 3

/// Calls the script once the plan is shown, and closes the window behind it.
int runViewer(const QStringList &arguments,
              const std::function<void(Viewer &, MainWindow &)> &script)
{
    Viewer viewer(CommandLine::parse(QStringList{u"viewer"_s} + arguments));
    QTimer begin;
    begin.setInterval(10);
    QObject::connect(&begin, &QTimer::timeout, &begin, [&] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *window = qobject_cast<MainWindow *>(widget);
            if (!window || !window->currentView())
                continue;
            begin.stop();
            script(viewer, *window);
            window->close();
            return;
        }
    });
    begin.start();
    return viewer.run();
}

/// Sends commands as the partner does. @return its status: 0 when all were accepted
int sendAsPartner(const QString &folder, const QStringList &commands)
{
    QProcess partner;
    partner.start(QStringLiteral(KELO_PARTNER_SIM),
                  QStringList{folder} + commands + QStringList{u"--poll"_s, u"50"_s});
    const auto isDone = [&] { return partner.state() == QProcess::NotRunning; };
    return QTest::qWaitFor(isDone, 30'000) ? partner.exitCode() : -1;
}

/// A partner that receives, as long as this lives.
class Listener
{
public:
    explicit Listener(const QString &folder, const QStringList &options = {})
    {
        m_partner.start(QStringLiteral(KELO_PARTNER_SIM),
                        QStringList{folder, u"--json"_s, u"--poll"_s, u"50"_s} + options);
    }
    ~Listener()
    {
        m_partner.kill();
        m_partner.waitForFinished();
    }
    /// What it prints of the next command; empty when none comes.
    QJsonObject next()
    {
        static_cast<void>(QTest::qWaitFor([&] { return m_partner.canReadLine(); }, 20'000));
        return QJsonDocument::fromJson(m_partner.readLine()).object();
    }

private:
    QProcess m_partner;
};

/// The place in the middle, as the controls are told: between the corner pixels.
QPointF middleOf(QWidget *view)
{
    QRect pixels;
    DocWindowXIfc *window = DocWindowXIfc::HInstance();
    if (!window->DeviceRect(view, pixels))
        return {};
    DocWindowXIfc::UCoord first(pixels.topLeft());
    DocWindowXIfc::UCoord last(pixels.bottomRight());
    if (!window->DeviceToGeo(view, first) || !window->DeviceToGeo(view, last))
        return {};
    return (first.geoPoint + last.geoPoint) / 2;
}

void click(QWidget *widget, Qt::MouseButton button, QPoint pos)
{
    QTest::mouseClick(widget, button, Qt::NoModifier, pos);
}

void drop(QWidget &window, const QString &file)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

class TestViewerRun : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_home.reset(); }
    void goesWhereThePartnerWants();
    void losesNothingWhenKilled();
    void showsTheViewInThePartner();
    void opensLinkedSheets();
    void tellsWhatItCannotOpen();
    void readsPlansAgain();
    void remembersBarsAndScreen();
    void closesTabsWhileTheyTell_data();
    void closesTabsWhileTheyTell();
    void findsWhileItReads();
    void doesEverythingOnce();
    void writesScreenshots_data();
    void writesScreenshots();

private:
    std::unique_ptr<TemporaryHome> m_home;
    QString m_exchange;
    QStringList m_arguments;
};

void TestViewerRun::init()
{
    QApplication::setOrganizationName(u"kelo"_s);
    QApplication::setApplicationName(u"kelo-viewer"_s); // as the program, whose settings are read
    m_home = std::make_unique<TemporaryHome>();
    m_exchange = m_home->filePath(u"exchange"_s);
    QVERIFY(QDir().mkpath(m_exchange));
    m_arguments = QStringList{kSample, u"--exchange"_s, m_exchange};
}

void TestViewerRun::goesWhereThePartnerWants()
{
    const QKeySequence keys(u"Ctrl+Alt+K"_s);
    ViewPose last;
    QCOMPARE(
        runViewer(
            m_arguments,
            [&](Viewer &viewer, MainWindow &window) {
                const QString command =
                    u"goto %1 %2 30 750"_s.arg(kPlace.x(), 0, 'f', 2).arg(kPlace.y(), 0, 'f', 2);
                QCOMPARE(sendAsPartner(m_exchange, {command, u"test"_s}), 0);
                PlanView *view = window.currentView();
                QVERIFY(QLineF(middleOf(view), kPlace).length() < 1e-6);
                double angle = 0;
                QVERIFY(NorthAngle(view, angle));
                QVERIFY(std::abs(angle - 30) < 0.1);
                const double height = EstimatedHeightAboveGroundLevelS(view);
                QVERIFY(std::abs(height / 750 - 1) < 1e-4);

                window.actions().action(Id::StoredViews).trigger();
                window.actions().action(Id::SectorMenu).trigger();
                ActionShortCutList list = viewer.configuration().GetKeyboardShortcutList();
                list.AssignKeySequence(int(Id::WholePlan), keys);
                viewer.configuration().AssignKeyboardShortcutList(list);
                last = view->pose();
            }),
        0);
    QCOMPARE(runViewer(m_arguments,
                       [&](Viewer &, MainWindow &window) {
                           QCOMPARE(window.currentView()->pose(), last);
                           QVERIFY(window.storedViews().isVisible());
                           QVERIFY(window.actions().action(Id::SectorMenu).isChecked());
                           QCOMPARE(window.actions().action(Id::WholePlan).shortcut(), keys);
                       }),
             0);
}

void TestViewerRun::losesNothingWhenKilled()
{
    ViewPose saved;
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        window.actions().action(Id::Links).trigger();
        window.currentView()->go(ViewPose(kPlace, 0.75, 12));
        saved = window.currentView()->pose();
    });
    QProcess viewer; // the program itself, in the midst of its work
    viewer.start(QStringLiteral(KELO_VIEWER), m_arguments);
    QVERIFY(QTest::qWaitFor([&] { return QFile::exists(m_exchange + "/kelo-viewer.lock"_L1); },
                            20'000));
    QCOMPARE(sendAsPartner(m_exchange, {u"test"_s}), 0);
    viewer.kill();
    QVERIFY(viewer.waitForFinished());
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        QCOMPARE(window.currentView()->pose(), saved);
        QVERIFY(window.links().isVisible());
        QCOMPARE(window.notice(), QString()); // the dead one's lock is no hindrance
    });
}

void TestViewerRun::showsTheViewInThePartner()
{
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        window.currentView()->go(ViewPose(kPlace, 0.5, 0));
        QTRY_VERIFY(window.status().channel().contains(u"waiting"_s));
        window.actions().action(Id::ShowInPartner).trigger();
        std::optional<Listener> partner(std::in_place, m_exchange);
        const QJsonObject move = partner->next();
        QCOMPARE(move[u"id"], u"MoveToPosition"_s);
        const QString where = move[u"parameters"].toString();
        QVERIFY2(where.contains(u"Center:4469400.250000;5318700.750000"_s), qPrintable(where));
        const QJsonObject highlight = partner->next();
        QCOMPARE(highlight[u"id"], u"HighlightPolygons"_s);
        const QString file = highlight[u"parameters"].toString();
        QFile polygon(m_exchange + u'/' + file.section(u"PolygonFile:"_s, 1, 1));
        QVERIFY2(polygon.open(QIODevice::ReadOnly), qPrintable(file));
        const QPointF corner =
            window.currentView()->pose().toMap({0, 0}, window.currentView()->size());
        QCOMPARE(polygon.readLine().trimmed(), QByteArray::number(corner.x(), 'f', 3) + ' ' +
                                                   QByteArray::number(corner.y(), 'f', 3));
        QCOMPARE(window.notice(), QString());
        partner.emplace(m_exchange, QStringList{u"--refuse"_s});
        window.actions().action(Id::ShowInPartner).trigger();
        QTRY_VERIFY_WITH_TIMEOUT(window.notice().contains(u"does not carry"_s), 20'000);
        window.tell({});
        window.actions().action(Id::ChannelActive).trigger();
        window.actions().action(Id::ShowInPartner).trigger();
        QVERIFY(!window.notice().isEmpty());
    });
}

void TestViewerRun::opensLinkedSheets()
{
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        PlanView *view = window.currentView();
        view->go(ViewPose(kPlace, 0.5, 10));
        QVERIFY(window.links().link(u"PUMP7"_s));
        const ViewPose linked = view->pose();
        const double height = EstimatedHeightAboveGroundLevelS(view);
        view->go(view->wholePlan());
        QCOMPARE(sendAsPartner(m_exchange, {u"find PUMP7"_s}), 0);
        QVERIFY(window.links().isVisible());
        QVERIFY(QLineF(view->pose().middle(), linked.middle()).length() < 1e-6);
        QVERIFY(std::abs(EstimatedHeightAboveGroundLevelS(view) / height - 1) < 1e-3);
        QCOMPARE(sendAsPartner(m_exchange, {u"find NOTHING"_s}), 1);
        QVERIFY(window.notice().contains(u"NOTHING"_s));
    });
}

void TestViewerRun::tellsWhatItCannotOpen()
{
    const QString broken = m_home->filePath(u"broken.dxf"_s);
    QFile file(broken);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("0\nSECTION\nabc\n") > 0);
    file.close();
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        QVERIFY(!window.openPlan(m_home->filePath(u"missing.dxf"_s)));
        QVERIFY(window.notice().contains(u"missing.dxf"_s));
        QVERIFY(!window.openPlan(broken));
        QVERIFY(window.notice().contains(u"broken.dxf"_s));
        QVERIFY(window.notice().contains(u"3"_s));           // the line
        QVERIFY(window.notice().contains(u"missing.dxf"_s)); // of plans that are opened at once
        QCOMPARE(window.tabs().count(), 1);
    });
}

/// What is seen stays until there is something new, and for good when there is not.
void TestViewerRun::readsPlansAgain()
{
    QFile file(m_home->filePath(u"plan.dxf"_s));
    QVERIFY(QFile::copy(kSample, file.fileName()) && file.open(QIODevice::ReadWrite));
    const QByteArray older = file.readAll();
    const QByteArray newer =
        QByteArray(older).replace("\n3\r\n  2\r\nBL_NR", "\n33\r\n  2\r\nBL_NR");
    const auto write = [&](const QByteArray &text) {
        QVERIFY(file.resize(0) && file.seek(0) && file.write(text) == text.size() && file.flush());
    };
    m_arguments[0] = file.fileName();
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        QAction &again = window.actions().action(Id::Reload);
        PlanView *view = window.currentView();
        const auto number = [&] { return view->plan().sheets().title(*view->currentSheet()); };
        view->go(ViewPose(kPlace, 0.5, 30));
        const ViewPose pose = view->pose();
        QTRY_VERIFY(view->plan().backdrop().lineCount() > 0 && !view->plan().backdropReader());
        const std::size_t lines = view->plan().backdrop().lineCount();
        view->completePicture();
        const QImage before = view->grab().toImage();
        QCOMPARE(number(), u"3"_s);
        int timesRead = 0;
        connect(&view->plan(), &Plan::backdropRead, view, [&] { ++timesRead; });

        write(newer);
        again.trigger();
        QCOMPARE(window.currentView(), view);
        QCOMPARE(view->pose(), pose);
        QVERIFY(view->canGoBack());
        QCOMPARE(number(), u"33"_s);
        QCOMPARE(view->grab().toImage(), before);
        QCOMPARE(view->plan().backdrop().lineCount(), lines);
        QTRY_COMPARE(timesRead, 1);
        QCOMPARE(view->plan().backdrop().lineCount(), lines);
        view->completePicture();
        QVERIFY(view->grab().toImage() != before);

        write("0\nSECTION\nabc\n");
        again.trigger();
        QVERIFY(window.notice().contains(u"plan.dxf, line 3"_s));
        QCOMPARE(window.currentView(), view);
        QCOMPARE(number(), u"33"_s);
        write(older);
        again.trigger();
        QCOMPARE(number(), u"3"_s);
        QCOMPARE(window.notice(), QString());
    });
}

/// A presentation ends with the window; what fills the screen otherwise does so again.
void TestViewerRun::remembersBarsAndScreen()
{
    const auto isBarHidden = [](const MainWindow &window) {
        return window.findChild<QToolBar *>()->isHidden();
    };
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        const QAction &full = window.actions().action(Id::FullScreen);
        NavCtrlMgrIfc::Instance().SetFullScreen(window.currentView(), true);
        QVERIFY(isBarHidden(window) && full.isChecked());
        NavCtrlMgrIfc::Instance().SetFullScreen(window.currentView(), false);
        QVERIFY(!isBarHidden(window) && !full.isChecked());
        NavCtrlMgrIfc::Instance().SetFullScreen(window.currentView(), true);
    });
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        QVERIFY(!isBarHidden(window) && !window.isFullScreen());
        window.actions().action(Id::FullScreen).trigger();
        window.findChild<QToolBar *>()->hide(); // by the user, and for good
    });
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        QVERIFY(window.isFullScreen());
        window.actions().action(Id::FullScreen).trigger();
        QVERIFY(!window.isFullScreen());
        NavCtrlMgrIfc::Instance().SetFullScreen(window.currentView(), true);
        NavCtrlMgrIfc::Instance().SetFullScreen(window.currentView(), false);
        QVERIFY(isBarHidden(window));
    });
}

void TestViewerRun::closesTabsWhileTheyTell_data()
{
    using Connect = std::function<void(PlanView *, MainWindow &, const std::function<void()> &)>;
    QTest::addColumn<Connect>("connectTo");
    const auto ofView = [](auto signal) {
        return Connect(
            [signal](PlanView *view, MainWindow &window, const std::function<void()> &close) {
                connect(view, signal, &window, close);
            });
    };
    QTest::newRow("that the view has changed") << ofView(&PlanView::viewChanged);
    QTest::newRow("that another sheet is current") << ofView(&PlanView::documentChanged);
    QTest::newRow("that there is something to undo") << ofView(&PlanView::historyChanged);
    QTest::newRow("that they are about to close")
        << Connect([](PlanView *view, MainWindow &window, const std::function<void()> &close) {
               connect(&window.tabs(), &PlanTabs::aboutToClose, &window, close);
               connect(view, &PlanView::viewSettled, &window, close);
           });
}

void TestViewerRun::closesTabsWhileTheyTell()
{
    using Connect = std::function<void(PlanView *, MainWindow &, const std::function<void()> &)>;
    QFETCH(const Connect, connectTo);
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        const QPointer<PlanView> view = window.currentView();
        const QPointer<Plan> plan = &view->plan();
        const QPointF there = view->plan().sheets().frame(3).corners()[0];
        view->place(ViewPose({0, 0}, 1, 0)); // off all sheets
        connectTo(view, window, [&] { window.tabs().close(view); });
        view->go(ViewPose((there + view->plan().sheets().frame(3).corners()[2]) / 2, 0.5, 10));
        QCOMPARE(window.tabs().count(), 0);
        QTRY_VERIFY(!view && !plan);
    });
}

/// A list of sheets that is replaced while the plan of one of them is read.
void TestViewerRun::findsWhileItReads()
{
    const QString other = m_home->filePath(u"other.dxf"_s);
    QVERIFY(QFile::copy(kSample, other));
    runViewer(m_arguments, [&](Viewer &, MainWindow &window) {
        window.currentView()->go(ViewPose(kPlace, 0.5, 10));
        QVERIFY(window.links().link(u"HERE"_s));
        PlanView *view = window.openPlan(other);
        view->go(ViewPose(kPlace + QPointF(40, 30), 0.25, 20));
        const ViewPose linked = view->pose();
        QVERIFY(window.links().link(u"THERE"_s));
        window.tabs().close(view);
        QTRY_COMPARE(window.tabs().count(), 1);
        connect(window.findChild<PlanOpener *>(), &PlanOpener::readingChanged, &window,
                [&](bool isReading) {
                    if (isReading)
                        QVERIFY(window.links().find(Tz::ObjectId("HERE")));
                });
        QVERIFY(window.links().find(Tz::ObjectId("THERE")));
        QVERIFY(QLineF(window.currentView()->pose().middle(), linked.middle()).length() < 1e-6);
        QCOMPARE(window.currentView()->plan().path(), other);
    });
}

void TestViewerRun::doesEverythingOnce()
{
    const QString other = m_home->filePath(u"other.dxf"_s);
    QVERIFY(QFile::copy(kSample, other));
    runViewer(m_arguments, [&](Viewer &viewer, MainWindow &window) {
        const ViewerActions &actions = window.actions();
        drop(window, other);
        QTRY_COMPARE(window.tabs().count(), 2);
        PlanView *view = window.currentView();
        QCOMPARE(view->plan().path(), other);
        for (const Id id : {Id::ZoomIn, Id::TurnLeft, Id::TurnRight, Id::ZoomOut, Id::WholePlan,
                            Id::ShowBackdrop, Id::PlaceSheets, Id::PlaceSheets, Id::NorthUp})
            actions.action(id).trigger();
        const QPoint sheet3 = view->pose().toPixel({4'469'363, 5'318'705}, view->size()).toPoint();
        QTest::mouseDClick(view, Qt::LeftButton, {}, sheet3);
        QTRY_VERIFY(view->currentSheet());
        QCOMPARE(view->plan().sheets().title(*view->currentSheet()), u"3"_s);
        QVERIFY(actions.action(Id::WholeSheet).isEnabled());

        // From the pie: the right button opens it, a stroke to the left picks what lies there.
        actions.action(Id::SectorMenu).setChecked(true);
        const ViewPose before = view->pose();
        const QPoint middle = view->rect().center();
        QTest::mousePress(view, Qt::RightButton, {}, middle);
        auto *pie = window.findChild<QtPieMenu *>();
        QVERIFY(pie && pie->isVisible());
        click(pie, Qt::LeftButton, pie->rect().center() - QPoint(100, 0)); // the whole plan
        QTRY_VERIFY(!pie->isVisible());
        QCOMPARE(view->pose(), view->wholePlan());
        QTest::mouseRelease(view, Qt::RightButton, {}, middle);
        actions.action(Id::PreviousView).trigger();
        QCOMPARE(view->pose(), before);
        actions.action(Id::SectorMenu).setChecked(false);
        QTest::mousePress(view, Qt::RightButton, {}, middle);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu && menu->actions().contains(&actions.action(Id::WholeSheet)));
        menu->close();
        QTest::mouseRelease(view, Qt::RightButton, {}, middle);

        // A shortcut of the user's own.
        ActionShortCutList list = viewer.configuration().GetKeyboardShortcutList();
        list.AssignKeySequence(int(Id::NorthUp), QKeySequence(u"Ctrl+Alt+N"_s));
        SetupActionManagerFromKeyboardShortcutList(list, actions.manager());
        actions.action(Id::TurnLeft).trigger();
        window.activateWindow();
        view->setFocus();
        QTest::keyClick(view, Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
        QTRY_VERIFY(std::abs(view->pose().angle()) < 1e-9);

        auto *files = window.findChild<FileCommands *>();
        for (const QString &name :
             {u"sheets.txt"_s, u"sheets.csv"_s, u"sheets.xlsx"_s, u"p.png"_s}) {
            const QString file = m_home->filePath(name);
            if (name.endsWith(u".txt"_s))
                files->exportGk2(file);
            else if (name.endsWith(u".png"_s))
                files->savePicture(file);
            else
                files->exportTable(file);
            QCOMPARE(window.notice(), QString());
            QVERIFY2(QFileInfo(file).size() > 200, qPrintable(file));
        }
        files->exportGk2(other); // the plan itself
        QVERIFY(window.notice().contains(u"other.dxf"_s));

        QVERIFY(window.storedViews().store(u"here"_s));
        QCOMPARE(NavCtrlMgrIfc::Instance().StoredViews()[0].title, u"here"_s);
        for (const Id id : {Id::StoredViews, Id::Links, Id::Workbench, Id::ShowControls})
            actions.action(id).trigger();
        QTest::qWait(300);                            // the workbench reads the plan
        const QSize least = window.minimumSizeHint(); // with all docks: 1366 x 768 at 200 %
        QVERIFY2(least.height() <= 384 - 24, QByteArray::number(least.height()));
        // Its keys are not in the way of the window's.
        bool isAsked = false;
        QTimer::singleShot(200, &window, [&isAsked] {
            if (QWidget *question = QApplication::activeModalWidget())
                isAsked = question->close();
        });
        QTest::keyClick(view, Qt::Key_O, Qt::ControlModifier);
        QVERIFY(QTest::qWaitFor([&isAsked] { return isAsked; }));
        actions.action(Id::Reload).trigger();
        QCOMPARE(window.currentView()->plan().path(), other);
        actions.action(Id::CloseTab).trigger();
        QCOMPARE(window.tabs().count(), 1);
        actions.action(Id::CloseTab).trigger();
        QVERIFY(!actions.action(Id::ZoomIn).isEnabled());
    });
}

void TestViewerRun::writesScreenshots_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::newRow("of a place") << QStringList{kSample, u"--view"_s, u"4469400,5318700,900,20"_s}
                                << 0;
    QTest::newRow("of no plan") << QStringList{u"missing.dxf"_s} << 1;
    QTest::newRow("of no place") << QStringList{kSample, u"--view"_s, u"here"_s} << 2;
}

void TestViewerRun::writesScreenshots()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const int, status);
    const QString file = m_home->filePath(u"shot.png"_s);
    QProcess viewer;
    viewer.start(QStringLiteral(KELO_VIEWER),
                 arguments + QStringList{u"--screenshot"_s, file, u"--size"_s, u"700x500"_s});
    QVERIFY(viewer.waitForFinished());
    QCOMPARE(viewer.exitCode(), status);
    QCOMPARE(QImage(file).size(), status == 0 ? QSize(700, 500) : QSize(0, 0));
    const QByteArray told = viewer.readAllStandardError();
    QCOMPARE(told.count("kelo-viewer: "), status == 0 ? 0 : 1);
    QVERIFY(QDir(m_home->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot) ==
            QStringList{u"exchange"_s}); // nothing of the user's is touched
}

QTEST_MAIN(TestViewerRun)
#include "tst_viewerrun.moc"
