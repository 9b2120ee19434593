// SPDX-License-Identifier: GPL-2.0-or-later
// The list of the chosen sheets as a part of the workbench dialog.
#include "dxf/workbench/sheetpanel_p.h"

#include "dxf/workbench/clipboardtable_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/emptyhint_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/sheettable_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include <QBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The rows as few ranges: a selection of 100,000 single rows would take seconds.
QItemSelection rowSelection(const QAbstractItemModel &model, std::vector<int> rows)
{
    QItemSelection selection;
    std::ranges::sort(rows);
    const int lastColumn = model.columnCount() - 1;
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = first;
        while (std::next(last) != rows.end() && *std::next(last) <= *last + 1)
            ++last;
        selection.append({model.index(*first, 0), model.index(*last, lastColumn)});
        first = std::next(last);
    }
    return selection;
}

} // namespace

SheetPanel::SheetPanel(QWidget *parent)
    : QWidget(parent),
      m_model(new SheetTableModel(this)),
      m_table(new SheetTable(m_model)),
      m_hint(new EmptyHint(m_table)),
      m_counter(new QLabel(QString::number(0))),
      m_toBeExported(new QLabel),
      m_markAll(workbench::pushButton(DxfDialogTexts::MarkAll(), u"btnMarkAll"_s)),
      m_markNone(workbench::pushButton(DxfDialogTexts::MarkNone(), u"btnMarkNone"_s)),
      m_markSelected(workbench::pushButton(DxfDialogTexts::MarkSelected(), u"btnMarkSelected"_s))
{
    m_table->setAccessibleName(workbench::spoken(DxfDialogTexts::SheetList()));
    m_counter->setObjectName(u"lblCounter"_s);
    m_counter->setAccessibleDescription(DxfDialogTexts::CounterName()); // its name is the number
    m_toBeExported->setObjectName(u"lblToBeExported"_s);
    m_markSelected->setToolTip(DxfDialogTexts::MarkSelectedHelp());
    layOut();
    connectAll();
    workbench::offerCopy(m_table, [this] { copy(); });
}

void SheetPanel::layOut()
{
    QFont bold = m_counter->font();
    bold.setBold(true);
    m_counter->setFont(bold);
    auto *counts = new QHBoxLayout;
    counts->addWidget(workbench::buddyLabel(DxfDialogTexts::SheetList(), m_table));
    counts->addWidget(m_counter);
    counts->addStretch();
    counts->addWidget(m_toBeExported);
    auto *marks = new QHBoxLayout;
    for (QPushButton *button : {m_markAll, m_markNone, m_markSelected})
        marks->addWidget(button);
    marks->addStretch();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(counts);
    column->addWidget(m_table, 1);
    column->addLayout(marks);
}

void SheetPanel::connectAll()
{
    connect(m_model, &SheetTableModel::marksChanged, this, [this] {
        showCounts();
        emit marksChanged();
    });
    connect(m_model, &SheetTableModel::layoutAboutToBeChanged, this,
            [this] { m_sorting.emplace(Qt::WaitCursor); });
    connect(m_model, &SheetTableModel::layoutChanged, this, [this] { m_sorting.reset(); });
    connect(&selection(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isQuiet)
            emit selectionChanged();
    });
    new QShortcut(Qt::Key_Space, m_table, this, &SheetPanel::toggleSelected, Qt::WidgetShortcut);
    connect(m_markAll, &QPushButton::clicked, this, [this] { m_model->setAllMarks(true); });
    connect(m_markNone, &QPushButton::clicked, this, [this] { m_model->setAllMarks(false); });
    connect(m_markSelected, &QPushButton::clicked, this, &SheetPanel::markSelected);
}

QItemSelectionModel &SheetPanel::selection() const
{
    return *m_table->selectionModel();
}

void SheetPanel::setDrawing(DxfDrawing *drawing)
{
    const QScopedValueRollback quiet(m_isQuiet, true);
    m_model->setDrawing(drawing);
    showCounts();
}

void SheetPanel::setSheets(std::vector<quint32> sheets, const QString &hint)
{
    const QScopedValueRollback quiet(m_isQuiet, true);
    const bool isEmpty = sheets.empty();
    m_model->setSheets(std::move(sheets));
    showHint(isEmpty ? hint : QString());
    showCounts();
}

bool SheetPanel::shows(quint32 sheet) const
{
    return m_model->rowOf(sheet) >= 0;
}

void SheetPanel::scrollToStart()
{
    m_table->scrollToTop();
    m_table->horizontalScrollBar()->setValue(0);
}

void SheetPanel::showHint(const QString &text)
{
    m_hint->showText(text);
}

void SheetPanel::showCounts()
{
    m_counter->setText(QLocale().toString(m_model->rowCount()));
    m_toBeExported->setText(DxfDialogTexts::ToBeExported(m_model->markedCount()));
}

std::vector<quint32> SheetPanel::selected() const
{
    const QItemSelection ranges = selection().selection();
    const bool areAll = ranges.size() == 1 && ranges.first().height() == m_model->rowCount();
    if (areAll)
        return m_model->sheets();
    std::vector<quint32> sheets;
    for (const QItemSelectionRange &range : ranges)
        for (int row = range.top(); row <= range.bottom(); ++row)
            sheets.push_back(m_model->sheetAt(row));
    return sheets;
}

void SheetPanel::select(const std::vector<quint32> &sheets)
{
    std::vector<int> rows;
    for (const quint32 sheet : sheets)
        if (const int row = m_model->rowOf(sheet); row >= 0)
            rows.push_back(row);
    const QScopedValueRollback quiet(m_isQuiet, true);
    if (!rows.empty())
        selection().setCurrentIndex(m_model->index(rows.front(), 0), QItemSelectionModel::NoUpdate);
    selection().select(rowSelection(*m_model, rows), QItemSelectionModel::ClearAndSelect);
    if (!rows.empty())
        m_table->scrollTo(m_model->index(rows.front(), 0));
}

template <typename Change>
void SheetPanel::changeMarks(Change change)
{
    {
        const QSignalBlocker once(m_model); // not for each of 100,000 sheets
        change();
    }
    m_table->viewport()->update();
    showCounts();
    emit marksChanged();
}

void SheetPanel::toggleMarks(const std::vector<quint32> &sheets)
{
    const auto first = std::ranges::find_if(
        sheets, [this](quint32 sheet) { return m_model->isMarkable(m_model->rowOf(sheet)); });
    if (first == sheets.end())
        return;
    const bool mark = !m_model->isMarked(m_model->rowOf(*first));
    changeMarks([&] {
        for (const quint32 sheet : sheets)
            m_model->setMark(m_model->rowOf(sheet), mark);
    });
}

void SheetPanel::markSelected()
{
    changeMarks([this] {
        for (const QItemSelectionRange &range : selection().selection())
            for (int row = range.top(); row <= range.bottom(); ++row)
                m_model->setMark(row, true);
    });
}

/// The current sheet counts first; where none is selected, as when the list was just reached by
/// keyboard, only that one does.
void SheetPanel::toggleSelected()
{
    const int current = selection().currentIndex().row();
    std::vector<quint32> sheets = selected();
    if (current >= 0) {
        const quint32 sheet = m_model->sheetAt(current);
        const auto place = std::ranges::find(sheets, sheet);
        if (sheets.empty())
            sheets.push_back(sheet);
        else if (place != sheets.end())
            std::iter_swap(sheets.begin(), place);
    }
    toggleMarks(sheets);
}

void SheetPanel::copy() const
{
    QStringList titles;
    for (int column = 0; column < SheetTableModel::kColumnCount; ++column)
        titles << m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    workbench::TableText table(titles);
    const auto addRow = [&](int row) {
        QStringList cells;
        for (int column = 0; column < SheetTableModel::kColumnCount; ++column)
            cells << m_model->index(row, column).data(SheetTableModel::kWholeTextRole).toString();
        table.addRow(cells);
    };
    std::vector<int> rows;
    for (const QItemSelectionRange &range : selection().selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::ranges::sort(rows);
    if (rows.empty())
        for (int row = 0; row < m_model->rowCount(); ++row)
            rows.push_back(row);
    std::ranges::for_each(rows, addRow);
    table.toClipboard();
}

void SheetPanel::setPlanEnabled(bool hasPlan)
{
    for (QPushButton *button : {m_markAll, m_markNone, m_markSelected})
        button->setEnabled(hasPlan);
}

std::vector<QWidget *> SheetPanel::tabOrder() const
{
    return {m_table, m_markAll, m_markNone, m_markSelected};
}

QStringList SheetPanel::columnWidths() const
{
    QStringList widths;
    for (int column = 0; column < SheetTableModel::kColumnCount; ++column)
        widths << QString::number(m_table->columnWidth(column));
    return widths;
}

void SheetPanel::setColumnWidths(const QStringList &widths)
{
    constexpr int kWidest = 2000;
    const int columns =
        static_cast<int>(std::min<qsizetype>(widths.size(), SheetTableModel::kColumnCount));
    for (int column = 0; column < columns; ++column)
        if (const int width = widths[column].toInt(); width > 0)
            m_table->setColumnWidth(column, std::min(width, kWidest));
}

int SheetPanel::sortColumn() const
{
    return m_table->horizontalHeader()->sortIndicatorSection();
}

Qt::SortOrder SheetPanel::sortOrder() const
{
    return m_table->horizontalHeader()->sortIndicatorOrder();
}

void SheetPanel::sortBy(int column, Qt::SortOrder order)
{
    m_table->sortByColumn(column, order);
}
