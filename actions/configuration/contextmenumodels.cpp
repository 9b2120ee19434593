// SPDX-License-Identifier: GPL-2.0-or-later
// Shows slots and functions, and lets them be dragged.
#include "actions/configuration/contextmenumodels_p.h"

#include "actions/configuration/workingcopy_p.h"
#include <QAction>
#include <QMimeData>
#include <QPalette>
#include <algorithm>
#include <kelo_base/actions/ActionData.h>
#include <kelo_base/actions/ActionManager.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr QLatin1StringView kFormat{"application/x-kelo-menu-functions"};

/// What is dragged stays within the program, where it is this very object.
class Dragged : public QMimeData
{
    Q_OBJECT

public:
    Dragged() { setData(kFormat, {}); }

    const QObject *source = nullptr;
    std::vector<int> ids;             ///< from the tray
    std::vector<unsigned int> places; ///< from the slots
};

const Dragged *draggedIn(const QMimeData *data)
{
    return qobject_cast<const Dragged *>(data);
}

} // namespace

SlotModel::SlotModel(const ActionManager &manager, std::shared_ptr<const ActionCatalogue> catalogue,
                     WorkingCopy &copy, QObject *parent)
    : QAbstractTableModel(parent),
      m_manager(&manager),
      m_catalogue(std::move(catalogue)),
      m_copy(copy)
{
    connect(&copy, &WorkingCopy::changed, this, &SlotModel::follow);
    follow();
}

void SlotModel::follow()
{
    const int rows = static_cast<int>(m_copy.current().layout.NumberOfSlots());
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (m_rows > 0)
        emit dataChanged(index(0, 0), index(m_rows - 1, SlotModel::columnCount() - 1));
}

void SlotModel::carryOut(const SlotEdit &edit, const QString &step)
{
    MenuConfiguration next = m_copy.current();
    next.layout = edit.layout;
    m_copy.edit(next, step);
    emit edited(edit.touched);
}

int SlotModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int SlotModel::columnCount(const QModelIndex &) const
{
    return 2;
}

QVariant SlotModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const auto slot = static_cast<unsigned int>(index.row());
    const ContextMenuLayout &layout = m_copy.current().layout;
    const int id = layout.GetAssignedActionId(slot);
    const bool isEmpty = !layout.HasAssignedAction(slot);
    const QString text = isEmpty ? tr("(empty)") : m_catalogue->nameOf(id);
    if (role == Qt::AccessibleTextRole)
        return tr("Slot %1: %2").arg(slot + 1).arg(text);
    if (index.column() == 0)
        return role == Qt::DisplayRole ? QVariant(slot + 1) : QVariant();
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return text;
    if (role == Qt::DecorationRole && !isEmpty)
        return iconOf(m_manager.data(), id);
    if (role == Qt::ForegroundRole && (isEmpty || !m_catalogue->find(id)))
        return QPalette().brush(QPalette::PlaceholderText);
    return {};
}

QVariant SlotModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == 0 ? tr("Slot") : tr("Function");
}

Qt::ItemFlags SlotModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled; // between slots
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
           Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
}

QStringList SlotModel::mimeTypes() const
{
    return {kFormat};
}

QMimeData *SlotModel::mimeData(const QModelIndexList &indexes) const
{
    auto *dragged = new Dragged; // the drag's
    dragged->source = this;
    for (const QModelIndex &index : indexes) {
        if (index.column() == 0)
            dragged->places.push_back(static_cast<unsigned int>(index.row()));
    }
    return dragged;
}

bool SlotModel::canDropMimeData(const QMimeData *data, Qt::DropAction, int, int,
                                const QModelIndex &) const
{
    const Dragged *dragged = draggedIn(data);
    return dragged && (dragged->source == this || !dragged->ids.empty());
}

bool SlotModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                             const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const Dragged &dragged = *draggedIn(data);
    const ContextMenuLayout &layout = m_copy.current().layout;
    const bool isOnSlot = parent.isValid();
    const int place = isOnSlot ? parent.row() : row < 0 ? m_rows : row;
    const auto slot = static_cast<unsigned int>(place);
    if (dragged.source == this)
        carryOut(slotsMoved(layout, dragged.places, slot), tr("Move Slots"));
    else if (isOnSlot)
        carryOut(slotsFilled(layout, dragged.ids, slot), tr("Fill Slots"));
    else
        carryOut(slotsInserted(layout, dragged.ids, slot), tr("Insert Functions"));
    return true;
}

TrayModel::TrayModel(const ActionManager &manager, std::shared_ptr<const ActionCatalogue> catalogue,
                     WorkingCopy &copy, SlotModel &target, QObject *parent)
    : QAbstractTableModel(parent),
      m_manager(&manager),
      m_catalogue(std::move(catalogue)),
      m_copy(copy),
      m_target(target),
      m_filter(*m_catalogue, copy.current().shortcuts)
{
    connect(&copy, &WorkingCopy::changed, this, &TrayModel::follow);
    follow();
    search({});
}

void TrayModel::follow()
{
    m_slots.clear();
    const ContextMenuLayout &layout = m_copy.current().layout;
    for (unsigned int slot = layout.NumberOfSlots(); slot-- > 0;)
        m_slots.insert(layout.GetAssignedActionId(slot), static_cast<int>(slot));
    if (!m_places.empty()) {
        const int last = TrayModel::columnCount() - 1;
        emit dataChanged(index(0, last), index(TrayModel::rowCount() - 1, last));
    }
}

void TrayModel::search(const QString &text)
{
    beginResetModel();
    m_places = m_filter.matches({.text = text, .pressed = {}}, {}, {});
    endResetModel();
}

int TrayModel::idAt(int row) const
{
    return m_catalogue->actions()[m_places[static_cast<std::size_t>(row)]].id;
}

int TrayModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_places.size());
}

int TrayModel::columnCount(const QModelIndex &) const
{
    return 3;
}

QVariant TrayModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ActionInfo *info = m_catalogue->find(idAt(index.row()));
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    if (index.column() == 0 && role == Qt::DecorationRole)
        return iconOf(m_manager.data(), info->id);
    if (!isText)
        return {};
    if (index.column() == 0)
        return info->text;
    if (index.column() == 1)
        return m_catalogue->categoryText(info->category);
    const auto slot = m_slots.constFind(info->id);
    return slot == m_slots.cend() ? QVariant() : QVariant(*slot + 1);
}

QVariant TrayModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == 0 ? tr("Function") : section == 1 ? tr("Category") : tr("Slot");
}

Qt::ItemFlags TrayModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
           Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
}

QStringList TrayModel::mimeTypes() const
{
    return {kFormat};
}

QMimeData *TrayModel::mimeData(const QModelIndexList &indexes) const
{
    auto *dragged = new Dragged; // the drag's
    dragged->source = this;
    for (const QModelIndex &index : indexes) {
        if (index.column() == 0)
            dragged->ids.push_back(idAt(index.row()));
    }
    return dragged;
}

bool TrayModel::canDropMimeData(const QMimeData *data, Qt::DropAction, int, int,
                                const QModelIndex &) const
{
    const Dragged *dragged = draggedIn(data);
    return dragged && dragged->source == &m_target;
}

bool TrayModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                             const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    m_target.carryOut(slotsDeleted(m_copy.current().layout, draggedIn(data)->places),
                      tr("Empty Slots"));
    return true;
}

QIcon iconOf(const ActionManager *manager, int id)
{
    const ActionData *record = manager ? manager->FindActionDataById(id) : nullptr;
    return record && record->action ? record->action->icon() : QIcon();
}

} // namespace menuconfig

#include "contextmenumodels.moc"
