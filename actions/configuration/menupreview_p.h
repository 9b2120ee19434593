// SPDX-License-Identifier: GPL-2.0-or-later
// The context menu as it will open, without being one.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <vector>

class ActionManager;

namespace menuconfig {

struct MenuConfiguration;

/// Paints the menu that a configuration gives, with a mark beside each entry whose mnemonic another
/// one has too. Nothing can be chosen from it.
class MenuPreview : public QWidget
{
    Q_OBJECT

public:
    explicit MenuPreview(const ActionManager &manager, QWidget *parent = nullptr);

    void show(const MenuConfiguration &configuration);
    /// The letters that clash, in a sentence; empty when none does.
    [[nodiscard]] const QString &warning() const { return m_warning; }
    [[nodiscard]] const QMenu &menu() const { return m_menu; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void findClashes();
    [[nodiscard]] int gutter() const;

    QPointer<const ActionManager> m_manager;
    QMenu m_menu;
    std::vector<QAction *> m_clashing; ///< of the menu
    QString m_warning;
};

} // namespace menuconfig
