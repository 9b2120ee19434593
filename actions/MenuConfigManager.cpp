// SPDX-License-Identifier: GPL-2.0-or-later
// Loads, keeps and saves menu configurations, and carries shortcuts to and from the actions.
#include <kelo_base/actions/MenuConfigManager.h>

#include "actions/menuconfig_p.h"
#include <QAction>
#include <QFileInfo>
#include <QGuiApplication>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/LayoutStorage.h>

using namespace Qt::Literals::StringLiterals;
using namespace menuconfig;

namespace {

constexpr QKeySequence::StandardKey kReservedStandardKeys[] = {
    QKeySequence::New,          QKeySequence::Open,   QKeySequence::Save,    QKeySequence::SaveAs,
    QKeySequence::Close,        QKeySequence::Quit,   QKeySequence::Find,    QKeySequence::FindNext,
    QKeySequence::HelpContents, QKeySequence::Cut,    QKeySequence::Copy,    QKeySequence::Paste,
    QKeySequence::Delete,       QKeySequence::Undo,   QKeySequence::Redo,    QKeySequence::Replace,
    QKeySequence::Bold,         QKeySequence::Italic, QKeySequence::Refresh,
};
constexpr Qt::Key kReservedKeys[] = {
    Qt::Key_Escape, Qt::Key_Up,   Qt::Key_Down,    Qt::Key_Left,
    Qt::Key_Right,  Qt::Key_Less, Qt::Key_Greater,
};
constexpr QLatin1StringView kReservedTexts[] = {
    "Ctrl+W"_L1, "Shift+S"_L1, "Shift+F"_L1, "Shift+A"_L1, "Shift+1"_L1, "Shift+2"_L1,
    "Ctrl+1"_L1, "Ctrl+2"_L1,  "Ctrl+3"_L1,  "Ctrl+4"_L1,  "Ctrl+5"_L1,
};

/// What the program keeps for itself. Standard keys without a binding on this platform are left
/// out, and all of them without a GUI application: only that knows the platform.
KeySequenceList reservedSequences()
{
    KeySequenceList list;
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        for (const QKeySequence::StandardKey key : kReservedStandardKeys)
            list.AddSequence(QKeySequence(key));
    }
    for (const Qt::Key key : kReservedKeys)
        list.AddSequence(QKeySequence(key));
    for (const QLatin1StringView text : kReservedTexts)
        list.AddSequence(QKeySequence::fromString(text, QKeySequence::PortableText));
    return list;
}

QString defaultsFilePath()
{
    return QCoreApplication::applicationDirPath() + kDefaultsFolder + u'/' +
           QCoreApplication::applicationName() + kDefaultsSuffix;
}

} // namespace

MenuConfigManager::MenuConfigManager() = default;

MenuConfigManager::MenuConfigManager(const MenuConfigManager &other) : m_state(other.m_state) {}

MenuConfigManager &MenuConfigManager::operator=(const MenuConfigManager &other)
{
    m_state = other.m_state;
    return *this;
}

QString MenuConfigManager::GetConfigName() const
{
    return kConfigGroup + u'/' + m_state.configName;
}

void MenuConfigManager::Initialize()
{
    m_state.reservedSequences = reservedSequences();
    if (QCoreApplication::instance())
        LoadFromFile(defaultsFilePath());
}

void MenuConfigManager::LoadFromFile(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return;
    QSettings file(path, QSettings::IniFormat);
    loadFrom(file);
}

void MenuConfigManager::LoadFromStorage()
{
    if (m_settings)
        loadFrom(*m_settings);
}

void MenuConfigManager::SaveToStorage()
{
    if (!m_settings)
        return;
    WriteShortcutList(*m_settings, GetConfigName(), m_state.shortcuts);
    WriteContextMenuLayout(*m_settings, GetConfigName(), m_state.layout);
}

void MenuConfigManager::Shutdown()
{
    m_settings = nullptr;
    m_state = initialState();
}

const ActionShortCutList &MenuConfigManager::GetKeyboardShortcutList() const
{
    return m_state.shortcuts;
}

const ActionShortCutList &MenuConfigManager::GetDefaultKeyboardShortcutList() const
{
    return m_state.defaultShortcuts;
}

const KeySequenceList &MenuConfigManager::GetReservedSequenceList() const
{
    return m_state.reservedSequences;
}

const KeySequenceList &MenuConfigManager::GetBookmarkSequenceList() const
{
    return m_state.bookmarkSequences;
}

const ContextMenuLayout &MenuConfigManager::GetContextMenuLayout() const
{
    return m_state.layout;
}

const ContextMenuLayout &MenuConfigManager::GetDefaultContextMenuLayout() const
{
    return m_state.defaultLayout;
}

void MenuConfigManager::AssignKeyboardShortcutList(const ActionShortCutList &list)
{
    m_state.shortcuts = list;
}

void MenuConfigManager::AssignDefaultKeyboardShortcutList(const ActionShortCutList &list)
{
    m_state.defaultShortcuts = list;
}

void MenuConfigManager::AssignReservedSequenceList(const KeySequenceList &list)
{
    m_state.reservedSequences = list;
}

void MenuConfigManager::AssignBookmarkSequenceList(const KeySequenceList &list)
{
    m_state.bookmarkSequences = list;
}

void MenuConfigManager::AssignContextMenuLayout(const ContextMenuLayout &layout)
{
    m_state.layout = layout;
}

void MenuConfigManager::AssignDefaultContextMenuLayout(const ContextMenuLayout &layout)
{
    m_state.defaultLayout = layout;
}

MenuConfigManager::State MenuConfigManager::initialState()
{
    State state;
    state.configName = kDefaultConfigName;
    return state;
}

void MenuConfigManager::loadFrom(QSettings &settings)
{
    ReadShortcutList(settings, GetConfigName(), m_state.shortcuts);
    ReadContextMenuLayout(settings, GetConfigName(), m_state.layout);
}

void SetupKeyboardShortcutListFromActionManager(const ActionManager &manager,
                                                ActionShortCutList &list)
{
    for (const auto &[id, data] : manager.GetActions()) {
        if (data->action && !data->action->shortcut().isEmpty())
            list.AssignKeySequence(static_cast<int>(id), data->action->shortcut());
    }
}

void SetupActionManagerFromKeyboardShortcutList(const ActionShortCutList &list,
                                                ActionManager &manager)
{
    for (const auto &[id, data] : manager.GetActions()) {
        const QKeySequence sequence = list.GetSequenceById(static_cast<int>(id));
        // The context first: the other way round the toolkit would file each shortcut twice.
        if (data->action && !sequence.isEmpty())
            data->action->setShortcutContext(Qt::ApplicationShortcut);
        if (data->action) // asked again: whoever hears of the change may delete it
            data->action->setShortcut(sequence);
    }
}
