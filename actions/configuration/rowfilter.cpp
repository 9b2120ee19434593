// SPDX-License-Identifier: GPL-2.0-or-later
// Searches functions by text and keys.
#include "actions/configuration/rowfilter_p.h"

#include "actions/configuration/actioncatalogue_p.h"
#include "actions/configuration/keytext_p.h"
#include <QHash>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

struct Word
{
    QString text;
    QString keys;
};

/// Blanks around "+" part no words.
std::vector<Word> wordsOf(const QString &query)
{
    QString text = folded(query).simplified();
    text.replace(" +"_L1, "+"_L1).replace("+ "_L1, "+"_L1);
    std::vector<Word> words;
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts))
        words.push_back({word, keyWord(word)});
    return words;
}

} // namespace

RowFilter::RowFilter(const ActionCatalogue &catalogue, const ActionShortCutList &shortcuts)
{
    QHash<int, QString> categories;
    m_rows.reserve(catalogue.actions().size());
    for (const ActionInfo &info : catalogue.actions()) {
        if (!categories.contains(info.category))
            categories.insert(info.category, folded(catalogue.categoryText(info.category)));
        m_rows.push_back({folded(info.text) + u'\n' + categories.value(info.category), {}, {}});
        setShortcut(m_rows.size() - 1, shortcuts.GetSequenceById(info.id));
    }
}

void RowFilter::setShortcut(std::size_t place, const QKeySequence &sequence)
{
    m_rows[place].keys = searchableKeys(sequence);
    m_rows[place].sequence = sequence;
}

std::vector<std::size_t> RowFilter::matches(const RowQuery &query,
                                            const std::vector<bool> &isInConflict,
                                            const std::vector<bool> &isChanged) const
{
    const std::vector<Word> words = wordsOf(query.text);
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < m_rows.size(); ++place) {
        const Row &row = m_rows[place];
        const auto hasWord = [&](const Word &word) {
            return row.text.contains(word.text) || row.keys.contains(word.text) ||
                   row.keys.contains(word.keys);
        };
        if ((!query.isOnlyConflicts || isInConflict[place]) &&
            (!query.isOnlyChanged || isChanged[place]) && beginsWith(row.sequence, query.pressed) &&
            std::all_of(words.begin(), words.end(), hasWord))
            places.push_back(place);
    }
    return places;
}

bool beginsWith(const QKeySequence &sequence, const QKeySequence &beginning)
{
    if (beginning.count() > sequence.count())
        return false;
    for (uint i = 0; i < static_cast<uint>(beginning.count()); ++i) {
        if (sequence[i] != beginning[i])
            return false;
    }
    return true;
}

} // namespace menuconfig
