// SPDX-License-Identifier: GPL-2.0-or-later
// The manager of the controls over the document: the viewer's face of them all.
#pragma once

#include <QObject>
#include <kelo_base/core/Export.h>
#include <kelo_base/navigation/DocWindowXIfc.h>

class Database;
class KView;
class QWheelEvent;

/// Lays a north arrow, hot areas for adjacent documents, a view menu and a presentation menu over
/// each view. A viewer registers its DocWindowXIfc, calls Instance(), and has them over the primary
/// view; other views it adds. What a view shows is asked of the document window alone; what it does
/// not offer is hidden.
///
/// The controls are children of their view, owned here, and go with it. When the document window is
/// replaced, the views of the old one are let go, and the new one's primary view is taken up.
///
/// Where the controls lie, and which are shown, is kept in the user's layout, and written there
/// when UserDataManagerI announces that it saves. Stored views belong to the open project: its
/// layout keeps them, or the database that SetDatabase() names; without a project, the user's
/// layout does.
class KELO_BASE_EXPORT NavCtrlMgrIfc : public QObject
{
    Q_OBJECT

public:
    using UDocItemList = DocWindowXIfc::UDocItemList;

    enum class Control { NorthArrow, HotAreas, ViewMenu, PresentationMenu };
    /// As seen in layouts from left to right; in others, left and right are the other way round.
    enum class Corner { TopLeft, TopRight, BottomLeft, BottomRight };

    /// Creates the manager on first use.
    static NavCtrlMgrIfc &Instance();
    /// Takes all controls away and deletes the manager, after it has handed its state to the open
    /// layout; Instance() then makes a new one. Harmless when there is none.
    static void Destroy();

    /// Lays controls over @p view, which has them already when it is, or has been, the primary one.
    virtual void AddView(KView *view) = 0;
    /// Takes them away.
    virtual void RemoveView(KView *view) = 0;
    [[nodiscard]] virtual QList<KView *> Views() const = 0;

    /// Shows or hides all controls; hidden ones ask nothing of the document window.
    virtual void SetShown(bool isShown) = 0;
    [[nodiscard]] virtual bool IsShown() const = 0;
    /// Chooses those that are seen while controls are shown; by default all.
    virtual void SetControlShown(Control control, bool isShown) = 0;
    [[nodiscard]] virtual bool IsControlShown(Control control) const = 0;
    /// Where a control stands; the hot areas have all edges, and no corner.
    virtual void SetCorner(Control control, Corner corner) = 0;
    [[nodiscard]] virtual Corner GetCorner(Control control) const = 0;
    /// Folds all view menus up to their handles.
    virtual void SetViewMenuFolded(bool isFolded) = 0;
    [[nodiscard]] virtual bool IsViewMenuFolded() const = 0;
    /// Whether the arrow of a view without geo reference is seen greyed; by default it is hidden.
    virtual void SetNorthArrowGreyed(bool isGreyed) = 0;
    /// The control of a view; null for the hot areas, which are eight, and while it has no place.
    [[nodiscard]] virtual QWidget *Widget(KView *view, Control control) const = 0;

    /// Whether the wheel over a view zooms; by default it does. A viewer that has its own zoom
    /// turns it off, and may call ZoomByWheel() itself.
    virtual void SetWheelZoom(bool isOn) = 0;
    /// Zooms by the angle of @p event, Ctrl for fine steps; what is under the pointer stays there.
    /// False when the wheel was not turned up or down, or the document window cannot zoom.
    virtual bool ZoomByWheel(KView *view, const QWheelEvent &event) = 0;

    /// Keeps stored views in @p database, under the name of a project, instead of in its layout.
    /// The database outlives this, or is taken back by null.
    virtual void SetDatabase(Database *database, const QString &project) = 0;
    /// The views that people have stored for the project. Those of DocWindowXIfc::StoredViews() are
    /// not among them; in presentations they come first.
    [[nodiscard]] virtual UDocItemList StoredViews() = 0;
    virtual void SetStoredViews(const UDocItemList &views) = 0;
    /// Stores what @p view shows, under @p title or, when that is empty, one made of the
    /// document's. False when no document is shown.
    virtual bool StoreView(KView *view, const QString &title) = 0;

    /// Shows the stored view that is @p steps on from the one shown last, round at the ends. False
    /// when there is none or it cannot be shown.
    virtual bool ShowStoredView(KView *view, int steps) = 0;
    /// Shows the next stored view again and again, in the interval that people have chosen.
    virtual void SetPlaying(KView *view, bool isPlaying) = 0;
    /// Makes the view's window fill the screen, and lets it be again what it was.
    virtual void SetFullScreen(KView *view, bool isFull) = 0;
    /// Covers the view's window with black, until a key or a click.
    virtual void SetBlank(KView *view, bool isBlank) = 0;
    /// Ends all three, as Esc does.
    virtual void LeavePresentation(KView *view) = 0;

Q_SIGNALS:
    void shownChanged(bool isShown);
    void storedViewsChanged();
    /// Stored views could not be read from the database or kept there: they are lost at the end of
    /// the program, unless a later change finds the database well again.
    /// @param sentence  for people
    void storedViewsFailed(const QString &sentence);
    /// A view plays or its window fills the screen, or no longer: a viewer hides bars meanwhile.
    void presentationChanged(KView *view, bool isPresenting);
    /// People have typed a map scale; tells its zoom-factor correction too, as partner programs
    /// want it: see GetZoomFactorCorrectionForScaleValue().
    void scaleEntered(KView *view, double scale, int zoomFactorCorrection);

protected:
    NavCtrlMgrIfc() = default;
    ~NavCtrlMgrIfc() override = default;
};
