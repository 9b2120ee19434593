// SPDX-License-Identifier: GPL-2.0-or-later
// The step "Read File" of the workbench dialog.
#include "dxf/workbench/readpanel_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/readingbar_p.h"
#include <QBoxLayout>
#include <QKeySequence>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;

ReadPanel::ReadPanel(QWidget *parent)
    : QGroupBox(DxfToolTexts::ReadFileTitle(), parent),
      m_open(workbench::pushButton(DxfDialogTexts::Open(), u"btnOpen"_s)),
      m_recent(workbench::pushButton(DxfDialogTexts::Recent(), u"btnRecent"_s)),
      m_recentMenu(new QMenu(m_recent)),
      m_status(new QStackedWidget),
      m_message(new MessageLine),
      m_progress(new ReadingBar)
{
    m_open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    m_open->setToolTip(DxfDialogTexts::OpenHelp(
        QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText)));
    connect(m_open, &QPushButton::clicked, this, &ReadPanel::openWanted);
    m_recentMenu->setToolTipsVisible(true);
    m_recent->setMenu(m_recentMenu);
    m_message->setObjectName(u"readMessage"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_open);
    buttons->addWidget(m_recent);
    buttons->addStretch();
    m_buttons = workbench::widgetFor(buttons);
    m_status->addWidget(m_message); // as high as the higher one, so nothing moves
    m_status->addWidget(m_progress);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_buttons);
    column->addWidget(m_status);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QWidget *ReadPanel::openButton() const
{
    return m_open;
}

QWidget *ReadPanel::recentButton() const
{
    return m_recent;
}

void ReadPanel::setBusy(bool isBusy)
{
    m_buttons->setEnabled(!isBusy);
    m_status->setCurrentWidget(isBusy ? static_cast<QWidget *>(m_progress) : m_message);
    if (isBusy)
        m_progress->setFocus();
}
