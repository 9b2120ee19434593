// SPDX-License-Identifier: GPL-2.0-or-later
// The way of one plan: read, analyse, write, draw.
#include "conversion.h"
#include "output.h"
#include "progressbar.h"
#include "system.h"
#include "text.h"
#include <QFileInfo>
#include <algorithm>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/SheetPlacing.h>
#include <kelo_base/dxf/SheetPreview.h>

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

std::optional<Failure> read(Conversion &conversion, const Options &options, ProgressBar &bar)
{
    const DxfReadOptions reading{.encoding = options.encoding, .numberTag = options.numberTag};
    const auto progress = showing(bar, Text::tr("reading"));
    DxfReadResult result;
    if (conversion.plan == kStandardStream) {
        QFile input;
        if (!input.open(fileno(stdin), QIODevice::ReadOnly | QIODevice::Unbuffered))
            return Failure{0, input.errorString()};
        result = ReadDxf(input, conversion.plan, progress, reading);
    } else {
        result = ReadDxfFile(conversion.plan, progress, reading);
    }
    if (!result)
        return Failure{result.error->line, result.error->message};
    conversion.drawing = std::move(result.drawing);
    if (options.placed)
        conversion.drawing = PlaceInserts(conversion.drawing).drawing;
    conversion.analysis.diagnostics = std::move(result.diagnostics);
    return std::nullopt;
}

void analyse(Conversion &conversion, const Options &options, ProgressBar &bar)
{
    auto found = AnalyzeSheets(conversion.drawing, options.filter, options.order, conversion.plan,
                               showing(bar, Text::tr("analysing")));
    std::vector<Diagnostic> &all = conversion.analysis.diagnostics;
    const auto isWarning = [](const Diagnostic &d) { return d.severity == Severity::Warning; };
    found->warnings += std::ranges::count_if(all, isWarning);
    found->diagnostics.insert(found->diagnostics.begin(), all.begin(), all.end());
    conversion.analysis = *std::move(found);
}

/// Writes a file by way of @p fill, which gets the device and says whether it could.
template <typename Fill>
std::optional<Failure> replaceFile(const Options &options, const QString &path, Fill fill)
{
    const auto isTarget = [&path](const QString &plan) { return isSameFile(plan, path); };
    if (std::ranges::any_of(options.plans, isTarget))
        return Failure{0, Text::tr("would overwrite a plan: '%1'").arg(path)};
    const InterruptWatch watch;
    OutputFile file(path);
    if (!file.open() || !fill(file.device()) || !file.commit())
        return Failure{0, file.error()};
    return std::nullopt;
}

std::optional<Failure> writeSheets(Conversion &conversion, const Options &options, ProgressBar &bar)
{
    const QString path = outputPath(options, conversion.plan);
    const auto failure = replaceFile(options, path, [&](QIODevice &device) {
        const Gk2Result result = WriteGk2(device, conversion.drawing, conversion.analysis.sheets,
                                          showing(bar, Text::tr("writing")));
        conversion.written = result.written;
        return bool(result);
    });
    if (!failure)
        conversion.output = path;
    return failure;
}

std::optional<Failure> drawPreview(const Conversion &conversion, const Options &options)
{
    const QString title = conversion.plan == kStandardStream
                              ? Text::tr("standard input")
                              : QFileInfo(conversion.plan).fileName();
    const SheetPicture picture =
        LayOutSheets(conversion.drawing, conversion.analysis.sheets, title);
    const auto format = options.preview.endsWith(".svg"_L1, Qt::CaseInsensitive)
                            ? PictureFormat::Svg
                            : PictureFormat::Png;
    return replaceFile(options, options.preview, [&](QIODevice &device) {
        return WriteSheetPicture(device, picture, format);
    });
}

} // namespace

Conversion convert(const Options &options, const QString &plan, ProgressBar &bar)
{
    Conversion conversion;
    conversion.plan = plan;
    conversion.failure = read(conversion, options, bar);
    if (conversion.failure)
        return conversion;
    analyse(conversion, options, bar);
    if (options.writesSheets())
        conversion.failure = writeSheets(conversion, options, bar);
    if (!conversion.failure && !options.preview.isEmpty())
        conversion.failure = drawPreview(conversion, options);
    return conversion;
}
