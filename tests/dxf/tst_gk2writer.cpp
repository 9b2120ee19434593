// SPDX-License-Identifier: GPL-2.0-or-later
// GK2 files hold exactly the bytes that other programs expect.
#include "tests/dxf/plan.h"
#include <QBuffer>
#include <QRandomGenerator>
#include <QtTest>
#include <bit>
#include <cstdio>
#include <kelo_base/dxf/Gk2Writer.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A plan whose drawing has labels in places where a frame would not have them.
DxfDrawing labelled(DxfDrawingBuilder &plan, const std::vector<std::vector<VtxPosition>> &labels)
{
    DxfDrawing drawing = plan.Take();
    const auto polylines = drawing.Polylines(drawing.Blocks()[0]);
    for (std::size_t p = 0; p < labels.size(); ++p)
        for (quint32 v = 0; v < labels[p].size(); ++v)
            drawing.SetCorner(polylines[p], v, labels[p][v]);
    return drawing;
}

QByteArray gk2(const DxfDrawing &drawing, qint64 *count = nullptr)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const Gk2Result result = WriteGk2(buffer, drawing, allInserts(drawing));
    if (count)
        *count = result.written;
    return result ? buffer.data() : "failed"_ba;
}

} // namespace

class TestGk2Writer : public QObject
{
    Q_OBJECT

private slots:
    void writesExactBytes_data();
    void writesExactBytes();
    void skipsWhatIsNoSheet();
    void coordinatesAreLikeC();
    void replacesTheFile();
    void tellsWhenTheDeviceIsFull();
    void stopsWhenTold();
};

void TestGk2Writer::writesExactBytes_data()
{
    QTest::addColumn<std::vector<Points>>("polylines");
    QTest::addColumn<std::vector<std::vector<VtxPosition>>>("labels");
    QTest::addColumn<QByteArray>("corners");
    using Labels = std::vector<std::vector<VtxPosition>>;
    const Points frame{{3512.5, 871.256}, {-12.5, 0}, {1, 2}, {123456.789, -0.125}};

    QTest::newRow("corners stand clockwise from top left")
        << std::vector<Points>{frame}
        << Labels{{vpBottomLeft, vpTopLeft, vpTopRight, vpBottomRight}}
        << " -12,50        0,00    \r\n   1,00        2,00    \r\n"
           "123456,79       -0,12    \r\n3512,50      871,26    \r\n"_ba;
    QTest::newRow("no labels, no lines") << std::vector<Points>{frame} << Labels{} << ""_ba;
    QTest::newRow("a missing corner leaves no gap")
        << std::vector<Points>{frame} << Labels{{vpBottomLeft, vpUnknown, vpTopRight}}
        << "   1,00        2,00    \r\n3512,50      871,26    \r\n"_ba;
    QTest::newRow("the last of two equal labels counts")
        << std::vector<Points>{frame} << Labels{{vpTopLeft, vpUnknown, vpTopLeft}}
        << "   1,00        2,00    \r\n"_ba;
    QTest::newRow("one polyline after the other")
        << std::vector<Points>{{{1, 1}, {2, 2}}, {{3, 3}}}
        << Labels{{vpUnknown, vpBottomLeft}, {vpTopLeft}}
        << "   2,00        2,00    \r\n   3,00        3,00    \r\n"_ba;
}

void TestGk2Writer::writesExactBytes()
{
    QFETCH(const std::vector<Points>, polylines);
    QFETCH(const std::vector<std::vector<VtxPosition>>, labels);
    QFETCH(const QByteArray, corners);
    DxfDrawingBuilder plan;
    addBlock(plan, "B", polylines);
    addInsert(plan, "B", {{"BL_NR", " 1\xFC "}});
    addBlock(plan, "other", {kFrame});
    addInsert(plan, "other", {{"Bl_Nr", "other"}});
    addInsert(plan, "B", {{"Bl_Nr", "no"}, {"BL_NR", "%%U2"}});
    qint64 count = 0;
    const QByteArray text = gk2(labelled(plan, labels), &count);
    QCOMPARE(text, "GK2\r\n\r\n 1\xFC \r\n" + corners + "\r\nother\r\n\r\n%%U2\r\n" + corners);
    QCOMPARE(count, 3);
}

void TestGk2Writer::skipsWhatIsNoSheet()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {kFrame});
    addBlock(plan, "no polyline", {});
    addInsert(plan, "B", {{"BL_NR", "1"}});
    addInsert(plan, "B", {{"bl_nr", "2"}});
    addInsert(plan, "no polyline", {{"BL_NR", "3"}});
    addInsert(plan, "no block", {{"BL_NR", "4"}});
    addInsert(plan, "B", {{"BL_NR", "unmarked"}});
    addInsert(plan, "B", {{"Bl_Nr", ""}});
    DxfDrawing drawing = plan.Take();
    drawing.SetExportMark(4, false);
    qint64 count = 0;
    QCOMPARE(gk2(drawing, &count), "GK2\r\n\r\n1\r\n\r\n\r\n"_ba);
    QCOMPARE(count, 2);
    QCOMPARE(gk2(DxfDrawing()), "GK2\r\n"_ba);
}

void TestGk2Writer::coordinatesAreLikeC()
{
    QRandomGenerator64 random(2);
    const auto check = [](double value) {
        char expected[400];
        std::snprintf(expected, sizeof expected, "%7.2lf", value); // the C locale: none was set
        std::string text;
        AppendGk2Coordinate(text, value);
        QCOMPARE(QByteArray::fromStdString(text), QByteArray(expected).replace('.', ','));
    };
    for (const double value : {0.125, 0.375, -0.125, 0.005, -0.001, -0.0, 0.995, 999.995, 4.9e-324,
                               4503599627370495.5, 4503599627370496.0, 9007199254740993.0, 1e300})
        check(value);
    for (int round = 0; round < 100'000; ++round) {
        const auto bits = random.generate64();
        check(std::bit_cast<double>(bits & 0xFFBFFFFFFFFFFFFF)); // any size, but finite
        check(static_cast<double>(bits >> 20) /
              static_cast<double>(8 + (bits & 1023))); // sizes of maps
        check(static_cast<double>(bits >> 32) / 8);    // halves of a hundredth
        if (QTest::currentTestFailed())
            return;
    }
}

void TestGk2Writer::replacesTheFile()
{
    QTemporaryDir dir;
    QFile file(dir.filePath(u"ältere Datei.txt"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(10'000, 'x')) == 10'000);
    file.close();
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {kFrame});
    addInsert(plan, "B", {{"BL_NR", "1"}});
    const DxfDrawing drawing = plan.Take();
    QCOMPARE(ExportGk2File(file.fileName(), drawing, allInserts(drawing)), 1);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "GK2\r\n\r\n1\r\n"_ba);
    // Quiet: the count tells what was formatted, even where nothing could be stored.
    QCOMPARE(ExportGk2File(dir.filePath(u"none/x.txt"_s), drawing, allInserts(drawing)), 1);
}

void TestGk2Writer::tellsWhenTheDeviceIsFull()
{
    QFile full(u"/dev/full"_s);
    if (!full.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        QSKIP("no device that is always full");
    const Gk2Result result = WriteGk2(full, DxfDrawing(), {});
    QVERIFY(!result);
    QVERIFY(!result.stored);
}

void TestGk2Writer::stopsWhenTold()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {kFrame});
    for (int i = 0; i < 5000; ++i)
        addInsert(plan, "B", {{"BL_NR", "1"}});
    const DxfDrawing drawing = plan.Take();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto stopHalfWay = [](qint64 done, qint64 total) { return 2 * done < total; };
    const Gk2Result result = WriteGk2(buffer, drawing, allInserts(drawing), stopHalfWay);
    QVERIFY(!result);
    QVERIFY(result.cancelled);
    QVERIFY(result.written >= 2500 && result.written < 5000);
}

QTEST_APPLESS_MAIN(TestGk2Writer)
#include "tst_gk2writer.moc"
