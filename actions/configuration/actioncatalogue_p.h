// SPDX-License-Identifier: GPL-2.0-or-later
// The registered functions as plain values, for whoever searches and sorts them.
#pragma once

#include "actions/configuration/contexts_p.h"
#include <QHash>
#include <QString>
#include <optional>
#include <vector>

class ActionManager;

namespace menuconfig {

struct ActionInfo
{
    int id = -1;
    int category = 0;
    Contexts contexts;
    QString text; ///< without mnemonic and dots; never empty
};

/// What the registry knew when the catalogue was made.
class ActionCatalogue
{
public:
    ActionCatalogue() = default;
    explicit ActionCatalogue(const ActionManager &manager);
    /// @param actions   ids are unique
    /// @param contexts  their names by the one bit of each in ActionData::contextId
    ActionCatalogue(std::vector<ActionInfo> actions, QHash<int, QString> categories,
                    QHash<quint32, QString> contexts = {});

    [[nodiscard]] const std::vector<ActionInfo> &actions() const { return m_actions; }
    /// Null for an id that is not registered.
    [[nodiscard]] const ActionInfo *find(int id) const;
    /// Where in actions() the function stands.
    [[nodiscard]] std::optional<std::size_t> placeOf(int id) const;
    /// The text of the function; for an unknown id a text that gives the number.
    [[nodiscard]] QString nameOf(int id) const;
    [[nodiscard]] QString categoryText(int category) const { return m_categories.value(category); }
    /// When the function is offered, as far as that is limited.
    [[nodiscard]] QString contextText(const ActionInfo &info) const;

private:
    void index();

    std::vector<ActionInfo> m_actions; ///< by category, then in natural order of their texts
    QHash<int, QString> m_categories;
    QHash<quint32, QString> m_contexts;
    QHash<int, std::size_t> m_places;
};

/// "Save &as..." as "Save as".
[[nodiscard]] QString plainText(const QString &actionText);

} // namespace menuconfig
