// SPDX-License-Identifier: GPL-2.0-or-later
// The user's menu configuration as a whole: shortcuts, taken sequences, context menu.
#pragma once

#include <QPointer>
#include <QSettings>
#include <QString>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/KeySequenceList.h>
#include <kelo_base/core/Export.h>

class ActionManager;

/// Holds the current and the default shortcuts and context-menu layout, and the key sequences that
/// are not for the user to assign. The current ones are loaded and saved under a named
/// configuration; it does so only when told.
class KELO_BASE_EXPORT MenuConfigManager
{
public:
    MenuConfigManager();
    /// A copy has the lists and the name, but works on no store until it is given one: what is
    /// tried out on it reaches nobody's file.
    MenuConfigManager(const MenuConfigManager &other);
    /// Takes over the lists and the name, and keeps its own store.
    MenuConfigManager &operator=(const MenuConfigManager &other);

    /// The store to load from and save to, which is not owned and may die first; null: none.
    void SetSettings(QSettings *settings) { m_settings = settings; }
    /// Initially "Default".
    void SetConfigName(const QString &name) { m_state.configName = name; }
    /// The group in the store: "MenuConfig/" and the name.
    [[nodiscard]] QString GetConfigName() const;

    /// Fills the reserved sequences with those that the program keeps for itself. Then, when there
    /// is an application object, loads its defaults file: for an application "viewer" that is
    /// "config/viewer-menu.ini" in the application's directory.
    void Initialize();
    /// Loads the current shortcuts and the current layout of the named configuration from an INI
    /// file. What the file does not hold stays as it is; so does all when there is no such file.
    void LoadFromFile(const QString &path);
    /// The same from the store; nothing happens without one.
    void LoadFromStorage();
    /// Writes the current shortcuts and the current layout to the store, if there is one. When they
    /// reach the disk is the store's affair.
    void SaveToStorage();
    /// Lets go of everything, the store included: afterwards the object is as just constructed.
    /// Nothing is saved.
    void Shutdown();

    [[nodiscard]] const ActionShortCutList &GetKeyboardShortcutList() const;
    [[nodiscard]] const ActionShortCutList &GetDefaultKeyboardShortcutList() const;
    [[nodiscard]] const KeySequenceList &GetReservedSequenceList() const;
    [[nodiscard]] const KeySequenceList &GetBookmarkSequenceList() const;
    [[nodiscard]] const ContextMenuLayout &GetContextMenuLayout() const;
    [[nodiscard]] const ContextMenuLayout &GetDefaultContextMenuLayout() const;

    /// Each copies its argument; the object's own list may be given, too.
    void AssignKeyboardShortcutList(const ActionShortCutList &list);
    void AssignDefaultKeyboardShortcutList(const ActionShortCutList &list);
    void AssignReservedSequenceList(const KeySequenceList &list);
    void AssignBookmarkSequenceList(const KeySequenceList &list);
    void AssignContextMenuLayout(const ContextMenuLayout &layout);
    void AssignDefaultContextMenuLayout(const ContextMenuLayout &layout);

private:
    struct State ///< what a copy takes over
    {
        QString configName;
        ActionShortCutList shortcuts;
        ActionShortCutList defaultShortcuts;
        KeySequenceList reservedSequences;
        KeySequenceList bookmarkSequences;
        ContextMenuLayout layout;
        ContextMenuLayout defaultLayout;
    };
    [[nodiscard]] static State initialState();
    void loadFrom(QSettings &settings);

    QPointer<QSettings> m_settings;
    State m_state = initialState();
};

/// Takes the shortcuts that the registered actions have now into @p list. Entries of other ids, and
/// of actions without a shortcut, stay as they are.
KELO_BASE_EXPORT void SetupKeyboardShortcutListFromActionManager(const ActionManager &manager,
                                                                 ActionShortCutList &list);
/// Gives each registered action its sequence from @p list, working in every window of the program,
/// and takes the shortcut from those that have none there.
KELO_BASE_EXPORT void SetupActionManagerFromKeyboardShortcutList(const ActionShortCutList &list,
                                                                 ActionManager &manager);
