// SPDX-License-Identifier: GPL-2.0-or-later
// Commands from the partner program, and to it.
#pragma once

#include <QObject>
#include <QTimer>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>

class MainWindow;
class PlanView;

/// Switched on and off by the action; the status line says how things are.
class PartnerChannel : public QObject, public KeloIPCCommandHandler
{
    Q_OBJECT

public:
    /// @param directory  of the exchange files; empty: the user's own
    PartnerChannel(MainWindow &window, const QString &directory);
    ~PartnerChannel() override;

    bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &origin) override;

private:
    void switchOn(bool isOn);
    void showState();
    bool goTo(const KeloCommandData &command);
    void showInPartner();
    void showObjectInPartner();
    void startPartner();
    [[nodiscard]] QString shownAreaFile(const PlanView &view) const;

    MainWindow &m_window;
    QString m_directory;
    QTimer m_look; ///< another viewer may take the directory over
};
