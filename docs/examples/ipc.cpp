// SPDX-License-Identifier: GPL-2.0-or-later
// A program that the partner can tell where to go, and that tells the partner what to show:
// ipc DIRECTORY, and then "partner-sim DIRECTORY 'goto 3500000 5800000'".
#include <QCoreApplication>
#include <QTimer>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandHandler.h>
#include <kelo_base/ipc/KeloIPCFacade.h>

using namespace Qt::Literals::StringLiterals;

//! [handler]
class Handler : public KeloIPCCommandHandler
{
public:
    bool HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &) override
    {
        if (command.commandType != kGotoCoordinates)
            return false; // the partner learns that it is refused
        m_place = {command.x, command.y};
        return true;
    }
    [[nodiscard]] QPointF Place() const { return m_place; }

private:
    QPointF m_place;
};
//! [handler]

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QString directory = QCoreApplication::arguments().value(1);
    //! [channel]
    Handler handler;
    KeloIPCFacadeI &channel = KeloIPCFacadeI::Instance();
    if (!channel.Activate(directory, handler))
        return 1;
    MoveToObjectCommand show;
    show.SetObjectId(u"ABC"_s);
    channel.Send(show); // CommandAnswered() will tell what became of it
    //! [channel]

    // Ends when both ways have been gone; otherwise the test's time does.
    bool isAccepted = false;
    QObject::connect(&channel, &KeloIPCFacadeI::CommandAnswered, &app,
                     [&isAccepted](quint64, KeloDelivery delivery) {
                         isAccepted = delivery == KeloDelivery::Accepted;
                     });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (isAccepted && handler.Place() == QPointF(3500000, 5800000))
            QCoreApplication::quit();
    });
    timer.start(50);
    const int status = QCoreApplication::exec();
    KeloIPCFacadeI::Destroy();
    return status;
}
