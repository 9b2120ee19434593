// SPDX-License-Identifier: GPL-2.0-or-later
// The choice among the style sheets.
#pragma once

#include <QPointer>
#include <QWidget>
#include <kelo_base/actions/MenuConfigManager.h>

class QComboBox;

namespace menuconfig {

/// What is chosen looks so at once, and is remembered in the manager's store. Hidden where there is
/// nothing to choose.
class StyleChoice : public QWidget
{
    Q_OBJECT

public:
    /// The manager is not owned, and may die first.
    explicit StyleChoice(MenuConfigManager &manager, QWidget *parent = nullptr);

signals:
    /// One sentence about what failed; an empty one after what went well.
    void reported(const QString &sentence);

private:
    [[nodiscard]] QString stored() const;
    void fill();
    void choose();

    QPointer<MenuConfigManager> m_manager;
    QComboBox *m_files;
};

} // namespace menuconfig
