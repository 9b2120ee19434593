// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps a configuration and the steps that led to it.
#include "actions/configuration/workingcopy_p.h"

#include <QUndoCommand>
#include <utility>

namespace menuconfig {

class WorkingCopy::Step : public QUndoCommand
{
public:
    Step(WorkingCopy &copy, Difference difference, const QString &text)
        : QUndoCommand(text), m_copy(copy), m_difference(std::move(difference))
    {
    }
    void redo() override
    {
        m_difference.applyTo(m_copy.m_current);
        emit m_copy.changed(m_difference);
    }
    void undo() override
    {
        m_difference.revertIn(m_copy.m_current);
        emit m_copy.changed(m_difference);
    }

private:
    WorkingCopy &m_copy; // which owns the history, and with it the step
    Difference m_difference;
};

WorkingCopy::WorkingCopy(MenuConfiguration start, QObject *parent)
    : QObject(parent), m_current(std::move(start))
{
}

void WorkingCopy::edit(const MenuConfiguration &next, const QString &text)
{
    Difference difference = differenceOf(m_current, next);
    if (!difference.isEmpty())
        m_history.push(new Step(*this, std::move(difference), text));
}

void WorkingCopy::startWith(MenuConfiguration start)
{
    m_history.clear();
    m_current = std::move(start);
    emit changed({});
}

} // namespace menuconfig
