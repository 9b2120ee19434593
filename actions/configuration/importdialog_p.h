// SPDX-License-Identifier: GPL-2.0-or-later
// Shows what an import would change, to be taken or skipped row by row.
#pragma once

#include "actions/configuration/importplan_p.h"
#include <QDialog>

class QTreeWidget;

namespace menuconfig {

class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    ImportDialog(ImportPlan plan, const ActionCatalogue &catalogue, QWidget *parent = nullptr);
    /// With the user's choice.
    [[nodiscard]] ImportPlan plan() const;

private:
    void fill(const ActionCatalogue &catalogue);
    void checkAll(Qt::CheckState state);

    ImportPlan m_plan;
    QTreeWidget *m_list;
};

} // namespace menuconfig
