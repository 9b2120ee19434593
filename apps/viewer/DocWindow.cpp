// SPDX-License-Identifier: GPL-2.0-or-later
// Answers for the views in the tabs.
#include "DocWindow.h"

#include "Plan.h"
#include "PlanTabs.h"
#include "PlanView.h"
#include "SheetAddress.h"
#include "SheetNeighbours.h"
#include <cmath>
#include <kelo_base/navigation/ViewGeometry.h>
#include <utility>

namespace {

/// The number of a plan as a document; sheets are counted from 1 and stay below.
constexpr qint32 kPlanNumber = docwindow::UDocItem::kMaxDocumentNumber;

/// Where the middle of a pixel lies, so that the middle of a view is that of its corner pixels.
QPointF middleOf(QPoint pixel)
{
    return QPointF(pixel) + QPointF(0.5, 0.5);
}

/// Pixels far outside stop where numbers of a widget end.
QPoint pixelAt(QPointF place)
{
    const auto whole = [](double value) {
        return static_cast<int>(std::clamp(std::floor(value), -1e9, 1e9));
    };
    return {whole(place.x()), whole(place.y())};
}

/// The page of the view's document.
SheetFrame pageOf(const PlanView &view)
{
    if (const auto sheet = view.currentSheet())
        return view.plan().sheets().frame(*sheet);
    const QRectF all = view.plan().bounds(); // its bottom() is north
    return SheetFrame({all.bottomLeft(), all.bottomRight(), all.topRight(), all.topLeft()});
}

} // namespace

DocWindow::DocWindow(PlanTabs &tabs, Sources sources) : m_tabs(tabs), m_sources(std::move(sources))
{
    SetHInstance(this);
    QObject::connect(&tabs, &PlanTabs::currentViewChanged, &m_context,
                     [this] { AnnouncePrimaryView(); });
}

DocWindow::~DocWindow()
{
    if (HInstance() == this)
        SetHInstance(nullptr);
}

PlanView *DocWindow::planView(QWidget *view) const
{
    auto *plan = qobject_cast<PlanView *>(view);
    return plan && m_tabs.indexOf(plan) >= 0 ? plan : nullptr;
}

KView *DocWindow::PrimaryView() const
{
    return m_tabs.currentView();
}

bool DocWindow::DeviceRect(QWidget *view, QRect &rect) const
{
    const PlanView *plan = planView(view);
    if (plan)
        rect = plan->rect();
    return plan != nullptr;
}

bool DocWindow::DocPageRect(QWidget *view, QRectF &rect) const
{
    const PlanView *plan = planView(view);
    if (plan)
        rect = QRectF(QPointF(), pageOf(*plan).pageSize());
    return plan != nullptr;
}

bool DocWindow::DeviceToGeo(QWidget *view, UCoord &coord) const
{
    const PlanView *plan = planView(view);
    if (plan)
        coord.geoPoint = plan->pose().toMap(middleOf(coord.devicePoint), plan->size());
    return plan != nullptr;
}

bool DocWindow::GeoToDevice(QWidget *view, UCoord &coord) const
{
    const PlanView *plan = planView(view);
    if (plan)
        coord.devicePoint = pixelAt(plan->pose().toPixel(coord.geoPoint, plan->size()));
    return plan != nullptr;
}

bool DocWindow::DeviceToDocument(QWidget *view, UCoord &coord) const
{
    const PlanView *plan = planView(view);
    if (plan)
        coord.docPoint =
            pageOf(*plan).toPage(plan->pose().toMap(middleOf(coord.devicePoint), plan->size()));
    return plan != nullptr;
}

bool DocWindow::DocumentToDevice(QWidget *view, UCoord &coord) const
{
    const PlanView *plan = planView(view);
    if (plan)
        coord.devicePoint =
            pixelAt(plan->pose().toPixel(pageOf(*plan).toMap(coord.docPoint), plan->size()));
    return plan != nullptr;
}

DocWindow::UDocItem DocWindow::itemOf(const PlanView &view, quint32 sheet)
{
    UDocItem item;
    const QString title = view.plan().sheets().title(sheet);
    item.fileName = SheetAddress{view.plan().path(), title}.toText();
    item.title = title;
    item.description = view.plan().name();
    item.documentNumber =
        static_cast<qint32>(std::min<quint32>(sheet + 1, static_cast<quint32>(kPlanNumber - 1)));
    item.pageNumber = 0;
    return item;
}

SheetAddress DocWindow::addressOf(const PlanView &view)
{
    const auto sheet = view.currentSheet();
    return {view.plan().path(), sheet ? view.plan().sheets().title(*sheet) : QString()};
}

DocWindow::UDocItem DocWindow::CurrentDocument(QWidget *view) const
{
    PlanView *plan = planView(view);
    if (!plan)
        return {};
    UDocItem item;
    if (const auto sheet = plan->currentSheet()) {
        item = itemOf(*plan, *sheet);
    } else {
        item.fileName = SheetAddress{plan->plan().path(), {}}.toText();
        item.title = plan->plan().name();
        item.documentNumber = kPlanNumber;
        item.pageNumber = 0;
    }
    item.position.geoPoint = plan->pose().middle();
    item.position.docPoint = pageOf(*plan).toPage(plan->pose().middle());
    item.rotation = qRound(plan->pose().angle());
    item.scale = static_cast<qint32>(std::clamp(MapScale(plan), 1.0, 2e9));
    return item;
}

DocWindow::ViewDetails DocWindow::CurrentDetails(QWidget *view) const
{
    return planView(view)
               ? ViewDetail::Page | ViewDetail::Rotation | ViewDetail::Scale | ViewDetail::Position
               : ViewDetails();
}

DocWindow::UDocItemList DocWindow::Neighbours(QWidget *view, PageSide side) const
{
    const PlanView *plan = planView(view);
    const auto sheet = plan ? plan->currentSheet() : std::nullopt;
    UDocItemList items;
    if (!sheet)
        return items;
    items.ownerNumber = static_cast<qint32>(*sheet + 1);
    for (const quint32 neighbour : neighboursAt(plan->plan().sheets(), *sheet, side))
        items << itemOf(*plan, neighbour);
    return items;
}

DocWindow::UDocItemList DocWindow::LinkedDocuments(QWidget *view) const
{
    const PlanView *plan = planView(view);
    return plan && m_sources.linked ? m_sources.linked(addressOf(*plan)) : UDocItemList();
}

bool DocWindow::ShowDocument(QWidget *view, const UDocItem &item)
{
    const SheetAddress address = SheetAddress::fromText(item.fileName);
    PlanView *plan = planView(view);
    const bool isOther = plan && m_tabs.viewOf(address.plan) != plan;
    if (!plan || !item.IsValid())
        return false;
    std::optional<quint32> sheet;
    if (isOther)
        plan = m_sources.open ? m_sources.open(address.plan) : nullptr;
    if (!plan)
        return false;
    if (!address.sheet.isEmpty()) {
        sheet = plan->plan().sheets().sheetWithNumber(address.sheet);
        if (!sheet)
            return false;
    }
    ViewPose pose(plan->pose().middle(), plan->pose().metresPerPixel(), item.rotation);
    if (item.position.IsValid(UCoord::ctGeo))
        pose = pose.movedTo(item.position.geoPoint);
    else if (sheet && item.position.IsValid(UCoord::ctDocument))
        pose = pose.movedTo(plan->plan().sheets().frame(*sheet).toMap(item.position.docPoint));
    else
        pose = sheet ? plan->wholeSheet(*sheet, item.rotation) : plan->wholePlan();
    const double scale = MapScale(plan);
    if (item.scale > 1 && scale > 0) // the scale of the picture follows that of the map
        pose = ViewPose(pose.middle(), plan->pose().metresPerPixel() * item.scale / scale,
                        pose.angle());
    plan->go(pose);
    return true;
}

bool DocWindow::ShowWholePage(QWidget *view, PageTurn turn)
{
    PlanView *plan = planView(view);
    if (!plan)
        return false;
    const SheetFrame page = pageOf(*plan);
    const auto &corners = page.corners();
    const double angle = turn == PageTurn::Upright ? page.angle() : plan->pose().angle();
    plan->go(ViewPose::showing({corners.begin(), corners.end()}, angle, plan->size()));
    return true;
}

bool DocWindow::MoveTo(QWidget *view, const UCoord &middle)
{
    PlanView *plan = planView(view);
    if (!plan)
        return false;
    const bool isDocument = !middle.IsValid(UCoord::ctGeo) && middle.IsValid(UCoord::ctDocument);
    plan->moveTo(
        plan->pose().movedTo(isDocument ? pageOf(*plan).toMap(middle.docPoint) : middle.geoPoint));
    return true;
}

bool DocWindow::ZoomBy(QWidget *view, double ratio)
{
    PlanView *plan = planView(view);
    if (!plan || !(ratio > 0) || !std::isfinite(ratio))
        return false;
    plan->moveTo(plan->pose().zoomed(ratio, plan->middle(), plan->size()));
    return true;
}

bool DocWindow::TurnBy(QWidget *view, double degrees)
{
    PlanView *plan = planView(view);
    if (!plan || !std::isfinite(degrees))
        return false;
    plan->moveTo(plan->pose().turned(degrees, plan->middle(), plan->size()));
    return true;
}
