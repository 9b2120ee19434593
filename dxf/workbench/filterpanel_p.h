// SPDX-License-Identifier: GPL-2.0-or-later
// The part of the workbench dialog that asks how a plan is analysed.
#pragma once

#include <QWidget>
#include <kelo_base/dxf/PlanSession.h>
#include <vector>

class OfferModel;
class QCheckBox;
class QDoubleSpinBox;
class QGroupBox;
class QLineEdit;

/// The options of the corners and the filter. Its fields offer what the plan has.
class FilterPanel : public QWidget
{
    Q_OBJECT

public:
    explicit FilterPanel(QWidget *parent = nullptr);

    [[nodiscard]] AnalysisOptions options() const;
    /// How far a sheet may go, in units of the plan, before it counts as moved; 0 or more.
    [[nodiscard]] double tolerance() const;
    void setTolerance(double tolerance);
    /// Offers the tags of a drawing, and from now on those of its values that belong to the tag
    /// entered. The drawing must stay until the next call; null offers nothing.
    void offerFrom(const DxfDrawing *drawing);
    /// In the order of the keyboard.
    [[nodiscard]] std::vector<QWidget *> tabOrder() const;

signals:
    void filterChanged();
    /// Which corner is which, and where, has to be found out anew.
    void labelsChanged();
    void toleranceChanged(double tolerance);

private:
    void layOut();
    void nameForAccess();
    void connectAll();
    void offerValues();

    const DxfDrawing *m_drawing = nullptr;
    OfferModel *m_tags;
    OfferModel *m_values;
    QString m_tagOfValues; ///< null when the values are to be looked for anew
    QCheckBox *m_correct;
    QCheckBox *m_placed;
    QDoubleSpinBox *m_tolerance;
    QGroupBox *m_include;
    QLineEdit *m_includeTag;
    QLineEdit *m_includeValue;
    QGroupBox *m_exclude;
    QLineEdit *m_excludeTag;
};
