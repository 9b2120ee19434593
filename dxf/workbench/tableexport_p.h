// SPDX-License-Identifier: GPL-2.0-or-later
// The sheets of the dialog as a table for spreadsheet programs.
#pragma once

class DxfToolsForm;
class LongWork;
class SheetDesk;

namespace dxftools {

/// Asks for the file and writes the marked sheets on the desk into it, with progress. What became
/// of it stands in the form. Does nothing without a plan or when the user cancels the question;
/// handles events while it works: everything may be gone afterwards.
void exportTable(DxfToolsForm &form, SheetDesk &desk, LongWork &work);

} // namespace dxftools
