// SPDX-License-Identifier: GPL-2.0-or-later
// The export step of the dialog: where to, writing, and the report.
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/gk2file_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/sheetdesk_p.h"
#include "dxf/workbench/sheetexport_p.h"
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <kelo_base/core/ScopedOverrideCursor.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Beside the plan, under its name. Empty when the user cancels.
QString askForTarget(QWidget *parent, const QString &plan)
{
    const QFileInfo info(plan);
    // Not on the stack: it is its parent's, which may be deleted while it is open.
    const QPointer<QFileDialog> dialog =
        new QFileDialog(parent, DxfToolTexts::ExportFileTitle(), info.path(), u"*.txt"_s);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(u"txt"_s);
    dialog->selectFile(info.completeBaseName() + ".txt"_L1);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    const QString target = isChosen ? dialog->selectedFiles().value(0) : QString();
    delete dialog.data();
    return target;
}

void tellResult(MessageLine &line, const QString &target, const Gk2FileResult &result)
{
    const QString file = QDir::toNativeSeparators(target);
    if (result)
        return line.inform(DxfDialogTexts::Exported(result.written, file));
    const QString sentence = DxfDialogTexts::NotExported(file, result.error);
    line.warn(result.keptOlderFile ? DxfDialogTexts::OlderFileKept(sentence) : sentence);
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

void ExportSheets(DxfToolsForm &form, const SheetDesk &desk)
{
    if (!desk.plan())
        return;
    const QPointer<MessageLine> line = form.exportMessage;
    QWidget *const window = line->window();
    const QString target = askForTarget(window, desk.plan()->path);
    if (!line || target.isEmpty())
        return;
    const OpenPlan &plan = *desk.plan();
    if (AreSameFile(target, plan.path))
        return line->warn(DxfDialogTexts::IsThePlan(QDir::toNativeSeparators(target)));
    Gk2FileResult result;
    {
        const qor::QtScopedOverrideCursor wait(Qt::WaitCursor);
        result = ReplaceGk2File(target, plan.drawing, plan.analysis.sheets);
    }
    tellResult(*line, target, result);
    report(window, result.written);
}
