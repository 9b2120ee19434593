// SPDX-License-Identifier: GPL-2.0-or-later
// The part of the workbench dialog that asks how a plan is analysed.
#include "dxf/workbench/filterpanel_p.h"

#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/filterplan_p.h"
#include "dxf/workbench/attributecompletion_p.h"
#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/offeringedit_p.h"
#include "dxf/workbench/panelparts_p.h"
#include <QBoxLayout>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <cmath>
#include <kelo_base/dxf/SheetComparison.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QGroupBox *filterGroup(const QString &title, const QString &name)
{
    auto *group = new QGroupBox(title);
    group->setObjectName(name);
    group->setAccessibleName(workbench::spoken(title)); // else it is the title around it
    group->setCheckable(true);
    group->setChecked(false);
    return group;
}

QCheckBox *checkBox(const QString &text, const QString &name, bool isChecked)
{
    auto *box = new QCheckBox(text);
    box->setObjectName(name);
    box->setChecked(isChecked);
    return box;
}

QDoubleSpinBox *toleranceField()
{
    auto *field = new QDoubleSpinBox;
    field->setObjectName(u"spnTolerance"_s);
    field->setDecimals(3);
    field->setRange(0, 1000);
    field->setSingleStep(kDefaultTolerance);
    field->setValue(kDefaultTolerance);
    field->setToolTip(DxfDialogTexts::ToleranceHelp());
    return field;
}

} // namespace

FilterPanel::FilterPanel(QWidget *parent)
    : QWidget(parent),
      m_tags(new OfferModel(this)),
      m_values(new OfferModel(this)),
      m_correct(
          checkBox(DxfToolTexts::CorrectVertexPositions(), u"chkCorrectVertexPositions"_s, true)),
      m_placed(checkBox(DxfToolTexts::ApplyInsertPosition(), u"chkApplyInsertPosition"_s, false)),
      m_tolerance(toleranceField()),
      m_include(filterGroup(DxfToolTexts::IncludeTitle(), u"grpInclude"_s)),
      m_includeTag(new OfferingEdit(m_tags, u"edtIncludeTag"_s)),
      m_includeValue(new OfferingEdit(m_values, u"edtIncludeValue"_s)),
      m_exclude(filterGroup(DxfToolTexts::ExcludeTitle(), u"grpExclude"_s)),
      m_excludeTag(new OfferingEdit(m_tags, u"edtExcludeTag"_s))
{
    layOut();
    nameForAccess();
    connectAll();
}

void FilterPanel::layOut()
{
    auto *include = new QGridLayout(m_include);
    include->addWidget(workbench::buddyLabel(DxfDialogTexts::Tag(), m_includeTag), 0, 0);
    include->addWidget(m_includeTag, 1, 0);
    include->addWidget(workbench::buddyLabel(DxfDialogTexts::Value(), m_includeValue), 0, 1);
    include->addWidget(m_includeValue, 1, 1);
    auto *exclude = new QVBoxLayout(m_exclude);
    exclude->addWidget(workbench::buddyLabel(DxfDialogTexts::ExcludeTag(), m_excludeTag));
    exclude->addWidget(m_excludeTag);
    auto *tolerance = new QHBoxLayout;
    tolerance->addWidget(workbench::buddyLabel(DxfDialogTexts::Tolerance(), m_tolerance));
    tolerance->addWidget(m_tolerance);
    tolerance->addStretch();
    auto *groups = new QHBoxLayout; // side by side: the height is the list's
    groups->addWidget(m_include, 2);
    groups->addWidget(m_exclude, 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_correct);
    column->addWidget(m_placed);
    column->addLayout(tolerance);
    column->addLayout(groups);
}

void FilterPanel::nameForAccess()
{
    m_tolerance->setAccessibleName(workbench::spoken(DxfDialogTexts::Tolerance()));
    m_includeTag->setAccessibleName(DxfDialogTexts::IncludeTagName());
    m_includeValue->setAccessibleName(DxfDialogTexts::IncludeValueName());
    m_excludeTag->setAccessibleName(DxfDialogTexts::ExcludeTagName());
    for (QLineEdit *edit : {m_includeTag, m_includeValue, m_excludeTag})
        edit->setAccessibleDescription(DxfDialogTexts::OfferHelp());
}

void FilterPanel::connectAll()
{
    for (const QGroupBox *group : {m_include, m_exclude})
        connect(group, &QGroupBox::toggled, this, &FilterPanel::filterChanged);
    for (const QLineEdit *edit : {m_includeTag, m_includeValue, m_excludeTag})
        connect(edit, &QLineEdit::textChanged, this, &FilterPanel::filterChanged);
    for (const QCheckBox *box : {m_correct, m_placed})
        connect(box, &QCheckBox::toggled, this, &FilterPanel::labelsChanged);
    connect(m_tolerance, &QDoubleSpinBox::valueChanged, this, &FilterPanel::toleranceChanged);
    // Looked for when somebody asks: of a million sheets that is not done at each key.
    connect(static_cast<OfferingEdit *>(m_includeValue), &OfferingEdit::offerWanted, this,
            &FilterPanel::offerValues);
}

AnalysisOptions FilterPanel::options() const
{
    AnalysisOptions options;
    options.order = m_correct->isChecked() ? CornerOrder::Upright : CornerOrder::AsDrawn;
    options.appliesPlacement = m_placed->isChecked();
    options.filter = dxftools::filterOf({.includes = m_include->isChecked(),
                                         .includeTag = m_includeTag->text(),
                                         .includeValue = m_includeValue->text(),
                                         .excludes = m_exclude->isChecked(),
                                         .excludeTag = m_excludeTag->text()});
    return options;
}

double FilterPanel::tolerance() const
{
    return m_tolerance->value();
}

void FilterPanel::setTolerance(double tolerance)
{
    m_tolerance->setValue(std::isfinite(tolerance) ? tolerance : kDefaultTolerance);
}

void FilterPanel::offerFrom(const DxfDrawing *drawing)
{
    m_drawing = drawing;
    m_tags->setOffers(drawing ? dxftools::offerTags(*drawing) : std::vector<AttributeOffer>());
    m_tagOfValues = QString();
    m_values->setOffers({});
}

void FilterPanel::offerValues()
{
    const QString tag = m_includeTag->text();
    const bool isKnown = !m_tagOfValues.isNull() && tag == m_tagOfValues;
    if (!m_drawing || isKnown)
        return;
    m_tagOfValues = tag.isNull() ? u""_s : tag;
    m_values->setOffers(dxftools::offerValues(*m_drawing, tag));
}

std::vector<QWidget *> FilterPanel::tabOrder() const
{
    return {m_correct,    m_placed,       m_tolerance, m_include,
            m_includeTag, m_includeValue, m_exclude,   m_excludeTag};
}
