// SPDX-License-Identifier: GPL-2.0-or-later
// The step "Read File" of the workbench dialog.
#pragma once

#include <QGroupBox>

class MessageLine;
class QMenu;
class QPushButton;
class QStackedWidget;
class ReadingBar;

/// Buttons to open a plan, and below them the message or, during long work, the progress. Takes
/// the same room with either.
class ReadPanel : public QGroupBox
{
    Q_OBJECT

public:
    explicit ReadPanel(QWidget *parent = nullptr);

    [[nodiscard]] MessageLine &message() const { return *m_message; }
    [[nodiscard]] ReadingBar &progress() const { return *m_progress; }
    [[nodiscard]] QMenu &recentMenu() const { return *m_recentMenu; }
    [[nodiscard]] QWidget *openButton() const;
    [[nodiscard]] QWidget *recentButton() const;
    /// Shows progress instead of message, or the other way round.
    void setBusy(bool isBusy);

signals:
    void openWanted();

private:
    QPushButton *m_open;
    QPushButton *m_recent;
    QWidget *m_buttons;
    QMenu *m_recentMenu;
    QStackedWidget *m_status;
    MessageLine *m_message;
    ReadingBar *m_progress;
};
