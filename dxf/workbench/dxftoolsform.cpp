// SPDX-License-Identifier: GPL-2.0-or-later
// What the workbench dialog is made of, and how it is laid out.
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/diagnosticmodel_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/emptyhint_p.h"
#include "dxf/workbench/inkicon_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/readingprogress_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include "dxf/workbench/sheettablemodel_p.h"
#include <QBoxLayout>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Long captions have as much air at their sides as short ones.
class RoomyButton : public QPushButton
{
public:
    using QPushButton::QPushButton;
    [[nodiscard]] QSize sizeHint() const override
    {
        return QPushButton::sizeHint() + QSize(fontMetrics().height(), 0);
    }
};

QPushButton *button(const QString &text, const QString &name)
{
    auto *button = new RoomyButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false); // Enter in a filter field shall not press anything
    return button;
}

QToolButton *zoomButton(const QString &text, const QString &name, const QString &icon)
{
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setIcon(InkIcon(u":/kelo_base/images/%1.svg"_s.arg(icon)));
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QLineEdit *field(const QString &name)
{
    auto *edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setClearButtonEnabled(true);
    edit->setAcceptDrops(false); // a plan dropped here shall reach the dialog
    return edit;
}

QGroupBox *filterGroup(const QString &title, const QString &name)
{
    auto *group = new QGroupBox(title);
    group->setObjectName(name);
    group->setCheckable(true);
    group->setChecked(false);
    return group;
}

QLabel *buddyLabel(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

/// Numbers end at the right, where the next column begins: air keeps them apart.
QString withAir(const QString &number)
{
    return number + QString(2, QChar::Nbsp);
}

class NumberDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QString displayText(const QVariant &value, const QLocale &) const override
    {
        return withAir(value.toString());
    }
};

class SheetHeader : public QHeaderView
{
public:
    using QHeaderView::QHeaderView;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *option, int section) const override
    {
        QHeaderView::initStyleOptionForIndex(option, section);
        if (section == SheetTableModel::NumberColumn)
            option->text = withAir(option->text);
    }
};

QTableView *tableOf(QAbstractItemModel *model)
{
    auto *table = new QTableView;
    table->setObjectName(u"sheetList"_s);
    table->setHorizontalHeader(new SheetHeader(Qt::Horizontal, table));
    table->setModel(model);
    table->setItemDelegateForColumn(SheetTableModel::NumberColumn, new NumberDelegate(table));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setWordWrap(false);
    table->setSortingEnabled(true);
    table->sortByColumn(-1, Qt::AscendingOrder); // the order of the export
    table->verticalHeader()->hide();
    // Rows of one height: a million of them are not asked for theirs.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() * 3 / 2);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionsClickable(true);
    const int character = table->fontMetrics().averageCharWidth();
    table->setColumnWidth(SheetTableModel::NumberColumn, 14 * character); // with its check box
    table->setColumnWidth(SheetTableModel::ValueColumn, 11 * character);
    table->setColumnWidth(SheetTableModel::BlockColumn, 15 * character);
    table->setColumnWidth(SheetTableModel::CornersColumn, 8 * character); // at the least
    return table;
}

/// Shows how grave a finding is.
class FindingDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const int severity = index.data(DiagnosticModel::kSeverityRole).toInt();
        const bool isWarning = severity == static_cast<int>(Severity::Warning);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = option->widget->style()->standardIcon(
            isWarning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation);
    }
};

QListView *listOf(QAbstractItemModel *model)
{
    auto *list = new QListView;
    list->setObjectName(u"findingList"_s);
    list->setModel(model);
    list->setUniformItemSizes(true);
    const int icon = list->style()->pixelMetric(QStyle::PM_SmallIconSize);
    list->setIconSize({icon, icon});
    list->setItemDelegate(new FindingDelegate(list));
    list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return list;
}

/// A widget for a layout in a splitter, or to be disabled as a whole.
QWidget *widgetFor(QLayout *layout)
{
    auto *widget = new QWidget;
    layout->setContentsMargins({});
    widget->setLayout(layout);
    return widget;
}

QSplitter *splitter(Qt::Orientation orientation, QWidget *first, QWidget *second)
{
    auto *splitter = new QSplitter(orientation);
    splitter->addWidget(first);
    splitter->addWidget(second);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(splitter->style()->pixelMetric(QStyle::PM_LayoutLeftMargin));
    return splitter;
}

} // namespace

DxfToolsForm::DxfToolsForm(QDialog *dialog) : m_dialog(dialog)
{
    create();
    nameForAccess();
    auto *steps = new QVBoxLayout;
    steps->addWidget(readGroup());
    steps->addWidget(m_analyzeGroup = analyzeGroup(), 1);
    results = splitter(Qt::Vertical, picturePart(), findingPart());
    results->setStretchFactor(0, 4);
    results->setStretchFactor(1, 1);
    sides = splitter(Qt::Horizontal, widgetFor(steps), results);
    sides->setStretchFactor(0, 2);
    sides->setStretchFactor(1, 3);
    auto *whole = new QVBoxLayout(dialog);
    whole->addWidget(sides, 1);
    whole->addLayout(footer());
    setTabOrder();
    setPlanEnabled(false);
    btnOpen->setFocus();
}

void DxfToolsForm::create()
{
    btnOpen = button(DxfDialogTexts::Open(), u"btnOpen"_s);
    btnOpen->setIcon(m_dialog->style()->standardIcon(QStyle::SP_DialogOpenButton));
    btnRecent = button(DxfDialogTexts::Recent(), u"btnRecent"_s);
    recentMenu = new QMenu(btnRecent);
    recentMenu->setToolTipsVisible(true);
    btnRecent->setMenu(recentMenu);
    readMessage = new MessageLine;
    readMessage->setObjectName(u"readMessage"_s);
    progress = new ReadingProgress;

    chkCorrectVertexPositions = new QCheckBox(DxfToolTexts::CorrectVertexPositions());
    chkCorrectVertexPositions->setObjectName(u"chkCorrectVertexPositions"_s);
    chkCorrectVertexPositions->setChecked(true);
    grpInclude = filterGroup(DxfToolTexts::IncludeTitle(), u"grpInclude"_s);
    edtIncludeTag = field(u"edtIncludeTag"_s);
    edtIncludeValue = field(u"edtIncludeValue"_s);
    grpExclude = filterGroup(DxfToolTexts::ExcludeTitle(), u"grpExclude"_s);
    edtExcludeTag = field(u"edtExcludeTag"_s);

    sheetModel = new SheetTableModel(m_dialog);
    sheetList = tableOf(sheetModel);
    sheetHint = new EmptyHint(sheetList);
    lblCounter = new QLabel(QString::number(0));
    lblCounter->setObjectName(u"lblCounter"_s);
    lblToBeExported = new QLabel;
    lblToBeExported->setObjectName(u"lblToBeExported"_s);
    btnMarkAll = button(DxfDialogTexts::MarkAll(), u"btnMarkAll"_s);
    btnMarkNone = button(DxfDialogTexts::MarkNone(), u"btnMarkNone"_s);

    picture = new SheetPictureView;
    btnZoomIn = zoomButton(DxfDialogTexts::ZoomIn(), u"btnZoomIn"_s, u"zoom-in"_s);
    btnZoomOut = zoomButton(DxfDialogTexts::ZoomOut(), u"btnZoomOut"_s, u"zoom-out"_s);
    btnZoomToFit = zoomButton(DxfDialogTexts::ZoomToFit(), u"btnZoomToFit"_s, u"zoom-fit"_s);
    findingModel = new DiagnosticModel(m_dialog);
    findingList = listOf(findingModel);
    findingHint = new EmptyHint(findingList);

    exportMessage = new MessageLine;
    exportMessage->setObjectName(u"exportMessage"_s);
    btnExportAsGK2 = button(DxfDialogTexts::Export(), u"btnExportAsGK2"_s);
    btnExportAsGK2->setIcon(m_dialog->style()->standardIcon(QStyle::SP_DialogSaveButton));
    btnClose = button(DxfDialogTexts::Close(), u"btnClose"_s);
}

void DxfToolsForm::nameForAccess()
{
    edtIncludeTag->setAccessibleName(DxfDialogTexts::IncludeTagName());
    edtIncludeValue->setAccessibleName(DxfDialogTexts::IncludeValueName());
    edtExcludeTag->setAccessibleName(DxfDialogTexts::ExcludeTagName());
    sheetList->setAccessibleName(DxfDialogTexts::SheetListName());
    lblCounter->setAccessibleDescription(DxfDialogTexts::CounterName()); // its name is the number
    findingList->setAccessibleName(DxfDialogTexts::FindingsName());
}

void DxfToolsForm::setTabOrder()
{
    QWidget *const order[] = {btnOpen,     btnRecent,      chkCorrectVertexPositions,
                              grpInclude,  edtIncludeTag,  edtIncludeValue,
                              grpExclude,  edtExcludeTag,  sheetList,
                              btnMarkAll,  btnMarkNone,    picture,
                              btnZoomIn,   btnZoomOut,     btnZoomToFit,
                              findingList, btnExportAsGK2, btnClose};
    for (std::size_t i = 1; i < std::size(order); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

QWidget *DxfToolsForm::readGroup()
{
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(btnOpen);
    buttons->addWidget(btnRecent);
    buttons->addStretch();
    m_openButtons = widgetFor(buttons);
    readStatus = new QStackedWidget; // as high as the higher one, so nothing moves
    readStatus->addWidget(readMessage);
    readStatus->addWidget(progress);
    auto *group = new QGroupBox(DxfToolTexts::ReadFileTitle());
    auto *column = new QVBoxLayout(group);
    column->addWidget(m_openButtons);
    column->addWidget(readStatus);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return group;
}

QWidget *DxfToolsForm::analyzeGroup()
{
    auto *include = new QHBoxLayout(grpInclude);
    include->addWidget(buddyLabel(DxfDialogTexts::Tag(), edtIncludeTag));
    include->addWidget(edtIncludeTag);
    include->addWidget(buddyLabel(DxfDialogTexts::Value(), edtIncludeValue));
    include->addWidget(edtIncludeValue);
    auto *exclude = new QHBoxLayout(grpExclude);
    exclude->addWidget(buddyLabel(DxfDialogTexts::ExcludeTag(), edtExcludeTag));
    exclude->addWidget(edtExcludeTag);
    auto *group = new QGroupBox(DxfToolTexts::AnalyzeFileTitle());
    auto *column = new QVBoxLayout(group);
    column->addWidget(chkCorrectVertexPositions);
    column->addWidget(grpInclude);
    column->addWidget(grpExclude);
    column->addLayout(sheetPart(), 1);
    return group;
}

QLayout *DxfToolsForm::sheetPart()
{
    QFont bold = lblCounter->font();
    bold.setBold(true);
    lblCounter->setFont(bold);
    auto *counts = new QHBoxLayout;
    counts->addWidget(buddyLabel(DxfDialogTexts::SheetList(), sheetList));
    counts->addWidget(lblCounter);
    counts->addStretch();
    counts->addWidget(lblToBeExported);
    auto *marks = new QHBoxLayout;
    marks->addWidget(btnMarkAll);
    marks->addWidget(btnMarkNone);
    marks->addStretch();
    auto *column = new QVBoxLayout;
    column->addLayout(counts);
    column->addWidget(sheetList, 1);
    column->addLayout(marks);
    return column;
}

QWidget *DxfToolsForm::picturePart()
{
    auto *tools = new QHBoxLayout;
    tools->addWidget(buddyLabel(DxfDialogTexts::Picture(), picture));
    tools->addStretch();
    for (QToolButton *zoom : {btnZoomIn, btnZoomOut, btnZoomToFit})
        tools->addWidget(zoom);
    auto *column = new QVBoxLayout;
    column->addLayout(tools);
    column->addWidget(picture, 1);
    return widgetFor(column);
}

QWidget *DxfToolsForm::findingPart()
{
    auto *column = new QVBoxLayout;
    column->addWidget(buddyLabel(DxfDialogTexts::Findings(), findingList), 0, Qt::AlignLeft);
    column->addWidget(findingList, 1);
    return widgetFor(column);
}

QLayout *DxfToolsForm::footer()
{
    auto *row = new QHBoxLayout;
    row->addWidget(exportMessage, 1);
    row->addWidget(btnExportAsGK2);
    row->addWidget(btnClose);
    return row;
}

void DxfToolsForm::setPlanEnabled(bool hasPlan)
{
    for (QWidget *widget :
         {static_cast<QWidget *>(btnMarkAll), static_cast<QWidget *>(btnMarkNone),
          static_cast<QWidget *>(btnZoomIn), static_cast<QWidget *>(btnZoomOut),
          static_cast<QWidget *>(btnZoomToFit), static_cast<QWidget *>(btnExportAsGK2)})
        widget->setEnabled(hasPlan);
}

void DxfToolsForm::setReading(bool isReading)
{
    if (isReading)
        m_focusBefore = m_dialog->focusWidget();
    for (QWidget *widget : {m_openButtons, m_analyzeGroup, static_cast<QWidget *>(results),
                            static_cast<QWidget *>(exportMessage)})
        widget->setEnabled(!isReading);
    btnClose->setEnabled(!isReading);
    if (isReading) {
        btnExportAsGK2->setEnabled(false);
        readStatus->setCurrentWidget(progress);
        progress->setFocus();
    } else {
        readStatus->setCurrentWidget(readMessage);
        if (QWidget *const before = std::exchange(m_focusBefore, nullptr))
            before->setFocus();
    }
}
