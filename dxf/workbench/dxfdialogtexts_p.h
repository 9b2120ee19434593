// SPDX-License-Identifier: GPL-2.0-or-later
// What the workbench dialog says beside the texts that all plan tools share.
#pragma once

#include "dxf/read/readertext_p.h"
#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <kelo_base/spreadsheet/TableWriter.h>

/// Captions, sentences and names for screen readers. Names of plans come without their folder.
/// Where something is counted, one has a sentence of its own: English is right without a catalogue.
class DxfDialogTexts
{
    Q_DECLARE_TR_FUNCTIONS(DxfToolsDialog)

public:
    static QString Title() { return tr("DXF Workbench"); }
    static QString TitleWithPlan(const QString &plan) { return tr("%1 - DXF Workbench").arg(plan); }

    static QString Open() { return tr("&Open..."); }
    /// @param key  "Ctrl+O"
    static QString OpenHelp(const QString &key) { return tr("Opens a DXF plan (%1)").arg(key); }
    static QString Recent() { return tr("&Recent"); }
    static QString PlanFiles() { return tr("DXF plans (*.dxf *.DXF);;All files (*)"); }
    static QString NoRecentPlans() { return tr("No plan has been read yet"); }
    static QString RemoveFromList() { return tr("Re&move from List"); }
    static QString NoPlan() { return tr("Open a DXF plan, or drop one here"); }
    static QString OnlyOneFile()
    {
        return tr("Only one plan can be shown at a time: drop one file");
    }
    static QString PlanRead(const QString &plan, qint64 inserts)
    {
        return (inserts == 1 ? tr("%1: 1 insert read")
                             : tr("%1: %Ln inserts read", nullptr, textAmount(inserts)))
            .arg(plan);
    }

    static QString Reading(const QString &plan) { return tr("Reading %1").arg(plan); }
    static QString Analyzing(const QString &plan) { return tr("Analyzing %1").arg(plan); }
    /// @param done, total  "1.5 MiB"
    static QString BytesOf(const QString &done, const QString &total)
    {
        return tr("%1 of %2").arg(done, total);
    }
    static QString Cancel() { return tr("Cancel"); }
    static QString ReadingCancelled(const QString &plan)
    {
        return tr("Reading %1 was cancelled").arg(plan);
    }
    static QString ReadFailed(const QString &plan, const QString &why)
    {
        return tr("%1: %2").arg(plan, why);
    }
    static QString ReadFailedAtLine(const QString &plan, qint64 line, const QString &why)
    {
        return tr("%1, line %2: %3").arg(plan, QString::number(line), why);
    }
    /// @param sentence  why another plan was not read
    static QString StillShown(const QString &sentence, const QString &plan)
    {
        return tr("%1 - %2 is still shown").arg(sentence, plan);
    }

    static QString Tag() { return tr("&Tag:"); }
    static QString Value() { return tr("Va&lue:"); }
    static QString ExcludeTag() { return tr("Ta&g:"); }
    static QString IncludeTagName() { return tr("Tag that blocks must have"); }
    static QString IncludeValueName() { return tr("Value that blocks must have under the tag"); }
    static QString ExcludeTagName() { return tr("Tag that blocks must not have"); }
    static QString OfferHelp() { return tr("The Down key offers what the plan has."); }

    static QString Tolerance() { return tr("Co&unts as moved beyond:"); }
    static QString ToleranceHelp()
    {
        return tr("An export over an older GK2 file tells which sheets have moved by more than "
                  "that, in units of the plan.");
    }

    static QString SheetList() { return tr("&Selected sheets:"); }
    static QString CounterName() { return tr("Number of selected sheets"); }
    static QString ToBeExported(qint64 sheets)
    {
        return tr("To be exported: %1").arg(QLocale().toString(sheets));
    }
    static QString MarkAll() { return tr("Mark &All"); }
    static QString MarkNone() { return tr("Mark &None"); }
    static QString MarkSelected() { return tr("Mar&k Selected"); }
    static QString MarkSelectedHelp()
    {
        return tr("Marks the sheets that are selected; all others stay as they are. The space bar "
                  "marks them or takes their marks away.");
    }
    static QString Picture() { return tr("&Picture:"); }
    static QString ZoomIn() { return tr("Zoom In"); }
    static QString ZoomOut() { return tr("Zoom Out"); }
    static QString ZoomToFit() { return tr("Show All"); }
    static QString SavePicture() { return tr("Save Picture..."); }
    static QString PictureHelp() { return tr("What mouse and keys do in the picture"); }
    static QString PictureFiles() { return tr("SVG drawing (*.svg);;PNG image (*.png)"); }
    static QString PictureSaved(const QString &file) { return tr("Picture saved as %1").arg(file); }
    static QString Findings() { return tr("&Findings:"); }
    static QString FindingsCounted(qint64 warnings, qint64 notes)
    {
        const QString warningText =
            warnings == 1 ? tr("1 warning") : tr("%Ln warnings", nullptr, textAmount(warnings));
        const QString noteText =
            notes == 1 ? tr("1 note") : tr("%Ln notes", nullptr, textAmount(notes));
        if (warnings == 0 && notes == 0)
            return Findings();
        if (notes == 0 || warnings == 0)
            return tr("&Findings: %1").arg(notes == 0 ? warningText : noteText);
        return tr("&Findings: %1, %2").arg(warningText, noteText);
    }
    static QString Severity() { return tr("Kind"); }
    static QString Line() { return tr("Line"); }
    static QString Finding() { return tr("Finding"); }
    static QString Copy() { return tr("Copy as Table"); }
    static QString NoFindings() { return tr("No findings"); }

    static QString Export() { return tr("&Export as GK2..."); }
    static QString ExportTable() { return tr("E&xport as Table..."); }
    static QString ExportTableHelp()
    {
        return tr("Writes the marked sheets with all their attributes and corners to a file for "
                  "spreadsheet programs.");
    }
    /// For file dialogs; empty for a format that is not offered.
    static QString TableFiles(spreadsheet::Format format)
    {
        switch (format) {
        case spreadsheet::Format::Xlsx:
            return tr("Workbook (*.xlsx)");
        case spreadsheet::Format::Ods:
            return tr("OpenDocument spreadsheet (*.ods)");
        case spreadsheet::Format::Csv:
            return tr("Text with separators (*.csv)");
        case spreadsheet::Format::Pdf:
            break;
        }
        return {};
    }
    static QString NoTableSuffix() { return tr("its name has to end in .xlsx, .ods or .csv"); }
    static QString Writing(const QString &file) { return tr("Writing %1").arg(file); }
    static QString WritingCancelled(const QString &file)
    {
        return tr("Writing %1 was cancelled").arg(file);
    }
    static QString Close() { return tr("&Close"); }
    static QString About() { return tr("A&bout..."); }
    static QString AboutTitle() { return tr("About This Program"); }
    static QString CopyText() { return tr("Co&py"); }
    static QString Exported(qint64 sheets, const QString &file)
    {
        return (sheets == 1 ? tr("1 sheet written to %1")
                            : tr("%Ln sheets written to %1", nullptr, textAmount(sheets)))
            .arg(file);
    }
    static QString SheetIsNew(const QString &sheet) { return tr("Sheet '%1' is new").arg(sheet); }
    static QString SheetIsGone(const QString &sheet)
    {
        return tr("Sheet '%1' is not in the file any more").arg(sheet);
    }
    static QString SheetHasMoved(const QString &sheet, const QString &distance)
    {
        return tr("Sheet '%1' has moved by %2").arg(sheet, distance);
    }
    static QString SheetHasOtherCorners(const QString &sheet)
    {
        return tr("Sheet '%1' has another number of corners").arg(sheet);
    }
    static QString SheetIsRenamed(const QString &before, const QString &after)
    {
        return tr("Sheet '%1' is now called '%2'").arg(before, after);
    }
    static QString ChangesCounted(qint64 added, qint64 gone, qint64 moved, qint64 renamed)
    {
        if (added + gone + moved + renamed == 0)
            return tr("nothing changed against the older file");
        return tr("against the older file: %1 new, %2 gone, %3 moved, %4 renamed")
            .arg(added)
            .arg(gone)
            .arg(moved)
            .arg(renamed);
    }
    /// @param exported  what was written
    static QString ExportedWithChanges(const QString &exported, const QString &changes)
    {
        return tr("%1 - %2").arg(exported, changes);
    }
    static QString NotExported(const QString &file, const QString &why)
    {
        return tr("%1 was not written: %2").arg(file, why);
    }
    static QString OlderFileKept(const QString &sentence)
    {
        return tr("%1 - the older file is unchanged").arg(sentence);
    }
    static QString IsThePlan(const QString &file)
    {
        return tr("%1 is the plan itself and is not overwritten").arg(file);
    }
    static QString IsAFolder() { return tr("it is a folder"); }
    static QString IsWriteProtected() { return tr("it is write-protected"); }

    static QString Warning() { return tr("Warning"); }
    static QString Information() { return tr("Information"); }
};
