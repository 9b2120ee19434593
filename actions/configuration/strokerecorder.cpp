// SPDX-License-Identifier: GPL-2.0-or-later
// Looks at a field's keys before anybody else does.
#include "actions/configuration/strokerecorder_p.h"

#include "actions/configuration/keytext_p.h"
#include <QKeyEvent>
#include <QLineEdit>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace menuconfig {

namespace {

constexpr auto kFirstPause = 5s; ///< for whoever started it by mistake
constexpr auto kPause = 1200ms;

} // namespace

StrokeRecorder::StrokeRecorder(QLineEdit *field) : QObject(field), m_field(field)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &StrokeRecorder::stop);
    field->installEventFilter(this);
}

void StrokeRecorder::start()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_sequence = QKeySequence();
    m_isRecording = true;
    m_field->setReadOnly(true);
    m_field->clear();
    m_pause.start(kFirstPause);
}

void StrokeRecorder::stop()
{
    if (!std::exchange(m_isRecording, false))
        return;
    m_pause.stop();
    m_field->setReadOnly(false);
    emit stopped();
}

bool StrokeRecorder::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_isRecording || watched != m_field)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShortcutOverride: // else the program's shortcuts would come first
        event->accept();
        return true;
    case QEvent::KeyRelease:
        return true;
    case QEvent::FocusOut:
        stop();
        return false;
    case QEvent::KeyPress:
        break;
    default:
        return false;
    }
    const auto *key = static_cast<QKeyEvent *>(event);
    const auto stroke = strokeOf(*key);
    if (!stroke || key->isAutoRepeat())
        return true;
    m_sequence = withStroke(m_sequence, *stroke);
    m_field->setText(m_sequence.toString(QKeySequence::NativeText));
    m_pause.start(kPause);
    emit recorded(m_sequence);
    if (m_sequence.count() == 4)
        stop();
    return true;
}

} // namespace menuconfig
