// SPDX-License-Identifier: GPL-2.0-or-later
// The export step of the dialog: where to, writing, and the report.
#pragma once

class DxfToolsForm;
class SheetDesk;

/// Asks for the file, writes the sheets on the desk, reports how many. A failure is told in the
/// form as well. Does nothing when there is no plan or the user cancels; form and desk may be gone
/// afterwards.
void ExportSheets(DxfToolsForm &form, const SheetDesk &desk);
