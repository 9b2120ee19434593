// SPDX-License-Identifier: GPL-2.0-or-later
// Completes tags and values in the filter fields from what the plan holds.
#pragma once

#include <QObject>
#include <QStringListModel>
#include <kelo_base/dxf/DxfDrawing.h>

class DxfToolsForm;
class TagModel;

class FilterCompletion : public QObject
{
    Q_OBJECT

public:
    explicit FilterCompletion(DxfToolsForm &form);

    /// Offers the tags of a drawing.
    void offerTags(const DxfDrawing &drawing);
    /// Offers the values under the tag that stands in its field.
    void offerValues(const DxfDrawing &drawing);

private:
    DxfToolsForm &m_form;
    TagModel *m_tags;
    QStringListModel *m_values;
};
