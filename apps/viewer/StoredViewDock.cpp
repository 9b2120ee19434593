// SPDX-License-Identifier: GPL-2.0-or-later
// A list whose names are edited in place.
#include "StoredViewDock.h"

#include "MainWindow.h"
#include "Plan.h"
#include "PlanView.h"
#include "ViewerActions.h"
#include <QAction>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>

using namespace Qt::Literals::StringLiterals;

namespace {

NavCtrlMgrIfc &controls()
{
    return NavCtrlMgrIfc::Instance();
}

} // namespace

StoredViewDock::StoredViewDock(MainWindow &window)
    : QDockWidget(tr("Stored views")),
      m_window(window),
      m_list(new QListWidget),
      m_remove(new QPushButton(tr("&Delete")))
{
    setObjectName(u"storedViews"_s);
    auto *add = new QPushButton(tr("&Store..."));
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    auto *row = new QHBoxLayout;
    row->addWidget(add);
    row->addWidget(m_remove);
    column->addWidget(m_list, 1);
    column->addLayout(row);
    setWidget(content);
    m_list->setAccessibleName(windowTitle());
    m_list->setMinimumHeight(2 * fontMetrics().lineSpacing()); // for small screens
    m_list->setEditTriggers(QAbstractItemView::EditKeyPressed);
    connect(m_list, &QListWidget::itemActivated, this, &StoredViewDock::go);
    connect(m_list, &QListWidget::itemChanged, this, &StoredViewDock::rename);
    connect(add, &QPushButton::clicked, this, &StoredViewDock::askAndStore);
    connect(m_remove, &QPushButton::clicked, this, &StoredViewDock::remove);
    connect(&controls(), &NavCtrlMgrIfc::storedViewsChanged, this, &StoredViewDock::fill,
            Qt::QueuedConnection); // an entry may be in the midst of being edited
    connect(&controls(), &NavCtrlMgrIfc::storedViewsFailed, &window, &MainWindow::tell);
    new QShortcut(QKeySequence::Delete, m_list, this, &StoredViewDock::remove, Qt::WidgetShortcut);
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::StoreView, this, [this] { askAndStore(); });
    connect(&actions.action(ViewerAction::StoredViews), &QAction::toggled, this,
            &QWidget::setVisible);
    connect(this, &QDockWidget::visibilityChanged, this, [this] {
        m_window.actions().action(ViewerAction::StoredViews).setChecked(!isHidden());
        fill();
    });
    hide();
}

/// Nothing is asked for what nobody sees.
void StoredViewDock::fill()
{
    if (isHidden())
        return;
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const docwindow::UDocItem &view : controls().StoredViews()) {
        auto *entry = new QListWidgetItem(view.title, m_list);
        entry->setFlags(entry->flags() | Qt::ItemIsEditable);
        entry->setToolTip(view.fileName);
    }
    m_remove->setEnabled(m_list->count() > 0);
}

bool StoredViewDock::store(const QString &name)
{
    PlanView *view = m_window.currentView();
    return view && controls().StoreView(view, name);
}

void StoredViewDock::askAndStore()
{
    const PlanView *view = m_window.currentView();
    if (!view)
        return;
    const auto sheet = view->currentSheet();
    const QString suggestion =
        sheet ? tr("Sheet %1").arg(view->plan().sheets().title(*sheet)) : view->plan().name();
    bool isChosen = false;
    const QString name = QInputDialog::getText(&m_window, tr("Store view"), tr("Name of the view:"),
                                               QLineEdit::Normal, suggestion, &isChosen)
                             .trimmed();
    if (isChosen && store(name))
        m_window.actions().action(ViewerAction::StoredViews).setChecked(true);
}

void StoredViewDock::go(const QListWidgetItem *entry)
{
    const docwindow::UDocItem view = controls().StoredViews()[m_list->row(entry)];
    DocWindowXIfc *document = DocWindowXIfc::HInstance();
    if (document && !document->ShowDocument(m_window.currentView(), view))
        m_window.tell(tr("%1 cannot be shown: its plan or sheet is not there").arg(view.title));
}

void StoredViewDock::rename(const QListWidgetItem *entry)
{
    docwindow::UDocItemList views = controls().StoredViews();
    const int row = m_list->row(entry);
    docwindow::UDocItem view = views[row];
    if (!entry->text().trimmed().isEmpty())
        view.title = entry->text().trimmed();
    views.Replace(row, view);
    controls().SetStoredViews(views);
}

void StoredViewDock::remove()
{
    docwindow::UDocItemList views = controls().StoredViews();
    if (views.Remove(m_list->currentRow()))
        controls().SetStoredViews(views);
}
