// SPDX-License-Identifier: GPL-2.0-or-later
// The way of one plan, from its file to the sheets' file.
#include "dxf/sheets/dxftooltexts_p.h"
#include "dxf/sheets/gk2records_p.h"
#include "dxf/sheets/insertfilter_p.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <iterator>
#include <kelo_base/core/FileName.h>
#include <kelo_base/dxf/Gk2Writer.h>
#include <kelo_base/dxf/PlanSession.h>
#include <kelo_base/dxf/SheetPlacing.h>
#include <new>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

using Outcome = Gk2Export::Outcome;

/// Whether a work that takes memory came to its end.
template <typename Work>
bool attempt(Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc &) {
        return false;
    }
}

/// Says it of the opening, when the plan was not read.
bool isRead(const DxfReadResult &read, PlanOpening &opening)
{
    if (read)
        return true;
    using Opening = PlanOpening::Outcome;
    opening.outcome = read.cancelled ? Opening::Cancelled : Opening::NotRead;
    opening.error = read.error;
    return false;
}

/// What an export would take the place of.
enum class OlderFile { None, Foreign, WithoutSheets, WithSheets };

OlderFile olderFile(const QString &path)
{
    constexpr qint64 kHead = 64; // header, empty line and the beginning of a number
    std::error_code ignored;
    QFile file;
    if (!std::filesystem::is_regular_file(SystemPath(path), ignored) || !OpenForReading(file, path))
        return OlderFile::None;
    const QByteArray head = file.read(kHead);
    if (head.isEmpty())
        return OlderFile::None;
    if (!head.startsWith("GK2\r\n") && !head.startsWith("GK2\n"))
        return OlderFile::Foreign;
    return head.trimmed().size() > 3 ? OlderFile::WithSheets : OlderFile::WithoutSheets;
}

} // namespace

PlanOpening PlanSession::Open(const QString &path, const AnalysisOptions &options,
                              const PlanStages &progress)
{
    PlanOpening opening;
    DxfReadResult read = ReadDxfFile(path, progress.reading, options.reading);
    if (!isRead(read, opening))
        return opening;
    const QFileInfo info(path);
    const QString name = ReadableFileName(info.fileName());
    return analysed(std::unique_ptr<PlanSession>(
                        new PlanSession(info.absoluteFilePath(), name, std::move(read))),
                    options, progress.analyzing);
}

PlanOpening PlanSession::Open(QIODevice &device, const QString &name,
                              const AnalysisOptions &options, const PlanStages &progress)
{
    PlanOpening opening;
    DxfReadResult read = ReadDxf(device, name, progress.reading, options.reading);
    if (!isRead(read, opening))
        return opening;
    return analysed(std::unique_ptr<PlanSession>(new PlanSession({}, name, std::move(read))),
                    options, progress.analyzing);
}

PlanSession::PlanSession(const QString &path, const QString &name, DxfReadResult &&read)
    : m_path(path),
      m_name(name),
      m_drawing(std::move(read.drawing)),
      m_readFindings(std::move(read.diagnostics))
{
}

PlanOpening PlanSession::analysed(std::unique_ptr<PlanSession> session,
                                  const AnalysisOptions &options, const PlanProgress &progress)
{
    std::optional<SheetAnalysis> analysis;
    bool isCancelled = false;
    bool isTooLarge = false;
    const PlanProgress noting = [&](qint64 done, qint64 total) {
        isCancelled = progress && !progress(done, total);
        return !isCancelled;
    };
    const bool hadMemory = attempt([&] {
        isTooLarge = !session->place(options.appliesPlacement, noting) && !isCancelled;
        if (isTooLarge || isCancelled)
            return true;
        analysis = AnalyzeSheets(session->m_drawing, options.filter, options.order, session->m_path,
                                 progress);
        return true;
    });
    if (!hadMemory)
        return {.outcome = PlanOpening::Outcome::NotAnalysed};
    if (isTooLarge)
        return {.outcome = PlanOpening::Outcome::NotAnalysed,
                .error = DxfReadError{.file = session->m_name,
                                      .message = DxfToolTexts::TooManyToPlace()}};
    if (!analysis)
        return {.outcome = PlanOpening::Outcome::Cancelled};
    session->m_analysis = *std::move(analysis);
    return {.session = std::move(session)};
}

std::vector<PlanFinding> PlanSession::Findings() const
{
    std::vector<PlanFinding> all = m_readFindings;
    all.insert(all.end(), m_analysis.diagnostics.begin(), m_analysis.diagnostics.end());
    return all;
}

qint64 PlanSession::Warnings() const
{
    return m_analysis.warnings + std::ranges::count(m_readFindings, PlanFinding::Severity::Warning,
                                                    &PlanFinding::severity);
}

bool PlanSession::place(bool appliesPlacement, const PlanProgress &progress)
{
    if (appliesPlacement == m_asRead.has_value())
        return true;
    DxfDrawing old = std::move(m_drawing);
    if (appliesPlacement) {
        PlacingResult placed = PlaceInserts(old, progress);
        const bool isPlaced(placed);
        m_drawing = isPlaced ? std::move(placed.drawing) : old;
        if (isPlaced)
            m_asRead = std::move(old);
        return isPlaced;
    }
    m_drawing = *std::exchange(m_asRead, std::nullopt);
    if (m_drawing.Inserts().size() == old.Inserts().size())
        for (std::size_t insert = 0; insert < old.Inserts().size(); ++insert)
            m_drawing.SetExportMark(insert, old.Inserts()[insert].exportMark);
    return true;
}

bool PlanSession::Relabel(const AnalysisOptions &options)
{
    m_all.reset();
    return attempt([&] {
               return place(options.appliesPlacement) && LabelSheets(m_drawing, options.order);
           }) &&
           Review(options.filter);
}

bool PlanSession::Choose(const SheetFilter &filter)
{
    return attempt([&] {
        const InsertFilter wanted(filter, m_drawing);
        std::vector<bool> passes; // as the memory lies: by number, each would be waited for
        passes.reserve(m_drawing.Inserts().size());
        for (const DxfInsert &insert : m_drawing.Inserts())
            passes.push_back(wanted.passes(insert));
        std::vector<quint32> chosen; // in order already, and their numbers need no second look
        chosen.reserve(AllSheets().size());
        std::ranges::copy_if(AllSheets(), std::back_inserter(chosen),
                             [&](quint32 sheet) { return passes[sheet]; });
        m_analysis.sheets = std::move(chosen);
        return true;
    });
}

bool PlanSession::Review(const SheetFilter &filter, const PlanProgress &progress)
{
    return attempt([&] {
        auto analysis = ReviewSheets(m_drawing, filter, m_path, progress);
        if (!analysis)
            return false;
        m_analysis = *std::move(analysis);
        return true;
    });
}

const std::vector<quint32> &PlanSession::AllSheets()
{
    if (!m_all)
        m_all = SelectSheets(m_drawing, {});
    return *m_all;
}

bool PlanSession::HasRecords() const
{
    return dxftools::hasGk2Records(m_drawing, m_analysis.sheets);
}

Gk2Export::Outcome PlanSession::refusal(const QString &path, const Gk2ExportOptions &options) const
{
    if (!m_path.isEmpty() && AreSameFile(m_path, path))
        return Outcome::IsThePlan;
    if (options.replacesForeign && options.replacesByNone)
        return Outcome::Written;
    const OlderFile older = olderFile(path);
    if (older == OlderFile::Foreign && !options.replacesForeign)
        return Outcome::IsForeign;
    if (older == OlderFile::WithSheets && !options.replacesByNone && !HasRecords())
        return Outcome::WouldBeEmpty;
    return Outcome::Written;
}

Gk2Export PlanSession::Export(const QString &path, const Gk2ExportOptions &options,
                              const PlanProgress &progress) const
{
    Gk2Export result;
    result.outcome = refusal(path, options);
    result.keptOlder = !result;
    if (!result)
        return result;
    ReplacedFile file(path);
    bool isStored = file.Open();
    if (isStored) {
        const Gk2Result written = WriteGk2(file.Device(), m_drawing, m_analysis.sheets, progress);
        result.written = written.written;
        result.outcome = written.cancelled ? Outcome::Cancelled : Outcome::Written;
        isStored = written && file.Commit();
    }
    if (!isStored) {
        result.outcome = result ? Outcome::NotStored : result.outcome;
        result.fault = file.Fault();
        result.written = dxftools::countGk2Records(m_drawing, m_analysis.sheets);
        result.keptOlder = file.HasOlder();
    }
    return result;
}

FileFault PlanSession::ExportPicture(const QString &path, std::span<const ChangedSheet> changed,
                                     qint64 gone) const
{
    const auto format = path.endsWith(".svg"_L1, Qt::CaseInsensitive) ? SheetPictureFormat::Svg
                                                                      : SheetPictureFormat::Png;
    SheetPicture picture = LayOutSheets(m_drawing, m_analysis.sheets, m_name);
    if (!changed.empty() || gone > 0) {
        ShowSheetNews(picture, changed, gone);
        ShowSheetStates(picture, m_drawing, m_analysis.sheets);
    }
    ReplacedFile file(path);
    const bool isStored = file.Open() &&
                          WriteSheetPicture(file.Device(), picture, m_drawing, format) &&
                          file.Commit();
    return isStored ? FileFault() : file.Fault();
}
