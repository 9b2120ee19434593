// SPDX-License-Identifier: GPL-2.0-or-later
// A list over the store; names are edited in place.
#include "StoredViewDock.h"

#include "DocWindow.h"
#include "MainWindow.h"
#include "Plan.h"
#include "PlanView.h"
#include "SheetAddress.h"
#include "ViewerActions.h"
#include <QAction>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <kelo_base/core/Database.h>
#include <limits>

using namespace Qt::Literals::StringLiterals;

StoredViewDock::StoredViewDock(MainWindow &window)
    : QDockWidget(tr("Stored views")),
      m_window(window),
      m_list(new QListWidget),
      m_add(new QPushButton(tr("&Store..."))),
      m_remove(new QPushButton(tr("&Delete")))
{
    setObjectName(u"storedViews"_s);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    auto *row = new QHBoxLayout;
    row->addWidget(m_add);
    row->addWidget(m_remove);
    column->addWidget(m_list, 1);
    column->addLayout(row);
    setWidget(content);
    m_list->setAccessibleName(tr("Stored views"));
    m_list->setEditTriggers(QAbstractItemView::EditKeyPressed);
    connect(m_list, &QListWidget::itemActivated, this, &StoredViewDock::go);
    connect(m_list, &QListWidget::itemChanged, this, &StoredViewDock::rename);
    connect(m_add, &QPushButton::clicked, this, &StoredViewDock::askAndStore);
    connect(m_remove, &QPushButton::clicked, this, &StoredViewDock::remove);
    new QShortcut(QKeySequence::Delete, m_list, this, &StoredViewDock::remove,
                  Qt::WidgetShortcut);
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::StoreView, this, [this] { askAndStore(); });
    connect(&actions.action(ViewerAction::StoredViews), &QAction::toggled, this,
            &QWidget::setVisible);
    connect(this, &QDockWidget::visibilityChanged, this, [this] {
        m_window.actions().action(ViewerAction::StoredViews).setChecked(!isHidden());
    });
    hide();
}

StoredViewDock::~StoredViewDock() = default;

void StoredViewDock::setDatabase(Database *database)
{
    m_database = database;
    m_store = database ? std::make_unique<ViewStore>(*database) : nullptr;
    fill();
}

QString StoredViewDock::plan() const
{
    const PlanView *view = m_window.currentView();
    return view ? view->plan().path() : QString();
}

void StoredViewDock::show(PlanView *view)
{
    m_add->setEnabled(view != nullptr);
    fill();
}

void StoredViewDock::fill()
{
    m_views = m_store && !plan().isEmpty() ? m_store->views(plan())
                                           : std::vector<StoredPlanView>();
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const StoredPlanView &view : m_views) {
        auto *entry = new QListWidgetItem(view.name, m_list);
        entry->setFlags(entry->flags() | Qt::ItemIsEditable);
    }
    m_remove->setEnabled(!m_views.empty());
}

bool StoredViewDock::tellUnless(bool isDone)
{
    if (!isDone)
        m_window.tell(m_database ? m_database->LastError() : tr("There is no database"));
    return isDone;
}

bool StoredViewDock::store(const QString &name)
{
    const PlanView *view = m_window.currentView();
    if (!view || name.isEmpty())
        return false;
    const bool isDone =
        tellUnless(m_store && m_store->store(view->plan().path(), name, view->pose()));
    fill();
    return isDone;
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
    if (PlanView *view = m_window.currentView())
        view->go(m_views[static_cast<std::size_t>(m_list->row(entry))].pose());
}

void StoredViewDock::rename(QListWidgetItem *entry)
{
    const QString &name = m_views[static_cast<std::size_t>(m_list->row(entry))].name;
    const QString newName = entry->text().trimmed();
    if (newName != name && !newName.isEmpty())
        tellUnless(m_store && m_store->rename(plan(), name, newName));
    QMetaObject::invokeMethod(this, &StoredViewDock::fill, Qt::QueuedConnection); // it is edited
}

void StoredViewDock::remove()
{
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    tellUnless(m_store && m_store->remove(plan(), m_views[static_cast<std::size_t>(row)].name));
    fill();
}

docwindow::UDocItemList StoredViewDock::items(const QString &wanted) const
{
    docwindow::UDocItemList items;
    if (wanted != plan())
        return items;
    for (const StoredPlanView &view : m_views) {
        docwindow::UDocItem item;
        item.fileName = SheetAddress{wanted, {}}.toText();
        item.title = view.name;
        item.documentNumber = docwindow::UDocItem::kMaxDocumentNumber;
        item.rotation = qRound(view.angle);
        item.position.geoPoint = QPointF(view.x, view.y);
        items << item;
    }
    return items;
}
