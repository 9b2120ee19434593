// SPDX-License-Identifier: GPL-2.0-or-later
// Brings plans into the dialog: asked for, dropped, or chosen among the recent ones.
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/dxftoolskeys_p.h"
#include "dxf/workbench/dxftoolsstore_p.h"
#include "dxf/workbench/longwork_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/planopener_p.h"
#include "dxf/workbench/readingbar_p.h"
#include "dxf/workbench/readpanel_p.h"
#include "dxf/workbench/recentplans_p.h"
#include "dxf/workbench/sheetdesk_p.h"
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

/// What the reader says about a plan, with its name unless it names the plan itself.
QString sentenceFor(const QString &path, const DxfReadError &error)
{
    if (error.message.contains(path))
        return error.message;
    return error.line > 0
               ? DxfDialogTexts::ReadFailedAtLine(nameOf(path), error.line, error.message)
               : DxfDialogTexts::ReadFailed(nameOf(path), error.message);
}

QString whyNotOpen(const QString &path, const PlanOpening &opening)
{
    switch (opening.outcome) {
    case PlanOpening::Outcome::Cancelled:
        return DxfDialogTexts::ReadingCancelled(nameOf(path));
    case PlanOpening::Outcome::NotAnalysed:
        return DxfToolTexts::AnalyzeFailed();
    case PlanOpening::Outcome::NotRead:
    case PlanOpening::Outcome::Opened:
        break;
    }
    return sentenceFor(path, *opening.error);
}

/// "&1 village.dxf - /plans": the digit can be typed. A long path is shortened.
QString menuText(qsizetype position, const QString &path, const QFontMetrics &metrics)
{
    const QString text = nameOf(path) + " - "_L1 + QDir::toNativeSeparators(QFileInfo(path).path());
    const int widest = 80 * metrics.averageCharWidth();
    const QString shown = metrics.elidedText(text, Qt::ElideMiddle, widest);
    return u"&%1 "_s.arg((position + 1) % 10) + QString(shown).replace(u'&', "&&"_L1);
}

} // namespace

PlanOpener::PlanOpener(DxfToolsForm &form, SheetDesk &desk, DxfToolsStore &store, LongWork &work)
    : m_form(form), m_desk(desk), m_store(store), m_work(work)
{
    connect(&m_form.read().progress(), &ReadingBar::becameLong, this, [this] { showReading(); });
    fillRecentMenu();
    connect(&m_form.read().recentMenu(), &QMenu::aboutToShow, this, &PlanOpener::fillRecentMenu);
    connect(&m_form.read().message(), &MessageLine::actionClicked, this,
            &PlanOpener::forgetVanished);
}

bool PlanOpener::read(const QString &path)
{
    if (!m_work.begin())
        return false;
    m_isReading = true;
    m_path = path;
    const QPointer<PlanOpener> alive(this);
    PlanOpening opening = PlanSession::Open(path, m_desk.options(), progressFor(nameOf(path)));
    if (!alive) // the dialog was deleted meanwhile
        return false;
    m_isReading = false;
    m_work.end();
    m_desk.showInstead({});
    const bool isOpen{opening};
    if (isOpen)
        show(std::move(opening.session));
    else
        tellFailure(path, opening);
    m_form.setPlanEnabled(m_desk.plan() != nullptr);
    m_work.closeIfWanted();
    return isOpen;
}

/// Whoever looks where the plan will be is told what happens; drops are refused meanwhile.
void PlanOpener::showReading()
{
    if (m_isReading)
        m_desk.showInstead(DxfDialogTexts::Reading(nameOf(m_path)));
}

/// Each report handles events, in which this object may be deleted: what is needed is captured.
PlanStages PlanOpener::progressFor(const QString &name) const
{
    const QPointer<ReadingBar> progress = &m_form.read().progress();
    progress->beginStep(DxfDialogTexts::Reading(name), ReadingBar::Unit::Bytes);
    const auto advance = [progress](qint64 done, qint64 total) {
        return progress && progress->advance(done, total);
    };
    const auto analyze = [progress, advance, title = DxfDialogTexts::Analyzing(name),
                          isBegun = false](qint64 done, qint64 total) mutable {
        if (progress && !std::exchange(isBegun, true))
            progress->beginStep(title, ReadingBar::Unit::Items);
        return advance(done, total);
    };
    return {.reading = advance, .analyzing = analyze};
}

void PlanOpener::show(std::unique_ptr<PlanSession> plan)
{
    m_desk.show(std::move(plan));
    const PlanSession &shown = *m_desk.plan();
    m_form.read().message().inform(DxfDialogTexts::PlanRead(
        shown.Name(), static_cast<qint64>(shown.Drawing().Inserts().size())));
    m_form.exportMessage().clear();
    remember(shown.Path());
    emit planShown();
}

void PlanOpener::tellFailure(const QString &path, const PlanOpening &opening)
{
    QString sentence = whyNotOpen(path, opening);
    if (const PlanSession *shown = m_desk.plan())
        sentence = DxfDialogTexts::StillShown(sentence, shown->Name());
    if (opening.outcome == PlanOpening::Outcome::Cancelled)
        m_form.read().message().inform(sentence);
    else
        m_form.read().message().warn(sentence);
}

void PlanOpener::askAndRead()
{
    if (m_work.isRunning())
        return;
    const QSettings *settings = m_store.settings();
    const QString last = settings ? settings->value(dxftools::kLastUsedFile).toString() : QString();
    // Not on the stack: it is its parent's, which may be deleted while it is open.
    const QPointer<QFileDialog> dialog =
        new QFileDialog(&m_form.dialog(), DxfToolTexts::ReadFileTitle(), QFileInfo(last).path(),
                        DxfDialogTexts::PlanFiles());
    dialog->setFileMode(QFileDialog::ExistingFile);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    const QString path = isChosen ? dialog->selectedFiles().value(0) : QString();
    delete dialog.data();
    if (!path.isEmpty()) // so this object is alive
        read(path);
}

void PlanOpener::remember(const QString &path)
{
    QSettings *const settings = m_store.settings();
    if (!settings)
        return;
    settings->setValue(dxftools::kLastUsedFile, path);
    RecentPlans plans = dxftools::readRecentPlans(*settings);
    plans.Add(path);
    dxftools::writeRecentPlans(*settings, plans);
}

/// From the settings, which the toolkit holds in memory: the disk is not asked.
void PlanOpener::fillRecentMenu()
{
    QMenu *const menu = &m_form.read().recentMenu();
    menu->clear();
    QSettings *const settings = m_store.settings();
    const QStringList paths =
        settings ? dxftools::readRecentPlans(*settings).Paths() : QStringList();
    for (qsizetype i = 0; i < paths.size(); ++i) {
        QAction *const action = menu->addAction(menuText(i, paths[i], menu->fontMetrics()));
        action->setToolTip(QDir::toNativeSeparators(paths[i]));
        connect(action, &QAction::triggered, this, [this, path = paths[i]] { readRecent(path); });
    }
    if (paths.isEmpty())
        menu->addAction(DxfDialogTexts::NoRecentPlans())->setEnabled(false);
}

void PlanOpener::readRecent(const QString &path)
{
    const QPointer<PlanOpener> alive(this);
    if (read(path) || !alive || QFileInfo::exists(path))
        return;
    m_vanished = path;
    m_form.read().message().warn(m_form.read().message().text(), DxfDialogTexts::RemoveFromList());
}

void PlanOpener::forgetVanished()
{
    if (QSettings *const settings = m_store.settings()) {
        RecentPlans plans = dxftools::readRecentPlans(*settings);
        plans.Remove(m_vanished);
        dxftools::writeRecentPlans(*settings, plans);
    }
    m_form.read().message().clear();
    m_form.read().recentButton()->setFocus();
}
