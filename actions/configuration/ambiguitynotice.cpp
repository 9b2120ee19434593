// SPDX-License-Identifier: GPL-2.0-or-later
// Catches ambiguous keys and shows the notice.
#include <kelo_base/actions/AmbiguityNotice.h>

#include "actions/configuration/actioncatalogue_p.h"
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcutEvent>
#include <kelo_base/actions/ActionData.h>
#include <kelo_base/actions/ActionManager.h>

namespace {

constexpr int kMargin = 12;     ///< pixels to the edge of the window
constexpr int kMostWidth = 480; ///< of the notice
constexpr int kFewestNames = 2;

QString quoted(const ActionManager &manager, int id)
{
    return menuconfig::plainText(manager.FindActionDataById(id)->action->text());
}

} // namespace

AmbiguityNotice::AmbiguityNotice(ActionManager &manager, QObject *parent)
    : QObject(parent), m_manager(&manager)
{
    qApp->installEventFilter(this);
}

AmbiguityNotice::~AmbiguityNotice()
{
    delete m_notice;
}

QWidget *AmbiguityNotice::Notice() const
{
    return m_notice;
}

bool AmbiguityNotice::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_notice && watched == m_notice->parent())
        place();
    if (event->type() != QEvent::Shortcut)
        return QObject::eventFilter(watched, event);
    const auto *shortcut = static_cast<QShortcutEvent *>(event);
    return shortcut->isAmbiguous() && tell(shortcut->key(), qobject_cast<QAction *>(watched));
}

/// The registered functions that these keys would start, ascending by id.
std::vector<int> AmbiguityNotice::liveWith(const QKeySequence &sequence) const
{
    std::vector<int> ids;
    for (const auto &[key, record] : m_manager->GetActions()) {
        const QAction *action = record->action;
        if (action && action->isEnabled() && action->shortcuts().contains(sequence))
            ids.push_back(static_cast<int>(key));
    }
    return ids;
}

/// False when no registered function is concerned, and it is none of our business.
bool AmbiguityNotice::tell(const QKeySequence &sequence, const QAction *reached)
{
    const std::vector<int> ids = m_manager ? liveWith(sequence) : std::vector<int>();
    if (ids.empty())
        return false;
    if (!m_told.emplace(sequence, ids).second)
        return true;
    const QString keys = sequence.toString(QKeySequence::NativeText);
    const QString first = quoted(*m_manager, ids[0]);
    const bool isReachedOther = reached && m_manager->FindIdByAction(reached) == -1;
    if (std::ssize(ids) >= kFewestNames)
        show(tr("%1 does nothing, since “%2” and “%3” both have it.")
                 .arg(keys, first, quoted(*m_manager, ids[1])),
             ids[0]);
    else if (isReachedOther && !menuconfig::plainText(reached->text()).isEmpty())
        show(tr("%1 does nothing, since “%2” and “%3” both have it.")
                 .arg(keys, first, menuconfig::plainText(reached->text())),
             ids[0]);
    else
        show(tr("%1 does nothing, since “%2” and another function both have it.").arg(keys, first),
             ids[0]);
    return true;
}

void AmbiguityNotice::show(const QString &sentence, int id)
{
    QWidget *window = QApplication::activeWindow();
    delete m_notice;
    m_notice = new QFrame(window);
    m_notice->setFrameShape(QFrame::StyledPanel);
    m_notice->setAutoFillBackground(true);
    m_notice->setBackgroundRole(QPalette::ToolTipBase);
    m_notice->setAccessibleName(sentence);
    if (!window)
        m_notice->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    m_notice->setAttribute(Qt::WA_ShowWithoutActivating);
    auto *text = new QLabel(sentence);
    text->setForegroundRole(QPalette::ToolTipText);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto *configure = new QPushButton(tr("Set Keys..."));
    auto *close = new QPushButton(tr("Close"));
    auto *row = new QHBoxLayout(m_notice);
    row->addWidget(text, 1);
    row->addWidget(configure);
    row->addWidget(close);
    const auto leave = [notice = m_notice] { // a button of it is still at work
        notice->hide();
        notice->deleteLater();
    };
    connect(close, &QPushButton::clicked, this, leave);
    connect(configure, &QPushButton::clicked, this, [this, leave, id] {
        leave();
        emit configureRequested(id);
    });
    place();
    m_notice->show();
    m_notice->raise();
    QAccessibleEvent alert(m_notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

/// Into the lower corner of the window where lines end.
void AmbiguityNotice::place() const
{
    const QWidget *window = m_notice->parentWidget();
    const int room = window ? window->width() - 2 * kMargin : kMostWidth;
    const int width = std::min(kMostWidth, room);
    m_notice->resize(width,
                     std::max(m_notice->heightForWidth(width), m_notice->sizeHint().height()));
    if (!window)
        return;
    const bool isMirrored = window->layoutDirection() == Qt::RightToLeft;
    const int x = isMirrored ? kMargin : window->width() - kMargin - width;
    m_notice->move(x, window->height() - kMargin - m_notice->height());
}
