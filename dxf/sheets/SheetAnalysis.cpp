// SPDX-License-Identifier: GPL-2.0-or-later
// Analyses a drawing: labels the sheet corners, chooses the sheets, notes what a user should know.
#include <kelo_base/dxf/SheetAnalysis.h>

#include "dxf/read/sheetnumber_p.h"
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/filterplan_p.h"
#include "dxf/sheets/insertfilter_p.h"
#include "dxf/sheets/lookahead_p.h"
#include "dxf/sheets/stepcounter_p.h"
#include <algorithm>
#include <kelo_base/dxf/SheetPlacing.h>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

/// The warnings of one kind. A damaged plan may have a million: nobody reads, nor should anybody
/// store them all.
class WarningKind
{
public:
    WarningKind(SheetAnalysis &analysis, const QString &file) : m_analysis(analysis), m_file(file)
    {
    }
    ~WarningKind()
    {
        if (m_count > kMost)
            append(0, {}, DxfToolTexts::MoreOfThisKind(m_count - kMost));
    }
    Q_DISABLE_COPY_MOVE(WarningKind)

    /// @param text  makes the sentence; called only when it is kept
    template <typename Text>
    void Add(quint32 line, const QString &subject, Text text)
    {
        ++m_analysis.warnings;
        if (++m_count <= kMost)
            append(line, subject, text());
    }

private:
    void append(qint64 line, const QString &subject, const QString &text)
    {
        m_analysis.diagnostics.push_back({.severity = PlanFinding::Severity::Warning,
                                          .file = m_file,
                                          .line = line,
                                          .offset = 0,
                                          .subject = subject,
                                          .text = text});
    }

    static constexpr qint64 kMost = 1000;
    SheetAnalysis &m_analysis;
    const QString &m_file;
    qint64 m_count = 0;
};

/// Goes through a drawing in the order in which its user would: frames, numbers, what is left out.
class Review
{
public:
    Review(const DxfDrawing &drawing, const QString &file, SheetAnalysis &analysis)
        : m_drawing(drawing), m_file(file), m_analysis(analysis)
    {
    }

    bool Frames(StepCounter &steps);
    bool MissingNumbers(StepCounter &steps);
    bool RepeatedNumbers(StepCounter &steps);
    bool MissingPolylines(const SheetFilter &filter, StepCounter &steps);
    bool Positions(StepCounter &steps);
    void NestedSheets();
    void NoSheets(const SheetFilter &filter);

private:
    [[nodiscard]] const DxfInsert &insertOf(quint32 sheet) const
    {
        return m_drawing.Inserts()[sheet];
    }
    [[nodiscard]] QString shown(std::string_view text) const { return m_drawing.DisplayText(text); }

    [[nodiscard]] QString searchText(const DxfInsert &insert) const;
    bool unplaced(StepCounter &steps);
    void note(const QString &text)
    {
        m_analysis.diagnostics.push_back({.severity = PlanFinding::Severity::Note,
                                          .file = m_file,
                                          .line = 0,
                                          .offset = 0,
                                          .subject = {},
                                          .text = text});
    }

    const DxfDrawing &m_drawing;
    const QString &m_file;
    SheetAnalysis &m_analysis;
};

bool Review::Frames(StepCounter &steps)
{
    WarningKind warnings(m_analysis, m_file);
    std::vector<bool> isKnown(m_drawing.Blocks().size());
    std::unordered_set<quint32> isTold; // a placed drawing has a block of one name for each insert
    const Lookahead lookahead(m_drawing, m_analysis.sheets);
    for (std::size_t i = 0; i < m_analysis.sheets.size(); ++i) {
        lookahead.Fetch(i);
        const quint32 sheet = m_analysis.sheets[i];
        const quint32 index = insertOf(sheet).block;
        const DxfBlock &block = m_drawing.Blocks()[index];
        if (!isKnown[index] && !HasLabelledFrame(m_drawing, block) &&
            isTold.insert(block.name).second) {
            const QString name = shown(m_drawing.ShownName(block));
            warnings.Add(block.line, name, [&] {
                return DxfToolTexts::NotOneRectangle(name, CountRectangles(m_drawing, block));
            });
        }
        isKnown[index] = true;
        if (!steps.step())
            return false;
    }
    return true;
}

bool Review::MissingNumbers(StepCounter &steps)
{
    struct Use
    {
        const DxfInsert *first;
        qint64 inserts;
    };
    std::vector<quint32> blocks; // their names in the order of their first such insert
    std::unordered_map<quint32, Use> uses;
    for (const quint32 sheet : m_analysis.sheets) {
        const DxfInsert &insert = insertOf(sheet);
        const auto text = dxftools::sheetNumberAttribute(m_drawing, insert);
        if (text && SheetNumber(*text) >= 0)
            break; // they are sorted: those without a number came before
        if (!text) {
            ++m_analysis.skipped;
            const auto [use, isNew] = uses.try_emplace(insert.blockName, Use{&insert, 0});
            ++use->second.inserts;
            if (isNew)
                blocks.push_back(insert.blockName);
        }
        if (!steps.step())
            return false;
    }
    WarningKind warnings(m_analysis, m_file);
    for (const quint32 block : blocks) {
        const Use &use = uses.at(block);
        const QString name = shown(m_drawing.ShownBlockName(*use.first));
        warnings.Add(use.first->line, name, [&] {
            return DxfToolTexts::NoSheetNumber(name, use.inserts, searchText(*use.first));
        });
    }
    return true;
}

/// What was looked for in vain, and what there is.
QString Review::searchText(const DxfInsert &insert) const
{
    constexpr qsizetype kMostTags = 8;
    QStringList tags;
    for (const DxfAttribute &attribute : m_drawing.Attributes(insert)) {
        if (tags.size() == kMostTags) {
            tags << QString(QChar(0x2026));
            break;
        }
        tags << shown(m_drawing.Tag(attribute));
    }
    return DxfToolTexts::LookedForNumber(shown(m_drawing.NumberTag()), tags);
}

bool Review::RepeatedNumbers(StepCounter &steps)
{
    WarningKind warnings(m_analysis, m_file);
    std::unordered_map<std::string_view, int> uses; // of sheets that sort alike: "A1" and "B1" do
    qint64 sorted = -2;
    const Lookahead lookahead(m_drawing, m_analysis.sheets);
    for (std::size_t i = 0; i < m_analysis.sheets.size(); ++i) {
        lookahead.Fetch(i);
        if (!steps.step())
            return false;
        const DxfInsert &insert = insertOf(m_analysis.sheets[i]);
        const auto text = dxftools::sheetNumberAttribute(m_drawing, insert);
        if (!text)
            continue;
        const qint64 number = SheetNumber(*text);
        if (number != std::exchange(sorted, number))
            uses.clear();
        if (++uses[*text] == 2) {
            const QString name = shown(*text);
            warnings.Add(insert.line, name, [&] { return DxfToolTexts::RepeatedNumber(name); });
        }
    }
    return true;
}

bool Review::MissingPolylines(const SheetFilter &filter, StepCounter &steps)
{
    const InsertFilter wanted(filter, m_drawing);
    WarningKind warnings(m_analysis, m_file);
    for (const DxfInsert &insert : m_drawing.Inserts()) {
        if (!steps.step())
            return false;
        if (dxftools::hasPolylines(m_drawing, insert) || !wanted.passes(insert))
            continue;
        const auto number = dxftools::sheetNumberAttribute(m_drawing, insert);
        if (!number)
            continue;
        ++m_analysis.skipped;
        const QString name = shown(*number);
        warnings.Add(insert.line, name, [&] {
            return DxfToolTexts::NoPolyline(name, shown(m_drawing.ShownBlockName(insert)),
                                            m_drawing.BlockOf(insert) != nullptr);
        });
    }
    return true;
}

/// Where sheets lie, and where the user may expect them.
bool Review::Positions(StepCounter &steps)
{
    if (m_drawing.IsPlaced())
        return unplaced(steps);
    std::vector<quint8> uses(m_drawing.Blocks().size());
    for (const quint32 sheet : m_analysis.sheets) {
        quint8 &count = uses[insertOf(sheet).block];
        count = static_cast<quint8>(std::min(count + 1, 2));
    }
    qint64 shared = 0;
    qint64 moved = 0;
    for (const quint32 sheet : m_analysis.sheets) {
        const quint32 block = insertOf(sheet).block;
        const bool hasCorners = HasLabelledFrame(m_drawing, m_drawing.Blocks()[block]);
        if (hasCorners && uses[block] > 1)
            ++shared;
        else if (hasCorners && IsMoved(m_drawing, sheet))
            ++moved;
        if (!steps.step())
            return false;
    }
    if (shared > 0)
        note(DxfToolTexts::SharedCorners(shared));
    if (moved > 0)
        note(DxfToolTexts::MovedInserts(moved));
    return true;
}

/// Sheets of a placed drawing that could not be placed.
bool Review::unplaced(StepCounter &steps)
{
    WarningKind warnings(m_analysis, m_file);
    for (const quint32 sheet : m_analysis.sheets) {
        const DxfPlacement::Plane plane = m_drawing.Placement(sheet).plane;
        if (plane != DxfPlacement::Plane::Upwards) {
            const QString name =
                shown(dxftools::sheetNumberAttribute(m_drawing, insertOf(sheet)).value_or(""));
            warnings.Add(insertOf(sheet).line, name, [&] {
                return DxfToolTexts::NotPlaced(name, plane == DxfPlacement::Plane::Tilted);
            });
        }
        if (!steps.step())
            return false;
    }
    return true;
}

void Review::NestedSheets()
{
    WarningKind warnings(m_analysis, m_file);
    for (const DxfInsert &insert : m_drawing.NestedSheetInserts()) {
        const QString name = shown(*dxftools::sheetNumberAttribute(m_drawing, insert));
        warnings.Add(insert.line, name, [&] { return DxfToolTexts::NestedSheet(name); });
    }
}

void Review::NoSheets(const SheetFilter &filter)
{
    if (m_analysis.sheets.empty())
        WarningKind(m_analysis, m_file).Add(0, {}, [&] {
            return dxftools::whyNoSheets(m_drawing, filter);
        });
}

/// A binary plan has no lines: what was taken for one is an offset, which goes into the text too.
void tellOffsets(std::vector<PlanFinding> &diagnostics)
{
    for (PlanFinding &diagnostic : diagnostics) {
        diagnostic.offset = std::exchange(diagnostic.line, 0);
        if (diagnostic.offset > 0)
            diagnostic.text = DxfToolTexts::AtByte(diagnostic.text, diagnostic.offset);
    }
}

/// The part of a work that begins after @p before of its items.
PlanProgress partOf(const PlanProgress &progress, std::size_t before, std::size_t total)
{
    if (!progress)
        return {};
    return [&progress, before, total](qint64 done, qint64) {
        return progress(static_cast<qint64>(before) + done, static_cast<qint64>(total));
    };
}

} // namespace

bool LabelSheets(DxfDrawing &drawing, CornerOrder order, const PlanProgress &progress)
{
    const std::size_t blocks = drawing.Blocks().size();
    GK::CRoutingTilesRevisor revisor(drawing, order);
    StepCounter steps(progress, blocks);
    for (std::size_t block = 0; block < blocks; ++block) {
        revisor.ReviseBlock(block);
        if (!steps.step())
            return false;
    }
    return true;
}

std::optional<SheetAnalysis> ReviewSheets(const DxfDrawing &drawing, const SheetFilter &filter,
                                          const QString &file, const PlanProgress &progress)
{
    const std::size_t inserts = drawing.Inserts().size();
    const std::size_t most = 6 * inserts; // when all inserts are sheets
    auto sheets = SelectSheets(drawing, filter, partOf(progress, 0, most));
    if (!sheets)
        return std::nullopt;
    SheetAnalysis analysis;
    analysis.sheets = *std::move(sheets);
    Review review(drawing, file, analysis);
    const PlanProgress rest = partOf(progress, inserts, most);
    StepCounter steps(rest, most - inserts);
    const bool isDone = review.Frames(steps) && review.MissingNumbers(steps) &&
                        review.RepeatedNumbers(steps) && review.MissingPolylines(filter, steps) &&
                        review.Positions(steps);
    if (!isDone)
        return std::nullopt;
    review.NestedSheets();
    review.NoSheets(filter);
    if (drawing.IsBinary())
        tellOffsets(analysis.diagnostics);
    return analysis;
}

std::optional<SheetAnalysis> AnalyzeSheets(DxfDrawing &drawing, const SheetFilter &filter,
                                           CornerOrder order, const QString &file,
                                           const PlanProgress &progress)
{
    const std::size_t blocks = drawing.Blocks().size();
    const std::size_t total = blocks + 6 * drawing.Inserts().size();
    if (!LabelSheets(drawing, order, partOf(progress, 0, total)))
        return std::nullopt;
    return ReviewSheets(drawing, filter, file, partOf(progress, blocks, total));
}
