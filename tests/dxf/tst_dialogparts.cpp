// SPDX-License-Identifier: GPL-2.0-or-later
// What the plan dialog shows and says, without the dialog: the table of sheets in every order, the
// findings, what the filter offers and why it leaves nothing, recent plans, time left, icons.
#include "dxf/sheets/filterplan_p.h"
#include "dxf/workbench/attributecompletion_p.h"
#include "dxf/workbench/findingmodel_p.h"
#include "dxf/workbench/inkicon_p.h"
#include "dxf/workbench/recentplans_p.h"
#include "dxf/workbench/remainingtime_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include "tests/dxf/plan.h"
#include <QAbstractItemModelTester>
#include <QtTest>
#include <kelo_base/dxf/RoutingTilesRevisor.h>
#include <kelo_base/dxf/SheetAnalysis.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using With = SheetFilter::Attribute;

/// One insert is no sheet, one sheet has no number, one no corners.
DxfDrawing smallPlan()
{
    DxfDrawingBuilder plan;
    plan.setVersion("AC1009");
    addBlock(plan, "b10", {{{5, 5}, {9, 5}, {9, 8}, {5, 8}}}, 10);
    addBlock(plan, "b9", {kFrame}, 20);
    addBlock(plan, "line", {{{0, 0}, {1, 1}}}, 30);
    addInsert(plan, "b9", {{"BL_NR", "20"}, {"TYP", "Main"}}, 100);
    addInsert(plan, "symbol", {{"SIZE", "1"}}, 200);
    addInsert(plan, "b10", {{"BL_NR", "x10"}, {"TYP", "main"}}, 300);
    addInsert(plan, "line", {{"BL_NR", "x9"}, {"OLD", ""}}, 400);
    addInsert(plan, "b10", {{"\xD6", "\xFC"}, {"TYP", "main"}}, 500);
    DxfDrawing drawing = plan.take();
    LabelSheets(drawing, CornerOrder::Upright);
    return drawing;
}

/// The rows' texts in one column: "1|2".
QString column(const SheetTableModel &model, int column, int role = Qt::DisplayRole)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, column).data(role).toString();
    return texts.join(u'|');
}

} // namespace

class TestDialogParts : public QObject
{
    Q_OBJECT

private slots:
    void showsSheets()
    {
        DxfDrawing drawing = smallPlan();
        SheetTableModel model;
        model.setDrawing(&drawing);
        QCOMPARE(model.rowCount(), 0);
        model.setSheets(*SelectSheets(drawing, {}));
        QCOMPARE(column(model, 0), u"|9|10|20"_s);
        QCOMPARE(column(model, 1), u"|x9|x10|20"_s);
        QCOMPARE(column(model, 2), u"b10|line|b10|b9"_s);
        const QString last = u"5,00 8,00 \u2013 9,00 5,00|0,00 2,00 \u2013 3,00 0,00"_s;
        QCOMPARE(column(model, 3), u"5,00 8,00 \u2013 9,00 5,00|no corners|"_s + last);
        const QString toolTip = model.index(3, 3).data(Qt::ToolTipRole).toString();
        QVERIFY(toolTip.endsWith(u"Bottom right: 3,00 0,00\nBottom left: 0,00 0,00"_s));
        model.setDrawing(nullptr);
        QCOMPARE(model.rowOf(0), -1);
    }

    void sortsBesideTheExportOrder()
    {
        DxfDrawing drawing = smallPlan();
        SheetTableModel model;
        const QAbstractItemModelTester tester(&model);
        model.setDrawing(&drawing);
        const std::vector<quint32> exported{4, 3, 2, 0}; // "", x9, x10 and 20
        model.setSheets(exported);
        const QPersistentModelIndex selected = model.index(1, 1);
        const auto row = [&](const char *name, int by, Qt::SortOrder order, const char *sorted) {
            model.sort(by, order);
            QVERIFY2(column(model, 1) == QLatin1StringView(sorted), name);
            QVERIFY2(model.sheetAt(selected.row()) == 3 && model.rowOf(3) == selected.row(), name);
            QVERIFY2(model.sheets() == exported && model.rowOf(1) == -1, name);
        };
        row("number, largest first", 0, Qt::DescendingOrder, "20|x10|x9|");
        row("value as people count, none first", 1, Qt::AscendingOrder, "|20|x9|x10");
        row("value, reversed", 1, Qt::DescendingOrder, "x10|x9|20|");
        row("block as people count, as exported within", 2, Qt::AscendingOrder, "20||x10|x9");
        row("corners, none first", 3, Qt::AscendingOrder, "x9|20||x10");
        row("as exported", -1, Qt::DescendingOrder, "|x9|x10|20");
        model.sort(1, Qt::DescendingOrder);
        model.setSheets({4, 3, 2});
        QCOMPARE(column(model, 1), u"x10|x9|"_s);
    }

    void marksWhatIsShown()
    {
        DxfDrawing drawing = smallPlan();
        SheetTableModel model;
        model.setDrawing(&drawing);
        model.setSheets({4, 3, 0});
        const QSignalSpy marks(&model, &SheetTableModel::marksChanged);
        const QSignalSpy changes(&model, &SheetTableModel::dataChanged);
        QCOMPARE(model.markedCount(), 2); // one has no number
        QVERIFY(model.setData(model.index(2, 0), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(!model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(!model.setData(model.index(1, 1), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(column(model, 0, Qt::CheckStateRole), u"|2|0"_s);
        QCOMPARE(model.markedCount(), 1);
        model.setAllMarks(false);
        QCOMPARE(column(model, 0, Qt::CheckStateRole), u"|0|0"_s);
        QCOMPARE(model.markedCount(), 0);
        QVERIFY(marks.count() == 2 && changes.count() == 2);
        model.setSheets({3, 2});
        QCOMPARE(model.markedCount(), 1); // the one that was not shown
    }

    void saysWhyNothingIsLeft()
    {
        const DxfDrawing drawing = smallPlan();
        const auto row = [&](const FilterFields &fields, const char *reason) {
            const QString said = dxftools::whyNoSheets(drawing, dxftools::filterOf(fields));
            QVERIFY2(said == QString::fromUtf8(reason), said.toUtf8());
            QCOMPARE(SelectSheets(drawing, dxftools::filterOf(fields))->empty(), !said.isEmpty());
        };
        const auto with = [](const QString &tag, const QString &value) {
            return FilterFields{true, tag, value, false, u"unchecked"_s};
        };
        row(with(u"TYP"_s, u"main"_s), "");
        row(with(u"Ö"_s, u"ü"_s), "");
        row(with(u"OLD"_s, u""_s), "");
        row({false, u"unchecked"_s, u"unchecked"_s, false, u"BL_NR"_s}, "");
        row(with(u""_s, u"main"_s), "Enter the tag that sheets must have");
        row(with(u"TYPE"_s, u"main"_s), "No sheet has the attribute 'TYPE'");
        row(with(u"SIZE"_s, u"1"_s), "No sheet has the attribute 'SIZE'"); // only another insert
        row(with(u"Typ "_s, u""_s), "No sheet has the attribute 'Typ '; there is 'TYP', however");
        row(with(u"TYP"_s, u"%1"_s), "No sheet has the value '%1' in the attribute 'TYP'");
        row(with(u"TYP"_s, u"MAIN"_s),
            "No sheet has the value 'MAIN' in the attribute 'TYP'; there is 'Main', however");
        row(with(u"TYP"_s, u"€"_s), "'€' has characters that the plan's character set lacks");
        row({true, u"OLD"_s, u""_s, true, u"BL_NR"_s},
            "All sheets that would be left have the attribute 'BL_NR', so they are not included");
        DxfDrawingBuilder frameless;
        addInsert(frameless, "nowhere", {{"BL_NR", "1"}});
        QVERIFY(dxftools::whyNoSheets(frameless.take(), {}).contains(u"sheet frame"_s));
        QCOMPARE(dxftools::whyNoSheets({}, {}), u"The plan has no block inserts"_s);
    }

    void findsTheSheetOfADiagnostic()
    {
        DxfDrawing drawing = smallPlan();
        FindingModel model;
        model.setFindings({{PlanFinding::Severity::Note, {}, 12, 0, {}, u"%2"_s}});
        QCOMPARE(model.index(0).data().toString(), u"Line 12: %2"_s);
        const auto sheetAt = [&](qint64 place) {
            PlanFinding diagnostic;
            (drawing.IsBinary() ? diagnostic.offset : diagnostic.line) = place;
            return dxftools::sheetOf(diagnostic, drawing, std::vector<quint32>{4, 3, 2});
        };
        for (const bool isBinary : {false, true}) {
            drawing.SetBinary(isBinary);
            QCOMPARE(sheetAt(300), 2U);
            QCOMPARE(sheetAt(10), 4U); // the first shown that uses the block
            QVERIFY(!sheetAt(20) && !sheetAt(200) && !sheetAt(0)); // none that is shown
        }
        // What the analysis itself says of a binary plan leads there, too.
        const auto analysis = *AnalyzeSheets(drawing, {}, CornerOrder::Upright, {});
        QCOMPARE(dxftools::sheetOf(analysis.diagnostics[0], drawing, analysis.sheets), 3U);
    }

    void offersWhatFiltersExactly()
    {
        for (const char *version : {"AC1009", "AC1021"}) {
            DxfDrawingBuilder plan;
            plan.setVersion(version);
            addBlock(plan, "B", {kFrame});
            for (const char *value : {"b10", "B", "b9", "b10", "", "\xFC", "\xC3\xBC"})
                addInsert(plan, "B", {{"V", value}, {"\xC4", "1"}});
            addInsert(plan, "B", {{"V", std::string(500, 'x')}});
            addInsert(plan, "symbol", {{"V", "of no sheet"}});
            const DxfDrawing drawing = plan.take();
            const bool isUtf8 = drawing.HasUtf8Texts();
            QStringList values;
            for (const AttributeOffer &offer : dxftools::offerValues(drawing, u"V"_s)) {
                values << offer.text;
                QCOMPARE(offer.inserts, offer.text == u"b10"_s ? 2 : 1);
            }
            QCOMPARE(values.join(u'|'), isUtf8 ? u"|B|b9|b10|ü"_s : u"|B|b9|b10|Ã¼|ü"_s);
            for (const QString &value : values)
                QVERIFY(!SelectSheets(drawing, {With{u"V"_s, value}, {}})->empty());
            std::vector<AttributeOffer> tags{{u"V"_s, 9}};
            if (!isUtf8) // where it is broken
                tags.push_back({u"Ä"_s, 7});
            QCOMPARE(dxftools::offerTags(drawing), tags);
        }
        OfferModel model;
        model.setOffers({{u"%n"_s, 3}, {u""_s, 1}});
        QCOMPARE(model.index(0).data().toString(), u"%n (3 inserts)"_s);
        QCOMPARE(model.index(0).data(Qt::EditRole).toString(), u"%n"_s);
        QCOMPARE(model.index(1).data().toString(), u"(empty) (1 insert)"_s);
    }

    void keepsRecentPlans()
    {
        const QTemporaryDir dir;
        QSettings settings(dir.filePath(u"settings.ini"_s), QSettings::IniFormat);
        QCOMPARE(dxftools::readRecentPlans(settings), RecentPlans());
        RecentPlans plans;
        for (int i = 0; i < 12; ++i)
            plans.Add(u"/plans/%1.dxf"_s.arg(i));
        plans.Add(u"/plans//old/.././5.dxf"_s);
        plans.Add({});
        plans.Remove(u"/plans/./11.dxf"_s);
        QCOMPARE(plans.Paths().size(), 9);
        QCOMPARE(plans.Paths().first(), u"/plans/5.dxf"_s);
        QCOMPARE(plans.Paths().last(), u"/plans/2.dxf"_s);
        dxftools::writeRecentPlans(settings, plans);
        QCOMPARE(dxftools::readRecentPlans(settings), plans);
    }

    void tellsTheTimeLeft()
    {
        const auto text = [](qint64 elapsed, qint64 done, qint64 total) {
            return RemainingTime().Text(elapsed, done, total);
        };
        QCOMPARE(text(499, 1, 10) + text(600, 100, -1) + text(600, 0, 9) + text(600, 9, 9), u""_s);
        QCOMPARE(text(1000, 100, 1000), u"about 9 seconds left"_s);
        QCOMPARE(text(1000, 1, 42), u"about 45 seconds left"_s);
        QCOMPARE(text(1000, 1, 150), u"about 3 minutes left"_s);
        QCOMPARE(text(1000, 1, std::numeric_limits<qint64>::max()), u"about 277778 hours left"_s);
        // An uneven pace, as of any disk, makes the estimate rise and fall; what is shown only
        // falls.
        QRandomGenerator random(5);
        qint64 shown = 0;
        for (qint64 left = 200'000; left > 0; left -= 50) {
            const qint64 estimate = left + random.bounded(-1, 2) * (left / 25);
            const qint64 before = std::exchange(shown, dxftools::steadySeconds(estimate, shown));
            QVERIFY2(before == 0 || shown <= before, QByteArray::number(left));
            QVERIFY2(shown * 1000 > left * 4 / 5 - 1000, QByteArray::number(left));
        }
        QCOMPARE(shown, 1);
    }

    void drawsIconsInTheInkOfThePalette()
    {
        const QPalette before = QGuiApplication::palette();
        const QIcon icon = dxftools::inkIcon(u":/kelo_base/images/zoom-fit.svg"_s);
        for (const QColor &ink : {QColor(Qt::black), QColor(Qt::white)}) {
            QPalette palette = before;
            palette.setColor(QPalette::ButtonText, ink);
            palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::red);
            QGuiApplication::setPalette(palette);
            for (const auto &[mode, wanted] :
                 {std::pair(QIcon::Normal, ink), std::pair(QIcon::Disabled, QColor(Qt::red))}) {
                const QPixmap pixmap = icon.pixmap(QSize(32, 32), 2, mode);
                QCOMPARE(pixmap.size(), QSize(64, 64));
                const QImage image = pixmap.toImage();
                QCOMPARE(image.pixelColor(10, 16), wanted); // a side of the frame
                QCOMPARE(image.pixelColor(32, 32).alpha(), 0);
            }
        }
        QGuiApplication::setPalette(before);
    }
};

QTEST_MAIN(TestDialogParts)
#include "tst_dialogparts.moc"
