// SPDX-License-Identifier: GPL-2.0-or-later
// The plans that were opened last, as a menu.
#pragma once

#include <QMenu>
#include <QStringList>

class RecentPlans : public QMenu
{
    Q_OBJECT

public:
    static constexpr qsizetype kMost = 10;

    explicit RecentPlans(QWidget *parent = nullptr);
    /// Puts a plan first. Kept in the user's settings, as far as @p isKept.
    void add(const QString &path);
    void setKept(bool isKept) { m_isKept = isKept; }
    [[nodiscard]] QStringList plans() const;

signals:
    void chosen(const QString &path);

private:
    void fill();

    bool m_isKept = false;
};
