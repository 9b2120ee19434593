// SPDX-License-Identifier: GPL-2.0-or-later
// The plan on the desk: its sheets are chosen, listed, drawn and reviewed.
#include "dxf/workbench/sheetdesk_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/filterplan_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/filterpanel_p.h"
#include "dxf/workbench/findingmodel_p.h"
#include "dxf/workbench/findingpanel_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/picturepanel_p.h"
#include "dxf/workbench/planchanges_p.h"
#include "dxf/workbench/readpanel_p.h"
#include "dxf/workbench/sheetpanel_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <kelo_base/core/ScopedOverrideCursor.h>
#include <utility>

namespace {

constexpr int kReviewDelay = 120; ///< milliseconds; a pause in typing
/// More selected sheets than that are not looked for again when the list changes.
constexpr std::size_t kMostKeptSelected = 10'000;
/// Of more inserts nobody looks at each key for why a filter leaves none.
constexpr std::size_t kMostExplained = 100'000;

} // namespace

SheetDesk::SheetDesk(DxfToolsForm &form) : m_form(form)
{
    m_reviewDue.setSingleShot(true);
    m_reviewDue.setInterval(kReviewDelay);
    connect(&m_reviewDue, &QTimer::timeout, this, &SheetDesk::review);
    connect(&m_form.filter(), &FilterPanel::filterChanged, this, &SheetDesk::choose);
    connect(&m_form.filter(), &FilterPanel::labelsChanged, this, &SheetDesk::relabel);
    connect(&m_form.findings(), &FindingPanel::chosen, this, &SheetDesk::showFinding);
    connectSheets();
    showInstead({});
}

SheetDesk::~SheetDesk()
{
    // The views live a little longer than the plan.
    m_form.sheets().setDrawing(nullptr);
    m_form.filter().offerFrom(nullptr);
    m_form.picture().view().clear();
}

void SheetDesk::connectSheets()
{
    SheetPanel &list = m_form.sheets();
    const SheetPictureView *const picture = &m_form.picture().view();
    connect(&list, &SheetPanel::selectionChanged, this, &SheetDesk::followList);
    connect(&list, &SheetPanel::marksChanged, this,
            [this] { m_form.picture().view().showStates(m_plan->Sheets()); });
    connect(picture, &SheetPictureView::sheetsPicked, this, &SheetDesk::select);
    connect(picture, &SheetPictureView::marksToggled, &list, &SheetPanel::toggleMarks);
}

AnalysisOptions SheetDesk::options() const
{
    return m_form.filter().options();
}

void SheetDesk::showChanges(const PlanChanges &changes)
{
    m_changes = changes.findings;
    SheetPictureView &picture = m_form.picture().view();
    picture.showNews(changes.sheets, changes.gone);
    picture.showStates(m_plan->Sheets());
    showFindings();
}

void SheetDesk::showInstead(const QString &text)
{
    if (m_plan)
        return;
    const QString shown = text.isEmpty() ? DxfDialogTexts::NoPlan() : text;
    m_form.sheets().showHint(shown);
    m_form.picture().view().clear(shown);
}

void SheetDesk::show(std::unique_ptr<PlanSession> plan)
{
    m_reviewDue.stop();
    m_isReviewStale = true;
    const std::shared_ptr<PlanSession> old = std::exchange(m_plan, std::move(plan)); // still shown
    m_changes.clear();
    m_form.sheets().setDrawing(&m_plan->Drawing());
    m_form.filter().offerFrom(&m_plan->Drawing());
    showSheets();
    m_form.sheets().scrollToStart();
    showPicture();
    showFindings();
}

void SheetDesk::choose()
{
    if (!m_plan)
        return;
    m_isReviewStale = true;
    const std::vector<quint32> selected = m_form.sheets().selected();
    if (!m_plan->Choose(options().filter))
        return tellFailure();
    showSheets();
    select(selected.size() <= kMostKeptSelected ? selected : std::vector<quint32>());
    m_reviewDue.start();
}

/// Events are handled meanwhile, so that the next key need not wait. Whatever makes the review
/// stale ends it; the plan stays until it has ended, even if another one is shown.
void SheetDesk::review()
{
    if (m_isReviewing)
        return m_reviewDue.start();
    m_isReviewing = true;
    m_isReviewStale = false;
    const std::shared_ptr<PlanSession> plan = m_plan;
    const QPointer<SheetDesk> alive(this);
    QElapsedTimer sinceEvents;
    sinceEvents.start();
    const auto goOn = [&](qint64, qint64) {
        constexpr int kPatience = 25; // milliseconds
        if (sinceEvents.elapsed() >= kPatience) {
            QCoreApplication::processEvents();
            sinceEvents.restart();
        }
        return alive && !m_isReviewStale;
    };
    const bool isReviewed = plan->Review(options().filter, goOn);
    if (!alive)
        return;
    m_isReviewing = false;
    if (m_isReviewStale)
        return;
    if (!isReviewed)
        return tellFailure();
    showReviewed();
}

void SheetDesk::completeReview()
{
    if (!m_reviewDue.isActive() && !m_isReviewing)
        return;
    m_reviewDue.stop();
    m_isReviewStale = true; // so one that is under way ends
    if (!m_plan->Review(options().filter))
        return tellFailure();
    showReviewed();
}

void SheetDesk::showReviewed()
{
    m_form.sheets().showHint(whyEmpty());
    m_form.picture().view().showStates(m_plan->Sheets());
    showFindings();
}

void SheetDesk::relabel()
{
    if (!m_plan)
        return;
    const qor::QtScopedOverrideCursor wait(Qt::WaitCursor);
    m_reviewDue.stop();
    m_isReviewStale = true;
    const std::vector<quint32> selected = m_form.sheets().selected();
    const std::size_t inserts = m_plan->Drawing().Inserts().size();
    m_changes.clear();
    m_form.sheets().setDrawing(nullptr); // its inserts may become others
    m_form.picture().view().clear();
    if (!m_plan->Relabel(options()))
        tellFailure();
    m_form.sheets().setDrawing(&m_plan->Drawing());
    m_form.filter().offerFrom(&m_plan->Drawing());
    showSheets();
    showPicture();
    showFindings();
    if (m_plan->Drawing().Inserts().size() == inserts)
        select(selected);
}

void SheetDesk::tellFailure()
{
    m_form.read().message().warn(DxfToolTexts::AnalyzeFailed());
}

void SheetDesk::showSheets()
{
    // Of very many the reason takes a while: it follows with the findings.
    const bool isQuick = m_plan->Drawing().Inserts().size() <= kMostExplained;
    m_form.sheets().setSheets(m_plan->Sheets(), isQuick ? whyEmpty() : QString());
}

/// Of all that can be sheets: what the filter leaves out is fainter, not gone.
void SheetDesk::showPicture()
{
    const std::vector<quint32> &all = m_plan->AllSheets();
    SheetPictureView &picture = m_form.picture().view();
    if (all.empty())
        return picture.clear(whyEmpty());
    picture.setSheets(m_plan->Drawing(), all, m_plan->Name());
    picture.showStates(m_plan->Sheets());
}

void SheetDesk::showFindings()
{
    std::vector<PlanFinding> findings = m_plan->Findings();
    findings.insert(findings.begin(), m_changes.begin(), m_changes.end());
    m_form.findings().setFindings(std::move(findings));
    showFindingsOf(m_form.sheets().selected());
}

QString SheetDesk::whyEmpty() const
{
    if (!m_plan->Sheets().empty())
        return {};
    return dxftools::whyNoSheets(m_plan->Drawing(), options().filter);
}

void SheetDesk::select(const std::vector<quint32> &sheets)
{
    m_form.sheets().select(sheets);
    const std::vector<quint32> selected = m_form.sheets().selected();
    m_form.picture().view().setSelectedSheets(selected);
    showFindingsOf(selected);
}

void SheetDesk::followList()
{
    const std::vector<quint32> sheets = m_form.sheets().selected();
    SheetPictureView &picture = m_form.picture().view();
    picture.setSelectedSheets(sheets);
    if (sheets.size() == 1) // of several there is no telling which to look at
        picture.showSheet(sheets.front());
    showFindingsOf(sheets);
}

void SheetDesk::showFindingsOf(const std::vector<quint32> &sheets)
{
    const bool isOne = m_plan && sheets.size() == 1;
    m_form.findings().selectRows(
        isOne ? dxftools::findingsOf(sheets.front(), m_plan->Drawing(), m_form.findings().model())
              : std::vector<int>());
}

void SheetDesk::showFinding(const PlanFinding &finding)
{
    if (!m_plan)
        return;
    const auto sheet = dxftools::sheetOf(finding, m_plan->Drawing(), m_plan->Sheets());
    if (!sheet)
        return;
    m_form.sheets().select({*sheet});
    SheetPictureView &picture = m_form.picture().view();
    picture.setSelectedSheets({*sheet}); // the finding stays selected alone
    picture.showSheet(*sheet);
}
