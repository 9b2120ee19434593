// SPDX-License-Identifier: GPL-2.0-or-later
// The chosen sheets of a drawing as a table.
#pragma once

#include <QAbstractTableModel>
#include <kelo_base/dxf/DxfDrawing.h>
#include <vector>

/// Number with export mark, text of the sheet number, block and corners of each chosen sheet. Holds
/// no text and no item for a sheet, only its index: 4 bytes, up to 16 once it is sorted by a column
/// of texts. So it stands up to a million sheets, and a new choice of 100,000 takes a few ms.
///
/// A sheet without a sheet number is never exported: it has neither number nor check box.
class SheetTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column : int { NumberColumn, ValueColumn, BlockColumn, CornersColumn, kColumnCount };
    /// All of a text where the display role has only its beginning.
    static constexpr int kWholeTextRole = Qt::UserRole;

    explicit SheetTableModel(QObject *parent = nullptr);

    /// Shows this drawing from now on, without sheets at first; null shows nothing. Not owned. To
    /// be called again, with sheets after it, when its corners were labelled anew. It stays sorted
    /// by the column it was sorted by.
    void setDrawing(DxfDrawing *drawing);
    /// Replaces all rows (a model reset).
    /// @param sheets  as SelectSheets() chose them from the drawing; nothing without a drawing
    void setSheets(std::vector<quint32> sheets);
    /// Always in export order, however the rows are sorted.
    [[nodiscard]] const std::vector<quint32> &sheets() const { return m_sheets; }

    /// The sheet in a row that exists.
    [[nodiscard]] quint32 sheetAt(int row) const;
    /// -1 when the sheet is not shown. The first question after a change takes a walk over all
    /// rows, each further one a look into memory.
    [[nodiscard]] int rowOf(quint32 sheet) const;

    /// Whether the sheet of a row can have a mark; false for a row that does not exist.
    [[nodiscard]] bool isMarkable(int row) const;
    [[nodiscard]] bool isMarked(int row) const;
    /// Marks the sheet of a row, where it can have a mark.
    void setMark(int row, bool mark);
    /// Marks the sheets shown, or takes their marks away; others keep theirs.
    void setAllMarks(bool mark);
    /// How many of the sheets shown an export will write: those marked that have a sheet number.
    [[nodiscard]] qint64 markedCount() const { return m_marked; }

    /// Sorts the rows, what is equal in export order; descending is all of it reversed. Column -1
    /// gives the export order again. Selection and current row stay with their sheets.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    /// markedCount() may have changed because of a mark; setSheets() does not emit it.
    void marksChanged();

private:
    [[nodiscard]] const DxfInsert &insertAt(int row) const;
    /// The sheets as rows run in ascending order.
    [[nodiscard]] const std::vector<quint32> &ascending() const;
    [[nodiscard]] int rowOfPosition(std::size_t position) const;
    [[nodiscard]] bool isSortedApart() const { return m_column > NumberColumn; }
    [[nodiscard]] qint64 countMarked() const;
    void arrange();
    [[nodiscard]] QString textOf(const DxfInsert &insert, int column, qsizetype most) const;
    [[nodiscard]] QString toolTipOf(const DxfInsert &insert, int column) const;

    DxfDrawing *m_drawing = nullptr;
    std::vector<bool> m_isNumbered; ///< of each insert
    int m_column = -1;              ///< sorted by; the number's ascending order is the export's
    Qt::SortOrder m_order = Qt::AscendingOrder;
    qint64 m_marked = 0;
    std::vector<quint32> m_sheets; ///< export order
    std::vector<quint32> m_all;    ///< all that can be sheets by m_column; empty until needed
    std::vector<quint32> m_sorted; ///< m_sheets by m_column; empty where m_sheets will do
    mutable std::vector<quint32> m_positions; ///< of inserts in ascending(); empty until asked for
};
