// SPDX-License-Identifier: GPL-2.0-or-later
// Files that the installed spreadsheet program writes.
#include "spreadsheet/sink_p.h"

namespace spreadsheet {

BackEndState automationState()
{
    return {BackEnd::Automation, {}, QString()};
}

std::unique_ptr<Sink> makeAutomationSink(const Target &)
{
    return nullptr;
}

} // namespace spreadsheet
