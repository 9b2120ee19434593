// SPDX-License-Identifier: GPL-2.0-or-later
// All controls of one view.
#pragma once

#include "navigation/controls/hotareas_p.h"
#include "navigation/controls/manners_p.h"
#include "navigation/controls/northarrow_p.h"
#include "navigation/controls/placement_p.h"
#include "navigation/controls/presentation_p.h"
#include "navigation/controls/presentationmenu_p.h"
#include "navigation/controls/readout_p.h"
#include "navigation/controls/viewmenu_p.h"
#include <QTimer>

namespace navcontrols {

/// What is the same in all views; kept from one time to the next.
struct ControlState
{
    static constexpr int kControls = 4;
    bool isShown = true;
    std::array<bool, kControls> shown{true, true, true, true};
    std::array<Corner, kControls> corners{Corner::TopRight, Corner::TopLeft, Corner::BottomRight,
                                          Corner::BottomLeft};
    bool isViewMenuFolded = false;
    bool isArrowGreyed = false;
    bool isWheelZooming = true;
    int interval = 5; ///< seconds

    [[nodiscard]] bool isWanted(Control control) const
    {
        return isShown && shown[static_cast<std::size_t>(control)];
    }
    [[nodiscard]] Corner corner(Control control) const
    {
        return corners[static_cast<std::size_t>(control)];
    }
};

class ViewControls : public QObject
{
    Q_OBJECT

public:
    /// @param state  outlives this
    ViewControls(KView *view, const ControlState &state, StoredViews &stored, QObject *parent);
    ~ViewControls() override;

    /// Takes over the state.
    void apply();
    /// Takes the controls from the view, and goes itself when the event is over: what it is doing
    /// may be what made it superfluous.
    /// @param isViewAlive  a dying view takes its widgets along
    void retire(bool isViewAlive);
    [[nodiscard]] QWidget *widget(Control control) const;
    [[nodiscard]] Presentation &presentation() { return m_presentation; }
    [[nodiscard]] KView *view() const { return m_view; }
    bool zoomByWheel(const QWheelEvent &event);
    /// The eye has moved: heights are others.
    void refreshEye() { m_readout.forget(); }

    bool eventFilter(QObject *view, QEvent *event) override;

signals:
    void cornerChosen(Control control, Corner corner);
    void foldChosen(bool isFolded);
    void intervalEntered(int seconds);
    void scaleEntered(double scale);
    void eyeChanged();

private:
    void connectMenu();
    void setDocumentChanged();
    void settle();
    void place();
    [[nodiscard]] QRect area() const;
    [[nodiscard]] Corner seen(Corner corner) const;
    void dock(QPoint point);
    void pushMenu(int key);
    void editAngle();
    void giveKeyboardBack();
    bool useKey(QKeyEvent &event);
    [[nodiscard]] static bool isForHotAreas(const QKeyEvent &event);

    QPointer<KView> m_view;
    const ControlState &m_state;
    bool m_hasOwnHover; ///< the viewer wants hover events itself
    Manners m_manners;
    Readout m_readout;
    Presentation m_presentation;
    HotAreas m_hotAreas;
    QPointer<NorthArrow> m_arrow;
    QPointer<ViewMenu> m_menu;
    QPointer<PresentationMenu> m_presentationMenu;
    QPointer<QWidget> m_angleField;
};

} // namespace navcontrols
