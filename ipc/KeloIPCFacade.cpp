// SPDX-License-Identifier: GPL-2.0-or-later
// The running command channel between the viewer and the partner program.
#include <kelo_base/ipc/KeloIPCFacade.h>

#include "ipc/channel_p.h"
#include "ipc/datafile_p.h"
#include "ipc/inbox_p.h"
#include "ipc/outbox_p.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QPointer>
#include <QProcess>
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

qint64 now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

} // namespace

/// What exists while the channel is switched on.
struct KeloIPCFacadeI::Channel
{
    Channel(const QString &place, KeloIPCCommandHandler &receiver, const KeloIPCTimes &patience)
        : directory(place),
          handler(receiver),
          times(patience),
          inbox(place, patience.leftover.count()),
          outbox(makeOutbox())
    {
    }

    [[nodiscard]] channel::Outbox makeOutbox() const
    {
        return {directory, sender, times.leftover.count(), times.answer.count()};
    }

    /// Hands a command over. The handler may switch the channel off, or destroy it.
    void handle(const channel::Delivery &delivery)
    {
        const bool isAccepted = handler.HandleCommand(delivery.command, delivery.origin);
        isHandling = false;
        inbox.answer(delivery.origin,
                     isAccepted ? channel::AnswerState::Accepted : channel::AnswerState::Refused);
    }

    QString directory;
    KeloIPCCommandHandler &handler;
    KeloIPCTimes times;
    QString sender = newSender();
    quint64 lastNumber = 0;
    channel::Inbox inbox;
    channel::Outbox outbox;
    bool isHandling = false; ///< from a delivery until its handler returns
    bool isDirectoryMissing = false;
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

KeloIPCFacadeI::~KeloIPCFacadeI() = default;

bool KeloIPCFacadeI::Activate(const QString &directory, KeloIPCCommandHandler &handler)
{
    Deactivate();
    const QString path = QDir(directory).absolutePath();
    if (directory.isEmpty() || !QDir().mkpath(path)) {
        qDebug() << "KeloIPCFacadeI::Activate"
                 << ": No directory " << directory;
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
    m_channel.reset();
}

quint64 KeloIPCFacadeI::Send(const KeloIPCCommand &command)
{
    if (!m_channel)
        return 0;
    const channel::Message message{.type = channel::kNamedCommand,
                                   .id = command.GetCommandName(),
                                   .parameters = command.GetParameterText(),
                                   .sender = m_channel->sender,
                                   .number = ++m_channel->lastNumber};
    m_channel->outbox.put(message, now());
    return message.number;
}

quint64 KeloIPCFacadeI::ContinueAs(const QString &sender)
{
    if (!m_channel || !channel::isSenderId(sender))
        return 0;
    m_channel->sender = sender;
    m_channel->outbox = m_channel->makeOutbox();
    m_channel->lastNumber = m_channel->outbox.lastAnswered();
    return m_channel->lastNumber;
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
    for (const auto &[number, delivery] : running->outbox.poll(now())) {
        emit CommandAnswered(number, delivery);
        if (!alive || m_channel != running)
            return;
    }
    if (running->isHandling)
        return;
    if (const auto delivery = running->inbox.poll(now(), running->handler)) {
        running->isHandling = true;
        const auto handle = [this, running, delivery] {
            if (m_channel == running) // not switched off in the meantime
                running->handle(*delivery);
        };
        // Not from here: while a timer is served it does not fire again, whatever loop runs.
        QMetaObject::invokeMethod(this, handle, Qt::QueuedConnection);
    }
}

/// What need not be known every second: the directory and the partner program.
void KeloIPCFacadeI::lookAround()
{
    const bool isMissing = !QDir(m_channel->directory).exists();
    if (std::exchange(m_channel->isDirectoryMissing, isMissing) != isMissing)
        qDebug() << "KeloIPCFacadeI::lookAround :" << qUtf8Printable(m_channel->directory)
                 << (isMissing ? "is gone" : "is back");
    const bool isRunning = IsProcessRunning(channel::kPartnerProgram);
    if (std::exchange(m_isPartnerRunning, isRunning) != isRunning)
        emit PartnerRunningChanged(isRunning);
}
