// SPDX-License-Identifier: GPL-2.0-or-later
// Where the dialog was and how it was divided, from one time to the next.
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/dxftoolskeys_p.h"
#include "dxf/workbench/dxftoolsstore_p.h"
#include "dxf/workbench/layoutmemory_p.h"
#include <QHeaderView>
#include <QSplitter>
#include <QTableView>
#include <algorithm>

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
    saveColumns(*layout);
}

/// As plain numbers: reading its own state from a damaged file, the header would crash.
void LayoutMemory::saveColumns(QSettings &layout) const
{
    const QHeaderView &header = *m_form.sheetList->horizontalHeader();
    QStringList widths;
    for (int column = 0; column < header.count(); ++column)
        widths << QString::number(header.sectionSize(column));
    layout.setValue(dxftools::kColumns, widths);
    layout.setValue(dxftools::kSortColumn, header.sortIndicatorSection());
    layout.setValue(dxftools::kSortsDown, header.sortIndicatorOrder() == Qt::DescendingOrder);
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
    restoreColumns(*layout);
}

void LayoutMemory::restoreColumns(const QSettings &layout)
{
    constexpr int kWidest = 2000;
    const QStringList widths = layout.value(dxftools::kColumns).toStringList();
    const int columns = static_cast<int>(
        std::min<qsizetype>(widths.size(), m_form.sheetList->horizontalHeader()->count()));
    for (int column = 0; column < columns; ++column)
        if (const int width = widths[column].toInt(); width > 0)
            m_form.sheetList->setColumnWidth(column, std::min(width, kWidest));
    const bool sortsDown = layout.value(dxftools::kSortsDown).toBool();
    m_form.sheetList->sortByColumn(layout.value(dxftools::kSortColumn, -1).toInt(),
                                   sortsDown ? Qt::DescendingOrder : Qt::AscendingOrder);
}
