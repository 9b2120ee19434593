// SPDX-License-Identifier: GPL-2.0-or-later
// The picture of the sheets with its tools, as a part of the workbench dialog.
#include "dxf/workbench/picturepanel_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/panelparts_p.h"
#include "dxf/workbench/sheetpictureview_p.h"
#include <QBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QWhatsThis>

using namespace Qt::Literals::StringLiterals;

PicturePanel::PicturePanel(QWidget *parent)
    : QWidget(parent),
      m_view(new SheetPictureView),
      m_zoomIn(workbench::iconButton(DxfDialogTexts::ZoomIn(), u"btnZoomIn"_s, u"zoom-in"_s)),
      m_zoomOut(workbench::iconButton(DxfDialogTexts::ZoomOut(), u"btnZoomOut"_s, u"zoom-out"_s)),
      m_zoomToFit(
          workbench::iconButton(DxfDialogTexts::ZoomToFit(), u"btnZoomToFit"_s, u"zoom-fit"_s)),
      m_save(workbench::iconButton(DxfDialogTexts::SavePicture(), u"btnSavePicture"_s,
                                   u"save-picture"_s)),
      m_help(workbench::iconButton(DxfDialogTexts::PictureHelp(), u"btnPictureHelp"_s, u"help"_s))
{
    auto *tools = new QHBoxLayout;
    tools->addWidget(workbench::buddyLabel(DxfDialogTexts::Picture(), m_view));
    tools->addStretch();
    for (QToolButton *button : {m_zoomIn, m_zoomOut, m_zoomToFit, m_save, m_help})
        tools->addWidget(button);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(tools);
    column->addWidget(m_view, 1);
    connect(m_zoomIn, &QToolButton::clicked, m_view, &SheetPictureView::zoomIn);
    connect(m_zoomOut, &QToolButton::clicked, m_view, &SheetPictureView::zoomOut);
    connect(m_zoomToFit, &QToolButton::clicked, m_view, &SheetPictureView::zoomToFit);
    connect(m_save, &QToolButton::clicked, this, &PicturePanel::saveWanted);
    connect(m_help, &QToolButton::clicked, this, &PicturePanel::showHelp);
}

void PicturePanel::setPlanEnabled(bool hasPlan)
{
    for (QToolButton *button : {m_zoomIn, m_zoomOut, m_zoomToFit, m_save})
        button->setEnabled(hasPlan);
}

void PicturePanel::showHelp()
{
    const QString text =
        u"<p>%1</p><p>%2</p>"_s.arg(DxfToolTexts::PictureMouseHelp(), DxfToolTexts::PictureHelp());
    QWhatsThis::showText(m_help->mapToGlobal(QPoint(0, m_help->height())), text, m_help);
}

std::vector<QWidget *> PicturePanel::tabOrder() const
{
    return {m_view, m_zoomIn, m_zoomOut, m_zoomToFit, m_save, m_help};
}
