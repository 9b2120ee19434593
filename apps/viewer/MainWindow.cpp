// SPDX-License-Identifier: GPL-2.0-or-later
// Builds the window and opens plans in it.
#include "MainWindow.h"

#include "ContextMenus.h"
#include "DocWindow.h"
#include "FileCommands.h"
#include "LinkDock.h"
#include "NoticeBar.h"
#include "Plan.h"
#include "PlanOpener.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "RecentPlans.h"
#include "SheetAddress.h"
#include "StatusLine.h"
#include "StoredViewDock.h"
#include "ToolCommands.h"
#include "ViewCommands.h"
#include "ViewControls.h"
#include "ViewerActions.h"
#include "WorkbenchDock.h"
#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <kelo_base/actions/ActionManager.h>
#include <kelo_base/dxf/PlanSession.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList droppedFiles(const QMimeData &data)
{
    QStringList files;
    for (const QUrl &url : data.urls())
        if (url.isLocalFile())
            files << url.toLocalFile();
    return files;
}

} // namespace

MainWindow::MainWindow(ViewerActions &actions, MenuConfigManager &configuration)
    : m_actions(actions),
      m_tabs(new PlanTabs),
      m_notice(new NoticeBar),
      m_opener(new PlanOpener(this)),
      m_recent(new RecentPlans(this)),
      m_status(new StatusLine(this))
{
    setAcceptDrops(true);
    resize(QSize(1280, 800).boundedTo(screen()->availableSize() * 0.94)); // and its frame
    layOut();
    addDocks();
    addCommands(configuration);
    m_document = std::make_unique<DocWindow>(
        *m_tabs,
        DocWindow::Sources{[this](const QString &plan) { return openPlan(plan); },
                           [this](const SheetAddress &sheet) { return m_links->linkedTo(sheet); }});
    m_controls = std::make_unique<ViewControls>(*this);
    connect(m_tabs, &PlanTabs::currentViewChanged, this, &MainWindow::showCurrent);
    connect(m_opener, &PlanOpener::readingChanged, this, &MainWindow::updateContext);
    connect(m_opener, &PlanOpener::progress, m_status, &StatusLine::showReading);
    connect(m_recent, &RecentPlans::chosen, this, &MainWindow::openPlan);
    showCurrent(nullptr);
}

/// The controls go before the views that they lie over.
MainWindow::~MainWindow()
{
    m_controls.reset();
    m_document.reset();
}

PlanView *MainWindow::currentView() const
{
    return m_tabs->currentView();
}

void MainWindow::layOut()
{
    m_actions.fill(*menuBar(), *m_recent);
    for (const auto &[id, record] : m_actions.manager().GetActions())
        addAction(record->action); // for its keys, also while the menu bar is hidden
    auto *bar = addToolBar(tr("Tools"));
    bar->setObjectName(u"tools"_s);
    using Id = ViewerAction;
    for (const Id id : {Id::Open, Id::ZoomIn, Id::ZoomOut, Id::WholePlan, Id::WholeSheet,
                        Id::NorthUp, Id::PreviousView, Id::NextView, Id::ShowBackdrop,
                        Id::GoToSheet, Id::StoreView, Id::ShowInPartner, Id::Workbench})
        bar->addAction(&m_actions.action(id));
    auto *middle = new QWidget;
    auto *column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_notice);
    column->addWidget(m_tabs, 1);
    setCentralWidget(middle);
    setStatusBar(new QStatusBar);
    m_status->fill(*statusBar());
}

void MainWindow::addDocks()
{
    m_storedViews = new StoredViewDock(*this);
    m_links = new LinkDock(*this);
    addDockWidget(Qt::LeftDockWidgetArea, m_storedViews);
    addDockWidget(Qt::LeftDockWidgetArea, m_links);
    addDockWidget(Qt::RightDockWidgetArea, new WorkbenchDock(*this));
}

void MainWindow::addCommands(MenuConfigManager &configuration)
{
    new FileCommands(*this);
    new ViewCommands(*this);
    new ToolCommands(*this, configuration);
    new ContextMenus(*this, configuration);
}

PlanView *MainWindow::openPlan(const QString &path)
{
    if (PlanView *view = m_tabs->viewOf(path)) {
        m_tabs->setCurrentWidget(view);
        return view;
    }
    if (m_opener->isReading()) {
        m_waiting << path;
        return nullptr;
    }
    QString why;
    const QPointer<MainWindow> alive(this);
    std::unique_ptr<PlanSession> session = m_opener->open(path, why);
    if (!alive)
        return nullptr;
    QPointer<PlanView> view; // whoever hears of it may close it
    if (session && !m_closesAfterwards) {
        view = m_tabs->add(std::make_unique<Plan>(std::move(session)));
        if (!alive || !view)
            return nullptr;
        watch(view);
        m_recent->add(view->plan().path());
        emit planOpened(view);
        if (!alive)
            return nullptr;
    }
    finishReading(why);
    return view;
}

void MainWindow::readAgain(PlanView &view)
{
    if (m_opener->isReading())
        return;
    const QPointer<MainWindow> window(this);
    const QPointer<PlanView> alive(&view); // its tab can be closed meanwhile
    QString why;
    std::unique_ptr<PlanSession> session = m_opener->open(view.plan().path(), why);
    if (!window)
        return;
    if (session && alive && m_tabs->indexOf(alive) >= 0) {
        view.plan().renew(std::move(session));
        if (!window || !alive)
            return;
        tell({}); // of a time when it could not be read
        statusBar()->showMessage(tr("%1 was read again").arg(view.plan().name()), 4000);
    }
    finishReading(why.isEmpty() ? why : tr("%1; it is shown as it was read before").arg(why));
}

void MainWindow::finishReading(const QString &why)
{
    m_status->showReading(1);
    if (!why.isEmpty())
        tellNotRead(why);
    if (m_closesAfterwards)
        QTimer::singleShot(0, this, &QWidget::close);
    else if (!m_waiting.isEmpty())
        QTimer::singleShot(0, this, [this, next = m_waiting.takeFirst()] { openPlan(next); });
}

/// Several plans may be opened at once: what was wrong with one stays while others are told.
void MainWindow::tellNotRead(const QString &why)
{
    constexpr qsizetype kMost = 6;
    if (notice().isEmpty() || notice() != m_notRead.join(u'\n'))
        m_notRead.clear();
    m_notRead.removeAll(why);
    m_notRead << why;
    m_notRead = m_notRead.mid(std::max<qsizetype>(0, m_notRead.size() - kMost));
    tell(m_notRead.join(u'\n'));
}

void MainWindow::watch(PlanView *view)
{
    connect(view, &PlanView::documentChanged, this, &MainWindow::updateContext);
    connect(view, &PlanView::historyChanged, this, &MainWindow::updateContext);
    connect(view, &PlanView::pointerMoved, m_status, &StatusLine::showPlace);
    connect(view, &PlanView::viewChanged, m_status, &StatusLine::showView);
    connect(view, &PlanView::sheetsShown, &view->plan(), &Plan::readBackdrop);
}

void MainWindow::showCurrent(PlanView *view)
{
    setWindowTitle(view ? tr("%1 - Plan viewer").arg(view->plan().name()) : tr("Plan viewer"));
    setWindowFilePath(view ? view->plan().path() : QString());
    m_status->show(view);
    updateContext();
}

void MainWindow::updateContext()
{
    const PlanView *view = currentView();
    const bool isOnSheet = view && view->currentSheet();
    m_actions.setContext(view ? kPlanIsOpen : 0U, isOnSheet ? kOnSheet : 0U);
    m_actions.action(ViewerAction::Reload).setEnabled(view && !m_opener->isReading());
    m_actions.action(ViewerAction::PreviousView).setEnabled(view && view->canGoBack());
    m_actions.action(ViewerAction::NextView).setEnabled(view && view->canGoForth());
    m_actions.action(ViewerAction::ShowBackdrop).setChecked(view && view->plan().isBackdropShown());
    m_actions.action(ViewerAction::PlaceSheets).setChecked(view && view->plan().isPlaced());
    m_status->showView();
    m_links->showObjects();
}

void MainWindow::tell(const QString &sentence)
{
    m_notice->tell(sentence);
}

QString MainWindow::notice() const
{
    return m_notice->sentence();
}

void MainWindow::bringToFront()
{
    if (isMinimized())
        showNormal();
    raise();
    activateWindow();
}

/// The window manager, the last session and the presentation menu change the state as well.
void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange)
        m_actions.action(ViewerAction::FullScreen).setChecked(isFullScreen());
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_closesAfterwards = m_opener->isReading();
    m_opener->cancel();
    event->setAccepted(!m_closesAfterwards);
    if (!m_closesAfterwards)
        m_controls->endPresentations();
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel) && m_opener->isReading())
        m_opener->cancel();
    else if (event->matches(QKeySequence::Cancel) && currentView())
        currentView()->plan().cancelBackdrop();
    else
        QMainWindow::keyPressEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction); // the plan is only read: nobody shall delete it
    event->accept();
    for (const QString &file : droppedFiles(*event->mimeData())) // the source waits for an answer
        QTimer::singleShot(0, this, [this, file] { openPlan(file); });
}
