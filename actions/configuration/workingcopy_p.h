// SPDX-License-Identifier: GPL-2.0-or-later
// The configuration that the dialog works on.
#pragma once

#include "actions/configuration/menuconfiguration_p.h"
#include <QObject>
#include <QUndoStack>

namespace menuconfig {

/// Nothing of it is in force before somebody writes it through the manager. Each edit is a step
/// that can be undone.
class WorkingCopy : public QObject
{
    Q_OBJECT

public:
    explicit WorkingCopy(MenuConfiguration start = {}, QObject *parent = nullptr);

    [[nodiscard]] const MenuConfiguration &current() const { return m_current; }
    [[nodiscard]] QUndoStack &history() { return m_history; }

    /// Becomes @p next in one step, which @p text names for people. No step when nothing differs.
    void edit(const MenuConfiguration &next, const QString &text);
    /// Starts anew, with nothing to undo.
    void startWith(MenuConfiguration start);

signals:
    /// After an edit, an undo or a redo; empty after a new start, when all may be different.
    void changed(const menuconfig::Difference &difference);

private:
    class Step;

    MenuConfiguration m_current;
    QUndoStack m_history;
};

} // namespace menuconfig
