// SPDX-License-Identifier: GPL-2.0-or-later
// How controls behave towards the document below them.
#include "navigation/controls/manners_p.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace navcontrols {

void Manners::watch(QWidget *control)
{
    control->installEventFilter(this);
    connect(control, &QObject::destroyed, this, [this, control] {
        if (m_pressed == control)
            m_pressed = nullptr;
    });
}

bool Manners::isDocumentsTurn() const
{
    return !m_pressed && QGuiApplication::mouseButtons() != Qt::NoButton;
}

bool Manners::isDocuments(const QObject *control, const QMouseEvent &event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const bool isFirst = event.buttons() == event.button();
        if (isFirst)
            m_pressed = control;
        return m_pressed != control;
    }
    case QEvent::MouseButtonRelease: {
        const bool isOurs = m_pressed == control;
        if (isOurs && event.buttons() == Qt::NoButton)
            m_pressed = nullptr;
        return !isOurs;
    }
    default:
        return event.buttons() != Qt::NoButton && m_pressed != control;
    }
}

/// What is ignored here goes on to the parent, in the end to the view.
bool Manners::eventFilter(QObject *control, QEvent *event)
{
    bool isDocuments = false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        isDocuments = this->isDocuments(control, *static_cast<QMouseEvent *>(event));
        break;
    case QEvent::Wheel:
        isDocuments = static_cast<QWheelEvent *>(event)->buttons() != Qt::NoButton;
        break;
    default:
        return false;
    }
    if (isDocuments)
        event->ignore();
    return isDocuments;
}

} // namespace navcontrols
