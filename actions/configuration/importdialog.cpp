// SPDX-License-Identifier: GPL-2.0-or-later
// The list of an import, a tick for each row.
#include "actions/configuration/importdialog_p.h"

#include "actions/configuration/menuconfigtexts_p.h"
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr int kNoteColumn = 3; ///< the last one, which takes the rest of the width

} // namespace

ImportDialog::ImportDialog(ImportPlan plan, const ActionCatalogue &catalogue, QWidget *parent)
    : QDialog(parent), m_plan(std::move(plan)), m_list(new QTreeWidget)
{
    setWindowTitle(tr("Import"));
    m_list->setObjectName(u"listImport"_s);
    m_list->setAccessibleName(tr("What the import changes"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setHeaderLabels({tr("Take"), tr("Now"), tr("Then"), tr("Note")});
    fill(catalogue);
    const int letter = fontMetrics().averageCharWidth();
    for (int column = 0; column < kNoteColumn; ++column) {
        m_list->resizeColumnToContents(column);
        m_list->setColumnWidth(column, m_list->columnWidth(column) + 2 * letter);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Import"));
    QPushButton *all = buttons->addButton(tr("Take &all"), QDialogButtonBox::ActionRole);
    QPushButton *none = buttons->addButton(tr("&Skip all"), QDialogButtonBox::ActionRole);
    connect(all, &QPushButton::clicked, this, [this] { checkAll(Qt::Checked); });
    connect(none, &QPushButton::clicked, this, [this] { checkAll(Qt::Unchecked); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(m_list);
    rows->addWidget(buttons);
    int notes = 0;
    for (const ImportRow &row : m_plan.rows)
        notes = std::max(notes, fontMetrics().horizontalAdvance(row.note));
    const int width = m_list->header()->sectionPosition(kNoteColumn) + notes + 12 * letter;
    resize(QSize(std::max(width, 120 * letter), fontMetrics().lineSpacing() * 26)
               .boundedTo(screen()->availableSize() * 0.9));
}

void ImportDialog::fill(const ActionCatalogue &catalogue)
{
    QList<QTreeWidgetItem *> items;
    const auto add = [&](const QStringList &texts, bool isTaken) {
        items << new QTreeWidgetItem(texts);
        items.last()->setCheckState(0, isTaken ? Qt::Checked : Qt::Unchecked);
        items.last()->setToolTip(kNoteColumn, texts.last());
        items.last()->setSizeHint(kNoteColumn, {0, fontMetrics().lineSpacing() + 6}); // of the row
    };
    for (const ImportRow &row : m_plan.rows) {
        add({catalogue.nameOf(row.change.id),
             Texts::shortcut(row.change.before.value_or(QKeySequence())),
             Texts::shortcut(row.change.after.value_or(QKeySequence())), row.note},
            row.isTaken);
        items.last()->setDisabled(!row.canTake);
    }
    if (m_plan.layout)
        add({tr("Context menu"), tr("slots: %1").arg(m_plan.layout->before.NumberOfSlots()),
             tr("slots: %1").arg(m_plan.layout->after.NumberOfSlots()), QString()},
            m_plan.takesLayout);
    m_list->addTopLevelItems(items);
}

void ImportDialog::checkAll(Qt::CheckState state)
{
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        if (!m_list->topLevelItem(row)->isDisabled())
            m_list->topLevelItem(row)->setCheckState(0, state);
    }
}

ImportPlan ImportDialog::plan() const
{
    ImportPlan plan = m_plan;
    const auto isChecked = [this](std::size_t row) {
        return m_list->topLevelItem(static_cast<int>(row))->checkState(0) == Qt::Checked;
    };
    for (std::size_t row = 0; row < plan.rows.size(); ++row)
        plan.rows[row].isTaken = isChecked(row);
    if (plan.layout)
        plan.takesLayout = isChecked(plan.rows.size());
    return plan;
}

} // namespace menuconfig
