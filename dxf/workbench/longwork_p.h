// SPDX-License-Identifier: GPL-2.0-or-later
// The one long work that the workbench dialog does at a time.
#pragma once

#include <QObject>

class DxfToolsForm;

/// Keeps a second work from beginning meanwhile. Once the work takes so long that its progress is
/// shown, nothing else can be used but its cancel button. Closing the dialog cancels first.
class LongWork : public QObject
{
    Q_OBJECT

public:
    explicit LongWork(DxfToolsForm &form);

    /// False when another one is under way.
    [[nodiscard]] bool begin();
    /// Puts the form back.
    void end();
    /// After what the work left to do: emits closeWanted() where that was asked for meanwhile.
    void closeIfWanted();
    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    void cancel();
    void cancelAndClose();

signals:
    void closeWanted();

private:
    DxfToolsForm &m_form;
    bool m_isRunning = false;
    bool m_closesAfterwards = false;
};
