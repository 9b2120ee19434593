// SPDX-License-Identifier: GPL-2.0-or-later
// What the dialog writes: where to, writing, and the report.
#pragma once

class DxfToolsForm;
class SheetDesk;

namespace dxftools {

/// Asks for the file, writes the sheets on the desk, reports how many, and what changed where a GK2
/// file was there before. A failure is told in the
/// form as well. Does nothing when there is no plan or the user cancels; form and desk may be gone
/// afterwards.
void exportSheets(DxfToolsForm &form, SheetDesk &desk);

/// Asks for the file and draws the sheets on the desk into it. What became of it stands in the
/// form, which may be gone afterwards.
void savePicture(DxfToolsForm &form, const SheetDesk &desk);

} // namespace dxftools
