// SPDX-License-Identifier: GPL-2.0-or-later
// A black screen during a talk.
#include "navigation/controls/blankscreen_p.h"

#include <QKeyEvent>
#include <QPainter>

namespace navcontrols {

BlankScreen::BlankScreen(QWidget *window) : QWidget(window)
{
    setAccessibleName(tr("Blank screen; any key ends it"));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    setGeometry(window->rect());
    window->installEventFilter(this);
    show();
    raise();
    setFocus();
}

bool BlankScreen::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return false;
}

void BlankScreen::end()
{
    hide();
    deleteLater();
    emit ended();
}

void BlankScreen::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Qt::black);
}

void BlankScreen::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool isModifier = key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
    if (!isModifier)
        end();
}

void BlankScreen::mousePressEvent(QMouseEvent *)
{
    end();
}

void BlankScreen::wheelEvent(QWheelEvent *event)
{
    event->accept(); // nothing may move unseen
}

} // namespace navcontrols
