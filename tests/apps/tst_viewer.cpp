// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer's parts: poses, what is read and found, and what the controls are told.
#include "Backdrop.h"
#include "BackdropReader.h"
#include "CommandLine.h"
#include "DocWindow.h"
#include "PictureStore.h"
#include "PlainMText.h"
#include "Plan.h"
#include "PlanState.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "RecentPlans.h"
#include "SheetAddress.h"
#include "SheetNeighbours.h"
#include "ViewHistory.h"
#include "ViewNavigation.h"
#include "ViewerActions.h"
#include <QMenuBar>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QtTest>
#include <functional>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenu.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>
#include <kelo_base/actions/MenuConfigManager.h>
#include <kelo_base/core/Translation.h>
#include <kelo_base/navigation/ViewGeometry.h>
#include <numbers>

using namespace Qt::Literals::StringLiterals;
using Side = DocWindowXIfc::PageSide;
using Input = std::function<void(PlanView &)>;

Q_DECLARE_METATYPE(Side)
Q_DECLARE_METATYPE(Input)

namespace {

QByteArray pair(int code, const QByteArray &value)
{
    return QByteArray::number(code) + '\n' + value + '\n';
}

QByteArray entity(const QByteArray &name, const QList<QPair<int, QByteArray>> &groups)
{
    QByteArray text = pair(0, name);
    for (const auto &[code, value] : groups)
        text += pair(code, value);
    return text;
}

QByteArray drawing(const QByteArray &entities)
{
    return pair(0, "SECTION") + pair(2, "ENTITIES") + entities + pair(0, "ENDSEC") + pair(0, "EOF");
}

/// Sheets of 100 x 50 side by side, @p columns of them in a row, the first at the bottom left.
QByteArray planOfSheets(int columns, int rows, const QByteArray &entities = {})
{
    QByteArray blocks;
    QByteArray inserts;
    for (int i = 0; i < columns * rows; ++i) {
        const QByteArray name = "B" + QByteArray::number(i);
        const int x = i % columns * 100;
        const int y = i / columns * 50;
        blocks += pair(0, "BLOCK") + pair(2, name) + pair(0, "LWPOLYLINE") + pair(90, "4") +
                  pair(70, "1");
        for (const QPoint corner :
             {QPoint(x, y), QPoint(x + 100, y), QPoint(x + 100, y + 50), QPoint(x, y + 50)})
            blocks +=
                pair(10, QByteArray::number(corner.x())) + pair(20, QByteArray::number(corner.y()));
        blocks += pair(0, "ENDBLK");
        inserts += entity("INSERT", {{66, "1"}, {2, name}, {10, "0"}, {20, "0"}}) +
                   entity("ATTRIB", {{1, QByteArray::number(i + 1)}, {2, "BL_NR"}}) +
                   pair(0, "SEQEND");
    }
    return pair(0, "SECTION") + pair(2, "BLOCKS") + blocks + pair(0, "ENDSEC") +
           drawing(inserts + entities);
}

QString write(const QTemporaryDir &folder, const QByteArray &text, const QString &name = u"p.dxf"_s)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write the plan");
    return file.fileName();
}

/// Lines as people would note them, arcs by centre, radius and degrees, texts by place.
QStringList noted(const Backdrop &backdrop)
{
    QStringList all;
    for (const BackdropPack &pack : backdrop.packs())
        for (const BackdropLine &line : backdrop.lines(pack))
            all << u"%1,%2-%3,%4"_s.arg(pack.origin.x() + double(line.x1))
                       .arg(pack.origin.y() + double(line.y1))
                       .arg(pack.origin.x() + double(line.x2))
                       .arg(pack.origin.y() + double(line.y2));
    const auto degrees = [](double radians) {
        return qRound(std::remainder(radians * 180 / std::numbers::pi, 720));
    };
    for (const BackdropArc &arc : backdrop.arcs())
        all << u"arc %1,%2 r%3 %4..%5"_s.arg(arc.centre.x())
                   .arg(arc.centre.y())
                   .arg(arc.radius)
                   .arg(degrees(arc.begin))
                   .arg(degrees(arc.end));
    for (const BackdropText &text : backdrop.texts())
        all << u"text %1,%2 %3 %4"_s.arg(text.position.x())
                   .arg(text.position.y())
                   .arg(text.height)
                   .arg(QString::fromLatin1(backdrop.text(text)));
    all.sort();
    return all;
}

constexpr QPointF kPointer(200, 100);

const QPointingDevice *touchPad()
{
    static const QPointingDevice pad(u"pad"_s, 19, QInputDevice::DeviceType::TouchPad,
                                     QPointingDevice::PointerType::Finger,
                                     QInputDevice::Capability::Position, 5, 0);
    return &pad;
}

Input scroll(QPoint pixels, QPoint angle, Qt::ScrollPhase phase, Qt::KeyboardModifiers keys = {},
             const QPointingDevice *device = touchPad())
{
    return [=](PlanView &view) {
        QWheelEvent event(kPointer, view.mapToGlobal(kPointer), pixels, angle, Qt::NoButton, keys,
                          phase, false, Qt::MouseEventNotSynthesized, device);
        QCoreApplication::sendEvent(&view, &event);
    };
}

/// Pressed, repeated, and let go.
Input hold(int key, int repeats)
{
    return [=](PlanView &view) {
        const auto send = [&](QEvent::Type type, bool isRepeat) {
            QKeyEvent event(type, key, {}, {}, isRepeat);
            QCoreApplication::sendEvent(&view, &event);
        };
        send(QEvent::ShortcutOverride, false);
        send(QEvent::KeyPress, false);
        QTest::qWait(450); // systems wait longer before they repeat
        for (int i = 0; i < repeats; ++i)
            send(QEvent::KeyPress, true);
        send(QEvent::KeyRelease, false);
    };
}

Input gesture(Qt::NativeGestureType type, double value = 0, QPointF delta = {})
{
    return [=](PlanView &view) {
        QNativeGestureEvent event(type, touchPad(), 2, kPointer, kPointer,
                                  view.mapToGlobal(kPointer), value, delta);
        QCoreApplication::sendEvent(&view, &event);
    };
}

/// A plan in a tab of 800 x 600.
struct Opened
{
    explicit Opened(const QByteArray &text)
        : path(write(folder, text)),
          view(tabs.add(std::make_unique<Plan>(PlanSession::Open(path).session)))
    {
        tabs.resize(800, 600);
        tabs.show();
        view->place(ViewPose({150, 75}, 1, 0));
    }
    QTemporaryDir folder;
    QString path;
    PlanTabs tabs;
    PlanView *view;
    DocWindow window{tabs, {}};
};

} // namespace

class TestViewer : public QObject
{
    Q_OBJECT

private slots:
    void posesMapThereAndBack();
    void posesKeepWhatIsFixed();
    void showsWholeAreas();
    void readsViewsFromText_data();
    void readsViewsFromText();
    void namesFaultsOfTheCommandLine_data();
    void namesFaultsOfTheCommandLine();
    void addressesComeBack_data();
    void addressesComeBack();
    void undoesGestures();
    void remembersPlans();
    void readsBackdrops_data();
    void readsBackdrops();
    void readsBinaryBackdrops();
    void packsHoldEverything();
    void takesFormattingOut_data();
    void takesFormattingOut();
    void findsSheets();
    void namesNeighbours_data();
    void namesNeighbours();
    void answersTheControls();
    void returnsToStoredViews();
    void goesToHeights();
    void tilesShowWhatAPaintingShows_data();
    void tilesShowWhatAPaintingShows();
    void turnedPicturesShowTheSame_data();
    void turnedPicturesShowTheSame();
    void wheelKeepsThePlace();
    void followsGestures_data();
    void followsGestures();
    void shippedShortcutsNeverClash();
    void shippedMnemonicsNeverClash_data();
    void shippedMnemonicsNeverClash();
};

void TestViewer::posesMapThereAndBack()
{
    QRandomGenerator random(19);
    const auto between = [&](double low, double high) {
        return low + random.generateDouble() * (high - low);
    };
    for (int i = 0; i < 500; ++i) {
        const QSizeF view(between(1, 3000), between(1, 2000));
        const ViewPose pose({between(-1e6, 6e6), between(-1e6, 6e6)}, between(0.01, 500),
                            between(-400, 400));
        const QPointF pixel(between(-100, 3000), between(-100, 2000));
        const QPointF back = pose.toPixel(pose.toMap(pixel, view), view);
        QVERIFY(QLineF(pixel, back).length() < 1e-4);
        QVERIFY(QLineF(pixel, pose.transform(view).map(pose.toMap(pixel, view))).length() < 1e-2);
    }
    // With the right of the screen to the north, east is below.
    const ViewPose north({0, 0}, 2, 90);
    QCOMPARE(north.toMap({60, 50}, {100, 100}), QPointF(0, 20));
    QCOMPARE(north.toMap({50, 60}, {100, 100}), QPointF(20, 0));
}

void TestViewer::posesKeepWhatIsFixed()
{
    const QSizeF view(800, 600);
    const ViewPose pose({4'468'000, 5'318'000}, 3, 25);
    const QPointF fixed(130, 520);
    const QPointF place = pose.toMap(fixed, view);
    const auto distance = [&](const ViewPose &other) {
        return QLineF(other.toMap(fixed, view), place).length();
    };
    QVERIFY(distance(pose.zoomed(0.3, fixed, view)) < 1e-6);
    QVERIFY(distance(pose.turned(40, fixed, view)) < 1e-6);
    QCOMPARE(pose.turned(40, fixed, view).angle(), 65);
    QCOMPARE(pose.zoomed(0.3, fixed, view).metresPerPixel(), 0.9);
    QVERIFY(QLineF(pose.moved({10, -20}).toMap(fixed + QPointF(10, -20), view), place).length() <
            1e-6);
}

void TestViewer::showsWholeAreas()
{
    const QSizeF view(800, 600);
    const QList<QPointF> area{{0, 0}, {1000, 0}, {1000, 100}, {0, 100}};
    for (const double angle : {0.0, 30.0, 90.0, -135.0}) {
        const ViewPose pose = ViewPose::showing(area, angle, view);
        double closest = 1000;
        for (const QPointF &corner : area) {
            const QPointF pixel = pose.toPixel(corner, view);
            closest = std::min({closest, pixel.x(), pixel.y(), view.width() - pixel.x(),
                                view.height() - pixel.y()});
        }
        QVERIFY2(closest > 5 && closest < 40, qPrintable(QString::number(closest)));
    }
}

void TestViewer::readsViewsFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::optional<WantedView>>("expected");
    QTest::newRow("three numbers")
        << u"1.5,-2,300"_s << std::optional(WantedView{{1.5, -2}, 300, 0});
    QTest::newRow("an angle") << u"1, 2, 3, -45.5"_s << std::optional(WantedView{{1, 2}, 3, -45.5});
    for (const char *text : {"", "1,2", "1,2,0", "1,2,-3", "1,2,3,4,5", "1,x,3", "1,2,inf", "1,,3"})
        QTest::newRow(text) << QString::fromLatin1(text) << std::optional<WantedView>();
}

void TestViewer::readsViewsFromText()
{
    QFETCH(const QString, text);
    QFETCH(const std::optional<WantedView>, expected);
    QCOMPARE(WantedView::fromText(text), expected);
}

void TestViewer::namesFaultsOfTheCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named"); ///< in the fault; empty: there is none
    QTest::newRow("plans alone") << QStringList{u"a.dxf"_s, u"b.dxf"_s} << QString();
    QTest::newRow("a picture") << QStringList{u"--screenshot"_s, u"x.png"_s,  u"--size"_s,
                                              u"640x480"_s,      u"--view"_s, u"1,2,3"_s}
                               << QString();
    QTest::newRow("an unknown option") << QStringList{u"--wide"_s} << u"wide"_s;
    QTest::newRow("a size without height") << QStringList{u"--size"_s, u"640"_s} << u"640"_s;
    QTest::newRow("a picture without a name") << QStringList{u"--screenshot="_s} << u"file"_s;
    QTest::newRow("a size of nothing") << QStringList{u"--size"_s, u"0x5"_s} << u"0x5"_s;
    QTest::newRow("a view of two numbers") << QStringList{u"--view"_s, u"1,2"_s} << u"1,2"_s;
}

void TestViewer::namesFaultsOfTheCommandLine()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, named);
    const CommandLine line = CommandLine::parse(QStringList{u"viewer"_s} + arguments);
    QCOMPARE(line.fault.isEmpty(), named.isEmpty());
    QVERIFY2(line.fault.contains(named), qPrintable(line.fault));
}

void TestViewer::addressesComeBack_data()
{
    QTest::addColumn<QString>("plan");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("a sheet") << u"/p/a.dxf"_s << u"12"_s;
    QTest::newRow("a plan") << u"/p/a.dxf"_s << QString();
    QTest::newRow("signs in the file's name") << u"/p/a#1 100%23.dxf"_s << u"7#b%"_s;
}

void TestViewer::addressesComeBack()
{
    QFETCH(const QString, plan);
    QFETCH(const QString, sheet);
    const SheetAddress address{plan, sheet};
    QCOMPARE(SheetAddress::fromText(address.toText()), address);
}

void TestViewer::undoesGestures()
{
    const ViewPose a({0, 0}, 1, 0);
    const ViewPose b({10, 0}, 1, 0);
    const ViewPose c({20, 0}, 1, 0);
    ViewHistory history;
    history.begin(a);
    history.begin(b); // the same gesture goes on
    history.end(c);
    history.begin(c);
    history.end(c); // led nowhere
    QCOMPARE(history.back(c), a);
    QVERIFY(!history.hasBefore());
    QCOMPARE(history.back(a), a);
    QCOMPARE(history.forth(a), c);
    history.begin(c);
    history.end(b);
    QVERIFY(!history.hasAfter());
    QCOMPARE(history.back(b), c);
}

void TestViewer::remembersPlans()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"settings.ini"_s);
    const PlanState state{ViewPose({4'468'211.3725, 5'318'402.7583}, 1.0 / 3, -33.25), false, true};
    {
        QSettings settings(file, QSettings::IniFormat);
        writePlanState(settings, u"/somewhere/a b;=ä.dxf"_s, state);
    }
    QSettings settings(file, QSettings::IniFormat);
    QCOMPARE(readPlanState(settings, u"/elsewhere/a b;=ä.dxf"_s), std::optional(state));
    QCOMPARE(readPlanState(settings, u"/somewhere/other.dxf"_s), std::optional<PlanState>());
    settings.setValue(u"viewer/plans/a b;=ä.dxf/X"_s, u"far"_s);
    QCOMPARE(readPlanState(settings, u"/a b;=ä.dxf"_s), std::optional<PlanState>());
    QVERIFY(projectOf(u"/a/x.dxf"_s) == projectOf(u"/a/y.dxf"_s));
    QVERIFY(projectOf(u"/a/x.dxf"_s) != projectOf(u"/b/x.dxf"_s));
}

void TestViewer::readsBackdrops_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &entities, const QStringList &expected) {
        QTest::newRow(name) << drawing(entities) << expected;
    };
    const QByteArray line = entity("LINE", {{10, "1"}, {20, " 2 "}, {11, "+3"}, {21, "4e0"}});
    row("a line", line, {u"1,2-3,4"_s});
    QTest::newRow("lines end in CR LF")
        << drawing(line).replace("\n", "\r\n") << QStringList{u"1,2-3,4"_s};
    QTest::newRow("a plan that ends in the midst")
        << drawing(line).left(drawing(line).size() - 16) << QStringList{u"1,2-3,4"_s};
    row("paper space is left out", entity("LINE", {{67, "1"}, {10, "1"}, {20, "2"}}) + line,
        {u"1,2-3,4"_s});
    row("a closed polyline of the new kind",
        entity("LWPOLYLINE", {{90, "99999999"},
                              {70, "1"},
                              {10, "0"},
                              {20, "0"},
                              {10, "5"},
                              {20, "0"},
                              {10, "5"},
                              {20, "5"}}),
        {u"0,0-5,0"_s, u"5,0-5,5"_s, u"5,5-0,0"_s});
    row("a polyline of the old kind, without the frame of its curve",
        entity("POLYLINE", {{66, "1"}, {70, "4"}}) +
            entity("VERTEX", {{10, "0"}, {20, "0"}, {70, "0"}}) +
            entity("VERTEX", {{10, "9"}, {20, "9"}, {70, "16"}}) +
            entity("VERTEX", {{10, "1"}, {20, "0"}}) + pair(0, "SEQEND"),
        {u"0,0-1,0"_s});
    row("meshes are left out, and their vertices",
        entity("POLYLINE", {{66, "1"}, {70, "64"}}) + entity("VERTEX", {{10, "0"}, {20, "0"}}) +
            entity("VERTEX", {{10, "1"}, {20, "0"}}) + pair(0, "SEQEND") + line,
        {u"1,2-3,4"_s});
    row("a bulge of 1 is a half circle, counter-clockwise",
        entity("LWPOLYLINE",
               {{90, "2"}, {70, "0"}, {10, "0"}, {20, "0"}, {42, "1"}, {10, "2"}, {20, "0"}}),
        {u"arc 1,0 r1 180..360"_s});
    row("a negative one goes clockwise",
        entity("LWPOLYLINE", {{90, "2"},
                              {70, "0"},
                              {10, "0"},
                              {20, "0"},
                              {42, "-0.41421356237309503"},
                              {10, "2"},
                              {20, "0"}}),
        {u"arc 1,-1 r1.41421 45..135"_s});
    row("arcs and circles",
        entity("ARC", {{10, "1"}, {20, "2"}, {40, "3"}, {50, "350"}, {51, "10"}}) +
            entity("CIRCLE", {{10, "1"}, {20, "2"}, {40, "4"}}),
        {u"arc 1,2 r3 350..-350"_s, u"arc 1,2 r4 0..360"_s}); // modulo two turns
    row("an arc seen from below",
        entity("ARC", {{10, "1"}, {20, "2"}, {40, "3"}, {50, "0"}, {51, "90"}, {230, "-1"}}),
        {u"arc -1,2 r3 90..180"_s});
    row("texts, aligned ones by their second point",
        entity("TEXT", {{10, "1"}, {20, "2"}, {40, "3"}, {1, "left"}}) +
            entity("TEXT",
                   {{10, "1"}, {20, "2"}, {11, "5"}, {21, "6"}, {40, "3"}, {72, "1"}, {1, "mid"}}),
        {u"text 1,2 3 left"_s, u"text 5,6 3 mid"_s});
    row("a text of two lines, in pieces",
        entity("MTEXT",
               {{10, "0"}, {20, "10"}, {40, "3"}, {71, "1"}, {3, "{\\fArial;on"}, {1, "e}\\Ptwo"}}),
        {u"text 0,10 3 one"_s, u"text 0,5 3 two"_s});
    row("numbers that are none, and lines longer than the parser takes",
        entity("LINE", {{10, "nan"}, {20, "x"}, {11, "1"}, {21, "2"}}) +
            entity("TEXT", {{10, "1"}, {20, "2"}, {40, "3"}, {1, QByteArray(50'000, 'a')}}) +
            entity("HATCH", {{1, QByteArray(2'000, 'b')}}) + line,
        {u"0,0-1,2"_s, u"1,2-3,4"_s, u"text 1,2 3 "_s + QString(900, u'a')});
    QTest::newRow("no plan at all") << QByteArray("hello\nworld\n") << QStringList();
}

void TestViewer::readsBackdrops()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QStringList, expected);
    const QTemporaryDir folder;
    Backdrop backdrop;
    BackdropReader reader(write(folder, text), backdrop);
    int ends = 0;
    connect(&reader, &BackdropReader::finished, &reader, [&] { ++ends; });
    reader.read(-1);
    QCOMPARE(noted(backdrop), expected);
    QVERIFY(reader.isDone());
    QCOMPARE(ends, 1);
}

void TestViewer::readsBinaryBackdrops()
{
    const auto code = [](int number) { return QByteArray(1, char(number)) + '\0'; };
    const auto text = [&](int number, const char *value) { return code(number) + value + '\0'; };
    const auto real = [&](int number, double value) {
        return code(number) + QByteArray(reinterpret_cast<const char *>(&value), 8);
    };
    const QByteArray bytes = QByteArray("AutoCAD Binary DXF\r\n\x1a\0", 22) + text(0, "SECTION") +
                             text(2, "ENTITIES") + text(0, "LINE") + code(62) +
                             QByteArray("\x07\0", 2) + real(10, 1.5) + real(20, 2) + real(11, -3) +
                             real(21, 4) + text(0, "ENDSEC") + text(0, "EOF");
    const QTemporaryDir folder;
    Backdrop backdrop;
    BackdropReader(write(folder, bytes), backdrop).read(-1);
    QCOMPARE(noted(backdrop), QStringList{u"1.5,2--3,4"_s});
}

/// Three batches of lines, far from the origin: none is lost, none has moved.
void TestViewer::packsHoldEverything()
{
    Backdrop backdrop;
    QRandomGenerator random(7);
    double lengths = 0;
    constexpr int kLines = 150'000;
    for (int i = 0; i < kLines; ++i) {
        const QPointF from(4e6 + random.generateDouble() * 1e4,
                           5e6 + random.generateDouble() * 1e4);
        const double longer = i % 100 == 0 ? 5000 : 10;
        const QPointF to =
            from + QPointF(random.generateDouble(), random.generateDouble()) * longer;
        lengths += QLineF(from, to).length();
        backdrop.addLine(from, to);
    }
    backdrop.addLine({NAN, 0}, {1, 1});
    backdrop.finish();
    double found = 0;
    for (const BackdropPack &pack : backdrop.packs())
        for (const BackdropLine &line : backdrop.lines(pack)) {
            const QPointF from = pack.origin + QPointF(double(line.x1), double(line.y1));
            const QPointF to = pack.origin + QPointF(double(line.x2), double(line.y2));
            QVERIFY(pack.bounds.rect().adjusted(-0.01, -0.01, 0.01, 0.01).contains(from));
            found += QLineF(from, to).length();
        }
    QCOMPARE(backdrop.lineCount(), std::size_t{kLines});
    QVERIFY(std::abs(found - lengths) < 1e-6 * lengths);
    QVERIFY(backdrop.bytes() < std::size_t{kLines} * 20);
}

void TestViewer::takesFormattingOut_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArrayList>("expected");
    const auto row = [](const char *text, const QByteArrayList &expected) {
        QTest::newRow(text) << QByteArray(text) << expected;
    };
    row("plain", {"plain"});
    row("a\\Pb\\P", {"a", "b", ""});
    row("{\\fArial|b1;bold} \\H2.5x;\\C1;red", {"bold red"});
    row("\\S1^2; \\S3#4;", {"1/2 3/4"});
    row("a\\~b \\\\ \\{x\\} \\Lline\\l", {"a b \\ {x} line"});
    row("\\U+00DC \\M+1889F", {"\\U+00DC \\M+1889F"});
    row("open \\fArial", {"open "});
    row("end\\", {"end\\"});
}

void TestViewer::takesFormattingOut()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArrayList, expected);
    QCOMPARE(plainLines(text), expected);
}

void TestViewer::findsSheets()
{
    Opened opened(planOfSheets(40, 30));
    const SheetLayer &sheets = opened.view->plan().sheets();
    QCOMPARE(sheets.count(), 1200);
    QCOMPARE(sheets.bounds().rect(), QRectF(0, 0, 4000, 1500));
    QRandomGenerator random(3);
    for (int i = 0; i < 300; ++i) {
        const QPointF place(random.bounded(4000.0), random.bounded(1500.0));
        const auto sheet = sheets.sheetAt(place);
        const int expected = int(place.y() / 50) * 40 + int(place.x() / 100) + 1;
        QVERIFY(sheet);
        QCOMPARE(sheets.number(*sheet), QString::number(expected));
        QCOMPARE(sheets.sheetWithNumber(QString::number(expected)), sheet);
        QCOMPARE(sheets.frame(*sheet).pageSize(), QSizeF(100, 50));
    }
    QVERIFY(!sheets.sheetAt({-1, 10}));
    QVERIFY(!sheets.sheetWithNumber(u"1201"_s));
}

void TestViewer::namesNeighbours_data()
{
    QTest::addColumn<Side>("side");
    QTest::addColumn<QString>("number"); ///< beside sheet 5 of 3 x 3, whose first is bottom left
    QTest::newRow("top") << Side::Top << u"8"_s;
    QTest::newRow("top right") << Side::TopRight << u"9"_s;
    QTest::newRow("right") << Side::Right << u"6"_s;
    QTest::newRow("bottom right") << Side::BottomRight << u"3"_s;
    QTest::newRow("bottom") << Side::Bottom << u"2"_s;
    QTest::newRow("bottom left") << Side::BottomLeft << u"1"_s;
    QTest::newRow("left") << Side::Left << u"4"_s;
    QTest::newRow("top left") << Side::TopLeft << u"7"_s;
}

void TestViewer::namesNeighbours()
{
    QFETCH(const Side, side);
    QFETCH(const QString, number);
    Opened opened(planOfSheets(3, 3));
    const auto neighbours = opened.window.Neighbours(opened.view, side);
    QCOMPARE(neighbours.Size(), 1);
    QCOMPARE(neighbours[0].title, number);
    QVERIFY(opened.window.ShowDocument(opened.view, neighbours[0]));
    QCOMPARE(opened.window.CurrentDocument(opened.view).title, number);
}

/// Of a turned view: the page, the map and the pixels agree.
void TestViewer::answersTheControls()
{
    Opened opened(planOfSheets(3, 3));
    PlanView *view = opened.view;
    QCOMPARE(DocWindowXIfc::HInstance()->PrimaryView(), view);
    view->go(ViewPose({150, 75}, 0.2, 30));
    QRectF page;
    QVERIFY(opened.window.DocPageRect(view, page));
    QCOMPARE(page, QRectF(0, 0, 100, 50));
    DocWindowXIfc::UCoord coord;
    coord.geoPoint = {100, 100}; // the page's top left
    QVERIFY(opened.window.GeoToDevice(view, coord));
    QVERIFY(opened.window.DeviceToDocument(view, coord));
    QVERIFY(QLineF(coord.docPoint, {0, 0}).length() < 0.3);
    QVERIFY(opened.window.DeviceToGeo(view, coord));
    QVERIFY(QLineF(coord.geoPoint, {100, 100}).length() < 0.3);
    coord.docPoint = {100, 50}; // and its bottom right
    QVERIFY(opened.window.DocumentToDevice(view, coord));
    QVERIFY(opened.window.DeviceToGeo(view, coord));
    QVERIFY(QLineF(coord.geoPoint, {200, 50}).length() < 0.3);
    double angle = 0;
    QVERIFY(NorthAngle(view, angle));
    QVERIFY(std::abs(angle - 30) < 0.2);
    QVERIFY(opened.window.TurnBy(view, 15));
    QCOMPARE(view->pose().angle(), 45.0);
    QVERIFY(opened.window.ShowWholePage(view, DocWindowXIfc::PageTurn::Upright));
    QCOMPARE(view->pose().angle(), 0.0);
    QWidget stranger;
    QVERIFY(!opened.window.DocPageRect(&stranger, page));
    QVERIFY(!opened.window.ZoomBy(view, 0));
    opened.tabs.close(view);
    QVERIFY(!opened.window.PrimaryView());
}

void TestViewer::returnsToStoredViews()
{
    Opened opened(planOfSheets(3, 3));
    opened.view->go(ViewPose({230, 20}, 0.4, 35));
    const auto item = opened.window.CurrentDocument(opened.view);
    QCOMPARE(item.title, u"3"_s);
    const double scale = MapScale(opened.view);
    opened.view->go(ViewPose({10, 140}, 2, -80));
    QVERIFY(opened.window.ShowDocument(opened.view, item));
    QCOMPARE(opened.view->pose().middle(), QPointF(230, 20));
    QCOMPARE(opened.view->pose().angle(), 35.0);
    QVERIFY(std::abs(MapScale(opened.view) / scale - 1) < 1e-3);
    auto missing = item;
    missing.fileName = SheetAddress{opened.path, u"99"_s}.toText();
    QVERIFY(!opened.window.ShowDocument(opened.view, missing));
    QCOMPARE(opened.view->pose().middle(), QPointF(230, 20));
}

void TestViewer::goesToHeights()
{
    Opened opened(planOfSheets(3, 3));
    for (const double height : {3.0, 250.0, 80'000.0}) {
        QVERIFY(goTo(*opened.view, {{120, 60}, height, -20}));
        QVERIFY(std::abs(EstimatedHeightAboveGroundLevelS(opened.view) / height - 1) < 1e-3);
        QCOMPARE(opened.view->pose().middle(), QPointF(120, 60));
    }
    opened.view->goBack();
    QVERIFY(std::abs(EstimatedHeightAboveGroundLevelS(opened.view) / 250 - 1) < 1e-3);
}

void TestViewer::tilesShowWhatAPaintingShows_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("ratio");
    QTest::newRow("upright") << 0.0 << 1.0;
    QTest::newRow("turned") << 33.0 << 1.0;
    QTest::newRow("on a fine screen") << 0.0 << 2.0;
}

/// Painted in tiles and shifted, a view is the same as painted in one piece.
void TestViewer::tilesShowWhatAPaintingShows()
{
    QFETCH(const double, angle);
    QFETCH(const double, ratio);
    QByteArray lines;
    for (int i = 0; i < 200; ++i)
        lines += entity("LINE", {{10, QByteArray::number(i)},
                                 {20, "0"},
                                 {11, QByteArray::number(300 - i)},
                                 {21, "150"}});
    const Opened opened(planOfSheets(3, 3, lines));
    opened.view->plan().readBackdrop();
    opened.view->plan().backdropReader()->read(-1);
    const SceneColors colors = SceneColors::of(QPalette(Qt::lightGray, Qt::lightGray));
    const QSize size(640, 480);
    const QSize pixels = size * ratio;
    PictureStore store(opened.view->plan().scene());
    store.setColors(colors);
    store.setView(ViewPose({150, 75}, 0.5, angle), size, ratio);
    store.work(-1);
    const ViewPose pose = ViewPose({150, 75}, 0.5, angle).moved({37, -21});
    store.setView(pose, size, ratio);
    QVERIFY(!store.isComplete());
    store.work(-1);
    QVERIFY(store.isComplete());
    QImage tiles(pixels, QImage::Format_RGB32);
    QPainter painter(&tiles);
    store.paint(painter);
    painter.end();
    ScenePainting whole(opened.view->plan().scene(), colors,
                        pose.transform(size) * QTransform::fromScale(ratio, ratio), pixels, ratio);
    QVERIFY(whole.paint(QDeadlineTimer(QDeadlineTimer::Forever)));
    const QImage expected = whole.takeImage();
    int different = 0;
    int inked = 0;
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x) {
            different += qAbs(qGray(tiles.pixel(x, y)) - qGray(expected.pixel(x, y))) > 80;
            inked += expected.pixel(x, y) != colors.paper.rgb();
        }
    QVERIFY(inked > 20'000);
    QVERIFY2(different < inked / 100, qPrintable(QString::number(different)));
}

void TestViewer::turnedPicturesShowTheSame_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("scale");
    QTest::newRow("turned a little") << 7.0 << 1.0;
    QTest::newRow("turned by a quarter") << 90.0 << 1.0;
    QTest::newRow("turned around") << 180.0 << 1.0;
    QTest::newRow("zoomed out, beyond the picture's edges") << 0.0 << 1.4;
    QTest::newRow("turned far and zoomed in") << -135.0 << 0.7;
}

/// Before anything is painted anew, ink is where it will be, give or take a pixel.
void TestViewer::turnedPicturesShowTheSame()
{
    QFETCH(const double, angle);
    QFETCH(const double, scale);
    const Opened opened(planOfSheets(3, 3));
    const SceneColors colors = SceneColors::of(QPalette(Qt::lightGray, Qt::lightGray));
    const QSize size(640, 480);
    PictureStore store(opened.view->plan().scene());
    store.setColors(colors);
    store.setView(ViewPose({150, 75}, 0.8, 0), size, 1);
    QImage shown(size, QImage::Format_RGB32);
    QPainter early(&shown); // when there is no picture at all yet
    store.paint(early);
    early.end();
    QCOMPARE(shown.pixel(320, 240), colors.paper.rgb());
    store.work(-1);
    const ViewPose pose({150, 75}, 0.8 * scale, angle);
    store.setView(pose, size, 1);
    QPainter painter(&shown);
    store.paint(painter);
    painter.end();
    ScenePainting whole(opened.view->plan().scene(), colors, pose.transform(size), size, 1);
    QVERIFY(whole.paint(QDeadlineTimer(QDeadlineTimer::Forever)));
    const QImage expected = whole.takeImage();
    const auto hasInk = [&](const QImage &image, int x, int y) {
        return qGray(image.pixel(x, y)) < qGray(colors.paper.rgb()) - 60;
    };
    int inked = 0;
    int found = 0;
    for (int y = 3; y < size.height() - 3; ++y)
        for (int x = 3; x < size.width() - 3; ++x) {
            if (!hasInk(expected, x, y))
                continue;
            ++inked;
            bool isNear = false;
            for (int i = 0; i < 49 && !isNear; ++i)
                isNear = hasInk(shown, x + i % 7 - 3, y + i / 7 - 3);
            found += isNear;
        }
    QVERIFY(inked > 1500);
    QVERIFY2(found > inked * 8 / 10, qPrintable(u"%1 of %2"_s.arg(found).arg(inked)));
}

void TestViewer::wheelKeepsThePlace()
{
    Opened opened(planOfSheets(3, 3));
    PlanView *view = opened.view;
    const ViewPose start = view->pose();
    const QPointF pixel(200, 100);
    const QPointF place = start.toMap(pixel, view->size());
    for (int i = 0; i < 3; ++i) {
        QWheelEvent event(pixel, view->mapToGlobal(pixel), {}, {0, 40}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &event);
    }
    QVERIFY(view->pose().metresPerPixel() < start.metresPerPixel() * 0.85);
    QVERIFY(QLineF(view->pose().toMap(pixel, view->size()), place).length() < 1e-6);
    QTest::keyClick(view, Qt::Key_Left);
    QTest::keyClick(view, Qt::Key_PageDown);
    QCOMPARE(view->pose().angle(), 15.0);
    view->goBack(); // all that came in one go
    QCOMPARE(view->pose(), start);
}

void TestViewer::followsGestures_data()
{
    QTest::addColumn<QList<Input>>("inputs");
    QTest::addColumn<double>("scale"); ///< metres a pixel; 1 at first
    QTest::addColumn<double>("angle");
    QTest::addColumn<QPointF>("way"); ///< of what lay under the pointer, in pixels
    const QPointF rest;
    QTest::newRow("two fingers move, and the picture rolls on")
        << QList<Input>{scroll({}, {}, Qt::ScrollBegin),
                        scroll({30, -20}, {60, -40}, Qt::ScrollUpdate),
                        scroll({5, 1}, {10, 2}, Qt::ScrollUpdate), scroll({}, {}, Qt::ScrollEnd),
                        scroll({2, 0}, {4, 0}, Qt::ScrollMomentum)}
        << 1.0 << 0.0 << QPointF(37, -19);
    QTest::newRow("a pad whose system tells no phases moves, too")
        << QList<Input>{scroll({30, -20}, {60, -40}, Qt::NoScrollPhase)} << 1.0 << 0.0
        << QPointF(30, -20);
    QTest::newRow("with Control they zoom in small steps")
        << QList<Input>(5, scroll({0, 60}, {0, 120}, Qt::ScrollUpdate, Qt::ControlModifier)) << 0.8
        << 0.0 << rest;
    QTest::newRow("a pad that counts no pixels zooms")
        << QList<Input>{scroll({}, {0, 120}, Qt::ScrollUpdate)} << 0.8 << 0.0 << rest;
    QTest::newRow("a wheel zooms, even when pixels are told")
        << QList<Input>{scroll({0, 15}, {0, 120}, Qt::NoScrollPhase, {},
                               QPointingDevice::primaryPointingDevice())}
        << 0.8 << 0.0 << rest;
    QTest::newRow("fingers that part zoom in")
        << QList<Input>{gesture(Qt::BeginNativeGesture), gesture(Qt::ZoomNativeGesture, 0.25),
                        gesture(Qt::ZoomNativeGesture, 0.6), gesture(Qt::EndNativeGesture)}
        << 0.5 << 0.0 << rest;
    QTest::newRow("and those that meet at once stop in time")
        << QList<Input>{gesture(Qt::ZoomNativeGesture, -5)} << 10.0 << 0.0 << rest;
    QTest::newRow("fingers that turn and move meanwhile")
        << QList<Input>{gesture(Qt::BeginNativeGesture), gesture(Qt::RotateNativeGesture, 12),
                        gesture(Qt::PanNativeGesture, 0, {8, 3}), gesture(Qt::ZoomNativeGesture, 0),
                        gesture(Qt::EndNativeGesture)}
        << 1.0 << 12.0 << QPointF(8, 3);
    QTest::newRow("a key that is held moves on and on")
        << QList<Input>{hold(Qt::Key_Left, 2)} << 1.0 << 0.0 << QPointF(360, 0);
}

/// All that is done in one go is one step back.
void TestViewer::followsGestures()
{
    QFETCH(const QList<Input>, inputs);
    QFETCH(const double, scale);
    QFETCH(const double, angle);
    QFETCH(const QPointF, way);
    Opened opened(planOfSheets(3, 3));
    PlanView *view = opened.view;
    const ViewPose start = view->pose();
    const QPointF place = start.toMap(kPointer, view->size());
    for (const Input &input : inputs)
        input(*view);
    QCOMPARE(view->pose().metresPerPixel(), scale);
    QCOMPARE(view->pose().angle(), angle);
    QVERIFY(QLineF(view->pose().toPixel(place, view->size()), kPointer + way).length() < 1e-6);
    view->goBack();
    QCOMPARE(view->pose(), start);
    QVERIFY(!view->canGoBack());
}

/// Whatever the context. A reserved sequence may be a function's own, but not begin its keys.
void TestViewer::shippedShortcutsNeverClash()
{
    ActionManager registry;
    const ViewerActions actions(registry);
    MenuConfigManager configuration;
    configuration.SetUpActions(registry);
    const ActionShortCutList &defaults = configuration.GetDefaultKeyboardShortcutList();
    std::vector<int> ids;
    defaults.GetActionIds(ids);
    QVERIFY(!ids.empty());
    for (const int id : ids) {
        const QKeySequence keys = defaults.GetSequenceById(id);
        for (const int other : ids) {
            if (other != id && keys.matches(defaults.GetSequenceById(other)))
                QFAIL(qPrintable(u"%1 and %2: %3"_s.arg(id).arg(other).arg(keys.toString())));
        }
        for (const QKeySequence &reserved :
             configuration.GetReservedSequenceList().GetSequences()) {
            const bool isInTheWay = keys.matches(reserved) == QKeySequence::PartialMatch ||
                                    reserved.matches(keys) == QKeySequence::PartialMatch;
            QVERIFY2(!isInTheWay, qPrintable(keys.toString() + u' ' + reserved.toString()));
        }
    }
}

void TestViewer::shippedMnemonicsNeverClash_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("English") << QLocale(QLocale::English);
    QTest::newRow("German") << QLocale(QLocale::German);
}

/// Not in one menu, nor in the bar, nor in the context menu.
void TestViewer::shippedMnemonicsNeverClash()
{
    QFETCH(const QLocale, locale);
    InstallTranslation(locale);
    const auto english = qScopeGuard([] { InstallTranslation(QLocale(QLocale::English)); });
    QCOMPARE(InstalledTranslation(), locale.name().left(2));
    ActionManager registry;
    const ViewerActions actions(registry);
    QMenuBar bar;
    RecentPlans recent;
    actions.fill(bar, recent);
    QMenu context;
    FillContextMenu(context, registry, ViewerActions::shippedLayout(),
                    FilterByContextId(kPlanIsOpen, kOnSheet, -1));
    QList<QWidget *> menus{&bar, &context};
    for (QMenu *menu : bar.findChildren<QMenu *>())
        menus << menu;
    QCOMPARE(menus.size(), 7);
    for (const QWidget *menu : menus) {
        QHash<QKeySequence, QString> texts;
        for (const QAction *action : menu->actions()) {
            const QKeySequence letter = QKeySequence::mnemonic(action->text());
            QVERIFY2(!texts.contains(letter),
                     qPrintable(action->text() + " and "_L1 + texts.value(letter)));
            if (!letter.isEmpty())
                texts[letter] = action->text();
        }
    }
}

QTEST_MAIN(TestViewer)
#include "tst_viewer.moc"
