// SPDX-License-Identifier: GPL-2.0-or-later
// What the workbench dialog is made of, and how it is laid out.
#pragma once

#include <QPointer>
#include <QWidget>

class DiagnosticModel;
class EmptyHint;
class MessageLine;
class QCheckBox;
class QDialog;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QListView;
class QMenu;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTableView;
class QToolButton;
class ReadingProgress;
class SheetPictureView;
class SheetTableModel;

/// The widgets of the dialog, which owns them. The steps stand from top to bottom at one side, what
/// comes of them at the other.
class DxfToolsForm
{
public:
    explicit DxfToolsForm(QDialog *dialog);
    Q_DISABLE_COPY_MOVE(DxfToolsForm)

    /// Whatever cannot be used without a plan.
    void setPlanEnabled(bool hasPlan);
    /// While a plan is read, only that can be cancelled. Puts the focus back afterwards.
    void setReading(bool isReading);

    QPushButton *btnOpen;
    QPushButton *btnRecent;
    QMenu *recentMenu;
    QStackedWidget *readStatus; ///< the message, or while reading the progress
    MessageLine *readMessage;
    ReadingProgress *progress;

    QCheckBox *chkCorrectVertexPositions;
    QGroupBox *grpInclude;
    QLineEdit *edtIncludeTag;
    QLineEdit *edtIncludeValue;
    QGroupBox *grpExclude;
    QLineEdit *edtExcludeTag;

    SheetTableModel *sheetModel;
    QTableView *sheetList;
    EmptyHint *sheetHint;
    QLabel *lblCounter;
    QLabel *lblToBeExported;
    QPushButton *btnMarkAll;
    QPushButton *btnMarkNone;

    SheetPictureView *picture;
    QToolButton *btnZoomIn;
    QToolButton *btnZoomOut;
    QToolButton *btnZoomToFit;
    DiagnosticModel *findingModel;
    QListView *findingList;
    EmptyHint *findingHint;

    MessageLine *exportMessage;
    QPushButton *btnExportAsGK2;
    QPushButton *btnClose;

    QSplitter *sides;   ///< steps | results
    QSplitter *results; ///< picture above findings

private:
    void create();
    void nameForAccess();
    void setTabOrder();
    QWidget *readGroup();
    QWidget *analyzeGroup();
    QLayout *sheetPart();
    QWidget *picturePart();
    QWidget *findingPart();
    QLayout *footer();

    QDialog *m_dialog;
    QWidget *m_openButtons = nullptr;
    QWidget *m_analyzeGroup = nullptr;
    QPointer<QWidget> m_focusBefore; ///< reading; null unless that was shown
};
