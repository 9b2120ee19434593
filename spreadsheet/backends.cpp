// SPDX-License-Identifier: GPL-2.0-or-later
// Which back ends there are here, and what they can write.
#include "spreadsheet/backends_p.h"

#include "spreadsheet/sink_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

constexpr qint64 kBlock = 1024LL * 1024; ///< bytes copied at once

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

struct Suffix
{
    QLatin1StringView text;
    Format format;
};
constexpr Suffix kSuffixes[] = {{"xlsx"_L1, Format::Xlsx},
                                {"ods"_L1, Format::Ods},
                                {"pdf"_L1, Format::Pdf},
                                {"csv"_L1, Format::Csv}};

QString suffixOf(Format format)
{
    const auto *const suffix = std::ranges::find(kSuffixes, format, &Suffix::format);
    return u'.' + suffix->text;
}

std::unique_ptr<Sink> makeSinkOf(BackEnd backEnd, const Target &target)
{
    switch (backEnd) {
    case BackEnd::Library:
        return makeXlsxSink(target);
    case BackEnd::Automation:
        return makeAutomationSink(target);
    case BackEnd::Plain:
        return makeCsvSink(target);
    }
    return nullptr;
}

} // namespace

std::optional<Format> FormatOf(const QString &file)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    const auto *const known = std::ranges::find_if(
        kSuffixes, [&suffix](const Suffix &candidate) { return suffix == candidate.text; });
    return known == std::end(kSuffixes) ? std::nullopt : std::optional(known->format);
}

QList<BackEndState> BackEnds()
{
    return {libraryState(),
            automationState(),
            {BackEnd::Plain, {Format::Csv}, Texts::tr("Plain text with separators.")}};
}

QString notWritten(const QString &file, const QString &why)
{
    return Texts::tr("'%1' cannot be written: %2.").arg(QDir::toNativeSeparators(file), why);
}

QString notWritten(const QString &file, const FileFault &fault)
{
    switch (fault.kind) {
    case FileFault::Kind::IsFolder:
        return notWritten(file, Texts::tr("it is a folder"));
    case FileFault::Kind::IsWriteProtected:
        return notWritten(file, Texts::tr("it is write-protected"));
    case FileFault::Kind::None:
    case FileFault::Kind::System:
        break;
    }
    return notWritten(file, fault.reason);
}

QString putInPlace(const QString &finished, const QString &target,
                   const std::function<bool()> &goesOn)
{
    QFile source(finished);
    ReplacedFile file(target);
    if (!source.open(QIODevice::ReadOnly))
        return notWritten(target, source.errorString());
    if (!file.Open())
        return notWritten(target, file.Fault());
    while (!source.atEnd()) {
        const QByteArray block = source.read(kBlock);
        if (source.error() != QFileDevice::NoError)
            return notWritten(target, source.errorString());
        if (file.Device().write(block) != block.size())
            return notWritten(target, file.Fault());
        if (!goesOn())
            return {};
    }
    return file.Commit() ? QString() : notWritten(target, file.Fault());
}

std::unique_ptr<Sink> makeSink(const Target &target, QString &error)
{
    QStringList reasons;
    for (const BackEndState &state : BackEnds()) {
        if (target.backEnd && *target.backEnd != state.backEnd)
            continue;
        if (state.formats.contains(target.format))
            return makeSinkOf(state.backEnd, target);
        if (state.formats.isEmpty())
            reasons << state.sentence;
    }
    error = Texts::tr("'%1' cannot be written: nothing here writes %2 files.")
                .arg(QDir::toNativeSeparators(target.file), suffixOf(target.format));
    if (!reasons.isEmpty())
        error += u' ' + reasons.join(u' ');
    return nullptr;
}

} // namespace spreadsheet
