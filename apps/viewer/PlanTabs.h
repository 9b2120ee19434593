// SPDX-License-Identifier: GPL-2.0-or-later
// The plans that are open, one a tab.
#pragma once

#include <QTabWidget>
#include <memory>
#include <vector>

class Plan;
class PlanView;

/// Owns plans and views; a view belongs to its plan and dies before it.
class PlanTabs : public QTabWidget
{
    Q_OBJECT

public:
    explicit PlanTabs(QWidget *parent = nullptr);
    ~PlanTabs() override;

    /// Shows the plan in a tab of its own, in front.
    /// @return null when a listener has deleted it meanwhile
    PlanView *add(std::unique_ptr<Plan> plan);
    /// Null while there is none.
    [[nodiscard]] PlanView *currentView() const;
    /// The tab of a file, by whatever name; null when it is not open.
    [[nodiscard]] PlanView *viewOf(const QString &path) const;
    [[nodiscard]] std::vector<PlanView *> views() const;
    /// Takes the tab away; view and plan live until control returns to the event loop.
    void close(PlanView *view);

signals:
    /// Another tab is in front, or none is left.
    void currentViewChanged(PlanView *view);
    void aboutToClose(PlanView *view);

private:
    std::vector<std::unique_ptr<Plan>> m_plans;
    const PlanView *m_closing = nullptr; ///< compared only
};
