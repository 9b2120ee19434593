// SPDX-License-Identifier: GPL-2.0-or-later
// The workbench for the sheets of DXF plans: read, analyse, filter, export as GK2.
#include <kelo_base/dxf/DxfToolsDialog.h>

#include "dxf/workbench/aboutdialog_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/dxftoolskeys_p.h"
#include "dxf/workbench/dxftoolsstore_p.h"
#include "dxf/workbench/filterpanel_p.h"
#include "dxf/workbench/layoutmemory_p.h"
#include "dxf/workbench/longwork_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/picturepanel_p.h"
#include "dxf/workbench/planopener_p.h"
#include "dxf/workbench/readpanel_p.h"
#include "dxf/workbench/sheetdesk_p.h"
#include "dxf/workbench/sheetexport_p.h"
#include "dxf/workbench/tableexport_p.h"
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <kelo_base/dxf/SheetComparison.h>

namespace {

/// The plan that is dropped; empty when it is none, or more than one: only one can be shown.
QString droppedFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

bool areSeveralFiles(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() > 1 && std::ranges::all_of(urls, &QUrl::isLocalFile);
}

/// The plan is only read. Told that it was moved, some programs delete it where it was.
void acceptCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

struct DxfToolsDialog::Parts
{
    Parts(DxfToolsDialog *dialog, QSettings *given)
        : store(given),
          form(dialog),
          desk(form),
          work(form),
          opener(form, desk, store, work),
          layout(dialog, form, store)
    {
    }

    DxfToolsStore store;
    DxfToolsForm form;
    SheetDesk desk;
    LongWork work;
    PlanOpener opener;
    LayoutMemory layout;
    QShortcut *openKeys = nullptr; ///< the dialog's
};

DxfToolsDialog::DxfToolsDialog(QWidget *parent, QSettings *store)
    : QDialog(parent),
      m_parts(std::make_unique<Parts>(this, store)),
      btnExportAsGK2(&m_parts->form.exportButton())
{
    // A window of its own: it can be enlarged, and stays usable beside others.
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setWindowTitle(DxfDialogTexts::Title());
    setAcceptDrops(true);
    const DxfToolsForm &form = m_parts->form;
    connect(&form.read(), &ReadPanel::openWanted, this, &DxfToolsDialog::OnOpenFileClicked);
    m_parts->openKeys =
        new QShortcut(QKeySequence::Open, this, this, &DxfToolsDialog::OnOpenFileClicked);
    connect(btnExportAsGK2, &QPushButton::clicked, this, &DxfToolsDialog::OnExportAsGK2Clicked);
    connect(&form.tableButton(), &QPushButton::clicked, this,
            [this] { dxftools::exportTable(m_parts->form, m_parts->desk, m_parts->work); });
    connect(&form.aboutButton(), &QPushButton::clicked, this,
            [this] { workbench::showAbout(this); });
    connect(&form.closeButton(), &QPushButton::clicked, this, &DxfToolsDialog::close);
    connect(&form.picture(), &PicturePanel::saveWanted, this, [this] {
        if (!m_parts->work.isRunning())
            dxftools::savePicture(m_parts->form, m_parts->desk);
    });
    rememberTolerance();
    connect(&m_parts->opener, &PlanOpener::planShown, this, [this] {
        setWindowTitle(DxfDialogTexts::TitleWithPlan(m_parts->desk.plan()->Name()));
    });
    connect(&m_parts->work, &LongWork::closeWanted, this, &DxfToolsDialog::close);
}

void DxfToolsDialog::rememberTolerance()
{
    FilterPanel &filter = m_parts->form.filter();
    if (const QSettings *const settings = m_parts->store.settings())
        filter.setTolerance(settings->value(dxftools::kTolerance, kDefaultTolerance).toDouble());
    connect(&filter, &FilterPanel::toleranceChanged, this, [this](double tolerance) {
        if (QSettings *const settings = m_parts->store.settings())
            settings->setValue(dxftools::kTolerance, tolerance);
    });
}

DxfToolsDialog::~DxfToolsDialog()
{
    if (isVisible())
        m_parts->layout.save();
}

void DxfToolsDialog::SetEmbedded()
{
    setWindowFlags(Qt::Widget);
    setAcceptDrops(false);
    m_parts->openKeys->setEnabled(false);
    m_parts->form.closeButton().hide();
    m_parts->form.sides().setOrientation(Qt::Vertical); // as wide as a column of them
}

bool DxfToolsDialog::ReadFile(const QString &path)
{
    return m_parts->opener.read(path);
}

bool DxfToolsDialog::IsReading() const
{
    return m_parts->opener.isReading();
}

void DxfToolsDialog::CancelReading()
{
    if (IsReading())
        m_parts->work.cancel();
}

QString DxfToolsDialog::FileName() const
{
    const PlanSession *plan = m_parts->desk.plan();
    return plan ? plan->Path() : QString();
}

void DxfToolsDialog::OnOpenFileClicked()
{
    m_parts->opener.askAndRead();
}

void DxfToolsDialog::OnExportAsGK2Clicked()
{
    if (!m_parts->work.isRunning())
        dxftools::exportSheets(m_parts->form, m_parts->desk);
}

void DxfToolsDialog::done(int result)
{
    m_parts->work.cancel(); // nobody would see it
    m_parts->layout.save();
    QDialog::done(result);
}

void DxfToolsDialog::closeEvent(QCloseEvent *event)
{
    if (m_parts->work.isRunning()) {
        m_parts->work.cancelAndClose();
        event->ignore();
    } else {
        QDialog::closeEvent(event);
    }
}

void DxfToolsDialog::keyPressEvent(QKeyEvent *event)
{
    // Escape closes nothing: pressed a moment after the reading, it would throw the marks away.
    if (event->matches(QKeySequence::Cancel))
        m_parts->work.cancel();
    else
        QDialog::keyPressEvent(event);
}

void DxfToolsDialog::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_parts->work.isRunning())
        return;
    if (!droppedFile(event->mimeData()).isEmpty())
        acceptCopy(*event);
    else if (areSeveralFiles(event->mimeData())) // refused, so there will be no drop to answer
        m_parts->form.read().message().warn(DxfDialogTexts::OnlyOneFile());
}

void DxfToolsDialog::dropEvent(QDropEvent *event)
{
    acceptCopy(*event);
    // Afterwards: the program from which it was dragged waits for an answer.
    QTimer::singleShot(0, this, [this, path = droppedFile(event->mimeData())] { ReadFile(path); });
}
