// SPDX-License-Identifier: GPL-2.0-or-later
// The choice among the named configurations, and what can be done with them.
#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/MenuConfigManager.h>

class QMenu;
class QPushButton;

namespace menuconfig {

/// Why no configuration can have the name, in one sentence; empty when one can.
[[nodiscard]] QString faultOfConfigName(const QString &name, const QStringList &others);

/// A button with the name of the current configuration. Its menu has all of them, the most recent
/// ones first. What is chosen there happens at once, in the store too.
class ConfigurationBar : public QWidget
{
    Q_OBJECT

public:
    /// Asked before another configuration comes into force: false when the user wants to stay.
    using MayLeave = std::function<bool()>;

    /// The manager and the registry are not owned, and may die first.
    ConfigurationBar(MenuConfigManager &manager, ActionManager &actions, MayLeave mayLeave,
                     QWidget *parent = nullptr);

signals:
    /// Another configuration is in force.
    void switched();
    /// One sentence about what failed; an empty one after what went well.
    void reported(const QString &sentence);

private:
    void showName();
    void fillMenu();
    void addChoice(const QString &name);
    void create();
    void copy();
    void rename();
    void remove();
    void switchTo(const QString &name);

    [[nodiscard]] QStringList names() const;
    [[nodiscard]] QStringList others() const;
    [[nodiscard]] QStringList recentNames() const;
    [[nodiscard]] bool canWrite();
    [[nodiscard]] QString askName(const QString &title, const QStringList &taken);
    [[nodiscard]] bool mayLeave();
    [[nodiscard]] bool storeCurrent();
    [[nodiscard]] bool bring(const MenuConfigManager &next);
    void load(const QString &name);
    void finish();
    void remember(const QStringList &recent);

    QPointer<MenuConfigManager> m_manager;
    QPointer<ActionManager> m_actions;
    MayLeave m_mayLeave;
    QPushButton *m_button;
    QMenu *m_menu;
};

} // namespace menuconfig
