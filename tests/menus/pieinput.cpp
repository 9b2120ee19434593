// SPDX-License-Identifier: GPL-2.0-or-later
// A window full of nothing that opens a pie menu under real input, and prints what comes of it.
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QTextStream>
#include <kelo_base/menus/QtPieMenu.h>

using namespace Qt::Literals::StringLiterals;

namespace {

void tell(const QString &what)
{
    QTextStream(stdout) << what << Qt::endl;
}

/// Space, the left button and, with Control held, M open the menu. F12 begins anew.
class Window : public QWidget
{
public:
    Window()
    {
        auto *sub = new QtPieMenu(u"&Sub"_s, 40, 150);
        for (const QString &text : {u"&Sun"_s, u"Sub West"_s, u"Sub South"_s, u"Sub East"_s})
            add(*sub, text);
        add(m_menu, u"North"_s);
        add(m_menu, u"West"_s);
        m_menu.insertItem(sub);
        add(m_menu, u"East"_s);
        for (QtPieMenu *menu : {&m_menu, sub})
            connect(menu, &QtPieMenu::canceled, this, [] { tell(u"back"_s); });
        connect(&m_menu, &QtPieMenu::canceledAll, this, [] { tell(u"canceled"_s); });
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool isCtrlM = event->key() == Qt::Key_M && event->modifiers() == Qt::ControlModifier;
        if (event->key() == Qt::Key_F12)
            tell(u"ready"_s);
        if ((event->key() == Qt::Key_Space || isCtrlM) && !event->isAutoRepeat())
            m_menu.popup(QCursor::pos());
    }
    void mousePressEvent(QMouseEvent *event) override
    {
        m_menu.popup(event->globalPosition().toPoint());
    }
    void paintEvent(QPaintEvent *) override
    {
        if (!m_isShown)
            tell(u"ready"_s);
        m_isShown = true;
    }

private:
    static void add(QtPieMenu &menu, const QString &text)
    {
        connect(menu.insertItem(text), &QtPieItem::activated, &menu,
                [text] { tell(u"picked "_s + QString(text).remove(u'&')); });
    }
    QtPieMenu m_menu{40, 150};
    bool m_isShown = false;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    Window window;
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.setGeometry(QGuiApplication::primaryScreen()->geometry());
    window.show();
    return QApplication::exec();
}
