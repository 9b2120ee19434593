// SPDX-License-Identifier: GPL-2.0-or-later
// Brings plans into the dialog: asked for, dropped, or chosen among the recent ones.
#pragma once

#include <QObject>
#include <QString>
#include <memory>

class DxfToolsForm;
class DxfToolsStore;
class LongWork;
class SheetDesk;
class PlanSession;
struct PlanStages;
struct PlanOpening;

/// Reads one plan at a time, with progress, and puts it on the desk; or says why not. Nothing of
/// the plan shown before changes until the new one is complete.
class PlanOpener : public QObject
{
    Q_OBJECT

public:
    PlanOpener(DxfToolsForm &form, SheetDesk &desk, DxfToolsStore &store, LongWork &work);

    /// Handles events while it works; this object may be gone afterwards.
    bool read(const QString &path);
    void askAndRead();
    [[nodiscard]] bool isReading() const { return m_isReading; }

signals:
    void planShown();

private:
    void showReading();
    [[nodiscard]] PlanStages progressFor(const QString &name) const;
    void show(std::unique_ptr<PlanSession> plan);
    void tellFailure(const QString &path, const PlanOpening &opening);
    void remember(const QString &path);
    void fillRecentMenu();
    void readRecent(const QString &path);
    void forgetVanished();

    DxfToolsForm &m_form;
    SheetDesk &m_desk;
    DxfToolsStore &m_store;
    LongWork &m_work;
    bool m_isReading = false;
    QString m_path;     ///< being read
    QString m_vanished; ///< the recent plan that the message offers to remove
};
