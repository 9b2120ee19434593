// SPDX-License-Identifier: GPL-2.0-or-later
// Linux and macOS: LibreOffice, as a process of its own that shows no window.
#include "spreadsheet/officeprogram_p.h"

#include "core/platform/childprocess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

constexpr qint64 kMostBytes = 64LL * 1024; ///< of the file that tells the version
constexpr int kOldest = 5;
constexpr int kTick = 20; ///< milliseconds between two questions whether to go on

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

/// In the path first, so that users can choose.
QString findProgram()
{
    const QString names[] = {u"soffice"_s, u"libreoffice"_s};
    for (const QString &name : names)
        if (const QString path = QStandardPaths::findExecutable(name); !path.isEmpty())
            return path;
    return QStandardPaths::findExecutable(
        u"soffice"_s,
        {u"/usr/lib/libreoffice/program"_s, u"/usr/lib64/libreoffice/program"_s,
         u"/opt/libreoffice/program"_s, u"/Applications/LibreOffice.app/Contents/MacOS"_s});
}

/// What the file beside the program says of it.
QString versionOf(const QString &program)
{
    const QDir folder(QFileInfo(QFileInfo(program).canonicalFilePath()).path());
    QFile file(folder.filePath(u"versionrc"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression line(uR"(^UpdateID=[A-Za-z]+_(\d+))"_s,
                                         QRegularExpression::MultilineOption);
    return line.match(QString::fromUtf8(file.read(kMostBytes))).captured(1);
}

QLatin1StringView filterOf(Format format)
{
    switch (format) {
    case Format::Xlsx:
        return "xlsx:Calc MS Excel 2007 XML"_L1;
    case Format::Ods:
        return "ods:calc8"_L1;
    case Format::Pdf:
        return "pdf:calc_pdf_Export"_L1;
    case Format::Csv:
        break;
    }
    return {};
}

} // namespace

OfficeProgram findOfficeProgram()
{
    OfficeProgram program{u"LibreOffice"_s, findProgram(), {}, {}};
    if (program.path.isEmpty()) {
        program.fault = Texts::tr("%1 is not installed.").arg(program.name);
        return program;
    }
    program.version = versionOf(program.path);
    if (!program.version.isEmpty() && program.version.toInt() < kOldest)
        program.fault = Texts::tr("%1 %2 is too old.").arg(program.name, program.version);
    return program;
}

/// Reading workbooks, it counts the days before March 1900 as they were, and makes formulas of
/// booleans.
WorkbookDialect dialectFor(Format format)
{
    return {format == Format::Xlsx ? DayCount::OfFiles : DayCount::True, false};
}

QString convertTable(const OfficeProgram &program, const QString &source, const QString &target,
                     Format format, int seconds, const std::function<bool()> &goesOn)
{
    // A profile of its own: it would hand the work to one that runs for the user, and return.
    const QTemporaryDir profile;
    const QTemporaryDir results;
    if (!profile.isValid() || !results.isValid())
        return Texts::tr("a folder for %1 cannot be made: %2")
            .arg(program.name, profile.errorString());

    const QString marker = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(platform::kTreeVariable), marker);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] { platform::becomeTreeHead(); });
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program.path,
                  {u"-env:UserInstallation="_s + QUrl::fromLocalFile(profile.path()).toString(),
                   u"--headless"_s, u"--norestore"_s, u"--nologo"_s, u"--nodefault"_s,
                   u"--nofirststartwizard"_s, u"--nolockcheck"_s, u"--convert-to"_s,
                   filterOf(format), u"--outdir"_s, results.path(), source});
    const platform::ProcessTree tree(static_cast<quint32>(process.processId()),
                                     marker.toStdString());
    const QDeadlineTimer end(seconds * 1000LL);
    bool isCancelled = false;
    QByteArray said;
    while (process.state() != QProcess::NotRunning && !isCancelled && !end.hasExpired()) {
        process.waitForFinished(kTick);
        said = (said + process.readAll()).right(1000);
        isCancelled = !goesOn();
    }
    const bool isLate = process.state() != QProcess::NotRunning;
    tree.kill(); // whatever it started, too
    process.waitForFinished();
    if (isCancelled)
        return {};
    if (process.error() == QProcess::FailedToStart)
        return Texts::tr("'%1' cannot be started: %2").arg(program.path, process.errorString());
    if (isLate)
        return Texts::tr("%1 did not finish within %2 s").arg(program.name).arg(seconds);
    // Its exit status says nothing: only the file counts.
    const QFileInfoList written = QDir(results.path()).entryInfoList(QDir::Files);
    if (written.isEmpty() || written.first().size() == 0)
        return Texts::tr("%1 wrote nothing (%2)")
            .arg(program.name, QString::fromLocal8Bit(said).simplified());
    if (!QFile::rename(written.first().filePath(), target))
        return Texts::tr("what %1 wrote cannot be moved").arg(program.name);
    return {};
}

} // namespace spreadsheet
