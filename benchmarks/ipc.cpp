// SPDX-License-Identifier: GPL-2.0-or-later
// Commands parsed and saved beside plain settings, and the cost of a look at the exchange files.
#include "benchmarks/ratio.h"
#include "ipc/inbox_p.h"
#include "ipc/outbox_p.h"
#include <QPointF>
#include <QSettings>
#include <QTemporaryDir>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCCommandParser.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kRecords = 1'000'000;

/// A record is parsed from the name and the lines of a command, and saved as a command.
void commandOurs(benchmark::State &state)
{
    const QTemporaryDir dir;
    QSettings settings(dir.filePath(u"ours.ini"_s), QSettings::IniFormat);
    const KeloIPCCommandParser parser;
    const QStringList lines{u"ObjectId:ABC"_s, u"X:3500000.25"_s, u"Y:5800000.75"_s,
                            u"NorthDeviationInDegrees:12.5"_s, u"ViewingHeight:250"_s};
    for (auto _ : state) {
        double sum = 0;
        for (int i = 0; i < kRecords; ++i) {
            KeloCommandData data;
            parser.ProcessCommandString(u"GotoCoordinates"_s, lines, data);
            MoveToObjectCommand command;
            command.SetObjectId(data.objectId);
            command.SetClickPosition({data.x, data.y});
            command.SetNorthDeviation(data.northDeviationInDegrees);
            command.SetViewingHeight(data.viewingHeight);
            command.SaveToSettings(settings);
            sum += data.viewingHeight;
        }
        if (sum != 250.0 * kRecords || settings.allKeys().size() != 3)
            state.SkipWithError("not all records were parsed and saved");
    }
}

/// The same values come from settings and go into settings, each under its own key.
void commandPeer(benchmark::State &state)
{
    const QTemporaryDir dir;
    QSettings from(dir.filePath(u"from.ini"_s), QSettings::IniFormat);
    from.setValue(u"CommandId"_s, u"GotoCoordinates"_s);
    from.setValue(u"ObjectId"_s, u"ABC"_s);
    from.setValue(u"X"_s, u"3500000.25"_s);
    from.setValue(u"Y"_s, u"5800000.75"_s);
    from.setValue(u"NorthDeviationInDegrees"_s, u"12.5"_s);
    from.setValue(u"ViewingHeight"_s, u"250"_s);
    QSettings to(dir.filePath(u"to.ini"_s), QSettings::IniFormat);
    for (auto _ : state) {
        double sum = 0;
        for (int i = 0; i < kRecords; ++i) {
            const double height = from.value(u"ViewingHeight"_s).toDouble();
            const QPointF position(from.value(u"X"_s).toDouble(), from.value(u"Y"_s).toDouble());
            to.setValue(u"CommandType"_s, u"NamedCommand"_s);
            to.setValue(u"CommandId"_s, from.value(u"CommandId"_s).toString());
            to.setValue(u"BringToFront"_s, false);
            to.setValue(u"ObjectId"_s, from.value(u"ObjectId"_s).toString());
            to.setValue(u"ClickPosition"_s, position);
            to.setValue(u"NorthDeviationInDegrees"_s,
                        from.value(u"NorthDeviationInDegrees"_s).toDouble());
            to.setValue(u"ViewingHeight"_s, height);
            sum += height;
        }
        if (sum != 250.0 * kRecords || to.allKeys().size() != 7)
            state.SkipWithError("not all records were read and saved");
    }
}

class NoHandler : public KeloIPCCommandHandler
{
public:
    bool HandleCommand(const KeloCommandData &, const KeloCommandOrigin &) override
    {
        return false;
    }
};

/// Nothing comes in. With 1, a command lies ready that nobody takes.
void idlePoll(benchmark::State &state)
{
    const QTemporaryDir dir;
    const qint64 hour = 3'600'000;
    channel::Inbox inbox(dir.path(), hour, hour);
    channel::Outbox outbox(dir.path(), u"v"_s, hour, hour);
    if (state.range(0) == 1)
        outbox.put({u"NamedCommand"_s, u"Test"_s, {}, u"v"_s, 1}, channel::steadyNow());
    const NoHandler handler;
    for (auto _ : state) {
        const qint64 now = channel::steadyNow();
        if (!outbox.poll(now).empty() || inbox.poll(now, handler))
            state.SkipWithError("something came");
    }
}

} // namespace
BENCHMARK(commandOurs)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(commandPeer)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(idlePoll)->Arg(0)->Arg(1);

KELO_RATIO_MAIN()
