// SPDX-License-Identifier: GPL-2.0-or-later
// The picture of the sheets with its tools, as a part of the workbench dialog.
#pragma once

#include <QWidget>
#include <vector>

class QToolButton;
class SheetPictureView;

/// Buttons to zoom, to save the picture and to learn what mouse and keys do, above the view.
class PicturePanel : public QWidget
{
    Q_OBJECT

public:
    explicit PicturePanel(QWidget *parent = nullptr);

    [[nodiscard]] SheetPictureView &view() const { return *m_view; }
    void setPlanEnabled(bool hasPlan);
    /// In the order of the keyboard.
    [[nodiscard]] std::vector<QWidget *> tabOrder() const;

signals:
    void saveWanted();

private:
    void showHelp();

    SheetPictureView *m_view;
    QToolButton *m_zoomIn;
    QToolButton *m_zoomOut;
    QToolButton *m_zoomToFit;
    QToolButton *m_save;
    QToolButton *m_help;
};
