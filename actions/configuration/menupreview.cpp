// SPDX-License-Identifier: GPL-2.0-or-later
// Paints the preview of the context menu.
#include "actions/configuration/menupreview_p.h"

#include "actions/configuration/menuconfiguration_p.h"
#include "actions/configuration/slotmoves_p.h"
#include <QEvent>
#include <QKeySequence>
#include <QPainter>
#include <QStyle>
#include <kelo_base/actions/ActionData.h>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenu.h>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

MenuPreview::MenuPreview(const ActionManager &manager, QWidget *parent)
    : QWidget(parent), m_manager(&manager)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Preview of the context menu"));
}

void MenuPreview::show(const MenuConfiguration &configuration)
{
    m_menu.clear();
    const auto isAlive = [this](int id) {
        const ActionData *record = m_manager ? m_manager->FindActionDataById(id) : nullptr;
        return record && record->action;
    };
    for (const int id : ContextMenuEntries(configuration.layout, isAlive)) {
        if (id == kContextMenuSeparator) {
            m_menu.addSeparator();
            continue;
        }
        const QAction &action = *m_manager->FindActionDataById(id)->action;
        QString keys =
            configuration.shortcuts.GetSequenceById(id).toString(QKeySequence::NativeText);
        keys = keys.isEmpty() ? QString() : u'\t' + keys; // shown, but not to be pressed
        QAction *entry = m_menu.addAction(action.icon(), action.text().section(u'\t', 0, 0) + keys);
        entry->setCheckable(action.isCheckable());
        entry->setChecked(action.isChecked());
    }
    findClashes();
    updateGeometry();
    resize(sizeHint());
    update();
}

void MenuPreview::findClashes()
{
    m_clashing.clear();
    const QList<QAction *> entries = m_menu.actions();
    QStringList texts;
    for (const QAction *entry : entries)
        texts << entry->text().section(u'\t', 0, 0);
    const std::vector<bool> isClashing = clashingMnemonics(texts);
    QStringList letters;
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (!isClashing[static_cast<std::size_t>(i)])
            continue;
        m_clashing.push_back(entries[i]);
        const QString keys = QKeySequence::mnemonic(texts[i]).toString();
        letters << keys.section(u'+', -1);
    }
    letters.removeDuplicates();
    m_warning =
        letters.isEmpty()
            ? QString()
            : tr("More than one entry is chosen by the letter: %1").arg(letters.join(u", "_s));
    setAccessibleDescription(m_warning);
}

/// Where the marks are, on the side where lines begin.
int MenuPreview::gutter() const
{
    return style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) + 4;
}

QSize MenuPreview::sizeHint() const
{
    return m_menu.isEmpty() ? QSize(gutter(), gutter()) : m_menu.sizeHint() + QSize(gutter(), 0);
}

void MenuPreview::paintEvent(QPaintEvent *)
{
    if (m_menu.isEmpty())
        return;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    m_menu.setLayoutDirection(layoutDirection());
    m_menu.resize(m_menu.sizeHint());
    QPainter painter(this);
    painter.drawPixmap(isMirrored ? 0 : gutter(), 0, m_menu.grab());
    const int edge = gutter() - 4;
    const QIcon mark = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
    for (QAction *entry : m_clashing) {
        QRect place(0, 0, edge, edge);
        place.moveCenter({0, m_menu.actionGeometry(entry).center().y()});
        place.moveLeft(isMirrored ? width() - edge : 0);
        mark.paint(&painter, place);
    }
}

void MenuPreview::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        updateGeometry();
}

} // namespace menuconfig
