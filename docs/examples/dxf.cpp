// SPDX-License-Identifier: GPL-2.0-or-later
// The way of a plan: read, find the sheets, write them: dxf PLAN.dxf SHEETS.txt
#include <QCoreApplication>
#include <cstdio>
#include <kelo_base/core/ReplacedFile.h>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/SheetAnalysis.h>

using namespace Qt::Literals::StringLiterals;

namespace {

//! [convert]
int Convert(const QString &path, const QString &target)
{
    DxfReadResult plan = ReadDxfFile(path);
    if (plan.error) {
        const std::string message = plan.error->message.toStdString();
        std::fprintf(stderr, "line %lld: %s\n", plan.error->line, message.c_str());
        return 1;
    }
    const SheetFilter everything;
    const auto found = AnalyzeSheets(plan.drawing, everything, CornerOrder::Upright, path);
    for (const PlanFinding &finding : found->diagnostics)
        std::fprintf(stderr, "%s\n", finding.text.toStdString().c_str());

    ReplacedFile file(target); // an older file stays until the new one is whole
    const bool isWritten =
        file.Open() && WriteGk2(file.Device(), plan.drawing, found->sheets) && file.Commit();
    return isWritten ? 0 : 1;
}
//! [convert]

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    return arguments.size() == 3 ? Convert(arguments[1], arguments[2]) : 2;
}
