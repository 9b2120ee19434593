// SPDX-License-Identifier: GPL-2.0-or-later
// The list of the chosen sheets as a part of the workbench dialog.
#pragma once

#include <QStringList>
#include <QWidget>
#include <kelo_base/core/ScopedOverrideCursor.h>
#include <optional>
#include <vector>

class DxfDrawing;
class EmptyHint;
class QItemSelectionModel;
class QLabel;
class QPushButton;
class QTableView;
class SheetTable;
class SheetTableModel;

/// The table with its counts, and the buttons that set marks. Selections and marks are told in
/// sheets, whatever rows they stand in.
class SheetPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SheetPanel(QWidget *parent = nullptr);

    /// Another drawing, shown from its beginning, or the same one labelled anew; without sheets.
    /// Null shows nothing. Not owned.
    void setDrawing(DxfDrawing *drawing);
    /// @param hint  what to say when there are none
    void setSheets(std::vector<quint32> sheets, const QString &hint);
    [[nodiscard]] bool shows(quint32 sheet) const;
    /// Shows the list from its beginning.
    void scrollToStart();
    void showHint(const QString &text);

    [[nodiscard]] std::vector<quint32> selected() const;
    /// Selects those that are shown and scrolls to the first; no signal.
    void select(const std::vector<quint32> &sheets);
    /// These sheets get the mark that the first of them with a sheet number has not.
    void toggleMarks(const std::vector<quint32> &sheets);

    void setPlanEnabled(bool hasPlan);
    /// In the order of the keyboard.
    [[nodiscard]] std::vector<QWidget *> tabOrder() const;

    [[nodiscard]] QStringList columnWidths() const;
    void setColumnWidths(const QStringList &widths);
    [[nodiscard]] int sortColumn() const; ///< -1: the order of the export
    [[nodiscard]] Qt::SortOrder sortOrder() const;
    void sortBy(int column, Qt::SortOrder order);

signals:
    void selectionChanged();
    void marksChanged();

private:
    void layOut();
    void connectAll();
    void showCounts();
    void markSelected();
    void toggleSelected();
    void copy() const;
    /// Tells one change instead of one for each sheet.
    template <typename Change>
    void changeMarks(Change change);
    [[nodiscard]] QItemSelectionModel &selection() const;

    SheetTableModel *m_model;
    SheetTable *m_table;
    EmptyHint *m_hint;
    QLabel *m_counter;
    QLabel *m_toBeExported;
    QPushButton *m_markAll;
    QPushButton *m_markNone;
    QPushButton *m_markSelected;
    std::optional<qor::QtScopedOverrideCursor> m_sorting; ///< a million sheets take a while
    bool m_isQuiet = false;                               ///< select() tells nobody
};
