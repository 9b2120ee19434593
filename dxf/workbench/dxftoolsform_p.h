// SPDX-License-Identifier: GPL-2.0-or-later
// What the workbench dialog is made of, and how it is laid out.
#pragma once

#include <QPointer>
#include <QWidget>

class FilterPanel;
class FindingPanel;
class MessageLine;
class PicturePanel;
class QBoxLayout;
class QDialog;
class QPushButton;
class QSplitter;
class ReadPanel;
class SheetPanel;

/// The panels of the dialog, which owns them. The steps stand from top to bottom at one side, what
/// comes of them at the other, and the way out at the bottom, where it is always in sight: on low
/// screens the steps scroll.
class DxfToolsForm
{
public:
    explicit DxfToolsForm(QDialog *dialog);
    Q_DISABLE_COPY_MOVE(DxfToolsForm)

    [[nodiscard]] QDialog &dialog() const { return *m_dialog; }
    [[nodiscard]] ReadPanel &read() const { return *m_read; }
    [[nodiscard]] FilterPanel &filter() const { return *m_filter; }
    [[nodiscard]] SheetPanel &sheets() const { return *m_sheets; }
    [[nodiscard]] PicturePanel &picture() const { return *m_picture; }
    [[nodiscard]] FindingPanel &findings() const { return *m_findings; }
    [[nodiscard]] MessageLine &exportMessage() const { return *m_exportMessage; }
    [[nodiscard]] QPushButton &aboutButton() const { return *m_about; }
    [[nodiscard]] QPushButton &exportButton() const { return *m_export; }
    [[nodiscard]] QPushButton &tableButton() const { return *m_exportTable; }
    [[nodiscard]] QPushButton &closeButton() const { return *m_close; }
    [[nodiscard]] QSplitter &sides() const { return *m_sides; }     ///< steps | results
    [[nodiscard]] QSplitter &results() const { return *m_results; } ///< picture above findings

    /// Whatever cannot be used without a plan.
    void setPlanEnabled(bool hasPlan);
    /// During long work, only that can be cancelled. Puts the focus back afterwards.
    void setBusy(bool isBusy);

private:
    void layOut();
    void setTabOrder();
    [[nodiscard]] QWidget *steps();
    [[nodiscard]] QBoxLayout *footer();

    QDialog *m_dialog;
    ReadPanel *m_read;
    FilterPanel *m_filter;
    SheetPanel *m_sheets;
    QWidget *m_analyzeGroup = nullptr;
    PicturePanel *m_picture;
    FindingPanel *m_findings;
    QPushButton *m_about;
    MessageLine *m_exportMessage;
    QPushButton *m_export;
    QPushButton *m_exportTable;
    QPushButton *m_close;
    QSplitter *m_sides = nullptr;
    QSplitter *m_results = nullptr;
    bool m_hasPlan = false;
    QPointer<QWidget> m_focusBefore; ///< long work; null unless that was shown
};
