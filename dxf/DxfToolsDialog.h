// SPDX-License-Identifier: GPL-2.0-or-later
// The workbench for the sheets of DXF plans: read, analyse, filter, export as GK2.
#pragma once

#include <QDialog>
#include <kelo_base/core/Export.h>
#include <memory>

class QPushButton;
class QSettings;

/// Reads one plan at a time and shows its sheets as a list and as a picture. Whatever goes wrong is
/// told in one sentence inside the dialog; the plan shown before stays then as it was.
///
/// Works in the GUI thread: while a plan is read or a table written, the dialog handles events and
/// can be cancelled, closed or deleted.
class KELO_BASE_EXPORT DxfToolsDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DxfToolsDialog)

public:
    /// @param store  keeps geometry, last file and recent files; not owned, and may be gone before
    ///     the dialog is. Without one they go to the user's layout and settings files, as far as
    ///     these are available.
    explicit DxfToolsDialog(QWidget *parent = nullptr, QSettings *store = nullptr);
    ~DxfToolsDialog() override;

    /// Makes it a part of another window, for good: no button to close it, results below the steps;
    /// drops, and the keys to open, are left to the window. To be called before it is shown.
    void SetEmbedded();

    /// Reads, analyses and shows a plan; returns when that is done.
    /// @return false when the plan shown is still the one of before: the reason stands in the
    ///     dialog. Also while another plan is being read or a table written, which goes on.
    bool ReadFile(const QString &path);
    [[nodiscard]] bool IsReading() const;
    /// Ends the reading that is under way, if any, as soon as control is back there.
    void CancelReading();
    /// Full name of the plan shown; empty when there is none.
    [[nodiscard]] QString FileName() const;

public slots:
    /// Asks for a plan and reads it.
    void OnOpenFileClicked();
    /// Asks for a file, writes the marked sheets among those selected to it, and reports how many
    /// records that were. Does nothing without a plan.
    void OnExportAsGK2Clicked();
    void done(int result) override;

protected:
    /// While a plan is read or a table written, cancels that first.
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void rememberTolerance();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
    QPushButton *btnExportAsGK2;
};
