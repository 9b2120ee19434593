// SPDX-License-Identifier: GPL-2.0-or-later
// The sheets of the dialog as a table for spreadsheet programs.
#include "dxf/workbench/tableexport_p.h"

#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/longwork_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/readingbar_p.h"
#include "dxf/workbench/readpanel_p.h"
#include "dxf/workbench/savequestion_p.h"
#include "dxf/workbench/sheetdesk_p.h"
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <algorithm>
#include <kelo_base/core/FileName.h>
#include <kelo_base/dxf/SheetTable.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Only what can be written here is offered.
QString tableFiles()
{
    QStringList filters;
    for (const spreadsheet::BackEndState &state : spreadsheet::BackEnds())
        for (const spreadsheet::Format format : state.formats)
            if (const QString filter = DxfDialogTexts::TableFiles(format);
                !filter.isEmpty() && !filters.contains(filter))
                filters << filter;
    return filters.join(u";;"_s);
}

qint64 markedSheets(const PlanSession &plan)
{
    const auto isMarked = [&plan](quint32 sheet) {
        return plan.Drawing().Inserts()[sheet].exportMark;
    };
    return std::ranges::count_if(plan.Sheets(), isMarked);
}

/// While rows are written their share is known, while the file is packed it is not.
std::function<bool(qint64)> progressFor(ReadingBar &shown, const QString &file, qint64 sheets)
{
    const QPointer<ReadingBar> bar = &shown;
    bar->beginStep(DxfDialogTexts::Writing(file), ReadingBar::Unit::Items);
    return [bar, sheets](qint64 rows) {
        return bar && bar->advance(rows, rows < sheets ? sheets : -1);
    };
}

void tellResult(MessageLine &line, const QString &file, qint64 sheets,
                const spreadsheet::Result &result)
{
    if (result.isCancelled)
        return line.inform(DxfDialogTexts::WritingCancelled(file));
    if (!result)
        return line.warn(result.error);
    QStringList sentences{DxfDialogTexts::Exported(sheets, file)};
    for (const spreadsheet::Finding &finding : result.findings)
        sentences << spreadsheet::Sentence(finding);
    line.inform(sentences.join(u" - "_s));
}

} // namespace

void dxftools::exportTable(DxfToolsForm &form, SheetDesk &desk, LongWork &work)
{
    if (!desk.plan())
        return;
    const QPointer<MessageLine> line = &form.exportMessage();
    const QString target =
        askForTarget(line->window(), desk.plan()->Path(),
                     {workbench::spoken(DxfDialogTexts::ExportTable()), tableFiles(), u"xlsx"_s});
    if (!line || target.isEmpty())
        return;
    const QString file = QDir::toNativeSeparators(target);
    const auto format = spreadsheet::FormatOf(target);
    if (AreSameFile(desk.plan()->Path(), target))
        return line->warn(DxfDialogTexts::IsThePlan(file));
    if (!format)
        return line->warn(DxfDialogTexts::NotExported(file, DxfDialogTexts::NoTableSuffix()));
    if (!work.begin())
        return;
    desk.completeReview();
    const std::shared_ptr<const PlanSession> plan = desk.sharedPlan(); // the desk may go meanwhile
    const qint64 sheets = markedSheets(*plan);
    spreadsheet::Target wanted;
    wanted.file = target;
    wanted.format = *format;
    wanted.csv = spreadsheet::CsvStyle::ForThisMachine();
    wanted.goesOn = progressFor(form.read().progress(), QFileInfo(target).fileName(), sheets);
    const spreadsheet::Result result = ExportSheetTable(*plan, wanted);
    if (!line)
        return;
    work.end();
    tellResult(*line, file, sheets, result);
    work.closeIfWanted();
}
