// SPDX-License-Identifier: GPL-2.0-or-later
// The findings about a plan as a part of the workbench dialog.
#pragma once

#include <QWidget>
#include <kelo_base/dxf/PlanFinding.h>
#include <vector>

class FindingModel;
class EmptyHint;
class QLabel;
class QListView;

/// Long findings take several lines. The caption counts them, and those selected can be copied as
/// a table (all when none is).
class FindingPanel : public QWidget
{
    Q_OBJECT

public:
    explicit FindingPanel(QWidget *parent = nullptr);

    void setFindings(std::vector<PlanFinding> findings);
    /// Selects these and shows the first, without a signal.
    void selectRows(const std::vector<int> &rows);
    [[nodiscard]] const FindingModel &model() const { return *m_model; }
    [[nodiscard]] QWidget *list() const;

signals:
    /// Someone wants to see what it is about.
    void chosen(const PlanFinding &finding);

private:
    void showCounts();
    void copy() const;

    FindingModel *m_model;
    QListView *m_list;
    EmptyHint *m_hint;
    QLabel *m_title;
};
