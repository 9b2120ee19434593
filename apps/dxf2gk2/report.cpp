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
#include <kelo_base/dxf/Gk2Writer.h>
#include <limits>
#include <string>

using namespace Qt::Literals::StringLiterals;

namespace {

struct CornerColumn
{
    VtxPosition position;
    const char *title;     ///< to be translated
    QLatin1StringView key; ///< in JSON
};
constexpr std::array kCornerColumns{
    CornerColumn{vpTopLeft, QT_TRANSLATE_NOOP("dxf2gk2", "Top left"), "topLeft"_L1},
    CornerColumn{vpTopRight, QT_TRANSLATE_NOOP("dxf2gk2", "Top right"), "topRight"_L1},
    CornerColumn{vpBottomRight, QT_TRANSLATE_NOOP("dxf2gk2", "Bottom right"), "bottomRight"_L1},
    CornerColumn{vpBottomLeft, QT_TRANSLATE_NOOP("dxf2gk2", "Bottom left"), "bottomLeft"_L1}};
using Corners = std::array<const DxfVertex *, 5>; ///< by label

/// A text from a file in one line of a terminal: control characters do not reach it.
QString printable(QString text)
{
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

/// "12 sheets written to FILE"; only counted when they were not written.
QString sheetsText(const Conversion &conversion)
{
    if (conversion.output.isEmpty()) {
        const int sheets = amount(static_cast<qint64>(conversion.analysis.sheets.size()));
        return sheets == 1 ? Text::tr("1 sheet") : Text::tr("%n sheets", nullptr, sheets);
    }
    const int written = amount(conversion.written);
    const QString target =
        conversion.output == kStandardStream ? Text::tr("standard output") : conversion.output;
    return (written == 1 ? Text::tr("1 sheet written to %1")
                         : Text::tr("%n sheets written to %1", nullptr, written))
        .arg(target);
}

/// The labelled corners of a sheet; of two with one label the later counts, as in the export.
Corners cornersOf(const DxfDrawing &drawing, const DxfInsert &insert)
{
    Corners corners{};
    for (const DxfPolyline &polyline : drawing.Polylines(*drawing.BlockOf(insert))) {
        const auto vertices = drawing.Vertices(polyline);
        for (quint32 i = 0; i < vertices.size(); ++i)
            corners[static_cast<std::size_t>(drawing.Corner(polyline, i))] = &vertices[i];
    }
    corners[vpUnknown] = nullptr;
    return corners;
}

bool hasCorners(const Corners &corners)
{
    return std::ranges::any_of(corners, [](const DxfVertex *corner) { return corner; });
}

QString cornerText(const DxfVertex *corner)
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
    const Corners corners = cornersOf(drawing, insert);
    if (!hasCorners(corners))
        return row << Text::tr("no corners");
    for (const CornerColumn &column : kCornerColumns)
        row << cornerText(corners[static_cast<std::size_t>(column.position)]);
    return row;
}

QJsonObject sheetJson(const DxfDrawing &drawing, const DxfInsert &insert)
{
    const auto value = SheetNumberText(drawing, insert);
    const Corners corners = cornersOf(drawing, insert);
    QJsonObject cornerObject;
    for (const CornerColumn &column : kCornerColumns)
        if (const DxfVertex *corner = corners[static_cast<std::size_t>(column.position)])
            cornerObject[column.key] = QJsonArray{corner->x, corner->y};
    return {{u"number"_s, SheetNumber(drawing, insert)},
            {u"value"_s, value ? QJsonValue(drawing.DisplayText(*value)) : QJsonValue()},
            {u"block"_s, drawing.DisplayText(drawing.ShownBlockName(insert))},
            {u"corners"_s, cornerObject}};
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
    for (const Diagnostic &d : conversion.analysis.diagnostics)
        array.append(
            QJsonObject{{u"severity"_s, d.severity == Severity::Warning ? u"warning"_s : u"note"_s},
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

QString warningLine(const QString &plan, const Diagnostic &diagnostic)
{
    const auto kind = diagnostic.severity == Severity::Warning ? "warning: "_L1 : "note: "_L1;
    return faultLine(plan, diagnostic.line, kind + diagnostic.text);
}

QString summaryLine(const Conversion &conversion)
{
    const SheetAnalysis &analysis = conversion.analysis;
    const int skipped = amount(analysis.skipped);
    const int warnings = amount(analysis.warnings);
    const QStringList parts{
        sheetsText(conversion),
        skipped == 1 ? Text::tr("1 skipped") : Text::tr("%n skipped", nullptr, skipped),
        warnings == 1 ? Text::tr("1 warning") : Text::tr("%n warnings", nullptr, warnings)};
    return printable(conversion.plan + ": "_L1 + parts.join(", "_L1));
}

void printSheets(StandardOutput &out, const Conversion &conversion)
{
    const DxfDrawing &drawing = conversion.drawing;
    QStringList titles{Text::tr("Number"), Text::tr("Value"), Text::tr("Block")};
    for (const CornerColumn &column : kCornerColumns)
        titles << Text::tr(column.title);
    Table table(titles);
    for (const quint32 sheet : conversion.analysis.sheets)
        table.measure(sheetRow(drawing, drawing.Inserts()[sheet]));
    table.printTitles(out);
    for (const quint32 sheet : conversion.analysis.sheets) {
        if (out.hasFailed())
            return;
        table.print(out, sheetRow(drawing, drawing.Inserts()[sheet]));
    }
}

void printTags(StandardOutput &out, const Conversion &conversion)
{
    const DxfDrawing &drawing = conversion.drawing;
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

void printJson(StandardOutput &out, const Conversion &conversion, const Options &options)
{
    const SheetAnalysis &analysis = conversion.analysis;
    QJsonObject object{{u"plan"_s, conversion.plan},
                       {u"written"_s, conversion.written},
                       {u"skipped"_s, analysis.skipped},
                       {u"warnings"_s, analysis.warnings},
                       {u"diagnostics"_s, diagnosticsJson(conversion)}};
    if (!conversion.output.isEmpty())
        object[u"output"_s] = conversion.output;
    if (options.listTags && !conversion.failure)
        object[u"tags"_s] = tagsJson(conversion.drawing);
    if (conversion.failure)
        object[u"error"_s] = failureJson(*conversion.failure);
    QByteArray text = compact(object);
    if (!options.list || conversion.failure)
        return out.write(text);
    // Sheet by sheet: a list of a million need not fit into memory.
    text.chop(1);
    out.write(text + R"(,"sheets":[)");
    const char *separator = "\n";
    for (const quint32 sheet : analysis.sheets) {
        out.write(separator +
                  compact(sheetJson(conversion.drawing, conversion.drawing.Inserts()[sheet])));
        separator = ",\n";
    }
    out.write("\n]}");
}

QByteArray jsonFailure(const QString &message)
{
    return compact({{u"error"_s, failureJson({0, message})}}) + '\n';
}
