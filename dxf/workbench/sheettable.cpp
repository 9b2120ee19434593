// SPDX-License-Identifier: GPL-2.0-or-later
// The table view of the chosen sheets.
#include "dxf/workbench/sheettable_p.h"

#include "dxf/workbench/sheettablemodel_p.h"
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Numbers end at the right, where the next column begins: air keeps them apart.
QString withAir(const QString &number)
{
    return number + QString(2, QChar::Nbsp);
}

/// What a cell cannot show of its text is in the tool tip.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override
    {
        const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
        const bool hasOwn = !index.data(Qt::ToolTipRole).toString().isEmpty();
        if (event->type() != QEvent::ToolTip || hasOwn || !isCut)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const QString text = index.data(SheetTableModel::kWholeTextRole).toString();
        QToolTip::showText(event->globalPos(), u"<p>%1</p>"_s.arg(text.toHtmlEscaped()), view);
        return true;
    }
};

class NumberDelegate : public CellDelegate
{
public:
    using CellDelegate::CellDelegate;
    [[nodiscard]] QString displayText(const QVariant &value, const QLocale &) const override
    {
        return withAir(value.toString());
    }
};

class SheetHeader : public QHeaderView
{
public:
    using QHeaderView::QHeaderView;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *option, int section) const override
    {
        QHeaderView::initStyleOptionForIndex(option, section);
        if (section == SheetTableModel::NumberColumn)
            option->text = withAir(option->text);
    }
};

} // namespace

SheetTable::SheetTable(QAbstractItemModel *model, QWidget *parent) : QTableView(parent)
{
    setObjectName(u"sheetList"_s);
    setHorizontalHeader(new SheetHeader(Qt::Horizontal, this));
    setModel(model);
    setItemDelegate(new CellDelegate(this));
    setItemDelegateForColumn(SheetTableModel::NumberColumn, new NumberDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSortingEnabled(true);
    sortByColumn(-1, Qt::AscendingOrder); // the order of the export
    setUpHeaders();
}

void SheetTable::setUpHeaders()
{
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    horizontalHeader()->setHighlightSections(false);
    // With the selection of the rows it asks each of a million, only to paint itself as before.
    horizontalHeader()->setSelectionModel(new QItemSelectionModel(model(), horizontalHeader()));
    horizontalHeader()->setSectionsClickable(true);
    for (int column = 0; column < SheetTableModel::kColumnCount; ++column)
        setColumnWidth(column, usualWidth(column));
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
        if (column != SheetTableModel::CornersColumn)
            fillWidth();
    });
}

int SheetTable::usualWidth(int column) const
{
    const int character = fontMetrics().averageCharWidth();
    switch (column) {
    case SheetTableModel::NumberColumn:
        return 12 * character; // with its check box
    case SheetTableModel::ValueColumn:
        return 9 * character;
    case SheetTableModel::BlockColumn:
        return 12 * character;
    default: // corners as most countries measure them
        return fontMetrics().horizontalAdvance(
                   u"4468211,37 5318402,76 \u2013 4468805,37 5318823,26"_s) +
               2 * character;
    }
}

/// As much as it needs, and all there is.
void SheetTable::fillWidth()
{
    constexpr int kLast = SheetTableModel::CornersColumn;
    int others = 0;
    for (int column = 0; column < kLast; ++column)
        others += columnWidth(column);
    setColumnWidth(kLast, std::max(usualWidth(kLast), viewport()->width() - others));
}

void SheetTable::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fillWidth();
}

QSize SheetTable::sizeHint() const
{
    int width = 2 * frameWidth() + 2 * fontMetrics().height(); // with a scroll bar
    for (int column = 0; column < SheetTableModel::kColumnCount; ++column)
        width += usualWidth(column);
    return {width, 12 * verticalHeader()->defaultSectionSize()};
}

QSize SheetTable::minimumSizeHint() const
{
    return {usualWidth(SheetTableModel::NumberColumn) * 2,
            5 * verticalHeader()->defaultSectionSize()};
}
