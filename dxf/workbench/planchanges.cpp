// SPDX-License-Identifier: GPL-2.0-or-later
// What an export changes against the file that was there before, as the dialog tells it.
#include "dxf/workbench/planchanges_p.h"

#include "dxf/workbench/dxfdialogtexts_p.h"
#include <array>
#include <cmath>
#include <kelo_base/dxf/SheetComparison.h>

namespace {

using Kind = SheetChange::Kind;

QString sentenceFor(const SheetChange &change, const QString &before, const QString &after)
{
    switch (change.kind) {
    case Kind::New:
        return DxfDialogTexts::SheetIsNew(after);
    case Kind::Gone:
        return DxfDialogTexts::SheetIsGone(before);
    case Kind::Renamed:
        return DxfDialogTexts::SheetIsRenamed(before, after);
    case Kind::Moved:
        break;
    }
    return std::isfinite(change.distance)
               ? DxfDialogTexts::SheetHasMoved(after, QLocale().toString(change.distance, 'f', 2))
               : DxfDialogTexts::SheetHasOtherCorners(after);
}

} // namespace

PlanChanges dxftools::changesAgainst(std::span<const Gk2Record> older, const DxfDrawing &drawing,
                                     std::span<const quint32> sheets, double tolerance)
{
    std::vector<quint32> written;
    const std::vector<Gk2Record> newer = Gk2RecordsOf(drawing, sheets, &written);
    const auto shown = [&](std::span<const Gk2Record> records, std::size_t i) {
        return i < records.size() ? drawing.DisplayText(records[i].number.toStdString())
                                  : QString();
    };
    PlanChanges changes;
    std::array<qint64, 4> counts{};
    const std::vector<SheetChange> all = CompareSheets(older, newer, tolerance);
    for (const SheetChange &change : all) {
        ++counts[static_cast<std::size_t>(change.kind)];
        PlanFinding &note = changes.findings.emplace_back();
        note.severity = PlanFinding::Severity::Note;
        note.text = sentenceFor(change, shown(older, change.older), shown(newer, change.newer));
        if (change.newer == SheetChange::kNone)
            continue;
        const quint32 sheet = written[change.newer];
        (drawing.IsBinary() ? note.offset : note.line) = drawing.Inserts()[sheet].line;
    }
    changes.sheets = ChangedSheetsOf(all, written);
    changes.gone = counts[static_cast<std::size_t>(Kind::Gone)];
    changes.summary =
        DxfDialogTexts::ChangesCounted(counts[static_cast<std::size_t>(Kind::New)], changes.gone,
                                       counts[static_cast<std::size_t>(Kind::Moved)],
                                       counts[static_cast<std::size_t>(Kind::Renamed)]);
    return changes;
}
