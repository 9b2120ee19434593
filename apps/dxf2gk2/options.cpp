// SPDX-License-Identifier: GPL-2.0-or-later
// What the user asks for on the command line.
#include "options.h"
#include <QCommandLineParser>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

void declare(QCommandLineParser &parser)
{
    parser.setApplicationDescription(u"Converts the map sheets of DXF plans to GK2 files."_s);
    parser.addPositionalArgument(u"PLAN.dxf"_s, u"Plans to convert; \"-\" reads standard input."_s,
                                 u"PLAN.dxf..."_s);
    parser.addOptions({
        {{u"o"_s, u"output"_s},
         u"Write to FILE (one plan); \"-\" is standard output. "
         "Default: the plan's name with the suffix .txt."_s,
         u"FILE"_s},
        {{u"d"_s, u"output-dir"_s}, u"Write into the folder DIR (several plans)."_s, u"DIR"_s},
        {u"include"_s, u"Only inserts with this attribute value."_s, u"TAG=VALUE"_s},
        {u"exclude"_s, u"No inserts with this attribute."_s, u"TAG"_s},
        {u"as-drawn"_s, u"Label corners in drawing order, not by where they lie."_s},
        {u"list"_s, u"Print the sheets as a table; write nothing."_s},
        {u"list-tags"_s, u"Print the attribute tags with counts and example values."_s},
        {u"preview"_s, u"Draw the sheets into FILE, an .svg or .png."_s, u"FILE"_s},
        {u"json"_s, u"Print list or summary as one JSON object, errors too."_s},
        {u"strict"_s, u"Exit with status 3 when there were warnings."_s},
        {{u"q"_s, u"quiet"_s}, u"Print failures only."_s},
        {u"progress"_s, u"Show a progress bar: auto, always or never."_s, u"WHEN"_s, u"auto"_s},
        {u"version"_s, u"Print the version."_s},
        {{u"h"_s, u"help"_s}, u"Print this help."_s},
    });
}

/// What is wrong with options that are right one by one; empty when nothing is.
QString conflict(const Options &o)
{
    const bool hasOutput = !o.output.isEmpty();
    const bool hasTarget = hasOutput || !o.outputDir.isEmpty();
    const bool readsStandardInput = o.plans.contains(kStandardStream);
    const bool printsSheets =
        o.writesSheets() && (o.output == kStandardStream || (readsStandardInput && !hasTarget));
    if (o.plans.isEmpty())
        return u"no plan given"_s;
    if (o.plans.contains(QString()))
        return u"a plan's name is empty"_s;
    if (o.plans.count(kStandardStream) > 1)
        return u"standard input can be read only once"_s;
    if (hasOutput && !o.outputDir.isEmpty())
        return u"--output and --output-dir exclude each other"_s;
    if (hasOutput && o.plans.size() > 1)
        return u"--output takes the sheets of one plan only; use --output-dir"_s;
    if (!o.preview.isEmpty() && o.plans.size() > 1)
        return u"--preview shows one plan only"_s;
    if (hasTarget && !o.writesSheets())
        return u"--list and --list-tags write no file; leave --output and --output-dir out"_s;
    if (readsStandardInput && !o.outputDir.isEmpty())
        return u"a plan from standard input has no name for --output-dir; use --output"_s;
    if (printsSheets && o.json)
        return u"--json and the sheets cannot both go to standard output"_s;
    return {};
}

} // namespace

ParsedOptions parseOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    declare(parser);
    ParsedOptions parsed;
    Options &options = parsed.options;
    const auto wrong = [&parsed](const QString &error) {
        parsed.error = error;
        return parsed;
    };
    const bool isUnderstood = parser.parse(arguments);
    options.json = parser.isSet(u"json"_s);
    if (!isUnderstood) {
        QString why = parser.errorText();
        if (why.endsWith(u'.'))
            why.chop(1);
        return wrong(why.left(1).toLower() + why.mid(1));
    }
    options.help = parser.isSet(u"help"_s);
    options.version = parser.isSet(u"version"_s);
    if (options.help || options.version)
        return parsed;

    for (const auto &name :
         {u"output"_s, u"output-dir"_s, u"include"_s, u"exclude"_s, u"preview"_s, u"progress"_s}) {
        if (parser.values(name).size() > 1 && parser.isSet(name))
            return wrong(u"--%1 is given more than once"_s.arg(name));
        if (parser.isSet(name) && parser.value(name).isEmpty())
            return wrong(u"--%1 wants a value"_s.arg(name));
    }
    options.plans = parser.positionalArguments();
    options.output = parser.value(u"output"_s);
    options.outputDir = parser.value(u"output-dir"_s);
    options.preview = parser.value(u"preview"_s);
    options.order = parser.isSet(u"as-drawn"_s) ? CornerOrder::AsDrawn : CornerOrder::Upright;
    options.list = parser.isSet(u"list"_s);
    options.listTags = parser.isSet(u"list-tags"_s);
    options.strict = parser.isSet(u"strict"_s);
    options.quiet = parser.isSet(u"quiet"_s);

    if (parser.isSet(u"include"_s)) {
        const QString text = parser.value(u"include"_s);
        const qsizetype equals = text.indexOf(u'=');
        if (equals <= 0)
            return wrong(u"--include wants TAG=VALUE, not '%1'"_s.arg(text));
        options.filter.include = {text.left(equals), text.mid(equals + 1)};
    }
    if (parser.isSet(u"exclude"_s))
        options.filter.excludeTag = parser.value(u"exclude"_s);

    const QString progress = parser.value(u"progress"_s);
    const qsizetype mode = QStringList{u"auto"_s, u"always"_s, u"never"_s}.indexOf(progress);
    if (mode < 0)
        return wrong(u"--progress is auto, always or never, not '%1'"_s.arg(progress));
    options.progress = static_cast<ProgressMode>(mode);

    const bool isPicture = options.preview.endsWith(".svg"_L1, Qt::CaseInsensitive) ||
                           options.preview.endsWith(".png"_L1, Qt::CaseInsensitive);
    if (!options.preview.isEmpty() && !isPicture)
        return wrong(u"--preview wants a file that ends in .svg or .png"_s);
    return wrong(conflict(options));
}

QString helpText()
{
    QCommandLineParser parser;
    declare(parser);
    return parser.helpText();
}

QString outputPath(const Options &options, const QString &plan)
{
    if (!options.output.isEmpty())
        return options.output;
    if (plan == kStandardStream)
        return kStandardStream;
    const QFileInfo info(plan);
    const QString base =
        info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
    const QString folder = options.outputDir.isEmpty() ? info.path() : options.outputDir;
    return folder == "."_L1 ? base + ".txt"_L1 : folder + u'/' + base + ".txt"_L1;
}
