// SPDX-License-Identifier: GPL-2.0-or-later
// Options, and what is wrong with them.
#include "CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    static QString Description()
    {
        return tr("Shows the sheets of DXF plans with what is drawn around them.");
    }
    static QString Plans() { return tr("DXF plans to open; a sample when there is none."); }
    static QString Exchange() { return tr("Exchange commands with the partner in this folder."); }
    static QString Screenshot() { return tr("Write a picture of the window as PNG, and leave."); }
    static QString Size() { return tr("Size of the picture in pixels, as in 1280x800."); }
    static QString View()
    {
        return tr("Show this place from this height, in metres; the angle, in degrees, is that "
                  "between east and the right of the screen.");
    }
    static QString Theme() { return tr("Colours of the picture: light or dark."); }
    static QString NoFile() { return tr("The picture needs the name of a file"); }
    static QString BadTheme(const QString &text)
    {
        return tr("\"%1\" is no theme: wanted is light or dark").arg(text);
    }
    static QString BadSize(const QString &text)
    {
        return tr("\"%1\" is no size: wanted is WIDTHxHEIGHT, each from 1 to 16384").arg(text);
    }
    static QString BadView(const QString &text)
    {
        return tr("\"%1\" is no view: wanted is X,Y,HEIGHT or X,Y,HEIGHT,ANGLE with a height above "
                  "0")
            .arg(text);
    }
};

std::optional<QSize> sizeFrom(const QString &text)
{
    constexpr int kMost = 16384;
    static const QRegularExpression form(u"\\A(\\d{1,5})x(\\d{1,5})\\z"_s);
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const bool isSize =
        match.hasMatch() && !size.isEmpty() && size.width() <= kMost && size.height() <= kMost;
    return isSize ? std::optional(size) : std::nullopt;
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption exchange(u"exchange"_s, Texts::Exchange(), u"folder"_s);
    const QCommandLineOption picture(u"screenshot"_s, Texts::Screenshot(), u"file"_s);
    const QCommandLineOption size(u"size"_s, Texts::Size(), u"WxH"_s);
    const QCommandLineOption view(u"view"_s, Texts::View(), u"X,Y,HEIGHT[,ANGLE]"_s);
    parser.setApplicationDescription(Texts::Description());
    const QCommandLineOption theme(u"theme"_s, Texts::Theme(), u"name"_s);
    parser.addOptions({exchange, picture, size, view, theme});
    parser.addPositionalArgument(u"plans"_s, Texts::Plans(), u"[plans...]"_s);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();

    CommandLine line;
    if (!parser.parse(arguments))
        line.fault = parser.errorText();
    else if (parser.isSet(help) || parser.isSet(u"help-all"_s))
        line.text = parser.helpText();
    else if (parser.isSet(version))
        line.text = QCoreApplication::applicationName() + u' ' +
                    QCoreApplication::applicationVersion() + u'\n';
    for (const QString &plan : parser.positionalArguments())
        line.plans << QFileInfo(plan).absoluteFilePath();
    line.exchangeFolder = parser.value(exchange);
    line.screenshot = parser.value(picture);
    line.theme = parser.value(theme);
    if (parser.isSet(picture) && line.screenshot.isEmpty())
        line.fault = Texts::NoFile();
    if (parser.isSet(theme) && line.theme != "light"_L1 && line.theme != "dark"_L1)
        line.fault = Texts::BadTheme(line.theme);
    if (parser.isSet(size)) {
        const auto wanted = sizeFrom(parser.value(size));
        line.size = wanted.value_or(line.size);
        if (!wanted)
            line.fault = Texts::BadSize(parser.value(size));
    }
    if (parser.isSet(view)) {
        line.view = WantedView::fromText(parser.value(view));
        if (!line.view)
            line.fault = Texts::BadView(parser.value(view));
    }
    return line;
}

bool needsNoScreen(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArrayView word(argv[i]);
        if (word == "--")
            return false;
        for (const QByteArrayView alone : {"--help", "-h", "--help-all", "--version", "-v"})
            if (word == alone)
                return true;
        if (word.startsWith("--screenshot"))
            return true;
    }
    return false;
}
