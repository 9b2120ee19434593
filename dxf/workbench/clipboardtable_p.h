// SPDX-License-Identifier: GPL-2.0-or-later
// Lists that are copied as a table.
#pragma once

#include <QStringList>
#include <functional>

class QAbstractItemView;

namespace workbench {

/// Lines with tabs between their cells, as spreadsheets take them from the clipboard.
class TableText
{
public:
    explicit TableText(const QStringList &titles) { addRow(titles); }
    /// Tabs and line breaks in a cell become blanks: they would make more cells of it.
    void addRow(const QStringList &cells);
    [[nodiscard]] const QString &text() const { return m_text; }
    void toClipboard() const;

private:
    QString m_text;
};

/// "Copy" by its key and in the context menu of a view.
void offerCopy(QAbstractItemView *view, std::function<void()> copy);

} // namespace workbench
