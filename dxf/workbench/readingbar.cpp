// SPDX-License-Identifier: GPL-2.0-or-later
// Shows how far long work has come, and lets the window live meanwhile.
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/readingbar_p.h"
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;

ReadingBar::ReadingBar(QWidget *parent)
    : QWidget(parent),
      m_step(new QLabel),
      m_left(new QLabel),
      m_bar(new QProgressBar),
      m_cancel(new QPushButton(DxfDialogTexts::Cancel()))
{
    m_step->setTextFormat(Qt::PlainText);
    m_step->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // names may be long
    m_cancel->setObjectName(u"btnCancel"_s);
    m_cancel->setAutoDefault(false);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(m_step, 0, 0);
    grid->addWidget(m_left, 0, 1, 1, 2);
    grid->addWidget(m_bar, 1, 0, 1, 2);
    grid->addWidget(m_cancel, 1, 2);
    grid->setColumnStretch(0, 1);
    connect(m_cancel, &QPushButton::clicked, this, &ReadingBar::cancel);
}

void ReadingBar::begin()
{
    m_isCancelled = false;
    m_isLong = false;
    m_nextEvents = m_pace.eventsEvery;
    m_time.start();
}

void ReadingBar::beginStep(const QString &title, Unit unit)
{
    m_title = title;
    m_step->setText(title);
    m_step->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                         Qt::AlignAbsolute | Qt::AlignVCenter); // of a Latin name too
    m_unit = unit;
    m_remaining = {};
    m_stepTime.start();
    m_bar->setAccessibleName(title);
}

bool ReadingBar::advance(qint64 done, qint64 total)
{
    if (m_isCancelled || m_time.elapsed() < m_nextEvents)
        return !m_isCancelled;
    const QPointer<ReadingBar> alive(this);
    if (!m_isLong && m_time.elapsed() >= m_pace.shownAfter) {
        m_isLong = true;
        emit becameLong();
    }
    if (m_isLong)
        showState(done, total);
    // Until the rest is disabled, what a user does waits in the queue.
    QCoreApplication::processEvents(m_isLong ? QEventLoop::AllEvents
                                             : QEventLoop::ExcludeUserInputEvents);
    if (!alive)
        return false;
    m_nextEvents = m_time.elapsed() + m_pace.eventsEvery;
    return !m_isCancelled;
}

void ReadingBar::showState(qint64 done, qint64 total)
{
    constexpr int kSteps = 1000;
    m_step->setText(fontMetrics().elidedText(m_title, Qt::ElideMiddle, m_step->width()));
    const bool isKnown = total > 0;
    m_left->setText(m_remaining.Text(m_stepTime.elapsed(), done, total));
    m_bar->setRange(0, isKnown ? kSteps : 0); // 0: busy, nobody knows for how long
    m_bar->setValue(isKnown ? static_cast<int>(kSteps * done / total) : 0);
    const QLocale locale;
    m_bar->setFormat(isKnown && m_unit == Unit::Bytes
                         ? DxfDialogTexts::BytesOf(locale.formattedDataSize(done),
                                                   locale.formattedDataSize(total))
                         : u"%p%"_s);
}
