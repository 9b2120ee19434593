// SPDX-License-Identifier: GPL-2.0-or-later
// Where the dialog was and how it was divided, from one time to the next.
#include "dxf/workbench/layoutmemory_p.h"

#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/dxftoolskeys_p.h"
#include "dxf/workbench/dxftoolsstore_p.h"
#include "dxf/workbench/sheetpanel_p.h"
#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>

namespace {

constexpr QSize kFirstSize(1320, 720); ///< where the screen has that much
/// What the window system puts around a window, before it has told how much that is.
constexpr QSize kFrame(16, 48);

} // namespace

LayoutMemory::LayoutMemory(QWidget *dialog, DxfToolsForm &form, DxfToolsStore &store)
    : m_dialog(dialog), m_form(form), m_store(store)
{
    const QSize room = m_dialog->screen()->availableSize() - kFrame;
    m_dialog->resize(kFirstSize.boundedTo(room)); // which is no less than the layout needs
    m_form.sides().setSizes({m_dialog->width() * 9 / 20, m_dialog->width() * 11 / 20});
    m_form.results().setSizes({m_dialog->height() * 4 / 5, m_dialog->height() / 5});
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
    layout->setValue(dxftools::kPosition, m_dialog->pos());
    layout->setValue(dxftools::kSides, m_form.sides().saveState());
    layout->setValue(dxftools::kResults, m_form.results().saveState());
    saveColumns(*layout);
}

/// As plain numbers: reading its own state from a damaged file, the header would crash.
void LayoutMemory::saveColumns(QSettings &layout) const
{
    layout.setValue(dxftools::kColumns, m_form.sheets().columnWidths());
    layout.setValue(dxftools::kSortColumn, m_form.sheets().sortColumn());
    layout.setValue(dxftools::kSortsDown, m_form.sheets().sortOrder() == Qt::DescendingOrder);
}

void LayoutMemory::restore()
{
    const QSettings *const layout = m_store.layout();
    if (!layout)
        return;
    const auto stored = [layout](QAnyStringView key) { return layout->value(key).toByteArray(); };
    if (m_dialog->restoreGeometry(stored(dxftools::kDialogGeometry)))
        restorePosition(*layout);
    m_form.sides().restoreState(stored(dxftools::kSides));
    m_form.results().restoreState(stored(dxftools::kResults));
    restoreColumns(*layout);
}

/// The geometry is that of the inside: some window managers put the frame there, and the window
/// would creep by its title bar each time.
void LayoutMemory::restorePosition(const QSettings &layout)
{
    const QPoint position = layout.value(dxftools::kPosition).toPoint();
    const bool isUsual = !(m_dialog->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
    const QScreen *const screen = QGuiApplication::screenAt(position);
    if (isUsual && screen && layout.contains(dxftools::kPosition))
        m_dialog->move(position);
}

void LayoutMemory::restoreColumns(const QSettings &layout)
{
    m_form.sheets().setColumnWidths(layout.value(dxftools::kColumns).toStringList());
    const bool sortsDown = layout.value(dxftools::kSortsDown).toBool();
    m_form.sheets().sortBy(layout.value(dxftools::kSortColumn, -1).toInt(),
                           sortsDown ? Qt::DescendingOrder : Qt::AscendingOrder);
}
