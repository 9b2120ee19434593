// SPDX-License-Identifier: GPL-2.0-or-later
// What stands in the status bar.
#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>

class PlanView;
class QLabel;
class QProgressBar;
class QStatusBar;

class StatusLine : public QObject
{
    Q_OBJECT

public:
    explicit StatusLine(QObject *parent);
    /// The bar owns what is put into it.
    void fill(QStatusBar &bar);

    void show(PlanView *view);
    void showView();
    void showPlace(QPointF map);
    /// @param part  0 ... 1, when it is done; below 0: not known
    void showReading(double part);
    void showChannel(const QString &state);
    [[nodiscard]] QString channel() const;

private:
    void showBackdrop();

    QLabel *m_place;
    QLabel *m_sheet;
    QLabel *m_scale;
    QLabel *m_channel;
    QProgressBar *m_progress;
    QPointer<PlanView> m_view;
};
