// SPDX-License-Identifier: GPL-2.0-or-later
// The fast way of reading against the bare parser, over random plans, whole and mutated.
#include "dxf/dxfconvertcreationadapter_p.h"
#include "tests/support/PlanPairs.h"
#include <QBuffer>
#include <QRandomGenerator>
#include <QtTest>
#include <dl_dxf.h>
#include <kelo_base/dxf/DxfReader.h>
#include <sstream>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Random plans of the kind that the parser itself survives: no splines, hatches or leaders, and
/// true vertex counts.
class PlanMaker
{
public:
    explicit PlanMaker(quint32 seed) : m_random(seed) {}

    PlanPairs plan()
    {
        PlanPairs pairs =
            pairsOf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $DWGCODEPAGE|3 ANSI_1252|"
                    "9 $EXTMIN|10 0.0|20 0.0|0 ENDSEC");
        const bool blocksAreFirst = flip();
        for (const bool isBlocks : {blocksAreFirst, !blocksAreFirst}) {
            pairs += isBlocks ? pairsOf("0 SECTION|2 BLOCKS") : pairsOf("0 SECTION|2 ENTITIES");
            for (int i = upTo(6); i >= 0; --i)
                pairs += isBlocks ? block() : entity(true);
            pairs += pairsOf("0 ENDSEC");
        }
        return pairs + pairsOf("0 EOF");
    }

    /// Changes, drops, doubles or adds something that both readers must take alike.
    void mutate(PlanPairs &pairs)
    {
        const qsizetype at = m_random.bounded(pairs.size());
        const int code = pairs[at].first;
        const bool isStructure = code == 0 || code == 9 || code == 90 || code == 2;
        switch (upTo(4)) {
        case 0:
            if (!isStructure)
                pairs.removeAt(at);
            break;
        case 1:
            if (!isStructure)
                pairs.insert(at, pairs[at]);
            break;
        case 2:
            pairs.insert(at, {999, "a comment"});
            break;
        case 3:
            if (!isStructure)
                pairs[at].second =
                    QByteArrayList{"0", "1", "17", "-4.5", "65", " 8", "x y"}[upTo(6)];
            break;
        default:
            if (code == 0 && pairs[at].second == "LINE")
                pairs[at].second = QByteArrayList{"SEQEND", "CIRCLE", "VIEWPORT"}[upTo(2)];
        }
    }

private:
    bool flip() { return m_random.bounded(2) != 0; }
    int upTo(int highest) { return m_random.bounded(highest + 1); }
    QByteArray name()
    {
        return QByteArrayList{"A", "B", "Blatt_1",
                              "Stra\xdf"
                              "e",
                              "a"}[upTo(4)];
    }
    QByteArray number()
    {
        const double number = (m_random.generateDouble() - 0.3) * std::pow(10, upTo(8));
        return flip() ? QByteArray::number(number, 'f', upTo(6))
                      : QByteArray::number(number, 'g', 17);
    }
    PlanPairs point() { return {{10, number()}, {20, number()}, {30, "0.0"}}; }

    PlanPairs block()
    {
        PlanPairs pairs{{0, "BLOCK"}, {8, "0"}, {2, name()}, {70, "0"}};
        pairs += point();
        for (int i = upTo(4); i > 0; --i)
            pairs += entity(false);
        return pairs + PlanPairs{{0, "ENDBLK"}, {8, "0"}};
    }

    PlanPairs entity(bool isTopLevel)
    {
        switch (upTo(5)) {
        case 0:
            return polyline();
        case 1:
            return oldPolyline();
        case 2:
            return PlanPairs{{0, "LINE"}, {8, "RAHMEN"}, {62, "3"}} + point();
        case 3:
            return PlanPairs{{0, "TEXT"}, {1, "INSERT"}, {2, "BL_NR"}, {40, "2.5"}} + point();
        default:
            return isTopLevel || flip() ? insert() : polyline();
        }
    }

    PlanPairs insert()
    {
        PlanPairs pairs{{0, "INSERT"}, {8, "0"}, {66, "1"}, {2, name()}, {41, "2.0"}, {50, "30"}};
        pairs += point();
        for (int i = upTo(3); i > 0; --i)
            pairs += PlanPairs{{0, "ATTRIB"},
                               {1, number()},
                               {2, QByteArrayList{"BL_NR", "Bl_Nr", "TITEL", "bl_nr"}[upTo(3)]},
                               {70, "0"}};
        return flip() ? pairs + PlanPairs{{0, "SEQEND"}, {8, "0"}} : pairs;
    }

    PlanPairs polyline()
    {
        const int count = upTo(5) + 1;
        PlanPairs pairs{{0, "LWPOLYLINE"},
                        {100, "AcDbPolyline"},
                        {90, QByteArray::number(count)},
                        {70, QByteArray::number(upTo(1))}};
        for (int i = 0; i < count; ++i)
            pairs += PlanPairs{{10, number()}, {20, number()}, {42, number()}};
        return pairs;
    }

    PlanPairs oldPolyline()
    {
        const int flags[] = {0, 1, 8, 9, 16, 64};
        PlanPairs pairs{{0, "POLYLINE"}, {66, "1"}, {70, QByteArray::number(flags[upTo(5)])}};
        pairs += point();
        for (int i = upTo(5); i > 0; --i) {
            pairs += PlanPairs{{0, "VERTEX"}} + point();
            if (flip())
                pairs.append({70, QByteArray::number(flip() ? 128 : 32)});
        }
        return pairs + PlanPairs{{0, "SEQEND"}};
    }

    QRandomGenerator m_random;
};

DxfDrawing readByParser(const QByteArray &plan)
{
    DxfConvertCreationAdapter adapter;
    std::istringstream stream(plan.toStdString());
    DL_Dxf().in(stream, &adapter);
    return adapter.takeDrawing();
}

DxfReadResult readByUs(QByteArray plan)
{
    QBuffer buffer(&plan);
    buffer.open(QIODevice::ReadOnly);
    return ReadDxf(buffer, u"plan"_s);
}

} // namespace

class TestDxfAgainstParser : public QObject
{
    Q_OBJECT

private slots:
    void agreesOnWholePlans();
    void agreesOnMutatedPlans();
};

void TestDxfAgainstParser::agreesOnWholePlans()
{
    qsizetype read = 0;
    for (quint32 seed = 0; seed < 1'000; ++seed) {
        const QByteArray plan = asciiPlan(PlanMaker(seed).plan(), seed % 2 == 0 ? "\n" : "\r\n");
        const DxfReadResult ours = readByUs(plan);
        QVERIFY2(ours, ours ? "" : qPrintable(ours.error->message));
        const DxfDrawing theirs = readByParser(plan);
        QVERIFY2(textOf(ours.drawing) == textOf(theirs), plan);
        QCOMPARE(ours.drawing.Version(), theirs.Version());
        QCOMPARE(ours.drawing.CodePage(), theirs.CodePage());
        read += static_cast<qsizetype>(ours.drawing.Inserts().size());
    }
    QVERIFY(read > 1'000); // the plans did hold something
}

void TestDxfAgainstParser::agreesOnMutatedPlans()
{
    int accepted = 0;
    for (quint32 seed = 0; seed < 4'000; ++seed) {
        PlanMaker maker(seed);
        PlanPairs pairs = maker.plan();
        for (quint32 i = 0; i < 1 + seed % 4; ++i)
            maker.mutate(pairs);
        const QByteArray plan = asciiPlan(pairs);
        const DxfReadResult ours = readByUs(plan);
        if (!ours)
            continue; // the parser takes anything for a number
        QVERIFY2(textOf(ours.drawing) == textOf(readByParser(plan)), plan);
        ++accepted;
    }
    QVERIFY(accepted > 2'000);
}

QTEST_GUILESS_MAIN(TestDxfAgainstParser)
#include "tst_dxfagainstparser.moc"
