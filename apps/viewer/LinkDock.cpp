// SPDX-License-Identifier: GPL-2.0-or-later
// Two lists over the table of linked objects.
#include "LinkDock.h"

#include "DocWindow.h"
#include "MainWindow.h"
#include "Plan.h"
#include "PlanView.h"
#include "SheetAddress.h"
#include "ViewNavigation.h"
#include "ViewerActions.h"
#include <QAction>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QVBoxLayout>
#include <kelo_base/core/Database.h>
#include <kelo_base/navigation/ViewGeometry.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString textOf(const Tz::ObjectId &object)
{
    return QString::fromLatin1(object.c_str());
}

} // namespace

LinkDock::LinkDock(MainWindow &window)
    : QDockWidget(tr("Linked sheets")),
      m_window(window),
      m_objectList(new QListWidget),
      m_sheetList(new QListWidget),
      m_sheetTitle(new QLabel(tr("Sheets that show it:")))
{
    setObjectName(u"links"_s);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    auto *objectTitle = new QLabel(tr("Objects of this sheet:"));
    column->addWidget(objectTitle);
    column->addWidget(m_objectList, 1);
    column->addWidget(m_sheetTitle);
    column->addWidget(m_sheetList, 1);
    setWidget(content);
    for (QListWidget *list : {m_objectList, m_sheetList})
        list->setMinimumHeight(2 * fontMetrics().lineSpacing()); // for small screens
    m_objectList->setAccessibleName(objectTitle->text());
    m_sheetList->setAccessibleName(m_sheetTitle->text());
    connect(m_objectList, &QListWidget::itemActivated, this, [this](const QListWidgetItem *entry) {
        find(Tz::ObjectId(entry->text().toStdString()));
    });
    connect(m_sheetList, &QListWidget::itemActivated, this, [this](const QListWidgetItem *entry) {
        open(m_found[static_cast<std::size_t>(m_sheetList->row(entry))]);
    });
    const ViewerActions &actions = window.actions();
    actions.on(ViewerAction::LinkObject, this, [this] { askAndLink(); });
    connect(&actions.action(ViewerAction::Links), &QAction::toggled, this, &QWidget::setVisible);
    connect(this, &QDockWidget::visibilityChanged, this, [this] {
        m_window.actions().action(ViewerAction::Links).setChecked(!isHidden());
        showObjects();
    });
    hide();
}

LinkDock::~LinkDock() = default;

void LinkDock::setDatabase(Database *database)
{
    m_database = database;
    m_links = database ? std::make_unique<LinkedObjects>(*database) : nullptr;
}

bool LinkDock::find(const Tz::ObjectId &object)
{
    const auto found =
        m_links && m_links->Open() ? m_links->DocumentsForObject(object) : std::nullopt;
    if (!found || found->empty()) {
        m_window.tell(found        ? tr("No sheet shows the object %1").arg(textOf(object))
                      : m_database ? m_database->LastError()
                                   : tr("There is no database"));
        return false;
    }
    m_found = *found;
    m_sheetTitle->setText(tr("Sheets that show %1:").arg(textOf(object)));
    m_sheetList->clear();
    for (const KeloLinkedObject &link : m_found) {
        const SheetAddress address = SheetAddress::fromText(link.documentId);
        const QString plan = QFileInfo(address.plan).fileName();
        m_sheetList->addItem(address.sheet.isEmpty() ? plan
                                                     : tr("%1, sheet %2").arg(plan, address.sheet));
    }
    m_window.actions().action(ViewerAction::Links).setChecked(true);
    m_window.layout()->activate(); // the height belongs to the view as large as it is now
    m_sheetList->setCurrentRow(0);
    return open(m_found.front());
}

bool LinkDock::open(const KeloLinkedObject &link)
{
    // Now: while the plan is read, another object may be looked for, and the list replaced.
    const WantedView place{link.position, link.viewingHeight, link.northDeviation};
    PlanView *view = m_window.openPlan(SheetAddress::fromText(link.documentId).plan);
    return view && goTo(*view, place);
}

bool LinkDock::link(const QString &object)
{
    const PlanView *view = m_window.currentView();
    if (!view || !view->currentSheet() || object.isEmpty())
        return false;
    KeloLinkedObject entry;
    entry.objectId = Tz::ObjectId(object.toStdString());
    entry.documentId = DocWindow::addressOf(*view).toText();
    entry.position = view->pose().middle();
    entry.viewingHeight = EstimatedHeightAboveGroundLevelS(m_window.currentView());
    entry.northDeviation = view->pose().angle();
    const bool isDone = m_links && m_links->Open() && m_links->Store({&entry, 1});
    if (!isDone)
        m_window.tell(m_database ? m_database->LastError() : tr("There is no database"));
    m_shownFor.clear();
    showObjects();
    return isDone;
}

void LinkDock::askAndLink()
{
    bool isChosen = false;
    const QString object =
        QInputDialog::getText(&m_window, tr("Link an object"),
                              tr("Identifier of the object at the middle of the view:"),
                              QLineEdit::Normal, {}, &isChosen)
            .trimmed();
    if (isChosen && link(object))
        m_window.actions().action(ViewerAction::Links).setChecked(true);
}

std::vector<KeloLinkedObject> LinkDock::objects() const
{
    const PlanView *view = m_window.currentView();
    if (!m_links || !view || !view->currentSheet() || !m_links->Open())
        return {};
    return m_links->ObjectsInDocument(DocWindow::addressOf(*view).toText())
        .value_or(std::vector<KeloLinkedObject>());
}

/// The database is asked only while somebody sees the answer.
void LinkDock::showObjects()
{
    const PlanView *view = m_window.currentView();
    const QString document = view ? DocWindow::addressOf(*view).toText() : QString();
    if (isHidden() || document == m_shownFor)
        return;
    m_shownFor = document;
    m_objectList->clear();
    for (const KeloLinkedObject &entry : objects())
        m_objectList->addItem(textOf(entry.objectId));
}

docwindow::UDocItemList LinkDock::linkedTo(const SheetAddress &sheet) const
{
    docwindow::UDocItemList items;
    const QString document = sheet.toText();
    const auto own =
        m_links && m_links->Open() ? m_links->ObjectsInDocument(document) : std::nullopt;
    if (!own)
        return items;
    for (const KeloLinkedObject &object : *own) {
        const auto others = m_links->DocumentsForObject(object.objectId);
        if (!others)
            continue;
        for (const KeloLinkedObject &other : *others) {
            if (other.documentId == document)
                continue;
            docwindow::UDocItem item;
            item.fileName = other.documentId;
            item.title = SheetAddress::fromText(other.documentId).sheet;
            item.description = textOf(object.objectId);
            item.documentNumber = docwindow::UDocItem::kMaxDocumentNumber;
            item.rotation = qRound(other.northDeviation);
            item.position.geoPoint = other.position;
            items << item;
        }
    }
    return items;
}
