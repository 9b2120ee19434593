// SPDX-License-Identifier: GPL-2.0-or-later
// Keeps tiles, and fills the gaps between them.
#include "PictureStore.h"

#include "Backdrop.h"
#include "SheetLayer.h"
#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace {

constexpr int kTile = 256;     ///< pixels
constexpr int kSpareTiles = 4; ///< kept beside those that are shown
constexpr int kRest = 90;      ///< milliseconds after which a movement rests
constexpr int kOverview = 768; ///< pixels of the longer side
constexpr int kFraction = 16;  ///< bits behind the point

/// A walk through a picture along the rows of another.
struct Walk
{
    const QImage &image;
    QTransform transform; ///< from pixels of the other to those of the picture
    qint64 x = 0;
    qint64 y = 0;
    qint64 stepX = 0;
    qint64 stepY = 0;

    static qint64 fixed(double value)
    {
        constexpr double kOne = 1 << kFraction;
        constexpr double kFar = 1e12;
        return static_cast<qint64>(std::clamp(value * kOne, -kFar, kFar));
    }
    void beginRow(int column, int row)
    {
        const QPointF start = transform.map(QPointF(column + 0.5, row + 0.5));
        x = fixed(start.x());
        y = fixed(start.y());
        stepX = fixed(transform.m11());
        stepY = fixed(transform.m12());
    }
    void step(int times = 1)
    {
        x += times * stepX;
        y += times * stepY;
    }
    /// Narrows [begin, end), in steps from here, to those surely within the picture.
    void narrow(int &begin, int &end) const
    {
        const auto along = [&](qint64 start, qint64 step, int size) {
            const double last = static_cast<double>(qint64{size} << kFraction) - 1;
            if (step == 0) {
                if (start < 0 || static_cast<double>(start) > last)
                    end = begin;
                return;
            }
            double from = static_cast<double>(-start) / static_cast<double>(step);
            double to = (last - static_cast<double>(start)) / static_cast<double>(step);
            if (step < 0)
                std::swap(from, to);
            constexpr double kFar = 1e9;
            begin = std::max(begin, static_cast<int>(std::clamp(from, -kFar, kFar)) + 1);
            end = std::min(end, static_cast<int>(std::clamp(to, -kFar, kFar)));
        };
        const int limit = end;
        along(x, stepX, image.width());
        along(y, stepY, image.height());
        begin = std::min(begin, limit);
        end = std::clamp(end, begin, limit);
    }
};

/// The picture's pixels without a look at their number: for the inner loop alone.
struct Pixels
{
    explicit Pixels(const QImage &image)
        : bits(reinterpret_cast<const QRgb *>(image.constBits())),
          perLine(image.bytesPerLine() / 4),
          width(static_cast<quint64>(image.width())),
          height(static_cast<quint64>(image.height()))
    {
    }
    [[nodiscard]] const QRgb *at(qint64 x, qint64 y) const
    {
        const auto column = static_cast<quint64>(x >> kFraction); // a negative one is very large
        const auto row = static_cast<quint64>(y >> kFraction);
        if (column >= width || row >= height)
            return nullptr;
        return bits + static_cast<qsizetype>(row) * perLine + static_cast<qsizetype>(column);
    }
    const QRgb *bits;
    qsizetype perLine;
    quint64 width;
    quint64 height;
};

/// Fills the top left of a picture, which shows an area of the view, with the nearest pixels of the
/// first one, beyond its edges with those of the second one, and with @p paper where neither has
/// any. The toolkit's way takes thrice as long, which is more than a frame may take.
void sample(QImage &target, const QRect &area, Walk first, Walk second, QRgb paper)
{
    const Pixels sharp(first.image);
    const Pixels coarse(second.image);
    for (int row = area.top(); row <= area.bottom(); ++row) {
        auto *pixel = reinterpret_cast<QRgb *>(target.scanLine(row - area.top()));
        first.beginRow(area.left(), row);
        second.beginRow(area.left(), row);
        int begin = 0;
        int end = area.width();
        first.narrow(begin, end);
        const auto walk = [&](int until, int column) {
            for (; column < until; ++column) {
                const QRgb *source = sharp.at(first.x, first.y);
                if (!source)
                    source = coarse.at(second.x, second.y);
                *pixel++ = source ? *source : paper;
                first.step();
                second.step();
            }
        };
        walk(begin, 0);
        for (int column = begin; column < end; ++column) { // most pixels: nothing to be asked
            *pixel++ = sharp.bits[(first.y >> kFraction) * sharp.perLine + (first.x >> kFraction)];
            first.step();
        }
        second.step(end - begin);
        walk(area.width(), end);
    }
}

/// Walked along its columns, a picture whose lines begin a power of two apart would use few lines
/// of the processor's cache: they begin an odd number of cache lines apart.
QImage walkedPicture(QSize size)
{
    constexpr int kCacheLine = 64;
    const int perLine = (4 * size.width() / kCacheLine + 1) | 1;
    const qsizetype bytes = qsizetype{perLine} * kCacheLine * size.height();
    auto *pixels = new (std::nothrow) uchar[static_cast<std::size_t>(bytes)];
    if (!pixels)
        return {};
    return QImage(
        pixels, size.width(), size.height(), qsizetype{perLine} * kCacheLine, QImage::Format_RGB32,
        [](void *owned) { delete[] static_cast<uchar *>(owned); }, pixels);
}

int floorDiv(int value, int by)
{
    return static_cast<int>(std::floor(static_cast<double>(value) / by));
}

} // namespace

void PictureStore::setView(const ViewPose &pose, QSize size, double ratio)
{
    const QSize pixels = (QSizeF(size) * ratio).toSize();
    const bool isTurned = !pose.hasScaleAndAngleOf(m_pose) || ratio != m_ratio;
    if (isTurned) {
        if (!m_tiles.isEmpty())
            keepStill();
        m_tiles.clear();
        m_job.reset();
        m_anchor = pose.middle();
        m_sinceTurn.start();
    }
    m_pose = pose;
    m_size = pixels;
    m_ratio = ratio;
    if (m_job && !shownTiles().contains(m_job->key))
        m_job.reset();
    trim();
}

void PictureStore::setColors(const SceneColors &colors)
{
    if (colors == m_colors)
        return;
    m_colors = colors;
    forget();
}

void PictureStore::refresh()
{
    ++m_revision;
    m_job.reset(); // begins anew with all there is
}

void PictureStore::renew()
{
    refresh();
    m_overviewJob.reset(); // knows what is gone
}

void PictureStore::forget()
{
    ++m_revision;
    m_tiles.clear();
    m_job.reset();
    m_still = {};
    m_overview = {};
    m_overviewJob.reset();
}

/// The view's own pose in device pixels, relative to the anchor.
QPoint PictureStore::topLeft() const
{
    const ViewPose plane(m_anchor, m_pose.metresPerPixel(), m_pose.angle());
    const QPointF middle = plane.toPixel(m_pose.middle(), QSizeF(0, 0)) * m_ratio;
    return (middle - QPointF(m_size.width(), m_size.height()) / 2).toPoint();
}

QRect PictureStore::shownTiles() const
{
    if (m_size.isEmpty())
        return {};
    const QRect view(topLeft(), m_size);
    return {QPoint(floorDiv(view.left(), kTile), floorDiv(view.top(), kTile)),
            QPoint(floorDiv(view.right(), kTile), floorDiv(view.bottom(), kTile))};
}

QTransform PictureStore::tileTransform(QPoint key) const
{
    const ViewPose plane(m_anchor, m_pose.metresPerPixel(), m_pose.angle());
    return plane.transform(QSizeF(0, 0)) * QTransform::fromScale(m_ratio, m_ratio) *
           QTransform::fromTranslate(-key.x() * double{kTile}, -key.y() * double{kTile});
}

bool PictureStore::isTurning() const
{
    return m_sinceTurn.isValid() && m_sinceTurn.elapsed() < kRest && !m_still.isNull();
}

/// The missing tile nearest to the middle; when none is missing, one that is out of date.
std::optional<QPoint> PictureStore::wantedTile() const
{
    const QRect shown = shownTiles();
    std::optional<QPoint> best;
    int least = 0;
    for (int y = shown.top(); y <= shown.bottom(); ++y)
        for (int x = shown.left(); x <= shown.right(); ++x) {
            const auto tile = m_tiles.constFind(QPoint(x, y));
            const bool isThere = tile != m_tiles.constEnd();
            if (isThere && tile->revision == m_revision)
                continue;
            constexpr int kLater = 1'000'000;
            const int cost =
                (QPoint(x, y) - shown.center()).manhattanLength() + (isThere ? kLater : 0);
            if (!best || cost < least) {
                best = QPoint(x, y);
                least = cost;
            }
        }
    return best;
}

bool PictureStore::isComplete() const
{
    return !wantedTile();
}

bool PictureStore::needsOverview() const
{
    return m_overviewRevision != m_revision && m_scene.sheets;
}

int PictureStore::untilWork() const
{
    if (m_size.isEmpty() || (isComplete() && !needsOverview()))
        return -1;
    return isTurning() ? kRest - static_cast<int>(m_sinceTurn.elapsed()) : 0;
}

bool PictureStore::work(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    bool isNew = false;
    if (milliseconds >= 0 && isTurning())
        return false;
    while (const auto key = wantedTile()) {
        if (!m_job)
            beginJob(*key);
        if (!m_job->painting.paint(deadline))
            return isNew;
        finishJob();
        isNew = true;
        if (deadline.hasExpired())
            return isNew;
    }
    m_still = {};
    if (needsOverview()) {
        if (!m_overviewJob)
            beginOverview();
        if (m_overviewJob->paint(deadline)) {
            m_overview = m_overviewJob->takeImage();
            m_toOverview = m_nextOverview;
            m_overviewJob.reset();
            m_overviewRevision = m_nextOverviewRevision;
        }
    }
    return isNew;
}

void PictureStore::beginJob(QPoint key)
{
    m_job.reset(new Job{
        key, m_revision,
        ScenePainting(m_scene, m_colors, tileTransform(key), QSize(kTile, kTile), m_ratio)});
}

void PictureStore::finishJob()
{
    m_tiles.insert(m_job->key, {m_job->painting.takeImage(), m_job->revision});
    m_job.reset();
}

void PictureStore::beginOverview()
{
    MapBounds bounds = m_scene.sheets->bounds();
    if (m_scene.backdrop)
        bounds.add(m_scene.backdrop->bounds());
    const QRectF rect = bounds.rect();
    const double longer = std::max({rect.width(), rect.height(), 1e-3});
    const double scale = kOverview / longer;
    m_nextOverviewRevision = m_revision;
    m_nextOverview = QTransform(scale, 0, 0, -scale, -rect.left() * scale, rect.bottom() * scale);
    const QSize size(std::max(1, qRound(rect.width() * scale)),
                     std::max(1, qRound(rect.height() * scale)));
    m_overviewJob =
        std::make_unique<ScenePainting>(m_scene, m_colors, m_nextOverview, size, m_ratio);
}

/// What is shown now becomes the picture that the next ones are made of.
void PictureStore::keepStill()
{
    QImage picture = walkedPicture(m_size);
    if (picture.isNull())
        return;
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    m_still = picture;
    m_stillPose = m_pose;
}

void PictureStore::trim()
{
    const QRect shown = shownTiles();
    const qsizetype most = qsizetype{shown.width()} * shown.height() + kSpareTiles;
    while (m_tiles.size() > most) {
        auto farthest = m_tiles.begin();
        for (auto tile = m_tiles.begin(); tile != m_tiles.end(); ++tile)
            if ((tile.key() - shown.center()).manhattanLength() >
                (farthest.key() - shown.center()).manhattanLength())
                farthest = tile;
        m_tiles.erase(farthest);
    }
}

/// A piece at a time, which is still in the processor's cache when it is painted.
void PictureStore::paintGaps(QPainter &painter, const QList<QRect> &gaps) const
{
    const QSizeF view = QSizeF(m_size) / m_ratio;
    const QTransform toLogical = QTransform::fromScale(1 / m_ratio, 1 / m_ratio);
    const QTransform toMap = toLogical * m_pose.transform(view).inverted();
    // Map numbers are large and pixels small: the still picture is reached without them.
    const QSizeF stillView = QSizeF(m_still.size()) / m_ratio;
    const auto stillPixel = [&](QPointF pixel) {
        return m_stillPose.toPixel(m_pose.toMap(pixel / m_ratio, view), stillView) * m_ratio;
    };
    const QPointF origin = stillPixel({0, 0});
    const QPointF x = stillPixel({1, 0}) - origin;
    const QPointF y = stillPixel({0, 1}) - origin;
    const QTransform toStill(x.x(), x.y(), y.x(), y.y(), origin.x(), origin.y());
    QImage piece(kTile, kTile, QImage::Format_RGB32);
    for (const QRect &gap : gaps) {
        sample(piece, gap, {m_still, toStill}, {m_overview, toMap * m_toOverview},
               m_colors.paper.rgb());
        painter.drawImage(gap.topLeft(), piece, QRect(QPoint(), gap.size()));
    }
}

void PictureStore::paintTiles(QPainter &painter) const
{
    const QPoint corner = topLeft();
    const QRect view(QPoint(), m_size);
    for (auto tile = m_tiles.cbegin(); tile != m_tiles.cend(); ++tile) {
        const QRect place(tile.key() * kTile - corner, QSize(kTile, kTile));
        if (place.intersects(view))
            painter.drawImage(place.topLeft(), tile->image);
    }
}

void PictureStore::paint(QPainter &painter)
{
    const QPoint corner = topLeft();
    const QRect shown = shownTiles();
    QList<QRect> gaps;
    for (int y = shown.top(); y <= shown.bottom(); ++y)
        for (int x = shown.left(); x <= shown.right(); ++x)
            if (!m_tiles.contains(QPoint(x, y)))
                gaps << (QRect(QPoint(x, y) * kTile - corner, QSize(kTile, kTile)) &
                         QRect(QPoint(), m_size));
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const double ratio = painter.device()->devicePixelRatio();
    painter.scale(1 / ratio, 1 / ratio); // device pixels from here on
    if (!gaps.isEmpty())
        paintGaps(painter, gaps);
    paintTiles(painter);
    painter.restore();
}

qsizetype PictureStore::bytes() const
{
    return m_tiles.size() * kTile * kTile * 4 + m_still.sizeInBytes() + m_overview.sizeInBytes();
}
