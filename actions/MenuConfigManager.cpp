// SPDX-License-Identifier: GPL-2.0-or-later
// Loads, keeps and saves menu configurations, and carries shortcuts to and from the actions.
#include <kelo_base/actions/MenuConfigManager.h>

#include "actions/menuconfig_p.h"
#include "core/programfiles_p.h"
#include "core/settings_p.h"
#include <QAction>
#include <QFileInfo>
#include <QGuiApplication>
#include <algorithm>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/LayoutStorage.h>
#include <kelo_base/core/NaturalOrder.h>
#include <optional>
#include <set>
#include <utility>

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

/// The defaults file, when there is an application that could have one, and it has.
std::optional<QString> existingDefaultsFile()
{
    const QString path = QCoreApplication::instance() ? menuDefaultsFile() : QString();
    return QFileInfo(path).isFile() ? std::optional(path) : std::nullopt;
}

QString groupOf(const QString &configName)
{
    return kConfigGroup + u'/' + configName;
}

using StoredValues = std::vector<std::pair<QString, QVariant>>;

StoredValues valuesIn(QSettings &settings, const QString &prefix)
{
    const SettingsGroup group(settings, prefix);
    StoredValues values;
    for (const QString &key : settings.allKeys())
        values.emplace_back(key, settings.value(key));
    return values;
}

void storeValues(QSettings &settings, const QString &prefix, const StoredValues &values)
{
    const SettingsGroup group(settings, prefix);
    for (const auto &[key, value] : values)
        settings.setValue(key, value);
}

/// Gives each action that @p defaults does not know an entry: its shortcut, a cleared one if it has
/// none.
void addUnknownActions(const ActionManager &manager, ActionShortCutList &defaults)
{
    for (const auto &[key, data] : manager.GetActions()) {
        const int id = static_cast<int>(key);
        if (data->action && !defaults.HasEntry(id))
            defaults.AssignKeySequence(id, data->action->shortcut());
    }
}

/// Puts the entries of @p other, cleared ones too, in the place of those in @p list.
void overrideEntries(ActionShortCutList &list, const ActionShortCutList &other)
{
    std::vector<int> ids;
    other.GetActionIds(ids);
    other.GetClearedActionIds(ids);
    for (const int id : ids)
        list.AssignKeySequence(id, other.GetSequenceById(id));
}

/// Its first strokes, from one alone to all of them.
std::vector<QKeySequence> beginningsOf(const QKeySequence &sequence)
{
    int keys[4] = {0, 0, 0, 0}; // as many as a sequence can have
    std::vector<QKeySequence> beginnings;
    for (int i = 0; i < sequence.count(); ++i) {
        keys[i] = sequence[static_cast<uint>(i)].toCombined();
        beginnings.emplace_back(keys[0], keys[1], keys[2], keys[3]);
    }
    return beginnings;
}

/// Finds the sequences that get into each other's way: one is the other, or its beginning.
class TakenSequences
{
public:
    void add(const QKeySequence &sequence)
    {
        m_sequences.insert(sequence);
        for (const QKeySequence &beginning : beginningsOf(sequence))
            m_beginnings.insert(beginning);
    }
    [[nodiscard]] bool areInTheWayOf(const QKeySequence &sequence) const
    {
        const std::vector<QKeySequence> beginnings = beginningsOf(sequence);
        return m_beginnings.count(sequence) != 0 ||
               std::any_of(beginnings.begin(), beginnings.end(),
                           [&](const auto &one) { return m_sequences.count(one) != 0; });
    }

private:
    std::set<QKeySequence> m_sequences;
    std::set<QKeySequence> m_beginnings; ///< of all sequences, themselves included
};

} // namespace

MenuConfigManager::MenuConfigManager() = default;

MenuConfigManager::MenuConfigManager(const MenuConfigManager &other)
    : QObject(nullptr), m_state(other.m_state)
{
}

MenuConfigManager &MenuConfigManager::operator=(const MenuConfigManager &other)
{
    replaceState(other.m_state);
    return *this;
}

MenuConfigManager::~MenuConfigManager() = default;

void MenuConfigManager::SetConfigName(const QString &name)
{
    replace(&State::configName, name, Part::ConfigName);
}

QString MenuConfigManager::GetConfigName() const
{
    return groupOf(m_state.configName);
}

bool MenuConfigManager::IsConfigName(const QString &name)
{
    const auto isForbidden = [](QChar c) {
        return c == u'/' || c == u'\\' || c.category() == QChar::Other_Control;
    };
    return !name.isEmpty() && name == name.trimmed() &&
           std::none_of(name.cbegin(), name.cend(), isForbidden);
}

QStringList MenuConfigManager::GetConfigNames() const
{
    if (!m_settings)
        return {};
    const SettingsGroup group(*m_settings, kConfigGroup);
    QStringList names = m_settings->childGroups();
    const auto isForeign = [this](const QString &name) {
        const SettingsGroup configuration(*m_settings, name);
        const QStringList groups = m_settings->childGroups();
        return !groups.contains(kShortcutsGroup) && !groups.contains(kLayoutGroup);
    };
    names.removeIf(isForeign);
    std::sort(names.begin(), names.end(), caseInsensitiveNaturalOrderLessThen);
    return names;
}

/// Whether a configuration can be stored under @p name, @p instead of one, which may be none.
bool MenuConfigManager::canStoreAs(const QString &name, const QString &instead) const
{
    QStringList others = GetConfigNames();
    others.removeAll(instead);
    return IsConfigName(name) && !others.contains(name, Qt::CaseInsensitive);
}

bool MenuConfigManager::CopyConfig(const QString &name, const QString &copy)
{
    if (!GetConfigNames().contains(name) || !canStoreAs(copy, QString()))
        return false;
    storeValues(*m_settings, groupOf(copy), valuesIn(*m_settings, groupOf(name)));
    emit changed(Part::StoredConfigurations);
    return true;
}

bool MenuConfigManager::RenameConfig(const QString &name, const QString &newName)
{
    if (!GetConfigNames().contains(name) || !canStoreAs(newName, name) || newName == name)
        return false;
    const StoredValues values = valuesIn(*m_settings, groupOf(name));
    m_settings->remove(groupOf(name)); // first: some stores make no difference of case
    storeValues(*m_settings, groupOf(newName), values);
    State state = m_state;
    if (state.configName == name)
        state.configName = newName;
    replaceState(std::move(state), Part::StoredConfigurations);
    return true;
}

bool MenuConfigManager::RemoveConfig(const QString &name)
{
    if (!GetConfigNames().contains(name))
        return false;
    m_settings->remove(groupOf(name));
    emit changed(Part::StoredConfigurations);
    return true;
}

void MenuConfigManager::SetUpActions(ActionManager &actions)
{
    State state = m_state;
    state.reservedSequences = reservedSequences();
    addUnknownActions(actions, state.defaultShortcuts);
    if (const auto path = existingDefaultsFile()) {
        QSettings file(*path, QSettings::IniFormat);
        ActionShortCutList shortcuts;
        ReadShortcutList(file, GetConfigName(), shortcuts);
        overrideEntries(state.defaultShortcuts, shortcuts);
        ReadContextMenuLayout(file, GetConfigName(), state.defaultLayout);
    }
    state.shortcuts.ClearAll();
    state.layout = state.defaultLayout;
    if (m_settings)
        read(*m_settings, state);
    state.shortcuts = WithDefaultsOfNewActions(state.shortcuts, state.defaultShortcuts);

    const QPointer<MenuConfigManager> alive(this);
    const Parts parts = takeOver(std::move(state));
    SetupActionManagerFromKeyboardShortcutList(m_state.shortcuts, actions);
    if (alive && parts)
        emit changed(parts);
}

void MenuConfigManager::Initialize()
{
    State state = m_state;
    state.reservedSequences = reservedSequences();
    if (const auto path = existingDefaultsFile()) {
        QSettings file(*path, QSettings::IniFormat);
        read(file, state);
    }
    replaceState(std::move(state));
}

void MenuConfigManager::LoadFromFile(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return;
    QSettings file(path, QSettings::IniFormat);
    State state = m_state;
    read(file, state);
    replaceState(std::move(state));
}

void MenuConfigManager::LoadFromStorage()
{
    if (!m_settings)
        return;
    State state = m_state;
    read(*m_settings, state);
    replaceState(std::move(state));
}

void MenuConfigManager::SaveToStorage()
{
    if (!m_settings)
        return;
    const bool isNew = !GetConfigNames().contains(GetPlainConfigName());
    WriteShortcutList(*m_settings, GetConfigName(), m_state.shortcuts);
    WriteContextMenuLayout(*m_settings, GetConfigName(), m_state.layout);
    if (isNew)
        emit changed(Part::StoredConfigurations);
}

void MenuConfigManager::Shutdown()
{
    m_settings = nullptr;
    replaceState(initialState());
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
    replace(&State::shortcuts, list, Part::Shortcuts);
}

void MenuConfigManager::AssignDefaultKeyboardShortcutList(const ActionShortCutList &list)
{
    replace(&State::defaultShortcuts, list, Part::Defaults);
}

void MenuConfigManager::AssignReservedSequenceList(const KeySequenceList &list)
{
    replace(&State::reservedSequences, list, Part::TakenSequences);
}

void MenuConfigManager::AssignBookmarkSequenceList(const KeySequenceList &list)
{
    replace(&State::bookmarkSequences, list, Part::TakenSequences);
}

void MenuConfigManager::AssignContextMenuLayout(const ContextMenuLayout &layout)
{
    replace(&State::layout, layout, Part::ContextMenu);
}

void MenuConfigManager::AssignDefaultContextMenuLayout(const ContextMenuLayout &layout)
{
    replace(&State::defaultLayout, layout, Part::Defaults);
}

MenuConfigManager::State MenuConfigManager::initialState()
{
    State state;
    state.configName = kDefaultConfigName;
    return state;
}

/// Replaces the current lists of @p state by those that its configuration has in @p settings.
void MenuConfigManager::read(QSettings &settings, State &state)
{
    const QString group = groupOf(state.configName);
    ReadShortcutList(settings, group, state.shortcuts);
    ReadContextMenuLayout(settings, group, state.layout);
}

/// Tells what is different now.
MenuConfigManager::Parts MenuConfigManager::takeOver(State state)
{
    const auto differ = [&](auto... members) {
        return (... || !(state.*members == m_state.*members));
    };
    Parts parts;
    parts.setFlag(Part::ConfigName, differ(&State::configName));
    parts.setFlag(Part::Shortcuts, differ(&State::shortcuts));
    parts.setFlag(Part::ContextMenu, differ(&State::layout));
    parts.setFlag(Part::Defaults, differ(&State::defaultShortcuts, &State::defaultLayout));
    parts.setFlag(Part::TakenSequences,
                  differ(&State::reservedSequences, &State::bookmarkSequences));
    m_state = std::move(state);
    return parts;
}

void MenuConfigManager::replaceState(State state, Parts alsoChanged)
{
    if (const Parts parts = takeOver(std::move(state)) | alsoChanged)
        emit changed(parts);
}

/// @p value may be the member itself.
template <typename Value>
void MenuConfigManager::replace(Value State::*member, const Value &value, Part part)
{
    if (m_state.*member == value)
        return;
    m_state.*member = value;
    emit changed(part);
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
    std::vector<std::pair<int, QKeySequence>> sequences;
    sequences.reserve(manager.GetActions().size());
    for (const auto &[key, data] : manager.GetActions()) {
        const int id = static_cast<int>(key);
        sequences.emplace_back(id, list.GetSequenceById(id));
    }
    // Whoever hears of a change may delete what he likes, the list and the registry included.
    const QPointer<ActionManager> alive(&manager);
    const auto actionOf = [&](int id) {
        return alive ? alive->FindActionDataById(id)->action : nullptr;
    };
    for (const auto &[id, sequence] : sequences) {
        // The context first: the other way round the toolkit would file each shortcut twice.
        if (QAction *action = actionOf(id); action && !sequence.isEmpty())
            action->setShortcutContext(Qt::ApplicationShortcut);
        if (QAction *action = actionOf(id))
            action->setShortcut(sequence);
    }
}

ActionShortCutList WithDefaultsOfNewActions(const ActionShortCutList &list,
                                            const ActionShortCutList &defaults)
{
    std::vector<int> ids;
    list.GetActionIds(ids);
    TakenSequences chosen;
    for (const int id : ids) {
        const QKeySequence sequence = list.GetSequenceById(id);
        // An id that no default is known for belongs to a function that the program has no longer.
        if (defaults.HasEntry(id) && sequence != defaults.GetSequenceById(id))
            chosen.add(sequence);
    }
    ids.clear();
    defaults.GetActionIds(ids);
    ActionShortCutList result = list;
    for (const int id : ids) {
        const QKeySequence sequence = defaults.GetSequenceById(id);
        if (!list.HasEntry(id) && !chosen.areInTheWayOf(sequence))
            result.AssignKeySequence(id, sequence);
    }
    return result;
}
