// SPDX-License-Identifier: GPL-2.0-or-later
// A sentence in the middle of a view that has nothing to show.
#include "dxf/workbench/emptyhint_p.h"

#include "dxf/workbench/panelparts_p.h"
#include <QAbstractScrollArea>
#include <QEvent>

EmptyHint::EmptyHint(QAbstractScrollArea *view) : QLabel(view->viewport())
{
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(fontMetrics().height());
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    takeInk();
    parentWidget()->installEventFilter(this);
}

void EmptyHint::showText(const QString &text)
{
    setText(text);
    setGeometry(parentWidget()->rect());
    setVisible(!text.isEmpty());
}

/// The palette's own faint colours cannot be read by everybody.
void EmptyHint::takeInk()
{
    QPalette own = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        own.setColor(group, foregroundRole(), workbench::quietInk(parentWidget()->palette()));
    if (own != palette())
        setPalette(own);
}

bool EmptyHint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    else if (event->type() == QEvent::PaletteChange)
        takeInk();
    return QLabel::eventFilter(watched, event);
}
