// SPDX-License-Identifier: GPL-2.0-or-later
// The findings about a plan as a part of the workbench dialog.
#include "dxf/workbench/findingpanel_p.h"

#include "dxf/workbench/clipboardtable_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/emptyhint_p.h"
#include "dxf/workbench/findingmodel_p.h"
#include "dxf/workbench/panelparts_p.h"
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Shows how grave a finding is, and all of its text.
class FindingDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// As high as the text needs in the list's width.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override
    {
        const auto *list = static_cast<const QListView *>(option.widget);
        QStyleOptionViewItem inList = option;
        inList.rect.setWidth(list->viewport()->width());
        return {list->viewport()->width(), QStyledItemDelegate::sizeHint(inList, index).height()};
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const int severity = index.data(FindingModel::kSeverityRole).toInt();
        const bool isWarning = severity == static_cast<int>(PlanFinding::Severity::Warning);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = option->widget->style()->standardIcon(
            isWarning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation);
    }
};

QListView *listOf(QAbstractItemModel *model)
{
    auto *list = new QListView;
    list->setObjectName(u"findingList"_s);
    list->setModel(model);
    list->setWordWrap(true);
    list->setResizeMode(QListView::Adjust);
    list->setLayoutMode(QListView::Batched); // thousands of long texts take a while
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int icon = list->style()->pixelMetric(QStyle::PM_SmallIconSize);
    list->setIconSize({icon, icon});
    list->setItemDelegate(new FindingDelegate(list));
    return list;
}

} // namespace

FindingPanel::FindingPanel(QWidget *parent)
    : QWidget(parent),
      m_model(new FindingModel(this)),
      m_list(listOf(m_model)),
      m_hint(new EmptyHint(m_list)),
      m_title(workbench::buddyLabel(DxfDialogTexts::Findings(), m_list))
{
    m_list->setAccessibleName(workbench::spoken(DxfDialogTexts::Findings()));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_title, 0, Qt::AlignLeft);
    column->addWidget(m_list, 1);
    workbench::offerCopy(m_list, [this] { copy(); });
    const auto choose = [this](const QModelIndex &index) {
        emit chosen(m_model->findingAt(index.row()));
    };
    connect(m_list, &QListView::clicked, this, choose);
    connect(m_list, &QListView::activated, this, choose);
}

QWidget *FindingPanel::list() const
{
    return m_list;
}

void FindingPanel::setFindings(std::vector<PlanFinding> findings)
{
    m_model->setFindings(std::move(findings));
    m_list->scrollToTop();
    m_hint->showText(m_model->rowCount() == 0 ? DxfDialogTexts::NoFindings() : QString());
    showCounts();
}

void FindingPanel::showCounts()
{
    qint64 warnings = 0;
    const int rows = m_model->rowCount();
    for (int row = 0; row < rows; ++row)
        if (m_model->findingAt(row).severity == PlanFinding::Severity::Warning)
            ++warnings;
    const QString text = DxfDialogTexts::FindingsCounted(warnings, rows - warnings);
    m_title->setText(text);
    m_list->setAccessibleName(workbench::spoken(text));
}

void FindingPanel::selectRows(const std::vector<int> &rows)
{
    QItemSelection selection;
    for (const int row : rows)
        selection.select(m_model->index(row), m_model->index(row));
    m_list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.empty())
        m_list->scrollTo(m_model->index(rows.front()));
}

void FindingPanel::copy() const
{
    workbench::TableText table(
        {DxfDialogTexts::Severity(), DxfDialogTexts::Line(), DxfDialogTexts::Finding()});
    const QItemSelectionModel &selection = *m_list->selectionModel();
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (selection.hasSelection() && !selection.isRowSelected(row, {}))
            continue;
        const PlanFinding &finding = m_model->findingAt(row);
        table.addRow({finding.severity == PlanFinding::Severity::Warning
                          ? DxfDialogTexts::Warning()
                          : DxfDialogTexts::Information(),
                      finding.line > 0 ? QString::number(finding.line) : QString(), finding.text});
    }
    table.toClipboard();
}
