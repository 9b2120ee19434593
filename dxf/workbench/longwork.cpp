// SPDX-License-Identifier: GPL-2.0-or-later
// The one long work that the workbench dialog does at a time.
#include "dxf/workbench/longwork_p.h"

#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/readingbar_p.h"
#include "dxf/workbench/readpanel_p.h"
#include <utility>

LongWork::LongWork(DxfToolsForm &form) : m_form(form)
{
    connect(&m_form.read().progress(), &ReadingBar::becameLong, this,
            [this] { m_form.setBusy(true); });
}

bool LongWork::begin()
{
    if (m_isRunning)
        return false;
    m_isRunning = true;
    m_closesAfterwards = false;
    m_form.read().progress().begin();
    return true;
}

void LongWork::end()
{
    m_isRunning = false;
    m_form.setBusy(false);
}

void LongWork::closeIfWanted()
{
    if (std::exchange(m_closesAfterwards, false))
        emit closeWanted();
}

void LongWork::cancel()
{
    if (m_isRunning)
        m_form.read().progress().cancel();
}

void LongWork::cancelAndClose()
{
    m_closesAfterwards = true;
    cancel();
}
