// SPDX-License-Identifier: GPL-2.0-or-later
// Registers functions, finds them again, and reports their triggers.
#include <kelo_base/actions/ActionManager.h>

#include <QAction>
#include <QDebug>
#include <QFileInfo>
#include <QPointer>
#include <QSignalMapper>
#include <QWidget>
#include <kelo_base/actions/FunctionFilter.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kNoAction = -1;

void logRefusal(const char *reason, int id)
{
    qDebug() << "ActionManager::RegisterAction" << reason << id;
}

} // namespace

ActionManager::ActionManager(QWidget *owner) : m_owner(owner), m_triggers(new QSignalMapper(this))
{
    connect(m_triggers, &QSignalMapper::mappedInt, this, &ActionManager::OnAfterActionTriggered);
    if (m_owner) // not a QPointer: those are cleared only after a widget has deleted its children
        connect(m_owner, &QObject::destroyed, this, [this] { m_owner = nullptr; });
}

ActionManager::~ActionManager()
{
    if (m_reportDepth == 0)
        return;
    // A listener destroys us. The mapper goes on reading itself after its signal: let it live until
    // the report is over.
    m_triggers->setParent(nullptr);
    m_triggers->deleteLater();
}

void ActionManager::RegisterAction(int id, ActionData *data, QWidget *widget)
{
    std::unique_ptr<ActionData> record(data); // ours from here on, refused or not
    if (!record || !record->action)
        return logRefusal(": <nullptr> added! Id :", id);
    if (!m_records.try_emplace(id, std::move(record)).second)
        return logRefusal(": Duplicate id added! Id :", id);
    m_actions.emplace(static_cast<unsigned int>(id), data);

    if (widget)
        widget->addAction(data->action);
    connect(data->action, &QAction::triggered, m_triggers, qOverload<>(&QSignalMapper::map),
            Qt::UniqueConnection);
    m_triggers->setMapping(data->action, id);
    connect(data->action, &QObject::destroyed, this, [this, id] { forgetAction(id); });
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
    for (ActionData *data : ascending()) {
        if (data->action == action)
            return data;
    }
    return nullptr;
}

std::vector<ActionData *> ActionManager::FindActionDataByFilter(const FunctionFilter &filter) const
{
    std::vector<ActionData *> accepted;
    for (ActionData *data : ascending()) {
        if (data->action && filter.accept(*data))
            accepted.push_back(data);
    }
    return accepted;
}

/// Menus filter all records each time they open, and walking a tree of nodes all over the memory
/// would take most of the time. Since records only ever come, fewer than in the map means outdated.
const std::vector<ActionData *> &ActionManager::ascending() const
{
    if (m_ascending.size() < m_actions.size()) {
        m_ascending.clear();
        for (const auto &[id, data] : m_actions)
            m_ascending.push_back(data);
    }
    return m_ascending;
}

void ActionManager::ValidateRegisteredActions(const ActionValidator &validator)
{
    for (const auto &[id, data] : m_actions)
        data->valid = validator(data);
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
    emit beforeActionTrigger(action);
}

void ActionManager::SignalAfterActionTriggered(QAction &action)
{
    emit afterActionTriggered(action);
}

void ActionManager::OnAfterActionTriggered(int id)
{
    const ActionData *data = FindActionDataById(id);
    if (!data || !data->action)
        return;
    const QPointer<ActionManager> alive(this);
    ++m_reportDepth;
    emit afterActionTriggered(*data->action);
    if (alive)
        --m_reportDepth;
}

void ActionManager::forgetAction(int id)
{
    if (ActionData *data = FindActionDataById(id))
        data->action = nullptr;
}
