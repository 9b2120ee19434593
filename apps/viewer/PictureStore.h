// SPDX-License-Identifier: GPL-2.0-or-later
// The picture of a plan in tiles, which are painted while there is time.
#pragma once

#include "ScenePainting.h"
#include "ViewPose.h"
#include <QElapsedTimer>
#include <QHash>
#include <QPoint>
#include <memory>
#include <optional>

/// Moving a view only shifts tiles. While it is turned or zoomed, the last sharp picture is shown
/// turned and zoomed, beyond its edges a coarse one of the whole plan; tiles are painted anew when
/// the movement rests.
class PictureStore
{
public:
    /// @param scene  not owned, and outlives this
    explicit PictureStore(const Scene &scene) : m_scene(scene) {}

    /// @param size   of the view, in logical pixels
    /// @param ratio  device pixels to a logical one
    void setView(const ViewPose &pose, QSize size, double ratio);
    void setColors(const SceneColors &colors);
    /// The scene has more to show; what there is stays until it is painted anew.
    void refresh();
    /// The scene was read again, and shows much the same; likewise.
    void renew();
    /// The scene shows something else: nothing that was painted counts any more.
    void forget();

    /// Shows what there is, with a painter of the view's widget.
    void paint(QPainter &painter);
    /// Milliseconds until there is something to do; -1 for nothing.
    [[nodiscard]] int untilWork() const;
    /// Paints tiles for that long; a negative number means until all is there.
    /// @return whether there is something new to be shown
    bool work(int milliseconds);
    [[nodiscard]] bool isComplete() const; ///< the view is shown as sharp as can be
    [[nodiscard]] qsizetype bytes() const; ///< of all pictures

private:
    struct Tile
    {
        QImage image;
        int revision = 0;
    };
    struct Job
    {
        QPoint key;
        int revision;
        ScenePainting painting;
    };
    [[nodiscard]] QPoint topLeft() const; ///< of the view, in pixels of the tiles' plane
    [[nodiscard]] QRect shownTiles() const;
    [[nodiscard]] std::optional<QPoint> wantedTile() const;
    [[nodiscard]] QTransform tileTransform(QPoint key) const;
    [[nodiscard]] bool isTurning() const;
    [[nodiscard]] bool needsOverview() const;
    void keepStill();
    void beginJob(QPoint key);
    void finishJob();
    void beginOverview();
    void trim();
    void paintGaps(QPainter &painter, const QList<QRect> &gaps) const;
    void paintTiles(QPainter &painter) const;

    const Scene &m_scene;
    SceneColors m_colors;
    ViewPose m_pose;
    QPointF m_anchor; ///< origin of the tiles' plane, on the map
    QSize m_size;     ///< device pixels
    double m_ratio = 1;
    int m_revision = 1;
    QHash<QPoint, Tile> m_tiles;
    std::unique_ptr<Job> m_job;
    QImage m_still; ///< the last sharp picture; null while it is not needed
    ViewPose m_stillPose;
    QImage m_overview;
    QTransform m_toOverview; ///< from the map
    int m_overviewRevision = 0;
    std::unique_ptr<ScenePainting> m_overviewJob;
    QTransform m_nextOverview;
    int m_nextOverviewRevision = 0;
    QElapsedTimer m_sinceTurn;
};
