// SPDX-License-Identifier: GPL-2.0-or-later
// Shows a plan, and moves over it.
#pragma once

#include "PictureStore.h"
#include "ViewHistory.h"
#include "ViewPose.h"
#include <QTimer>
#include <kelo_base/navigation/KView.h>
#include <optional>

class Plan;
class QNativeGestureEvent;

/// Drag moves, Shift and drag turns, the wheel zooms at the pointer; on a touch pad two fingers
/// move, pinch and turn. Whatever the user does in one go is one step back.
class PlanView : public KView
{
    Q_OBJECT

public:
    /// @param plan  not owned, and outlives this
    explicit PlanView(Plan &plan, QWidget *parent = nullptr);

    [[nodiscard]] Plan &plan() const { return m_plan; }
    [[nodiscard]] const ViewPose &pose() const { return m_pose; }
    /// Shows another place as one step; nothing happens when it is the same.
    void go(const ViewPose &pose);
    /// The same as a piece of a movement, which ends by itself when nothing follows.
    void moveTo(const ViewPose &pose);
    /// Shows a place that is no step back, as at the start.
    void place(const ViewPose &pose);

    void goBack();
    void goForth();
    [[nodiscard]] bool canGoBack() const { return m_history.hasBefore(); }
    [[nodiscard]] bool canGoForth() const { return m_history.hasAfter(); }

    [[nodiscard]] ViewPose wholePlan() const;
    [[nodiscard]] ViewPose wholeSheet(quint32 sheet, double angle) const;
    [[nodiscard]] QPointF middle() const { return {width() / 2.0, height() / 2.0}; }
    /// The sheet under the middle.
    [[nodiscard]] std::optional<quint32> currentSheet() const { return m_currentSheet; }
    /// Paints all that is missing now.
    void completePicture();
    [[nodiscard]] const PictureStore &pictures() const { return m_pictures; }

signals:
    /// For the first time since the plan was read, all sheets that lie in the view are painted.
    void sheetsShown();
    /// A menu is asked for, at a place of the screen. The button that asks is still down.
    void menuWanted(const QPoint &globalPos);
    void pointerMoved(const QPointF &map);
    void historyChanged();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    enum class Drag { None, Move, Turn };

    bool display(const ViewPose &pose);
    bool endGesture();
    void step(const ViewPose &pose);
    void noteKey(const QKeyEvent &event);
    bool nativeGesture(const QNativeGestureEvent &event);
    [[nodiscard]] std::optional<ViewPose> poseByKey(int key, bool isFine) const;
    void dragTo(QPointF pixel);
    void paintCurrentSheet(QPainter &painter) const;
    void findCurrentSheet();
    void renew();
    void scheduleWork();

    Plan &m_plan;
    ViewPose m_pose;
    ViewHistory m_history;
    PictureStore m_pictures;
    QTimer m_work;
    QTimer m_gestureEnd;
    Drag m_drag = Drag::None;
    bool m_isKeyHeld = false; ///< what it does repeatedly is one gesture
    QPointF m_dragFrom;
    std::optional<quint32> m_currentSheet;
    bool m_areSheetsShown = false;
    bool m_isPlaced = false; ///< shows anything yet; before, the whole plan once there is a size
};
