// SPDX-License-Identifier: GPL-2.0-or-later
// Small plans for tests: pairs of code and value, written as ASCII or binary, and drawings as text.
#pragma once

#include <QByteArray>
#include <QList>
#include <QtEndian>
#include <kelo_base/dxf/DxfDrawing.h>
#include <utility>

using PlanPairs = QList<std::pair<int, QByteArray>>;

/// "0 SECTION|2 BLOCKS|..." as pairs.
inline PlanPairs pairsOf(const QByteArray &text)
{
    PlanPairs pairs;
    for (const QByteArray &pair : text.split('|')) {
        const qsizetype blank = pair.indexOf(' ');
        pairs.append({pair.left(blank).toInt(), blank < 0 ? QByteArray() : pair.mid(blank + 1)});
    }
    return pairs;
}

inline QByteArray asciiPlan(const PlanPairs &pairs, const QByteArray &lineEnd = "\n", int width = 3)
{
    QByteArray plan;
    for (const auto &[code, value] : pairs)
        plan += QByteArray::number(code).rightJustified(width) + lineEnd + value + lineEnd;
    return plan;
}

/// With codes of two bytes, or of one as until R12. Knows the codes that tests use.
inline QByteArray binaryPlan(const PlanPairs &pairs, bool isWide)
{
    QByteArray plan("AutoCAD Binary DXF\r\n\x1a\0", 22);
    const auto append = [&plan](auto number) {
        number = qToLittleEndian(number);
        plan.append(reinterpret_cast<const char *>(&number), sizeof number);
    };
    for (const auto &[code, value] : pairs) {
        if (!isWide)
            plan += static_cast<char>(std::min(code, 255));
        if (isWide || code >= 255)
            append(static_cast<qint16>(code));
        if ((code >= 10 && code < 60) || (code >= 140 && code < 150) ||
            (code >= 210 && code < 240) || code / 10 == 101)
            append(value.toDouble());
        else if ((code >= 60 && code < 80) || code == 1070)
            append(static_cast<qint16>(value.toInt()));
        else if (code >= 90 && code < 100)
            append(static_cast<qint32>(value.toInt()));
        else
            plan += value + '\0';
    }
    return plan;
}

/// "A[closed 0,0 1,0] B[] | A BL_NR=1 TITEL=x | nested B BL_NR=2"
inline QByteArray textOf(const DxfDrawing &drawing)
{
    const auto bytes = [](std::string_view text) {
        return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
    };
    const auto number = [](double value) { return QByteArray::number(value, 'g', 17); };
    QByteArrayList blocks;
    for (const DxfBlock &block : drawing.Blocks()) {
        QByteArrayList polylines;
        for (const DxfPolyline &polyline : drawing.Polylines(block)) {
            QByteArrayList words(polyline.closed ? 1 : 0, "closed");
            for (const DxfVertex &vertex : drawing.Vertices(polyline))
                words << number(vertex.x) + ',' + number(vertex.y);
            polylines << words.join(' ');
        }
        blocks << bytes(drawing.Name(block)) + '[' + polylines.join("; ") + ']';
    }
    QByteArray text = blocks.join(' ');
    const auto addInserts = [&](const auto &inserts, const char *prefix) {
        for (const DxfInsert &insert : inserts) {
            text += prefix + bytes(drawing.BlockName(insert));
            for (const DxfAttribute &attribute : drawing.Attributes(insert))
                text += ' ' + bytes(drawing.Tag(attribute)) + '=' + bytes(drawing.Value(attribute));
        }
    };
    addInserts(drawing.Inserts(), " | ");
    addInserts(drawing.NestedSheetInserts(), " | nested ");
    return text;
}
