// SPDX-License-Identifier: GPL-2.0-or-later
// What a user should know about a plan, as a list, and the way from there to the sheets.
#include "dxf/workbench/findingmodel_p.h"
#include <algorithm>

void FindingModel::setFindings(std::vector<PlanFinding> diagnostics)
{
    beginResetModel();
    m_diagnostics = std::move(diagnostics);
    endResetModel();
}

const PlanFinding &FindingModel::findingAt(int row) const
{
    return m_diagnostics[static_cast<std::size_t>(row)];
}

int FindingModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_diagnostics.size());
}

QVariant FindingModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const PlanFinding &diagnostic = findingAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return diagnostic.line > 0
                   ? tr("Line %1: %2").arg(QString::number(diagnostic.line), diagnostic.text)
                   : diagnostic.text;
    case kSeverityRole:
        return static_cast<int>(diagnostic.severity);
    default:
        return {};
    }
}

namespace {

/// Where a finding is, as blocks and inserts tell it; 0 when it is about all of the plan.
qint64 placeOf(const PlanFinding &diagnostic, const DxfDrawing &drawing)
{
    return drawing.IsBinary() ? diagnostic.offset : diagnostic.line;
}

} // namespace

std::optional<quint32> dxftools::sheetOf(const PlanFinding &diagnostic, const DxfDrawing &drawing,
                                         std::span<const quint32> sheets)
{
    const qint64 place = placeOf(diagnostic, drawing);
    if (place <= 0)
        return std::nullopt;
    const auto insertOf = [&](quint32 sheet) -> const DxfInsert & {
        return drawing.Inserts()[sheet];
    };
    const auto isMeant = [&](quint32 sheet) { return insertOf(sheet).line == place; };
    const auto usesBlockMeant = [&](quint32 sheet) {
        const DxfBlock *block = drawing.BlockOf(insertOf(sheet));
        return block && block->line == place;
    };
    auto found = std::ranges::find_if(sheets, isMeant);
    if (found == sheets.end())
        found = std::ranges::find_if(sheets, usesBlockMeant);
    return found == sheets.end() ? std::nullopt : std::optional(*found);
}

std::vector<int> dxftools::findingsOf(quint32 sheet, const DxfDrawing &drawing,
                                      const FindingModel &findings)
{
    const DxfInsert &insert = drawing.Inserts()[sheet];
    const DxfBlock *block = drawing.BlockOf(insert);
    std::vector<int> rows;
    for (int row = 0; row < findings.rowCount(); ++row) {
        const qint64 place = placeOf(findings.findingAt(row), drawing);
        if (place > 0 && (place == insert.line || (block && place == block->line)))
            rows.push_back(row);
    }
    return rows;
}
