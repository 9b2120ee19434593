// SPDX-License-Identifier: GPL-2.0-or-later
// What kind of failure the codes of the databases tell of.
#include "core/databasefault_p.h"

#include <QSqlError>

namespace {

/// Result codes of the embedded database; the low byte of the extended ones.
namespace sqlite {
constexpr int kBusy = 5;
constexpr int kLocked = 6;
constexpr int kReadOnly = 8;
constexpr int kCorrupt = 11;
constexpr int kFull = 13;
constexpr int kNotADatabase = 26;
constexpr int kMoved = 1032; // extended: the file is not where it was opened
} // namespace sqlite

/// What the server's error codes begin with.
namespace server {
constexpr QLatin1StringView kLockNotAvailable{"55P03"};
constexpr QLatin1StringView kConflict{"40"}; // with what others changed, or a deadlock
constexpr QLatin1StringView kConnection{"08"};
constexpr QLatin1StringView kShutdown{"57P"};
constexpr QLatin1StringView kDiskFull{"53100"};
constexpr QLatin1StringView kReadOnly{"25006"};
} // namespace server

} // namespace

DatabaseFault databaseFaultOf(const QSqlError &error, bool isServer, bool isOpen)
{
    const QString code = error.nativeErrorCode();
    if (!isServer) {
        const int number = code.toInt();
        switch (number & 0xFF) {
        case sqlite::kBusy:
        case sqlite::kLocked:
            return DatabaseFault::Locked;
        case sqlite::kReadOnly:
            return number == sqlite::kMoved ? DatabaseFault::Lost : DatabaseFault::ReadOnly;
        case sqlite::kCorrupt:
        case sqlite::kNotADatabase:
            return DatabaseFault::Damaged;
        case sqlite::kFull:
            return DatabaseFault::Full;
        default:
            return isOpen ? DatabaseFault::Other : DatabaseFault::Lost;
        }
    }
    if (!isOpen || code.startsWith(server::kConnection) || code.startsWith(server::kShutdown))
        return DatabaseFault::Lost;
    if (code == server::kLockNotAvailable)
        return DatabaseFault::Locked;
    if (code.startsWith(server::kConflict))
        return DatabaseFault::Conflict;
    if (code == server::kDiskFull)
        return DatabaseFault::Full;
    return code == server::kReadOnly ? DatabaseFault::ReadOnly : DatabaseFault::Other;
}
