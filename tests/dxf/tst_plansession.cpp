// SPDX-License-Identifier: GPL-2.0-or-later
// A plan goes its way in one session, which says by values what became of it; a comparison with an
// older export tells what changed, and only that.
#include "tests/dxf/plan.h"
#include <QtTest>
#include <cmath>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetComparison.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Two sheets in one frame, and a block without one.
const QByteArray kPlan =
    "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n0\nLWPOLYLINE\n90\n4\n70\n1\n10\n0\n20\n0\n10\n3\n20\n0"
    "\n"
    "10\n3\n20\n2\n10\n0\n20\n2\n0\nENDBLK\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
    "0\nINSERT\n2\nB\n0\nATTRIB\n1\n7\n2\nBL_NR\n0\nSEQEND\n"
    "0\nINSERT\n2\nB\n0\nATTRIB\n1\n8\n2\nBL_NR\n0\nSEQEND\n0\nENDSEC\n0\nEOF\n";

/// A plan in a folder of its own.
struct Desk
{
    Desk() { put(u"plan.dxf"_s, kPlan); }
    [[nodiscard]] QString path(const QString &name) const { return dir.filePath(name); }
    void put(const QString &name, const QByteArray &text) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }
    [[nodiscard]] QByteArray text(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file"_ba;
    }
    QTemporaryDir dir;
};

/// "2 0,0 3,0" for sheet 2 with two corners; the sheets stand between semicolons.
std::vector<Gk2Record> records(const QString &text)
{
    std::vector<Gk2Record> all;
    for (const QString &sheet : text.split(u"; "_s, Qt::SkipEmptyParts)) {
        QStringList words = sheet.split(u' ');
        Gk2Record &record = all.emplace_back(Gk2Record{words.takeFirst().toUtf8(), {}});
        for (const QString &corner : std::as_const(words))
            record.corners.push_back(
                {corner.section(u',', 0, 0).toDouble(), corner.section(u',', 1).toDouble()});
    }
    return all;
}

/// "moved 2 by 5; renamed 3 to 4"
QString told(const std::vector<SheetChange> &changes, const std::vector<Gk2Record> &older,
             const std::vector<Gk2Record> &newer)
{
    using Kind = SheetChange::Kind;
    QStringList words;
    for (const SheetChange &change : changes) {
        const bool isNew = change.kind == Kind::New;
        const bool isGone = change.kind == Kind::Gone;
        const QString before = isNew ? u""_s : QString::fromUtf8(older[change.older].number);
        const QString now = isGone ? u""_s : QString::fromUtf8(newer[change.newer].number);
        words << (isNew                        ? u"new "_s + now
                  : isGone                     ? u"gone "_s + before
                  : change.kind == Kind::Moved ? u"moved %1 by %2"_s.arg(now).arg(change.distance)
                                               : u"renamed %1 to %2"_s.arg(before, now));
    }
    return words.join(u"; "_s);
}

} // namespace

class TestPlanSession : public QObject
{
    Q_OBJECT

private slots:
    void saysWhyAPlanIsNotOpen()
    {
        using Outcome = PlanOpening::Outcome;
        const Desk desk;
        const PlanOpening missing = PlanSession::Open(desk.path(u"none.dxf"_s));
        QCOMPARE(missing.outcome, Outcome::NotRead);
        QVERIFY(missing.error->message.contains(u"does not exist"_s));
        QVERIFY(!missing.session);
        const auto stop = [](qint64, qint64) { return false; };
        for (const PlanStages &stages : {PlanStages{stop, {}}, PlanStages{{}, stop}}) {
            const PlanOpening cancelled = PlanSession::Open(desk.path(u"plan.dxf"_s), {}, stages);
            QCOMPARE(cancelled.outcome, Outcome::Cancelled);
            QVERIFY(!cancelled.session);
        }
    }

    void goesItsWay()
    {
        const Desk desk;
        const PlanOpening opening = PlanSession::Open(desk.path(u"plan.dxf"_s));
        QVERIFY(opening);
        PlanSession &plan = *opening.session;
        QCOMPARE(plan.Path(), desk.path(u"plan.dxf"_s));
        QCOMPARE(plan.Name(), u"plan.dxf"_s);
        QCOMPARE(plan.Sheets().size(), 2U);
        QVERIFY(plan.HasRecords());

        const SheetFilter only8{SheetFilter::Attribute{u"BL_NR"_s, u"8"_s}, {}};
        QVERIFY(plan.Choose(only8));
        const QByteArray sheet8 =
            "GK2\r\n\r\n8\r\n   0,00        2,00    \r\n   3,00        2,00    \r\n"
            "   3,00        0,00    \r\n   0,00        0,00    \r\n";
        const Gk2Export result = plan.Export(desk.path(u"8.txt"_s));
        QCOMPARE(result.outcome, Gk2Export::Outcome::Written);
        QCOMPARE(result.written, 1);
        QCOMPARE(desk.text(u"8.txt"_s), sheet8);

        QVERIFY(plan.Relabel({.filter = only8, .order = CornerOrder::AsDrawn}));
        QVERIFY(plan.Export(desk.path(u"drawn.txt"_s)));
        QVERIFY(desk.text(u"drawn.txt"_s).startsWith("GK2\r\n\r\n8\r\n   0,00        0,00    "));
        plan.Drawing().SetExportMark(plan.Sheets().front(), false);
        QVERIFY(!plan.HasRecords());

        QVERIFY(plan.Review({.include = {}, .excludeTag = u"BL_NR"_s}));
        QCOMPARE(plan.Warnings(), 1);
        QVERIFY(plan.Findings().front().text.startsWith(u"All sheets that would be left"_s));
    }

    void refusesTargets()
    {
        using Outcome = Gk2Export::Outcome;
        const Gk2ExportOptions careful{.replacesForeign = false, .replacesByNone = false};
        const Gk2ExportOptions any;

        const auto row = [](const char *name, const char *older, bool isEmpty,
                            const Gk2ExportOptions &options, Outcome outcome) {
            const Desk desk;
            if (older)
                desk.put(u"target"_s, older);
            const PlanOpening opening = PlanSession::Open(desk.path(u"plan.dxf"_s));
            QVERIFY(opening);
            if (isEmpty)
                QVERIFY(opening.session->Review({.include = {}, .excludeTag = u"BL_NR"_s}));
            const Gk2Export result = opening.session->Export(desk.path(u"target"_s), options);
            QVERIFY2(result.outcome == outcome && result.keptOlder == !result, name);
            QVERIFY2(result.written == (result && !isEmpty ? 2 : 0), name);
            const QByteArray text = desk.text(u"target"_s);
            QVERIFY2(result ? text.startsWith("GK2\r\n") : text == older, name);
            QCOMPARE(opening.session->Export(desk.path(u"plan.dxf"_s)).outcome, Outcome::IsThePlan);
            QCOMPARE(desk.text(u"plan.dxf"_s), kPlan);
        };
        row("no file", nullptr, false, careful, Outcome::Written);
        row("an empty file holds nothing to lose", "", true, careful, Outcome::Written);
        row("a GK2 file", "GK2\r\n\r\n1\r\n", false, careful, Outcome::Written);
        row("another file", "GK21\r\n", false, careful, Outcome::IsForeign);
        row("another file, where that is wanted", "letter", false, any, Outcome::Written);
        row("sheets by none", "GK2\r\n\r\n1\r\n", true, careful, Outcome::WouldBeEmpty);
        row("sheets by none, as wanted", "GK2\r\n\r\n1\r\n", true, any, Outcome::Written);
        row("none by none", "GK2\r\n", true, careful, Outcome::Written);
        row("no file, by none", nullptr, true, careful, Outcome::Written);
    }

    void compares()
    {
        const auto row = [](const char *name, const char *older, const char *newer,
                            const char *changes) {
            const std::vector<Gk2Record> before = records(QLatin1StringView(older));
            const std::vector<Gk2Record> now = records(QLatin1StringView(newer));
            const QString given = told(CompareSheets(before, now), before, now);
            QVERIFY2(given == QLatin1StringView(changes), name + (": " + given.toLatin1()));
            QVERIFY2(CompareSheets(before, before).empty(), name);
            QVERIFY2(CompareSheets(now, now).empty(), name);
        };
        row("nothing changed", "1 0,0; 2 5,5", "1 0,0; 2 5,5", "");
        row("another order is no change", "1 0,0; 2 5,5", "2 5,5; 1 0,0", "");
        row("new and gone", "1 0,0; 2 5,5", "2 5,5; 3 9,9", "new 3; gone 1");
        row("the corner that went farthest counts", "1 0,0 9,0", "1 3,4 10,0", "moved 1 by 5");
        row("half a last decimal is no way", "1 0,0", "1 0.004,0", "");
        row("a last decimal is one", "1 0,0", "1 0.01,0", "moved 1 by 0.01");
        row("other corners", "1 0,0", "1 0,0 1,1", "moved 1 by inf");
        row("one place, another number", "1 0,0 3,0", "7 0,0 3,0", "renamed 1 to 7");
        // Which of the two it was, nobody can tell.
        row("two at one place keep their names", "1 0,0; 2 0,0", "7 0,0; 2 0,0", "renamed 1 to 7");
        row("two that went from one place", "1 0,0; 2 0,0", "7 0,0", "new 7; gone 1; gone 2");
        row("two that came to one place", "1 0,0", "7 0,0; 8 0,0", "new 7; new 8; gone 1");
        row("sheets without corners have no place", "1", "2", "new 2; gone 1");
        row("of one number the one that stayed", "1 0,0; 1 5,5", "1 5,5", "gone 1");
        row("of one number in order", "1 0,0; 1 5,5", "1 0,1; 1 5,6", "moved 1 by 1; moved 1 by 1");
        row("changed places", "1 0,0; 2 3,4", "1 3,4; 2 0,0", "moved 1 by 5; moved 2 by 5");
        row("from none", "", "1 0,0", "new 1");
        row("to none", "1 0,0", "", "gone 1");
    }

    void readsBackWhatItWrites()
    {
        QRandomGenerator random(14);
        DxfDrawingBuilder builder;
        const auto number = [&random] {
            return (random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(12));
        };
        // More than are compared in one part; numbers that look like corners, or like nothing.
        for (int i = 0; i < 5000; ++i) {
            const std::string name = std::to_string(i);
            addBlock(builder, name, {{{number(), number()}, {number(), number()}}, {}});
            const std::string text = i % 3 == 0 ? name : i % 3 == 1 ? "1,00     2,00" : "";
            addInsert(builder, name, {{i % 7 == 0 ? "OTHER" : "BL_NR", text}});
        }
        DxfDrawing drawing = builder.take();
        for (const DxfBlock &block : drawing.Blocks())
            for (const quint32 i : {0U, 1U})
                drawing.SetCorner(drawing.Polylines(block)[0], i,
                                  i == 0 ? vpTopLeft : vpBottomRight);
        std::vector<quint32> written;
        const std::vector<Gk2Record> now = Gk2RecordsOf(drawing, allInserts(drawing), &written);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QCOMPARE(WriteGk2(buffer, drawing, allInserts(drawing)).written,
                 static_cast<qint64>(now.size()));
        QCOMPARE(written.size(), now.size());
        const Gk2Reading reading = ReadGk2(buffer.data());
        QVERIFY(reading);
        QVERIFY(CompareSheets(reading.records, now, 0).empty());
        for (std::size_t i = 0; i < now.size(); ++i) {
            const DxfInsert &insert = drawing.Inserts()[written[i]];
            QCOMPARE(now[i].number.toStdString(), drawing.FindAttribute(insert, "BL_NR").value());
            QCOMPARE(now[i].corners.size(), 2U);
            const auto vertices = drawing.Vertices(drawing.Polylines(*drawing.BlockOf(insert))[0]);
            QVERIFY(std::abs(now[i].corners[0].x - vertices[0].x) <= 0.0051);
            QVERIFY(std::abs(now[i].corners[1].y - vertices[1].y) <= 0.0051);
        }
        // Other programs end lines in their own way.
        QCOMPARE(ReadGk2(QByteArray(buffer.data()).replace("\r\n", "\n")).records.size(),
                 now.size());
    }

    void refusesWhatIsNoGk2()
    {
        using Fault = Gk2Reading::Fault;
        const auto row = [](const char *name, const QByteArray &text, Fault fault, int line) {
            const Gk2Reading reading = ReadGk2(text);
            QVERIFY2(reading.fault == fault && reading.line == line, name);
            QVERIFY2(reading || reading.records.empty(), name);
        };
        row("an empty file", "", Fault::NotGk2, 0);
        row("another header", "GK3\r\n", Fault::NotGk2, 0);
        row("the header alone", "GK2\r\n", Fault::None, 0);
        row("a corner before any sheet", "GK2\r\n1,00 2,00\r\n", Fault::BadLine, 2);
        row("three numbers", "GK2\r\n\r\n1\r\n1,00 2,00 3,00\r\n", Fault::BadLine, 4);
        row("one number", "GK2\r\n\r\n1\r\n1,00\r\n", Fault::BadLine, 4);
        row("two numbers in one", "GK2\r\n\r\n1\r\n1,00-2,00\r\n", Fault::BadLine, 4);
        row("words", "GK2\r\n\r\n1\r\n1,00 two\r\n", Fault::BadLine, 4);
        row("cut short behind a sheet", "GK2\r\n\r\n1\r\n1,00 2,00\r\n\r\n", Fault::None, 0);
    }
};

QTEST_GUILESS_MAIN(TestPlanSession)
#include "tst_plansession.moc"
