// SPDX-License-Identifier: GPL-2.0-or-later
// The stored views of the project, as a list.
#pragma once

#include <QDockWidget>

class MainWindow;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The same views that the presentation menu plays; the navigation controls keep them.
class StoredViewDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit StoredViewDock(MainWindow &window);

    /// Stores what the view in front shows; false when that is nothing.
    bool store(const QString &name);

private:
    void fill();
    void askAndStore();
    void go(const QListWidgetItem *entry);
    void rename(const QListWidgetItem *entry);
    void remove();

    MainWindow &m_window;
    QListWidget *m_list;
    QPushButton *m_remove;
};
