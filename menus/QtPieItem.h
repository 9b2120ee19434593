// SPDX-License-Identifier: GPL-2.0-or-later
// An item of a pie menu: what one sector shows.
#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>
#include <kelo_base/core/Export.h>

/// Text, icon, weight and state of one sector. It is a widget for the sake of its enabled flag, its
/// tool tip and its accessible name; the menu paints it, and keeps it hidden.
class KELO_BASE_EXPORT QtPieItem : public QWidget
{
    Q_OBJECT

public:
    /// Values of type().
    enum Type : int { PlainItem = 0, SubMenu = 1 };

    /// @param text    may mark a letter with "&", which then picks the item
    /// @param weight  see setWeight()
    explicit QtPieItem(const QString &text = QString(), QWidget *parent = nullptr, int weight = 1);
    QtPieItem(const QIcon &icon, const QString &text, QWidget *parent = nullptr, int weight = 1);

    /// SubMenu for a menu, any other value for a plain item.
    [[nodiscard]] virtual int type() const { return PlainItem; }

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);
    [[nodiscard]] QIcon icon() const { return m_icon; }
    void setIcon(const QIcon &icon);
    /// The item's share of the ring, in proportion to the other items' weights; initially 1. An
    /// item of weight 0 or less has no sector and cannot be chosen, unless none has more.
    [[nodiscard]] int weight() const { return m_weight; }
    void setWeight(int weight);

    /// Whether the item shows a state that is on or off, and which; initially neither.
    [[nodiscard]] bool isCheckable() const { return m_isCheckable; }
    [[nodiscard]] bool isChecked() const { return m_isChecked; }
    void setCheckable(bool isCheckable);
    void setChecked(bool isChecked);

signals:
    /// The item was chosen. A plain item says so after its menus have closed, so that a listener
    /// may open a dialog; for a menu see QtPieMenu.
    void activated();
    /// Something that the menu shows of the item is different now.
    void changed();

protected:
    void changeEvent(QEvent *event) override;

private:
    QString m_text;
    QIcon m_icon;
    int m_weight;
    bool m_isCheckable = false;
    bool m_isChecked = false;
};
