// SPDX-License-Identifier: GPL-2.0-or-later
// The running command channel between the viewer and the partner program.
#pragma once

#include <kelo_base/core/Export.h>

#include <QMap>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>

class KeloIPCCommand;
class KeloIPCCommandHandler;

/// What became of a command that was sent.
enum class KeloDelivery {
    Accepted,
    Refused, ///< the partner has it and does not carry it out
    Silence, ///< not taken, and withdrawn where that was possible; or taken and never answered;
             ///< or its number was in use: nobody knows
};

/// The channel's patience. Settable mainly for tests and slow network drives.
struct KeloIPCTimes
{
    std::chrono::milliseconds poll{1000};       ///< between two looks at the exchange files
    std::chrono::milliseconds settle{1000};     ///< that a file without end mark must stay the same
    std::chrono::milliseconds partner{5000};    ///< between two looks for the partner program
    std::chrono::milliseconds leftover{60'000}; ///< commands lie no longer than this, either way
    std::chrono::milliseconds answer{10'000};   ///< silence after a command was taken
    std::chrono::milliseconds dataFile{3'600'000}; ///< then copies of data files are removed
};

/// Exchanges commands with the partner program through files in one directory; the format is
/// described in docs/exchange-files.md. What goes wrong with a file is said in one debug line, and
/// polling goes on.
///
/// For the GUI thread only. Needs a running event loop.
class KELO_BASE_EXPORT KeloIPCFacadeI : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(KeloIPCFacadeI)

public:
    /// Creates the channel, switched off, on first use.
    static KeloIPCFacadeI &Instance();
    /// Switches off and deletes the channel; Instance() then makes a new one.
    static void Destroy();

    /// Switches the channel on, after switching off what ran before, under a new sender identifier.
    /// @param directory  where the exchange files are; created on demand
    /// @param handler    not owned; must live until Deactivate()
    /// @return false, and one debug line, when there is no such directory and none can be made,
    ///         when it cannot be written to, or when another viewer uses it
    bool Activate(const QString &directory, KeloIPCCommandHandler &handler);
    /// Drops what is queued and forgets what is not answered; a command that lies ready stays.
    /// Happens by itself, with one debug line, when another viewer has taken the directory over.
    void Deactivate();
    [[nodiscard]] bool IsActive() const { return m_channel != nullptr; }

    /// Takes effect with the next Activate().
    void SetTimes(const KeloIPCTimes &times) { m_times = times; }

    /// Queues a command. The partner gets one after the other, each as soon as it has taken the one
    /// before; CommandAnswered() tells what became of it.
    /// @return the command's number, from 1 on; 0 when the channel is switched off
    quint64 Send(const KeloIPCCommand &command);

    /// Sends from now on as @p sender, for an application that survives its own death: a command
    /// whose fate it does not know is sent again under the number it had, and the partner drops it
    /// if it was the one. For this, send the next command only when the last one was accepted, and
    /// after silence continue anew. Drops what is queued and forgets what is not answered.
    /// @param sender        1 ... 64 of the characters A-Z a-z 0-9 . _ -
    /// @param lastAnswered  the number of the last command that the application knows to be
    ///                      answered. Without it, the numbers begin again at 1 when the partner's
    ///                      answers were deleted while the application did not run, and the partner
    ///                      takes new commands for repetitions.
    /// @return the number of the last command that was accepted or refused from that sender, as far
    ///         as the partner's answers, this channel or @p lastAnswered tell, 0 for none; Send()
    ///         goes on behind it. Nothing, and nothing changes, when switched off, with other
    ///         characters, or while the answers cannot be read.
    std::optional<quint64> ContinueAs(const QString &sender, quint64 lastAnswered = 0);

    /// What the partner receives for a file: the bare name of a copy beside the exchange files, or
    /// an empty text when there is no such file or the channel is switched off. Never holds ":",
    /// "," or ";".
    [[nodiscard]] static QString MakeDataFileParameter(const QString &polygonFilename);

    /// Whether the partner program ran at the last look. Looked for while the channel is active.
    [[nodiscard]] bool IsPartnerRunning() const { return m_isPartnerRunning; }
    /// Starts the partner program and leaves it to itself.
    /// @param commandLine  program and arguments, with double quotes around those that hold blanks
    /// @return false when it could not be started
    bool StartPartner(const QString &commandLine);

signals:
    void PartnerRunningChanged(bool isRunning);
    void CommandAnswered(quint64 number, KeloDelivery delivery);

private:
    struct Channel;

    KeloIPCFacadeI();
    ~KeloIPCFacadeI() override;

    void poll();
    void lookAround();
    bool keepsLock();
    void handle(const std::shared_ptr<Channel> &running);

    KeloIPCTimes m_times;
    QTimer m_pollTimer;
    QTimer m_partnerTimer;
    std::shared_ptr<Channel> m_channel; ///< null while switched off
    QMap<QString, quint64> m_answered;  ///< the last number answered, of each sender
    bool m_isPartnerRunning = false;
};
