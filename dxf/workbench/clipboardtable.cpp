// SPDX-License-Identifier: GPL-2.0-or-later
// Lists that are copied as a table.
#include "dxf/workbench/clipboardtable_p.h"

#include "dxf/workbench/dxfdialogtexts_p.h"
#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <utility>

void workbench::TableText::addRow(const QStringList &cells)
{
    for (bool isFirst = true; const QString &cell : cells) {
        if (!std::exchange(isFirst, false))
            m_text += u'\t';
        const qsizetype begin = m_text.size();
        m_text += cell;
        const auto breaks = [](QChar c) { return c == u'\t' || c == u'\n' || c == u'\r'; };
        std::replace_if(m_text.begin() + begin, m_text.end(), breaks, QChar(u' '));
    }
    m_text += u'\n';
}

void workbench::TableText::toClipboard() const
{
    QGuiApplication::clipboard()->setText(m_text);
}

void workbench::offerCopy(QAbstractItemView *view, std::function<void()> copy)
{
    auto *action = new QAction(DxfDialogTexts::Copy(), view);
    action->setShortcut(QKeySequence::Copy);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, view, std::move(copy));
    view->addAction(action);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
}
