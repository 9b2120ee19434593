// SPDX-License-Identifier: GPL-2.0-or-later
// Registers functions, finds them again, and reports their triggers.
#include <kelo_base/actions/ActionManager.h>

#include <QAction>
#include <QDebug>
#include <QFileInfo>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalMapper>
#include <QWidget>
#include <algorithm>
#include <kelo_base/actions/FunctionFilter.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kNoAction = -1;

void logRefusal(const char *reason, int id)
{
    qDebug() << "ActionManager::RegisterAction" << reason << id;
}

} // namespace

ActionManager::ActionManager(QWidget *owner)
    : m_owner(owner), m_triggers(std::make_shared<QSignalMapper>())
{
    m_triggers->setParent(this);
    connect(m_triggers.get(), &QSignalMapper::mappedInt, this,
            &ActionManager::OnAfterActionTriggered);
    if (m_owner) // not a QPointer: those are cleared only after a widget has deleted its children
        connect(m_owner, &QObject::destroyed, this, [this] { m_owner = nullptr; });
}

ActionManager::~ActionManager()
{
    m_triggers->setParent(nullptr); // whoever shares it last deletes it
}

void ActionManager::RegisterAction(int id, ActionData *data, QWidget *widget)
{
    if (m_ids.count(data))
        return logRefusal(": Record is registered already! Id :", id);
    std::unique_ptr<ActionData> record(data); // ours from here on, refused or not
    if (!record || !record->action)
        return logRefusal(": <nullptr> added! Id :", id);
    if (!m_records.try_emplace(id, std::move(record)).second)
        return logRefusal(": Duplicate id added! Id :", id);
    m_actions.emplace(static_cast<unsigned int>(id), data);
    m_ids.emplace(data, id);
    listenTo(data->action, id);

    const QPointer<ActionManager> alive(this);
    if (widget) // which hears of it, and may do what it likes
        widget->addAction(data->action);
    if (alive)
        emit actionRegistered(id);
}

void ActionManager::listenTo(QAction *action, int id)
{
    m_triggers->setMapping(action, id);
    connect(action, &QObject::destroyed, this,
            [this, id](const QObject *died) { forgetAction(died, id); });
    if (m_listenedTo.insert(action).second)
        connect(action, &QAction::triggered, this,
                [mapper = m_triggers, action] { mapper->map(action); });
}

void ActionManager::RegisterAction(int id, ActionData *data)
{
    RegisterAction(id, data, m_owner);
}

void ActionManager::RegisterAction(ActionData *data, QWidget *widget)
{
    RegisterAction(data ? data->id : kNoAction, data, widget);
}

void ActionManager::RegisterAction(ActionData *data)
{
    RegisterAction(data, m_owner);
}

ActionData *ActionManager::FindActionDataById(int id) const
{
    const auto found = m_records.find(id);
    return found == m_records.end() ? nullptr : found->second.get();
}

ActionData *ActionManager::FindActionDataByAction(const QAction *action) const
{
    if (!action) // would find a record whose action has died
        return nullptr;
    const auto records = ascending();
    const auto found = std::find_if(records->begin(), records->end(),
                                    [&](const ActionData *data) { return data->action == action; });
    return found == records->end() ? nullptr : *found;
}

std::vector<ActionData *> ActionManager::FindActionDataByFilter(const FunctionFilter &filter) const
{
    const QPointer<const ActionManager> alive(this);
    const auto records = ascending(); // held here, since the filter may register more
    Records offered;
    for (ActionData *data : *records) {
        const bool isOffered = IsOffered(*data, filter);
        if (!alive)
            return {};
        if (isOffered)
            offered.push_back(data);
    }
    return offered;
}

int ActionManager::FindIdOfActionData(const ActionData *record) const
{
    const auto found = m_ids.find(record);
    return found == m_ids.end() ? kNoAction : found->second;
}

int ActionManager::FindIdByAction(const QAction *action) const
{
    return FindIdOfActionData(FindActionDataByAction(action));
}

/// Menus filter all records each time they open, and walking a tree of nodes all over the memory
/// would take most of the time. Since records only ever come, fewer than in the map means outdated.
std::shared_ptr<const ActionManager::Records> ActionManager::ascending() const
{
    if (!m_ascending || m_ascending->size() < m_actions.size()) {
        Records records;
        records.reserve(m_actions.size());
        for (const auto &[id, data] : m_actions)
            records.push_back(data);
        m_ascending = std::make_shared<const Records>(std::move(records));
    }
    return m_ascending;
}

void ActionManager::ValidateRegisteredActions(const ActionValidator &validator)
{
    const QPointer<ActionManager> alive(this);
    for (const auto &[id, data] : m_actions) {
        const bool isValid = validator(data);
        if (!alive)
            return;
        data->valid = isValid;
    }
}

void ActionManager::SetCategoryDescription(int category, const QString &text)
{
    m_categories.insert_or_assign(category, text);
}

QString ActionManager::GetCategoryDescription(int category) const
{
    const auto found = m_categories.find(category);
    return found == m_categories.end() ? tr("Unknown Category") : found->second;
}

void ActionManager::SetContextDescription(unsigned int context, const QString &text)
{
    m_contexts.insert_or_assign(context, text);
}

QString ActionManager::GetContextDescription(unsigned int context) const
{
    const auto found = m_contexts.find(context);
    return found == m_contexts.end() ? QString() : found->second;
}

void ActionManager::RegisterIconResource(int id, const QString &resourcePath)
{
    m_icons.insert(static_cast<unsigned int>(id), resourcePath);
}

QString ActionManager::GetLargeIconResource(int id) const
{
    const auto icon = m_icons.find(static_cast<unsigned int>(id));
    if (icon == m_icons.end())
        return QString();
    return ":/flw_32x32/flw_32x32/"_L1 + QFileInfo(*icon).completeBaseName() + ".png"_L1;
}

void ActionManager::SignalBeforeActionTrigger(QAction &action)
{
    announce(&ActionManager::beforeActionTrigger, action);
}

void ActionManager::SignalAfterActionTriggered(QAction &action)
{
    announce(&ActionManager::afterActionTriggered, action);
}

void ActionManager::OnAfterActionTriggered(int id)
{
    const ActionData *data = FindActionDataById(id);
    if (data && data->action)
        announce(&ActionManager::afterActionTriggered, *data->action);
}

/// Emits a signal by hand. It differs from what moc writes only in that the argument can be
/// replaced under way: when a listener deletes the action, those behind it must not get a dangling
/// reference.
void ActionManager::announce(void (ActionManager::*signal)(QAction &), QAction &action)
{
    QAction nothing;
    void *arguments[] = {nullptr,
                         &action}; // first the place for a result, of which signals have none
    connect(&action, &QObject::destroyed, &nothing, [&] { arguments[1] = &nothing; });
    const int index = QMetaMethod::fromSignal(signal).methodIndex();
    QMetaObject::activate(this, &staticMetaObject, index - staticMetaObject.methodOffset(),
                          arguments);
}

void ActionManager::forgetAction(const QObject *action, int id)
{
    m_listenedTo.erase(action);
    if (ActionData *data = FindActionDataById(id))
        data->action = nullptr;
}
