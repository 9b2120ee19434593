// SPDX-License-Identifier: GPL-2.0-or-later
// The viewer's end of the command channel.
#include "PartnerChannel.h"

#include "LinkDock.h"
#include "MainWindow.h"
#include "Plan.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "StatusLine.h"
#include "ViewNavigation.h"
#include "ViewerActions.h"
#include <QAction>
#include <QIODevice>
#include <QInputDialog>
#include <QSettings>
#include <QStatusBar>
#include <kelo_base/core/ReplacedFile.h>
#include <kelo_base/core/UserDataManager.h>
#include <kelo_base/ipc/KeloCommandData.h>
#include <kelo_base/ipc/KeloIPCCommand.h>
#include <kelo_base/ipc/KeloIPCFacade.h>
#include <kelo_base/navigation/ViewGeometry.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kActive{"viewer/channel/active"};
constexpr QLatin1StringView kPartner{"viewer/channel/partner"};
const QString kModule = u"viewer"_s;

QSettings &settings()
{
    return UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
}

} // namespace

PartnerChannel::PartnerChannel(MainWindow &window, const QString &directory)
    : m_window(window), m_directory(directory)
{
    if (m_directory.isEmpty())
        m_directory = UserDataManager().GetStorageDirectoryForModule(u"exchange"_s, true);
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::ShowInPartner, this, [this] { showInPartner(); });
    actions.on(ViewerAction::ShowObjectInPartner, this, [this] { showObjectInPartner(); });
    actions.on(ViewerAction::StartPartner, this, [this] { startPartner(); });
    QAction &active = actions.action(ViewerAction::ChannelActive);
    active.setChecked(settings().value(kActive, true).toBool());
    connect(&active, &QAction::toggled, this, &PartnerChannel::switchOn);

    KeloIPCFacadeI &channel = KeloIPCFacadeI::Instance();
    connect(&channel, &KeloIPCFacadeI::PartnerRunningChanged, this, &PartnerChannel::showState);
    connect(&channel, &KeloIPCFacadeI::CommandAnswered, this,
            [this](quint64, KeloDelivery delivery) {
                if (delivery != KeloDelivery::Accepted)
                    m_window.tell(delivery == KeloDelivery::Refused
                                      ? tr("The partner does not carry the command out")
                                      : tr("The partner does not answer"));
            });
    m_look.setInterval(2000);
    connect(&m_look, &QTimer::timeout, this, &PartnerChannel::showState);
    switchOn(active.isChecked());
}

PartnerChannel::~PartnerChannel()
{
    KeloIPCFacadeI::Destroy();
}

void PartnerChannel::switchOn(bool isOn)
{
    settings().setValue(kActive, isOn);
    KeloIPCFacadeI &channel = KeloIPCFacadeI::Instance();
    if (!isOn)
        channel.Deactivate();
    else if (!channel.Activate(m_directory, *this))
        m_window.tell(tr("Commands cannot be exchanged in %1: another viewer uses it, or it cannot "
                         "be written to")
                          .arg(m_directory));
    isOn ? m_look.start() : m_look.stop();
    showState();
}

void PartnerChannel::showState()
{
    const KeloIPCFacadeI &channel = KeloIPCFacadeI::Instance();
    const bool isWanted = m_window.actions().action(ViewerAction::ChannelActive).isChecked();
    m_window.status().showChannel(!isWanted                    ? tr("Partner: off")
                                  : !channel.IsActive()        ? tr("Partner: not available")
                                  : channel.IsPartnerRunning() ? tr("Partner: runs")
                                                               : tr("Partner: waiting"));
}

bool PartnerChannel::HandleCommand(const KeloCommandData &command, const KeloCommandOrigin &)
{
    bool isDone = false;
    switch (command.commandType) {
    case kGotoCoordinates:
        isDone = goTo(command);
        break;
    case kFindDocumentsForObject:
        isDone = m_window.links().find(Tz::ObjectId(command.objectId.toStdString()));
        break;
    case kTestCommand:
        isDone = true;
        break;
    default:
        break;
    }
    if (isDone && command.bringToFront)
        m_window.bringToFront();
    return isDone;
}

/// In the plan in front, unless the place lies in another one alone.
bool PartnerChannel::goTo(const KeloCommandData &command)
{
    const QPointF place(command.x, command.y);
    PlanView *view = m_window.currentView();
    if (!view)
        return false;
    if (!view->plan().bounds().contains(place))
        for (PlanView *other : m_window.tabs().views())
            if (other->plan().bounds().contains(place))
                view = other;
    m_window.tabs().setCurrentWidget(view);
    return ::goTo(*view, {place, command.viewingHeight, command.northDeviationInDegrees});
}

/// The corners of what the view shows, clockwise from its top left, a point a line.
QString PartnerChannel::shownAreaFile(const PlanView &view) const
{
    const QRectF pixels(QPointF(), QSizeF(view.size()));
    QByteArray text;
    for (const QPointF corner :
         {pixels.topLeft(), pixels.topRight(), pixels.bottomRight(), pixels.bottomLeft()}) {
        const QPointF place = view.pose().toMap(corner, view.size());
        text += QByteArray::number(place.x(), 'f', 3) + ' ' +
                QByteArray::number(place.y(), 'f', 3) + '\n';
    }
    const QString name =
        UserDataManager().GetStorageDirectoryForModule(kModule, true) + "/shown-area.pol"_L1;
    ReplacedFile file(name);
    const bool isThere = file.Open() && file.Device().write(text) == text.size() && file.Commit();
    return isThere ? name : QString();
}

void PartnerChannel::showInPartner()
{
    PlanView *view = m_window.currentView();
    if (!view)
        return;
    const QRectF pixels(QPointF(), QSizeF(view->size()));
    const QString area = shownAreaFile(*view);
    if (area.isEmpty()) {
        m_window.tell(tr("The visible area cannot be handed to the partner: there is no room for "
                         "its file, or its folder is write-protected"));
        return;
    }
    MoveToPositionCommand move;
    move.SetBringToFront(true);
    move.SetTopLeft(view->pose().toMap(pixels.topLeft(), view->size()));
    move.SetBottomRight(view->pose().toMap(pixels.bottomRight(), view->size()));
    move.SetCenter(view->pose().middle());
    move.SetNorthDeviation(view->pose().angle());
    move.SetViewingHeight(EstimatedHeightAboveGroundLevelS(view));
    move.SetPolygonFilename(area);
    HighlightPolygonsCommand highlight;
    highlight.SetPolygonFilename(area);
    KeloIPCFacadeI &channel = KeloIPCFacadeI::Instance();
    if (channel.Send(move) == 0 || channel.Send(highlight) == 0)
        m_window.tell(tr("Commands are not exchanged: see the menu \"Partner\""));
    else
        m_window.statusBar()->showMessage(tr("Sent to the partner"), 4000);
}

/// The first object of the sheet; its link tells the place.
void PartnerChannel::showObjectInPartner()
{
    const auto objects = m_window.links().objects();
    if (objects.empty()) {
        m_window.tell(tr("No object is linked to this sheet"));
        return;
    }
    MoveToObjectCommand move;
    move.SetBringToFront(true);
    move.SetObjectId(QString::fromLatin1(objects.front().objectId.c_str()));
    move.SetClickPosition(objects.front().position);
    move.SetNorthDeviation(objects.front().northDeviation);
    move.SetViewingHeight(objects.front().viewingHeight);
    if (KeloIPCFacadeI::Instance().Send(move) == 0)
        m_window.tell(tr("Commands are not exchanged: see the menu \"Partner\""));
}

void PartnerChannel::startPartner()
{
    bool isChosen = false;
    const QString command =
        QInputDialog::getText(&m_window, tr("Start partner"), tr("Program and arguments:"),
                              QLineEdit::Normal, settings().value(kPartner).toString(), &isChosen);
    if (!isChosen || command.trimmed().isEmpty())
        return;
    settings().setValue(kPartner, command);
    if (!KeloIPCFacadeI::Instance().StartPartner(command))
        m_window.tell(tr("\"%1\" could not be started").arg(command));
}
