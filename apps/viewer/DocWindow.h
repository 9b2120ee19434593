// SPDX-License-Identifier: GPL-2.0-or-later
// What the navigation controls are told of this viewer.
#pragma once

#include <QObject>
#include <functional>
#include <kelo_base/navigation/DocWindowXIfc.h>

class PlanTabs;
class PlanView;
struct SheetAddress;

/// A document is the sheet under the middle of a view; where there is none, the plan. Its page has
/// metres as units, the origin at its top left, y growing downwards.
class DocWindow : public DocWindowXIfc
{
public:
    /// Where the viewer looks for what it keeps itself. Each may be empty.
    struct Sources
    {
        std::function<PlanView *(const QString &plan)> open; ///< null when that failed
        std::function<UDocItemList(const SheetAddress &)> linked;
    };

    /// @param tabs  not owned; outlives this
    DocWindow(PlanTabs &tabs, Sources sources);
    ~DocWindow() override;

    [[nodiscard]] KView *PrimaryView() const override;
    [[nodiscard]] bool DeviceRect(QWidget *view, QRect &rect) const override;
    [[nodiscard]] bool DocPageRect(QWidget *view, QRectF &rect) const override;
    [[nodiscard]] bool DeviceToGeo(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] bool GeoToDevice(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] bool DeviceToDocument(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] bool DocumentToDevice(QWidget *view, UCoord &coord) const override;
    [[nodiscard]] UDocItem CurrentDocument(QWidget *view) const override;
    [[nodiscard]] ViewDetails CurrentDetails(QWidget *view) const override;
    [[nodiscard]] UDocItemList Neighbours(QWidget *view, PageSide side) const override;
    [[nodiscard]] UDocItemList LinkedDocuments(QWidget *view) const override;
    bool ShowDocument(QWidget *view, const UDocItem &item) override;
    bool ShowWholePage(QWidget *view, PageTurn turn) override;
    bool MoveTo(QWidget *view, const UCoord &middle) override;
    bool ZoomBy(QWidget *view, double ratio) override;
    bool TurnBy(QWidget *view, double degrees) override;

    /// An item for a sheet of a plan that is open.
    [[nodiscard]] static UDocItem itemOf(const PlanView &view, quint32 sheet);
    /// The view's sheet, or its plan.
    [[nodiscard]] static SheetAddress addressOf(const PlanView &view);

private:
    [[nodiscard]] PlanView *planView(QWidget *view) const;

    PlanTabs &m_tabs;
    Sources m_sources;
    QObject m_context; ///< of connections
};
