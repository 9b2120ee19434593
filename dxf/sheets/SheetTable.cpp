// SPDX-License-Identifier: GPL-2.0-or-later
// The sheets of a plan as a table for spreadsheet programs.
#include <kelo_base/dxf/SheetTable.h>

#include <QCoreApplication>
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetCorners.h>
#include <kelo_base/dxf/SheetSelection.h>
#include <unordered_map>

using namespace Qt::Literals::StringLiterals;
using spreadsheet::Cell;
using spreadsheet::Column;
using spreadsheet::ColumnType;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SheetTable)
};

constexpr const char *kCornerTitles[] = {QT_TRANSLATE_NOOP("SheetTable", "Top left"),
                                         QT_TRANSLATE_NOOP("SheetTable", "Top right"),
                                         QT_TRANSLATE_NOOP("SheetTable", "Bottom right"),
                                         QT_TRANSLATE_NOOP("SheetTable", "Bottom left")};
constexpr int kCoordinateDecimals = 2; ///< shown, as in GK2 files; cells hold all of them

/// The tags of the attributes in the sheets, in the order in which they come first, and where their
/// columns are.
class TagColumns
{
public:
    TagColumns(const PlanSession &session, std::size_t first) : m_first(first)
    {
        const DxfDrawing &drawing = session.Drawing();
        for (const quint32 sheet : session.Sheets())
            for (const DxfAttribute &attribute : drawing.Attributes(drawing.Inserts()[sheet]))
                add(attribute.tag, drawing.Tag(attribute));
    }
    [[nodiscard]] const std::vector<std::string_view> &tags() const { return m_tags; }
    [[nodiscard]] std::size_t columnOf(const DxfAttribute &attribute) const
    {
        return m_first + m_places.at(attribute.tag);
    }

private:
    /// @param text  number of the tag among the drawing's texts, each of which is there once
    void add(quint32 text, std::string_view tag)
    {
        if (m_places.try_emplace(text, m_tags.size()).second)
            m_tags.push_back(tag);
    }

    std::size_t m_first;
    std::unordered_map<quint32, std::size_t> m_places;
    std::vector<std::string_view> m_tags;
};

Column titled(const QString &title, ColumnType type = ColumnType::Text)
{
    return {title, type, kCoordinateDecimals};
}

spreadsheet::Sheet sheetOf(const DxfDrawing &drawing, const TagColumns &tags)
{
    spreadsheet::Sheet sheet;
    sheet.name = Texts::tr("Sheets");
    sheet.columns << titled(Texts::tr("Number")) << titled(Texts::tr("Block"));
    for (const std::string_view tag : tags.tags())
        sheet.columns << titled(drawing.DisplayText(tag));
    for (const char *const corner : kCornerTitles)
        for (const QChar axis : {u'X', u'Y'})
            sheet.columns << titled(Texts::tr("%1 %2").arg(Texts::tr(corner), axis),
                                    ColumnType::Number);
    return sheet;
}

void fill(std::vector<Cell> &cells, const DxfDrawing &drawing, const DxfInsert &insert,
          const TagColumns &tags)
{
    std::ranges::fill(cells, Cell());
    cells[0] = drawing.DisplayText(SheetNumberText(drawing, insert).value_or(std::string_view()));
    cells[1] = drawing.DisplayText(drawing.ShownBlockName(insert));
    for (const DxfAttribute &attribute : drawing.Attributes(insert))
        cells[tags.columnOf(attribute)] = drawing.DisplayText(drawing.Value(attribute));
    const DxfBlock *const block = drawing.BlockOf(insert);
    if (!block)
        return;
    std::size_t column = 2 + tags.tags().size();
    for (const auto &corner : CornersOf(drawing, *block)) {
        if (corner) {
            cells[column] = corner->x;
            cells[column + 1] = corner->y;
        }
        column += 2;
    }
}

void writeFindings(spreadsheet::TableWriter &writer, const std::vector<PlanFinding> &findings)
{
    if (findings.empty())
        return;
    writer.BeginSheet({Texts::tr("Findings"),
                       {titled(Texts::tr("Kind")), titled(Texts::tr("Line"), ColumnType::Integer),
                        titled(Texts::tr("Concerns")), titled(Texts::tr("Finding"))}});
    for (const PlanFinding &finding : findings) {
        const bool isWarning = finding.severity == PlanFinding::Severity::Warning;
        const Cell cells[] = {isWarning ? Texts::tr("Warning") : Texts::tr("Note"),
                              finding.line > 0 ? Cell(finding.line) : Cell(), finding.subject,
                              finding.text};
        if (!writer.AddRow(cells))
            return;
    }
}

} // namespace

spreadsheet::Result ExportSheetTable(const PlanSession &session, spreadsheet::Target target)
{
    const DxfDrawing &drawing = session.Drawing();
    const TagColumns tags(session, 2);
    target.properties.title = session.Name();
    spreadsheet::TableWriter writer(std::move(target));
    const spreadsheet::Sheet sheet = sheetOf(drawing, tags);
    std::vector<Cell> cells(static_cast<std::size_t>(sheet.columns.size()));
    writer.BeginSheet(sheet);
    for (const quint32 number : session.Sheets()) {
        const DxfInsert &insert = drawing.Inserts()[number];
        if (!insert.exportMark)
            continue;
        fill(cells, drawing, insert, tags);
        if (!writer.AddRow(cells))
            break;
    }
    writeFindings(writer, session.Findings());
    return writer.Finish();
}
