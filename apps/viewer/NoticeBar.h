// SPDX-License-Identifier: GPL-2.0-or-later
// One sentence above the plan, until it is taken away.
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
    QLabel *m_text;
};
