// SPDX-License-Identifier: GPL-2.0-or-later
// Reads a folder of real plans, named by KELO_PLANS, and compares with what another reader found:
// beside PLAN.dxf lies PLAN.truth.json. Skipped when the variable is not set.
#include <QtTest>
#include <algorithm>
#include <kelo_base/dxf/DxfReader.h>

using namespace Qt::Literals::StringLiterals;

class TestRealPlans : public QObject
{
    Q_OBJECT

private slots:
    void readsAsAnotherReader_data();
    void readsAsAnotherReader();
};

namespace {

/// "closed (x, y) ..." with coordinates cut to what both readers agree on.
QString polylineText(bool closed, const std::vector<DxfVertex> &vertices)
{
    QString text = closed ? u"closed"_s : u"open"_s;
    for (const DxfVertex &vertex : vertices)
        text += u" (%1, %2)"_s.arg(vertex.x, 0, 'g', 12).arg(vertex.y, 0, 'g', 12);
    return text;
}

struct Insert
{
    QString block;
    QMap<QString, QString> attributes; ///< value by tag; of two with one tag the later
};

QStringList textsOf(const QList<Insert> &inserts)
{
    QStringList lines;
    for (const Insert &insert : inserts) {
        lines << insert.block;
        for (const auto &[tag, value] : insert.attributes.asKeyValueRange())
            lines << tag + u'=' + value;
    }
    return lines;
}

QStringList blocksOf(const DxfDrawing &drawing)
{
    QStringList lines;
    for (const DxfBlock &block : drawing.Blocks()) {
        lines << drawing.DisplayText(drawing.Name(block));
        for (const DxfPolyline &polyline : drawing.Polylines(block)) {
            const auto vertices = drawing.Vertices(polyline);
            lines << polylineText(polyline.closed, {vertices.begin(), vertices.end()});
        }
    }
    return lines;
}

QStringList blocksOf(const QJsonObject &truth)
{
    QStringList lines;
    for (const auto value : truth[u"blocks"_s].toArray()) {
        const QJsonObject block = value.toObject();
        const QString name = block[u"name"_s].toString();
        if (name.isEmpty())
            continue; // nobody can refer to it
        lines << name;
        for (const auto polylineValue : block[u"polylines"_s].toArray()) {
            const QJsonObject polyline = polylineValue.toObject();
            std::vector<DxfVertex> vertices;
            for (const auto vertex : polyline[u"vertices"_s].toArray())
                vertices.push_back(
                    {vertex.toArray()[0].toDouble(), vertex.toArray()[1].toDouble()});
            lines << polylineText(polyline[u"closed"_s].toBool(), vertices);
        }
    }
    return lines;
}

QList<Insert> insertsOf(const DxfDrawing &drawing)
{
    QList<Insert> inserts;
    for (const DxfInsert &read : drawing.Inserts()) {
        Insert insert{drawing.DisplayText(drawing.BlockName(read)), {}};
        for (const DxfAttribute &attribute : drawing.Attributes(read))
            insert.attributes[drawing.DisplayText(drawing.Tag(attribute))] =
                drawing.DisplayText(drawing.Value(attribute));
        inserts << insert;
    }
    return inserts;
}

QList<Insert> insertsOf(const QJsonObject &truth)
{
    QList<Insert> inserts;
    for (const QString &space : {u"inserts"_s, u"paperspace_inserts"_s}) {
        for (const auto value : truth[space].toArray()) {
            Insert insert{value.toObject()[u"block"_s].toString(), {}};
            for (const auto attribute : value.toObject()[u"attribs"_s].toArray())
                insert.attributes[attribute.toArray()[0].toString()] =
                    attribute.toArray()[1].toString();
            inserts << insert;
        }
    }
    return inserts;
}

/// The other reader leaves the text of multi-line attributes empty: there ours is not compared.
void takeOverMissingTexts(QList<Insert> &expected, const QList<Insert> &ours)
{
    for (qsizetype i = 0; i < std::min(expected.size(), ours.size()); ++i)
        for (auto [tag, value] : expected[i].attributes.asKeyValueRange())
            if (value.isEmpty())
                value = ours[i].attributes.value(tag);
}

} // namespace

void TestRealPlans::readsAsAnotherReader_data()
{
    const QDir folder(qEnvironmentVariable("KELO_PLANS"));
    if (qEnvironmentVariableIsEmpty("KELO_PLANS"))
        QSKIP("KELO_PLANS names no folder of plans");
    QTest::addColumn<QString>("plan");
    QTest::addColumn<QString>("truth");
    for (const QString &truth : folder.entryList({u"*.truth.json"_s})) {
        const QString name = truth.chopped(11);
        QTest::newRow(qPrintable(name))
            << folder.filePath(name + u".dxf"_s) << folder.filePath(truth);
    }
}

void TestRealPlans::readsAsAnotherReader()
{
    QFETCH(const QString, plan);
    QFETCH(const QString, truth);
    QFile file(truth);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject expected = QJsonDocument::fromJson(file.readAll()).object();

    const DxfReadResult result = ReadDxfFile(plan);
    QVERIFY2(result, result ? "" : qPrintable(result.error->message));
    QCOMPARE(blocksOf(result.drawing), blocksOf(expected));
    const QList<Insert> inserts = insertsOf(result.drawing);
    QList<Insert> expectedInserts = insertsOf(expected);
    takeOverMissingTexts(expectedInserts, inserts);
    QCOMPARE(textsOf(inserts), textsOf(expectedInserts));
}

QTEST_GUILESS_MAIN(TestRealPlans)
#include "tst_realplans.moc"
