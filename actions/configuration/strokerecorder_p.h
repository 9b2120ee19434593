// SPDX-License-Identifier: GPL-2.0-or-later
// Takes the keys pressed in a field as a key sequence.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <QTimer>

class QLineEdit;

namespace menuconfig {

/// While it records, every key is taken, Escape and Tab too. It traps nobody: it ends with a pause,
/// with the fourth stroke, when the field loses the focus, or when told.
class StrokeRecorder : public QObject
{
    Q_OBJECT

public:
    /// @param field  is its owner; shows what was pressed
    explicit StrokeRecorder(QLineEdit *field);

    [[nodiscard]] bool isRecording() const { return m_isRecording; }
    [[nodiscard]] const QKeySequence &sequence() const { return m_sequence; }
    /// Gives the field the focus.
    void start();
    void stop();

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void recorded(const QKeySequence &sequence); ///< after each stroke
    void stopped();

private:
    QLineEdit *m_field;
    QTimer m_pause;
    QKeySequence m_sequence;
    bool m_isRecording = false;
};

} // namespace menuconfig
