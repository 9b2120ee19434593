// SPDX-License-Identifier: GPL-2.0-or-later
// One sentence in a dialog, at the place that it concerns.
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/messageline_p.h"
#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

using namespace Qt::Literals::StringLiterals;

MessageLine::MessageLine(QWidget *parent)
    : QFrame(parent), m_icon(new QLabel), m_text(new QLabel), m_action(new QPushButton)
{
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText); // names of files may look like markup
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setMinimumHeight(2 * m_text->fontMetrics().lineSpacing());
    // A long name must not widen the window; the tool tip has all of it.
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_action->setAutoDefault(false);
    m_action->hide();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(m_icon);
    row->addWidget(m_text, 1);
    row->addWidget(m_action);
    connect(m_action, &QPushButton::clicked, this, &MessageLine::actionClicked);
}

void MessageLine::inform(const QString &sentence)
{
    show(sentence, false);
}

void MessageLine::warn(const QString &sentence)
{
    show(sentence, true);
}

void MessageLine::warn(const QString &sentence, const QString &action)
{
    show(sentence, true, action);
}

void MessageLine::clear()
{
    show({}, false);
}

QString MessageLine::text() const
{
    return m_text->text();
}

void MessageLine::show(const QString &sentence, bool isWarning, const QString &action)
{
    const auto icon = isWarning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_icon->setVisible(!sentence.isEmpty());
    m_icon->setPixmap(style()->standardIcon(icon).pixmap(QSize(size, size), devicePixelRatioF()));
    m_icon->setAccessibleName(isWarning ? DxfDialogTexts::Warning()
                                        : DxfDialogTexts::Information());
    m_text->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                         Qt::AlignAbsolute | Qt::AlignVCenter); // of a Latin name too
    m_text->setText(sentence);
    m_text->setToolTip(sentence.isEmpty() ? sentence
                                          : u"<p>%1</p>"_s.arg(sentence.toHtmlEscaped()));
    m_action->setText(action);
    m_action->setVisible(!action.isEmpty());
    if (!sentence.isEmpty()) {
        QAccessibleEvent alert(m_text, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}
