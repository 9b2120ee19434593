// SPDX-License-Identifier: GPL-2.0-or-later
// The way of one plan: read, analyse, compare, write, draw.
#include "conversion.h"
#include "output.h"
#include "progressbar.h"
#include "report.h"
#include "system.h"
#include "text.h"
#include <QFile>
#include <algorithm>
#include <kelo_base/dxf/Gk2Writer.h>

using namespace Qt::Literals::StringLiterals;
using systemcalls::InterruptWatch;

namespace {

/// Shows one step on the bar. Interrupts are noted during writing only; before, they end the
/// program.
auto showing(ProgressBar &bar, const QString &step)
{
    return [&bar, step](qint64 done, qint64 total) {
        bar.show(step, done, total);
        return !InterruptWatch::isInterrupted();
    };
}

Failure failure(const QString &message)
{
    return {0, message};
}

Failure cannotWrite(const QString &path, const FileFault &fault)
{
    QString why = fault.reason;
    if (fault.kind == FileFault::Kind::IsFolder)
        why = Text::tr("it is a folder");
    else if (fault.kind == FileFault::Kind::IsWriteProtected)
        why = Text::tr("it is write-protected");
    return failure(Text::tr("cannot write '%1': %2").arg(path, why));
}

Failure overwritesPlan(const QString &path)
{
    return failure(Text::tr("would overwrite a plan: '%1'").arg(path));
}

std::optional<Failure> open(Conversion &conversion, const Options &options, ProgressBar &bar)
{
    const AnalysisOptions analysis{
        .filter = options.filter,
        .order = options.order,
        .appliesPlacement = options.placed,
        .reading = {.encoding = options.encoding, .numberTag = options.numberTag}};
    const PlanStages progress{.reading = showing(bar, Text::tr("reading")),
                              .analyzing = showing(bar, Text::tr("analysing"))};
    PlanOpening opening;
    if (conversion.plan == kStandardStream) {
        QFile input;
        if (!input.open(fileno(stdin), QIODevice::ReadOnly | QIODevice::Unbuffered))
            return failure(input.errorString());
        opening = PlanSession::Open(input, Text::tr("standard input"), analysis, progress);
    } else {
        opening = PlanSession::Open(conversion.plan, analysis, progress);
    }
    conversion.session = std::move(opening.session);
    if (opening)
        return std::nullopt;
    return opening.error ? Failure{opening.error->line, opening.error->message}
                         : failure(Text::tr("memory does not suffice to analyse it"));
}

std::optional<Failure> compare(Conversion &conversion, const Options &options)
{
    const QString &path = options.compare;
    Gk2Reading old = ReadGk2File(path);
    switch (old.fault) {
    case Gk2Reading::Fault::None:
        break;
    case Gk2Reading::Fault::NotOpened:
        return failure(Text::tr("cannot read '%1': %2").arg(path, old.reason));
    case Gk2Reading::Fault::NotGk2:
        return failure(Text::tr("'%1' is no GK2 file").arg(path));
    case Gk2Reading::Fault::BadLine:
        return failure(Text::tr("'%1' is damaged: line %2 should hold a corner")
                           .arg(path, QString::number(old.line)));
    }
    const PlanSession &session = *conversion.session;
    Comparison &comparison = conversion.comparison.emplace();
    comparison.older = std::move(old.records);
    comparison.newer = Gk2RecordsOf(session.Drawing(), session.Sheets(), &comparison.written);
    comparison.changes = CompareSheets(comparison.older, comparison.newer, options.tolerance);
    return std::nullopt;
}

bool isPlan(const Options &options, const QString &path)
{
    return std::ranges::any_of(options.plans,
                               [&](const QString &plan) { return isSameFile(plan, path); });
}

std::optional<Failure> printSheetFile(Conversion &conversion, ProgressBar &bar)
{
    QFile out;
    const bool isOpen = out.open(fileno(stdout), QIODevice::WriteOnly | QIODevice::Unbuffered,
                                 QFileDevice::DontCloseHandle);
    const PlanSession &session = *conversion.session;
    Gk2Result result;
    if (isOpen)
        result =
            WriteGk2(out, session.Drawing(), session.Sheets(), showing(bar, Text::tr("writing")));
    conversion.written = result.written;
    if (!isOpen || !result)
        return failure(Text::tr("cannot write to standard output: %1").arg(out.errorString()));
    return std::nullopt;
}

std::optional<Failure> exportSheets(Conversion &conversion, const Options &options,
                                    const QString &path, ProgressBar &bar)
{
    const Gk2ExportOptions allowed{.replacesForeign = options.force || !options.output.isEmpty(),
                                   .replacesByNone = options.allowEmpty};
    const Gk2Export result =
        conversion.session->Export(path, allowed, showing(bar, Text::tr("writing")));
    conversion.written = result ? result.written : 0;
    switch (result.outcome) {
    case Gk2Export::Outcome::Written:
    case Gk2Export::Outcome::Cancelled: // the interrupt ends the program
        break;
    case Gk2Export::Outcome::IsThePlan:
        return overwritesPlan(path);
    case Gk2Export::Outcome::IsForeign:
        return failure(Text::tr("'%1' is no GK2 file; it is replaced only with --force").arg(path));
    case Gk2Export::Outcome::WouldBeEmpty:
        return failure(Text::tr("no sheet is left; '%1' would lose its sheets, and does only with "
                                "--allow-empty")
                           .arg(path));
    case Gk2Export::Outcome::NotStored:
        return cannotWrite(path, result.fault);
    }
    return std::nullopt;
}

std::optional<Failure> writeSheets(Conversion &conversion, const Options &options, ProgressBar &bar)
{
    const QString path = outputPath(options, conversion.plan);
    if (isPlan(options, path))
        return overwritesPlan(path);
    const InterruptWatch watch;
    const auto failed = path == kStandardStream ? printSheetFile(conversion, bar)
                                                : exportSheets(conversion, options, path, bar);
    if (!failed)
        conversion.output = path;
    return failed;
}

std::optional<Failure> drawPreview(const Conversion &conversion, const Options &options)
{
    if (isPlan(options, options.preview))
        return overwritesPlan(options.preview);
    const InterruptWatch watch;
    std::vector<ChangedSheet> changed;
    qint64 gone = 0;
    if (const auto &comparison = conversion.comparison) {
        changed = ChangedSheetsOf(comparison->changes, comparison->written);
        gone = std::ranges::count(comparison->changes, SheetChange::Kind::Gone, &SheetChange::kind);
    }
    const FileFault fault = conversion.session->ExportPicture(options.preview, changed, gone);
    if (fault.kind == FileFault::Kind::None)
        return std::nullopt;
    Failure failed = cannotWrite(options.preview, fault);
    if (!conversion.output.isEmpty()) // what was asked for as well is done
        failed.message += "; "_L1 + sheetsText(conversion);
    return failed;
}

} // namespace

Conversion convert(const Options &options, const QString &plan, ProgressBar &bar)
{
    Conversion conversion;
    conversion.plan = plan;
    conversion.failure = open(conversion, options, bar);
    if (!conversion.failure && !options.compare.isEmpty())
        conversion.failure = compare(conversion, options); // before its file is written over
    if (!conversion.failure && options.writesSheets())
        conversion.failure = writeSheets(conversion, options, bar);
    if (!conversion.failure && !options.preview.isEmpty())
        conversion.failure = drawPreview(conversion, options);
    return conversion;
}
