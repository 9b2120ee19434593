// SPDX-License-Identifier: GPL-2.0-or-later
// Asks for files, and words what became of them.
#include "FileCommands.h"

#include "MainWindow.h"
#include "Plan.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "ViewerActions.h"
#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStatusBar>
#include <kelo_base/core/ReplacedFile.h>
#include <kelo_base/dxf/SheetTable.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(FileCommands)

public:
    static QString Why(const FileFault &fault)
    {
        switch (fault.kind) {
        case FileFault::Kind::IsFolder:
            return tr("it is a folder");
        case FileFault::Kind::IsWriteProtected:
            return tr("it is write-protected");
        case FileFault::Kind::None:
        case FileFault::Kind::System:
            break;
        }
        return fault.reason;
    }
    static QString NotWritten(const QString &file, const FileFault &fault)
    {
        return tr("%1 was not written: %2").arg(QDir::toNativeSeparators(file), Why(fault));
    }
    static QString SheetsWritten(const QString &file, qint64 count)
    {
        return (count == 1 ? tr("1 sheet was written to %1")
                           : tr("%n sheets were written to %1", nullptr, static_cast<int>(count)))
            .arg(QFileInfo(file).fileName());
    }
    static QString RowsWritten(const QString &file, qint64 count)
    {
        return (count == 1 ? tr("1 row was written to %1")
                           : tr("%n rows were written to %1", nullptr, static_cast<int>(count)))
            .arg(QFileInfo(file).fileName());
    }
    static QString Refused(const QString &file, const Gk2Export &done)
    {
        const QString name = QDir::toNativeSeparators(file);
        switch (done.outcome) {
        case Gk2Export::Outcome::IsThePlan:
            return tr("%1 is the plan itself").arg(name);
        case Gk2Export::Outcome::IsForeign:
            return tr("%1 is no GK2 file, and stays as it is").arg(name);
        case Gk2Export::Outcome::WouldBeEmpty:
            return tr("There are no sheets to be written, and %1 stays as it is").arg(name);
        case Gk2Export::Outcome::NotStored:
            return NotWritten(file, done.fault);
        case Gk2Export::Outcome::Written:
        case Gk2Export::Outcome::Cancelled:
            break;
        }
        return {};
    }
};

} // namespace

FileCommands::FileCommands(MainWindow &window) : QObject(&window), m_window(window)
{
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::Open, this, [this] { askAndOpen(); });
    actions.on(ViewerAction::Reload, this, [this] {
        if (PlanView *view = m_window.currentView())
            m_window.readAgain(*view);
    });
    actions.on(ViewerAction::ExportGk2, this, [this] { askAndExportGk2(); });
    actions.on(ViewerAction::ExportTable, this, [this] { askAndExportTable(); });
    actions.on(ViewerAction::SavePicture, this, [this] { askAndSavePicture(); });
    actions.on(ViewerAction::CloseTab, this,
               [this] { m_window.tabs().close(m_window.currentView()); });
    actions.on(ViewerAction::Quit, this, [this] { m_window.close(); });
}

QString FileCommands::suggested(const QString &ending) const
{
    const QFileInfo plan(m_window.currentView()->plan().path());
    return plan.dir().filePath(plan.completeBaseName() + ending);
}

void FileCommands::askAndOpen()
{
    const PlanView *view = m_window.currentView();
    const QString folder = view ? QFileInfo(view->plan().path()).path() : QString();
    const QStringList files = QFileDialog::getOpenFileNames(
        &m_window, tr("Open plans"), folder, tr("DXF plans (*.dxf *.DXF);;All files (*)"));
    for (const QString &file : files)
        m_window.openPlan(file);
}

void FileCommands::askAndExportGk2()
{
    const QString file =
        QFileDialog::getSaveFileName(&m_window, tr("Export as GK2"), suggested(u".txt"_s),
                                     tr("GK2 files (*.txt);;All files (*)"));
    if (!file.isEmpty())
        exportGk2(file);
}

void FileCommands::exportGk2(const QString &file)
{
    const PlanView *view = m_window.currentView();
    if (!view)
        return;
    const Gk2Export done =
        view->plan().session().Export(file, {.replacesForeign = false, .replacesByNone = false});
    m_window.tell(Texts::Refused(file, done));
    if (done)
        m_window.statusBar()->showMessage(Texts::SheetsWritten(file, done.written));
}

void FileCommands::askAndExportTable()
{
    const QString file =
        QFileDialog::getSaveFileName(&m_window, tr("Export as table"), suggested(u".xlsx"_s),
                                     tr("Tables (*.xlsx *.ods *.csv *.pdf);;All files (*)"));
    if (!file.isEmpty())
        exportTable(file);
}

void FileCommands::exportTable(const QString &file)
{
    const PlanView *view = m_window.currentView();
    if (!view)
        return;
    const auto format = spreadsheet::FormatOf(file);
    if (!format) {
        m_window.tell(tr("%1 has none of the endings .xlsx, .ods, .csv and .pdf")
                          .arg(QFileInfo(file).fileName()));
        return;
    }
    spreadsheet::Target target;
    target.file = file;
    target.format = *format;
    target.csv = spreadsheet::CsvStyle::ForThisMachine();
    const spreadsheet::Result done = ExportSheetTable(view->plan().session(), std::move(target));
    m_window.tell(done.error);
    if (done)
        m_window.statusBar()->showMessage(Texts::RowsWritten(file, done.rows));
}

void FileCommands::askAndSavePicture()
{
    const QString file = QFileDialog::getSaveFileName(&m_window, tr("Save picture"),
                                                      suggested(u".png"_s), tr("Pictures (*.png)"));
    if (!file.isEmpty())
        savePicture(file);
}

void FileCommands::savePicture(const QString &file)
{
    PlanView *view = m_window.currentView();
    if (!view)
        return;
    view->completePicture();
    ReplacedFile target(file);
    QBuffer picture;
    const bool isThere =
        picture.open(QIODevice::WriteOnly) && view->grab().save(&picture, "PNG") && target.Open() &&
        target.Device().write(picture.data()) == picture.data().size() && target.Commit();
    m_window.tell(isThere ? QString() : Texts::NotWritten(file, target.Fault()));
}
