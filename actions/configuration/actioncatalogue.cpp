// SPDX-License-Identifier: GPL-2.0-or-later
// Takes the registered functions down.
#include "actions/configuration/actioncatalogue_p.h"

#include "actions/configuration/menuconfigtexts_p.h"
#include <QAction>
#include <QStringList>
#include <algorithm>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/core/NaturalOrder.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

ActionCatalogue::ActionCatalogue(const ActionManager &manager)
{
    m_actions.reserve(manager.GetActions().size());
    for (const auto &[key, data] : manager.GetActions()) {
        if (!data->action)
            continue;
        const int id = static_cast<int>(key);
        if (!m_categories.contains(data->category))
            m_categories.insert(data->category, manager.GetCategoryDescription(data->category));
        const QString text = plainText(data->action->text());
        m_actions.push_back({id, data->category, Contexts::of(data->contextId, data->contextMask),
                             text.isEmpty() ? Texts::functionNumber(id) : text});
    }
    for (quint32 context = 1; context != 0; context <<= 1)
        m_contexts.insert(context, manager.GetContextDescription(context));
    index();
}

ActionCatalogue::ActionCatalogue(std::vector<ActionInfo> actions, QHash<int, QString> categories,
                                 QHash<quint32, QString> contexts)
    : m_actions(std::move(actions)),
      m_categories(std::move(categories)),
      m_contexts(std::move(contexts))
{
    index();
}

const ActionInfo *ActionCatalogue::find(int id) const
{
    const auto place = m_places.constFind(id);
    return place == m_places.cend() ? nullptr : &m_actions[*place];
}

std::optional<std::size_t> ActionCatalogue::placeOf(int id) const
{
    const auto place = m_places.constFind(id);
    return place == m_places.cend() ? std::nullopt : std::optional(*place);
}

QString ActionCatalogue::nameOf(int id) const
{
    const ActionInfo *info = find(id);
    return info ? info->text : Texts::functionNumber(id);
}

QString ActionCatalogue::contextText(const ActionInfo &info) const
{
    const auto named = [this](quint32 bits, int shift, auto numbered) {
        QStringList names;
        for (int bit = 0; bit < 16; ++bit) {
            const QString name = m_contexts.value(1U << (bit + shift));
            if ((bits >> bit) & 1U)
                names << (name.isEmpty() ? numbered(bit + 1) : name);
        }
        return names.join(u", "_s);
    };
    QStringList parts;
    if (info.contexts.groups != Contexts::kAny)
        parts << named(info.contexts.groups, 16, &Texts::contextGroup);
    if (info.contexts.subs != Contexts::kAny)
        parts << named(info.contexts.subs, 0, &Texts::subContext);
    if (info.contexts.modes != 0xFFFFFFFFU)
        parts << Texts::someModes();
    return parts.isEmpty() ? Texts::everywhere() : parts.join(u"; "_s);
}

void ActionCatalogue::index()
{
    const auto precedes = [](const ActionInfo &one, const ActionInfo &other) {
        if (one.category != other.category)
            return one.category < other.category;
        return caseInsensitiveNaturalOrderLessThen(one.text, other.text);
    };
    std::stable_sort(m_actions.begin(), m_actions.end(), precedes);
    m_places.reserve(static_cast<qsizetype>(m_actions.size()));
    for (std::size_t place = 0; place < m_actions.size(); ++place)
        m_places.insert(m_actions[place].id, place);
}

QString plainText(const QString &actionText)
{
    QString text;
    text.reserve(actionText.size());
    for (qsizetype i = 0; i < actionText.size(); ++i) {
        const bool marksLetter = actionText[i] == u'&' && i + 1 < actionText.size();
        text += actionText[marksLetter ? ++i : i];
    }
    while (text.endsWith(u'.') || text.endsWith(u'…') || text.endsWith(u' '))
        text.chop(1);
    return text.section(u'\t', 0, 0).trimmed(); // behind a tab stands a shortcut
}

} // namespace menuconfig
