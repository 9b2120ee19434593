// SPDX-License-Identifier: GPL-2.0-or-later
// The fast way of reading against the bare parser, over random plans, whole and mutated; and the
// fuzzer's promises over its seeds, which hold whatever it has once found.
#include "dxf/read/dxfconvertcreationadapter_p.h"
#include "dxf/read/realnumber_p.h"
#include "fuzz/checkplan.h"
#include "tests/support/PlanPairs.h"
#include <QtTest>
#include <bit>
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
        QByteArray text = "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $DWGCODEPAGE|3 ANSI_1252|"
                          "9 $EXTMIN|10 0.0|20 0.0|0 ENDSEC";
        const bool blocksAreFirst = flip();
        for (const bool isBlocks : {blocksAreFirst, !blocksAreFirst}) {
            text += isBlocks ? "|0 SECTION|2 BLOCKS" : "|0 SECTION|2 ENTITIES";
            for (int i = upTo(6); i >= 0; --i)
                text += isBlocks ? block() : entity(true);
            text += "|0 ENDSEC";
        }
        return pairsOf(text + "|0 EOF");
    }

    /// Changes, drops, doubles or adds something that both readers must take alike.
    void mutate(PlanPairs &pairs)
    {
        const qsizetype at = m_random.bounded(pairs.size());
        const auto &[code, value] = pairs.at(at);
        const bool isStructure = code == 0 || code == 9 || code == 90 || code == 2;
        const int kind = upTo(4);
        if (kind == 0)
            pairs.insert(at, {999, "a comment"});
        else if (kind == 1 && value == "LINE")
            pairs[at].second = oneOf({"SEQEND", "CIRCLE", "VIEWPORT"});
        else if (kind == 2 && !isStructure)
            pairs.removeAt(at);
        else if (kind == 3 && !isStructure)
            pairs.insert(at, pairs[at]);
        else if (kind == 4 && !isStructure)
            pairs[at].second = oneOf({"0", "1", "17", "-4.5", "65", " 8", "x y"});
    }

private:
    bool flip() { return m_random.bounded(2) != 0; }
    int upTo(int highest) { return m_random.bounded(highest + 1); }
    QByteArray oneOf(const QByteArrayList &texts) { return texts[m_random.bounded(texts.size())]; }
    QByteArray name() { return oneOf({"A", "B", "Blatt_1", "Stra\337e", "a"}); }
    QByteArray insertNumbers()
    {
        QByteArray text;
        for (const char *code : {"41", "42", "44", "45", "50", "210", "220", "230"})
            if (m_random.bounded(4) == 0)
                text += '|' + QByteArray(code) + ' ' + number();
        if (flip())
            text += "|230 " + oneOf({"1", "-1", "-1.0"});
        return flip() ? text : text + "|70 " + oneOf({"1", "2", "0", "-3"}) + "|71 4";
    }
    QByteArray number()
    {
        const double number = (m_random.generateDouble() - 0.3) * std::pow(10, upTo(8));
        const bool isShort = flip();
        return QByteArray::number(number, isShort ? 'f' : 'g', isShort ? upTo(6) : 17);
    }
    QByteArray point() { return "|10 " + number() + "|20 " + number(); }

    QByteArray block()
    {
        QByteArray text = "|0 BLOCK|8 0|2 " + name() + "|70 0" + point() + "|30 0.0";
        for (int i = upTo(4); i > 0; --i)
            text += entity(false);
        return text + "|0 ENDBLK|8 0";
    }

    QByteArray entity(bool isTopLevel)
    {
        const int kind = upTo(5);
        if (kind == 0)
            return oldPolyline();
        if (kind == 1)
            return "|0 LINE|8 RAHMEN|62 3" + point();
        if (kind == 2)
            return "|0 TEXT|1 INSERT|2 BL_NR|40 2.5" + point();
        return kind > 3 && (isTopLevel || flip()) ? insert() : polyline();
    }

    QByteArray insert()
    {
        QByteArray text = "|0 INSERT|8 0|66 1|2 " + name() + point() + insertNumbers();
        for (int i = upTo(3); i > 0; --i)
            text += "|0 ATTRIB|1 " + number() + "|2 " +
                    oneOf({"BL_NR", "Bl_Nr", "TITEL", "bl_nr"}) + "|70 0";
        return text + (flip() ? "|0 SEQEND|8 0" : "");
    }

    QByteArray polyline()
    {
        const int count = upTo(5) + 1;
        QByteArray text = "|0 LWPOLYLINE|100 AcDbPolyline|90 " + QByteArray::number(count) +
                          "|70 " + oneOf({"0", "1"});
        for (int i = 0; i < count; ++i)
            text += point() + "|42 " + number();
        return text;
    }

    QByteArray oldPolyline()
    {
        QByteArray text =
            "|0 POLYLINE|66 1|70 " + oneOf({"0", "1", "8", "9", "16", "64"}) + point();
        for (int i = upTo(5); i > 0; --i)
            text += "|0 VERTEX" + point() + oneOf({"", "", "|70 128", "|70 32"});
        return text + "|0 SEQEND";
    }

    QRandomGenerator m_random;
};

DxfReadResult read(QByteArray plan)
{
    QBuffer buffer(&plan);
    buffer.open(QIODevice::ReadOnly);
    return ReadDxf(buffer, u"plan"_s);
}

DxfDrawing readByParser(const QByteArray &plan)
{
    DxfConvertCreationAdapter adapter;
    std::istringstream stream(plan.toStdString());
    DL_Dxf().in(stream, &adapter);
    return adapter.takeDrawing();
}

/// A number as someone may write it, or nearly one.
QByteArray spelled(QRandomGenerator &random)
{
    const auto oneOf = [&](const QByteArrayList &texts) {
        return texts[random.bounded(texts.size())];
    };
    const auto digits = [&](int most) {
        QByteArray text;
        for (int i = random.bounded(most + 1); i > 0; --i)
            text += static_cast<char>('0' + random.bounded(10));
        return text;
    };
    const int most = random.bounded(4) == 0 ? 40 : 8;
    QByteArray text = oneOf({"", "", "-", "+"}) + oneOf({"", "", "000"}) + digits(most) +
                      oneOf({"", ".", ".", ","}) + digits(most);
    if (random.bounded(3) == 0)
        text += oneOf({"e", "E"}) + oneOf({"", "-", "+"}) + digits(random.bounded(8) == 0 ? 5 : 2);
    return oneOf({"", " ", "\t "}) + text + oneOf({"", "  "});
}

/// What shows every bit, and how inserts are placed.
QByteArray bitsOf(const DxfDrawing &drawing)
{
    QByteArray text = textOf(drawing);
    const auto add = [&text](double number) {
        text += ' ' + QByteArray::number(std::bit_cast<quint64>(number), 16);
    };
    for (const DxfBlock &block : drawing.Blocks()) {
        add(drawing.BasePoint(block).x);
        add(drawing.BasePoint(block).y);
        for (const DxfPolyline &polyline : drawing.Polylines(block))
            text += polyline.mirrored ? " from below" : "";
    }
    for (std::size_t i = 0; i < drawing.Inserts().size(); ++i) {
        const DxfPlacement placement = drawing.Placement(i);
        for (const double number :
             {placement.position.x, placement.position.y, placement.scaleX, placement.scaleY,
              placement.angle, placement.columnSpacing, placement.rowSpacing})
            add(number);
        text += ' ' + QByteArray::number(placement.columns) + 'x' +
                QByteArray::number(placement.rows) + '/' +
                QByteArray::number(static_cast<int>(placement.plane));
    }
    return text;
}

} // namespace

class TestDxfAgainstParser : public QObject
{
    Q_OBJECT

private slots:
    void agreesOnWholeAndMutatedPlans()
    {
        int accepted = 0;
        std::size_t inserts = 0;
        for (quint32 seed = 0; seed < 5'000; ++seed) {
            PlanMaker maker(seed);
            PlanPairs pairs = maker.plan();
            const quint32 mutations = seed % 5;
            for (quint32 i = 0; i < mutations; ++i)
                maker.mutate(pairs);
            const QByteArray plan = asciiPlan(pairs, seed % 2 == 0 ? "\n" : "\r\n");
            const DxfReadResult ours = read(plan);
            if (!ours && mutations > 0)
                continue; // the parser takes anything for a number
            QVERIFY2(ours, ours ? "" : qPrintable(ours.error->message));
            const DxfDrawing theirs = readByParser(plan);
            QVERIFY2(textOf(ours.drawing) == textOf(theirs), plan);
            if (mutations == 0) // the parser takes anything for a placement
                QVERIFY2(bitsOf(ours.drawing) == bitsOf(theirs),
                         bitsOf(ours.drawing) + '\n' + bitsOf(theirs) + '\n' + plan);
            QCOMPARE(ours.drawing.Version(), theirs.Version());
            QCOMPARE(ours.drawing.CodePage(), theirs.CodePage());
            inserts += theirs.Inserts().size();
            ++accepted;
        }
        QVERIFY(accepted > 3'000 && inserts > 3'000); // the plans did hold something
    }

    void convertsEverySpellingAsTheParser()
    {
        QRandomGenerator random(314);
        QByteArrayList spellings =
            QByteArray("0 -0 +0 -.0e5 1e308 -1e-320 1e-999 -1e-999 4.9e-324 "
                       "2.5e-324 -2.4e-324 9007199254740993 0.1e-00005 1,5e3 "
                       "1.7976931348623157e308 2.2250738585072011e-308")
                .split(' ');
        spellings << "0." + QByteArray(400, '0') + "1" << QByteArray(300, '9')
                  << '1' + QByteArray(400, '0') + "e-400";
        while (spellings.size() < 60'000)
            spellings << spelled(random);
        spellings.removeIf([](const QByteArray &s) { return !realNumber(s.toStdString()); });
        QVERIFY(spellings.size() > 40'000);
        spellings.resize(spellings.size() / 2 * 2);
        QByteArray plan = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nPOLYLINE\n";
        for (qsizetype i = 0; i < spellings.size(); i += 2)
            plan += "0\nVERTEX\n10\n" + spellings[i] + "\n20\n" + spellings[i + 1] + '\n';
        plan += "0\nSEQEND\n0\nENDBLK\n0\nENDSEC\n0\nEOF\n";
        const DxfReadResult ours = read(plan);
        QVERIFY(bool(ours));
        const DxfDrawing theirs = readByParser(plan);
        const auto verticesOf = [](const DxfDrawing &drawing) {
            return drawing.Vertices(drawing.Polylines(drawing.Blocks()[0])[0]);
        };
        const auto given = verticesOf(ours.drawing);
        const auto wanted = verticesOf(theirs);
        QCOMPARE(given.size(), wanted.size());
        QCOMPARE(static_cast<qsizetype>(given.size()), spellings.size() / 2);
        const auto isSame = [](double a, double b) {
            return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
        };
        for (std::size_t i = 0; i < given.size(); ++i) {
            const qsizetype at = 2 * static_cast<qsizetype>(i);
            QVERIFY2(isSame(given[i].x, wanted[i].x), spellings[at]);
            QVERIFY2(isSame(given[i].y, wanted[i].y), spellings[at + 1]);
        }
    }

    void keepsThePromisesOfTheFuzzer()
    {
        const auto seeds = QDir(QStringLiteral(KELO_PLAN_CORPUS)).entryInfoList(QDir::Files);
        QVERIFY(!seeds.isEmpty());
        for (const QFileInfo &seed : seeds) {
            QFile file(seed.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            qInfo("%s", qPrintable(seed.fileName())); // the last one named is the one that failed
            checkPlan(file.readAll().toStdString());
        }
    }
};

QTEST_GUILESS_MAIN(TestDxfAgainstParser)
#include "tst_dxfagainstparser.moc"
