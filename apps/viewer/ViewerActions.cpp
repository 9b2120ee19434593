// SPDX-License-Identifier: GPL-2.0-or-later
// The table of the viewer's functions.
#include "ViewerActions.h"

#include "Glyphs.h"
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/actions/ContextMenuLayout.h>
#include <kelo_base/actions/FunctionFilter.h>

namespace {

using Id = ViewerAction;

constexpr unsigned int kAnywhere = 0;
constexpr unsigned int kPlan = kPlanIsOpen;
constexpr unsigned int kSheet = kPlanIsOpen | kOnSheet;

enum Category : int { FileMenu = 1, ViewMenu, GoMenu, PartnerMenu, SettingsMenu };

struct Function
{
    Id id;
    Category category;
    unsigned int context;
    bool isCheckable;
    const char *text; ///< to be translated
    const char *keys; ///< of the shortcut; empty: none
    const char *glyph;
};

constexpr const char *kFrame = "3,8 3,3 8,3; 16,3 21,3 21,8; 21,16 21,21 16,21; 8,21 3,21 3,16";

constexpr Function kFunctions[] = {
    {Id::Open, FileMenu, kAnywhere, false, QT_TRANSLATE_NOOP("ViewerActions", "&Open..."), "Ctrl+O",
     "3,19 3,5 9,5 11,8 19,8 19,11; 3,19 7,11 22,11 18,19 3,19"},
    {Id::Reload, FileMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "&Read again"), "F5",
     "20,12 18,17 12,20 6,17 4,12 6,7 12,4 17,6 19,8; 19,3 19,8 14,8"},
    {Id::ExportGk2, FileMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Export as &GK2..."),
     "Ctrl+E",
     "4,4 16,4 16,10; 4,4 4,20 10,20; 7,8 13,8; 7,12 11,12; 12,17 21,17; 18,14 21,17 18,20"},
    {Id::ExportTable, FileMenu, kPlan, false,
     QT_TRANSLATE_NOOP("ViewerActions", "Export as &table..."), "Ctrl+Shift+E",
     "3,4 21,4 21,20 3,20 3,4; 3,9 21,9; 3,14 21,14; 9,4 9,20"},
    {Id::SavePicture, FileMenu, kPlan, false,
     QT_TRANSLATE_NOOP("ViewerActions", "Save &picture..."), "",
     "3,5 21,5 21,19 3,19 3,5; 3,16 9,10 14,15 17,12 21,16; o 16,9 1.5"},
    {Id::CloseTab, FileMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "&Close plan"),
     "Ctrl+F4", "6,6 18,18; 18,6 6,18"},
    {Id::Quit, FileMenu, kAnywhere, false, QT_TRANSLATE_NOOP("ViewerActions", "&Quit"), "Ctrl+Q",
     "12,3 12,11; 7,6 4,10 4,15 8,20 16,20 20,15 20,10 17,6"},

    {Id::ZoomIn, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Zoom &in"), "Ctrl++",
     "o 10,10 6; 14.5,14.5 20,20; 7,10 13,10; 10,7 10,13"},
    {Id::ZoomOut, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Zoom &out"), "Ctrl+-",
     "o 10,10 6; 14.5,14.5 20,20; 7,10 13,10"},
    {Id::WholePlan, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Whole &plan"),
     "Ctrl+0", kFrame},
    {Id::WholeSheet, ViewMenu, kSheet, false, QT_TRANSLATE_NOOP("ViewerActions", "Whole &sheet"),
     "Ctrl+9",
     "3,8 3,3 8,3; 16,3 21,3 21,8; 21,16 21,21 16,21; 8,21 3,21 3,16; 8,8 16,8 16,16 8,16 8,8"},
    {Id::TurnLeft, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Turn &left"),
     "Ctrl+L", "19,19 20,13 17,8 12,6 6,9; 6,4 6,9 11,9"},
    {Id::TurnRight, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Turn &right"),
     "Ctrl+R", "5,19 4,13 7,8 12,6 18,9; 18,4 18,9 13,9"},
    {Id::NorthUp, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "&North up"), "Ctrl+U",
     "12,3 17,20 12,16 7,20 12,3; 12,3 12,16"},
    {Id::PreviousView, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Pre&vious view"),
     "Ctrl+Z", "8,4 4,8 8,12; 4,8 15,8 20,12 20,15 16,19 9,19"},
    {Id::NextView, ViewMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Ne&xt view"),
     "Ctrl+Shift+Z", "16,4 20,8 16,12; 20,8 9,8 4,12 4,15 8,19 15,19"},
    {Id::ShowBackdrop, ViewMenu, kPlan, true, QT_TRANSLATE_NOOP("ViewerActions", "&Backdrop"),
     "Ctrl+B", "3,8 7,6 11,8 15,6 21,8; 3,13 7,11 11,13 15,11 21,13; 3,18 7,16 11,18 15,16 21,18"},
    {Id::PlaceSheets, ViewMenu, kPlan, true,
     QT_TRANSLATE_NOOP("ViewerActions", "Sheets &where their inserts put them"), "",
     "4,4 12,4 12,10 4,10 4,4; 12,14 20,14 20,20 12,20 12,14; 8,13 8,17 10,17"},
    {Id::ShowControls, ViewMenu, kAnywhere, true,
     QT_TRANSLATE_NOOP("ViewerActions", "&Controls over the view"), "F8",
     "o 12,12 9; 12,5 14,12 12,19 10,12 12,5"},
    {Id::FullScreen, ViewMenu, kAnywhere, true, QT_TRANSLATE_NOOP("ViewerActions", "&Full screen"),
     "F11", "3,9 3,3 9,3; 15,3 21,3 21,9; 21,15 21,21 15,21; 9,21 3,21 3,15; 3,3 9,9; 21,21 15,15"},

    {Id::GoToSheet, GoMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Go to &sheet..."),
     "Ctrl+G", "5,3 16,3 19,6 19,21 5,21 5,3; 9,10 15,10; 9,14 15,14; 11,7 10,17; 14,7 13,17"},
    {Id::GoToCoordinates, GoMenu, kPlan, false,
     QT_TRANSLATE_NOOP("ViewerActions", "Go to &coordinates..."), "Ctrl+Shift+G",
     "o 12,12 5; 12,2 12,9; 12,15 12,22; 2,12 9,12; 15,12 22,12"},
    {Id::StoreView, GoMenu, kPlan, false, QT_TRANSLATE_NOOP("ViewerActions", "Store &view..."),
     "Ctrl+D", "7,3 17,3 17,21 12,16 7,21 7,3"},

    {Id::ShowInPartner, PartnerMenu, kPlan, false,
     QT_TRANSLATE_NOOP("ViewerActions", "Sho&w in partner"), "Ctrl+P",
     "3,5 13,5 13,13 3,13 3,5; 11,16 11,19 21,19 21,11 16,11; 8,9 17,15; 17,11 17,15 13,15"},
    {Id::ShowObjectInPartner, PartnerMenu, kSheet, false,
     QT_TRANSLATE_NOOP("ViewerActions", "Show linked &object in partner"), "",
     "o 9,9 5; 13,13 21,21; 21,15 21,21 15,21"},
    {Id::LinkObject, PartnerMenu, kSheet, false,
     QT_TRANSLATE_NOOP("ViewerActions", "&Link an object to this sheet..."), "",
     "10,14 14,10; 11,7 14,4 20,4 20,10 17,13; 13,17 10,20 4,20 4,14 7,11"},
    {Id::StartPartner, PartnerMenu, kAnywhere, false,
     QT_TRANSLATE_NOOP("ViewerActions", "S&tart partner..."), "", "7,4 19,12 7,20 7,4"},
    {Id::ChannelActive, PartnerMenu, kAnywhere, true,
     QT_TRANSLATE_NOOP("ViewerActions", "&Exchange commands"), "",
     "3,8 20,8; 16,4 20,8 16,12; 21,16 4,16; 8,12 4,16 8,20"},

    {Id::Workbench, SettingsMenu, kAnywhere, true, QT_TRANSLATE_NOOP("ViewerActions", "&Workbench"),
     "F9", "3,4 21,4 21,20 3,20 3,4; 3,9 21,9; 13,9 13,20; 6,13 10,13; 6,16 10,16"},
    {Id::StoredViews, SettingsMenu, kAnywhere, true,
     QT_TRANSLATE_NOOP("ViewerActions", "Stored &views"), "F6",
     "6,3 14,3 14,17 10,13 6,17 6,3; 17,6 17,21 13,18"},
    {Id::Links, SettingsMenu, kAnywhere, true, QT_TRANSLATE_NOOP("ViewerActions", "Linked s&heets"),
     "F7", "3,3 11,3 11,9 3,9 3,3; 13,15 21,15 21,21 13,21 13,15; 7,9 7,18 13,18"},
    {Id::SectorMenu, SettingsMenu, kAnywhere, true,
     QT_TRANSLATE_NOOP("ViewerActions", "&Right button opens the sector menu"), "",
     "o 12,12 9; o 12,12 3; 12,3 12,9; 12,15 12,21; 3,12 9,12; 15,12 21,12"},
    {Id::Configure, SettingsMenu, kAnywhere, false,
     QT_TRANSLATE_NOOP("ViewerActions", "&Keyboard and menus..."), "",
     "3,6 21,6 21,18 3,18 3,6; 6,10 7,10; 10,10 11,10; 14,10 15,10; 18,10 18.5,10; 7,14 17,14"},
    {Id::About, SettingsMenu, kAnywhere, false,
     QT_TRANSLATE_NOOP("ViewerActions", "&About this viewer"), "",
     "o 12,12 9; 12,10 12,17; 12,6 12,7"},
};

constexpr const char *kCategories[] = {
    nullptr,
    QT_TRANSLATE_NOOP("ViewerActions", "&File"),
    QT_TRANSLATE_NOOP("ViewerActions", "&View"),
    QT_TRANSLATE_NOOP("ViewerActions", "&Go"),
    QT_TRANSLATE_NOOP("ViewerActions", "&Partner"),
    QT_TRANSLATE_NOOP("ViewerActions", "&Tools"),
};

/// Before these, a line in the menu.
bool beginsGroup(Id id)
{
    constexpr Id kBegins[] = {Id::ExportGk2,    Id::CloseTab,   Id::TurnLeft,  Id::PreviousView,
                              Id::ShowBackdrop, Id::FullScreen, Id::StoreView, Id::LinkObject,
                              Id::StartPartner, Id::SectorMenu, Id::About};
    return std::ranges::find(kBegins, id) != std::end(kBegins);
}

} // namespace

ViewerActions::ViewerActions(ActionManager &manager, QObject *parent)
    : QObject(parent), m_manager(manager)
{
    for (int category = FileMenu; category <= SettingsMenu; ++category)
        manager.SetCategoryDescription(category, tr(kCategories[category]).remove(u'&'));
    manager.SetContextDescription(kPlanIsOpen, tr("with an open plan"));
    manager.SetContextDescription(kOnSheet, tr("on a sheet"));
    for (const Function &function : kFunctions) {
        m_actions.push_back(
            std::make_unique<QAction>(glyphIcon(function.glyph), tr(function.text)));
        QAction *action = m_actions.back().get();
        action->setShortcut(QKeySequence(QString::fromLatin1(function.keys)));
        action->setCheckable(function.isCheckable);
        manager.RegisterAction(MakeActionData(static_cast<int>(function.id), function.category,
                                              static_cast<int>(function.context), action, false,
                                              0));
    }
    setContext(0, 0);
}

ViewerActions::~ViewerActions() = default;

QAction &ViewerActions::action(ViewerAction id) const
{
    return *m_manager.FindActionDataById(static_cast<int>(id))->action;
}

void ViewerActions::on(ViewerAction id, QObject *context, std::function<void()> work) const
{
    connect(&action(id), &QAction::triggered, context, [work = std::move(work)] { work(); });
}

void ViewerActions::setContext(unsigned int groups, unsigned int subs)
{
    m_groups = groups;
    m_subs = subs;
    const FilterByContextId filter(static_cast<int>(groups), static_cast<int>(subs), -1);
    for (const Function &function : kFunctions) {
        const ActionData *record = m_manager.FindActionDataById(static_cast<int>(function.id));
        record->action->setEnabled(filter.accept(*record));
    }
}

void ViewerActions::fill(QMenuBar &bar, QMenu &recent) const
{
    QMenu *menu = nullptr;
    int category = 0;
    for (const Function &function : kFunctions) {
        if (!menu || function.category != category) {
            category = function.category;
            menu = bar.addMenu(tr(kCategories[category]));
        }
        if (beginsGroup(function.id))
            menu->addSeparator();
        menu->addAction(&action(function.id));
        if (function.id == Id::Open)
            menu->addMenu(&recent);
    }
}

/// Round the pointer, beginning at the top: what is needed most lies straight.
ContextMenuLayout ViewerActions::shippedLayout()
{
    constexpr Id kSlots[] = {Id::ZoomIn,  Id::PreviousView, Id::WholePlan,  Id::TurnLeft,
                             Id::ZoomOut, Id::TurnRight,    Id::WholeSheet, Id::ShowInPartner};
    ContextMenuLayout layout;
    layout.SetNumberOfSlots(static_cast<unsigned int>(std::size(kSlots)));
    for (unsigned int slot = 0; slot < std::size(kSlots); ++slot)
        layout.AssignActionIdToSlot(slot, static_cast<int>(kSlots[slot]));
    return layout;
}
