// SPDX-License-Identifier: GPL-2.0-or-later
// The plan on the desk: its sheets are chosen, listed, drawn and reviewed.
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/filterplan_p.h"
#include "dxf/workbench/diagnosticmodel_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/emptyhint_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/sheetdesk_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include <QCheckBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTableView>
#include <QToolButton>
#include <algorithm>

namespace {

constexpr int kReviewDelay = 120; ///< milliseconds; a pause in typing
/// More selected sheets than that are not looked for again when the list changes.
constexpr std::size_t kMostKeptSelected = 10'000;

/// The rows as few ranges: a selection of 100,000 single rows would take seconds.
QItemSelection rowSelection(const QAbstractItemModel &model, std::vector<int> rows)
{
    QItemSelection selection;
    std::ranges::sort(rows);
    const int lastColumn = model.columnCount() - 1;
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = first;
        while (std::next(last) != rows.end() && *std::next(last) <= *last + 1)
            ++last;
        selection.append({model.index(*first, 0), model.index(*last, lastColumn)});
        first = std::next(last);
    }
    return selection;
}

} // namespace

SheetDesk::SheetDesk(DxfToolsForm &form) : m_form(form), m_completion(form)
{
    m_reviewDue.setSingleShot(true);
    m_reviewDue.setInterval(kReviewDelay);
    connect(&m_reviewDue, &QTimer::timeout, this, &SheetDesk::review);
    connectFilter();
    connectSelection();
    connectSheets();
    m_form.sheetHint->showText(DxfDialogTexts::NoPlan());
    m_form.picture->clear(DxfDialogTexts::NoPlan());
}

SheetDesk::~SheetDesk()
{
    // The views live a little longer than the plan.
    m_form.sheetModel->setDrawing(nullptr);
    m_form.picture->clear();
}

void SheetDesk::connectFilter()
{
    for (const QGroupBox *group : {m_form.grpInclude, m_form.grpExclude})
        connect(group, &QGroupBox::toggled, this, &SheetDesk::choose);
    for (const QLineEdit *edit :
         {m_form.edtIncludeTag, m_form.edtIncludeValue, m_form.edtExcludeTag})
        connect(edit, &QLineEdit::textChanged, this, &SheetDesk::choose);
    connect(m_form.chkCorrectVertexPositions, &QCheckBox::toggled, this, &SheetDesk::relabel);
}

void SheetDesk::connectSheets()
{
    const SheetTableModel *const model = m_form.sheetModel;
    connect(model, &SheetTableModel::marksChanged, this, &SheetDesk::showCounts);
    connect(model, &SheetTableModel::layoutAboutToBeChanged, this,
            [this] { m_sorting.emplace(Qt::WaitCursor); });
    connect(model, &SheetTableModel::layoutChanged, this, [this] { m_sorting.reset(); });
    new QShortcut(Qt::Key_Space, m_form.sheetList, this, &SheetDesk::toggleMarks,
                  Qt::WidgetShortcut);
    connect(m_form.btnMarkAll, &QPushButton::clicked, this,
            [this] { m_form.sheetModel->setAllMarks(true); });
    connect(m_form.btnMarkNone, &QPushButton::clicked, this,
            [this] { m_form.sheetModel->setAllMarks(false); });
}

void SheetDesk::connectSelection()
{
    SheetPictureView *const picture = m_form.picture;
    connect(m_form.sheetList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, picture] {
                if (m_isSharingSelection)
                    return;
                const std::vector<quint32> sheets = selectedSheets();
                picture->setSelectedSheets(sheets);
                if (sheets.size() == 1) // of several there is no telling which to look at
                    picture->showSheet(sheets.front());
            });
    connect(picture, &SheetPictureView::sheetsPicked, this, &SheetDesk::selectSheets);
    connect(m_form.btnZoomIn, &QToolButton::clicked, picture, &SheetPictureView::zoomIn);
    connect(m_form.btnZoomOut, &QToolButton::clicked, picture, &SheetPictureView::zoomOut);
    connect(m_form.btnZoomToFit, &QToolButton::clicked, picture, &SheetPictureView::zoomToFit);
    connect(m_form.findingList, &QListView::clicked, this, &SheetDesk::showFinding);
    connect(m_form.findingList, &QListView::activated, this, &SheetDesk::showFinding);
}

AnalysisOptions SheetDesk::options() const
{
    AnalysisOptions options;
    options.order =
        m_form.chkCorrectVertexPositions->isChecked() ? CornerOrder::Upright : CornerOrder::AsDrawn;
    options.filter = FilterOf({.includes = m_form.grpInclude->isChecked(),
                               .includeTag = m_form.edtIncludeTag->text(),
                               .includeValue = m_form.edtIncludeValue->text(),
                               .excludes = m_form.grpExclude->isChecked(),
                               .excludeTag = m_form.edtExcludeTag->text()});
    return options;
}

void SheetDesk::show(std::unique_ptr<PlanSession> plan)
{
    m_reviewDue.stop();
    const std::unique_ptr<PlanSession> old = std::exchange(m_plan, std::move(plan)); // still shown
    m_form.sheetModel->setDrawing(&m_plan->Drawing());
    m_completion.offerTags(m_plan->Drawing());
    showSheets();
    showReview();
}

void SheetDesk::choose()
{
    if (!m_plan)
        return;
    const std::vector<quint32> selected = selectedSheets();
    if (!m_plan->Choose(options().filter))
        return tellFailure();
    showSheets();
    if (selected.size() <= kMostKeptSelected)
        selectSheets(selected);
    m_reviewDue.start();
}

void SheetDesk::review()
{
    const qor::QtScopedOverrideCursor wait(Qt::WaitCursor);
    QElapsedTimer time;
    time.start();
    if (!m_plan->Review(options().filter))
        return tellFailure();
    showReview();
    m_form.picture->setSelectedSheets(selectedSheets());
    // A plan so large that this can be felt waits for a longer pause.
    m_reviewDue.setInterval(std::max(kReviewDelay, static_cast<int>(2 * time.elapsed())));
}

void SheetDesk::relabel()
{
    if (!m_plan)
        return;
    const qor::QtScopedOverrideCursor wait(Qt::WaitCursor);
    const std::vector<quint32> selected = selectedSheets();
    m_reviewDue.stop();
    if (!m_plan->Relabel(options()))
        return tellFailure();
    m_form.sheetModel->setDrawing(&m_plan->Drawing());
    showSheets();
    showReview();
    selectSheets(selected);
}

void SheetDesk::tellFailure()
{
    m_form.readMessage->warn(DxfToolTexts::AnalyzeFailed());
}

void SheetDesk::showSheets()
{
    const QScopedValueRollback keepPicture(m_isSharingSelection, true);
    m_form.sheetModel->setSheets(m_plan->Sheets());
    m_form.sheetHint->showText(whyEmpty());
    showCounts();
}

void SheetDesk::showReview()
{
    const std::vector<quint32> &sheets = m_plan->Sheets();
    m_form.findingModel->setDiagnostics(m_plan->Findings());
    m_form.findingHint->showText(m_form.findingModel->rowCount() == 0 ? DxfDialogTexts::NoFindings()
                                                                      : QString());
    if (sheets.empty())
        m_form.picture->clear(whyEmpty());
    else
        m_form.picture->setSheets(m_plan->Drawing(), sheets, m_plan->Name());
    m_completion.offerValues(m_plan->Drawing());
}

void SheetDesk::showCounts()
{
    const QLocale locale;
    m_form.lblCounter->setText(locale.toString(m_form.sheetModel->rowCount()));
    m_form.lblToBeExported->setText(DxfDialogTexts::ToBeExported(m_form.sheetModel->markedCount()));
}

QString SheetDesk::whyEmpty() const
{
    if (!m_plan->Sheets().empty())
        return {};
    return WhyNoSheets(m_plan->Drawing(), options().filter);
}

std::vector<quint32> SheetDesk::selectedSheets() const
{
    std::vector<quint32> sheets;
    for (const QItemSelectionRange &range : m_form.sheetList->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            sheets.push_back(m_form.sheetModel->sheetAt(row));
    return sheets;
}

void SheetDesk::selectSheets(const std::vector<quint32> &sheets)
{
    const SheetTableModel &model = *m_form.sheetModel;
    std::vector<int> rows;
    for (const quint32 sheet : sheets)
        if (const int row = model.rowOf(sheet); row >= 0)
            rows.push_back(row);
    QItemSelectionModel *const selection = m_form.sheetList->selectionModel();
    {
        const QScopedValueRollback noEcho(m_isSharingSelection, true);
        if (!rows.empty())
            selection->setCurrentIndex(model.index(rows.front(), 0), QItemSelectionModel::NoUpdate);
        selection->select(rowSelection(model, rows), QItemSelectionModel::ClearAndSelect);
    }
    if (!rows.empty())
        m_form.sheetList->scrollTo(model.index(rows.front(), 0));
    m_form.picture->setSelectedSheets(selectedSheets());
}

void SheetDesk::showFinding(const QModelIndex &index)
{
    if (!m_plan)
        return;
    const Diagnostic &finding = m_form.findingModel->diagnosticAt(index.row());
    const auto sheet = SheetOf(finding, m_plan->Drawing(), m_plan->Sheets());
    if (!sheet)
        return;
    selectSheets({*sheet});
    m_form.picture->showSheet(*sheet);
}

/// All selected sheets get the mark that the current one has not; where none is selected, as when
/// the list was just reached by keyboard, only the current one does.
void SheetDesk::toggleMarks()
{
    SheetTableModel &model = *m_form.sheetModel;
    const QItemSelectionModel &selection = *m_form.sheetList->selectionModel();
    const QModelIndex current = model.index(selection.currentIndex().row(), 0);
    if (!current.isValid())
        return;
    const bool isMarked = current.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    const Qt::CheckState state = isMarked ? Qt::Unchecked : Qt::Checked;
    {
        const QSignalBlocker once(model); // not for each of 100,000 sheets
        if (!selection.hasSelection())
            model.setData(current, state, Qt::CheckStateRole);
        for (const QItemSelectionRange &range : selection.selection())
            for (int row = range.top(); row <= range.bottom(); ++row)
                model.setData(model.index(row, 0), state, Qt::CheckStateRole);
    }
    m_form.sheetList->viewport()->update();
    showCounts();
}
