// SPDX-License-Identifier: GPL-2.0-or-later
// A black screen during a talk.
#pragma once

#include <QWidget>

namespace navcontrols {

/// Covers the window it is made for until a key or a click, then deletes itself.
class BlankScreen : public QWidget
{
    Q_OBJECT

public:
    explicit BlankScreen(QWidget *window);
    bool eventFilter(QObject *window, QEvent *event) override;

signals:
    void ended();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void end();
};

} // namespace navcontrols
