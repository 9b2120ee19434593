// SPDX-License-Identifier: GPL-2.0-or-later
// Where users choose their keyboard shortcuts and put their context menu together.
#pragma once

#include <QDialog>
#include <functional>
#include <kelo_base/core/Export.h>
#include <memory>

class ActionManager;
class ContextMenuLayout;
class MenuConfigManager;
class QPixmap;
class QSize;

/// Works on a copy of the current configuration. Nothing is in force before OK or Apply, which
/// write it through the manager, store it, and give the actions their shortcuts. Only what is done
/// with named configurations as a whole (new, copy, rename, delete, switch) is done at once.
///
/// The manager, the registry and actions are not owned, and may die while the dialog is open: it
/// then says so, and applies nothing any more.
class KELO_BASE_EXPORT MenuConfigDialog : public QDialog
{
    Q_OBJECT

public:
    MenuConfigDialog(MenuConfigManager &manager, ActionManager &actions, QWidget *parent = nullptr);
    ~MenuConfigDialog() override;

    /// Opens the page of the shortcuts at the row of this action; nothing happens for an unknown
    /// id.
    void ShowAction(int id);
    /// Adds a preview of the sector menu to the page of the context menu.
    /// @param picture  paints what a layout gives, not larger than the size
    void SetSectorPicture(std::function<QPixmap(const ContextMenuLayout &, QSize)> picture);
    /// What the button of that name does. False, and nothing changed, when it cannot be done; the
    /// dialog says why.
    bool Apply();

    void accept() override;
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};
