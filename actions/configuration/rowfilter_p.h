// SPDX-License-Identifier: GPL-2.0-or-later
// Which functions a search finds.
#pragma once

#include <QKeySequence>
#include <QString>
#include <QStringList>
#include <kelo_base/actions/ActionShortCutList.h>
#include <unordered_set>
#include <vector>

namespace menuconfig {

class ActionCatalogue;

struct RowQuery
{
    QString text; ///< words, all of which are to be found, in the function's text or in its keys
    QKeySequence pressed; ///< keys with which the sequence begins; empty: all
    bool isOnlyConflicts = false;
    bool isOnlyChanged = false;
};

/// Looks through the functions of a catalogue. What it looks in is made once, not for each letter.
class RowFilter
{
public:
    RowFilter() = default;
    RowFilter(const ActionCatalogue &catalogue, const ActionShortCutList &shortcuts);
    /// The shortcut of the function at @p place of the catalogue is another one now.
    void setShortcut(std::size_t place, const QKeySequence &sequence);

    /// Places in the catalogue, ascending.
    [[nodiscard]] std::vector<std::size_t> matches(const RowQuery &query,
                                                   const std::vector<bool> &isInConflict,
                                                   const std::vector<bool> &isChanged) const;

private:
    struct Row
    {
        QString text; ///< folded
        QString keys;
        QKeySequence sequence;
    };
    std::vector<Row> m_rows;
};

/// Whether the first strokes of @p sequence are those of @p beginning.
[[nodiscard]] bool beginsWith(const QKeySequence &sequence, const QKeySequence &beginning);

} // namespace menuconfig
