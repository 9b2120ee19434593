// SPDX-License-Identifier: GPL-2.0-or-later
// What the plan tools say to their users, in one place for every face of them.
#pragma once

#include "dxf/read/readertext_p.h"
#include <QCoreApplication>
#include <QString>

/// Titles, options, reports and findings. The file reader has its own messages.
///
/// Where something is counted, "one" has a sentence of its own: so English is right without a
/// catalogue, which nobody then has to find and load; "%n" gives other languages all their forms.
class DxfToolTexts
{
    Q_DECLARE_TR_FUNCTIONS(DxfTools)

public:
    static QString ReadFileTitle() { return tr("Read File"); }
    static QString AnalyzeFileTitle() { return tr("Analyze File"); }
    static QString AnalyzeFailed() { return tr("Analyze file failed!"); }

    static QString CorrectVertexPositions() { return tr("Correct &Vertex Positions"); }
    static QString IncludeTitle() { return tr("Only &include blocks WITH"); }
    static QString ExcludeTitle() { return tr("&Do not include blocks WITH"); }

    static QString ExportFileTitle() { return tr("Export DXF as Kelo-GK2"); }
    /// The first word is spelled so on purpose: users know the box by it.
    static QString ExportReportTitle() { return tr("DFX GK2 Export"); }
    static QString ExportReport(qint64 inserts)
    {
        return tr("Export completed - Inserts written: %1").arg(inserts);
    }

    static QString NotOneRectangle(const QString &block, std::size_t rectangles)
    {
        const QString text =
            rectangles == 0
                ? tr("Rectangle detector detected less or more than one rectangle (Block:%1): "
                     "none found")
                : tr("Rectangle detector detected less or more than one rectangle (Block:%1): "
                     "%n found",
                     nullptr, textAmount(static_cast<qint64>(rectangles)));
        return text.arg(shown(block));
    }
    /// @param search  LookedForNumber() of one of the inserts
    static QString NoSheetNumber(const QString &block, qint64 inserts, const QString &search)
    {
        const QString text =
            inserts == 1
                ? tr("An insert of block '%1' has no sheet number and is not exported: %2")
                : tr("%n inserts of block '%1' have no sheet number and are not exported: %2",
                     nullptr, textAmount(inserts));
        return text.arg(shown(block), search);
    }
    /// @param tag   the one tag that counts; empty: BL_NR and Bl_Nr do
    /// @param tags  those that an insert has instead
    static QString LookedForNumber(const QString &tag, const QStringList &tags)
    {
        const QString wanted = tag.isEmpty() ? tr("looked for the attribute BL_NR or Bl_Nr")
                                             : tr("looked for the attribute %1").arg(shown(tag));
        return tags.isEmpty()
                   ? tr("%1, there are none").arg(wanted)
                   : tr("%1, found %2").arg(wanted, shown(tags.join(QLatin1StringView(", "))));
    }
    static QString ApplyInsertPosition() { return tr("Appl&y insert position"); }
    static QString SharedCorners(qint64 sheets)
    {
        return tr("%n sheets have the same corners as others, because they share blocks; \"Apply "
                  "insert position\" (--placed) puts each where its insert stands",
                  nullptr, textAmount(sheets));
    }
    static QString MovedInserts(qint64 sheets)
    {
        return sheets == 1
                   ? tr("A sheet is moved, turned or scaled by its insert, which does not count; "
                        "\"Apply insert position\" (--placed) lets it count")
                   : tr("%n sheets are moved, turned or scaled by their inserts, which does not "
                        "count; \"Apply insert position\" (--placed) lets it count",
                        nullptr, textAmount(sheets));
    }
    static QString TooManyToPlace()
    {
        return tr("The rows and columns of its inserts make too many sheets to place them");
    }
    static QString NotPlaced(const QString &sheet, bool isTilted)
    {
        return isTilted ? tr("Sheet '%1' stays where its block is drawn: its insert is tilted out "
                             "of the plane")
                              .arg(shown(sheet))
                        : tr("Sheet '%1' stays where its block is drawn: the position of its "
                             "insert is no usable number")
                              .arg(shown(sheet));
    }
    static QString NoPolyline(const QString &sheet, const QString &block, bool blockExists)
    {
        return blockExists ? tr("Sheet '%1' is not exported: its block '%2' has no polyline")
                                 .arg(shown(sheet), shown(block))
                           : tr("Sheet '%1' is not exported: there is no block '%2'")
                                 .arg(shown(sheet), shown(block));
    }
    static QString RepeatedNumber(const QString &sheet)
    {
        return tr("More than one sheet has the number '%1'").arg(shown(sheet));
    }
    static QString NestedSheet(const QString &sheet)
    {
        return tr("Sheet '%1' is not exported: its insert lies inside a block").arg(shown(sheet));
    }
    static QString SheetsDrawn(qint64 sheets)
    {
        return sheets == 1 ? tr("1 sheet") : tr("%n sheets", nullptr, textAmount(sheets));
    }
    static QString DrawnInPlace() { return tr("as they lie in the plan"); }
    static QString DrawnWithoutPlacement()
    {
        return tr("as their blocks are drawn, insert positions not applied");
    }
    static QString DrawnInRows() { return tr("to scale, side by side"); }
    static QString SheetInPreview() { return tr("sheet"); }
    static QStringList CornersInPreview()
    {
        return {tr("top left"), tr("top right"), tr("bottom right"), tr("bottom left")};
    }
    static QString UnlabelledInPreview(qint64 sheets)
    {
        return tr("without labels: %1").arg(sheets);
    }
    static QString UnnumberedInPreview(qint64 sheets)
    {
        return tr("without number: %1").arg(sheets);
    }
    static QString UnmarkedInPreview(qint64 sheets) { return tr("not marked: %1").arg(sheets); }
    static QString FilteredOutInPreview(qint64 sheets)
    {
        return tr("not included: %1").arg(sheets);
    }
    static QString NewInPreview(qint64 sheets) { return tr("new: %1").arg(sheets); }
    static QString MovedInPreview(qint64 sheets) { return tr("moved: %1").arg(sheets); }
    static QString RenamedInPreview(qint64 sheets) { return tr("renamed: %1").arg(sheets); }
    static QString GoneInPreview(qint64 sheets) { return tr("gone: %1").arg(sheets); }
    static QString NoNumberInPreview() { return tr("Without sheet number"); }
    static QString PictureName() { return tr("Picture of the sheets"); }
    static QString PictureHelp()
    {
        return tr("Arrow keys move the picture, plus and minus zoom, Home shows all of it, Space "
                  "marks the selected sheets or takes their marks away.");
    }
    static QString PictureMouseHelp()
    {
        return tr("The wheel zooms, dragging moves the picture. A click selects a sheet, with Ctrl "
                  "or Shift further ones, and on the number marks it. Dragging with Shift selects "
                  "all within a rectangle. A double click shows a sheet closely, or everything.");
    }
    static QString UnmarkedSheet(const QString &number)
    {
        return tr("%1 - not marked").arg(number);
    }
    static QString FilteredOutSheet(const QString &number)
    {
        return tr("%1 - not included").arg(number);
    }
    static QString UnitsInPreview(const QString &length)
    {
        return length == QLatin1StringView("1") ? tr("1 unit") : tr("%1 units").arg(length);
    }
    static QString AtByte(const QString &text, qint64 offset)
    {
        return tr("%1, at byte %2").arg(text, QString::number(offset));
    }
    static QString MoreOfThisKind(qint64 count)
    {
        return count == 1 ? tr("1 more warning of this kind")
                          : tr("%n more warnings of this kind", nullptr, textAmount(count));
    }

private:
    /// Texts of damaged plans may be millions of bytes long.
    static QString shown(const QString &text)
    {
        constexpr qsizetype kLongest = 300;
        return text.size() <= kLongest ? text : text.left(kLongest - 1) + QChar(0x2026);
    }
};
