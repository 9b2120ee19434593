// SPDX-License-Identifier: GPL-2.0-or-later
// Drives the parser group by group, and collects what it calls.
#include "BackdropReader.h"

#include "Backdrop.h"
#include "BackdropGate.h"
#include "PlainMText.h"
#include <QDeadlineTimer>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <istream>
#include <numbers>
#include <sstream>
#include <vector>

namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kLineSpacing = 5.0 / 3; ///< of several lines of text, in heights of its capitals
constexpr int kGrownEvery = 500;         ///< milliseconds

/// The arc of a polyline's segment. The bulge is the tangent of a quarter of its angle, above 0 for
/// one that goes counter-clockwise.
BackdropArc arcOf(QPointF from, QPointF to, double bulge)
{
    const QPointF chord = to - from;
    const QPointF left(-chord.y(), chord.x());
    const QPointF centre = (from + to) / 2 + left * ((1 - bulge * bulge) / (4 * bulge));
    const auto angleOf = [centre](QPointF point) {
        return std::atan2(point.y() - centre.y(), point.x() - centre.x());
    };
    BackdropArc arc{centre, std::hypot(from.x() - centre.x(), from.y() - centre.y()),
                    angleOf(bulge > 0 ? from : to), angleOf(bulge > 0 ? to : from)};
    if (arc.end < arc.begin)
        arc.end += kTurn;
    return arc;
}

/// Puts what the parser finds into a backdrop.
class Collector : public DL_CreationAdapter
{
public:
    explicit Collector(Backdrop &backdrop) : m_backdrop(backdrop) {}

    void addLine(const DL_LineData &line) override
    {
        m_backdrop.addLine({line.x1, line.y1}, {line.x2, line.y2});
    }
    void addCircle(const DL_CircleData &circle) override
    {
        m_backdrop.addArc({place(circle.cx, circle.cy), circle.radius, 0, kTurn});
    }
    void addArc(const DL_ArcData &arc) override
    {
        double begin = arc.angle1 * kDegree;
        double end = arc.angle2 * kDegree;
        if (isFromBelow()) {
            std::swap(begin, end);
            begin = std::numbers::pi - begin;
            end = std::numbers::pi - end;
        }
        while (end <= begin && std::isfinite(end))
            end += kTurn;
        m_backdrop.addArc({place(arc.cx, arc.cy), arc.radius, begin, end});
    }
    void addPolyline(const DL_PolylineData &line) override
    {
        m_vertices.clear();
        m_isClosed = (line.flags & 1) != 0;
        m_isPolylineFromBelow = isFromBelow();
    }
    void addVertex(const DL_VertexData &vertex) override
    {
        m_vertices.emplace_back(m_isPolylineFromBelow ? -vertex.x : vertex.x, vertex.y, 0,
                                m_isPolylineFromBelow ? -vertex.bulge : vertex.bulge);
    }
    void endSequence() override
    {
        for (std::size_t i = 1; i < m_vertices.size(); ++i)
            addSegment(m_vertices[i - 1], m_vertices[i]);
        if (m_isClosed && m_vertices.size() > 1)
            addSegment(m_vertices.back(), m_vertices.front());
        m_vertices.clear();
    }
    void addText(const DL_TextData &text) override
    {
        const bool isStretched = text.hJustification == 3 || text.hJustification == 5;
        const bool isAligned = !isStretched && (text.hJustification | text.vJustification) != 0;
        BackdropText line;
        line.position = isAligned ? place(text.apx, text.apy) : place(text.ipx, text.ipy);
        line.height = text.height;
        line.angle = text.angle;
        if (isAligned) {
            constexpr float kX[] = {0, 0.5F, 1, 0, 0.5F, 0};
            line.alignX = kX[std::clamp(text.hJustification, 0, 5)];
            line.alignY = text.hJustification == 4 || text.vJustification == 2 ? 0.5F
                          : text.vJustification == 3                           ? 1.0F
                                                                               : 0.0F;
        }
        m_backdrop.addText(line, QByteArray::fromStdString(text.text));
    }
    void addMTextChunk(const std::string &text) override { m_chunks += text; }
    void addMText(const DL_MTextData &text) override
    {
        const QByteArrayList lines =
            plainLines(QByteArray::fromStdString(std::exchange(m_chunks, {}) + text.text));
        const int corner = std::clamp(text.attachmentPoint, 1, 9) - 1;
        const int row = corner / 3;
        const double spacing = text.height * kLineSpacing;
        const double whole = spacing * static_cast<double>(lines.size() - 1);
        double down = row == 0 ? 0 : row == 1 ? -whole / 2 : -whole;
        for (const QByteArray &line : lines) {
            BackdropText place;
            place.position = QPointF(text.ipx + down * std::sin(text.angle),
                                     text.ipy - down * std::cos(text.angle));
            place.height = text.height;
            place.angle = text.angle;
            place.alignX = static_cast<float>(corner % 3) / 2;
            place.alignY = 1 - static_cast<float>(row) / 2;
            m_backdrop.addText(place, line);
            down += spacing;
        }
    }

private:
    /// Of a plane that looks down, x has the other sign.
    bool isFromBelow() { return getExtrusion()->getDirection()[2] < 0; }
    QPointF place(double x, double y) { return {isFromBelow() ? -x : x, y}; }
    void addSegment(const DL_VertexData &from, const DL_VertexData &to)
    {
        const QPointF begin(from.x, from.y);
        const QPointF end(to.x, to.y);
        if (std::abs(from.bulge) > 1e-6 && begin != end)
            m_backdrop.addArc(arcOf(begin, end, from.bulge));
        else
            m_backdrop.addLine(begin, end);
    }

    Backdrop &m_backdrop;
    std::vector<DL_VertexData> m_vertices;
    std::string m_chunks;
    bool m_isClosed = false;
    bool m_isPolylineFromBelow = false;
};

} // namespace

struct BackdropReader::Work
{
    explicit Work(Backdrop &backdrop) : collector(backdrop)
    {
        std::istringstream nothing("0\nEOF\n");
        parser.in(nothing, &collector); // sets what the parser's constructor leaves open
    }
    BackdropGate gate;
    std::istream stream{&gate};
    Collector collector;
    DL_Dxf parser;
};

BackdropReader::BackdropReader(const QString &path, Backdrop &backdrop, QObject *parent)
    : QObject(parent), m_backdrop(backdrop), m_work(std::make_unique<Work>(backdrop))
{
    m_sinceGrown.start();
    connect(&m_timer, &QTimer::timeout, this, [this] { read(m_slice); });
    if (!m_work->gate.open(path)) // whoever opened the plan was told by the reader of sheets
        m_work->stream.setstate(std::ios::eofbit);
    m_timer.start(0);
}

BackdropReader::~BackdropReader() = default;

double BackdropReader::progress() const
{
    if (!m_work || m_work->gate.size() <= 0)
        return 1;
    return static_cast<double>(m_work->gate.done()) / static_cast<double>(m_work->gate.size());
}

void BackdropReader::read(int milliseconds)
{
    constexpr int kGroupsBetweenLooks = 256;
    const QDeadlineTimer deadline(milliseconds); // a negative number never expires
    bool goesOn = m_work != nullptr && m_work->stream.good();
    while (goesOn && !deadline.hasExpired())
        for (int i = 0; goesOn && i < kGroupsBetweenLooks; ++i)
            goesOn = m_work->parser.readDxfGroups(m_work->stream, &m_work->collector);
    if (goesOn) {
        if (m_sinceGrown.elapsed() >= kGrownEvery) {
            m_backdrop.flush();
            m_sinceGrown.restart();
            emit grown();
        }
        return;
    }
    if (!m_work)
        return;
    m_work.reset();
    m_timer.stop();
    m_backdrop.finish();
    emit finished();
}
