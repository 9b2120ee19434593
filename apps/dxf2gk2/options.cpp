// SPDX-License-Identifier: GPL-2.0-or-later
// What the user asks for on the command line.
#include "options.h"
#include "system.h"
#include "text.h"
#include <QCommandLineParser>
#include <QFileInfo>
#include <QLocale>
#include <kelo_base/spreadsheet/TableWriter.h>

using namespace Qt::Literals::StringLiterals;

namespace {

void declare(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        Text::tr("Converts the map sheets of DXF plans to GK2 files."));
    parser.addPositionalArgument(
        u"PLAN.dxf"_s, Text::tr("Plans to convert; \"-\" reads standard input."), u"PLAN.dxf..."_s);
    parser.addOptions({
        {{u"o"_s, u"output"_s},
         Text::tr("Write to FILE (one plan); \"-\" is standard output. "
                  "Default: the plan's name with the suffix .txt."),
         u"FILE"_s},
        {{u"d"_s, u"output-dir"_s},
         Text::tr("Write into the folder DIR (several plans)."),
         u"DIR"_s},
        {u"include"_s, Text::tr("Only inserts with this attribute value."), u"TAG=VALUE"_s},
        {u"exclude"_s, Text::tr("No inserts with this attribute."), u"TAG"_s},
        {u"as-drawn"_s, Text::tr("Label corners in drawing order, not by where they lie.")},
        {u"placed"_s, Text::tr("Apply the position of each insert to its sheet: insertion point, "
                               "scale, rotation, mirroring, rows and columns.")},
        {u"number-tag"_s,
         Text::tr("Take sheet numbers from the attribute TAG, not from BL_NR or Bl_Nr."), u"TAG"_s},
        {u"encoding"_s,
         Text::tr("Read the plan's texts as NAME (ANSI_1252, UTF-8, ...), whatever it says."),
         u"NAME"_s},
        {u"list"_s, Text::tr("Print the sheets as a table; write nothing.")},
        {u"list-tags"_s, Text::tr("Print the attribute tags with counts and example values.")},
        {u"table"_s,
         Text::tr("Write the sheets with all attributes into FILE, an .xlsx, .ods or .csv."),
         u"FILE"_s},
        {u"preview"_s, Text::tr("Draw the sheets into FILE, an .svg or .png."), u"FILE"_s},
        {u"compare"_s,
         Text::tr("Print what changed since the GK2 file OLD: sheets that are new, gone, moved or "
                  "renamed. Writes sheets only with --output or --output-dir."),
         u"OLD"_s},
        {u"tolerance"_s,
         Text::tr("How far a corner may lie from where it was (--compare). Default: 0.005."),
         u"UNITS"_s},
        {u"force"_s, Text::tr("Replace files that are no GK2 files, too.")},
        {u"allow-empty"_s, Text::tr("Replace a file that holds sheets even by one without any.")},
        {u"json"_s, Text::tr("Print list or summary as one JSON object, errors too; in English.")},
        {u"strict"_s, Text::tr("Exit with status 3 when there were warnings.")},
        {{u"q"_s, u"quiet"_s}, Text::tr("Print failures only.")},
        {u"progress"_s, Text::tr("Show a progress bar: auto, always or never."), u"WHEN"_s,
         u"auto"_s},
        {u"version"_s, Text::tr("Print the version; with --json also what is known of this run.")},
        {{u"h"_s, u"help"_s}, Text::tr("Print this help.")},
    });
}

/// Options that want a value, which may be given once.
const QStringList kValued{u"output"_s,   u"output-dir"_s, u"include"_s, u"exclude"_s,
                          u"table"_s,    u"preview"_s,    u"compare"_s, u"tolerance"_s,
                          u"progress"_s, u"number-tag"_s, u"encoding"_s};

/// What the parser could not make anything of, as a sentence of ours.
QString whyNotUnderstood(const QCommandLineParser &parser, const QStringList &arguments)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty())
        return Text::tr("unknown option '%1'").arg(unknown.first());
    for (const QString &argument : arguments) {
        const QString name = argument.section(u'=', 0, 0);
        const bool hasValue = argument.startsWith("--"_L1) && argument.contains(u'=');
        if (hasValue && !kValued.contains(name.mid(2)))
            return Text::tr("%1 takes no value").arg(name);
    }
    return Text::tr("%1 wants a value").arg(arguments.last());
}

/// What is wrong with options that are right one by one; empty when nothing is.
QString conflict(const Options &o)
{
    const bool hasOutput = !o.output.isEmpty();
    const bool readsStandardInput = o.plans.contains(kStandardStream);
    const bool printsSheets =
        o.writesSheets() && (o.output == kStandardStream || (readsStandardInput && !o.hasTarget()));
    if (o.plans.isEmpty())
        return Text::tr("no plan given");
    if (o.plans.contains(QString()))
        return Text::tr("a plan's name is empty");
    if (o.plans.count(kStandardStream) > 1)
        return Text::tr("standard input can be read only once");
    if (hasOutput && !o.outputDir.isEmpty())
        return Text::tr("--output and --output-dir exclude each other");
    if (hasOutput && o.plans.size() > 1)
        return Text::tr("--output takes the sheets of one plan only; use --output-dir");
    if (!o.preview.isEmpty() && o.plans.size() > 1)
        return Text::tr("--preview shows one plan only");
    if (!o.table.isEmpty() && o.plans.size() > 1)
        return Text::tr("--table takes the sheets of one plan only");
    if (o.hasTarget() && !o.writesSheets())
        return Text::tr(
            "--list and --list-tags write no file; leave --output and --output-dir out");
    if (readsStandardInput && !o.outputDir.isEmpty())
        return Text::tr("a plan from standard input has no name for --output-dir; use --output");
    if (printsSheets && o.json)
        return Text::tr("--json and the sheets cannot both go to standard output");
    if (!o.compare.isEmpty() && o.plans.size() > 1)
        return Text::tr("--compare looks at one plan only");
    if (!o.compare.isEmpty() && (o.list || o.listTags) && !o.json)
        return Text::tr("--compare and a list make one output only with --json");
    if (!o.compare.isEmpty() && printsSheets)
        return Text::tr("the changes and the sheets cannot both go to standard output");
    return {};
}

/// Two columns, the left one of a width that the options have as well.
QString helpLine(const QString &left, const QString &right)
{
    return "  "_L1 + left.leftJustified(44) + "  "_L1 + right + u'\n';
}

QString statusText()
{
    return Text::tr("Exit status:") + u'\n' + //
           helpLine(u"0"_s, Text::tr("All done.")) +
           helpLine(u"1"_s, Text::tr("A plan could not be read, or a result not be written.")) +
           helpLine(u"2"_s, Text::tr("Wrong usage; nothing was done.")) +
           helpLine(u"3"_s, Text::tr("Done, with warnings, and --strict was given.")) +
           helpLine(u"4"_s, Text::tr("--compare found changes, and no sheets were to be written."));
}

QString exampleText()
{
    return Text::tr("Examples:") + u'\n' +
           helpLine(u"dxf2gk2 roads.dxf"_s, Text::tr("Writes roads.txt.")) +
           helpLine(u"dxf2gk2 -d out *.dxf"_s, Text::tr("Writes each into the folder out.")) +
           helpLine(u"dxf2gk2 --list-tags roads.dxf"_s, Text::tr("What could be filtered by?")) +
           helpLine(u"dxf2gk2 --include TYP=Lageplan roads.dxf"_s, Text::tr("Only these sheets.")) +
           helpLine(u"dxf2gk2 --list --preview a.svg roads.dxf"_s, Text::tr("Only looks.")) +
           helpLine(u"dxf2gk2 --compare roads.txt roads.dxf"_s, Text::tr("What would change?"));
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
    if (!isUnderstood)
        return wrong(whyNotUnderstood(parser, arguments));
    options.help = parser.isSet(u"help"_s);
    options.version = parser.isSet(u"version"_s);
    if (options.help || options.version)
        return parsed;

    for (const QString &name : kValued) {
        if (parser.values(name).size() > 1 && parser.isSet(name))
            return wrong(Text::tr("--%1 is given more than once").arg(name));
        if (parser.isSet(name) && parser.value(name).isEmpty())
            return wrong(Text::tr("%1 wants a value").arg("--"_L1 + name));
    }
    options.plans = systemcalls::expand(parser.positionalArguments());
    options.output = parser.value(u"output"_s);
    options.outputDir = parser.value(u"output-dir"_s);
    options.preview = parser.value(u"preview"_s);
    options.table = parser.value(u"table"_s);
    options.compare = parser.value(u"compare"_s);
    options.force = parser.isSet(u"force"_s);
    options.allowEmpty = parser.isSet(u"allow-empty"_s);
    options.order = parser.isSet(u"as-drawn"_s) ? CornerOrder::AsDrawn : CornerOrder::Upright;
    options.placed = parser.isSet(u"placed"_s);
    options.numberTag = parser.value(u"number-tag"_s);
    options.encoding = parser.value(u"encoding"_s);
    if (!DxfDrawing().SetEncoding(options.encoding))
        return wrong(Text::tr("--encoding does not know '%1'").arg(options.encoding));
    options.list = parser.isSet(u"list"_s);
    options.listTags = parser.isSet(u"list-tags"_s);
    options.strict = parser.isSet(u"strict"_s);
    options.quiet = parser.isSet(u"quiet"_s);

    if (parser.isSet(u"include"_s)) {
        const QString text = parser.value(u"include"_s);
        const qsizetype equals = text.indexOf(u'=');
        if (equals <= 0)
            return wrong(Text::tr("--include wants TAG=VALUE, not '%1'").arg(text));
        options.filter.include = {text.left(equals), text.mid(equals + 1)};
    }
    if (parser.isSet(u"exclude"_s))
        options.filter.excludeTag = parser.value(u"exclude"_s);

    if (parser.isSet(u"tolerance"_s)) {
        const QString text = parser.value(u"tolerance"_s);
        bool isNumber = false;
        options.tolerance = QLocale::c().toDouble(text, &isNumber);
        if (!isNumber || !(options.tolerance >= 0))
            return wrong(Text::tr("--tolerance wants a length such as 0.5, not '%1'").arg(text));
        if (options.compare.isEmpty())
            return wrong(Text::tr("--tolerance belongs to --compare"));
    }

    const QString progress = parser.value(u"progress"_s);
    const qsizetype mode = QStringList{u"auto"_s, u"always"_s, u"never"_s}.indexOf(progress);
    if (mode < 0)
        return wrong(Text::tr("--progress is auto, always or never, not '%1'").arg(progress));
    options.progress = static_cast<ProgressMode>(mode);

    const bool isPicture = options.preview.endsWith(".svg"_L1, Qt::CaseInsensitive) ||
                           options.preview.endsWith(".png"_L1, Qt::CaseInsensitive);
    if (!options.preview.isEmpty() && !isPicture)
        return wrong(Text::tr("--preview wants a file that ends in .svg or .png"));
    const auto format = spreadsheet::FormatOf(options.table);
    if (!options.table.isEmpty() && (!format || format == spreadsheet::Format::Pdf))
        return wrong(Text::tr("--table wants a file that ends in .xlsx, .ods or .csv"));
    return wrong(conflict(options));
}

QString helpText()
{
    QCommandLineParser parser;
    declare(parser);
    return parser.helpText() + u'\n' + statusText() + u'\n' + exampleText();
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
    if (folder == "."_L1)
        return base + ".txt"_L1;
    return folder + (folder.endsWith(u'/') ? ""_L1 : "/"_L1) + base + ".txt"_L1;
}
