// SPDX-License-Identifier: GPL-2.0-or-later
// Shows the working copy beside what the registry knows.
#include "actions/configuration/shortcutmodel_p.h"

#include "actions/configuration/menuconfigtexts_p.h"
#include "actions/configuration/workingcopy_p.h"
#include <QAction>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QIcon>
#include <algorithm>
#include <iterator>
#include <kelo_base/actions/ActionManager.h>

namespace menuconfig {

namespace {

constexpr quintptr kCategory = 0; ///< as internal id; below one, its number counted from 1

/// Keys read from left to right in every language.
QString keysOf(const QKeySequence &sequence)
{
    const QString text = sequence.toString(QKeySequence::NativeText);
    const bool isIsolated = QGuiApplication::isRightToLeft() && !text.isEmpty();
    return isIsolated ? u'\u2066' + text + u'\u2069' : text;
}

/// The same for all rows, with or without an icon: the view asks the first one only.
QSize rowSize()
{
    const int line = QFontMetrics(QGuiApplication::font()).lineSpacing();
    return {0, std::max(line, 16) + 6};
}

} // namespace

ShortcutModel::ShortcutModel(ActionManager &actions, WorkingCopy &copy, QObject *parent)
    : QAbstractItemModel(parent), m_actions(&actions), m_copy(copy)
{
    connect(&copy, &WorkingCopy::changed, this, &ShortcutModel::takeOver);
}

void ShortcutModel::setSurroundings(Surroundings given)
{
    m_given = std::move(given);
    m_filter = RowFilter(m_given.catalogue, m_copy.current().shortcuts);
    examine();
    show(m_filter.matches(m_query, m_isInConflict, m_isChanged));
}

void ShortcutModel::setQuery(RowQuery query)
{
    m_query = std::move(query);
    show(m_filter.matches(m_query, m_isInConflict, m_isChanged));
}

void ShortcutModel::takeOver(const Difference &difference)
{
    if (difference.isEmpty()) {
        setSurroundings(std::exchange(m_given, Surroundings()));
        return;
    }
    for (const ShortcutChange &change : difference.shortcuts) {
        if (const auto place = m_given.catalogue.placeOf(change.id))
            m_filter.setShortcut(*place, m_copy.current().shortcuts.GetSequenceById(change.id));
    }
    examine();
    const std::vector<std::size_t> found = m_filter.matches(m_query, m_isInConflict, m_isChanged);
    std::vector<std::size_t> shown;
    shown.reserve(m_shown.size() + found.size());
    std::set_union(m_shown.begin(), m_shown.end(), found.begin(), found.end(),
                   std::back_inserter(shown));
    if (shown != m_shown)
        return show(shown);
    for (int row = 0; row < rowCount(); ++row) {
        const QModelIndex category = index(row, 0);
        emit dataChanged(index(0, 0, category),
                         index(rowCount(category) - 1, ColumnCount - 1, category));
    }
}

/// Looks for conflicts and changes anew.
void ShortcutModel::examine()
{
    const std::vector<ActionInfo> &actions = m_given.catalogue.actions();
    const ActionShortCutList &list = m_copy.current().shortcuts;
    m_owners = m_given.ownersIn(list);
    m_isInConflict.assign(actions.size(), false);
    const std::vector<int> conflicts = m_owners.actionsInConflict();
    for (const int id : conflicts) {
        if (const auto place = m_given.catalogue.placeOf(id))
            m_isInConflict[*place] = true;
    }
    m_isChanged.resize(actions.size());
    for (std::size_t place = 0; place < actions.size(); ++place) {
        const int id = actions[place].id;
        m_isChanged[place] = list.GetSequenceById(id) != m_given.defaults.GetSequenceById(id);
    }
    m_conflictCount = static_cast<int>(conflicts.size());
    m_changedCount = static_cast<int>(std::count(m_isChanged.begin(), m_isChanged.end(), true));
    emit countsChanged();
}

void ShortcutModel::show(const std::vector<std::size_t> &places)
{
    beginResetModel();
    m_shown = places;
    m_categories.clear();
    for (const std::size_t place : places) {
        const int category = m_given.catalogue.actions()[place].category;
        if (m_categories.empty() || m_categories.back().id != category)
            m_categories.push_back({category, {}});
        m_categories.back().places.push_back(place);
    }
    endResetModel();
}

std::vector<Rival> ShortcutModel::rivalsOf(int id, const QKeySequence &sequence) const
{
    return m_owners.rivalsOf(sequence, m_given.claimantOf(id));
}

const ActionInfo *ShortcutModel::infoOf(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == kCategory)
        return nullptr;
    const Category &category = m_categories[index.internalId() - 1];
    return &m_given.catalogue.actions()[category.places[static_cast<std::size_t>(index.row())]];
}

std::optional<int> ShortcutModel::idOf(const QModelIndex &index) const
{
    const ActionInfo *info = infoOf(index);
    return info ? std::optional(info->id) : std::nullopt;
}

std::vector<int> ShortcutModel::idsOfCategory(const QModelIndex &index) const
{
    std::vector<int> ids;
    if (!index.isValid())
        return ids;
    const ActionInfo *info = infoOf(index);
    const int category =
        info ? info->category : m_categories[static_cast<std::size_t>(index.row())].id;
    for (const ActionInfo &one : m_given.catalogue.actions()) {
        if (one.category == category)
            ids.push_back(one.id);
    }
    return ids;
}

QModelIndex ShortcutModel::indexOf(int id) const
{
    const auto place = m_given.catalogue.placeOf(id);
    if (!place)
        return {};
    for (std::size_t i = 0; i < m_categories.size(); ++i) {
        const std::vector<std::size_t> &places = m_categories[i].places;
        const auto found = std::lower_bound(places.begin(), places.end(), *place);
        if (found != places.end() && *found == *place)
            return createIndex(static_cast<int>(found - places.begin()), 0, i + 1);
    }
    return {};
}

QModelIndex ShortcutModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const auto category = static_cast<quintptr>(parent.row()) + 1;
    return createIndex(row, column, parent.isValid() ? category : kCategory);
}

QModelIndex ShortcutModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == kCategory)
        return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, kCategory);
}

int ShortcutModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_categories.size());
    if (parent.internalId() != kCategory || parent.column() != 0)
        return 0;
    return static_cast<int>(m_categories[static_cast<std::size_t>(parent.row())].places.size());
}

int ShortcutModel::columnCount(const QModelIndex & /*parent*/) const
{
    return ColumnCount;
}

QVariant ShortcutModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::SizeHintRole)
        return rowSize();
    if (const ActionInfo *info = infoOf(index))
        return actionData(*info, index.column(), role);
    const int category = m_categories[static_cast<std::size_t>(index.row())].id;
    if (role == Qt::DisplayRole && index.column() == TextColumn)
        return m_given.catalogue.categoryText(category);
    return {};
}

QVariant ShortcutModel::actionData(const ActionInfo &info, int column, int role) const
{
    const std::size_t place = m_given.catalogue.placeOf(info.id).value();
    switch (role) {
    case Qt::DisplayRole:
        return textOf(info, column);
    case Qt::DecorationRole:
        if (column == TextColumn && m_actions) {
            const ActionData *record = m_actions->FindActionDataById(info.id);
            return record && record->action ? record->action->icon() : QIcon();
        }
        return {};
    case Qt::FontRole:
        if (column == ShortcutColumn && m_isChanged[place]) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return m_isInConflict[place]
                   ? sentenceAbout(
                         rivalsOf(info.id, m_copy.current().shortcuts.GetSequenceById(info.id)),
                         m_copy.current().shortcuts.GetSequenceById(info.id), m_given.catalogue)
                   : QString();
    default:
        return {};
    }
}

QVariant ShortcutModel::textOf(const ActionInfo &info, int column) const
{
    switch (column) {
    case TextColumn:
        return info.text;
    case ShortcutColumn: {
        const std::size_t place = m_given.catalogue.placeOf(info.id).value();
        const QString text = keysOf(m_copy.current().shortcuts.GetSequenceById(info.id));
        return m_isInConflict[place] ? QString(u'⚠' + QStringLiteral(" ") + text) : text;
    }
    case DefaultColumn:
        return keysOf(m_given.defaults.GetSequenceById(info.id));
    case ContextColumn:
        return m_given.catalogue.contextText(info);
    default:
        return {};
    }
}

QVariant ShortcutModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    const QString titles[] = {tr("Function"), tr("Shortcut"), tr("Default"), tr("Offered")};
    return section >= 0 && section < ColumnCount ? titles[section] : QVariant();
}

} // namespace menuconfig
