// SPDX-License-Identifier: GPL-2.0-or-later
// Opens plans, completes the picture, and saves it.
#include "Screenshot.h"

#include "BackdropReader.h"
#include "CommandLine.h"
#include "MainWindow.h"
#include "Plan.h"
#include "PlanView.h"
#include "ViewNavigation.h"
#include <QBuffer>
#include <QCoreApplication>
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

int fail(const QString &sentence)
{
    std::fprintf(stderr, "viewer: %s\n", qUtf8Printable(sentence));
    return 1;
}

} // namespace

int takeScreenshot(MainWindow &window, const CommandLine &line)
{
    window.resize(line.size);
    window.show();
    for (const QString &plan : line.plans)
        if (!window.openPlan(plan))
            return fail(window.notice());
    QCoreApplication::processEvents();
    PlanView *view = window.currentView();
    if (view) {
        if (BackdropReader *reader = view->plan().backdropReader())
            reader->read(-1);
        if (line.view && !goTo(*view, *line.view))
            return fail(Texts::NoScale());
        if (!line.view)
            view->place(view->wholePlan());
        view->completePicture();
    }
    ReplacedFile file(line.screenshot);
    QBuffer picture;
    const bool isThere = picture.open(QIODevice::WriteOnly) &&
                         window.grab().save(&picture, "PNG") && file.Open() &&
                         file.Device().write(picture.data()) == picture.data().size() &&
                         file.Commit();
    return isThere ? 0 : fail(Texts::NotWritten(line.screenshot, file.Fault().reason));
}
