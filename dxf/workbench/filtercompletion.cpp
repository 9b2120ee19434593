// SPDX-License-Identifier: GPL-2.0-or-later
// Completes tags and values in the filter fields from what the plan holds.
#include "dxf/workbench/attributecompletion_p.h"
#include "dxf/workbench/dxftoolsform_p.h"
#include "dxf/workbench/filtercompletion_p.h"
#include <QCompleter>
#include <QLineEdit>

namespace {

void complete(QLineEdit *edit, QAbstractItemModel *model)
{
    auto *completer = new QCompleter(model, edit);
    completer->setCompletionRole(Qt::EditRole);
    completer->setCaseSensitivity(Qt::CaseInsensitive); // finds what the filter would not
    completer->setFilterMode(Qt::MatchContains);
    edit->setCompleter(completer);
}

} // namespace

FilterCompletion::FilterCompletion(DxfToolsForm &form)
    : m_form(form), m_tags(new TagModel(this)), m_values(new QStringListModel(this))
{
    complete(m_form.edtIncludeTag, m_tags);
    complete(m_form.edtExcludeTag, m_tags);
    complete(m_form.edtIncludeValue, m_values);
}

void FilterCompletion::offerTags(const DxfDrawing &drawing)
{
    m_tags->setTags(OfferTags(drawing));
}

void FilterCompletion::offerValues(const DxfDrawing &drawing)
{
    const QStringList values = OfferValues(drawing, m_form.edtIncludeTag->text());
    if (values != m_values->stringList()) // a list that pops up would lose its place
        m_values->setStringList(values);
}
