// SPDX-License-Identifier: GPL-2.0-or-later
// Plays the partner program of the viewer over the exchange files.
#include "options.h"
#include "receiver.h"
#include "script.h"
#include "sender.h"

#include <Console.h>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTimer>
#include <QUuid>
#include <cstdio>
#include <kelo_base/core/Translation.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class Text
{
    Q_DECLARE_TR_FUNCTIONS(PartnerSim)
};

const char kHelp[] = QT_TRANSLATE_NOOP(
    "PartnerSim",
    "Plays the partner program: sends commands to the viewer and prints what it receives.\n"
    "\n"
    "Commands: \"goto X Y [NORTH [HEIGHT]]\", \"find OBJECT\", test, \"integer N\",\n"
    "\"raw NAME PARAMETERS\"; with the word front behind it, the viewer shall come to the front.\n"
    "Without commands it listens. Example:\n"
    "  partner-sim /tmp/exchange \"goto 3500000 5800000 0 250\" \"find ABC front\"\n"
    "\n"
    "Exits with 0 when all was accepted, 1 after refusal or silence, 2 when it cannot start.");

int refuse(const QString &reason)
{
    const QString text = Text::tr("%1 (--help explains)").arg(reason);
    std::fprintf(stderr, "partner-sim: %s\n", qUtf8Printable(text));
    return 2;
}

std::optional<Manner> mannerOf(const QString &name)
{
    static const QMap<QString, Manner> manners{{QString(), Manner::Careful},
                                               {u"plain"_s, Manner::Plain},
                                               {u"bytes"_s, Manner::Bytes},
                                               {u"half"_s, Manner::Half}};
    const auto manner = manners.find(name);
    return manner == manners.end() ? std::nullopt : std::optional(*manner);
}

/// Whole milliseconds from 1 on; nothing when the option says something else.
std::optional<int> millisecondsOf(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number > 0 ? std::optional(number) : std::nullopt;
}

bool isSenderId(const QString &text)
{
    static const QRegularExpression form(u"\\A[A-Za-z0-9._-]{1,64}\\z"_s);
    return form.match(text).hasMatch();
}

/// Whether lines can be appended to the file, or none is wanted.
bool canAppendTo(const QString &filename)
{
    return filename.isEmpty() || QFile(filename).open(QIODevice::Append);
}

} // namespace

int main(int argc, char **argv)
{
    PrepareConsole();
    const QCoreApplication app(argc, argv);
    InstallTranslation();
    QCommandLineParser parser;
    parser.setApplicationDescription(Text::tr(kHelp));
    parser.addHelpOption();
    parser.addPositionalArgument(u"directory"_s, Text::tr("Where the exchange files are."));
    parser.addPositionalArgument(u"commands"_s, Text::tr("What to send, in order."),
                                 u"[commands...]"_s);
    parser.addOptions({
        {u"script"_s, Text::tr("Send the commands in a file, one a line, before the others."),
         u"file"_s},
        {u"listen"_s, Text::tr("Go on receiving when all is sent.")},
        {u"json"_s, Text::tr("Print JSON objects, one a line.")},
        {u"sender"_s, Text::tr("Go on as this sender: command k has number k."), u"id"_s},
        {u"repeat"_s, Text::tr("Send a command again when there is silence.")},
        {u"silence"_s, Text::tr("Milliseconds until no answer is silence."), u"ms"_s, u"10000"_s},
        {u"poll"_s, Text::tr("Milliseconds between two looks at the files."), u"ms"_s, u"1000"_s},
        {u"journal"_s, Text::tr("Append what is received to a file, each exactly once."),
         u"file"_s},
        {u"refuse"_s, Text::tr("Refuse what is received.")},
        {u"clumsy"_s, Text::tr("Write like a careless partner: plain, bytes or half."),
         u"manner"_s},
    });
    const bool isUnderstood = parser.parse(QCoreApplication::arguments());
    if (parser.isSet(u"help"_s) || parser.isSet(u"help-all"_s))
        return std::fputs(qUtf8Printable(parser.helpText()), stdout) < 0 ? 1 : 0;
    if (!isUnderstood) // process() would end with the status of a refusal
        return refuse(parser.errorText().chopped(1)); // without its full stop

    QStringList lines = parser.positionalArguments();
    if (lines.isEmpty() || !QDir(lines[0]).exists())
        return refuse(Text::tr("there is no exchange directory"));
    const auto manner = mannerOf(parser.value(u"clumsy"_s));
    if (!manner)
        return refuse(Text::tr("unknown manner"));
    const QString sender = parser.isSet(u"sender"_s)
                               ? parser.value(u"sender"_s)
                               : QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!isSenderId(sender))
        return refuse(Text::tr("a sender has 1 to 64 of A-Z a-z 0-9 . _ -"));
    const auto silence = millisecondsOf(parser.value(u"silence"_s));
    const auto poll = millisecondsOf(parser.value(u"poll"_s));
    if (!silence || !poll)
        return refuse(Text::tr("milliseconds are whole numbers from 1 on"));
    if (!canAppendTo(parser.value(u"journal"_s)))
        return refuse(Text::tr("cannot write '%1'").arg(parser.value(u"journal"_s)));
    const Options options{.directory = lines.takeFirst(),
                          .sender = sender,
                          .journal = parser.value(u"journal"_s),
                          .manner = *manner,
                          .silence = *silence,
                          .repeats = parser.isSet(u"repeat"_s),
                          .refuses = parser.isSet(u"refuse"_s),
                          .isJson = parser.isSet(u"json"_s)};
    if (parser.isSet(u"script"_s)) {
        QFile script(parser.value(u"script"_s));
        if (!script.open(QIODevice::ReadOnly))
            return refuse(Text::tr("cannot read '%1'").arg(script.fileName()));
        lines = QString::fromUtf8(script.readAll()).split(u'\n') + lines;
    }
    QString fault;
    const auto commands = parseScript(lines, fault);
    if (!commands)
        return refuse(Text::tr("no command: %1").arg(fault));

    Sender outgoing(options, *commands);
    Receiver incoming(options);
    const bool listens = parser.isSet(u"listen"_s) || commands->isEmpty();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        outgoing.poll();
        incoming.poll();
        if (outgoing.isDone() && !listens)
            QCoreApplication::exit(outgoing.hasFailed() ? 1 : 0);
    });
    timer.start(*poll);
    return QCoreApplication::exec();
}
