// SPDX-License-Identifier: GPL-2.0-or-later
// The plan on the desk: its sheets are chosen, listed, drawn and reviewed.
#pragma once

#include "dxf/workbench/filtercompletion_p.h"
#include <QObject>
#include <QTimer>
#include <kelo_base/core/ScopedOverrideCursor.h>
#include <kelo_base/dxf/PlanSession.h>
#include <memory>
#include <optional>
#include <vector>

class DxfToolsForm;
class QModelIndex;

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
    /// As they stand in the form.
    [[nodiscard]] AnalysisOptions options() const;

private:
    void connectFilter();
    void connectSheets();
    void connectSelection();
    void choose();
    void review();
    void relabel();
    void tellFailure();
    void showSheets();
    void showReview();
    void showCounts();
    [[nodiscard]] QString whyEmpty() const;
    [[nodiscard]] std::vector<quint32> selectedSheets() const;
    void selectSheets(const std::vector<quint32> &sheets);
    void showFinding(const QModelIndex &index);
    void toggleMarks();

    DxfToolsForm &m_form;
    FilterCompletion m_completion;
    std::unique_ptr<PlanSession> m_plan;
    QTimer m_reviewDue;
    std::optional<qor::QtScopedOverrideCursor> m_sorting; ///< a million sheets take a while
    bool m_isSharingSelection = false;
};
