// SPDX-License-Identifier: GPL-2.0-or-later
// All functions by category, with their shortcuts, as a tree.
#pragma once

#include "actions/configuration/configurationplans_p.h"
#include "actions/configuration/rowfilter_p.h"
#include <QAbstractItemModel>
#include <QPointer>

class ActionManager;

namespace menuconfig {

struct Difference;
class WorkingCopy;

class ShortcutModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { TextColumn, ShortcutColumn, DefaultColumn, ContextColumn, ColumnCount };

    /// @param copy  outlives the model
    ShortcutModel(ActionManager &actions, WorkingCopy &copy, QObject *parent = nullptr);

    /// All is told anew.
    void setSurroundings(Surroundings given);
    [[nodiscard]] const Surroundings &surroundings() const { return m_given; }
    /// Shows what the query finds. What no longer fits after an edit stays until the next query:
    /// a row must not vanish from under a user's hands.
    void setQuery(RowQuery query);

    [[nodiscard]] std::vector<Rival> rivalsOf(int id, const QKeySequence &sequence) const;
    [[nodiscard]] int conflictCount() const { return m_conflictCount; }
    [[nodiscard]] int changedCount() const { return m_changedCount; }

    /// The action's id; nothing for a category.
    [[nodiscard]] std::optional<int> idOf(const QModelIndex &index) const;
    /// Those of all its functions, shown or not.
    [[nodiscard]] std::vector<int> idsOfCategory(const QModelIndex &index) const;
    /// Invalid when the action is not shown.
    [[nodiscard]] QModelIndex indexOf(int id) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

signals:
    void countsChanged();

private:
    struct Category
    {
        int id = 0;
        std::vector<std::size_t> places; ///< in the catalogue
    };
    [[nodiscard]] const ActionInfo *infoOf(const QModelIndex &index) const;
    [[nodiscard]] QVariant actionData(const ActionInfo &info, int column, int role) const;
    [[nodiscard]] QVariant textOf(const ActionInfo &info, int column) const;
    void takeOver(const Difference &difference);
    void examine();
    void show(const std::vector<std::size_t> &places);

    QPointer<ActionManager> m_actions;
    WorkingCopy &m_copy;
    Surroundings m_given;
    RowFilter m_filter;
    RowQuery m_query;
    KeyOwners m_owners;
    std::vector<bool> m_isInConflict; ///< by place in the catalogue
    std::vector<bool> m_isChanged;
    int m_conflictCount = 0;
    int m_changedCount = 0;
    std::vector<std::size_t> m_shown;
    std::vector<Category> m_categories;
};

} // namespace menuconfig
