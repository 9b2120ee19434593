// SPDX-License-Identifier: GPL-2.0-or-later
// What the user shall read above the plan, until it is taken away: a sentence, or a few lines.
#pragma once

#include <QFrame>

class QLabel;

class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget *parent = nullptr);
    void tell(const QString &sentence);
    [[nodiscard]] QString sentence() const;

private:
    void fill();

    QLabel *m_text = nullptr; ///< from the first sentence on: the style's icons take milliseconds
};
