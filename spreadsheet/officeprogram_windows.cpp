// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: no program is driven there yet, and whoever asks is told so.
#include "spreadsheet/officeprogram_p.h"

#include <QCoreApplication>

namespace spreadsheet {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

} // namespace

OfficeProgram findOfficeProgram()
{
    return {{}, {}, Texts::tr("Spreadsheet programs cannot be driven on this system.")};
}

QString convertTable(const OfficeProgram &program, const QString &, const QString &, Format, int,
                     const std::function<bool()> &)
{
    return program.fault;
}

} // namespace spreadsheet
