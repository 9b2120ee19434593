// SPDX-License-Identifier: GPL-2.0-or-later
// The page on which the context menu is put together.
#pragma once

#include "actions/configuration/actioncatalogue_p.h"
#include "actions/configuration/slotmoves_p.h"
#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>

class ActionManager;
class QLabel;
class QLineEdit;
class QTabWidget;
class QTreeView;

namespace menuconfig {

class MenuPreview;
class SlotModel;
class TrayModel;
class WorkingCopy;

/// The tray of functions, the slots, and what the menu will look like. Each edit is a step of the
/// working copy.
class ContextMenuPage : public QWidget
{
    Q_OBJECT

public:
    /// A picture of the sector menu that a layout gives, not larger than the size.
    using SectorPicture = std::function<QPixmap(const ContextMenuLayout &layout, QSize most)>;

    /// The working copy lives longer than the page. The registry may die first: what is shown then
    /// has no icons.
    ContextMenuPage(ActionManager &manager, WorkingCopy &copy, QWidget *parent = nullptr);

    /// Adds the preview of the sector menu, for a program that has one.
    void setSectorPicture(SectorPicture picture);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QWidget *newTray();
    [[nodiscard]] QWidget *newSlots();
    [[nodiscard]] QWidget *newPreviews(const ActionManager &manager);
    [[nodiscard]] std::vector<unsigned int> selectedSlots() const;
    [[nodiscard]] unsigned int currentSlot() const;
    void actOn(int key);
    void select(const std::vector<unsigned int> &places);
    void add();
    void insertEmpty();
    void remove();
    void shift(bool isUp);
    void preview();

    WorkingCopy &m_copy;
    std::shared_ptr<const ActionCatalogue> m_catalogue; ///< views look into it to their end
    SlotModel *m_slots;
    TrayModel *m_trayModel;
    QLineEdit *m_search = nullptr;
    QTreeView *m_tray = nullptr;
    QTreeView *m_slotView = nullptr;
    QTabWidget *m_previews = nullptr;
    MenuPreview *m_menu = nullptr;
    QLabel *m_warning = nullptr;
    QLabel *m_sectors = nullptr;
    SectorPicture m_sectorPicture;
};

} // namespace menuconfig
