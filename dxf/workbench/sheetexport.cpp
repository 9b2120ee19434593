// SPDX-License-Identifier: GPL-2.0-or-later
// The export step of the dialog: where to, writing, and the report.
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/filterpanel_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/planchanges_p.h"
#include "dxf/workbench/savequestion_p.h"
#include "dxf/workbench/sheetdesk_p.h"
#include "dxf/workbench/sheetexport_p.h"
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <kelo_base/core/ScopedOverrideCursor.h>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QString sentenceFor(const FileFault &fault)
{
    switch (fault.kind) {
    case FileFault::Kind::IsFolder:
        return DxfDialogTexts::IsAFolder();
    case FileFault::Kind::IsWriteProtected:
        return DxfDialogTexts::IsWriteProtected();
    case FileFault::Kind::None:
    case FileFault::Kind::System:
        break;
    }
    return fault.reason;
}

/// Why a file was not written, with its name.
QString sentenceFor(const QString &target, const FileFault &fault)
{
    return DxfDialogTexts::NotExported(QDir::toNativeSeparators(target), sentenceFor(fault));
}

/// Nothing where no sheets were before.
std::optional<PlanChanges> changesIn(const QString &target, const PlanSession &plan,
                                     double tolerance)
{
    if (!QFileInfo(target).isFile())
        return std::nullopt;
    const Gk2Reading older = ReadGk2File(target);
    if (!older || older.records.empty())
        return std::nullopt;
    return dxftools::changesAgainst(older.records, plan.Drawing(), plan.Sheets(), tolerance);
}

void tellResult(MessageLine &line, const QString &target, const Gk2Export &result)
{
    const QString file = QDir::toNativeSeparators(target);
    if (result)
        return line.inform(DxfDialogTexts::Exported(result.written, file));
    if (result.outcome == Gk2Export::Outcome::IsThePlan)
        return line.warn(DxfDialogTexts::IsThePlan(file));
    const QString sentence = sentenceFor(target, result.fault);
    line.warn(result.keptOlder ? DxfDialogTexts::OlderFileKept(sentence) : sentence);
}

/// Counts what was formatted, stored or not; whether it was stored stands in the line.
void report(QWidget *parent, qint64 written)
{
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Information, DxfToolTexts::ExportReportTitle(),
                        DxfToolTexts::ExportReport(written), QMessageBox::Ok, parent);
    box->exec();
    delete box.data();
}

} // namespace

void dxftools::exportSheets(DxfToolsForm &form, SheetDesk &desk)
{
    if (!desk.plan())
        return;
    const QPointer<MessageLine> line = &form.exportMessage();
    QWidget *const window = line->window();
    const QString target = askForTarget(window, desk.plan()->Path(),
                                        {DxfToolTexts::ExportFileTitle(), u"*.txt"_s, u"txt"_s});
    if (!line || target.isEmpty())
        return;
    Gk2Export result;
    {
        const qor::QtScopedOverrideCursor wait(Qt::WaitCursor);
        const std::optional<PlanChanges> changes =
            changesIn(target, *desk.plan(), form.filter().tolerance());
        result = desk.plan()->Export(target);
        tellResult(*line, target, result);
        if (result && changes) {
            desk.showChanges(*changes);
            line->inform(DxfDialogTexts::ExportedWithChanges(line->text(), changes->summary));
        }
    }
    if (result.outcome != Gk2Export::Outcome::IsThePlan)
        report(window, result.written);
}

void dxftools::savePicture(DxfToolsForm &form, const SheetDesk &desk)
{
    if (!desk.plan())
        return;
    const QPointer<MessageLine> line = &form.exportMessage();
    const QString target = askForTarget(line->window(), desk.plan()->Path(),
                                        {workbench::spoken(DxfDialogTexts::SavePicture()),
                                         DxfDialogTexts::PictureFiles(), u"svg"_s});
    if (!line || target.isEmpty())
        return;
    const qor::QtScopedOverrideCursor wait(Qt::WaitCursor);
    const FileFault fault = desk.plan()->ExportPicture(target);
    if (fault.kind == FileFault::Kind::None)
        line->inform(DxfDialogTexts::PictureSaved(QDir::toNativeSeparators(target)));
    else
        line->warn(sentenceFor(target, fault));
}
