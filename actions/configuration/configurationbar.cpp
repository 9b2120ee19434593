// SPDX-License-Identifier: GPL-2.0-or-later
// Switches between named configurations, makes new ones, and does away with them.
#include "actions/configuration/configurationbar_p.h"

#include "actions/configuration/menuconfigtexts_p.h"
#include "actions/configuration/menuconfiguration_p.h"
#include "actions/recentconfigs_p.h"
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr int kShownCharacters = 40; ///< of a name; a longer one would widen the dialog

QString withoutMnemonic(QString name)
{
    return name.replace(u'&', u"&&"_s);
}

/// The manager's state with no shortcuts but the defaults, under another name.
void startFromDefaults(MenuConfigManager &next, const QString &name)
{
    next.SetConfigName(name);
    next.AssignKeyboardShortcutList(next.GetDefaultKeyboardShortcutList());
    next.AssignContextMenuLayout(next.GetDefaultContextMenuLayout());
}

} // namespace

QString faultOfConfigName(const QString &name, const QStringList &others)
{
    if (name.isEmpty())
        return ConfigurationBar::tr("A configuration needs a name.");
    if (!MenuConfigManager::IsConfigName(name))
        return ConfigurationBar::tr("“%1” cannot be the name of a configuration, since it has a "
                                    "slash, a backslash or a control character.")
            .arg(name);
    if (others.contains(name, Qt::CaseInsensitive))
        return ConfigurationBar::tr("There is a configuration called “%1” already.").arg(name);
    return QString();
}

ConfigurationBar::ConfigurationBar(MenuConfigManager &manager, ActionManager &actions,
                                   MayLeave mayLeave, QWidget *parent)
    : QWidget(parent),
      m_manager(&manager),
      m_actions(&actions),
      m_mayLeave(std::move(mayLeave)),
      m_button(new QPushButton),
      m_menu(new QMenu(m_button))
{
    m_button->setObjectName(u"btnConfiguration"_s);
    m_button->setAutoDefault(false);
    m_button->setMenu(m_menu);
    auto *label = new QLabel(tr("Co&nfiguration:"));
    label->setBuddy(m_button);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(m_button);
    row->addStretch();
    connect(m_menu, &QMenu::aboutToShow, this, &ConfigurationBar::fillMenu);
    connect(m_manager, &MenuConfigManager::changed, this, &ConfigurationBar::showName);
    showName();
}

void ConfigurationBar::showName()
{
    const QString name = m_manager->GetPlainConfigName();
    const int most = fontMetrics().averageCharWidth() * kShownCharacters;
    m_button->setText(withoutMnemonic(fontMetrics().elidedText(name, Qt::ElideMiddle, most)));
    m_button->setToolTip(name.toHtmlEscaped());
    m_button->setAccessibleName(tr("Configuration: %1").arg(name));
}

void ConfigurationBar::fillMenu()
{
    m_menu->clear();
    if (!m_manager)
        return;
    const QStringList recent = recentNames();
    for (const QString &name : recent)
        addChoice(name);
    if (!recent.isEmpty())
        m_menu->addSeparator(); // not shown where nothing follows but another one
    for (const QString &name : names()) {
        if (!recent.contains(name))
            addChoice(name);
    }
    m_menu->addSeparator();
    const bool hasStore = m_manager->GetSettings() != nullptr;
    m_menu->addAction(tr("&New…"), this, &ConfigurationBar::create)->setEnabled(hasStore);
    m_menu->addAction(tr("&Copy…"), this, &ConfigurationBar::copy)->setEnabled(hasStore);
    m_menu->addAction(tr("&Rename…"), this, &ConfigurationBar::rename)->setEnabled(hasStore);
    m_menu->addAction(tr("&Delete…"), this, &ConfigurationBar::remove)
        ->setEnabled(hasStore && !others().isEmpty());
}

void ConfigurationBar::addChoice(const QString &name)
{
    QAction *choice =
        m_menu->addAction(withoutMnemonic(name), this, [this, name] { switchTo(name); });
    choice->setCheckable(true);
    choice->setChecked(name == m_manager->GetPlainConfigName());
}

void ConfigurationBar::create()
{
    const QPointer<ConfigurationBar> alive(this);
    if (!canWrite())
        return;
    const QString name = askName(tr("New Configuration"), names());
    if (name.isEmpty() || !mayLeave())
        return;
    MenuConfigManager next(*m_manager);
    startFromDefaults(next, name);
    if (!bring(next) || !storeCurrent())
        return;
    emit switched();
    if (alive && m_manager)
        finish();
}

void ConfigurationBar::copy()
{
    if (!canWrite())
        return;
    const QString name = askName(tr("Copy the Configuration"), names());
    if (name.isEmpty() || !mayLeave() || !storeCurrent())
        return;
    const QPointer<ConfigurationBar> alive(this);
    const bool isCopied = m_manager->CopyConfig(m_manager->GetPlainConfigName(), name);
    if (!alive || !m_manager)
        return;
    if (!isCopied) {
        emit reported(tr("The configuration could not be copied."));
        return;
    }
    load(name);
}

void ConfigurationBar::rename()
{
    if (!canWrite())
        return;
    const QString name = askName(tr("Rename the Configuration"), others());
    const QPointer<ConfigurationBar> alive(this);
    if (name.isEmpty() || !storeCurrent())
        return;
    const QString old = m_manager->GetPlainConfigName();
    if (name == old)
        return;
    QStringList recent = recentNames();
    std::replace(recent.begin(), recent.end(), old, name);
    const bool isRenamed = m_manager->RenameConfig(old, name);
    if (!alive || !m_manager)
        return;
    if (!isRenamed) {
        emit reported(tr("The configuration could not be renamed."));
        return;
    }
    remember(recent);
    finish();
}

void ConfigurationBar::remove()
{
    if (!canWrite())
        return;
    const QString name = m_manager->GetPlainConfigName();
    const QPointer<QMessageBox> box = new QMessageBox(
        QMessageBox::Question, tr("Delete"), tr("Delete the configuration “%1”?").arg(name),
        QMessageBox::Yes | QMessageBox::Cancel, this);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(tr("This cannot be undone."));
    const bool isWanted = box->exec() == QMessageBox::Yes;
    if (!box)
        return; // and this went with it
    box->deleteLater();
    if (!isWanted || !m_manager || !m_actions || m_manager->GetPlainConfigName() != name)
        return;
    QStringList next = recentNames() + others();
    next.removeAll(name);
    if (next.isEmpty())
        return;
    const QPointer<ConfigurationBar> alive(this);
    m_manager->RemoveConfig(name); // false for one that was never stored
    if (alive && m_manager && m_actions)
        load(next.first());
}

void ConfigurationBar::switchTo(const QString &name)
{
    if (m_manager && name != m_manager->GetPlainConfigName() && mayLeave())
        load(name);
}

/// All that can be chosen; the current one may not be stored yet.
QStringList ConfigurationBar::names() const
{
    QStringList names = m_manager->GetConfigNames();
    const QString current = m_manager->GetPlainConfigName();
    if (!names.contains(current))
        names.prepend(current);
    return names;
}

QStringList ConfigurationBar::others() const
{
    QStringList others = names();
    others.removeAll(m_manager->GetPlainConfigName());
    return others;
}

QStringList ConfigurationBar::recentNames() const
{
    QSettings *const store = m_manager->GetSettings();
    return store ? readRecentNames(*store, names()) : QStringList();
}

/// False when that was said.
bool ConfigurationBar::canWrite()
{
    const QSettings *const store = m_manager && m_actions ? m_manager->GetSettings() : nullptr;
    if (!store)
        return false;
    if (store->isWritable())
        return true;
    emit reported(tr("%1 cannot be written; nothing was changed.").arg(store->fileName()));
    return false;
}

/// Empty when the user gave none, or none that can be: that was said.
QString ConfigurationBar::askName(const QString &title, const QStringList &taken)
{
    const QPointer<ConfigurationBar> alive(this);
    bool isGiven = false;
    const QString name =
        QInputDialog::getText(this, title, tr("Name of the configuration:"), QLineEdit::Normal,
                              m_manager->GetPlainConfigName(), &isGiven)
            .trimmed();
    if (!alive || !isGiven || !m_manager || !m_actions)
        return QString();
    const QString fault = faultOfConfigName(name, taken);
    if (fault.isEmpty())
        return name;
    emit reported(fault);
    return QString();
}

bool ConfigurationBar::mayLeave()
{
    const QPointer<ConfigurationBar> alive(this);
    const MayLeave ask = m_mayLeave; // this may die while it asks
    return ask() && alive && m_manager && m_actions;
}

/// What was never saved cannot be copied or renamed. False when a listener ended it all.
bool ConfigurationBar::storeCurrent()
{
    const QPointer<ConfigurationBar> alive(this);
    if (!m_manager->GetConfigNames().contains(m_manager->GetPlainConfigName()))
        m_manager->SaveToStorage();
    return alive && m_manager && m_actions;
}

/// Puts it into force. False when a listener ended it all.
bool ConfigurationBar::bring(const MenuConfigManager &next)
{
    const QPointer<ConfigurationBar> alive(this);
    const QPointer<MenuConfigManager> manager = m_manager;
    const QPointer<ActionManager> actions = m_actions;
    QStringList recent = recentNames();
    for (const QString &name : {manager->GetPlainConfigName(), next.GetPlainConfigName()}) {
        recent.removeAll(name);
        recent.prepend(name);
    }
    const ActionShortCutList wanted =
        withOthersOf(*actions, next.GetKeyboardShortcutList(), manager->GetKeyboardShortcutList());
    *manager = next;
    if (actions)
        SetupActionManagerFromKeyboardShortcutList(wanted, *actions);
    if (!alive || !m_manager || !m_actions)
        return false;
    remember(recent);
    return true;
}

/// The stored configuration, with the defaults of all that it does not hold.
void ConfigurationBar::load(const QString &name)
{
    const QPointer<ConfigurationBar> alive(this);
    MenuConfigManager next(*m_manager);
    startFromDefaults(next, name);
    next.AssignKeyboardShortcutList({});
    next.SetSettings(m_manager->GetSettings());
    next.LoadFromStorage();
    next.AssignKeyboardShortcutList(WithDefaultsOfNewActions(
        next.GetKeyboardShortcutList(), next.GetDefaultKeyboardShortcutList()));
    if (!bring(next))
        return;
    emit switched();
    if (alive && m_manager)
        finish();
}

/// Brings to the disk what was done, and tells how that went.
void ConfigurationBar::finish()
{
    QSettings *const store = m_manager->GetSettings();
    emit reported(store ? Texts::sync(*store) : QString());
}

void ConfigurationBar::remember(const QStringList &recent)
{
    if (QSettings *const store = m_manager->GetSettings(); store && store->isWritable())
        writeRecentNames(*store, recent);
}

} // namespace menuconfig
