// SPDX-License-Identifier: GPL-2.0-or-later
// Shows the workbench for the sheets of DXF plans, and nothing else.
#include <Console.h>
#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QTimer>
#include <cstdio>
#include <kelo_base/core/Translation.h>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/dxf/DxfToolsDialog.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWrongUsage = 2;

/// What the program says beside the dialog.
class Texts
{
    Q_DECLARE_TR_FUNCTIONS(DxfWorkbench)

public:
    static QString Description()
    {
        return tr("Reads a DXF plan, chooses its sheets and exports them as GK2.");
    }
    static QString PlanArgument() { return tr("The DXF plan to open."); }
    static QString OnlyOnePlan() { return tr("Only one plan can be shown"); }
};

/// Help and version are for terminals, where there may be no screen.
bool asksForText(int argc, char **argv)
{
    const QByteArrayView asking[] = {"--help", "-h", "--help-all", "--version", "-v"};
    const QByteArrayView end("--"); // of the options
    for (int i = 1; i < argc && end != argv[i]; ++i)
        for (const QByteArrayView option : asking)
            if (option == argv[i])
                return true;
    return false;
}

/// What is wrong with the arguments; empty when nothing is.
QString faultOf(QCommandLineParser &parser)
{
    if (!parser.parse(QCoreApplication::arguments()))
        return parser.errorText();
    return parser.positionalArguments().size() > 1 ? Texts::OnlyOnePlan() : QString();
}

int runDialog(const QString &plan)
{
    int status = 0;
    {
        DxfToolsDialog dialog;
        dialog.show();
        if (!plan.isEmpty()) // once the window is there, so that it shows the progress
            QTimer::singleShot(0, &dialog, [&dialog, plan] { dialog.ReadFile(plan); });
        status = QApplication::exec();
    }
    UserDataManagerI::Destroy();
    return status;
}

} // namespace

int main(int argc, char **argv)
{
    PrepareConsole();
    if (asksForText(argc, argv))
        NeedNoScreen();
    QApplication app(argc, argv);
    QApplication::setOrganizationName(u"kelo"_s);
    QApplication::setApplicationName(u"dxf-workbench"_s);
    QApplication::setApplicationVersion(QStringLiteral(DXF_WORKBENCH_VERSION));
    QGuiApplication::setDesktopFileName(u"dxf-workbench"_s);
    QApplication::setWindowIcon(QIcon(u":/dxf-workbench/dxf-workbench.svg"_s));

    InstallTranslation();
    QCommandLineParser parser;
    parser.setApplicationDescription(Texts::Description());
    parser.addPositionalArgument(u"plan"_s, Texts::PlanArgument(), u"[plan]"_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QString fault = faultOf(parser);
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "dxf-workbench: %s\n", qUtf8Printable(fault));
        return kWrongUsage;
    }
    if (parser.isSet(u"help"_s) || parser.isSet(u"help-all"_s))
        return std::fputs(qUtf8Printable(parser.helpText()), stdout) < 0 ? 1 : 0;
    if (parser.isSet(u"version"_s))
        parser.showVersion();
    return runDialog(parser.positionalArguments().value(0));
}
