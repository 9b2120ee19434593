// SPDX-License-Identifier: GPL-2.0-or-later
// The registry of all functions that a user can invoke, by id.
#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <kelo_base/actions/ActionData.h>
#include <kelo_base/core/Export.h>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class ActionValidator;
class FunctionFilter;
class QAction;
class QSignalMapper;
class QWidget;

/// Files the functions that can sit on shortcuts and in menus, gives texts and icons for them, and
/// reports each trigger through one signal. Any int is an id; callers read -1 as "no action".
///
/// Records stay until the registry is destroyed; there is no taking back. Actions and widgets are
/// not owned. They and the registry may die in any order, also while a trigger is being reported:
/// a record whose action has died keeps its id, and its action reads null.
class KELO_BASE_EXPORT ActionManager : public QObject
{
    Q_OBJECT

public:
    /// Records by ascending id, negative ids behind all others.
    using ActionMap = std::map<unsigned int, ActionData *>;

    /// @param owner  the widget that gets the actions registered without one; may be null. It does
    ///               not own the registry.
    explicit ActionManager(QWidget *owner = nullptr);
    /// Deletes the records, not their actions.
    ~ActionManager() override;

    /// Files @p data under @p id, whatever its own field says, and adds its action to @p widget
    /// (may be null), in whose window its shortcut then works. @p data belongs to the registry in
    /// every case: it is deleted, and a debug line written, when it is null, has no action, or the
    /// id is taken (also by a record whose action has died). A record that is registered already
    /// stays as it is, with a debug line too. An action registered under several ids reports each
    /// trigger once, under the last of them.
    void RegisterAction(int id, ActionData *data, QWidget *widget);
    /// The same with the owner widget.
    void RegisterAction(int id, ActionData *data);
    /// The same with the record's own id.
    void RegisterAction(ActionData *data, QWidget *widget);
    /// The same with the record's own id and the owner widget.
    void RegisterAction(ActionData *data);

    /// The record filed under @p id; null when there is none.
    [[nodiscard]] ActionData *FindActionDataById(int id) const;
    /// The record with the smallest id that has this action; null when there is none, and for null.
    [[nodiscard]] ActionData *FindActionDataByAction(const QAction *action) const;
    /// The records that are offered under @p filter, see IsOffered(), by ascending id. One that the
    /// filter registers may be among them or not.
    [[nodiscard]] std::vector<ActionData *>
    FindActionDataByFilter(const FunctionFilter &filter) const;
    /// The id under which @p record is filed, which its own field may not say; -1 when it is not
    /// registered here.
    [[nodiscard]] int FindIdOfActionData(const ActionData *record) const;
    /// The smallest id under which @p action is filed; -1 when there is none, and for null.
    [[nodiscard]] int FindIdByAction(const QAction *action) const;
    [[nodiscard]] const ActionMap &GetActions() const { return m_actions; }

    /// Sets each record's valid field to the verdict, by ascending id.
    void ValidateRegisteredActions(const ActionValidator &validator);

    void SetCategoryDescription(int category, const QString &text);
    /// The text set for the category; "Unknown Category", translated, when there is none.
    [[nodiscard]] QString GetCategoryDescription(int category) const;

    /// Says for the user when functions with this context are offered, as in "on a map".
    /// @param context  one bit of ActionData::contextId: a context group, or a sub-context
    void SetContextDescription(unsigned int context, const QString &text);
    /// The text set for the context; empty when there is none.
    [[nodiscard]] QString GetContextDescription(unsigned int context) const;

    /// Names the small icon of an action, for example ":/icons/zoom.in.png".
    void RegisterIconResource(int id, const QString &resourcePath);
    /// Paths of the small icons by action id.
    [[nodiscard]] const QMap<unsigned int, QString> &GetIconResourceMap() const { return m_icons; }
    /// Where the application keeps the large form of a registered icon, for the example above
    /// ":/flw_32x32/flw_32x32/zoom.in.png". Empty when none is registered under @p id.
    [[nodiscard]] QString GetLargeIconResource(int id) const;

    /// To be called right before QAction::trigger() by whoever triggers on the user's behalf.
    void SignalBeforeActionTrigger(QAction &action);
    void SignalAfterActionTriggered(QAction &action);

signals:
    // A listener may delete the action, and the registry too. Listeners behind it then get an
    // action that has no text and does nothing.

    /// Only SignalBeforeActionTrigger() announces; shortcuts and menus of the toolkit do not.
    void beforeActionTrigger(QAction &action);
    /// A registered action was triggered, by whatever means.
    void afterActionTriggered(QAction &action);
    /// A record was filed under @p id.
    void actionRegistered(int id);

private slots:
    void OnAfterActionTriggered(int id);

private:
    using Records = std::vector<ActionData *>;

    void listenTo(QAction *action, int id);
    void forgetAction(const QObject *action, int id);
    void announce(void (ActionManager::*signal)(QAction &), QAction &action);
    [[nodiscard]] std::shared_ptr<const Records> ascending() const;

    QWidget *m_owner;
    /// From the actions' triggers to their ids. A child of this, and shared with the triggers under
    /// way: a listener may destroy the registry while the mapper has yet to look at itself.
    std::shared_ptr<QSignalMapper> m_triggers;
    std::unordered_set<const QObject *> m_listenedTo; ///< the living actions, each once
    std::unordered_map<int, std::unique_ptr<ActionData>> m_records; ///< owns, and finds quickly
    std::unordered_map<const ActionData *, int> m_ids;              ///< the way back
    ActionMap m_actions;                                            ///< the same in order
    mutable std::shared_ptr<const Records> m_ascending; ///< in one piece, see ascending()
    std::map<int, QString> m_categories;
    std::map<unsigned int, QString> m_contexts;
    QMap<unsigned int, QString> m_icons;
};
