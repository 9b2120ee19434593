// SPDX-License-Identifier: GPL-2.0-or-later
// Tabs that name their plans.
#include "PlanTabs.h"

#include "Plan.h"
#include "PlanView.h"
#include <QDir>
#include <QPointer>
#include <algorithm>
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
    const QPointer<PlanView> alive(view);
    setCurrentIndex(index);
    if (alive)
        view->setFocus();
    return alive;
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

/// The view may be in the midst of telling what happened: it goes when it is done, and its plan
/// after it.
void PlanTabs::close(PlanView *view)
{
    if (!view || indexOf(view) < 0 || view == m_closing)
        return;
    const QPointer<PlanTabs> alive(this);
    m_closing = view;
    emit aboutToClose(view);
    if (!alive)
        return;
    m_closing = nullptr;
    const auto isItsPlan = [&](const auto &owned) { return owned.get() == &view->plan(); };
    const auto entry = std::find_if(m_plans.begin(), m_plans.end(), isItsPlan);
    Plan *plan = entry->release();
    m_plans.erase(entry);
    view->deleteLater();
    plan->deleteLater();
    removeTab(indexOf(view)); // last: it tells which is in front now
}
