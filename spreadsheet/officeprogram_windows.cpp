// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: Excel, driven by automation.
#include "spreadsheet/officeprogram_p.h"

#include "spreadsheet/officeautomation_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

using officeautomation::Kind;
using officeautomation::Outcome;

const QString kProgramId = u"Excel.Application"_s;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

Kind kindOf(Format format)
{
    switch (format) {
    case Format::Ods:
        return Kind::OpenDocument;
    case Format::Pdf:
        return Kind::Pdf;
    case Format::Xlsx:
    case Format::Csv:
        break;
    }
    return Kind::Workbook;
}

/// The program adds the suffix of the format to names without one.
QString nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Workbook:
        break;
    case Kind::OpenDocument:
        return u"written.ods"_s;
    case Kind::Pdf:
        return u"written.pdf"_s;
    }
    return u"written.xlsx"_s;
}

std::wstring native(const QString &file)
{
    return QDir::toNativeSeparators(file).toStdWString();
}

QString sentenceFor(const officeautomation::Result &result, const QString &name, int seconds)
{
    const QString why = QString::fromStdWString(result.description).simplified();
    switch (result.outcome) {
    case Outcome::Written:
    case Outcome::Cancelled:
        break;
    case Outcome::NotInstalled:
        return Texts::tr("%1 is not installed").arg(name);
    case Outcome::NotStarted:
        return Texts::tr("'%1' cannot be started: %2").arg(name, why);
    case Outcome::TimedOut:
        return Texts::tr("%1 did not finish within %2 s").arg(name).arg(seconds);
    case Outcome::Failed:
        return Texts::tr("%1 could not do it (%2)").arg(name, why);
    case Outcome::NothingWritten:
        return Texts::tr("%1 wrote nothing").arg(name);
    }
    return {};
}

} // namespace

OfficeProgram findOfficeProgram()
{
    OfficeProgram program{u"Excel"_s, kProgramId, {}, {}};
    if (officeautomation::isInstalled(kProgramId.toStdWString()))
        program.version =
            QString::fromStdWString(officeautomation::versionOf(kProgramId.toStdWString()));
    else
        program.fault = Texts::tr("%1 is not installed.").arg(program.name);
    return program;
}

WorkbookDialect dialectFor(Format)
{
    return {};
}

QString convertTable(const OfficeProgram &program, const QString &source, const QString &target,
                     Format format, int seconds, const std::function<bool()> &goesOn)
{
    const QTemporaryDir results;
    if (!results.isValid())
        return Texts::tr("a folder for %1 cannot be made: %2")
            .arg(program.name, results.errorString());
    const Kind kind = kindOf(format);
    const QString written = results.filePath(nameOf(kind));
    const officeautomation::Result result = officeautomation::convert(
        {program.path.toStdWString(), native(source), native(written), kind, seconds, goesOn});
    if (result.outcome == Outcome::Written && !QFile::rename(written, target))
        return Texts::tr("what %1 wrote cannot be moved").arg(program.name);
    return sentenceFor(result, program.name, seconds);
}

} // namespace spreadsheet
