// SPDX-License-Identifier: GPL-2.0-or-later
// The table view of the chosen sheets.
#pragma once

#include <QTableView>

/// Rows of one height, so that a million of them are not asked for theirs. The corners' column has
/// room for all of its text, and takes what the other columns leave.
class SheetTable : public QTableView
{
    Q_OBJECT

public:
    explicit SheetTable(QAbstractItemModel *model, QWidget *parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void setUpHeaders();
    void fillWidth();
    [[nodiscard]] int usualWidth(int column) const;
};
