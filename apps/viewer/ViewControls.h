// SPDX-License-Identifier: GPL-2.0-or-later
// The navigation controls over the plans.
#pragma once

#include <QObject>

class MainWindow;

/// Lays them over every view, and makes room while views are presented. While it lives there must
/// be a document window.
class ViewControls : public QObject
{
    Q_OBJECT

public:
    explicit ViewControls(MainWindow &window);
    ~ViewControls() override;

private:
    void present(bool isPresenting);

    MainWindow &m_window;
};
