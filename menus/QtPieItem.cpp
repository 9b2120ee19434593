// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps what a sector shows, and tells the menu of changes.
#include <kelo_base/menus/QtPieItem.h>

#include "menus/pieaccessible_p.h"
#include <QEvent>

QtPieItem::QtPieItem(const QString &text, QWidget *parent, int weight)
    : QtPieItem(QIcon(), text, parent, weight)
{
}

QtPieItem::QtPieItem(const QIcon &icon, const QString &text, QWidget *parent, int weight)
    : QWidget(parent), m_text(text), m_icon(icon), m_weight(weight)
{
    pie::installAccessibility();
    setVisible(false); // for good: otherwise it would appear with the menu
}

void QtPieItem::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    pie::announceName(*this);
    emit changed();
}

void QtPieItem::setIcon(const QIcon &icon)
{
    m_icon = icon;
    emit changed();
}

void QtPieItem::setWeight(int weight)
{
    m_weight = weight;
    emit changed();
}

void QtPieItem::setCheckable(bool isCheckable)
{
    if (m_isCheckable == isCheckable)
        return;
    m_isCheckable = isCheckable;
    emit changed();
}

void QtPieItem::setChecked(bool isChecked)
{
    if (m_isChecked == isChecked)
        return;
    m_isChecked = isChecked;
    pie::announceCheck(*this);
    emit changed();
}

void QtPieItem::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        emit changed();
}
