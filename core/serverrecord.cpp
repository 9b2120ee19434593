// SPDX-License-Identifier: GPL-2.0-or-later
// Who the running server is, for the runs of the application that come after.
#include "core/serverrecord_p.h"

#include "core/platform/childprocess.h"
#include "core/platform/platform.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <kelo_base/core/ReplacedFile.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kMostBytes = 64LL * 1024; ///< far more than a record has

constexpr QLatin1StringView kPid{"pid"};
constexpr QLatin1StringView kStartTime{"startTime"}; // a text: JSON's numbers are too short for it
constexpr QLatin1StringView kProgram{"program"};
constexpr QLatin1StringView kMarker{"marker"};

} // namespace

std::optional<ServerRecord> recordOf(qint64 pid, const QString &marker)
{
    const auto process = static_cast<quint32>(pid);
    const quint64 start = platform::processStartTime(process);
    const QString program = QString::fromStdString(platform::processProgram(process));
    if (start <= platform::kUnknownStart || program.isEmpty())
        return std::nullopt;
    return ServerRecord{pid, start, program, marker};
}

bool isRunning(const ServerRecord &record)
{
    return recordOf(record.pid, record.marker) == record;
}

std::optional<ServerRecord> readServerRecord(const QString &file)
{
    QFile stored(file);
    if (!stored.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject values = QJsonDocument::fromJson(stored.read(kMostBytes)).object();
    bool isNumber = false;
    const ServerRecord record{values[kPid].toInteger(),
                              values[kStartTime].toString().toULongLong(&isNumber),
                              values[kProgram].toString(), values[kMarker].toString()};
    return record.pid > 0 && isNumber ? std::optional(record) : std::nullopt;
}

bool writeServerRecord(const QString &file, const ServerRecord &record)
{
    ReplacedFile target(file);
    if (!target.Open())
        return false;
    const QJsonObject values{{kPid, record.pid},
                             {kStartTime, QString::number(record.startTime)},
                             {kProgram, record.program},
                             {kMarker, record.marker}};
    const QByteArray text = QJsonDocument(values).toJson();
    return target.Device().write(text) == text.size() && target.Commit();
}
