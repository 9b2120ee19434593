// SPDX-License-Identifier: GPL-2.0-or-later
// The tables of linked objects, and how they came to be what they are.
#pragma once

#include <QLatin1StringView>
#include <array>
#include <span>

namespace linkschema {

/// What leads from one version to the next. Never change a step that has shipped: add one.
using Step = std::span<const char *const>;

inline constexpr std::array kTables{
    "CREATE TABLE IPC_SETTINGS (NAME VARCHAR(64) PRIMARY KEY, VALUE TEXT NOT NULL)",
    "CREATE TABLE IPC_OBJECTS ("
    "OBJECT_ID VARCHAR(25) NOT NULL, "
    "DOCUMENT_ID VARCHAR(255) NOT NULL CHECK (LENGTH(DOCUMENT_ID) BETWEEN 1 AND 255), "
    "POSITION_X DOUBLE PRECISION NOT NULL, POSITION_Y DOUBLE PRECISION NOT NULL, "
    "VIEWING_HEIGHT DOUBLE PRECISION NOT NULL, NORTH_DEVIATION DOUBLE PRECISION NOT NULL, "
    "PRIMARY KEY (OBJECT_ID, DOCUMENT_ID))", // in this order: it is the index for objects
};
inline constexpr std::array kDocumentIndex{
    "CREATE INDEX IPC_OBJECTS_BY_DOCUMENT ON IPC_OBJECTS (DOCUMENT_ID)",
};
inline constexpr std::array<Step, 2> kSteps{kTables, kDocumentIndex};

inline constexpr QLatin1StringView kVersionName{"SchemaVersion"}; // in IPC_SETTINGS

} // namespace linkschema
