// SPDX-License-Identifier: GPL-2.0-or-later
// The way of one plan, from its file to the sheets' file. Every face of it, command or dialog, asks
// here and words what it is answered.
#pragma once

#include <kelo_base/core/Export.h>
#include <kelo_base/core/ReplacedFile.h>
#include <kelo_base/dxf/DxfReader.h>
#include <kelo_base/dxf/SheetAnalysis.h>
#include <kelo_base/dxf/SheetPreview.h>
#include <memory>
#include <optional>
#include <vector>

/// How the user wants a plan analysed.
struct AnalysisOptions
{
    SheetFilter filter;
    CornerOrder order = CornerOrder::Upright;
    bool appliesPlacement = false; ///< sheets lie where their inserts put them, see PlaceInserts()
    DxfReadOptions reading = {};   ///< for Open() alone
};

/// Which older files an export may take the place of.
struct Gk2ExportOptions
{
    bool replacesForeign = true; ///< one that is no GK2 file and not empty
    bool replacesByNone = true;  ///< one that holds sheets, when there are none to be written
};

/// What became of an export.
struct [[nodiscard]] Gk2Export
{
    enum class Outcome {
        Written,
        IsThePlan,    ///< the target is the plan itself, by whatever name
        IsForeign,    ///< Gk2ExportOptions::replacesForeign
        WouldBeEmpty, ///< Gk2ExportOptions::replacesByNone
        NotStored,    ///< fault tells why
        Cancelled
    };
    Outcome outcome = Outcome::Written;
    FileFault fault;
    qint64 written = 0;     ///< records formatted, whether or not they could be stored
    bool keptOlder = false; ///< not written, and a file that was there is as it was
    explicit operator bool() const { return outcome == Outcome::Written; }
};

/// What the two steps of opening report to; either may give up.
struct PlanStages
{
    PlanProgress reading;
    PlanProgress analyzing;
};

struct PlanOpening;

/// A plan that was read and analysed as a whole, with the sheets chosen from it.
class KELO_BASE_EXPORT PlanSession
{
public:
    /// Reads and analyses a plan. @param path  may be as FileNameFromBytes() gives it
    static PlanOpening Open(const QString &path, const AnalysisOptions &options = {},
                            const PlanStages &progress = {});
    /// The same from an open device, to its end. @param name  stands for it where people read it
    static PlanOpening Open(QIODevice &device, const QString &name,
                            const AnalysisOptions &options = {}, const PlanStages &progress = {});
    Q_DISABLE_COPY_MOVE(PlanSession)

    /// Absolute; empty when the plan came from a device.
    [[nodiscard]] QString Path() const { return m_path; }
    /// The plan's name without its folder, for people.
    [[nodiscard]] QString Name() const { return m_name; }
    [[nodiscard]] const DxfDrawing &Drawing() const { return m_drawing; }
    /// To set export marks; labels are set by Relabel().
    [[nodiscard]] DxfDrawing &Drawing() { return m_drawing; }
    /// The sheets chosen, as SelectSheets() gives them.
    [[nodiscard]] const std::vector<quint32> &Sheets() const { return m_analysis.sheets; }
    /// The last review; its sheets are those chosen since.
    [[nodiscard]] const SheetAnalysis &Analysis() const { return m_analysis; }
    /// Those of reading, then those of the last review.
    [[nodiscard]] std::vector<PlanFinding> Findings() const;
    /// How many findings are warnings, all counted.
    [[nodiscard]] qint64 Warnings() const;

    /// Labels the corners anew, after putting sheets where the options want them, and reviews.
    /// False when memory does not suffice: the labels are then undefined. Drawing() may have other
    /// inserts afterwards; their marks stay, except where an insert was or becomes a grid of
    /// several.
    bool Relabel(const AnalysisOptions &options);
    /// Chooses the sheets anew, but reviews nothing: the findings stay those of before. False when
    /// memory does not suffice; so with Review().
    bool Choose(const SheetFilter &filter);
    /// Chooses and reviews; takes several times as long as choosing. Also false, and nothing
    /// changed, when @p progress gave up.
    bool Review(const SheetFilter &filter, const PlanProgress &progress = {});
    /// All that can be sheets, as without a filter. May throw std::bad_alloc the first time.
    [[nodiscard]] const std::vector<quint32> &AllSheets();

    /// Whether any of the sheets chosen would be written: has a number and its mark.
    [[nodiscard]] bool HasRecords() const;
    /// Writes the sheets chosen, and marked, to a file that replaces an older one as a whole.
    Gk2Export Export(const QString &path, const Gk2ExportOptions &options = {},
                     const PlanProgress &progress = {}) const;
    /// Draws the sheets chosen into a file, by the same rule: .svg, or .png with any other name.
    /// Wants an application object with fonts (QGuiApplication).
    /// @param changed, gone  what to show of a comparison, see ShowSheetNews()
    [[nodiscard]] FileFault ExportPicture(const QString &path,
                                          std::span<const ChangedSheet> changed = {},
                                          qint64 gone = 0) const;

private:
    PlanSession(const QString &path, const QString &name, DxfReadResult &&read);
    static PlanOpening analysed(std::unique_ptr<PlanSession> session,
                                const AnalysisOptions &options, const PlanProgress &progress);
    /// False when the plan would become too large, or @p progress gave up.
    bool place(bool appliesPlacement, const PlanProgress &progress = {});
    [[nodiscard]] Gk2Export::Outcome refusal(const QString &path,
                                             const Gk2ExportOptions &options) const;

    QString m_path;
    QString m_name;
    DxfDrawing m_drawing;
    std::optional<DxfDrawing> m_asRead;      ///< the drawing without placement, while it has one
    std::vector<PlanFinding> m_readFindings; ///< faults that did not hinder reading
    SheetAnalysis m_analysis;
    std::optional<std::vector<quint32>> m_all; ///< AllSheets(), once somebody asked
};

/// What became of opening a plan.
struct [[nodiscard]] PlanOpening
{
    enum class Outcome {
        Opened,
        NotRead,     ///< error tells why
        NotAnalysed, ///< memory does not suffice, or a plan becomes too large when placed
        Cancelled
    };
    Outcome outcome = Outcome::Opened;
    std::unique_ptr<PlanSession> session = {}; ///< null unless it was opened
    std::optional<DxfReadError> error = {};    ///< of NotRead, and of a plan too large to be placed
    explicit operator bool() const { return outcome == Outcome::Opened; }
};
