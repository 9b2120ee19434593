// SPDX-License-Identifier: GPL-2.0-or-later
// The chosen sheets of a drawing as a table.
#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/cornertext_p.h"
#include "dxf/sheets/sheetorder_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include <algorithm>
#include <kelo_base/dxf/SheetSelection.h>
#include <utility>

namespace {

constexpr quint32 kNowhere = 0xFFFFFFFF;
constexpr int kNumberAlignment = Qt::AlignRight | Qt::AlignVCenter; // views read an int
constexpr int kTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;

constexpr qsizetype kShown = 300;    ///< characters of a text in a cell
constexpr qsizetype kWhole = 10'000; ///< and where all of it is wanted

bool hasNumber(const DxfDrawing &drawing, const DxfInsert &insert)
{
    return dxftools::sheetNumberAttribute(drawing, insert).has_value();
}

std::vector<bool> findNumbered(const DxfDrawing *drawing)
{
    if (!drawing)
        return {};
    std::vector<bool> isNumbered(drawing->Inserts().size());
    for (std::size_t i = 0; i < isNumbered.size(); ++i)
        isNumbered[i] = hasNumber(*drawing, drawing->Inserts()[i]);
    return isNumbered;
}

std::vector<quint32> allSheetsBy(int column, const DxfDrawing &drawing)
{
    switch (column) {
    case SheetTableModel::ValueColumn:
        return dxftools::sheetsByValue(drawing);
    case SheetTableModel::BlockColumn:
        return dxftools::sheetsByBlock(drawing);
    default:
        return dxftools::sheetsByCorners(drawing);
    }
}

/// Those of @p all that are among @p some, in the order of all.
std::vector<quint32> pick(const std::vector<quint32> &all, const std::vector<quint32> &some,
                          std::size_t inserts)
{
    std::vector<bool> isWanted(inserts);
    for (const quint32 sheet : some)
        isWanted[sheet] = true;
    std::vector<quint32> picked;
    picked.reserve(some.size());
    std::ranges::copy_if(all, std::back_inserter(picked),
                         [&](quint32 sheet) { return isWanted[sheet]; });
    return picked;
}

} // namespace

SheetTableModel::SheetTableModel(QObject *parent) : QAbstractTableModel(parent) {}

void SheetTableModel::setDrawing(DxfDrawing *drawing)
{
    m_all = {};
    m_drawing = drawing;
    m_isNumbered = findNumbered(drawing);
    setSheets({});
}

void SheetTableModel::setSheets(std::vector<quint32> sheets)
{
    beginResetModel();
    m_sheets = m_drawing ? std::move(sheets) : std::vector<quint32>();
    m_marked = countMarked();
    arrange();
    endResetModel();
}

qint64 SheetTableModel::countMarked() const
{
    return std::ranges::count_if(m_sheets, [this](quint32 sheet) {
        return m_isNumbered[sheet] && m_drawing->Inserts()[sheet].exportMark;
    });
}

void SheetTableModel::arrange()
{
    m_positions = {};
    m_sorted = {};
    if (m_sheets.empty() || !isSortedApart())
        return;
    if (m_all.empty())
        m_all = allSheetsBy(m_column, *m_drawing);
    m_sorted = pick(m_all, m_sheets, m_drawing->Inserts().size());
}

const std::vector<quint32> &SheetTableModel::ascending() const
{
    return isSortedApart() ? m_sorted : m_sheets;
}

int SheetTableModel::rowOfPosition(std::size_t position) const
{
    const int row = static_cast<int>(position); // 32 bits of sheets do not fit into memory
    return m_order == Qt::AscendingOrder ? row : rowCount() - 1 - row;
}

quint32 SheetTableModel::sheetAt(int row) const
{
    const int position = m_order == Qt::AscendingOrder ? row : rowCount() - 1 - row;
    return ascending()[static_cast<std::size_t>(position)];
}

int SheetTableModel::rowOf(quint32 sheet) const
{
    if (m_positions.empty() && !m_sheets.empty()) {
        m_positions.assign(m_drawing->Inserts().size(), kNowhere);
        for (quint32 position = 0; const quint32 shown : ascending())
            m_positions[shown] = position++;
    }
    const bool isShown = sheet < m_positions.size() && m_positions[sheet] != kNowhere;
    return isShown ? rowOfPosition(m_positions[sheet]) : -1;
}

const DxfInsert &SheetTableModel::insertAt(int row) const
{
    return m_drawing->Inserts()[sheetAt(row)];
}

void SheetTableModel::setAllMarks(bool mark)
{
    if (m_sheets.empty())
        return;
    for (const quint32 sheet : m_sheets)
        m_drawing->SetExportMark(sheet, mark);
    m_marked = countMarked();
    emit dataChanged(index(0, NumberColumn), index(rowCount() - 1, NumberColumn),
                     {Qt::CheckStateRole});
    emit marksChanged();
}

void SheetTableModel::sort(int column, Qt::SortOrder order)
{
    const bool isColumn = column >= 0 && column < kColumnCount;
    const int wanted = isColumn ? column : -1;
    const Qt::SortOrder wantedOrder = isColumn ? order : Qt::AscendingOrder;
    if (wanted == m_column && wantedOrder == m_order)
        return;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<quint32> sheets;
    for (const QModelIndex &index : before)
        sheets.push_back(sheetAt(index.row()));
    if (std::exchange(m_column, wanted) != wanted)
        m_all = {};
    m_order = wantedOrder;
    arrange();
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after << index(rowOf(sheets[static_cast<std::size_t>(i)]), before[i].column());
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

int SheetTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_sheets.size());
}

int SheetTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant SheetTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const DxfInsert &insert = insertAt(index.row());
    const bool isNumber = index.column() == NumberColumn;
    switch (role) {
    case Qt::DisplayRole:
        return textOf(insert, index.column(), kShown);
    case kWholeTextRole:
        return textOf(insert, index.column(), kWhole);
    case Qt::ToolTipRole:
        return toolTipOf(insert, index.column());
    case Qt::TextAlignmentRole:
        return isNumber ? kNumberAlignment : kTextAlignment;
    case Qt::CheckStateRole:
        if (!isNumber || !hasNumber(*m_drawing, insert))
            return {};
        return insert.exportMark ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

/// @param most  texts of damaged plans may be millions of bytes long; views measure and draw all
QString SheetTableModel::textOf(const DxfInsert &insert, int column, qsizetype most) const
{
    const auto shown = [&](std::string_view bytes) {
        const QString text = m_drawing->DisplayText(bytes);
        return text.size() <= most ? text : text.left(most - 1) + QChar(0x2026);
    };
    const auto number = dxftools::sheetNumberAttribute(*m_drawing, insert);
    switch (column) {
    case NumberColumn: {
        const qint64 sorted = number ? SheetNumber(*number) : -1;
        return sorted < 0 ? QString() : QString::number(sorted);
    }
    case ValueColumn:
        return shown(number.value_or(""));
    case BlockColumn:
        return shown(m_drawing->ShownBlockName(insert));
    default:
        return dxftools::cornersText(CornersOf(*m_drawing, *m_drawing->BlockOf(insert)));
    }
}

QString SheetTableModel::toolTipOf(const DxfInsert &insert, int column) const
{
    if (column == CornersColumn)
        return dxftools::cornerLines(CornersOf(*m_drawing, *m_drawing->BlockOf(insert)))
            .join(u'\n');
    const bool isOfNumber = column == NumberColumn || column == ValueColumn;
    return isOfNumber && !hasNumber(*m_drawing, insert)
               ? tr("Not exported: the block insert has no sheet number")
               : QString();
}

bool SheetTableModel::isMarkable(int row) const
{
    return row >= 0 && row < rowCount() && m_isNumbered[sheetAt(row)];
}

bool SheetTableModel::isMarked(int row) const
{
    return isMarkable(row) && insertAt(row).exportMark;
}

void SheetTableModel::setMark(int row, bool mark)
{
    setData(index(row, NumberColumn), mark ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

bool SheetTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const bool isMark = role == Qt::CheckStateRole && flags(index) & Qt::ItemIsUserCheckable;
    if (!isMark)
        return false;
    const bool mark = value.toInt() == Qt::Checked;
    const quint32 sheet = sheetAt(index.row());
    if (m_drawing->Inserts()[sheet].exportMark == mark)
        return true;
    m_drawing->SetExportMark(sheet, mark);
    m_marked += mark ? 1 : -1;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit marksChanged();
    return true;
}

QVariant SheetTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isColumn = orientation == Qt::Horizontal && section >= 0 && section < kColumnCount;
    if (!isColumn)
        return QAbstractTableModel::headerData(section, orientation, role);
    const QStringList titles{tr("Number"), tr("Value"), tr("Block"), tr("Corners")};
    const QStringList toolTips{tr("Order of the export; ticked sheets are exported"),
                               tr("Sheet number as it stands in the plan"),
                               tr("Block that carries the sheet frame"),
                               tr("Top left and bottom right corners")};
    switch (role) {
    case Qt::DisplayRole:
        return titles[section];
    case Qt::ToolTipRole:
        return toolTips[section];
    case Qt::TextAlignmentRole:
        return section == NumberColumn ? kNumberAlignment : kTextAlignment;
    default:
        return {};
    }
}

Qt::ItemFlags SheetTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const bool isMarkable =
        index.isValid() && index.column() == NumberColumn && m_isNumbered[sheetAt(index.row())];
    return isMarkable ? flags | Qt::ItemIsUserCheckable : flags;
}
