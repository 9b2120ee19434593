// SPDX-License-Identifier: GPL-2.0-or-later
// Place, sheet, scale, progress and the channel's state.
#include "StatusLine.h"

#include "BackdropReader.h"
#include "Plan.h"
#include "PlanView.h"
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QStatusBar>
#include <kelo_base/navigation/ViewGeometry.h>

StatusLine::StatusLine(QObject *parent)
    : QObject(parent),
      m_place(new QLabel),
      m_sheet(new QLabel),
      m_scale(new QLabel),
      m_channel(new QLabel),
      m_progress(new QProgressBar)
{
    m_progress->setMaximumWidth(160);
    m_progress->setRange(0, 1000);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(tr("Reading"));
    m_progress->hide();
}

void StatusLine::fill(QStatusBar &bar)
{
    bar.addWidget(m_place);
    bar.addWidget(m_sheet);
    bar.addPermanentWidget(m_progress);
    bar.addPermanentWidget(m_scale);
    bar.addPermanentWidget(m_channel);
}

void StatusLine::show(PlanView *view)
{
    if (m_view)
        m_view->plan().disconnect(this);
    m_view = view;
    if (view) {
        connect(&view->plan(), &Plan::backdropProgress, this, &StatusLine::showBackdrop);
        connect(&view->plan(), &Plan::backdropRead, this, &StatusLine::showBackdrop);
    }
    m_place->clear();
    showBackdrop();
    showView();
}

void StatusLine::showView()
{
    const auto sheet = m_view ? m_view->currentSheet() : std::nullopt;
    m_sheet->setText(sheet ? tr("Sheet %1").arg(m_view->plan().sheets().title(*sheet)) : QString());
    const double scale = m_view ? MapScale(m_view) : -1;
    const double height = m_view ? EstimatedHeightAboveGroundLevelS(m_view) : -1;
    const QLocale locale;
    m_scale->setText(scale > 0 ? tr("1 : %1, from %2 m")
                                     .arg(locale.toString(scale, 'f', 0),
                                          locale.toString(height, 'f', height < 100 ? 1 : 0))
                               : QString());
}

void StatusLine::showPlace(QPointF map)
{
    const QLocale locale;
    m_place->setText(
        tr("%1  %2").arg(locale.toString(map.x(), 'f', 2), locale.toString(map.y(), 'f', 2)));
}

void StatusLine::showReading(double part)
{
    m_progress->setToolTip(tr("Reading a plan; Escape cancels"));
    m_progress->setRange(0, part < 0 ? 0 : 1000);
    m_progress->setValue(static_cast<int>(part * 1000));
    m_progress->setVisible(part < 1);
}

void StatusLine::showBackdrop()
{
    const BackdropReader *reader = m_view ? m_view->plan().backdropReader() : nullptr;
    m_progress->setToolTip(tr("Reading what is drawn around the sheets; Escape cancels"));
    m_progress->setRange(0, 1000);
    m_progress->setValue(reader ? static_cast<int>(reader->progress() * 1000) : 1000);
    m_progress->setVisible(reader && !reader->isDone());
}

void StatusLine::showChannel(const QString &state)
{
    m_channel->setText(state);
}

QString StatusLine::channel() const
{
    return m_channel->text();
}
