// SPDX-License-Identifier: GPL-2.0-or-later
// The corners of a sheet for people to read.
#include "dxf/sheets/cornertext_p.h"
#include <QCoreApplication>
#include <QGuiApplication>
#include <kelo_base/dxf/Gk2Writer.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class CornerTexts
{
    Q_DECLARE_TR_FUNCTIONS(SheetCorners)

public:
    static QString none() { return tr("no corners"); }
    static QString line(std::size_t place, const QString &point)
    {
        const std::array lines{tr("Top left: %1"), tr("Top right: %1"), tr("Bottom right: %1"),
                               tr("Bottom left: %1")};
        return lines[place].arg(point);
    }
};

/// Written as in the exported file, so that the two can be compared at sight.
QString coordinateText(double coordinate)
{
    std::string text;
    AppendGk2Coordinate(text, coordinate);
    return QString::fromStdString(text).trimmed();
}

QString pointText(const DxfVertex &point)
{
    const QString text = coordinateText(point.x) + u' ' + coordinateText(point.y);
    // Without a mark, a line from right to left would show y before x.
    return QGuiApplication::isRightToLeft() ? QChar(0x200E) + text : text;
}

} // namespace

QString dxftools::cornersText(const SheetCorners &corners)
{
    const bool hasOpposite = corners[0] && corners[2];
    QStringList points;
    for (std::size_t place = 0; place < corners.size(); ++place)
        if (corners[place] && (!hasOpposite || place % 2 == 0))
            points << pointText(*corners[place]);
    return points.isEmpty() ? CornerTexts::none() : points.join(u" \u2013 "_s);
}

QStringList dxftools::cornerLines(const SheetCorners &corners)
{
    QStringList lines;
    for (std::size_t place = 0; place < corners.size(); ++place)
        if (corners[place])
            lines << CornerTexts::line(place, pointText(*corners[place]));
    return lines;
}
