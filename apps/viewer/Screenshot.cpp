// SPDX-License-Identifier: GPL-2.0-or-later
// Opens plans, completes the picture, and saves it.
#include "Screenshot.h"

#include "BackdropReader.h"
#include "CommandLine.h"
#include "MainWindow.h"
#include "Plan.h"
#include "PlanView.h"
#include "ViewNavigation.h"
#include <QApplication>
#include <QBuffer>
#include <QPalette>
#include <QPixmap>
#include <cstdio>
#include <kelo_base/core/ReplacedFile.h>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(Screenshot)

public:
    static QString NotWritten(const QString &file, const QString &why)
    {
        return why.isEmpty() ? tr("%1 cannot be written").arg(file)
                             : tr("%1 cannot be written: %2").arg(file, why);
    }
    static QString NoScale() { return tr("The scale of the view is not known"); }
};

/// The same on every desktop.
void setTheme(const QString &theme)
{
    if (theme.isEmpty())
        return;
    QApplication::setStyle(QStringLiteral("fusion"));
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    if (theme == QLatin1StringView("dark")) {
        palette = QPalette(QColor(66, 66, 70), QColor(53, 53, 57));
        palette.setColor(QPalette::Base, QColor(34, 34, 36));
        palette.setColor(QPalette::AlternateBase, QColor(42, 42, 45));
        palette.setColor(QPalette::Highlight, QColor(61, 126, 204));
        palette.setColor(QPalette::HighlightedText, Qt::white);
    }
    QApplication::setPalette(palette);
}

int fail(const QString &sentence)
{
    std::fprintf(stderr, "kelo-viewer: %s\n", qUtf8Printable(sentence));
    return 1;
}

} // namespace

int takeScreenshot(MainWindow &window, const CommandLine &line)
{
    setTheme(line.theme);
    window.resize(line.size);
    window.show();
    for (const QString &plan : line.plans)
        if (!window.openPlan(plan))
            return fail(window.notice());
    QCoreApplication::processEvents();
    PlanView *view = window.currentView();
    if (view) {
        view->plan().readBackdrop();
        if (BackdropReader *reader = view->plan().backdropReader())
            reader->read(-1);
        if (line.view && !goTo(*view, *line.view))
            return fail(Texts::NoScale());
        if (!line.view)
            view->place(view->wholePlan());
        view->completePicture();
    }
    QCoreApplication::processEvents(); // lays out what has changed its texts
    ReplacedFile file(line.screenshot);
    QBuffer picture;
    const bool isThere =
        picture.open(QIODevice::WriteOnly) && window.grab().save(&picture, "PNG") && file.Open() &&
        file.Device().write(picture.data()) == picture.data().size() && file.Commit();
    return isThere ? 0 : fail(Texts::NotWritten(line.screenshot, file.Fault().reason));
}
