// SPDX-License-Identifier: GPL-2.0-or-later
// The page on which shortcuts are searched, changed and reset.
#pragma once

#include "actions/configuration/configurationplans_p.h"
#include <QWidget>

class ActionManager;
class QCheckBox;
class QLineEdit;
class QToolButton;
class QTreeView;

namespace menuconfig {

class ShortcutEditor;
class ShortcutModel;
class StrokeRecorder;
class WorkingCopy;

class ShortcutsPage : public QWidget
{
    Q_OBJECT

public:
    /// @param copy  outlives the page
    ShortcutsPage(ActionManager &actions, WorkingCopy &copy, QWidget *parent = nullptr);

    /// The row that was chosen stays so, if it is still there.
    void setSurroundings(Surroundings given);
    /// Takes the filter away if that hides the row. Nothing happens for an unknown id.
    void showAction(int id);
    [[nodiscard]] QTreeView &tree() { return *m_tree; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void connectAll();
    void expandCategories();
    void filter();
    void select(int id);
    void showCounts();
    void toggleKeySearch(bool isOn);
    void resetRow();
    void resetCategory();
    void resetAll();
    void reset(const std::vector<int> &ids, OwnKeys ownKeys, const QString &step);
    [[nodiscard]] bool agrees(const QStringList &lines);

    WorkingCopy &m_copy;
    ShortcutModel *m_model;
    QTreeView *m_tree;
    QLineEdit *m_filter;
    StrokeRecorder *m_keys;
    QToolButton *m_findKeys;
    QCheckBox *m_onlyConflicts;
    QCheckBox *m_onlyChanged;
    QToolButton *m_reset;
    ShortcutEditor *m_editor;
    std::optional<int> m_id; ///< the function that was chosen last
};

} // namespace menuconfig
