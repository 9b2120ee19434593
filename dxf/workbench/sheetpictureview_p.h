// SPDX-License-Identifier: GPL-2.0-or-later
// The picture of the sheets as a widget.
#pragma once

#include "dxf/sheets/sheetpainter_p.h"
#include "dxf/workbench/picturezoom_p.h"
#include <QPixmap>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/SheetPreview.h>
#include <optional>
#include <span>
#include <vector>

/// The picture of the sheets, to zoom, pan, choose and mark in.
///
/// Mouse: the wheel zooms about the pointer, dragging moves the picture. A click picks what is
/// there, on the number it marks; with Ctrl it adds or takes away, with Shift it adds. Dragging
/// with Shift picks all that the rectangle touches, with Ctrl too it adds them. A double click
/// shows the sheet closely, or all where no sheet is. Keys: arrows, + and -, Home or 0 for all,
/// Space marks.
class SheetPictureView : public QWidget
{
    Q_OBJECT

public:
    explicit SheetPictureView(QWidget *parent = nullptr);

    /// Lays out and shows these sheets, the whole picture in sight, none selected.
    /// @param sheets  as SelectSheets() gives them; the drawing must stay until the next call of
    ///     this function or clear()
    void setSheets(const DxfDrawing &drawing, std::span<const quint32> sheets,
                   const QString &title);
    /// Shows which of the sheets are chosen and marked; the others are fainter.
    void showStates(std::span<const quint32> chosen);
    /// Shows what changed against an older file, until other sheets are set.
    void showNews(std::span<const ChangedSheet> changed, qint64 gone);
    /// @param message  one sentence to show instead of a picture
    void clear(const QString &message = {});
    /// What is shown, as a page to save.
    [[nodiscard]] const SheetPicture &picture() const { return m_picture; }
    [[nodiscard]] const DxfDrawing *drawing() const { return m_drawing; }

    /// Highlights them, without a signal. Those that are not in the picture are kept in mind.
    void setSelectedSheets(std::vector<quint32> sheets);
    /// Moves and zooms as little as it takes to see the sheet well.
    void showSheet(quint32 sheet);

    void zoomIn();
    void zoomOut();
    void zoomToFit();
    /// 1 while the whole picture is in sight, which is the smallest.
    [[nodiscard]] double zoom() const { return m_zoom.zoom(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// What is selected now that someone picked with the mouse, ascending; nothing when empty.
    void sheetsPicked(const std::vector<quint32> &sheets);
    /// Someone wants their marks to be set or taken away.
    void marksToggled(const std::vector<quint32> &sheets);
    void zoomChanged(double zoom);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Drag { None, Pending, Pan, RubberBand };

    /// Changes the view, then tells and repaints.
    template <typename Change>
    void changeView(Change change);
    void layOut();
    /// Gives the height that it takes.
    double layOutLegend();
    void repaintAll();
    [[nodiscard]] QRect canvas() const;
    [[nodiscard]] SheetScene sceneWith(const SheetLook &look) const;
    [[nodiscard]] std::optional<std::size_t> placeAt(QPointF pos) const;
    [[nodiscard]] std::vector<std::size_t> placesIn(const QRectF &area) const;
    [[nodiscard]] bool isOnNumber(std::size_t place, QPointF pos) const;
    /// The place of a sheet; null when it has none.
    [[nodiscard]] const SheetPlace *placeOf(quint32 sheet) const;
    [[nodiscard]] std::vector<quint32> sheetsAt(const std::vector<std::size_t> &places) const;
    void pick(const std::vector<std::size_t> &places, Qt::KeyboardModifiers modifiers, bool isBand);
    void click(Qt::KeyboardModifiers modifiers);
    void updateCursor(QPointF pos);
    [[nodiscard]] QString toolTipOf(std::size_t place) const;
    bool showToolTip(const QPoint &pos, const QPoint &globalPos);
    void paintPicture(QPainter &painter);
    void paintMessage(QPainter &painter) const;
    void paintBand(QPainter &painter) const;
    void paintFrame(QPainter &painter) const;

    const DxfDrawing *m_drawing = nullptr;
    SheetPicture m_picture;
    std::vector<LegendEntry> m_legend;
    double m_legendHeight = 0;
    PictureZoom m_zoom;
    std::vector<quint32> m_placeOfSheet; ///< kNowhere for those that are not in the picture
    std::vector<quint32> m_selected;     ///< ascending
    std::vector<bool> m_isSelected;      ///< of each place
    QString m_message;
    QPixmap m_cache; ///< of what paintPicture() paints; null when that changed
    Drag m_drag = Drag::None;
    QPoint m_pressed;
    QPoint m_last;
};
