// SPDX-License-Identifier: GPL-2.0-or-later
// The running command channel between the viewer and the partner program.
#include <kelo_base/ipc/KeloIPCFacade.h>

#include "ipc/channel_p.h"
#include "ipc/datafile_p.h"
#include "ipc/directorylock_p.h"
#include "ipc/inbox_p.h"
#include "ipc/outbox_p.h"

#include <QDebug>
#include <QDir>
#include <QPointer>
#include <QProcess>
#include <algorithm>
#include <kelo_base/core/Process.h>
#include <kelo_base/core/Uid.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

KeloIPCFacadeI *s_instance = nullptr;

QString newSender()
{
    char uid[26];
    return QString::fromLatin1(Tz::CreateUid25(uid));
}

} // namespace

/// What exists while the channel is switched on.
struct KeloIPCFacadeI::Channel
{
    Channel(const QString &place, KeloIPCCommandHandler &receiver, const KeloIPCTimes &patience)
        : directory(place),
          handler(receiver),
          times(patience),
          inbox(place, patience.settle.count(), patience.leftover.count()),
          outbox(makeOutbox(sender))
    {
    }

    [[nodiscard]] channel::Outbox makeOutbox(const QString &name) const
    {
        return {directory, name, times.leftover.count(), times.answer.count()};
    }

    /// Refuses the command that waits for its handler, which will not see it.
    void cancel()
    {
        if (const auto delivery = std::exchange(waiting, std::nullopt))
            inbox.answer(delivery->origin, channel::AnswerState::Refused);
    }

    QString directory;
    KeloIPCCommandHandler &handler;
    KeloIPCTimes times;
    QString sender = newSender();
    quint64 lastNumber = 0;
    channel::Inbox inbox;
    channel::Outbox outbox;
    std::optional<channel::Delivery> waiting; ///< for its handler
    bool isHandling = false;                  ///< from a delivery until its handler returns
    bool isDirectoryMissing = false;
    int senders = 1; ///< counts what ContinueAs() brought
};

KeloIPCFacadeI &KeloIPCFacadeI::Instance()
{
    if (!s_instance)
        s_instance = new KeloIPCFacadeI;
    return *s_instance;
}

void KeloIPCFacadeI::Destroy()
{
    delete std::exchange(s_instance, nullptr);
}

KeloIPCFacadeI::KeloIPCFacadeI()
{
    connect(&m_pollTimer, &QTimer::timeout, this, &KeloIPCFacadeI::poll);
    connect(&m_partnerTimer, &QTimer::timeout, this, &KeloIPCFacadeI::lookAround);
}

KeloIPCFacadeI::~KeloIPCFacadeI()
{
    Deactivate();
}

bool KeloIPCFacadeI::Activate(const QString &directory, KeloIPCCommandHandler &handler)
{
    Deactivate();
    const QString path = QDir(directory).absolutePath();
    if (!channel::isPath(directory) || !QDir().mkpath(path)) {
        qDebug() << "KeloIPCFacadeI::Activate"
                 << ": No directory " << directory;
        return false;
    }
    switch (channel::DirectoryLock(path).take()) {
    case channel::DirectoryLock::Result::Ours:
        break;
    case channel::DirectoryLock::Result::Another:
        qDebug() << "KeloIPCFacadeI::Activate"
                 << ": Another viewer uses " << path;
        return false;
    case channel::DirectoryLock::Result::Failed:
        qDebug() << "KeloIPCFacadeI::Activate"
                 << ": Cannot write to " << path;
        return false;
    }
    channel::removeDataFiles(path, m_times.dataFile);
    m_channel = std::make_shared<Channel>(path, handler, m_times);
    m_pollTimer.start(m_times.poll);
    m_partnerTimer.start(m_times.partner);
    lookAround(); // last: a listener may switch off again
    return true;
}

void KeloIPCFacadeI::Deactivate()
{
    m_pollTimer.stop();
    m_partnerTimer.stop();
    if (!m_channel)
        return;
    m_channel->cancel();
    channel::DirectoryLock(m_channel->directory).release();
    m_channel.reset();
}

quint64 KeloIPCFacadeI::Send(const KeloIPCCommand &command)
{
    if (!m_channel)
        return 0;
    const quint64 nextNumber = std::max(m_channel->lastNumber, m_channel->outbox.givenBefore()) + 1;
    m_channel->lastNumber = nextNumber;
    const channel::Message message{.type = channel::kNamedCommand,
                                   .id = command.GetCommandName(),
                                   .parameters = command.GetParameterText(),
                                   .sender = m_channel->sender,
                                   .number = nextNumber};
    m_channel->outbox.put(message, channel::steadyNow());
    return message.number;
}

std::optional<quint64> KeloIPCFacadeI::ContinueAs(const QString &sender, quint64 lastAnswered)
{
    if (!m_channel || !channel::isSenderId(sender))
        return std::nullopt;
    channel::Outbox outbox = m_channel->makeOutbox(sender);
    if (!outbox.knowsAnswers())
        return std::nullopt;
    quint64 &known = m_answered[sender];
    known = std::max({known, outbox.lastAnswered(), lastAnswered});
    m_channel->outbox = std::move(outbox);
    m_channel->sender = sender;
    m_channel->lastNumber = known;
    ++m_channel->senders;
    return known;
}

QString KeloIPCFacadeI::MakeDataFileParameter(const QString &polygonFilename)
{
    if (!s_instance || !s_instance->m_channel) {
        qDebug() << "KeloIPCFacadeI::MakeDataFileParameter"
                 << ": The channel is switched off";
        return {};
    }
    const Channel &running = *s_instance->m_channel;
    channel::removeDataFiles(running.directory, running.times.dataFile);
    return channel::placeDataFile(polygonFilename, running.directory);
}

bool KeloIPCFacadeI::StartPartner(const QString &commandLine)
{
    QStringList words = QProcess::splitCommand(commandLine);
    if (words.isEmpty())
        return false;
    const QString program = words.takeFirst();
    return QProcess::startDetached(program, words);
}

void KeloIPCFacadeI::poll()
{
    const QPointer<KeloIPCFacadeI> alive(this);
    const std::shared_ptr<Channel> running = m_channel;
    const int senders = running->senders;
    const auto outcomes = running->outbox.poll(channel::steadyNow());
    for (const auto &[number, delivery] : outcomes) { // before any listener continues behind them
        if (delivery != KeloDelivery::Silence)
            m_answered[running->sender] = std::max(m_answered[running->sender], number);
    }
    for (const auto &[number, delivery] : outcomes) {
        emit CommandAnswered(number, delivery);
        if (!alive || m_channel != running)
            return;
        if (running->senders != senders)
            break; // the rest is about numbers that were forgotten
    }
    if (running->isHandling)
        return;
    running->waiting = running->inbox.poll(channel::steadyNow(), running->handler);
    running->isHandling = running->waiting.has_value();
    // Not from here: while a timer is served it does not fire again, whatever loop runs.
    if (running->isHandling)
        QMetaObject::invokeMethod(
            this, [this, running] { handle(running); }, Qt::QueuedConnection);
}

/// Hands a command over, unless switched off in the meantime. The handler may switch off, on, or
/// destroy the channel.
void KeloIPCFacadeI::handle(const std::shared_ptr<Channel> &running)
{
    if (!running->waiting)
        return;
    const QPointer<KeloIPCFacadeI> alive(this);
    const std::shared_ptr<Channel> kept = running;
    const channel::Delivery delivery = *std::exchange(running->waiting, std::nullopt);
    const bool isAccepted = kept->handler.HandleCommand(delivery.command, delivery.origin);
    kept->isHandling = false;
    // What was switched on anew for the same directory has the answers in its care.
    const bool isSucceeded = alive && m_channel && m_channel->directory == kept->directory;
    (isSucceeded ? m_channel : kept)
        ->inbox.answer(delivery.origin,
                       isAccepted ? channel::AnswerState::Accepted : channel::AnswerState::Refused);
}

/// What need not be known every second: the directory, who uses it, and the partner program.
void KeloIPCFacadeI::lookAround()
{
    const bool isMissing = !QDir(m_channel->directory).exists();
    if (std::exchange(m_channel->isDirectoryMissing, isMissing) != isMissing)
        qDebug() << "KeloIPCFacadeI::lookAround :" << qUtf8Printable(m_channel->directory)
                 << (isMissing ? "is gone" : "is back");
    if (!isMissing && !keepsLock())
        return;
    const bool isRunning = IsProcessRunning(channel::kPartnerProgram);
    if (std::exchange(m_isPartnerRunning, isRunning) != isRunning)
        emit PartnerRunningChanged(isRunning);
}

/// Renews the lock on the directory. False, and switched off, when another viewer has it now: this
/// one was stopped for long, or the directory came back with it.
bool KeloIPCFacadeI::keepsLock()
{
    const channel::DirectoryLock lock(m_channel->directory);
    if (lock.take() != channel::DirectoryLock::Result::Another)
        return true;
    qDebug() << "KeloIPCFacadeI::lookAround : Another viewer uses"
             << qUtf8Printable(m_channel->directory);
    Deactivate();
    return false;
}
