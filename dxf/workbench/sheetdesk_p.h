// SPDX-License-Identifier: GPL-2.0-or-later
// The plan on the desk: its sheets are chosen, listed, drawn and reviewed.
#pragma once

#include <QObject>
#include <QTimer>
#include <kelo_base/dxf/PlanSession.h>
#include <memory>
#include <optional>
#include <vector>

class DxfToolsForm;
struct PlanChanges;

/// Keeps list, picture and findings in step with the plan, the filter and each other. While someone
/// types, only the list follows every key; what takes longer follows when the typing pauses.
class SheetDesk : public QObject
{
    Q_OBJECT

public:
    explicit SheetDesk(DxfToolsForm &form);
    ~SheetDesk() override;

    /// Replaces the plan shown.
    void show(std::unique_ptr<PlanSession> plan);
    /// Null while there is none.
    [[nodiscard]] const PlanSession *plan() const { return m_plan.get(); }
    /// The same, for whoever handles events while he looks at it.
    [[nodiscard]] std::shared_ptr<const PlanSession> sharedPlan() const { return m_plan; }
    /// Does at once what waits for a pause in typing, or handles events meanwhile.
    void completeReview();
    /// As they stand in the form.
    [[nodiscard]] AnalysisOptions options() const;
    /// Tells what an export changed against the older file, in findings and picture, until other
    /// sheets are shown.
    void showChanges(const PlanChanges &changes);
    /// While there is no plan: what stands in its place, or the invitation to open one.
    void showInstead(const QString &text);

private:
    void connectSheets();
    void choose();
    void review();
    void relabel();
    void showReviewed();
    void tellFailure();
    void showSheets();
    void showPicture();
    void showFindings();
    void select(const std::vector<quint32> &sheets);
    void followList();
    void showFindingsOf(const std::vector<quint32> &sheets);
    void showFinding(const PlanFinding &finding);
    [[nodiscard]] QString whyEmpty() const;

    DxfToolsForm &m_form;
    std::shared_ptr<PlanSession> m_plan; ///< shared with a review that is under way
    std::vector<PlanFinding> m_changes;  ///< of the last export, as findings
    QTimer m_reviewDue;
    bool m_isReviewing = false;
    bool m_isReviewStale = false; ///< plan, labels or filter changed since it began
};
