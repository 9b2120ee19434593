// SPDX-License-Identifier: GPL-2.0-or-later
// What kind of failure the codes of the databases tell of.
#pragma once

class QSqlError;

enum class DatabaseFault { None, Locked, Conflict, Lost, Damaged, Full, ReadOnly, Other };

/// @param isServer  whose codes they are: the server's, or the embedded database's
/// @param isOpen    whether there still is a connection
[[nodiscard]] DatabaseFault databaseFaultOf(const QSqlError &error, bool isServer, bool isOpen);
