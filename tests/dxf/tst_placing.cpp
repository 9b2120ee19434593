// SPDX-License-Identifier: GPL-2.0-or-later
// Sheets lie where their inserts put them, by tables and by a second way to the same matrices; and
// users learn of positions that do not count.
#include "tests/dxf/plan.h"
#include "tests/support/PlanPairs.h"
#include <QtTest>
#include <cmath>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetPlacing.h>
#include <numbers>

using namespace Qt::Literals::StringLiterals;

namespace {

/// In polar form: turned as an angle is added, not by a matrix.
DxfVertex turned(DxfVertex point, double degrees)
{
    const double radius = std::hypot(point.x, point.y);
    const double angle = std::atan2(point.y, point.x) + degrees * std::numbers::pi / 180;
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

const QByteArray kDrawn = "0 LWPOLYLINE|90 4|70 1|10 10|20 20|10 13|20 20|10 13|20 22|10 10|20 22";

/// A plan whose one block is a frame of 3 x 2 at (10, 20), or @p block, inserted as told.
QByteArray planOf(const QByteArray &insert, const QByteArray &block = kDrawn)
{
    return asciiPlan(pairsOf("0 SECTION|2 BLOCKS|0 BLOCK|2 A|" + block +
                             "|0 ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|2 A|" + insert +
                             "|0 ATTRIB|2 BL_NR|1 #|0 SEQEND|0 ENDSEC|0 EOF"));
}

DxfReadResult read(QByteArray plan)
{
    QBuffer buffer(&plan);
    buffer.open(QIODevice::ReadOnly);
    return ReadDxf(buffer, u"plan.dxf"_s);
}

PlanOpening openPlaced(QByteArray plan)
{
    QBuffer buffer(&plan);
    buffer.open(QIODevice::ReadOnly);
    return PlanSession::Open(buffer, u"plan.dxf"_s, {.filter = {}, .appliesPlacement = true});
}

/// The corners as they go into the file: "x y, ..." for each sheet from top left clockwise.
QStringList cornersOf(const DxfDrawing &drawing, const std::vector<quint32> &sheets)
{
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    const qint64 written = WriteGk2(buffer, drawing, sheets).written;
    QStringList lines;
    for (const QByteArray &record : text.split('#').sliced(1))
        lines << QString::fromLatin1(record.simplified()).replace(",00"_L1, ""_L1);
    return written == 0 ? QStringList() : lines;
}

} // namespace

class TestPlacing : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithAnotherWayToTheMatrices()
    {
        QRandomGenerator random(14);
        const auto number = [&random](double most) {
            return (random.generateDouble() - 0.5) * most;
        };
        for (int round = 0; round < 20'000; ++round) {
            DxfPlacement placement{.position = {number(1e4), number(1e4)},
                                   .scaleX = number(8),
                                   .scaleY = number(8),
                                   .angle = 90.0 * random.bounded(-9, 9),
                                   .columnSpacing = number(100),
                                   .rowSpacing = number(100),
                                   .columns = 9,
                                   .rows = 9};
            if (round % 3 != 0)
                placement.angle = number(1500);
            const bool isBelow = random.bounded(2) == 0;
            placement.plane =
                isBelow ? DxfPlacement::Plane::Downwards : DxfPlacement::Plane::Upwards;
            const DxfVertex base{number(50), number(50)};
            const DxfVertex point{number(50), number(50)};
            const int column = random.bounded(9);
            const int row = random.bounded(9);
            const DxfVertex scaled{placement.scaleX * (point.x - base.x),
                                   placement.scaleY * (point.y - base.y)};
            const DxfVertex inPlane = turned({scaled.x + column * placement.columnSpacing,
                                              scaled.y + row * placement.rowSpacing},
                                             placement.angle);
            // The plane seen from below has its x axis turned round, and the position lies in it.
            const double x = inPlane.x + placement.position.x;
            const double y = inPlane.y + placement.position.y;
            const DxfVertex given = MapOf(placement, base, column, row)(point);
            QVERIFY2(std::abs(given.x - (isBelow ? -x : x)) < 1e-8, QByteArray::number(round));
            QVERIFY2(std::abs(given.y - y) < 1e-8, QByteArray::number(round));
        }
    }

    void placesBeforeLabelling()
    {
        const auto row = [](const char *name, const QByteArray &insert, const QStringList &corners,
                            const QByteArray &block = kDrawn) {
            PlacingResult placed = PlaceInserts(read(planOf(insert, block)).drawing);
            QVERIFY2(placed && placed.drawing.IsPlaced(), name);
            LabelSheets(placed.drawing, CornerOrder::Upright);
            const QStringList given = cornersOf(placed.drawing, allInserts(placed.drawing));
            QVERIFY2(given == corners, name + (": " + given.join(u'|').toUtf8()));
        };
        row("an insert at the origin moves nothing", "10 0|20 0", {u"10 22 13 22 13 20 10 20"_s});
        row("an insert without a position moves nothing", "8 0", {u"10 22 13 22 13 20 10 20"_s});
        row("the insertion point moves", "10 100|20 -100", {u"110 -78 113 -78 113 -80 110 -80"_s});
        row("scales apply to each axis", "41 2|42 10", {u"20 220 26 220 26 200 20 200"_s});
        row("a quarter turn is exact, and labels follow the turned sheet", "50 90",
            {u"-22 13 -20 13 -20 10 -22 10"_s});
        row("a half turn", "50 -180", {u"-13 -20 -10 -20 -10 -22 -13 -22"_s});
        row("a small turn keeps the labels on the sheet", "50 36.86989764584402|10 100",
            {u"94,80 23,60 97,20 25,40 98,40 23,80 96 22"_s});
        row("mirrored by a negative scale", "41 -1", {u"-13 22 -10 22 -10 20 -13 20"_s});
        row("mirrored upside down", "42 -1", {u"10 -20 13 -20 13 -22 10 -22"_s});
        row("seen from below, position and all", "10 100|20 1|210 0|220 0|230 -1",
            {u"-113 23 -110 23 -110 21 -113 21"_s});
        row("from below and turned", "50 90|10 100|230 -1", {u"-80 13 -78 13 -78 10 -80 10"_s});
        row("the base point lies on the insertion point", "10 5|20 6|41 2|42 2",
            {u"5 10 11 10 11 6 5 6"_s}, "10 10|20 20|" + kDrawn);
        row("rows and columns are sheets of their own", "70 2|71 2|44 5|45 -4|41 2",
            {u"20 22 26 22 26 20 20 20"_s, u"25 22 31 22 31 20 25 20"_s,
             u"20 18 26 18 26 16 20 16"_s, u"25 18 31 18 31 16 25 16"_s});
        row("columns turn with the insert", "70 2|44 5|50 90",
            {u"-22 13 -20 13 -20 10 -22 10"_s, u"-22 18 -20 18 -20 15 -22 15"_s});
        row("a count of none is one", "70 0|71 -3|44 5", {u"10 22 13 22 13 20 10 20"_s});
        row("a turned frame scaled askew is no rectangle any more", "41 2", {u""_s},
            "0 LWPOLYLINE|90 4|70 1|10 0|20 0|10 4|20 3|10 1|20 7|10 -3|20 4");
        row("a rhomb scaled upright is one", "42 0.5", {u"0 0 10 10 20 0 10 -10"_s},
            "0 LWPOLYLINE|90 4|70 1|10 0|20 0|10 10|20 -20|10 20|20 0|10 10|20 20");
        row("a frame that is drawn from below lies mirrored", "10 100",
            {u"87 22 90 22 90 20 87 20"_s}, kDrawn + "|230 -1");
        row("so does a polyline of the old kind", "10 100", {u"87 22 90 22 90 20 87 20"_s},
            "0 POLYLINE|70 1|230 -1|0 VERTEX|10 10|20 20|0 VERTEX|10 13|20 20|0 VERTEX|10 13|20 22|"
            "0 VERTEX|10 10|20 22|0 SEQEND");
        row("what is no frame is left out", "10 100", {u"110 22 113 22 113 20 110 20"_s},
            "0 LWPOLYLINE|10 0|20 0|10 9|20 9|" + kDrawn);
    }

    void keepsWhatCannotBePlaced()
    {
        const auto row = [](const QByteArray &insert, const QString &why) {
            PlacingResult placed = PlaceInserts(read(planOf(insert)).drawing);
            QVERIFY2(placed, insert);
            const auto analysis = AnalyzeSheets(placed.drawing, {}, CornerOrder::Upright, {});
            QCOMPARE(cornersOf(placed.drawing, analysis->sheets), {u"10 22 13 22 13 20 10 20"_s});
            QVERIFY2(analysis->diagnostics.size() == 1 && analysis->warnings == 1, insert);
            const PlanFinding &told = analysis->diagnostics[0];
            QVERIFY2(told.text.contains(why) && told.subject == u"#"_s, qPrintable(told.text));
        };
        row("230 0.5|210 0.5|10 3", u"is tilted"_s);
        row("230 0|210 1|10 3", u"is tilted"_s);
        row("10 x|20 3", u"no usable number"_s);
        row("50 nan", u"no usable number"_s);
        row("41 1e308|42 9", u"no usable number"_s); // a place beyond all numbers
    }

    void tellsOfPositionsThatDoNotCount()
    {
        /// Empty where there is nothing to tell.
        const auto row = [](const QByteArray &inserts, const QString &note) {
            DxfReadResult plan = read(planOf(inserts));
            auto analysis = AnalyzeSheets(plan.drawing, {}, CornerOrder::Upright, {});
            QVERIFY2(analysis->diagnostics.size() == (note.isEmpty() ? 0 : 1), inserts);
            QCOMPARE(analysis->warnings, 0);
            for (const PlanFinding &told : analysis->diagnostics) {
                QVERIFY2(told.text.startsWith(note) && told.text.contains("(--placed)"_L1),
                         qPrintable(told.text));
                QCOMPARE(told.severity, PlanFinding::Severity::Note);
            }
            PlacingResult placed = PlaceInserts(plan.drawing);
            analysis = AnalyzeSheets(placed.drawing, {}, CornerOrder::Upright, {});
            for (const PlanFinding &told : analysis->diagnostics)
                QVERIFY2(!told.text.contains("--placed"_L1), qPrintable(told.text));
        };
        row("50 360|41 1", {}); // moves nothing
        for (const char *moved : {"10 1", "50 90", "41 -1", "71 2", "230 -1"})
            row(moved, u"A sheet is moved, turned or scaled by its insert"_s);
        row("10 1|0 ATTRIB|2 BL_NR|1 6|0 INSERT|2 A|10 900",
            u"2 sheets have the same corners as others"_s);
    }

    // Sheets without block or polyline, several of one bad block, and the place of each attribute.
    void sharesNothingThatSheetsWouldLose()
    {
        DxfDrawingBuilder plan;
        addBlock(plan, "empty", {});
        addBlock(plan, "sheet", {kFrame});
        addBlock(plan, "bad", {kFrame, kFrame});
        for (const char *block : {"empty", "sheet", "nowhere", "bad", "sheet", "bad", "empty"})
            addInsert(plan, block, {{"BL_NR", "7"}, {"TYP", block}});
        const DxfDrawing drawing = plan.take();
        PlacingResult placed = PlaceInserts(drawing);
        QVERIFY(bool(placed));
        QCOMPARE(placed.drawing.Inserts().size(), drawing.Inserts().size());
        for (std::size_t i = 0; i < drawing.Inserts().size(); ++i) {
            const DxfInsert &insert = placed.drawing.Inserts()[i];
            QCOMPARE(placed.drawing.FindAttribute(insert, "TYP"), drawing.BlockName(insert));
            QCOMPARE(placed.drawing.BlockOf(insert) != nullptr,
                     drawing.BlockOf(drawing.Inserts()[i]) != nullptr);
        }
        const auto analysis = AnalyzeSheets(placed.drawing, {}, CornerOrder::Upright, {});
        const auto isOfFrames = [](const PlanFinding &d) {
            return d.text.startsWith("Rectangle"_L1);
        };
        QCOMPARE(std::ranges::count_if(analysis->diagnostics, isOfFrames), 1);
        QCOMPARE(analysis->sheets.size(), 4U);
    }

    void refusesPlansThatBecomeTooLarge()
    {
        const QByteArray large = planOf("70 32767|71 32767|44 5|45 5");
        const PlacingResult placed = PlaceInserts(read(large).drawing);
        QVERIFY(placed.tooLarge && placed.drawing.Inserts().empty());
        const DxfReadResult small = read(planOf("10 100"));
        QVERIFY(PlaceInserts(small.drawing, [](qint64, qint64) { return false; }).cancelled);
        const PlanOpening opening = openPlaced(large);
        QVERIFY(!opening && opening.error->message.contains(u"too many sheets"_s));
    }

    void changesItsMindInASession()
    {
        const PlanOpening opening = openPlaced(planOf("10 100"));
        QVERIFY(bool(opening));
        PlanSession &session = *opening.session;
        const QStringList placed{u"110 22 113 22 113 20 110 20"_s};
        const QStringList asDrawn{u"10 22 13 22 13 20 10 20"_s};
        QCOMPARE(cornersOf(session.Drawing(), session.Sheets()), placed);
        for (const bool isPlaced : {false, false, true, false}) {
            session.Drawing().SetExportMark(0, isPlaced);
            QVERIFY(session.Relabel({.filter = {}, .appliesPlacement = isPlaced}));
            QCOMPARE(session.Drawing().IsPlaced(), isPlaced);
            QCOMPARE(session.Drawing().Inserts()[0].exportMark, isPlaced);
            session.Drawing().SetExportMark(0, true);
            QCOMPARE(cornersOf(session.Drawing(), session.Sheets()), isPlaced ? placed : asDrawn);
        }
    }
};

QTEST_GUILESS_MAIN(TestPlacing)
#include "tst_placing.moc"
