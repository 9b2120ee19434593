// SPDX-License-Identifier: GPL-2.0-or-later
// What the program says: one line for each fault, tables, JSON.
#include "report.h"
#include "output.h"
#include "text.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <cmath>
#include <kelo_base/core/FileName.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/SheetCorners.h>
#include <limits>
#include <string>

using namespace Qt::Literals::StringLiterals;

namespace {

/// In the order of kClockwiseCorners.
struct CornerColumn
{
    const char *title;     ///< to be translated
    QLatin1StringView key; ///< in JSON
};
constexpr std::array kCornerColumns{
    CornerColumn{QT_TRANSLATE_NOOP("dxf2gk2", "Top left"), "topLeft"_L1},
    CornerColumn{QT_TRANSLATE_NOOP("dxf2gk2", "Top right"), "topRight"_L1},
    CornerColumn{QT_TRANSLATE_NOOP("dxf2gk2", "Bottom right"), "bottomRight"_L1},
    CornerColumn{QT_TRANSLATE_NOOP("dxf2gk2", "Bottom left"), "bottomLeft"_L1}};

/// A text from a file in one line of a terminal: control characters do not reach it.
QString printable(QString text)
{
    text = ReadableFileName(std::move(text));
    std::ranges::replace_if(
        text, [](QChar c) { return c.category() == QChar::Other_Control; }, u'\uFFFD');
    return text;
}

/// The same for a table, which one long text must not stretch out of sight.
QString cell(const QString &text)
{
    constexpr qsizetype kWidest = 60;
    return printable(text.size() <= kWidest ? text : text.left(kWidest - 1) + u'\u2026');
}

/// The number of a text that counts, as tr() takes it.
int amount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

QString cornerText(const std::optional<DxfVertex> &corner)
{
    std::string text;
    if (corner) {
        AppendGk2Coordinate(text, corner->x);
        text += ' ';
        AppendGk2Coordinate(text, corner->y);
    }
    return QString::fromStdString(text);
}

/// A table with columns as wide as their widest text; the first is aligned right.
class Table
{
public:
    explicit Table(const QStringList &titles) : m_titles(titles), m_widths(titles.size())
    {
        measure(titles);
    }
    void measure(const QStringList &row)
    {
        for (qsizetype i = 0; i < row.size(); ++i)
            m_widths[i] = std::max(m_widths[i], row[i].size());
    }
    void printTitles(StandardOutput &out) const { print(out, m_titles); }
    void print(StandardOutput &out, const QStringList &row) const
    {
        QString line = row.first().rightJustified(m_widths.first());
        for (qsizetype i = 1; i < row.size(); ++i)
            line += "  "_L1 + row[i].leftJustified(m_widths[i]);
        while (line.endsWith(u' '))
            line.chop(1);
        out.write((line + u'\n').toUtf8());
    }

private:
    QStringList m_titles;
    QList<qsizetype> m_widths;
};

QStringList sheetRow(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const auto value = SheetNumberText(drawing, insert);
    const qint64 number = SheetNumber(drawing, insert);
    QStringList row{number < 0 ? u"-"_s : QString::number(number),
                    value ? cell(drawing.DisplayText(*value)) : u"-"_s,
                    cell(drawing.DisplayText(drawing.ShownBlockName(insert)))};
    const SheetCorners corners = CornersOf(drawing, *drawing.BlockOf(insert));
    if (!HasCorners(corners))
        return row << Text::tr("no corners");
    for (const auto &corner : corners)
        row << cornerText(corner);
    return row;
}

QJsonObject sheetJson(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const auto value = SheetNumberText(drawing, insert);
    const SheetCorners corners = CornersOf(drawing, *drawing.BlockOf(insert));
    QJsonObject cornerObject;
    for (std::size_t i = 0; i < corners.size(); ++i)
        if (corners[i])
            cornerObject[kCornerColumns[i].key] = QJsonArray{corners[i]->x, corners[i]->y};
    return {{u"number"_s, SheetNumber(drawing, insert)},
            {u"value"_s, value ? QJsonValue(drawing.DisplayText(*value)) : QJsonValue()},
            {u"block"_s, drawing.DisplayText(drawing.ShownBlockName(insert))},
            {u"corners"_s, cornerObject}};
}

struct ChangeWords
{
    SheetChange::Kind kind;
    const char *word;      ///< to be translated
    QLatin1StringView key; ///< in JSON
};
/// In the order of the kinds' numbers.
constexpr std::array kChangeWords{
    ChangeWords{SheetChange::Kind::New, QT_TRANSLATE_NOOP("dxf2gk2", "new"), "new"_L1},
    ChangeWords{SheetChange::Kind::Gone, QT_TRANSLATE_NOOP("dxf2gk2", "gone"), "gone"_L1},
    ChangeWords{SheetChange::Kind::Moved, QT_TRANSLATE_NOOP("dxf2gk2", "moved"), "moved"_L1},
    ChangeWords{SheetChange::Kind::Renamed, QT_TRANSLATE_NOOP("dxf2gk2", "renamed"), "renamed"_L1}};

const ChangeWords &wordsOf(const SheetChange &change)
{
    return kChangeWords[static_cast<std::size_t>(change.kind)];
}

QString numberIn(const Conversion &conversion, const std::vector<Gk2Record> &sheets,
                 std::size_t sheet)
{
    const QByteArray &number = sheets[sheet].number;
    const std::string_view text(number.data(), static_cast<std::size_t>(number.size()));
    return conversion.session->Drawing().DisplayText(text);
}

/// Kind, number, number before where it was another one, distance.
QStringList changeRow(const Conversion &conversion, const SheetChange &change)
{
    const Comparison &comparison = *conversion.comparison;
    const bool isGone = change.kind == SheetChange::Kind::Gone;
    const QString number = isGone ? numberIn(conversion, comparison.older, change.older)
                                  : numberIn(conversion, comparison.newer, change.newer);
    QStringList row{Text::tr(wordsOf(change).word), cell(number)};
    if (change.kind == SheetChange::Kind::Renamed)
        row << Text::tr("was %1").arg(cell(numberIn(conversion, comparison.older, change.older)));
    if (change.kind == SheetChange::Kind::Moved)
        row << (std::isfinite(change.distance)
                    ? Text::tr("by %1").arg(QString::number(change.distance, 'f', 2))
                    : Text::tr("other corners"));
    return row;
}

QJsonArray changesJson(const Conversion &conversion)
{
    const Comparison &comparison = *conversion.comparison;
    QJsonArray array;
    for (const SheetChange &change : comparison.changes) {
        QJsonObject object{{u"change"_s, wordsOf(change).key}};
        if (change.newer != SheetChange::kNone)
            object[u"number"_s] = numberIn(conversion, comparison.newer, change.newer);
        if (change.older != SheetChange::kNone)
            object[u"before"_s] = numberIn(conversion, comparison.older, change.older);
        if (change.kind == SheetChange::Kind::Moved) // null: it has other corners
            object[u"distance"_s] =
                std::isfinite(change.distance) ? QJsonValue(change.distance) : QJsonValue();
        array.append(object);
    }
    return array;
}

QStringList examplesOf(const DxfDrawing &drawing, const TagUse &tag)
{
    QStringList examples;
    for (const std::string_view example : tag.examples)
        examples << drawing.DisplayText(example);
    return examples;
}

std::vector<TagUse> tagsByUse(const DxfDrawing &drawing)
{
    std::vector<TagUse> tags = CollectTags(drawing);
    std::ranges::stable_sort(tags, std::ranges::greater(), &TagUse::inserts);
    return tags;
}

QJsonArray tagsJson(const DxfDrawing &drawing)
{
    QJsonArray array;
    for (const TagUse &tag : tagsByUse(drawing))
        array.append(
            QJsonObject{{u"tag"_s, drawing.DisplayText(tag.tag)},
                        {u"inserts"_s, tag.inserts},
                        {u"examples"_s, QJsonArray::fromStringList(examplesOf(drawing, tag))}});
    return array;
}

QJsonArray diagnosticsJson(const Conversion &conversion)
{
    QJsonArray array;
    if (!conversion.session)
        return array;
    for (const PlanFinding &d : conversion.session->Findings())
        array.append(
            QJsonObject{{u"severity"_s,
                         d.severity == PlanFinding::Severity::Warning ? u"warning"_s : u"note"_s},
                        {u"line"_s, d.line},
                        {u"subject"_s, d.subject},
                        {u"text"_s, d.text}});
    return array;
}

QJsonObject failureJson(const Failure &failure)
{
    return {{u"line"_s, failure.line}, {u"message"_s, failure.message}};
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

QString faultLine(const QString &plan, qint64 line, const QString &what)
{
    QString text = u"dxf2gk2: "_s;
    if (!plan.isEmpty())
        text += plan + ": "_L1;
    if (line > 0)
        text += u"line %1: "_s.arg(line);
    return printable(text + what);
}

QString warningLine(const QString &plan, const PlanFinding &diagnostic)
{
    const auto kind =
        diagnostic.severity == PlanFinding::Severity::Warning ? "warning: "_L1 : "note: "_L1;
    return faultLine(plan, diagnostic.line, kind + diagnostic.text);
}

QString sheetsText(const Conversion &conversion)
{
    if (conversion.output.isEmpty()) {
        const int sheets = amount(static_cast<qint64>(conversion.session->Sheets().size()));
        return sheets == 1 ? Text::tr("1 sheet") : Text::tr("%n sheets", nullptr, sheets);
    }
    const int written = amount(conversion.written);
    if (conversion.output == kStandardStream)
        return written == 1 ? Text::tr("1 sheet written to standard output")
                            : Text::tr("%n sheets written to standard output", nullptr, written);
    return (written == 1 ? Text::tr("1 sheet written to %1")
                         : Text::tr("%n sheets written to %1", nullptr, written))
        .arg(conversion.output);
}

QString comparisonLine(const Conversion &conversion, const Options &options)
{
    QStringList parts;
    for (const ChangeWords &words : kChangeWords) {
        const auto count =
            std::ranges::count(conversion.comparison->changes, words.kind, &SheetChange::kind);
        if (count > 0)
            parts << QString::number(count) + u' ' + Text::tr(words.word);
    }
    const QString changes = parts.isEmpty() ? Text::tr("no changes") : parts.join(", "_L1);
    return printable(
        Text::tr("%1 compared with %2: %3").arg(conversion.plan, options.compare, changes));
}

QString summaryLine(const Conversion &conversion)
{
    const int skipped = amount(conversion.skipped());
    const int warnings = amount(conversion.warnings());
    const QStringList parts{
        sheetsText(conversion),
        skipped == 1 ? Text::tr("1 skipped") : Text::tr("%n skipped", nullptr, skipped),
        warnings == 1 ? Text::tr("1 warning") : Text::tr("%n warnings", nullptr, warnings)};
    return printable(conversion.plan + ": "_L1 + parts.join(", "_L1));
}

void printSheets(StandardOutput &out, const Conversion &conversion)
{
    const DxfDrawing &drawing = conversion.session->Drawing();
    QStringList titles{Text::tr("Number"), Text::tr("Value"), Text::tr("Block")};
    for (const CornerColumn &column : kCornerColumns)
        titles << Text::tr(column.title);
    Table table(titles);
    for (const quint32 sheet : conversion.session->Sheets())
        table.measure(sheetRow(drawing, drawing.Inserts()[sheet]));
    table.printTitles(out);
    for (const quint32 sheet : conversion.session->Sheets()) {
        if (out.hasFailed())
            return;
        table.print(out, sheetRow(drawing, drawing.Inserts()[sheet]));
    }
}

void printTags(StandardOutput &out, const Conversion &conversion)
{
    const DxfDrawing &drawing = conversion.session->Drawing();
    Table table({Text::tr("Inserts"), Text::tr("Tag"), Text::tr("Example values")});
    QList<QStringList> rows;
    for (const TagUse &tag : tagsByUse(drawing)) {
        QStringList examples = examplesOf(drawing, tag);
        std::ranges::transform(examples, examples.begin(), cell);
        rows << QStringList{QString::number(tag.inserts), cell(drawing.DisplayText(tag.tag)),
                            examples.join(" | "_L1)};
    }
    for (const QStringList &row : rows)
        table.measure(row);
    table.printTitles(out);
    for (const QStringList &row : rows)
        table.print(out, row);
}

void printChanges(StandardOutput &out, const Conversion &conversion)
{
    Table table({Text::tr("Change"), Text::tr("Number"), QString()});
    for (const SheetChange &change : conversion.comparison->changes)
        table.measure(changeRow(conversion, change));
    if (conversion.hasChanges())
        table.printTitles(out);
    for (const SheetChange &change : conversion.comparison->changes) {
        if (out.hasFailed())
            return;
        table.print(out, changeRow(conversion, change));
    }
}

void printJson(StandardOutput &out, const Conversion &conversion, const Options &options)
{
    QJsonObject object{{u"plan"_s, ReadableFileName(conversion.plan)},
                       {u"written"_s, conversion.written},
                       {u"skipped"_s, conversion.skipped()},
                       {u"warnings"_s, conversion.warnings()},
                       {u"diagnostics"_s, diagnosticsJson(conversion)}};
    if (!conversion.output.isEmpty())
        object[u"output"_s] = ReadableFileName(conversion.output);
    if (options.listTags && !conversion.failure)
        object[u"tags"_s] = tagsJson(conversion.session->Drawing());
    if (conversion.comparison)
        object[u"changes"_s] = changesJson(conversion);
    if (conversion.failure)
        object[u"error"_s] = failureJson(*conversion.failure);
    QByteArray text = compact(object);
    if (!options.list || conversion.failure)
        return out.write(text);
    // Sheet by sheet: a list of a million need not fit into memory.
    text.chop(1);
    out.write(text + R"(,"sheets":[)");
    const char *separator = "\n";
    const DxfDrawing &drawing = conversion.session->Drawing();
    for (const quint32 sheet : conversion.session->Sheets()) {
        out.write(separator + compact(sheetJson(drawing, drawing.Inserts()[sheet])));
        separator = ",\n";
    }
    out.write("\n]}");
}

QByteArray jsonFailure(const QString &message)
{
    return compact({{u"error"_s, failureJson({0, message})}}) + '\n';
}
