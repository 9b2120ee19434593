// SPDX-License-Identifier: GPL-2.0-or-later
// A sentence in the middle of a view that has nothing to show.
#include "dxf/workbench/emptyhint_p.h"
#include <QAbstractScrollArea>
#include <QEvent>

EmptyHint::EmptyHint(QAbstractScrollArea *view) : QLabel(view->viewport())
{
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(fontMetrics().height());
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setForegroundRole(QPalette::PlaceholderText);
    hide();
    parentWidget()->installEventFilter(this);
}

void EmptyHint::showText(const QString &text)
{
    setText(text);
    setGeometry(parentWidget()->rect());
    setVisible(!text.isEmpty());
}

bool EmptyHint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QLabel::eventFilter(watched, event);
}
