// SPDX-License-Identifier: GPL-2.0-or-later
// The user's menu configuration as a whole: shortcuts, taken sequences, context menu.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/KeySequenceList.h>
#include <kelo_base/core/Export.h>

class ActionManager;

/// Holds the current and the default shortcuts and context-menu layout, and the key sequences that
/// are not for the user to assign. The current ones are loaded and saved under a named
/// configuration; it does so only when told.
///
/// A program registers its actions, hands over the store, and calls SetUpActions(): that is all.
class KELO_BASE_EXPORT MenuConfigManager : public QObject
{
    Q_OBJECT

public:
    enum class Part {
        ConfigName = 1,
        Shortcuts = 2,            ///< the current ones
        ContextMenu = 4,          ///< the current one
        Defaults = 8,             ///< of either
        TakenSequences = 16,      ///< reserved, or taken by bookmarks
        StoredConfigurations = 32 ///< what GetConfigNames() gives
    };
    Q_DECLARE_FLAGS(Parts, Part)

    MenuConfigManager();
    /// A copy has the lists and the name, but works on no store until it is given one: what is
    /// tried out on it reaches nobody's file. Listeners stay with the original.
    MenuConfigManager(const MenuConfigManager &other);
    /// Takes over the lists and the name, and keeps its own store and listeners.
    MenuConfigManager &operator=(const MenuConfigManager &other);
    ~MenuConfigManager() override;

    /// The store to load from and save to, which is not owned and may die first; null: none.
    void SetSettings(QSettings *settings) { m_settings = settings; }
    /// Null when there is none, or it has died.
    [[nodiscard]] QSettings *GetSettings() const { return m_settings; }
    /// Initially "Default". Any name is taken; one that is no plain name, see IsConfigName(), works
    /// as a path of groups in the store, and is not among GetConfigNames().
    void SetConfigName(const QString &name);
    /// The group in the store: "MenuConfig/" and the name.
    [[nodiscard]] QString GetConfigName() const;
    /// The name alone, as people know it.
    [[nodiscard]] QString GetPlainConfigName() const { return m_state.configName; }
    /// Whether a configuration can have @p name: it is not empty, has no blank at either end and no
    /// control character, and neither "/" nor "\", which divide groups in stores.
    [[nodiscard]] static bool IsConfigName(const QString &name);

    /// The plain names of the configurations in the store, in natural order.
    [[nodiscard]] QStringList GetConfigNames() const;
    // The next three work on what is stored, not on the lists in memory. They fail, and change
    // nothing, without a store, when there is no stored configuration of the first name, when the
    // second is no plain name, or is taken (whatever the case of its letters).

    /// Stores everything that is stored under @p name under @p copy too.
    bool CopyConfig(const QString &name, const QString &copy);
    /// A current configuration of that name is called by the new one from then on.
    bool RenameConfig(const QString &name, const QString &newName);
    /// The lists in memory stay, also those of the current configuration.
    bool RemoveConfig(const QString &name);

    /// The start of a program in one call: Initialize(), the defaults, what the user stored, and
    /// the shortcuts of all registered actions. May be called again when more actions have come or
    /// another configuration was named; changes that were not saved are lost then.
    ///
    /// - The default shortcuts are those that the actions have when they are first seen here;
    ///   entries that there are already, and those in the defaults file, go before them. The
    ///   defaults file gives the default layout, too, if it holds one.
    /// - The current ones are those stored, or else the defaults. An action that is new since they
    ///   were stored gets its default, unless that would get into the way of keys that the user
    ///   chose. A shortcut that the user cleared stays cleared.
    /// - Reserved sequences do not matter here, so that a program can give them to its actions.
    void SetUpActions(ActionManager &actions);

    /// Fills the reserved sequences with those that the program keeps for itself. Then, when there
    /// is an application object, loads its defaults file: for an application "viewer" that is
    /// "config/viewer-menu.ini" in the application's directory.
    void Initialize();
    /// Loads the current shortcuts and the current layout of the named configuration from an INI
    /// file. What the file does not hold stays as it is; so does all when there is no such file.
    void LoadFromFile(const QString &path);
    /// The same from the store; nothing happens without one. Actions that are not in the store have
    /// no shortcut then: see SetUpActions().
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

signals:
    /// Comes once after each call, when all is done, and only for what is different now.
    void changed(MenuConfigManager::Parts parts);

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
    static void read(QSettings &settings, State &state);
    Parts takeOver(State state);
    void replaceState(State state, Parts alsoChanged = {});
    template <typename Value>
    void replace(Value State::*member, const Value &value, Part part);
    [[nodiscard]] bool canStoreAs(const QString &name, const QString &instead) const;

    QPointer<QSettings> m_settings;
    State m_state = initialState();
};

Q_DECLARE_OPERATORS_FOR_FLAGS(MenuConfigManager::Parts)

/// Takes the shortcuts that the registered actions have now into @p list. Entries of other ids, and
/// of actions without a shortcut, stay as they are.
KELO_BASE_EXPORT void SetupKeyboardShortcutListFromActionManager(const ActionManager &manager,
                                                                 ActionShortCutList &list);
/// Gives each registered action its sequence from @p list, working in every window of the program,
/// and takes the shortcut from those that have none there: from all, if the list is empty. Actions
/// that a listener registers meanwhile are left alone.
KELO_BASE_EXPORT void SetupActionManagerFromKeyboardShortcutList(const ActionShortCutList &list,
                                                                 ActionManager &manager);
/// The user's list, and the defaults of actions that have no entry in it. A default that is one of
/// the sequences that the user chose (those that differ from the default of a known action), or
/// begins one, or begins with one, is left out; it can be taken when the keys are free again.
[[nodiscard]] KELO_BASE_EXPORT ActionShortCutList
WithDefaultsOfNewActions(const ActionShortCutList &list, const ActionShortCutList &defaults);
