// SPDX-License-Identifier: GPL-2.0-or-later
// The document window: all that the navigation controls know of the viewer.
#pragma once

#include <QFlags>
#include <kelo_base/core/Export.h>
#include <kelo_base/navigation/UCoord.h>
#include <kelo_base/navigation/UDocItem.h>
#include <kelo_base/navigation/UGeoArea.h>
#include <kelo_base/navigation/URectArea.h>

class DocWindowNotifier;
class KView;

/// Implemented and owned by the viewer, which registers its object with SetHInstance(). The first
/// four functions carry the geometry and must be there. A control asks for the others and hides
/// what they do not offer, so a viewer implements those it has; the defaults say "not offered".
///
/// A view is never null here; a widget that is none of the viewer's views makes every question
/// fail. Change notices are the signals of KView, and those of Notifier(). Everything runs on the
/// GUI thread.
///
/// An implementation's destructor begins with SetHInstance(nullptr), before any of its members
/// dies: its views, when they go, make controls ask what they can no longer show. For those that
/// forget it, the library asks nothing while a KView is being destroyed.
class KELO_BASE_EXPORT DocWindowXIfc
{
public:
    using UCoord = docwindow::UCoord;
    using UDocItem = docwindow::UDocItem;
    using UDocItemList = docwindow::UDocItemList;
    using URectArea = docwindow::URectArea;
    using UGeoArea = docwindow::UGeoArea;

    /// Sides and corners of a document page as it lies unturned, clockwise.
    enum class PageSide { Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left, TopLeft };
    /// What becomes of a view's rotation when the whole page is shown.
    enum class PageTurn {
        Keep,   ///< the page is seen turned as before
        Upright ///< its top edge is at the top of the view
    };
    /// Fields of a UDocItem that tell how a view shows a document.
    enum class ViewDetail { Page = 1, Rotation = 2, Scale = 4, Position = 8 };
    Q_DECLARE_FLAGS(ViewDetails, ViewDetail)

    /// The viewer's document window; null while none is registered.
    [[nodiscard]] static DocWindowXIfc *HInstance();
    /// Registers @p window instead of the one before, which lives on unregistered; null registers
    /// none. Ownership stays with the viewer.
    static void SetHInstance(DocWindowXIfc *window);
    /// Tells when the registered window, or its primary view, is replaced. Null only while the
    /// process ends.
    [[nodiscard]] static DocWindowNotifier *Notifier();
    /// The viewer calls this when PrimaryView() has begun to answer differently.
    void AnnouncePrimaryView() const;

    DocWindowXIfc() = default;
    /// The registered window takes its registration along.
    virtual ~DocWindowXIfc();
    Q_DISABLE_COPY_MOVE(DocWindowXIfc)

    /// The view that is meant where none is named; null while there is none.
    [[nodiscard]] virtual KView *PrimaryView() const = 0;
    /// The visible rectangle of @p view in its pixels. False when it is not available.
    [[nodiscard]] virtual bool DeviceRect(QWidget *view, QRect &rect) const = 0;
    /// The document page that @p view shows, in units of the page; y grows from its top side to the
    /// bottom. False when it is not available.
    [[nodiscard]] virtual bool DocPageRect(QWidget *view, QRectF &rect) const = 0;
    /// Adds the geo point to a @p coord that holds the device point. False when the view cannot
    /// convert; the geo point then means nothing.
    [[nodiscard]] virtual bool DeviceToGeo(QWidget *view, UCoord &coord) const = 0;

    /// Adds the device point to a @p coord that holds the geo point; it may lie outside the view.
    [[nodiscard]] virtual bool GeoToDevice(QWidget *view, UCoord &coord) const;

    /// Adds the place on the page to a @p coord that holds the device point, also where the page
    /// has no place on the map. It may lie outside the page.
    [[nodiscard]] virtual bool DeviceToDocument(QWidget *view, UCoord &coord) const;
    /// Adds the device point to a @p coord that holds the place on the page; it may lie outside the
    /// view.
    [[nodiscard]] virtual bool DocumentToDevice(QWidget *view, UCoord &coord) const;

    /// The document shown in @p view; an item that is not valid when there is none.
    [[nodiscard]] virtual UDocItem CurrentDocument(QWidget *view) const;
    /// The fields of CurrentDocument() that say how @p view shows it at this moment, so that the
    /// item can be stored as a view; by default none.
    [[nodiscard]] virtual ViewDetails CurrentDetails(QWidget *view) const;
    /// The documents that join the current one at @p side, the best suited first; by default none.
    [[nodiscard]] virtual UDocItemList Neighbours(QWidget *view, PageSide side) const;
    /// The documents that the current one links to; by default none.
    [[nodiscard]] virtual UDocItemList LinkedDocuments(QWidget *view) const;
    /// The viewer's own views of a presentation in their order; by default none. Those that people
    /// store belong to their project, and are not among them.
    [[nodiscard]] virtual UDocItemList StoredViews(QWidget *view) const;

    /// Opens the item's document and shows page, middle, rotation and scale that it names. False,
    /// and nothing changed, when that is not possible; so by default, as with the next four.
    virtual bool ShowDocument(QWidget *view, const UDocItem &item);
    /// Makes the page shown as large as fits into the view, its middle in the middle.
    virtual bool ShowWholePage(QWidget *view, PageTurn turn);
    /// Moves the geo point of @p middle, or its document point if that alone is known, to the
    /// middle of the view.
    virtual bool MoveTo(QWidget *view, const UCoord &middle);
    /// Shows @p ratio times the width and the height, the middle kept: above 1 shows more. The
    /// ratio estimated for a height leads to that height.
    virtual bool ZoomBy(QWidget *view, double ratio);
    /// Turns around the middle so that NorthAngle() grows by @p degrees: what is shown turns
    /// clockwise on screen. That holds in a mirrored view, too, where NorthAngle() falls by it.
    virtual bool TurnBy(QWidget *view, double degrees);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(DocWindowXIfc::ViewDetails)
