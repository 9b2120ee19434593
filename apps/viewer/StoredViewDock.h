// SPDX-License-Identifier: GPL-2.0-or-later
// The stored views of the plan in front.
#pragma once

#include "ViewStore.h"
#include <QDockWidget>
#include <memory>

class Database;
class MainWindow;
class PlanView;
class QListWidget;
class QListWidgetItem;
class QPushButton;

class StoredViewDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit StoredViewDock(MainWindow &window);
    ~StoredViewDock() override;

    /// Without one, nothing can be stored. Not owned; outlives this.
    void setDatabase(Database *database);
    /// Shows the views of this view's plan; null: none.
    void show(PlanView *view);
    /// Stores the view in front; false when there is none, or the database fails.
    bool store(const QString &name);
    /// The stored views of a plan as documents.
    [[nodiscard]] docwindow::UDocItemList items(const QString &plan) const;

private:
    void fill();
    void askAndStore();
    void go(const QListWidgetItem *entry);
    void rename(QListWidgetItem *entry);
    void remove();
    [[nodiscard]] QString plan() const;
    bool tellUnless(bool isDone);

    MainWindow &m_window;
    Database *m_database = nullptr;
    std::unique_ptr<ViewStore> m_store;
    std::vector<StoredPlanView> m_views;
    QListWidget *m_list;
    QPushButton *m_add;
    QPushButton *m_remove;
};
