// SPDX-License-Identifier: GPL-2.0-or-later
// Saves a picture of the workbench dialog in a state that is worth looking at.
#include "dxf/workbench/readingbar_p.h"
#include "tests/support/DarkPalette.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <kelo_base/core/Translation.h>
#include <kelo_base/dxf/DxfToolsDialog.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What of the dialog is on the screen, with the place for its frame: what lies beyond is cut off.
QPixmap onScreen(QWidget &dialog)
{
    constexpr int kTitleBar = 24;
    const QRect screen = dialog.screen()->availableGeometry();
    QPixmap picture(screen.size() * dialog.devicePixelRatio());
    picture.setDevicePixelRatio(dialog.devicePixelRatio());
    picture.fill(QColor(58, 84, 104));
    QPainter painter(&picture);
    const QPoint corner((screen.width() - dialog.width()) / 2, kTitleBar);
    painter.fillRect(QRect(corner - QPoint(0, kTitleBar), QSize(dialog.width(), kTitleBar)),
                     dialog.palette().color(QPalette::Midlight));
    painter.setPen(dialog.palette().color(QPalette::WindowText));
    painter.drawText(QRect(corner - QPoint(0, kTitleBar), QSize(dialog.width(), kTitleBar)),
                     Qt::AlignCenter, dialog.windowTitle());
    painter.drawPixmap(corner, dialog.grab());
    return picture;
}

/// Half way through a plan, as a user would see it.
QPixmap grabWhileReading(DxfToolsDialog &dialog, const QString &plan)
{
    QPixmap picture;
    dialog.findChild<ReadingBar *>()->setPace({.shownAfter = 0, .eventsEvery = 0});
    const auto *bar = dialog.findChild<QProgressBar *>();
    QTimer poll;
    bool hasWaited = false;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        if (bar->value() <= bar->maximum() / 2)
            return;
        if (!std::exchange(hasWaited, true))
            return QTest::qWait(700); // the time left is not told sooner
        picture = onScreen(dialog);
        dialog.CancelReading();
    });
    poll.start(0);
    dialog.ReadFile(plan);
    return picture;
}

/// @param isFiltered  with sheets that the filter leaves out, and others without their mark
QPixmap grabWithPlan(DxfToolsDialog &dialog, const QString &plan, bool isFiltered)
{
    dialog.ReadFile(plan);
    auto *list = dialog.findChild<QTableView *>();
    if (isFiltered) {
        dialog.findChild<QGroupBox *>(u"grpInclude"_s)->setChecked(true);
        dialog.findChild<QLineEdit *>(u"edtIncludeTag"_s)->setText(u"MASSSTAB"_s);
        dialog.findChild<QLineEdit *>(u"edtIncludeValue"_s)->setText(u"1:1000"_s);
        for (const int row : {4, 5, 9})
            list->model()->setData(list->model()->index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
    }
    list->selectRow(2);
    QTest::qWait(300);
    return onScreen(dialog);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption state(u"state"_s, u"empty, reading, filtered or any other name."_s,
                                   u"name"_s);
    const QCommandLineOption theme(u"theme"_s, u"light or dark."_s, u"name"_s, u"light"_s);
    const QCommandLineOption language(u"language"_s, u"en or de."_s, u"code"_s, u"en"_s);
    const QCommandLineOption picture(u"picture"_s, u"The file to save."_s, u"file"_s);
    parser.addOptions({state, theme, language, picture});
    parser.addPositionalArgument(u"plan"_s, u"The plan to show."_s);
    parser.process(app);

    QApplication::setStyle(u"fusion"_s);
    if (parser.value(theme) == "dark"_L1)
        QApplication::setPalette(darkPalette());
    QLocale::setDefault(QLocale(parser.value(language)));
    InstallTranslation(QLocale());
    const QTemporaryDir home;
    QSettings store(home.filePath(u"store.ini"_s), QSettings::IniFormat);
    DxfToolsDialog dialog(nullptr, &store);
    dialog.show();
    QTest::qWait(100);
    const QString plan = parser.positionalArguments().value(0);
    QPixmap shown;
    if (parser.value(state) == "empty"_L1)
        shown = onScreen(dialog);
    else if (parser.value(state) == "reading"_L1)
        shown = grabWhileReading(dialog, plan);
    else
        shown = grabWithPlan(dialog, plan, parser.value(state) == "filtered"_L1);
    return shown.save(parser.value(picture)) ? 0 : 1;
}
