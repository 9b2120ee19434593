// SPDX-License-Identifier: GPL-2.0-or-later
// A plan to open pie menus on.
#pragma once

#include <QWidget>

class QtPieMenu;

/// Paints parcels of land and opens a menu around the pointer, by either mouse button or the space
/// bar.
class PlanView : public QWidget
{
    Q_OBJECT

public:
    explicit PlanView(QWidget *parent = nullptr);
    /// Not owned; null: none.
    void setMenu(QtPieMenu *menu) { m_menu = menu; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QtPieMenu *m_menu = nullptr;
};
