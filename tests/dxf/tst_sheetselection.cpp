// SPDX-License-Identifier: GPL-2.0-or-later
// The right inserts count as sheets, in the right order.
#include "tests/dxf/plan.h"
#include <QtTest>
#include <kelo_base/dxf/SheetSelection.h>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The sheet numbers chosen, in order: "1 2 ...".
QString chosen(const DxfDrawing &drawing, const SheetFilter &filter)
{
    const auto sheets = SelectSheets(drawing, filter);
    QStringList numbers;
    for (const quint32 sheet : *sheets) {
        const auto text = SheetNumberText(drawing, drawing.Inserts()[sheet]);
        numbers << (text ? QString::fromLatin1(text->data(), qsizetype(text->size())) : u"-"_s);
    }
    return numbers.join(u' ');
}

} // namespace

class TestSheetSelection : public QObject
{
    Q_OBJECT

private slots:
    void readsNumbers_data();
    void readsNumbers();
    void sortsByNumber();
    void filters_data();
    void filters();
    void collectsTags();
    void stopsWhenTold();
};

void TestSheetSelection::readsNumbers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("number");
    QTest::newRow("letters around") << "A12b"_ba << qint64{12};
    QTest::newRow("none") << "Blatt"_ba << qint64{-1};
    QTest::newRow("empty") << ""_ba << qint64{-1};
    QTest::newRow("only the first run") << "3-4"_ba << qint64{3};
    QTest::newRow("a sign is no digit") << "-5"_ba << qint64{5};
    QTest::newRow("zeros in front") << "007"_ba << qint64{7};
    QTest::newRow("digits of another script are none") << "\u0663 4"_ba << qint64{4};
    QTest::newRow("largest") << "9223372036854775807"_ba << std::numeric_limits<qint64>::max();
    QTest::newRow("too long") << "x99999999999999999999y"_ba << std::numeric_limits<qint64>::max();
}

void TestSheetSelection::readsNumbers()
{
    QFETCH(const QByteArray, text);
    QTEST(SheetNumber(text.toStdString()), "number");
}

void TestSheetSelection::sortsByNumber()
{
    DxfDrawingBuilder plan;
    addBlock(plan, "B", {kFrame});
    addBlock(plan, "no polyline", {});
    for (const char *number : {"10", "B2", "99999999999999999999", "Blatt", "A2", "2c", "9"})
        addInsert(plan, "B", {{"BL_NR", number}});
    addInsert(plan, "B", {});
    addInsert(plan, "no polyline", {{"BL_NR", "5"}});
    addInsert(plan, "no block", {{"BL_NR", "6"}});
    QCOMPARE(chosen(plan.Take(), {}), u"Blatt - B2 A2 2c 9 10 99999999999999999999"_s);
}

void TestSheetSelection::filters_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<SheetFilter>("filter");
    QTest::addColumn<QString>("numbers");
    const auto row = [](const char *name, const char *version, const SheetFilter &filter,
                        const char *numbers) {
        QTest::newRow(name) << QByteArray(version) << filter << QString::fromLatin1(numbers);
    };
    const auto with = [](const QString &tag, const QString &value) {
        return SheetFilter{.include = {{tag, value}}, .excludeTag = {}};
    };
    const auto without = [](const QString &tag) {
        return SheetFilter{.include = {}, .excludeTag = tag};
    };
    // Sheets 1 to 5 of the plan below carry: TYP=main, TYP=Main, TYP=main and OLD and OLD?=?, Ö=ü
    // in Latin-1, Ö=ü in UTF-8.
    row("all", "AC1009", {}, "1 2 3 4 5");
    row("value", "AC1009", with(u"TYP"_s, u"main"_s), "1 3");
    row("part of a value", "AC1009", with(u"TYP"_s, u"mai"_s), "");
    row("tag in other case", "AC1009", with(u"Typ"_s, u"main"_s), "");
    row("an empty value is a value", "AC1009", with(u"OLD"_s, u""_s), "3");
    row("tag to leave out", "AC1009", without(u"OLD"_s), "1 2 4 5");
    row("both", "AC1009", {.include = {{u"TYP"_s, u"main"_s}}, .excludeTag = u"OLD"_s}, "1");
    row("umlauts of an old plan", "AC1018", with(u"Ö"_s, u"ü"_s), "4");
    row("umlauts of a new plan", "AC1021", with(u"Ö"_s, u"ü"_s), "5");
    row("umlaut to leave out", "AC1021", without(u"Ö"_s), "1 2 3 4");
    row("not Latin-1", "AC1018", with(u"OLD?"_s, u"\u20AC"_s), "");
    row("not Latin-1 leaves nothing out", "AC1018", without(u"OLD\u20AC"_s), "1 2 3 4 5");
}

void TestSheetSelection::filters()
{
    QFETCH(const QByteArray, version);
    QFETCH(const SheetFilter, filter);
    DxfDrawingBuilder plan;
    plan.SetVersion(version.toStdString());
    addBlock(plan, "B", {kFrame});
    addInsert(plan, "B", {{"BL_NR", "1"}, {"TYP", "main"}});
    addInsert(plan, "B", {{"BL_NR", "2"}, {"TYP", "Main"}});
    addInsert(plan, "B", {{"BL_NR", "3"}, {"TYP", "main"}, {"OLD", ""}, {"OLD?", "?"}});
    addInsert(plan, "B", {{"BL_NR", "4"}, {"\xD6", "\xFC"}});
    addInsert(plan, "B", {{"BL_NR", "5"}, {"\xC3\x96", "\xC3\xBC"}});
    QTEST(chosen(plan.Take(), filter), "numbers");
}

void TestSheetSelection::collectsTags()
{
    DxfDrawingBuilder plan;
    for (const char *value : {"a", "b", "a", "c", "d"})
        addInsert(plan, "B", {{"TYP", value}});
    addInsert(plan, "B", {{"BL_NR", "1"}, {"TYP", "e"}});
    const DxfDrawing drawing = plan.Take();
    const std::vector<TagUse> tags = CollectTags(drawing);
    QCOMPARE(tags.size(), 2U);
    QVERIFY(tags[0].tag == "TYP" && tags[0].inserts == 6);
    QVERIFY((tags[0].examples == std::vector<std::string_view>{"a", "b", "c"}));
    QVERIFY(tags[1].tag == "BL_NR" && tags[1].inserts == 1);
}

void TestSheetSelection::stopsWhenTold()
{
    DxfDrawingBuilder plan;
    for (int i = 0; i < 3000; ++i)
        addInsert(plan, "B", {});
    const DxfDrawing drawing = plan.Take();
    qint64 last = 0;
    QVERIFY(SelectSheets(drawing, {}, [&](qint64 done, qint64) { return (last = done) > 0; }));
    QCOMPARE(last, 3000);
    QVERIFY(!SelectSheets(drawing, {}, [](qint64 done, qint64) { return done < 2000; }));
}

QTEST_APPLESS_MAIN(TestSheetSelection)
#include "tst_sheetselection.moc"
