// SPDX-License-Identifier: GPL-2.0-or-later
// Where the dialog was and how it was divided, from one time to the next.
#include "dxf/dxftoolsform_p.h"
#include "dxf/dxftoolskeys_p.h"
#include "dxf/dxftoolsstore_p.h"
#include "dxf/layoutmemory_p.h"
#include <QHeaderView>
#include <QSplitter>
#include <QTableView>

namespace {

/// Fits a screen of 1366 x 768 with its panels.
constexpr QSize kMinimumSize(900, 600);
constexpr QSize kFirstSize(1240, 680);

} // namespace

LayoutMemory::LayoutMemory(QWidget *dialog, DxfToolsForm &form, DxfToolsStore &store)
    : m_dialog(dialog), m_form(form), m_store(store)
{
    m_dialog->setMinimumSize(kMinimumSize.expandedTo(m_dialog->minimumSizeHint()));
    m_dialog->resize(kFirstSize);
    m_form.sides->setSizes({480, 760});
    m_form.results->setSizes({480, 110});
    restore();
    if (UserDataManagerI *const manager = m_store.manager())
        connect(manager, &UserDataManagerI::onSavingUserConfigFiles, this, &LayoutMemory::save);
}

void LayoutMemory::save()
{
    QSettings *const layout = m_store.layout();
    if (!layout)
        return;
    layout->setValue(dxftools::kDialogGeometry, m_dialog->saveGeometry());
    layout->setValue(dxftools::kSides, m_form.sides->saveState());
    layout->setValue(dxftools::kResults, m_form.results->saveState());
    layout->setValue(dxftools::kColumns, m_form.sheetList->horizontalHeader()->saveState());
}

void LayoutMemory::restore()
{
    const QSettings *const layout = m_store.layout();
    if (!layout)
        return;
    const auto stored = [layout](QAnyStringView key) { return layout->value(key).toByteArray(); };
    m_dialog->restoreGeometry(stored(dxftools::kDialogGeometry));
    m_form.sides->restoreState(stored(dxftools::kSides));
    m_form.results->restoreState(stored(dxftools::kResults));
    m_form.sheetList->horizontalHeader()->restoreState(stored(dxftools::kColumns));
}
