// SPDX-License-Identifier: GPL-2.0-or-later
// Tabs that name their plans.
#include "PlanTabs.h"

#include "Plan.h"
#include "PlanView.h"
#include <QDir>
#include <kelo_base/core/FileName.h>

PlanTabs::PlanTabs(QWidget *parent) : QTabWidget(parent)
{
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    setTabBarAutoHide(true);
    connect(this, &QTabWidget::currentChanged, this,
            [this] { emit currentViewChanged(currentView()); });
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { close(qobject_cast<PlanView *>(widget(index))); });
}

PlanTabs::~PlanTabs()
{
    blockSignals(true);
    for (PlanView *view : views())
        delete view; // before its plan
}

PlanView *PlanTabs::add(std::unique_ptr<Plan> plan)
{
    m_plans.push_back(std::move(plan));
    Plan &added = *m_plans.back();
    auto *view = new PlanView(added);
    const int index = addTab(view, QString(added.name()).replace(u'&', QStringLiteral("&&")));
    setTabToolTip(index, QDir::toNativeSeparators(added.path()));
    setCurrentIndex(index);
    view->setFocus();
    return view;
}

PlanView *PlanTabs::currentView() const
{
    return qobject_cast<PlanView *>(currentWidget());
}

std::vector<PlanView *> PlanTabs::views() const
{
    std::vector<PlanView *> views;
    views.reserve(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i)
        views.push_back(qobject_cast<PlanView *>(widget(i)));
    return views;
}

PlanView *PlanTabs::viewOf(const QString &path) const
{
    for (PlanView *view : views())
        if (view->plan().path() == path || AreSameFile(view->plan().path(), path))
            return view;
    return nullptr;
}

void PlanTabs::close(PlanView *view)
{
    if (!view)
        return;
    emit aboutToClose(view);
    const Plan *plan = &view->plan();
    removeTab(indexOf(view));
    delete view;
    std::erase_if(m_plans, [plan](const auto &owned) { return owned.get() == plan; });
}
