// SPDX-License-Identifier: GPL-2.0-or-later
// The navigation controls over the plans.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class MainWindow;

/// Lays them over every view, and makes room while views are presented. While it lives there must
/// be a document window.
class ViewControls : public QObject
{
    Q_OBJECT

public:
    explicit ViewControls(MainWindow &window);
    ~ViewControls() override;

    /// Nothing of a presentation shall be remembered as the state of the window.
    void endPresentations();

private:
    void present(bool isPresenting);

    MainWindow &m_window;
    QList<QPointer<QWidget>> m_hidden; ///< while presenting; what people hide stays hidden
};
