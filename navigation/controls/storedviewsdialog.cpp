// SPDX-License-Identifier: GPL-2.0-or-later
// Adds, renames, reorders and deletes stored views.
#include "navigation/controls/storedviewsdialog_p.h"

#include "navigation/controls/presentationmenu_p.h"
#include "navigation/controls/viewmoves_p.h"
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace navcontrols {

StoredViewsDialog::StoredViewsDialog(StoredViews &stored, KView *view, QWidget *parent)
    : QDialog(parent), m_stored(&stored), m_view(view), m_list(new QListWidget)
{
    setWindowTitle(tr("Stored Views"));
    m_list->setAccessibleName(windowTitle());
    m_list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    auto *row = new QHBoxLayout;
    row->addWidget(m_list, 1);
    auto *column = new QVBoxLayout;
    row->addLayout(column);
    m_add = addButton(tr("&Add This View"), &StoredViewsDialog::add);
    m_rename = addButton(tr("&Rename"), &StoredViewsDialog::editTitle);
    m_up = addButton(tr("Move &Up"), &StoredViewsDialog::moveUp);
    m_down = addButton(tr("Move &Down"), &StoredViewsDialog::moveDown);
    m_delete = addButton(tr("De&lete"), &StoredViewsDialog::remove);
    for (QPushButton *button : {m_add, m_rename, m_up, m_down, m_delete})
        column->addWidget(button);
    column->addStretch();
    auto *all = new QVBoxLayout(this);
    all->addLayout(row);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    all->addWidget(box);

    auto *deleteKey =
        new QShortcut(QKeySequence::Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &StoredViewsDialog::remove);
    connect(m_list, &QListWidget::currentRowChanged, this, &StoredViewsDialog::enable);
    connect(m_list, &QListWidget::itemChanged, this,
            [this](QListWidgetItem *item) { rename(m_list->row(item)); });
    connect(&stored, &StoredViews::changed, this, [this] {
        if (!m_isFilling)
            fill(m_list->currentRow());
    });
    connect(&stored, &QObject::destroyed, this, &QDialog::reject);
    fill(0);
}

QPushButton *StoredViewsDialog::addButton(const QString &text, void (StoredViewsDialog::*act)())
{
    auto *button = new QPushButton(text);
    button->setAutoDefault(false); // Enter in the list means a title
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

void StoredViewsDialog::fill(int current)
{
    if (!m_stored)
        return;
    m_isFilling = true;
    m_list->clear();
    for (const UDocItem &item : m_stored->list()) {
        auto *row = new QListWidgetItem(item.title, m_list);
        row->setFlags(row->flags() | Qt::ItemIsEditable);
        row->setToolTip(item.fileName);
    }
    m_list->setCurrentRow(std::min(current, m_list->count() - 1));
    m_isFilling = false;
    enable();
}

void StoredViewsDialog::enable()
{
    const int row = m_list->currentRow();
    m_add->setEnabled(m_view && itemOf(m_view).IsValid());
    m_rename->setEnabled(row >= 0);
    m_delete->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_list->count());
}

void StoredViewsDialog::add()
{
    if (m_view && m_stored && storeView(*m_stored, m_view, {}))
        fill(m_list->count());
}

void StoredViewsDialog::editTitle()
{
    if (QListWidgetItem *item = m_list->currentItem())
        m_list->editItem(item);
}

/// The list goes back to what is stored when the title was empty.
void StoredViewsDialog::rename(int row)
{
    if (m_isFilling || !m_stored)
        return;
    UDocItemList list = m_stored->list();
    m_isFilling = true;
    if (renameItem(list, row, m_list->item(row)->text()))
        m_stored->set(list);
    m_isFilling = false;
    // The editor still holds the item: filled anew when it is done.
    QMetaObject::invokeMethod(
        this, [this, row] { fill(row); }, Qt::QueuedConnection);
}

void StoredViewsDialog::move(int steps)
{
    if (!m_stored)
        return;
    UDocItemList list = m_stored->list();
    const int row = m_list->currentRow();
    if (!moveItem(list, row, row + steps))
        return;
    m_stored->set(list);
    fill(row + steps);
}

void StoredViewsDialog::remove()
{
    if (!m_stored)
        return;
    UDocItemList list = m_stored->list();
    const int row = m_list->currentRow();
    if (!list.Remove(row))
        return;
    m_stored->set(list);
    fill(row);
}

} // namespace navcontrols
