// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer's side of the soak, as a program that can be killed: soakviewer DIRECTORY JOURNAL
// COUNT
#include <QCoreApplication>
#include <QFile>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>
#include <kelo_base/ipc/KeloIPCFacade.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Writes the effect of a command and its number with one write, so that both are there or none.
class Journal : public KeloIPCCommandHandler
{
public:
    explicit Journal(const QString &filename) : m_file(filename)
    {
        if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            qFatal("no journal");
        m_last = static_cast<quint64>(m_file.readAll().count('\n'));
    }
    bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &origin) override
    {
        m_file.write(QByteArray::number(origin.number) + ' ' +
                     QByteArray::number(static_cast<int>(command.x)) + '\n');
        m_last = origin.number;
        return true;
    }
    std::optional<quint64> GetLastNumber(const QString &) const override { return m_last; }

private:
    QFile m_file;
    quint64 m_last = 0;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    Journal journal(words.at(2));
    KeloIPCFacadeI &facade = KeloIPCFacadeI::Instance();
    facade.SetTimes({.poll = 1ms, .partner = 1h, .answer = 100ms});
    if (!facade.Activate(words.at(1), journal))
        return 1;
    const auto sendNext = [&] { // after silence the same one again, under the number it had
        const quint64 done = facade.ContinueAs(u"viewer"_s);
        if (done == words.at(3).toULongLong())
            return;
        MoveToObjectCommand command;
        command.SetObjectId(QString::number(done + 1));
        facade.Send(command);
    };
    QObject::connect(&facade, &KeloIPCFacadeI::CommandAnswered, &facade, sendNext,
                     Qt::QueuedConnection);
    sendNext();
    return QCoreApplication::exec();
}
