// SPDX-License-Identifier: GPL-2.0-or-later
// Adds, renames, reorders and deletes stored views.
#pragma once

#include "navigation/controls/storedviews_p.h"
#include <QDialog>
#include <kelo_base/navigation/KView.h>

class QListWidget;
class QPushButton;

namespace navcontrols {

/// Each edit counts at once.
class StoredViewsDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param view  whose present view is added; watched
    StoredViewsDialog(StoredViews &stored, KView *view, QWidget *parent);

private:
    void fill(int current);
    void enable();
    void move(int steps);
    void remove();
    void rename(int row);
    QPushButton *addButton(const QString &text, void (StoredViewsDialog::*act)());
    void add();
    void moveUp() { move(-1); }
    void moveDown() { move(1); }
    void editTitle();

    QPointer<StoredViews> m_stored;
    QPointer<KView> m_view;
    QListWidget *m_list;
    QPushButton *m_add;
    QPushButton *m_rename;
    QPushButton *m_up;
    QPushButton *m_down;
    QPushButton *m_delete;
    bool m_isFilling = false;
};

} // namespace navcontrols
