// SPDX-License-Identifier: GPL-2.0-or-later
// The slots of the context menu, and the tray of functions that can go into them.
#pragma once

#include "actions/configuration/actioncatalogue_p.h"
#include "actions/configuration/rowfilter_p.h"
#include "actions/configuration/slotmoves_p.h"
#include <QAbstractTableModel>
#include <QIcon>
#include <QPointer>
#include <memory>
#include <vector>

class ActionManager;

namespace menuconfig {

class WorkingCopy;

/// Number and function of each slot. Takes functions from the tray, and its own slots.
class SlotModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    SlotModel(const ActionManager &manager, std::shared_ptr<const ActionCatalogue> catalogue,
              WorkingCopy &copy, QObject *parent);

    /// Becomes the layout of the edit in one step, and names the slots to select.
    void carryOut(const SlotEdit &edit, const QString &step);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData *mimeData(const QModelIndexList &indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

signals:
    void edited(const std::vector<unsigned int> &places);

private:
    void follow();

    QPointer<const ActionManager> m_manager;
    std::shared_ptr<const ActionCatalogue> m_catalogue;
    WorkingCopy &m_copy;
    int m_rows = 0;
};

/// The functions that a search finds, with the number of the slot that each has. Slots that are
/// dropped here are emptied.
class TrayModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    TrayModel(const ActionManager &manager, std::shared_ptr<const ActionCatalogue> catalogue,
              WorkingCopy &copy, SlotModel &target, QObject *parent);

    void search(const QString &text);
    [[nodiscard]] int idAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData *mimeData(const QModelIndexList &indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

private:
    void follow();

    QPointer<const ActionManager> m_manager;
    std::shared_ptr<const ActionCatalogue> m_catalogue;
    WorkingCopy &m_copy;
    SlotModel &m_target;
    RowFilter m_filter;
    std::vector<std::size_t> m_places; ///< in the catalogue
    QHash<int, int> m_slots;           ///< by the id of the function
};

/// The icon of a function; null when it has none.
[[nodiscard]] QIcon iconOf(const ActionManager *manager, int id);

} // namespace menuconfig
