// SPDX-License-Identifier: GPL-2.0-or-later
// A sentence in the middle of a view that has nothing to show.
#pragma once

#include <QLabel>

class QAbstractScrollArea;

/// Lies over the view's viewport while it has a text, and lets the pointer through.
class EmptyHint : public QLabel
{
    Q_OBJECT

public:
    explicit EmptyHint(QAbstractScrollArea *view);
    /// An empty text hides it.
    void showText(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeInk();
};
