// SPDX-License-Identifier: GPL-2.0-or-later
// One sentence in a dialog, at the place that it concerns.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

/// An icon, a sentence and, where something can be done about it, a button. Takes its room whether
/// or not it says anything, so that nothing around it moves.
class MessageLine : public QFrame
{
    Q_OBJECT

public:
    explicit MessageLine(QWidget *parent = nullptr);

    void inform(const QString &sentence);
    void warn(const QString &sentence);
    /// A warning with a way out: the button emits actionClicked() and is gone with the sentence.
    void warn(const QString &sentence, const QString &action);
    void clear();
    [[nodiscard]] QString text() const;

signals:
    void actionClicked();

private:
    void show(const QString &sentence, bool isWarning, const QString &action = {});

    QLabel *m_icon;
    QLabel *m_text;
    QPushButton *m_action;
};
