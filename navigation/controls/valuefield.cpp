// SPDX-License-Identifier: GPL-2.0-or-later
// A value over the map that turns into a line to edit when it gets the keyboard.
#include "navigation/controls/valuefield_p.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>
#include <utility>

namespace navcontrols {

namespace {
constexpr int kHeight = 24; // pixels
constexpr int kInset = 5;
} // namespace

ValueField::ValueField(const QString &name, Reader read, Writer write, const QString &widest,
                       QWidget *parent)
    : QLineEdit(parent), m_read(std::move(read)), m_write(std::move(write)), m_widest(widest)
{
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void ValueField::setHelp(const QString &help)
{
    m_help = help;
    setToolTip(help);
    setAccessibleDescription(help);
}

QSize ValueField::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_widest) + 2 * kInset + 4, kHeight};
}

void ValueField::refresh()
{
    if (hasFocus() || !isVisible())
        return;
    const QString value = m_read();
    if (value != text())
        setText(value);
}

void ValueField::paintEvent(QPaintEvent *event)
{
    if (hasFocus()) {
        QLineEdit::paintEvent(event);
        return;
    }
    m_label.set(m_read(), font());
    const double room = width() - m_label.size().width() - kInset;
    QPainter painter(this);
    m_label.paint(painter,
                  {layoutDirection() == Qt::RightToLeft ? room : kInset,
                   (height() - m_label.size().height()) / 2},
                  Halo(palette(), isEnabled()));
}

void ValueField::focusInEvent(QFocusEvent *event)
{
    setText(m_read());
    QLineEdit::focusInEvent(event);
    selectAll();
}

/// What was typed and not entered counts no more.
void ValueField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        refresh();
}

void ValueField::enter()
{
    const QPointer<ValueField> alive(this);
    const Writer write = m_write; // outlives this, if that is what it leads to
    const bool isTaken = write(text());
    if (!alive)
        return;
    if (isTaken) {
        emit left();
    } else {
        selectAll();
        QToolTip::showText(mapToGlobal(QPoint(0, height())), m_help, this);
    }
}

void ValueField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        enter();
    else if (event->key() == Qt::Key_Escape)
        emit left();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace navcontrols
