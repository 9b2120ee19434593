// SPDX-License-Identifier: GPL-2.0-or-later
// A sign, the text and a button to close it, made when there is something to say.
#include "NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

NoticeBar::NoticeBar(QWidget *parent) : QFrame(parent)
{
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::ToolTipBase);
    setAutoFillBackground(true);
    hide();
}

void NoticeBar::fill()
{
    m_text = new QLabel;
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *sign = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    auto *close = new QToolButton;
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close"));
    close->setAccessibleName(tr("Close"));
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 3, 3, 3);
    row->addWidget(sign);
    row->addWidget(m_text, 1);
    row->addWidget(close);
}

void NoticeBar::tell(const QString &sentence)
{
    if (!m_text && sentence.isEmpty())
        return;
    if (!m_text)
        fill();
    m_text->setText(sentence);
    m_text->setAccessibleName(sentence);
    setVisible(!sentence.isEmpty());
}

QString NoticeBar::sentence() const
{
    return isHidden() ? QString() : m_text->text();
}
