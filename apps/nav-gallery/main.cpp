// SPDX-License-Identifier: GPL-2.0-or-later
// Shows the navigation controls over a little map, in a window or as a picture in a file.
#include "MapWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCursor>
#include <QDir>
#include <QHoverEvent>
#include <QStyleFactory>
#include <QTimer>
#include <cstdio>
#include <kelo_base/core/Translation.h>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/navigation/NavCtrlMgrIfc.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class Text
{
    Q_DECLARE_TR_FUNCTIONS(NavGallery)
};

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 57), QColor(40, 40, 43));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::Highlight, QColor(61, 126, 204));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// With the hot areas of one edge seen, as under a pointer there, and the arrow with the keyboard.
bool savePicture(MapView &view, const QString &path)
{
    view.setFocus();
    if (QWidget *arrow =
            NavCtrlMgrIfc::Instance().Widget(&view, NavCtrlMgrIfc::Control::NorthArrow))
        arrow->setFocus(Qt::TabFocusReason);
    const QPointF pointer(view.width() / 2.0, 10);
    QCursor::setPos(view.mapToGlobal(pointer).toPoint());
    QCoreApplication::processEvents();
    QHoverEvent event(QEvent::HoverMove, pointer, view.mapToGlobal(pointer), QPointF());
    QApplication::sendEvent(&view, &event);
    QEventLoop wait; // until it has faded in
    QTimer::singleShot(400, &wait, &QEventLoop::quit);
    wait.exec();
    return view.grab().save(path);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(u"fusion"_s);
    InstallTranslation();
    QCommandLineParser parser;
    const QCommandLineOption theme(u"theme"_s, Text::tr("light or dark."), u"name"_s, u"light"_s);
    const QCommandLineOption turn(u"turn"_s, Text::tr("Degrees clockwise."), u"angle"_s, u"0"_s);
    const QCommandLineOption size(u"size"_s, Text::tr("Of the view."), u"pixels"_s, u"1000x700"_s);
    const QCommandLineOption mirror(u"right-to-left"_s, Text::tr("Lay out from right to left."));
    const QCommandLineOption picture(
        u"picture"_s, Text::tr("Save a picture instead of opening a window."), u"file"_s);
    parser.addOptions({theme, turn, size, mirror, picture});
    parser.addHelpOption();
    parser.process(app);

    bool isAngle = false;
    const double degrees = parser.value(turn).toDouble(&isAngle);
    const QStringList extents = parser.value(size).split(u'x');
    const QSize extent(extents.value(0).toInt(), extents.value(1).toInt());
    if (!isAngle || extent.width() < 80 || extent.height() < 80) {
        std::fputs(qPrintable(Text::tr("nav-gallery: an angle and a size such as 1000x700, at "
                                       "least 80x80, are wanted") +
                              u'\n'),
                   stderr);
        return 2;
    }
    const bool isDark = parser.value(theme) == u"dark"_s;
    if (isDark)
        QApplication::setPalette(darkPalette());
    if (parser.isSet(mirror))
        QApplication::setLayoutDirection(Qt::RightToLeft);

    int result = 0;
    {
        MapView view;
        view.setWindowTitle(Text::tr("Navigation controls"));
        if (isDark) {
            view.paper = QColor(30, 34, 38);
            view.ink = QColor(150, 170, 190);
        }
        view.turn = degrees;
        view.resize(extent);
        const MapWindow window(view);
        NavCtrlMgrIfc &controls = NavCtrlMgrIfc::Instance();
        view.show();
        if (parser.isSet(picture)) {
            const bool isSmall = extent.width() < 500;
            view.metresPerPixel = isSmall ? 2.2 : 1.1;
            view.moved();
            emit view.viewSettled();
            controls.StoreView(&view, {});
            controls.ShowStoredView(&view, 1);
            view.turn = degrees; // items hold whole ones
            view.moved();
            result = savePicture(view, parser.value(picture)) ? 0 : 1;
        } else {
            view.setFocus();
            result = QApplication::exec();
        }
    }
    NavCtrlMgrIfc::Destroy();
    UserDataManagerI::Destroy();
    return result;
}
