// SPDX-License-Identifier: GPL-2.0-or-later
// Converts the map sheets of DXF plans to GK2 files.
#include "conversion.h"
#include "options.h"
#include "output.h"
#include "progressbar.h"
#include "report.h"
#include "system.h"
#include "text.h"
#include <Console.h>
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <kelo_base/core/Environment.h>
#include <kelo_base/core/Translation.h>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

enum ExitStatus { Done = 0, PlanFailed = 1, WrongUsage = 2, HadWarnings = 3, HasChanges = 4 };

void tell(const QString &line)
{
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
}

/// Ends a run that printed to standard output.
int finish(StandardOutput &out, int status)
{
    if (out.flush())
        return status;
    tell(faultLine({}, 0, Text::tr("cannot write to standard output: %1").arg(out.error())));
    return PlanFailed;
}

int wrongUsage(const ParsedOptions &parsed)
{
    tell(faultLine({}, 0, Text::tr("%1 (--help explains)").arg(parsed.error)));
    if (!parsed.options.json)
        return WrongUsage;
    StandardOutput out;
    out.write(jsonFailure(parsed.error));
    return finish(out, WrongUsage);
}

/// What is wrong with where the results would go; empty when nothing is.
QString targetConflict(const Options &options)
{
    QStringList targets;
    if (options.writesSheets())
        for (const QString &plan : options.plans)
            targets << outputPath(options, plan);
    if (!options.preview.isEmpty())
        targets << options.preview;
    if (!options.table.isEmpty())
        targets << options.table;
    std::vector<std::pair<std::filesystem::path, QString>>
        places; // to sort: there may be thousands
    for (const QString &target : targets)
        if (target != kStandardStream)
            places.emplace_back(placeOf(target), target);
    std::ranges::sort(places);
    const auto twice =
        std::ranges::adjacent_find(places, {}, &std::pair<std::filesystem::path, QString>::first);
    return twice == places.end() ? QString()
                                 : Text::tr("two results would go to '%1'").arg(twice->second);
}

void report(const Conversion &conversion, const Options &options, StandardOutput &out)
{
    if (conversion.failure)
        tell(faultLine(conversion.plan, conversion.failure->line, conversion.failure->message));
    if (options.json)
        return printJson(out, conversion, options);
    if (conversion.failure)
        return;
    if (options.list)
        printSheets(out, conversion);
    if (options.listTags)
        printTags(out, conversion);
    if (conversion.comparison)
        printChanges(out, conversion);
}

void comment(const Conversion &conversion, const Options &options)
{
    if (!conversion.session)
        return;
    for (const PlanFinding &diagnostic : conversion.session->Findings())
        tell(warningLine(conversion.plan, diagnostic));
    for (const QString &sentence : conversion.tableFindings)
        tell(warningLine(conversion.plan, {PlanFinding::Severity::Note, {}, 0, 0, {}, sentence}));
    if (conversion.comparison)
        tell(comparisonLine(conversion, options));
    if (!conversion.failure)
        tell(summaryLine(conversion));
}

int convertAll(const Options &options)
{
    StandardOutput out;
    bool hasFailed = false;
    bool hasWarned = false;
    bool hasChanges = false;
    if (options.json)
        out.write(R"({"plans":[)");
    for (const QString &plan : options.plans) {
        ProgressBar bar(options.quiet ? ProgressMode::Never : options.progress);
        const Conversion conversion = convert(options, plan, bar);
        bar.clear();
        hasFailed |= conversion.failure.has_value();
        hasWarned |= conversion.warnings() > 0;
        hasChanges |= conversion.hasChanges();
        if (options.json)
            out.write(&plan == &options.plans.first() ? "\n" : ",\n");
        report(conversion, options, out);
        if (!options.quiet)
            comment(conversion, options);
    }
    if (options.json)
        out.write("\n]}\n");
    if (hasFailed)
        return finish(out, PlanFailed);
    if (hasWarned && options.strict)
        return finish(out, HadWarnings);
    return finish(out, hasChanges && !options.writesSheets() ? HasChanges : Done);
}

} // namespace

int main(int argc, char *argv[])
{
    systemcalls::prepareStreams();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {
        // Standard error is ours: one line for each failure.
    });
    const QStringList arguments = systemcalls::arguments(argc, argv);
    ParsedOptions parsed = parseOptions(arguments);
    const Options &options = parsed.options;

    // Only a picture needs fonts, and the time it takes to get ready for them; nothing needs a
    // screen.
    int own = 1; // the toolkit takes no options
    NeedNoScreen();
    const std::unique_ptr<QCoreApplication> application(options.preview.isEmpty()
                                                            ? new QCoreApplication(own, argv)
                                                            : new QGuiApplication(own, argv));
    QCoreApplication::setOrganizationName(u"kelo"_s);
    QCoreApplication::setApplicationName(u"dxf2gk2"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(DXF2GK2_VERSION));
    const bool isTranslated = !options.json && InstallTranslation();
    if (!isTranslated)
        systemcalls::speakEnglish(); // no sentence in two languages
    else if (!parsed.error.isEmpty())
        parsed = parseOptions(arguments); // again: now the error is for its reader
    if (!parsed.error.isEmpty())
        return wrongUsage(parsed);
    if (options.help || options.version) {
        StandardOutput out;
        out.write(options.help   ? helpText().toUtf8()
                  : options.json ? DescribeEnvironment().ToJson()
                                 : "dxf2gk2 " DXF2GK2_VERSION "\n"_ba);
        return finish(out, Done);
    }
    const QString conflict = targetConflict(options);
    if (!conflict.isEmpty())
        return wrongUsage({options, conflict});
    return convertAll(options);
}
