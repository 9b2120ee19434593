// SPDX-License-Identifier: GPL-2.0-or-later
// A field that offers what can be entered.
#include "dxf/workbench/offeringedit_p.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

namespace {

/// Of very many offers the first tell how wide they are.
int widthOf(const QAbstractItemView &list, const QAbstractItemModel &offers)
{
    constexpr int kMeasured = 200;
    int width = 0;
    for (int row = 0; row < std::min(offers.rowCount(), kMeasured); ++row)
        width = std::max(
            width, list.fontMetrics().horizontalAdvance(offers.index(row, 0).data().toString()));
    return width + list.verticalScrollBar()->sizeHint().width() + 2 * list.fontMetrics().height();
}

} // namespace

OfferingEdit::OfferingEdit(QAbstractItemModel *offers, const QString &name, QWidget *parent)
    : QLineEdit(parent), m_offers(offers)
{
    setObjectName(name);
    setClearButtonEnabled(true);
    setAcceptDrops(false); // a plan dropped here shall reach the dialog
    auto *all = new QCompleter(offers, this);
    all->setCompletionRole(Qt::EditRole);
    all->setCaseSensitivity(Qt::CaseInsensitive); // finds what the filter would not
    all->setFilterMode(Qt::MatchContains);
    all->setMaxVisibleItems(12);
    setCompleter(all);
}

bool OfferingEdit::isOffering() const
{
    return completer()->popup()->isVisible();
}

void OfferingEdit::offer()
{
    emit offerWanted();
    if (isOffering() || !isVisible() || m_offers->rowCount() == 0)
        return;
    QAbstractItemView *const list = completer()->popup();
    list->setMinimumWidth(std::max(width(), std::min(widthOf(*list, *m_offers), 2 * width())));
    completer()->setCompletionPrefix(text());
    completer()->complete();
}

void OfferingEdit::offerWhenEmpty()
{
    if (text().isEmpty() && hasFocus())
        offer();
}

void OfferingEdit::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    emit offerWanted(); // typing looks through them, too
    const bool isByKey = event->reason() == Qt::TabFocusReason ||
                         event->reason() == Qt::BacktabFocusReason ||
                         event->reason() == Qt::ShortcutFocusReason;
    if (isByKey) // a click offers when it is over: the list would get the rest of it
        QTimer::singleShot(0, this, &OfferingEdit::offerWhenEmpty);
}

void OfferingEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down && !isOffering())
        return offer();
    QLineEdit::keyPressEvent(event);
}

void OfferingEdit::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    offerWhenEmpty();
}
