// SPDX-License-Identifier: GPL-2.0-or-later
// Puts the context menu together.
#include "actions/configuration/contextmenupage_p.h"

#include "actions/configuration/contextmenumodels_p.h"
#include "actions/configuration/menupreview_p.h"
#include "actions/configuration/workingcopy_p.h"
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeView>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr QSize kSectorRoom(300, 300);
constexpr int kTrayWidth = 290; // in proportion to the others
constexpr int kSlotsWidth = 250;
constexpr int kPreviewWidth = 340;

QTreeView *newView(QAbstractItemModel &model, const QString &name)
{
    auto *view = new QTreeView;
    view->setModel(&model);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setAllColumnsShowFocus(true);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setDragDropMode(QAbstractItemView::DragDrop);
    view->setDefaultDropAction(Qt::MoveAction);
    view->setAccessibleName(name);
    return view;
}

QWidget *newColumn(const QString &title, QWidget *buddy, const QWidgetList &widgets)
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins({});
    auto *label = new QLabel(title);
    label->setBuddy(buddy);
    layout->addWidget(label);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return column;
}

} // namespace

ContextMenuPage::ContextMenuPage(ActionManager &manager, WorkingCopy &copy, QWidget *parent)
    : QWidget(parent),
      m_copy(copy),
      m_catalogue(std::make_shared<const ActionCatalogue>(manager)),
      m_slots(new SlotModel(manager, m_catalogue, copy, this)),
      m_trayModel(new TrayModel(manager, m_catalogue, copy, *m_slots, this))
{
    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(newTray());
    splitter->addWidget(newSlots());
    splitter->addWidget(newPreviews(manager));
    splitter->setSizes({kTrayWidth, kSlotsWidth, kPreviewWidth});
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    connect(m_slots, &SlotModel::edited, this, &ContextMenuPage::select);
    connect(&copy, &WorkingCopy::changed, this, &ContextMenuPage::preview);
    preview();
}

void ContextMenuPage::setSectorPicture(SectorPicture picture)
{
    m_sectorPicture = std::move(picture);
    if (!m_sectors) {
        m_sectors = new QLabel;
        m_sectors->setAlignment(Qt::AlignCenter);
        m_sectors->setAccessibleName(tr("Preview of the sector menu"));
        auto *area = new QScrollArea;
        area->setWidget(m_sectors);
        area->setWidgetResizable(true);
        m_previews->addTab(area, tr("Sector Menu"));
    }
    preview();
}

QWidget *ContextMenuPage::newTray()
{
    m_search = new QLineEdit;
    m_search->setPlaceholderText(tr("Search functions"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, m_trayModel, &TrayModel::search);
    m_tray = newView(*m_trayModel, tr("Functions"));
    m_tray->setObjectName(u"tray"_s);
    m_tray->header()->setStretchLastSection(false);
    m_tray->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tray->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    m_tray->setMinimumWidth(240);
    connect(m_tray, &QTreeView::activated, this, &ContextMenuPage::add);
    auto *put = new QPushButton(tr("Put into &Menu"));
    connect(put, &QPushButton::clicked, this, &ContextMenuPage::add);
    return newColumn(tr("&Functions:"), m_search, {m_search, m_tray, put});
}

QWidget *ContextMenuPage::newSlots()
{
    m_slotView = newView(*m_slots, tr("Slots of the context menu"));
    m_slotView->setObjectName(u"slots"_s);
    m_slotView->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_slotView->setMinimumWidth(220);
    m_slotView->installEventFilter(this);
    auto *buttons = new QWidget;
    auto *grid = new QGridLayout(buttons);
    grid->setContentsMargins({});
    const auto addButton = [&](const QString &text, const QKeySequence &keys, auto act) {
        auto *button = new QPushButton(text);
        button->setToolTip(keys.toString(QKeySequence::NativeText));
        connect(button, &QPushButton::clicked, this, act);
        const int place = grid->count();
        grid->addWidget(button, place / 2, place % 2);
    };
    addButton(tr("Mo&ve Up"), Qt::ALT | Qt::Key_Up, [this] { shift(true); });
    addButton(tr("Empt&y Slot"), Qt::Key_Insert, [this] { insertEmpty(); });
    addButton(tr("Move &Down"), Qt::ALT | Qt::Key_Down, [this] { shift(false); });
    addButton(tr("&Remove"), Qt::Key_Delete, [this] { remove(); });
    return newColumn(tr("Slo&ts:"), m_slotView, {m_slotView, buttons});
}

QWidget *ContextMenuPage::newPreviews(const ActionManager &manager)
{
    m_menu = new MenuPreview(manager);
    auto *area = new QScrollArea;
    area->setWidget(m_menu);
    area->setAlignment(Qt::AlignCenter);
    m_previews = new QTabWidget;
    m_previews->addTab(area, tr("Context Menu"));
    m_previews->setMinimumWidth(220);
    m_warning = new QLabel;
    m_warning->setWordWrap(true);
    return newColumn(tr("Preview:"), nullptr, {m_previews, m_warning});
}

/// The keys of the slots come before any shortcut of the program.
bool ContextMenuPage::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    if (watched != m_slotView || (!isKey && event->type() != QEvent::ShortcutOverride))
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
    const bool isVertical = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
    const bool isOther = key->key() == Qt::Key_Insert || key->key() == Qt::Key_Delete;
    const bool isOurs =
        (isVertical && modifiers == Qt::AltModifier) || (isOther && modifiers == Qt::NoModifier);
    if (!isOurs)
        return QWidget::eventFilter(watched, event);
    event->accept();
    if (isKey)
        actOn(key->key());
    return isKey;
}

void ContextMenuPage::actOn(int key)
{
    if (key == Qt::Key_Insert)
        insertEmpty();
    else if (key == Qt::Key_Delete)
        remove();
    else
        shift(key == Qt::Key_Up);
}

std::vector<unsigned int> ContextMenuPage::selectedSlots() const
{
    std::vector<unsigned int> chosen;
    const QModelIndexList rows = m_slotView->selectionModel()->selectedRows();
    chosen.reserve(static_cast<std::size_t>(rows.size()));
    for (const QModelIndex &index : rows)
        chosen.push_back(static_cast<unsigned int>(index.row()));
    return chosen;
}

/// The end when there is none.
unsigned int ContextMenuPage::currentSlot() const
{
    const QModelIndex current = m_slotView->currentIndex();
    return static_cast<unsigned int>(current.isValid() ? current.row() : m_slots->rowCount());
}

void ContextMenuPage::select(const std::vector<unsigned int> &places)
{
    QItemSelection selection;
    for (const unsigned int slot : places) {
        const int row = static_cast<int>(slot);
        selection.select(m_slots->index(row, 0), m_slots->index(row, 1));
    }
    if (places.empty())
        return;
    const QModelIndex first = m_slots->index(static_cast<int>(places.front()), 0);
    m_slotView->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    m_slotView->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_slotView->scrollTo(first);
}

/// Into the current slot when that is empty, else behind it.
void ContextMenuPage::add()
{
    std::vector<int> ids;
    QModelIndexList rows = m_tray->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    ids.reserve(static_cast<std::size_t>(rows.size()));
    for (const QModelIndex &index : rows)
        ids.push_back(m_trayModel->idAt(index.row()));
    if (ids.empty())
        return;
    const ContextMenuLayout &layout = m_copy.current().layout;
    const unsigned int slot = currentSlot();
    const bool isFree = slot < layout.NumberOfSlots() && !layout.HasAssignedAction(slot);
    if (isFree && ids.size() == 1)
        m_slots->carryOut(slotsFilled(layout, ids, slot), tr("Fill Slots"));
    else
        m_slots->carryOut(slotsInserted(layout, ids, slot + 1), tr("Insert Functions"));
}

void ContextMenuPage::insertEmpty()
{
    m_slots->carryOut(slotsInserted(m_copy.current().layout, {kEmptySlot}, currentSlot()),
                      tr("Insert Empty Slot"));
}

void ContextMenuPage::remove()
{
    m_slots->carryOut(slotsDeleted(m_copy.current().layout, selectedSlots()), tr("Empty Slots"));
}

void ContextMenuPage::shift(bool isUp)
{
    m_slots->carryOut(slotsShifted(m_copy.current().layout, selectedSlots(), isUp),
                      tr("Move Slots"));
}

void ContextMenuPage::preview()
{
    m_menu->show(m_copy.current());
    m_warning->setText(m_menu->warning());
    m_warning->setVisible(!m_menu->warning().isEmpty());
    if (m_sectors && m_sectorPicture)
        m_sectors->setPixmap(m_sectorPicture(m_copy.current().layout, kSectorRoom));
}

} // namespace menuconfig
