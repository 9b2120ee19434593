// SPDX-License-Identifier: GPL-2.0-or-later
// What the workbench dialog is made of, and how it is laid out.
#include "dxf/workbench/dxftoolsform_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/filterpanel_p.h"
#include "dxf/workbench/findingpanel_p.h"
#include "dxf/workbench/messageline_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/picturepanel_p.h"
#include "dxf/workbench/readpanel_p.h"
#include "dxf/workbench/sheetpanel_p.h"
#include <QBoxLayout>
#include <QDialog>
#include <QGroupBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStyle>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

QSplitter *splitter(Qt::Orientation orientation, QWidget *first, QWidget *second)
{
    auto *splitter = new QSplitter(orientation);
    splitter->addWidget(first);
    splitter->addWidget(second);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(splitter->style()->pixelMetric(QStyle::PM_LayoutLeftMargin));
    return splitter;
}

/// Scrolls up and down only, and wants as much room as what is in it.
class StepArea : public QScrollArea
{
public:
    explicit StepArea(QWidget *content)
    {
        setWidget(content);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::NoFocus);
        content->setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
    }
    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const int bar = verticalScrollBar()->sizeHint().width();
        return {widget()->minimumSizeHint().width() + bar, 8 * fontMetrics().height()};
    }
};

} // namespace

DxfToolsForm::DxfToolsForm(QDialog *dialog)
    : m_dialog(dialog),
      m_read(new ReadPanel),
      m_filter(new FilterPanel),
      m_sheets(new SheetPanel),
      m_picture(new PicturePanel),
      m_findings(new FindingPanel),
      m_about(workbench::pushButton(DxfDialogTexts::About(), u"btnAbout"_s)),
      m_exportMessage(new MessageLine),
      m_export(workbench::pushButton(DxfDialogTexts::Export(), u"btnExportAsGK2"_s)),
      m_exportTable(workbench::pushButton(DxfDialogTexts::ExportTable(), u"btnExportAsTable"_s)),
      m_close(workbench::pushButton(DxfDialogTexts::Close(), u"btnClose"_s))
{
    m_exportMessage->setObjectName(u"exportMessage"_s);
    m_exportTable->setToolTip(DxfDialogTexts::ExportTableHelp());
    m_export->setIcon(dialog->style()->standardIcon(QStyle::SP_DialogSaveButton));
    layOut();
    setTabOrder();
    setPlanEnabled(false);
    m_read->openButton()->setFocus();
}

void DxfToolsForm::layOut()
{
    m_results = splitter(Qt::Vertical, m_picture, m_findings);
    m_results->setStretchFactor(0, 4);
    m_results->setStretchFactor(1, 1);
    m_sides = splitter(Qt::Horizontal, steps(), m_results);
    m_sides->setStretchFactor(0, 2);
    m_sides->setStretchFactor(1, 3);
    auto *whole = new QVBoxLayout(m_dialog);
    whole->addWidget(m_sides, 1);
    whole->addLayout(footer());
}

QWidget *DxfToolsForm::steps()
{
    auto *group = new QGroupBox(DxfToolTexts::AnalyzeFileTitle());
    auto *analysis = new QVBoxLayout(group);
    analysis->addWidget(m_filter);
    analysis->addWidget(m_sheets, 1);
    m_analyzeGroup = group;
    auto *column = new QVBoxLayout;
    column->addWidget(m_read);
    column->addWidget(group, 1);
    return new StepArea(workbench::widgetFor(column));
}

QBoxLayout *DxfToolsForm::footer()
{
    auto *row = new QHBoxLayout;
    row->addWidget(m_about);
    row->addWidget(m_exportMessage, 1);
    row->addWidget(m_exportTable);
    row->addWidget(m_export);
    row->addWidget(m_close);
    return row;
}

void DxfToolsForm::setTabOrder()
{
    std::vector<QWidget *> order{m_read->openButton(), m_read->recentButton()};
    const auto add = [&order](const std::vector<QWidget *> &widgets) {
        order.insert(order.end(), widgets.begin(), widgets.end());
    };
    add(m_filter->tabOrder());
    add(m_sheets->tabOrder());
    add(m_picture->tabOrder());
    add({m_findings->list(), m_about, m_exportTable, m_export, m_close});
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

void DxfToolsForm::setPlanEnabled(bool hasPlan)
{
    m_hasPlan = hasPlan;
    m_sheets->setPlanEnabled(hasPlan);
    m_picture->setPlanEnabled(hasPlan);
    for (QPushButton *button : {m_export, m_exportTable})
        button->setEnabled(hasPlan);
}

void DxfToolsForm::setBusy(bool isBusy)
{
    if (isBusy)
        m_focusBefore = m_dialog->focusWidget();
    const std::vector<QWidget *> parts{m_analyzeGroup, m_results, m_about, m_exportMessage,
                                       m_close};
    for (QWidget *widget : parts)
        widget->setEnabled(!isBusy);
    m_read->setBusy(isBusy);
    for (QPushButton *button : {m_export, m_exportTable})
        button->setEnabled(m_hasPlan && !isBusy);
    if (isBusy)
        return;
    if (QWidget *const before = std::exchange(m_focusBefore, nullptr))
        before->setFocus();
}
