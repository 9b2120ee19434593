// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer's side of the soak, as a program that can be killed: soakviewer DIRECTORY RECEIVED
// TOLD COUNT. Received commands go to one journal; what it sends and is told about that, to the
// other.
#include <QCoreApplication>
#include <QFile>
#include <QTimer>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>
#include <kelo_base/ipc/KeloIPCFacade.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Lines that are appended with one write each, so that each is there or not.
class Journal
{
public:
    explicit Journal(const QString &filename) : m_file(filename)
    {
        if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            qFatal("no journal");
        const QByteArrayList lines = m_file.readAll().split('\n');
        m_last = lines.value(lines.size() - 2); // before what was not finished
    }
    void add(const QByteArray &line)
    {
        m_file.write(line + '\n');
        m_last = line;
    }
    /// A number of the last line, 0 when there is none.
    [[nodiscard]] quint64 last(int word) const
    {
        return m_last.split(' ').value(word).toULongLong();
    }

private:
    QFile m_file;
    QByteArray m_last;
};

/// Writes the effect of a command and its number in one step.
class Receiver : public KeloIPCCommandHandler
{
public:
    explicit Receiver(const QString &journal) : m_journal(journal) {}
    bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &origin) override
    {
        m_journal.add(QByteArray::number(origin.number) + ' ' + command.objectId.toLatin1());
        return true;
    }
    std::optional<quint64> GetLastNumber(const QString &) const override
    {
        return m_journal.last(0);
    }

private:
    Journal m_journal;
};

/// Sends the commands of a list of its own, whose places have nothing to do with numbers. It
/// believes what it is told. Before it sends one it notes place and number, by which a later life
/// sees whether it was accepted.
class Sender
{
public:
    Sender(const QString &journal, quint64 count) : m_journal(journal), m_count(count) {}
    void hear(KeloDelivery delivery)
    {
        m_isAccepted = delivery == KeloDelivery::Accepted;
        sendNext();
    }
    void sendNext()
    {
        KeloIPCFacadeI &facade = KeloIPCFacadeI::Instance();
        quint64 place = std::max<quint64>(m_journal.last(0), 1);
        const quint64 number = m_journal.last(1);
        const auto done = facade.ContinueAs(u"viewer"_s, number == 0 ? 0 : number - 1);
        if (!done) // the directory is away
            return QTimer::singleShot(5ms, &facade, [this] { sendNext(); });
        const bool isAnswered =
            std::exchange(m_isAccepted, false) || (number != 0 && *done >= number);
        place += isAnswered ? 1 : 0;
        if (place > m_count)
            return;
        if (isAnswered || number == 0)
            m_journal.add(QByteArray::number(place) + ' ' + QByteArray::number(*done + 1));
        MoveToObjectCommand command;
        command.SetObjectId(u"key-%1"_s.arg(place));
        facade.Send(command);
    }

private:
    Journal m_journal;
    quint64 m_count;
    bool m_isAccepted = false; ///< the last one, as this life was told
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    Receiver receiver(words.at(2));
    Sender sender(words.at(3), words.at(4).toULongLong());
    KeloIPCFacadeI &facade = KeloIPCFacadeI::Instance();
    // No restart takes so long: after a silence nobody can know, and sending again may be twice.
    facade.SetTimes({.poll = 1ms, .partner = 20ms, .answer = 2s});
    if (!facade.Activate(words.at(1), receiver))
        return 1;
    QObject::connect(
        &facade, &KeloIPCFacadeI::CommandAnswered, &facade,
        [&sender](quint64, KeloDelivery delivery) { sender.hear(delivery); }, Qt::QueuedConnection);
    sender.sendNext();
    return QCoreApplication::exec();
}
