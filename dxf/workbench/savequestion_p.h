// SPDX-License-Identifier: GPL-2.0-or-later
// Asks under which name a file is to be saved.
#pragma once

#include <QString>

class QWidget;

namespace dxftools {

struct SaveQuestion
{
    QString title;
    QString filters; ///< of files, as file dialogs take them: the first is offered
    QString suffix;  ///< of the first filter: of the name that is offered, and of one without
};

/// Beside the plan, under its name. The suffix follows the filter that the user chooses.
/// @return empty when the user cancels, or @p parent is gone
[[nodiscard]] QString askForTarget(QWidget *parent, const QString &plan,
                                   const SaveQuestion &question);

} // namespace dxftools
