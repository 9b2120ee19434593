// SPDX-License-Identifier: GPL-2.0-or-later
// Reads GK2 files back, to compare a plan with what was exported before.
#pragma once

#include <QByteArray>
#include <QString>
#include <kelo_base/core/Export.h>
#include <kelo_base/dxf/DxfDrawing.h>
#include <span>
#include <vector>

/// A sheet of a GK2 file.
struct Gk2Record
{
    QByteArray number;              ///< the bytes of the file
    std::vector<DxfVertex> corners; ///< as written: to two decimals, clockwise from top left
};

/// The records of a file, or why there are none.
struct [[nodiscard]] Gk2Reading
{
    enum class Fault {
        None,
        NotOpened, ///< the system's reason says why
        NotGk2,    ///< it does not begin with "GK2"
        BadLine    ///< where corners stand, this line holds no two numbers
    };
    std::vector<Gk2Record> records;
    Fault fault = Fault::None;
    qint64 line = 0; ///< of Fault::BadLine, counted from 1
    QString reason;
    explicit operator bool() const { return fault == Fault::None; }
};

/// Lines may end with CR LF or LF.
KELO_BASE_EXPORT Gk2Reading ReadGk2(QByteArrayView text);
/// @param path  may be as FileNameFromBytes() gives it
KELO_BASE_EXPORT Gk2Reading ReadGk2File(const QString &path);

/// What WriteGk2() makes of the sheets, as if it had been read back.
/// @param written  if not null, gets the sheet of each record
[[nodiscard]] KELO_BASE_EXPORT std::vector<Gk2Record>
Gk2RecordsOf(const DxfDrawing &drawing, std::span<const quint32> sheets,
             std::vector<quint32> *written = nullptr);
